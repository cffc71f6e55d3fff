#include "host/terminal/pages_pane.h"

#include "host/skin/menu_icons.h"
#include "host/skin/palette.h"

namespace terminal {
namespace {

constexpr char kPaneProperty[] = "PagesPane";
constexpr int kScriptBase = 10000001;
constexpr int kFirstPage = 0;

/// These are views of one window, which is hidden by any of their numbers.
bool IsTradingView(int page) { return (page >= 0 && page <= 3) || page == 17; }

int Icon(skin::MenuIcon icon) { return static_cast<int>(icon); }

}  // namespace

BEGIN_MESSAGE_MAP(PagesPane, CWnd)
    ON_WM_SIZE()
    ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

const std::vector<PagesPane::Entry>& PagesPane::Entries() {
    using skin::MenuIcon;
    static const std::vector<Entry> entries = {
        {0, "下单", Icon(MenuIcon::kPlaceOrder)},   {1, "委托", Icon(MenuIcon::kOrders)},
        {2, "成交", Icon(MenuIcon::kTrades)},       {3, "持仓", Icon(MenuIcon::kPositions)},
        {4, "资金", Icon(MenuIcon::kFunds)},        {32, "结算单", Icon(MenuIcon::kSettlement)},
        {7, "银行转账", Icon(MenuIcon::kTransfer)}, {6, "组合", Icon(MenuIcon::kCombination)},
    };
    return entries;
}

BOOL PagesPane::CreatePane(CWnd* frame, UINT id) {
    const LPCSTR window_class = AfxRegisterWndClass(0, LoadCursorA(nullptr, IDC_ARROW), nullptr);
    return CWnd::Create(window_class, "", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS,
                        CRect(0, 0, 0, 0), frame, id);
}

BOOL PagesPane::CreatePages(HWND frame) {
    CRect client;
    GetClientRect(&client);
    front_end_.SetFrameWnd(frame);
    front_end_.Create(0, 0, client.Width(), client.Height(), GetSafeHwnd());
    CWnd* main = front_end_.GetMainDlg();
    if (!main || !main->GetSafeHwnd()) return FALSE;
    main_ = main->GetSafeHwnd();
    SetPropA(main_, kPaneProperty, reinterpret_cast<HANDLE>(this));
    main_procedure_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(main_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&WatchMain)));
    FillMenu();
    // A new main window shows its order page.
    page_ = kFirstPage;
    ShowPage(kFirstPage);
    return TRUE;
}

LRESULT CALLBACK PagesPane::WatchMain(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* pane = static_cast<PagesPane*>(GetPropA(window, kPaneProperty));
    if (!pane) return ::DefWindowProcA(window, message, wParam, lParam);
    const WNDPROC former = pane->main_procedure_;
    if (message == WM_NCDESTROY) {
        RemovePropA(window, kPaneProperty);
        SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(former));
        pane->main_ = nullptr;
        pane->menu_ = nullptr;
    }
    const LRESULT result = CallWindowProcA(former, window, message, wParam, lParam);
    const bool from_menu = reinterpret_cast<HWND>(lParam) == pane->menu_ && pane->menu_ != nullptr;
    if (message == WM_COMMAND && HIWORD(wParam) == LBN_SELCHANGE && from_menu) pane->OnMenu();
    return result;
}

void PagesPane::FillMenu() {
    int unused = 0;
    CWnd* menu = front_end_.GetMenuCtrl(unused);
    if (!menu || !menu->GetSafeHwnd()) return;
    menu_ = menu->GetSafeHwnd();
    ::SendMessageA(menu_, LB_RESETCONTENT, 0, 0);
    for (const Entry& entry : Entries()) {
        const LRESULT index =
            ::SendMessageA(menu_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry.name));
        ::SendMessageA(menu_, LB_SETITEMDATA, static_cast<WPARAM>(index), entry.icon);
    }
}

void PagesPane::OnMenu() {
    const LRESULT chosen = ::SendMessageA(menu_, LB_GETCURSEL, 0, 0);
    if (chosen < 0 || static_cast<std::size_t>(chosen) >= Entries().size()) return;
    ShowPage(Entries()[static_cast<std::size_t>(chosen)].page);
    if (on_page) on_page(page_);
}

int PagesPane::IndexOf(int page) const {
    for (std::size_t index = 0; index < Entries().size(); ++index) {
        if (Entries()[index].page == page) return static_cast<int>(index);
    }
    return -1;
}

void PagesPane::ShowPage(int page) {
    const int index = IndexOf(page);
    if (!main_ || index < 0) return;
    if (page_ >= 0 && page_ != page && !(IsTradingView(page_) && IsTradingView(page))) {
        front_end_.ShowWindow_Script(kScriptBase + page_, SW_HIDE);
    }
    page_ = page;
    front_end_.ShowWindow_Script(kScriptBase + page, SW_SHOW);
    if (menu_) ::SendMessageA(menu_, LB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

void PagesPane::FocusOrderPage() {
    if (!main_) return;
    HWND first = GetNextDlgTabItem(main_, nullptr, FALSE);
    if (first == menu_) first = GetNextDlgTabItem(main_, menu_, FALSE);
    if (first) ::SetFocus(first);
}

void PagesPane::DestroyPages() {
    front_end_.OnDestroyWindow(0);
    main_ = nullptr;
    menu_ = nullptr;
    page_ = -1;
}

void PagesPane::OnSize(UINT kind, int width, int height) {
    CWnd::OnSize(kind, width, height);
    if (main_) front_end_.OnSize(0, 0, width, height, 0);
}

BOOL PagesPane::OnEraseBkgnd(CDC* dc) {
    CRect client;
    GetClientRect(&client);
    dc->FillSolidRect(client, skin::kLight.ground);
    return TRUE;
}

}  // namespace terminal
