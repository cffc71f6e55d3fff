// The desktop in one SDL window. This half is a library of its own, loaded when a window is wanted,
// so that a headless program never touches SDL.

#include <SDL.h>

#include <algorithm>
#include <array>
#include <map>
#include <memory>

#include "platform/present/screen.h"
#include "platform/present/sdl_keys.h"

namespace present {

namespace {

constexpr std::array kCursorShapes = {
    SDL_SYSTEM_CURSOR_ARROW,     SDL_SYSTEM_CURSOR_IBEAM,    SDL_SYSTEM_CURSOR_WAIT,
    SDL_SYSTEM_CURSOR_CROSSHAIR, SDL_SYSTEM_CURSOR_SIZEWE,   SDL_SYSTEM_CURSOR_SIZENS,
    SDL_SYSTEM_CURSOR_SIZENWSE,  SDL_SYSTEM_CURSOR_SIZENESW, SDL_SYSTEM_CURSOR_SIZEALL,
    SDL_SYSTEM_CURSOR_NO,        SDL_SYSTEM_CURSOR_HAND};

bool IsAscii(const std::string& text) {
    return std::all_of(text.begin(), text.end(),
                       [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

class SdlScreen final : public Screen {
public:
    SdlScreen(SDL_Window* window, int scale)
        : window_(window), scale_(scale), wake_event_(SDL_RegisterEvents(1)) {
        SDL_StartTextInput();
    }
    SdlScreen(const SdlScreen&) = delete;
    SdlScreen& operator=(const SdlScreen&) = delete;

    ~SdlScreen() override {
        for (SDL_Cursor* cursor : cursors_) SDL_FreeCursor(cursor);
        SDL_DestroyWindow(window_);
        SDL_QuitSubSystem(SDL_INIT_VIDEO);
    }

    std::vector<Event> Wait(int millis) override {
        events_.clear();
        SDL_Event event;
        if (SDL_WaitEventTimeout(&event, millis) != 0) {
            Take(event);
            while (SDL_PollEvent(&event) != 0) Take(event);
        }
        return events_;
    }

    void Wake() override {
        SDL_Event event{};
        event.type = wake_event_;
        SDL_PushEvent(&event);
    }

    void Present(const Picture& picture, const std::vector<Rect>& damage) override {
        SDL_Surface* const screen = SDL_GetWindowSurface(window_);
        if (screen == nullptr) return;
        std::vector<SDL_Rect> shown;
        for (const Rect& rect : damage) {
            const SDL_Rect part = Clip(rect, picture, *screen);
            if (part.w <= 0 || part.h <= 0) continue;
            SDL_ConvertPixels(part.w, part.h, SDL_PIXELFORMAT_RGB888,
                              picture.pixels + part.y * picture.stride + part.x, picture.stride * 4,
                              screen->format->format, At(*screen, part), screen->pitch);
            shown.push_back(part);
        }
        if (!shown.empty()) {
            SDL_UpdateWindowSurfaceRects(window_, shown.data(), static_cast<int>(shown.size()));
        }
    }

    void SetCursor(Cursor cursor) override {
        const auto shape = static_cast<std::size_t>(cursor);
        if (shape >= cursors_.size()) return;
        if (cursors_[shape] == nullptr) {
            cursors_[shape] = SDL_CreateSystemCursor(kCursorShapes[shape]);
        }
        if (cursors_[shape] != nullptr) SDL_SetCursor(cursors_[shape]);
    }

    void SetTitle(const std::string& utf8) override { SDL_SetWindowTitle(window_, utf8.c_str()); }

    std::string ClipboardText() override {
        const std::unique_ptr<char, void (*)(void*)> text(SDL_GetClipboardText(), SDL_free);
        return text != nullptr ? std::string(text.get()) : std::string();
    }

    void SetClipboardText(const std::string& utf8) override { SDL_SetClipboardText(utf8.c_str()); }

    int RefreshRate() override {
        SDL_DisplayMode mode{};
        const int display = SDL_GetWindowDisplayIndex(window_);
        if (display < 0 || SDL_GetCurrentDisplayMode(display, &mode) != 0) return kUsualRate;
        return mode.refresh_rate > 0 ? mode.refresh_rate : kUsualRate;
    }

    int Width() override { return Size().first; }
    int Height() override { return Size().second; }

private:
    static constexpr int kUsualRate = 60;

    std::pair<int, int> Size() const {
        int width = 0;
        int height = 0;
        SDL_GetWindowSize(window_, &width, &height);
        return {width / scale_, height / scale_};
    }

    static SDL_Rect Clip(const Rect& rect, const Picture& picture, const SDL_Surface& screen) {
        const int width = std::min(picture.width, screen.w);
        const int height = std::min(picture.height, screen.h);
        const int left = std::clamp(rect.left * picture.scale, 0, width);
        const int top = std::clamp(rect.top * picture.scale, 0, height);
        const int right = std::clamp(rect.right * picture.scale, 0, width);
        const int bottom = std::clamp(rect.bottom * picture.scale, 0, height);
        return {left, top, right - left, bottom - top};
    }

    static void* At(const SDL_Surface& screen, const SDL_Rect& part) {
        auto* const pixels = static_cast<unsigned char*>(screen.pixels);
        return pixels + part.y * screen.pitch + part.x * screen.format->BytesPerPixel;
    }

    void Take(const SDL_Event& event) {
        switch (event.type) {
            case SDL_MOUSEMOTION: return TakeMotion(event.motion);
            case SDL_MOUSEBUTTONDOWN:
            case SDL_MOUSEBUTTONUP: return TakeButton(event.button);
            case SDL_MOUSEWHEEL: return TakeWheel(event.wheel);
            case SDL_KEYDOWN:
            case SDL_KEYUP: return TakeKey(event.key);
            case SDL_TEXTINPUT: return TakeText(event.text);
            case SDL_WINDOWEVENT: return TakeWindow(event.window);
            case SDL_QUIT: return Add(EventKind::kClose);
            default: return;
        }
    }

    Event& New(EventKind kind) {
        Event& event = events_.emplace_back();
        event.kind = kind;
        event.x = pointer_x_;
        event.y = pointer_y_;
        return event;
    }

    void Add(EventKind kind) { New(kind); }

    void TakeMotion(const SDL_MouseMotionEvent& motion) {
        pointer_x_ = motion.x / scale_;
        pointer_y_ = motion.y / scale_;
        Add(EventKind::kMouseMove);
    }

    void TakeButton(const SDL_MouseButtonEvent& button) {
        static const std::map<int, int> kButtons = {
            {SDL_BUTTON_LEFT, 0}, {SDL_BUTTON_RIGHT, 1}, {SDL_BUTTON_MIDDLE, 2}};
        const auto found = kButtons.find(button.button);
        if (found == kButtons.end()) return;
        pointer_x_ = button.x / scale_;
        pointer_y_ = button.y / scale_;
        // A drag goes on outside the window.
        SDL_CaptureMouse(button.state == SDL_PRESSED ? SDL_TRUE : SDL_FALSE);
        Event& event = New(EventKind::kButton);
        event.button = found->second;
        event.down = button.state == SDL_PRESSED;
    }

    void TakeWheel(const SDL_MouseWheelEvent& wheel) {
        if (wheel.y == 0) return;
        const int direction = wheel.direction == SDL_MOUSEWHEEL_FLIPPED ? -1 : 1;
        New(EventKind::kWheel).wheel = wheel.y * direction * 120;
    }

    void TakeKey(const SDL_KeyboardEvent& key) {
        const int code = VirtualKey(key.keysym);
        if (code == 0) return;
        Event& event = New(EventKind::kKey);
        event.key = code;
        event.down = key.state == SDL_PRESSED;
        event.repeat = key.repeat != 0;
    }

    // Plain characters come from the keys themselves; what an input method composed comes as text.
    void TakeText(const SDL_TextInputEvent& text) {
        if (!IsAscii(text.text)) New(EventKind::kText).text = text.text;
    }

    void TakeWindow(const SDL_WindowEvent& window) {
        switch (window.event) {
            case SDL_WINDOWEVENT_SIZE_CHANGED: {
                Event& event = New(EventKind::kResize);
                event.x = window.data1 / scale_;
                event.y = window.data2 / scale_;
                return;
            }
            case SDL_WINDOWEVENT_EXPOSED: return Add(EventKind::kExposed);
            case SDL_WINDOWEVENT_FOCUS_GAINED: New(EventKind::kFocus).down = true; return;
            case SDL_WINDOWEVENT_FOCUS_LOST: return Add(EventKind::kFocus);
            default: return;
        }
    }

    SDL_Window* window_;
    int scale_;
    Uint32 wake_event_;
    int pointer_x_ = 0;
    int pointer_y_ = 0;
    std::vector<Event> events_;
    std::array<SDL_Cursor*, kCursorShapes.size()> cursors_{};
};

}  // namespace

}  // namespace present

/// Opens the desktop window; null when there is no display. Sizes are logical, scale 1 to 3.
extern "C" __attribute__((visibility("default"))) present::Screen* CreatePresentScreen(int width,
                                                                                       int height,
                                                                                       int scale) {
    // The accelerated path costs ten times the memory and twenty times the time for plain pixels.
    SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
    SDL_SetHint(SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0");
    SDL_SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) return nullptr;
    SDL_Window* const window =
        SDL_CreateWindow("", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, width * scale,
                         height * scale, SDL_WINDOW_RESIZABLE);
    if (window == nullptr) {
        SDL_QuitSubSystem(SDL_INIT_VIDEO);
        return nullptr;
    }
    return new present::SdlScreen(window, scale);
}
