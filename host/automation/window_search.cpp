#include "host/automation/window_search.h"

#include <algorithm>

#include "platform/text/gbk.h"
#include "platform/text/letter_case.h"

namespace automation {
namespace {

constexpr const char* kNames[] = {"window", "class", "id", "text", "within", "visible"};

std::string WindowText(HWND window) {
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window)) + 1, '\0');
    const int length = GetWindowTextA(window, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text::Utf8FromGbk(text);
}

std::string ClassOf(HWND window) {
    char name[128] = "";
    GetClassNameA(window, name, sizeof name);
    return name;
}

BOOL CALLBACK Collect(HWND window, LPARAM lParam) {
    reinterpret_cast<std::vector<HWND>*>(lParam)->push_back(window);
    return TRUE;
}

void CollectTree(HWND window, std::vector<HWND>& found) {
    found.push_back(window);
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        CollectTree(child, found);
    }
}

std::vector<HWND> AllWindows() {
    std::vector<HWND> tops;
    EnumThreadWindows(GetCurrentThreadId(), Collect, reinterpret_cast<LPARAM>(&tops));
    std::vector<HWND> all;
    for (HWND top : tops) CollectTree(top, all);
    return all;
}

HWND HandleOf(const json& command, const char* key) {
    const json value = command.value(key, json());
    const auto number = value.is_number_unsigned() ? value.get<std::uint64_t>() : 0;
    const HWND window =
        number <= 0xFFFFFFFF ? reinterpret_cast<HWND>(static_cast<ULONG_PTR>(number)) : nullptr;
    if (!window || !IsWindow(window)) {
        throw Refusal{std::string("\"") + key + "\" is no window"};
    }
    return window;
}

bool TextMatches(const std::string& pattern, const std::string& text) {
    if (pattern.empty() || pattern.back() != '*') return text == pattern;
    return text.compare(0, pattern.size() - 1, pattern, 0, pattern.size() - 1) == 0;
}

bool Matches(const json& command, HWND window) {
    if (command.contains("class") &&
        !text::EqualNoCase(TextOf(command, "class"), ClassOf(window))) {
        return false;
    }
    if (command.contains("id") &&
        IntOf(command, "id", 0, -0x7FFFFFFF, 0x7FFFFFFF) != GetDlgCtrlID(window)) {
        return false;
    }
    if (command.contains("visible") &&
        FlagOf(command, "visible", true) != (IsWindowVisible(window) != FALSE)) {
        return false;
    }
    return !command.contains("text") || TextMatches(TextOf(command, "text"), WindowText(window));
}

}  // namespace

int IntOf(const json& command, const char* key, int otherwise, int least, int most) {
    const auto found = command.find(key);
    if (found == command.end()) return otherwise;
    if (!found->is_number_integer()) throw Refusal{std::string("\"") + key + "\" is no integer"};
    const bool huge = found->is_number_unsigned() && found->get<std::uint64_t>() > INT64_MAX;
    const std::int64_t value = huge ? INT64_MAX : found->get<std::int64_t>();
    if (value < least || value > most) {
        throw Refusal{std::string("\"") + key + "\" is not from " + std::to_string(least) + " to " +
                      std::to_string(most)};
    }
    return static_cast<int>(value);
}

std::string TextOf(const json& command, const char* key, const std::string& otherwise) {
    const auto found = command.find(key);
    if (found == command.end()) return otherwise;
    if (!found->is_string()) throw Refusal{std::string("\"") + key + "\" is no text"};
    return found->get<std::string>();
}

bool FlagOf(const json& command, const char* key, bool otherwise) {
    const auto found = command.find(key);
    if (found == command.end()) return otherwise;
    if (!found->is_boolean()) {
        throw Refusal{std::string("\"") + key + "\" is neither true nor false"};
    }
    return found->get<bool>();
}

json Describe(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    json described{{"window", static_cast<std::uint64_t>(reinterpret_cast<ULONG_PTR>(window))},
                   {"class", ClassOf(window)},
                   {"text", WindowText(window)},
                   {"rect", {rect.left, rect.top, rect.right, rect.bottom}},
                   {"visible", IsWindowVisible(window) != FALSE},
                   {"enabled", IsWindowEnabled(window) != FALSE}};
    if (GetWindowLongA(window, GWL_STYLE) & WS_CHILD) described["id"] = GetDlgCtrlID(window);
    if (GetFocus() == window) described["focus"] = true;
    return described;
}

std::vector<HWND> FindWindows(const json& command) {
    std::vector<HWND> candidates;
    if (command.contains("within")) {
        CollectTree(HandleOf(command, "within"), candidates);
    } else if (!command.contains("window")) {
        candidates = AllWindows();
    }
    if (command.contains("window")) {
        const HWND window = HandleOf(command, "window");
        const bool there =
            !command.contains("within") || std::ranges::count(candidates, window) > 0;
        candidates.assign(there ? 1 : 0, window);
    }
    std::erase_if(candidates, [&](HWND window) { return !Matches(command, window); });
    return candidates;
}

HWND NamedWindow(const json& command) {
    bool named = false;
    for (const char* name : kNames) named = named || command.contains(name);
    if (!named) return nullptr;
    const std::vector<HWND> found = FindWindows(command);
    if (found.empty()) throw Refusal{"no such window"};
    for (HWND window : found) {
        if (IsWindowVisible(window)) return window;
    }
    return found.front();
}

}  // namespace automation
