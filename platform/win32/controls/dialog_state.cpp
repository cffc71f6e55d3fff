#include "platform/win32/controls/dialog_state.h"

#include <map>

#include "platform/win32/controls/control.h"

namespace winbase {

namespace {

std::map<HWND, DialogState>& States() {
    static auto& states = *new std::map<HWND, DialogState>;
    return states;
}

}  // namespace

DialogState* FindDialog(HWND dialog) {
    const auto found = States().find(dialog);
    return found == States().end() ? nullptr : &found->second;
}

DialogState& MakeDialog(HWND dialog) { return States()[dialog]; }

void ForgetDialog(HWND dialog) {
    const auto found = States().find(dialog);
    if (found == States().end()) return;
    if (found->second.owns_font) DeleteObject(found->second.font);
    States().erase(found);
}

SIZE BaseUnits(HFONT font) {
    constexpr char kLetters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    const HDC dc = CreateCompatibleDC(nullptr);
    SIZE extent{};
    TEXTMETRICA metrics{};
    {
        const UseFont use(dc, font);
        GetTextExtentPoint32A(dc, kLetters, 52, &extent);
        GetTextMetricsA(dc, &metrics);
    }
    DeleteDC(dc);
    return {(extent.cx / 26 + 1) / 2, metrics.tmHeight};
}

int UnitsToX(const SIZE& base, int units) { return MulDiv(units, base.cx, 4); }

int UnitsToY(const SIZE& base, int units) { return MulDiv(units, base.cy, 8); }

}  // namespace winbase
