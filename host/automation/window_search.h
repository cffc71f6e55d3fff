#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "platform/system.h"

namespace automation {

using nlohmann::json;

/// What a command cannot do, as a text for its reply.
struct Refusal {
    std::string reason;
};

/// A window as replies show it: handle, class, text, id, rectangle on the screen, visible, enabled,
/// focus.
json Describe(HWND window);

/// The windows that a command names, in the order of the tree. Each key that is there must match:
/// "window" (a handle), "class", "id", "text" (the whole text, or its beginning with "text*"),
/// "within" (a handle; the window itself counts too), "visible" (true or false). Throws Refusal for
/// a key of the wrong type or a handle of no window.
std::vector<HWND> FindWindows(const json& command);

/// The first visible one, else the first; null where a command names none by any key. Throws
/// Refusal when it names one that isn't there.
HWND NamedWindow(const json& command);

/// Integers and texts of a command. Throw Refusal for a wrong type or range.
int IntOf(const json& command, const char* key, int otherwise, int least, int most);
std::string TextOf(const json& command, const char* key, const std::string& otherwise = {});
bool FlagOf(const json& command, const char* key, bool otherwise);

}  // namespace automation
