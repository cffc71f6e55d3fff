#include <map>
#include <memory>

#include "platform/win32/gdi/dc_target.h"
#include "platform/win32/gdi/surface.h"
#include "platform/win32/kernel/last_error.h"
#include "platform/win32/user/window.h"
#include "platform/win32/user/window_pos.h"

namespace winbase {

namespace {

enum class Part { kClient, kWhole };

void SubtractSiblingsAbove(const Window* window, Region& region) {
    if (window->parent == nullptr || (window->style & WS_CLIPSIBLINGS) == 0) return;
    const RECT origin = ScreenClientRect(window->parent);
    for (const Window* sibling : window->parent->children) {
        if (sibling == window) return;
        if ((sibling->style & WS_VISIBLE) != 0)
            region.Subtract(Moved(sibling->rect, origin.left, origin.top));
    }
}

/// What a context of a window draws on: it follows the window wherever it goes.
class WindowTarget final : public DcTarget {
public:
    WindowTarget(HWND window, Part part) : window_(window), part_(part) {}

    Surface* TargetSurface() override {
        Window* const window = LookUp(window_);
        return window != nullptr && window != DesktopWindow() ? TopLevel(window)->surface.get()
                                                              : nullptr;
    }

    POINT Origin() override {
        Window* const window = LookUp(window_);
        if (window == nullptr || window == DesktopWindow()) return {0, 0};
        const RECT surface = ScreenRect(TopLevel(window));
        const RECT own = part_ == Part::kClient ? ScreenClientRect(window) : ScreenRect(window);
        return {own.left - surface.left, own.top - surface.top};
    }

    const Region& Visible() override {
        visible_.Clear();
        Window* const window = LookUp(window_);
        if (window == nullptr || window == DesktopWindow() || !IsShown(window)) return visible_;
        visible_ = VisibleOnScreen(window);
        if (part_ == Part::kClient) {
            visible_.Intersect(ScreenClientRect(window));
            if ((window->style & WS_CLIPCHILDREN) != 0) {
                const RECT client = ScreenClientRect(window);
                for (const Window* child : window->children) {
                    if ((child->style & WS_VISIBLE) != 0)
                        visible_.Subtract(Moved(child->rect, client.left, client.top));
                }
            }
        }
        const RECT surface = ScreenRect(TopLevel(window));
        visible_.Offset(-surface.left, -surface.top);
        return visible_;
    }

    unsigned long long Epoch() override { return LayoutEpoch(); }

    HWND window() const { return window_; }

private:
    HWND window_;
    Part part_;
    Region visible_;
};

std::map<HDC, std::unique_ptr<WindowTarget>>& Contexts() {
    static auto& contexts = *new std::map<HDC, std::unique_ptr<WindowTarget>>;
    return contexts;
}

HDC MakeContext(HWND handle, Part part) {
    if (handle == nullptr) handle = GetDesktopWindow();
    if (FindLive(handle) == nullptr) return nullptr;
    auto target = std::make_unique<WindowTarget>(handle, part);
    const HDC dc = CreateTargetDc(target.get());
    if (dc != nullptr) Contexts().emplace(dc, std::move(target));
    return dc;
}

}  // namespace

Region VisibleOnScreen(const Window* window) {
    if (!IsShown(window)) return {};
    Region region(ScreenRect(window));
    for (const Window* up = window; up != nullptr; up = up->parent) {
        if (up->parent != nullptr) region.Intersect(ScreenClientRect(up->parent));
        SubtractSiblingsAbove(up, region);
    }
    return region;
}

void ForgetContexts(const Window*) {
    // Contexts that are not released yet find no window any more and draw nothing.
    LayoutChanged();
}

}  // namespace winbase

using namespace winbase;

HDC WINAPI GetDC(HWND window) { return MakeContext(window, Part::kClient); }

HDC WINAPI GetWindowDC(HWND window) { return MakeContext(window, Part::kWhole); }

HDC WINAPI GetDCEx(HWND window, HRGN clip, DWORD flags) {
    const HDC dc = MakeContext(window, (flags & DCX_WINDOW) != 0 ? Part::kWhole : Part::kClient);
    if (dc != nullptr && clip != nullptr) SelectClipRgn(dc, clip);
    return dc;
}

int WINAPI ReleaseDC(HWND, HDC dc) {
    const auto found = Contexts().find(dc);
    if (found == Contexts().end()) return 0;
    DestroyTargetDc(dc);
    Contexts().erase(found);
    return 1;
}

HWND WINAPI WindowFromDC(HDC dc) {
    const auto found = Contexts().find(dc);
    return found != Contexts().end() ? found->second->window() : nullptr;
}
