#include "tests/pages/layout.h"

#include <algorithm>

#include "platform/text/gbk.h"
#include "tests/support/gbk_text.h"

namespace tests {

std::string PlaceText(const RECT& place) {
    return std::to_string(place.left) + "," + std::to_string(place.top) + "-" +
           std::to_string(place.right) + "," + std::to_string(place.bottom);
}

namespace {

struct Child {
    int id;
    std::string window_class;
    std::string text;
    DWORD style;
    CRect place;

    bool Is(const char* name) const { return ::lstrcmpiA(window_class.c_str(), name) == 0; }
    DWORD ButtonKind() const { return Is("Button") ? style & BS_TYPEMASK : ~DWORD{0}; }
    bool Visible() const { return (style & WS_VISIBLE) != 0; }
    bool Holds() const { return ButtonKind() == BS_GROUPBOX || Is("SysTabControl32"); }
    std::string Name() const {
        return window_class + " " + std::to_string(id) + " \"" + testing_support::Readable(text) +
               "\"";
    }
};

Child Look(HWND window, HWND page) {
    char name[64] = "";
    char text[256] = "";
    ::GetClassNameA(window, name, sizeof(name));
    ::GetWindowTextA(window, text, sizeof(text));
    CRect place;
    ::GetWindowRect(window, &place);
    ::MapWindowPoints(nullptr, page, reinterpret_cast<POINT*>(&place), 2);
    return {::GetDlgCtrlID(window), name, text,
            static_cast<DWORD>(::GetWindowLongA(window, GWL_STYLE)), place};
}

/// Room that a control needs around its text, in pixels.
CSize Margin(const Child& child) {
    const DWORD kind = child.ButtonKind();
    const bool box = kind == BS_AUTOCHECKBOX || kind == BS_AUTORADIOBUTTON;
    if (box) return {17, 0};
    if (kind == BS_GROUPBOX) return {16, 0};
    if (kind != ~DWORD{0}) return {8, 6};
    return {0, 0};
}

bool TextFits(const Child& child, HWND window) {
    const bool label = child.Is("Static");
    if (child.text.empty() || !(label || child.Is("Button"))) return true;
    HDC dc = ::GetDC(window);
    auto* font = reinterpret_cast<HGDIOBJ>(::SendMessageA(window, WM_GETFONT, 0, 0));
    HGDIOBJ former = ::SelectObject(dc, font);
    SIZE size{};
    ::GetTextExtentPoint32A(dc, child.text.c_str(), static_cast<int>(child.text.size()), &size);
    ::SelectObject(dc, former);
    ::ReleaseDC(window, dc);
    // Upright buttons at the left edge of a list write one character below the other.
    constexpr int kUprightWidth = 24;
    constexpr int kUprightPitch = 15;
    if (child.place.Width() < kUprightWidth && child.text.size() > 2) {
        int characters = 0;
        for (const char* at = child.text.c_str(); *at != '\0'; at = text::NextChar(at))
            ++characters;
        return characters * kUprightPitch <= child.place.Height();
    }
    const CSize margin = Margin(child);
    return size.cx + margin.cx <= child.place.Width() &&
           size.cy + margin.cy <= child.place.Height();
}

}  // namespace

std::vector<std::string> LayoutFaults(HWND page, const std::vector<AllowedOverlap>& allowed) {
    std::vector<std::string> faults;
    CRect client;
    ::GetClientRect(page, &client);
    std::vector<Child> seen;
    for (HWND window = ::GetWindow(page, GW_CHILD); window != nullptr;
         window = ::GetWindow(window, GW_HWNDNEXT)) {
        const Child child = Look(window, page);
        CRect inside;
        inside.IntersectRect(child.place, client);
        if (!::EqualRect(&inside, &child.place)) {
            faults.push_back(child.Name() + " sticks out at " + PlaceText(child.place) + " of " +
                             PlaceText(client));
        }
        if (!TextFits(child, window)) faults.push_back(child.Name() + " is too small for its text");
        if (!child.Visible() || child.Holds()) continue;
        for (const Child& other : seen) {
            CRect shared;
            if (!shared.IntersectRect(child.place, other.place)) continue;
            const bool ok = std::any_of(allowed.begin(), allowed.end(), [&](AllowedOverlap pair) {
                return (pair.first == child.id && pair.second == other.id) ||
                       (pair.first == other.id && pair.second == child.id);
            });
            if (!ok) faults.push_back(child.Name() + " lies over " + other.Name());
        }
        seen.push_back(child);
    }
    return faults;
}

}  // namespace tests
