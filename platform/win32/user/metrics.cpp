#include <array>
#include <cassert>

#include "platform/win32/kernel/last_error.h"
#include "platform/win32/user/window.h"

namespace {

struct Metric {
    int index;
    int value;
};

// The frame is flat: a title bar of 30 pixels, scroll bars of 10 without arrows.
constexpr std::array kMetrics = {
    Metric{SM_CXVSCROLL, 10},     Metric{SM_CYHSCROLL, 10},    Metric{SM_CYCAPTION, 30},
    Metric{SM_CXBORDER, 1},       Metric{SM_CYBORDER, 1},      Metric{SM_CXFIXEDFRAME, 3},
    Metric{SM_CYFIXEDFRAME, 3},   Metric{SM_CYVTHUMB, 10},     Metric{SM_CXHTHUMB, 10},
    Metric{SM_CXICON, 32},        Metric{SM_CYICON, 32},       Metric{SM_CXCURSOR, 32},
    Metric{SM_CYCURSOR, 32},      Metric{SM_CYVSCROLL, 0},     Metric{SM_CXHSCROLL, 0},
    Metric{SM_CXMIN, 112},        Metric{SM_CYMIN, 38},        Metric{SM_CXSIZEFRAME, 4},
    Metric{SM_CYSIZEFRAME, 4},    Metric{SM_CXDOUBLECLK, 4},   Metric{SM_CYDOUBLECLK, 4},
    Metric{SM_CXEDGE, 2},         Metric{SM_CYEDGE, 2},        Metric{SM_CXSMICON, 16},
    Metric{SM_CYSMICON, 16},      Metric{SM_CXDRAG, 4},        Metric{SM_CYDRAG, 4},
    Metric{SM_XVIRTUALSCREEN, 0}, Metric{SM_YVIRTUALSCREEN, 0}};

}  // namespace

int GetSystemMetrics(int index) {
    switch (index) {
        case SM_CXSCREEN:
        case SM_CXVIRTUALSCREEN: return winbase::DesktopSize().cx;
        case SM_CYSCREEN:
        case SM_CYVIRTUALSCREEN: return winbase::DesktopSize().cy;
        default: break;
    }
    for (const Metric& metric : kMetrics) {
        if (metric.index == index) return metric.value;
    }
    return 0;
}

BOOL SystemParametersInfoA(UINT action, UINT, PVOID value, UINT) {
    if (value == nullptr) return winbase::Fail(ERROR_INVALID_PARAMETER);
    switch (action) {
        case SPI_GETWORKAREA: {
            const SIZE size = winbase::DesktopSize();
            *static_cast<RECT*>(value) = {0, 0, size.cx, size.cy};
            return TRUE;
        }
        case SPI_GETWHEELSCROLLLINES: *static_cast<UINT*>(value) = 3; return TRUE;
        default:
            assert(false && "only the work area and the lines of a notch are told");
            return winbase::Fail(ERROR_INVALID_PARAMETER);
    }
}
