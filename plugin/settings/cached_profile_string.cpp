#include "plugin/settings/cached_profile_string.h"

#include <cstring>
#include <map>
#include <string>

#include "platform/system.h"
#include "platform/text/bounded_text.h"
#include "platform/text/gbk.h"

namespace {

constexpr std::size_t kKeySize = 256;
constexpr std::size_t kValueSize = 1024;

using Values = std::map<std::string, std::string, std::less<>>;

// Never freed: the texts are handed out for the whole process.
Values& ValuesOf(const char* file) {
    static auto* const files = new std::map<std::string, Values, std::less<>>;
    const auto found = files->find(file);
    return found != files->end() ? found->second : (*files)[file];
}

std::string WithLineFeeds(std::string_view value) {
    std::string result;
    while (!value.empty()) {
        // Character by character: a backslash may be the second byte of one.
        const bool feed = value.starts_with("\\n");
        const std::size_t length = feed ? 2 : text::CharLength(value);
        if (feed) {
            result += '\n';
        } else {
            result.append(value.substr(0, length));
        }
        value.remove_prefix(length);
    }
    return result;
}

std::string ReadValue(const char* section, const char* key, const char* fallback,
                      const char* file) {
    // One byte more than is kept tells whether the cut goes through a character.
    char read[kValueSize + 1];
    GetPrivateProfileStringA(section, key, fallback, read, sizeof read, file);
    char value[kValueSize];
    text::CopyText(value, read);
    return WithLineFeeds(value);
}

const char* OrEmpty(const char* text) { return text ? text : ""; }

}  // namespace

const char* GetCachedProfileString(const char* section, const char* key, const char* defaultValue,
                                   const char* file) {
    section = OrEmpty(section);
    key = OrEmpty(key);
    defaultValue = OrEmpty(defaultValue);
    file = OrEmpty(file);
    Values& values = ValuesOf(file);
    if (std::strlen(section) + std::strlen(key) >= kKeySize - 1) return defaultValue;

    static char composed[kKeySize];
    text::FormatText(composed, sizeof composed, "%s_%s", section, key);
    const auto found = values.find(std::string_view(composed));
    if (found != values.end()) return found->second.c_str();
    return values.emplace(composed, ReadValue(section, key, defaultValue, file))
        .first->second.c_str();
}
