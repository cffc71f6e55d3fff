#include "host/automation/automation.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <thread>
#include <utility>

#include "host/automation/raw_input.h"
#include "host/automation/window_search.h"
#include "platform/testing/input.h"
#include "platform/testing/sight.h"
#include "platform/testing/window_tree.h"
#include "platform/text/gbk.h"

namespace automation {
namespace {

constexpr std::chrono::seconds kLongestWait(10);
constexpr int kQuietLooks = 3;
constexpr int kFarthest = 30000;
constexpr int kMostNotches = 100;
constexpr std::size_t kLongestText = 1000;
constexpr int kDeepest = 32;

/// Copies and texts of a value are made by recursion, so depth that no command needs is refused
/// before there is one.
bool IsTooDeep(const std::string& line) {
    int depth = 0;
    bool in_text = false;
    for (std::size_t at = 0; at < line.size(); ++at) {
        const char c = line[at];
        if (in_text && c == '\\') ++at;
        if (c == '"') in_text = !in_text;
        if (in_text) continue;
        if ((c == '[' || c == '{') && ++depth > kDeepest) return true;
        if (c == ']' || c == '}') --depth;
    }
    return false;
}

json Parsed(const std::string& line) {
    return IsTooDeep(line) ? json() : json::parse(line, nullptr, false);
}

/// A group box lies above what it frames, and hands the pointer on.
bool LetsThrough(HWND window, POINT point) {
    const LPARAM place = MAKELPARAM(point.x, point.y);
    return window && SendMessageA(window, WM_NCHITTEST, 0, place) == HTTRANSPARENT;
}

/// Where a command points at: a place in the window it names (its middle without one), or on the
/// screen. Throws Refusal where nothing can be pointed at.
POINT PointOf(const json& command) {
    const HWND window = NamedWindow(command);
    const bool placed = command.contains("x") || command.contains("y");
    POINT point{IntOf(command, "x", 0, -kFarthest, kFarthest),
                IntOf(command, "y", 0, -kFarthest, kFarthest)};
    if (!window) {
        if (!placed) throw Refusal{"neither a window nor a place is named"};
        return point;
    }
    if (!IsWindowVisible(window)) throw Refusal{"the window is not visible"};
    if (!IsWindowEnabled(window)) throw Refusal{"the window is disabled"};
    RECT client{};
    GetClientRect(window, &client);
    if (!placed) point = {client.right / 2, client.bottom / 2};
    ClientToScreen(window, &point);
    const HWND hit = WindowFromPoint(point);
    if (hit != window && !IsChild(window, hit) && !LetsThrough(hit, point)) {
        throw Refusal{"the window is covered there"};
    }
    return point;
}

json Done() { return json{{"ok", true}}; }

json Refused(const std::string& reason) { return json{{"ok", false}, {"reason", reason}}; }

json Outcome(const std::string& reason) { return reason.empty() ? Done() : Refused(reason); }

std::string ColorText(COLORREF color) {
    char text[8];
    std::snprintf(text, sizeof text, "#%02X%02X%02X", GetRValue(color), GetGValue(color),
                  GetBValue(color));
    return text;
}

bool IsFileName(const std::string& name) {
    return !name.empty() && name.size() <= 100 && name[0] != '.' &&
           std::ranges::all_of(name, [](char c) {
               return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
                      c == '_' || c == '-' || c == '.';
           });
}

}  // namespace

Automation::Automation(Doors doors) : doors_(std::move(doors)) {}

void Automation::Put(std::string line) {
    {
        const std::scoped_lock lock(mutex_);
        lines_.push_back(std::move(line));
    }
    doors_.call();
}

void Automation::PutEnd() {
    {
        const std::scoped_lock lock(mutex_);
        ended_ = true;
    }
    doors_.call();
}

void Automation::Wake() {
    if (armed_ || quit_) return;
    armed_ = true;
    platform::testing::WhenIdle(RunNext, this);
}

void Automation::RunNext(void* self) { static_cast<Automation*>(self)->Next(); }

void Automation::Next() {
    armed_ = false;
    if (quit_) return;
    std::string line;
    bool taken = false;
    bool more = false;
    {
        const std::scoped_lock lock(mutex_);
        if (lines_.empty()) {
            quit_ = ended_;
        } else {
            line = lines_.front();
            taken = true;
            more = lines_.size() > 1 || ended_;
        }
    }
    if (quit_) doors_.quit();
    if (quit_ || !taken) return;
    if (Waits(Parsed(line))) {
        doors_.call();
        return;
    }
    {
        const std::scoped_lock lock(mutex_);
        lines_.pop_front();
    }
    const json reply = Run(line);
    doors_.reply(reply.dump(-1, ' ', false, json::error_handler_t::replace));
    if (quit_) {
        doors_.quit();
    } else if (more) {
        Wake();
    }
}

// An "idle" stays at the head of the line until queue and core were quiet a few times in a row.
bool Automation::Waits(const json& command) {
    if (!command.is_object() || command.value("cmd", json()) != json("idle")) return false;
    // Of real time: other threads work by it even where the windows' clock stands still.
    const auto now = std::chrono::steady_clock::now();
    if (!std::exchange(waits_, true)) waiting_since_ = now;
    quiet_ = doors_.core_is_quiet() ? quiet_ + 1 : 0;
    const bool over = now - waiting_since_ > kLongestWait;
    if (quiet_ >= kQuietLooks || over) return false;
    // Other threads are at work; there is nothing else to do here.
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return true;
}

json Automation::Run(const std::string& line) {
    const json command = Parsed(line);
    json reply;
    if (!command.is_object()) {
        reply = Refused("this is no JSON object");
    } else {
        try {
            reply = Execute(command);
        } catch (const Refusal& refusal) {
            reply = Refused(refusal.reason);
        }
        if (command.contains("tag")) reply["tag"] = command["tag"];
    }
    return reply;
}

json Automation::Execute(const json& command) {
    const std::string name = TextOf(command, "cmd");
    if (name == "tree") {
        return json{{"ok", true}, {"tree", platform::testing::WindowTree(NamedWindow(command))}};
    }
    if (name == "find") return Find(command);
    if (name == "click") return Click(command);
    if (name == "move") return Move(command);
    if (name == "wheel") return Wheel(command);
    if (name == "type") return Type(command);
    if (name == "key") return Key(command);
    if (name == "text") return Text(command);
    if (name == "painted") return Painted(command);
    if (name == "shot") return Shot(command);
    if (name == "quote") return Outcome(doors_.quote(command));
    if (name == "step") return Outcome(doors_.step(command));
    if (name == "core") return Outcome(doors_.core(command));
    if (name == "status") return json{{"ok", true}, {"lines", doors_.new_status()}};
    if (name == "state") {
        json reply = doors_.state();
        reply["ok"] = true;
        return reply;
    }
    if (name == "idle") {
        const bool over = std::exchange(waits_, false) && quiet_ < kQuietLooks;
        quiet_ = 0;
        return over ? Refused("still busy after 10 seconds") : Done();
    }
    if (name == "quit") {
        quit_ = true;
        return Done();
    }
    return Refused(name.empty() ? "no \"cmd\"" : "there is no command \"" + name + "\"");
}

json Automation::Find(const json& command) const {
    json windows = json::array();
    for (HWND window : FindWindows(command)) windows.push_back(Describe(window));
    return json{{"ok", true}, {"windows", windows}};
}

json Automation::Click(const json& command) const {
    const std::string button = TextOf(command, "button", "left");
    if (button != "left" && button != "right") return Refused("\"button\" is left or right");
    const bool twice = FlagOf(command, "double", false);
    const POINT point = PointOf(command);
    PutClick(point, button == "left" ? MouseButton::kLeft : MouseButton::kRight, twice);
    return Done();
}

json Automation::Move(const json& command) const {
    PutMove(PointOf(command));
    return Done();
}

json Automation::Wheel(const json& command) const {
    const int notches = IntOf(command, "notches", 1, -kMostNotches, kMostNotches);
    PutWheel(PointOf(command), notches);
    return Done();
}

json Automation::Type(const json& command) const {
    const std::string text = TextOf(command, "text");
    if (text.empty()) return Refused("no \"text\"");
    if (text.size() > kLongestText) return Refused("\"text\" is longer than 1000 bytes");
    return PutText(text::GbkFromUtf8(text)) ? Done() : Refused("nothing has the focus");
}

json Automation::Key(const json& command) const {
    const BYTE key = KeyNamed(TextOf(command, "key"));
    if (key == 0) return Refused("there is no key \"" + TextOf(command, "key") + "\"");
    PutKey(key, {.control = FlagOf(command, "ctrl", false),
                 .shift = FlagOf(command, "shift", false),
                 .alt = FlagOf(command, "alt", false)});
    return Done();
}

json Automation::Text(const json& command) const {
    const HWND window = NamedWindow(command);
    if (!window) return Refused("no window is named");
    return json{{"ok", true}, {"text", Describe(window)["text"]}};
}

// On Windows a desktop can't be read back, and there are no texts.
json Automation::Painted(const json& command) const {
    const HWND window = NamedWindow(command);
    if (!window) return Refused("no window is named");
    json texts = json::array();
    for (const platform::testing::SeenText& seen : platform::testing::SeenTexts(window)) {
        texts.push_back(
            {{"text", seen.utf8},
             {"rect", {seen.rect.left, seen.rect.top, seen.rect.right, seen.rect.bottom}},
             {"color", ColorText(seen.color)},
             {"bold", seen.bold}});
    }
    return json{{"ok", true}, {"texts", texts}};
}

json Automation::Shot(const json& command) const {
    const std::string name = TextOf(command, "name");
    if (!IsFileName(name)) return Refused("\"name\" is letters, digits, '_', '-' and '.'");
    if (doors_.shots_folder.empty()) return Refused("there is no folder: --shots DIR");
    const HWND window = NamedWindow(command);
    const std::string path =
        (std::filesystem::path(doors_.shots_folder) / (name + ".png")).string();
    if (!platform::testing::SavePicture(window, path)) return Refused("cannot write " + path);
    return json{{"ok", true}, {"file", path}};
}

}  // namespace automation
