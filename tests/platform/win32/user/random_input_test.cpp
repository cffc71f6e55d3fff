// A tree of windows under random messages, keys, clicks, sizes and texts. Nothing is expected but
// that it stands: run under sanitizers, a long run finds what no table of cases does.
//
// RANDOM_STEPS in the environment sets the length, RANDOM_SEED the start.

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "platform/system.h"
#include "platform/testing/input.h"

namespace {

constexpr int kUsualSteps = 3000;
constexpr unsigned kUsualSeed = 20131008;
constexpr std::size_t kMostWindows = 40;

class RandomDriver {
public:
    explicit RandomDriver(unsigned seed) : random_(seed) {
        g_driver = this;
        WNDCLASSA window_class{};
        window_class.style = CS_DBLCLKS | CS_HREDRAW;
        window_class.lpfnWndProc = Procedure;
        window_class.hInstance = GetModuleHandleA(nullptr);
        window_class.hbrBackground =
            reinterpret_cast<HBRUSH>(static_cast<ULONG_PTR>(COLOR_WINDOW + 1));
        window_class.lpszClassName = "RandomWindow";
        RegisterClassA(&window_class);
    }

    ~RandomDriver() {
        while (!windows_.empty()) DestroyWindow(windows_.back());
        platform::testing::Pump();
        UnregisterClassA("RandomWindow", GetModuleHandleA(nullptr));
        g_driver = nullptr;
    }

    void Step() {
        if (windows_.size() < 6) {
            Create();
            return;
        }
        const int kind = Pick(20);
        if (kind < 8) {
            Input();
        } else if (kind < 14) {
            ChangeWindow();
        } else if (kind < 18) {
            Send();
        } else if (kind == 18) {
            Create();
        } else {
            platform::testing::Pump();
        }
    }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        RandomDriver* const driver = g_driver;
        if (driver == nullptr) return DefWindowProcA(window, message, wParam, lParam);
        if (message == WM_NCCREATE) driver->windows_.push_back(window);
        if (message == WM_NCDESTROY) std::erase(driver->windows_, window);
        // Now and then a window does something rash in the middle of a message.
        if (message != WM_NCDESTROY && message != WM_DESTROY && driver->depth_ < 4 &&
            driver->Pick(400) == 0) {
            ++driver->depth_;
            driver->Rash(window);
            --driver->depth_;
            if (!IsWindow(window)) return 0;
        }
        if (message == WM_PAINT) {
            driver->Paint(window);
            return 0;
        }
        if (message == WM_CLOSE) return 0;
        return DefWindowProcA(window, message, wParam, lParam);
    }

