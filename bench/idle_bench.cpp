#include <cmath>
#include <ctime>

#include "bench/ratio.h"
#include "platform/system.h"

namespace {

double ProcessorMillis() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// A program at rest: its window is shown and painted, and nothing comes but the timer that ends
/// it.
MEASURE("idle.cpu_ms_in_10_s") {
    WNDCLASSA window_class{};
    window_class.lpfnWndProc = DefWindowProcA;
    window_class.lpszClassName = "IdleWindow";
    window_class.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
    RegisterClassA(&window_class);
    const HWND window = CreateWindowExA(0, "IdleWindow", "空闲", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                        0, 0, 800, 600, nullptr, nullptr, nullptr, nullptr);
    if (window == nullptr) return std::nan("");
    UpdateWindow(window);
    MSG message{};
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);

    constexpr UINT kTenSeconds = 10'000;
    SetTimer(window, 1, kTenSeconds, nullptr);
    const double start = ProcessorMillis();
    while (GetMessageA(&message, nullptr, 0, 0) > 0 && message.message != WM_TIMER) {
        DispatchMessageA(&message);
    }
    const double used = ProcessorMillis() - start;
    DestroyWindow(window);
    return used;
}

}  // namespace
