#include "tests/controls/stage.h"

#include <utility>

#include "controls/my_tree.h"
#include "platform/testing/input.h"
#include "platform/testing/sight.h"
#include "plugin/contract/messages.h"

namespace tests {

BEGIN_MESSAGE_MAP(Stage, CWnd)
    ON_WM_ERASEBKGND()
    ON_WM_CTLCOLOR()
    ON_MESSAGE(WM_RADIO_CHECKED, &Stage::OnRadio)
    ON_MESSAGE(WM_CHECK_CHANGED, &Stage::OnCheck)
END_MESSAGE_MAP()

Stage::Stage() {
    CreateEx(0, AfxRegisterWndClass(0, ::LoadCursorA(nullptr, IDC_ARROW)), "",
             WS_POPUP | WS_VISIBLE, CRect(100, 100, 500, 400), nullptr, 0);
}

Stage::~Stage() { DestroyWindow(); }

std::string Stage::Heard() {
    std::string all;
    for (const std::string& event : std::exchange(events, {}))
        all += (all.empty() ? "" : "; ") + event;
    return all;
}

void Stage::ChangeGround(COLORREF color) {
    ground = color;
    RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
}

BOOL Stage::OnEraseBkgnd(CDC* dc) {
    CRect client;
    GetClientRect(client);
    dc->FillSolidRect(client, ground);
    return TRUE;
}

HBRUSH Stage::OnCtlColor(CDC* dc, CWnd* control, UINT kind) {
    if (kind != CTLCOLOR_STATIC) return CWnd::OnCtlColor(dc, control, kind);
    dc->SetTextColor(kStageText);
    return brush_;
}

void Stage::Tell(const char* what, WPARAM window, LPARAM id) {
    const HWND control = ::GetDlgItem(m_hWnd, static_cast<int>(id));
    const bool right = control != nullptr && reinterpret_cast<WPARAM>(control) == window;
    events.push_back(what + std::to_string(id) + (right ? "" : " of another window"));
}

LRESULT Stage::OnRadio(WPARAM wParam, LPARAM lParam) {
    Tell("radio ", wParam, lParam);
    return 0;
}

LRESULT Stage::OnCheck(WPARAM wParam, LPARAM lParam) {
    Tell("check ", wParam, lParam);
    return 0;
}

BOOL Stage::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const auto& notice = *reinterpret_cast<const NMTREEVIEW*>(lParam);
    switch (notice.hdr.code) {
        case kTreeButtonPressed:
            events.push_back("button " + std::to_string(notice.action));
            return TRUE;
        case TVN_SELCHANGED: events.emplace_back("selected"); return TRUE;
        case TVN_ITEMEXPANDED:
            events.emplace_back(notice.action == TVE_EXPAND ? "expanded" : "collapsed");
            return TRUE;
        default: return CWnd::OnNotify(wParam, lParam, result);
    }
}

StageTest::StageTest() {
    platform::testing::RememberTexts();
    platform::testing::StopClock();
    platform::testing::MovePointer({5, 5});
    platform::testing::PumpFor(::GetDoubleClickTime() + 1);
    stage_.UpdateWindow();
}

COLORREF StageTest::PixelOf(const CWnd& window, int x, int y) {
    const HDC dc = ::GetDC(window.GetSafeHwnd());
    const COLORREF color = ::GetPixel(dc, x, y);
    ::ReleaseDC(window.GetSafeHwnd(), dc);
    return color;
}

void StageTest::Smear(const CWnd& window, int x, int y, COLORREF color) {
    const HDC dc = ::GetDC(window.GetSafeHwnd());
    ::SetPixel(dc, x, y, color);
    ::ReleaseDC(window.GetSafeHwnd(), dc);
}

}  // namespace tests
