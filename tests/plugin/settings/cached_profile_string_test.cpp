#include "plugin/settings/cached_profile_string.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "platform/system.h"
#include "platform/text/gbk.h"
#include "tests/support/gbk_text.h"
#include "tests/support/temp_folder.h"

namespace {

/// A file of its own in a folder of its own. The cache lives as long as the program, so each object
/// has another name.
class PromptFile {
public:
    explicit PromptFile(std::string_view content) { Write(content); }

    void Write(std::string_view content) {
        folder_.Write(std::u8string(name_.begin() + 2, name_.end()), content);
    }
    const char* Get(const std::string& section, const std::string& key,
                    const char* fallback = "DEF") const {
        return GetCachedProfileString(section.c_str(), key.c_str(), fallback, name_.c_str());
    }
    const std::string& Name() const { return name_; }

private:
    static inline int count = 0;
    testing_support::TempFolder folder_;
    std::string name_ = ".\\prompt" + std::to_string(++count) + ".ini";
};

TEST(GetCachedProfileString, MakesLineFeedsOfBackslashAndN) {
    const struct {
        std::string value;
        std::string expected;
    } cases[] = {
        {"止损\\n止盈", "止损\n止盈"},
        {"\\n\\n", "\n\n"},
        {"a\\b\\", "a\\b\\"},
        {"a\\\\nb", "a\\\nb"},
        {"a\\N", "a\\N"},
        {"\x81\\n", "\x81\\n"},  // the backslash is half a character
        {"", ""},
    };
    for (const auto& c : cases) {
        const PromptFile file("[s]\r\nk=" + c.value + "\r\n");
        EXPECT_GBK_EQ(c.expected, file.Get("s", "k"));
    }
}

TEST(GetCachedProfileString, TurnsTheDefaultAsWell) {
    const PromptFile file("[s]\n");
    EXPECT_STREQ("a\nb", file.Get("s", "k", "a\\nb"));
}

TEST(GetCachedProfileString, StaysWithItsFirstAnswer) {
    PromptFile file("[s]\nk=first\n");
    const char* const first = file.Get("s", "k");
    const char* const missing = file.Get("s", "none", "one");
    file.Write("[s]\nk=second\nnone=here\n");
    EXPECT_EQ(first, file.Get("s", "k"));
    EXPECT_STREQ("first", first);
    EXPECT_EQ(missing, file.Get("s", "none", "two"));
    EXPECT_STREQ("one", missing);
}

TEST(GetCachedProfileString, KeepsFilesApart) {
    const PromptFile one("[s]\nk=1\n");
    const std::string first = one.Get("s", "k");
    const PromptFile two("[s]\nk=2\n");
    EXPECT_EQ("1", first);
    EXPECT_STREQ("2", two.Get("s", "k"));
}

TEST(GetCachedProfileString, KeepsNamesOf254BytesAndNotMore) {
    for (const int key_length : {1, 100, 253}) {
        const std::string key(static_cast<std::size_t>(key_length), 'k');
        const std::string section(254 - key.size(), 's');
        PromptFile file("[" + section + "]\n" + key + "=value\n");
        EXPECT_STREQ("value", file.Get(section, key));
        file.Write("");
        EXPECT_STREQ("value", file.Get(section, key));

        const char* const fallback = "a\\nb";
        EXPECT_EQ(fallback, file.Get(section + "s", key, fallback));
        EXPECT_EQ(fallback, file.Get(section, key + std::string(70000, 'k'), fallback));
    }
}

TEST(GetCachedProfileString, CutsLongTextsBetweenCharacters) {
    std::string characters;
    while (characters.size() < 4000) characters += "\xB9\xE2";
    const PromptFile file("[s]\neven=" + characters + "\nodd=x" + characters + "\n");
    EXPECT_EQ(characters.substr(0, 1022), file.Get("s", "even"));
    EXPECT_EQ("x" + characters.substr(0, 1022), file.Get("s", "odd"));
}

TEST(GetCachedProfileString, TakesNullAsEmpty) {
    const PromptFile file("[s]\nk=v\n");
    EXPECT_STREQ("", GetCachedProfileString("s", "none", nullptr, file.Name().c_str()));
    EXPECT_NE(nullptr, GetCachedProfileString(nullptr, nullptr, nullptr, nullptr));
    EXPECT_STREQ("d", GetCachedProfileString("s", "k", "d", nullptr));
}

std::string ReplaceFeeds(std::string text) {
    for (std::size_t at = 0; (at = text.find("\\n", at)) != std::string::npos; ++at) {
        text.replace(at, 2, "\n");
    }
    return text;
}

TEST(GetCachedProfileString, AnswersAsTheSystemDoesWithLineFeeds) {
    std::mt19937 random(7);
    constexpr std::string_view kPieces[] = {"\\", "n",  "\\n", "a",  " ",    "=",  ";",  "[",  "]",
                                            "\"", "\t", "中",  "文", "\r\n", "\n", "k=", "[s]"};
    for (int round = 0; round < 300; ++round) {
        std::string content = "[s]\nk=";
        for (auto i = random() % 30; i > 0; --i) content += kPieces[random() % std::size(kPieces)];
        const PromptFile file(content);
        char direct[1024];
        GetPrivateProfileStringA("s", "k", "DEF", direct, sizeof direct, file.Name().c_str());
        EXPECT_GBK_EQ(ReplaceFeeds(direct), file.Get("s", "k"));
    }
}

}  // namespace
