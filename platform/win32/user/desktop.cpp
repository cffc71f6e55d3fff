#include <winbase_hooks.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <string>

#include "platform/present/screen.h"
#include "platform/text/gbk.h"
#include "platform/win32/gdi/dc_target.h"
#include "platform/win32/gdi/surface.h"
#include "platform/win32/kernel/clock.h"
#include "platform/win32/user/desktop_setup.h"
#include "platform/win32/user/window.h"
#include "platform/win32/user/window_table.h"

namespace winbase {

namespace {

constexpr Pixel kGround = 0x14181D;
constexpr int kShadow = 4;  // pixels around popups

struct Desktop {
    std::unique_ptr<present::Screen> screen;
    SIZE size{1280, 800};
    std::unique_ptr<Surface> picture;
    Region damage;
    std::uint64_t layout = 0;
    std::vector<std::pair<HWND, RECT>> shown;  ///< windows of the last picture, the topmost first
    std::uint64_t last_present = 0;
    std::string title;  ///< as the screen has it
};

Desktop& TheDesktop() {
    static auto& desktop = *new Desktop;
    return desktop;
}

bool HasShadow(const Window* window) {
    return (window->style & WS_POPUP) != 0 && (window->style & WS_MAXIMIZE) == 0;
}

RECT WithShadow(const Window* window) {
    RECT rect = window->rect;
    if (HasShadow(window)) InflateRect(&rect, kShadow, kShadow);
    return rect;
}

// Windows that came, went, moved or changed places damage what they cover.
void CollectLayout(Desktop& desktop) {
    if (desktop.layout == LayoutEpoch()) return;
    desktop.layout = LayoutEpoch();
    std::vector<std::pair<HWND, RECT>> now;
    for (const Window* window : DesktopWindow()->children) {
        if ((window->style & WS_VISIBLE) != 0) now.emplace_back(window->handle, WithShadow(window));
    }
    const auto same = [](const auto& one, const auto& other) {
        return one.first == other.first && EqualRect(&one.second, &other.second) != FALSE;
    };
    if (std::equal(now.begin(), now.end(), desktop.shown.begin(), desktop.shown.end(), same))
        return;
    for (const auto* list : {&now, &desktop.shown}) {
        for (const auto& [handle, rect] : *list) desktop.damage.Unite(rect);
    }
    desktop.shown = std::move(now);
}

void CollectDamage(Desktop& desktop) {
    CollectLayout(desktop);
    for (const Window* window : DesktopWindow()->children) {
        if (window->surface == nullptr || !window->surface->HasDamage()) continue;
        Region damage = window->surface->TakeDamage();
        if ((window->style & WS_VISIBLE) == 0) continue;
        damage.Offset(window->rect.left, window->rect.top);
        desktop.damage.Unite(damage);
    }
    desktop.damage.Intersect(RECT{0, 0, desktop.size.cx, desktop.size.cy});
}

void FillDevice(Surface& picture, const RECT& part, Pixel color) {
    const int scale = picture.scale();
    for (int y = part.top * scale; y < part.bottom * scale; ++y) {
        Pixel* const row = picture.Row(y);
        std::fill(row + part.left * scale, row + part.right * scale, color);
    }
}

void CopyPart(const Surface& source, POINT place, Surface& picture, const RECT& part) {
    const int scale = picture.scale();
    if (source.scale() != scale) return;
    const RECT within = Intersection(part, Moved(source.Bounds(), place.x, place.y));
    if (IsEmpty(within)) return;
    for (int y = within.top * scale; y < within.bottom * scale; ++y) {
        const Pixel* const from = source.Row(y - place.y * scale) + (within.left - place.x) * scale;
        std::copy(from, from + (within.right - within.left) * scale,
                  picture.Row(y) + within.left * scale);
    }
}

void Darken(Surface& picture, const RECT& part, int share) {
    const int scale = picture.scale();
    for (int y = part.top * scale; y < part.bottom * scale; ++y) {
        Pixel* const row = picture.Row(y);
        for (int x = part.left * scale; x < part.right * scale; ++x) {
            const Pixel old = row[x];
            const auto dim = [&](int shift) {
                return ((old >> shift & 0xFF) * static_cast<Pixel>(256 - share) >> 8) << shift;
            };
            row[x] = dim(16) | dim(8) | dim(0);
        }
    }
}

// Rings that get fainter outwards.
void DrawShadow(const Window* window, Surface& picture, const RECT& part) {
    for (int ring = kShadow; ring >= 1; --ring) {
        RECT outer = window->rect;
        InflateRect(&outer, ring, ring);
        RECT inner = window->rect;
        InflateRect(&inner, ring - 1, ring - 1);
        Region line(outer);
        line.Subtract(inner);
        line.Intersect(part);
        for (const RECT& rect : line.Rects()) Darken(picture, rect, (kShadow - ring + 1) * 14);
    }
}

void ComposePart(Surface& picture, const RECT& part) {
    FillDevice(picture, part, kGround);
    const auto& tops = DesktopWindow()->children;
    for (auto window = tops.rbegin(); window != tops.rend(); ++window) {
        if (((*window)->style & WS_VISIBLE) == 0 || (*window)->surface == nullptr) continue;
        if (HasShadow(*window)) DrawShadow(*window, picture, part);
        CopyPart(*(*window)->surface, {(*window)->rect.left, (*window)->rect.top}, picture, part);
    }
}

Region Compose(Desktop& desktop) {
    if (desktop.picture == nullptr || desktop.picture->width() != desktop.size.cx ||
        desktop.picture->height() != desktop.size.cy) {
        desktop.picture =
            std::make_unique<Surface>(desktop.size.cx, desktop.size.cy, DefaultScale());
        desktop.damage.Unite(RECT{0, 0, desktop.size.cx, desktop.size.cy});
    }
    CollectDamage(desktop);
    Region done = desktop.damage;
    desktop.damage.Clear();
    for (const RECT& part : done.Rects()) ComposePart(*desktop.picture, part);
    return done;
}

bool AnythingNew(Desktop& desktop) {
    if (!desktop.damage.Empty() || desktop.layout != LayoutEpoch()) return true;
    const auto& tops = DesktopWindow()->children;
    return std::any_of(tops.begin(), tops.end(), [](const Window* window) {
        return window->surface != nullptr && window->surface->HasDamage();
    });
}

std::uint64_t FrameMillis(Desktop& desktop) {
    constexpr int kSecond = 1000;
    return static_cast<std::uint64_t>(kSecond / std::clamp(desktop.screen->RefreshRate(), 20, 240));
}

}  // namespace

present::Screen* CurrentScreen() { return TheDesktop().screen.get(); }

SIZE DesktopSize() { return TheDesktop().size; }

void SetUpDesktop(std::unique_ptr<present::Screen> screen, SIZE size) {
    Desktop& desktop = TheDesktop();
    desktop.screen = std::move(screen);
    desktop.size = size;
}

namespace {

Surface& ComposeDesktop() {
    Compose(TheDesktop());
    return *TheDesktop().picture;
}

}  // namespace

namespace {

// A display runs in real time, whatever clock the messages follow.
std::uint64_t DisplayMillis() {
    using Time = std::chrono::steady_clock;
    const auto passed = Time::now().time_since_epoch();
    return static_cast<std::uint64_t>(
        std::chrono::duration_cast<std::chrono::milliseconds>(passed).count());
}

int MillisToPresent() {
    Desktop& desktop = TheDesktop();
    if (desktop.screen == nullptr || !AnythingNew(desktop)) return -1;
    const std::uint64_t due = desktop.last_present + FrameMillis(desktop);
    const std::uint64_t now = DisplayMillis();
    return due > now ? static_cast<int>(due - now) : 0;
}

}  // namespace

namespace {

// What a task bar shows is named after the program's own window: the lowest that has a caption and
// no owner.
void TellTitle(Desktop& desktop) {
    constexpr DWORD kNamed = WS_VISIBLE | WS_CAPTION;
    const std::vector<Window*>& windows = DesktopWindow()->children;
    const auto own = std::find_if(windows.rbegin(), windows.rend(), [](const Window* window) {
        return (window->style & kNamed) == kNamed && window->owner == nullptr;
    });
    if (own == windows.rend() || (*own)->text == desktop.title) return;
    desktop.title = (*own)->text;
    desktop.screen->SetTitle(text::Utf8FromGbk(desktop.title));
}

}  // namespace

int PresentFrame() {
    Desktop& desktop = TheDesktop();
    const int wait = MillisToPresent();
    if (wait != 0) return wait;
    TellTitle(desktop);
    desktop.last_present = DisplayMillis();
    const Region done = Compose(desktop);
    std::vector<present::Rect> rects;
    rects.reserve(done.Rects().size());
    for (const RECT& rect : done.Rects())
        rects.push_back({rect.left, rect.top, rect.right, rect.bottom});
    if (rects.empty()) return -1;
    const Surface& picture = *desktop.picture;
    desktop.screen->Present({picture.Row(0), picture.device_width(), picture.device_height(),
                             static_cast<int>(picture.stride()), picture.scale()},
                            rects);
    return -1;
}

void DesktopExposed() {
    Desktop& desktop = TheDesktop();
    desktop.damage.Unite(RECT{0, 0, desktop.size.cx, desktop.size.cy});
}

namespace {

/// Of a window with a title that would be cut off by the desktop's new edges and wasn't by the old
/// ones: it comes in as far as it must, its title first.
void BringIn(const Window* window, SIZE before, SIZE now) {
    constexpr DWORD kTitled = WS_VISIBLE | WS_CAPTION;
    if ((window->style & kTitled) != kTitled) return;
    const RECT& place = window->rect;
    const auto start = [](LONG from, LONG to, LONG old_edge, LONG edge) {
        return to > edge && edge < old_edge ? std::max<LONG>(0, edge - (to - from)) : from;
    };
    const LONG left = start(place.left, place.right, before.cx, now.cx);
    const LONG top = start(place.top, place.bottom, before.cy, now.cy);
    if (left == place.left && top == place.top) return;
    SetWindowPos(window->handle, nullptr, left, top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

void DesktopResized(int width, int height) {
    Desktop& desktop = TheDesktop();
    const SIZE before = desktop.size;
    desktop.size = {std::clamp(width, 320, 8192), std::clamp(height, 240, 8192)};
    for (const HWND handle : HandlesOf(DesktopWindow()->children)) {
        const Window* const window = LookUp(handle);
        if (window == nullptr) continue;
        // A maximised window fills the desktop, whatever its size.
        if ((window->style & WS_MAXIMIZE) != 0) {
            ShowWindow(handle, SW_MAXIMIZE);
        } else {
            BringIn(window, before, desktop.size);
        }
    }
}

}  // namespace winbase

namespace winbase::hooks {

bool SaveWindowPng(HWND handle, const char* path) {
    if (path == nullptr) return false;
    if (handle == nullptr) return WritePng(ComposeDesktop(), path);
    Window* const window = LookUp(handle);
    if (window == nullptr || window == DesktopWindow()) return false;
    Window* const top = TopLevel(window);
    const RECT whole = ScreenRect(window);
    return WritePng(*top->surface, Moved(whole, -top->rect.left, -top->rect.top), path);
}

std::vector<ShownText> WindowTexts(HWND handle) {
    const HDC dc = GetDC(handle);
    if (dc == nullptr) return {};
    std::vector<ShownText> texts = ShownTexts(dc);
    ReleaseDC(handle, dc);
    // A context of a window that clips its children ends where they begin.
    if ((GetWindowLongA(handle, GWL_STYLE) & WS_CLIPCHILDREN) == 0) return texts;
    for (HWND child = GetWindow(handle, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (!IsWindowVisible(child)) continue;
        for (ShownText& text : WindowTexts(child)) {
            MapWindowPoints(child, handle, reinterpret_cast<POINT*>(&text.rect), 2);
            texts.push_back(std::move(text));
        }
    }
    return texts;
}

std::size_t LiveWindowCount() { return LiveWindows(); }

}  // namespace winbase::hooks