    int Pick(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random_); }
    bool Flip() { return Pick(2) == 0; }

    HWND Any() {
        if (windows_.empty() || Pick(50) == 0) {
            // A dead, null or made-up handle.
            return Flip() ? nullptr
                          : reinterpret_cast<HWND>(static_cast<ULONG_PTR>(Pick(0x7FFFFFFF)));
        }
        return windows_[static_cast<std::size_t>(Pick(static_cast<int>(windows_.size())))];
    }

    RECT Place() { return {Pick(700) - 50, Pick(500) - 50, Pick(300), Pick(300)}; }

    std::string Text() {
        std::string text(static_cast<std::size_t>(Pick(40)), ' ');
        for (char& byte : text) byte = static_cast<char>(Flip() ? 1 + Pick(255) : 0x30 + Pick(60));
        return text;
    }

    void Create() {
        if (windows_.size() >= kMostWindows) {
            DestroyWindow(Any());
            return;
        }
        static const DWORD kStyles[] = {WS_OVERLAPPEDWINDOW,
                                        WS_POPUP | WS_BORDER,
                                        WS_POPUP | WS_CAPTION | WS_SYSMENU,
                                        WS_CHILD,
                                        WS_CHILD | WS_VSCROLL | WS_HSCROLL,
                                        WS_CHILD | WS_BORDER | WS_CLIPSIBLINGS};
        DWORD style = kStyles[Pick(6)] | (Pick(4) != 0 ? WS_VISIBLE : 0);
        if (Pick(3) == 0) style |= WS_CLIPCHILDREN;
        const RECT place = Place();
        HWND parent = Pick(5) != 0 ? Any() : nullptr;
        if (parent == nullptr && (style & WS_CHILD) != 0) style = WS_OVERLAPPEDWINDOW | WS_VISIBLE;
        CreateWindowExA(Pick(6) == 0 ? WS_EX_TOPMOST : 0, "RandomWindow", Text().c_str(), style,
                        place.left, place.top, place.right, place.bottom, parent, nullptr,
                        GetModuleHandleA(nullptr), nullptr);
    }

    void Input() {
        switch (Pick(6)) {
            case 0: SetCursorPos(Pick(900) - 20, Pick(700) - 20); break;
            case 1:
                mouse_event(Flip() ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_RIGHTDOWN, 0, 0, 0, 0);
                break;
            case 2:
                mouse_event(Flip() ? MOUSEEVENTF_LEFTUP : MOUSEEVENTF_RIGHTUP, 0, 0, 0, 0);
                break;
            case 3:
                mouse_event(MOUSEEVENTF_WHEEL, 0, 0, static_cast<DWORD>((Pick(7) - 3) * 120), 0);
                break;
            default:
                keybd_event(static_cast<BYTE>(Pick(256)), 0, Flip() ? KEYEVENTF_KEYUP : 0, 0);
                break;
        }
        // A press on a frame starts a loop that ends with a release: it must be there.
        mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
        if (Flip()) platform::testing::Pump();
    }

    void ChangeWindow() {
        const HWND window = Any();
        const RECT place = Place();
        switch (Pick(14)) {
            case 0:
                MoveWindow(window, place.left, place.top, place.right, place.bottom, Flip());
                break;
            case 1: ShowWindow(window, Pick(11)); break;
            case 2: EnableWindow(window, Pick(4) != 0); break;
            case 3: SetFocus(window); break;
            case 4: SetWindowTextA(window, Text().c_str()); break;
            case 5: InvalidateRect(window, Flip() ? &place : nullptr, Flip()); break;
            case 6: UpdateWindow(window); break;
            case 7:
                SetWindowPos(window, Any(), place.left, place.top, place.right, place.bottom,
                             static_cast<UINT>(Pick(0x100)) & ~UINT{SWP_ASYNCWINDOWPOS});
                break;
            case 8:
                SetTimer(window, static_cast<UINT_PTR>(Pick(4) + 1), static_cast<UINT>(Pick(30)),
                         nullptr);
                break;
            case 9: KillTimer(window, static_cast<UINT_PTR>(Pick(4) + 1)); break;
            case 10:
                Flip() ? static_cast<void>(SetCapture(window))
                       : static_cast<void>(ReleaseCapture());
                break;
            case 11: Scroll(window); break;
            case 12:
                RedrawWindow(window, Flip() ? &place : nullptr, nullptr,
                             static_cast<UINT>(Pick(0x1000)) & ~UINT{RDW_FRAME | RDW_NOFRAME});
                break;
            default: Rash(window); break;
        }
    }

    void Scroll(HWND window) {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = static_cast<UINT>(Pick(32));
        info.nMin = Pick(20) - 10;
        info.nMax = Pick(2000) - 100;
        info.nPage = static_cast<UINT>(Pick(300));
        info.nPos = Pick(3000) - 500;
        SetScrollInfo(window, Pick(2), &info, Flip());
        ScrollWindow(window, Pick(40) - 20, Pick(40) - 20, nullptr, nullptr);
    }

    void Send() {
        static const UINT kMessages[] = {
            WM_USER,      WM_USER + 77,      WM_GETTEXTLENGTH, WM_ERASEBKGND, WM_NCPAINT, WM_ENABLE,
            WM_SETREDRAW, WM_CANCELMODE,     WM_MOUSEMOVE,     WM_KEYDOWN,    WM_CHAR,    WM_CLOSE,
            WM_COMMAND,   WM_CAPTURECHANGED, WM_HSCROLL,       WM_VSCROLL};
        const HWND window = Any();
        const UINT message = kMessages[Pick(16)];
        const auto wParam = message == WM_ERASEBKGND ? 0 : static_cast<WPARAM>(Pick(0x10000));
        if (Flip()) {
            PostMessageA(window, message, message == WM_NCPAINT ? 1 : wParam, 0);
        } else {
            SendMessageA(window, message, message == WM_NCPAINT ? 1 : wParam, 0);
        }
    }

    void Rash(HWND window) {
        switch (Pick(8)) {
            case 0: DestroyWindow(window); break;
            case 1: DestroyWindow(GetParent(window)); break;
            case 2: SetParent(window, Flip() ? Any() : nullptr); break;
            case 3: ShowWindow(window, SW_HIDE); break;
            case 4: SetFocus(Any()); break;
            case 5: MoveWindow(window, Pick(400), Pick(400), Pick(300), Pick(200), TRUE); break;
            case 6: BringWindowToTop(Any()); break;
            default: EnableWindow(window, Flip()); break;
        }
    }

    void Paint(HWND window) {
        PAINTSTRUCT paint;
        const HDC dc = BeginPaint(window, &paint);
        if (dc == nullptr) return;
        RECT client{};
        GetClientRect(window, &client);
        const std::string text = Text();
        DrawTextA(dc, text.c_str(), static_cast<int>(text.size()), &client,
                  static_cast<UINT>(Pick(0x40)) & ~UINT{DT_WORDBREAK});
        TextOutA(dc, Pick(80) - 20, Pick(80) - 20, text.c_str(), static_cast<int>(text.size()));
        EndPaint(window, &paint);
    }

    static inline RandomDriver* g_driver = nullptr;
    std::mt19937 random_;
    std::vector<HWND> windows_;
    int depth_ = 0;
};

int FromEnvironment(const char* name, int usual) {
    const char* const text = std::getenv(name);
    return text != nullptr ? std::atoi(text) : usual;
}

TEST(RandomInput, AWindowTreeStands) {
    const int steps = FromEnvironment("RANDOM_STEPS", kUsualSteps);
    const auto seed = static_cast<unsigned>(FromEnvironment("RANDOM_SEED", kUsualSeed));
    RandomDriver driver(seed);
    for (int step = 0; step < steps; ++step) {
        driver.Step();
        if (step % 64 == 0) platform::testing::Pump();
    }
    platform::testing::Pump();
    EXPECT_EQ(GetQueueStatus(QS_POSTMESSAGE) & 0xFFFF, 0U);
}

}  // namespace
