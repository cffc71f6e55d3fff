#include "examples/gallery/gallery_frame.h"

#include <algorithm>

#include "examples/gallery/ids.h"

namespace gallery {

namespace {

constexpr int kMargin = 12;
constexpr int kTabsTop = 6;
constexpr int kTabsWidth = 160;
constexpr int kTabsHeight = 26;
constexpr int kViewTop = kTabsTop + kTabsHeight;

}  // namespace

BEGIN_MESSAGE_MAP(GalleryFrame, CWnd)
    ON_WM_CREATE()
    ON_WM_SIZE()
    ON_WM_DESTROY()
    ON_NOTIFY(TCN_SELCHANGE, kPages, &GalleryFrame::OnTab)
    ON_MESSAGE(WM_CLOSE, &GalleryFrame::OnClose)
END_MESSAGE_MAP()

BOOL GalleryFrame::CreateFrame() {
    const LPCSTR window_class =
        AfxRegisterWndClass(0, LoadCursorA(nullptr, IDC_ARROW),
                            reinterpret_cast<HBRUSH>(static_cast<ULONG_PTR>(COLOR_3DFACE + 1)));
    RECT work{};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &work, 0);
    const int width = std::min<int>(work.right - work.left, 1264);
    const int height = std::min<int>(work.bottom - work.top, 784);
    return CreateEx(0, window_class, "控件一览", WS_OVERLAPPEDWINDOW, work.left + 8, work.top + 8,
                    width, height, nullptr, nullptr);
}

int GalleryFrame::OnCreate(LPCREATESTRUCT create) {
    if (CWnd::OnCreate(create) == -1 || !page_.CreatePage(this)) return -1;
    if (!tabs_.Create(this, kPages)) return -1;
    tabs_.AddTab("标准控件");
    tabs_.AddTab("交易控件");
    return list_.CreateList(this, kRows, CRect(0, 0, 0, 0)) ? 0 : -1;
}

void GalleryFrame::OnSize(UINT kind, int width, int height) {
    CWnd::OnSize(kind, width, height);
    if (list_.GetSafeHwnd() != nullptr) Arrange();
}

void GalleryFrame::Arrange() {
    CRect client;
    GetClientRect(client);
    CRect page;
    page_.GetWindowRect(&page);
    tabs_.MoveWindow(kMargin, kTabsTop, kTabsWidth, kTabsHeight);
    page_.MoveWindow(kMargin, kViewTop + kMargin, page.Width(), page.Height());
    const int top = kViewTop + page.Height() + 2 * kMargin;
    list_.MoveWindow(kMargin, top, std::max(client.Width() - 2 * kMargin, 0),
                     std::max(client.Height() - top - kMargin, 0));
    if (front_.GetSafeHwnd() == nullptr) return;
    front_.MoveWindow(0, kViewTop, client.Width(), std::max(client.Height() - kViewTop, 0));
}

void GalleryFrame::ShowChosen() {
    const bool standard = tabs_.GetCurSel() == 0;
    // Made when it is first wanted, so that the window opens at once.
    if (!standard && front_.GetSafeHwnd() == nullptr) {
        front_.CreatePage(this, kFrontPage);
        Arrange();
    }
    page_.ShowWindow(standard ? SW_SHOW : SW_HIDE);
    list_.ShowWindow(standard ? SW_SHOW : SW_HIDE);
    if (front_.GetSafeHwnd()) front_.ShowWindow(standard ? SW_HIDE : SW_SHOW);
}

void GalleryFrame::OnTab(NMHDR*, LRESULT* result) {
    ShowChosen();
    *result = 0;
}

LRESULT GalleryFrame::OnClose(WPARAM, LPARAM) {
    if (!stays_open_) DestroyWindow();
    return 0;
}

void GalleryFrame::OnDestroy() {
    CWnd::OnDestroy();
    PostQuitMessage(0);
}

}  // namespace gallery
