#include "plugin/settings/login_blocks.h"

#include "platform/system.h"
#include "plugin/contract/messages.h"

HWND g_hLoginDlg = nullptr;

namespace {

/// Never destroyed: what it holds stays reachable to the end.
std::vector<void*>& Kept() {
    static auto* const blocks = new std::vector<void*>;
    return *blocks;
}

}  // namespace

void TellLoginDialog(WPARAM wParam, LPARAM lParam) {
    if (::IsWindow(g_hLoginDlg)) ::SendMessageA(g_hLoginDlg, WM_CORE_EVENT, wParam, lParam);
}

void TakeLoginBlock(WPARAM wParam, LPARAM lParam) {
    if (::IsWindow(g_hLoginDlg)) {
        TellLoginDialog(wParam, lParam);
    } else if (lParam != 0) {
        Kept().push_back(reinterpret_cast<void*>(lParam));
    }
}

const std::vector<void*>& KeptLoginBlocks() { return Kept(); }
