#include "examples/gallery/front_page.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "controls/page_ground.h"
#include "examples/gallery/ids.h"
#include "examples/gallery/order_rows.h"
#include "host/skin/menu_icons.h"
#include "host/skin/palette.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/messages.h"
#include "plugin/contract/ui_callback.h"

namespace gallery {

namespace {

constexpr int kMargin = 12;
constexpr int kMenuWidth = 139;
constexpr int kMenuHeight = 22;
constexpr int kTitleHeight = 24;
constexpr int kListWidth = 660;
constexpr int kStopsHeight = 144;
constexpr int kTabsHeight = 26;
constexpr int kMarkHeight = 24;
// A list shows the tips of its cells when it is reminded to.
constexpr UINT_PTR kTipTimer = 1;
constexpr UINT kTipTimerMillis = 100;

enum Title : std::size_t { kOrdersTitle, kTreeTitle, kButtonsTitle, kMarksTitle };
constexpr const char* kTitles[] = {"当日委托", "合约", "按钮", "选择"};

/// Where the groups stand in a page of this size.
struct Layout {
    explicit Layout(CSize size)
        : menu(kMargin, kMargin, kMargin + kMenuWidth,
               std::max(static_cast<int>(size.cy) - kMargin, kMargin)) {
        const int left = menu.right + kMargin;
        const int bottom = menu.bottom;
        stops = {left, std::max<int>(bottom - kStopsHeight, kMargin), left + kListWidth, bottom};
        const int stops_title = stops.top - kTitleHeight;
        orders = {left, kMargin + kTitleHeight, left + kListWidth,
                  std::max<int>(stops_title - kMargin, kMargin + kTitleHeight)};
        side = {orders.right + 16, kMargin, std::max<int>(static_cast<int>(size.cx) - kMargin, 0),
                bottom};
    }

    CRect menu;
    CRect orders;
    CRect stops;
    CRect side;
};

HFONT MakeFont(CFont& font, int height, int weight) {
    font.CreateFont(height, 0, 0, 0, weight, FALSE, FALSE, FALSE, GB2312_CHARSET, 0, 0, 0, 0,
                    "宋体");
    return font;
}

}  // namespace

BEGIN_MESSAGE_MAP(FrontPage, CWnd)
    ON_WM_CREATE()
    ON_WM_SIZE()
    ON_WM_ERASEBKGND()
    ON_WM_CTLCOLOR()
    ON_MESSAGE(WM_LIST_EVENT, &FrontPage::OnListEvent)
    ON_MESSAGE(WM_RADIO_CHECKED, &FrontPage::OnRadio)
END_MESSAGE_MAP()

BOOL FrontPage::CreatePage(CWnd* parent, UINT id) {
    const LPCSTR window_class = AfxRegisterWndClass(0, ::LoadCursorA(nullptr, IDC_ARROW));
    return CreateEx(WS_EX_CONTROLPARENT, window_class, "", WS_CHILD, CRect(0, 0, 0, 0), parent, id);
}

int FrontPage::OnCreate(LPCREATESTRUCT create) {
    if (CWnd::OnCreate(create) == -1) return -1;
    MakeFont(font_, 12, FW_NORMAL);
    MakeFont(title_font_, 15, FW_NORMAL);
    for (std::size_t i = 0; i < titles_.size(); ++i) {
        titles_[i].CreateEx(0, "Static", kTitles[i], WS_CHILD | WS_VISIBLE, CRect(0, 0, 0, 0), this,
                            0);
        titles_[i].SetFont(&title_font_);
    }
    CreateMenu();
    CreateLists();
    CreateTree();
    CreateMarks();
    buttons_.CreateBoard(this, kFrontButtons);
    return 0;
}

void FrontPage::CreateMenu() {
    menu_.CreateEx(0, "ListBox", "",
                   WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_BORDER | LBS_OWNERDRAWFIXED |
                       LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT | LBS_NOTIFY,
                   CRect(0, 0, 0, 0), this, kFrontMenu);
    menu_.SetFont(&font_);
    menu_.SetBitmap(GetUICallBack()->GetSkinBitmap(kSkinPages, 7));
    menu_.SetItemHeight(0, kMenuHeight);
    static constexpr const char* kItems[] = {
        "当日委托", "当前持仓", "当日成交", "资金状况", "出入金",   "修改密码", "结算单",
        "参数设置", "组合",     "锁定",     "历史成交", "止盈止损", "快捷平仓", "下单",
        "撤单",     "合约",     "走势",     "客户信息", "银行",     "公告",     "统计",
        "导出",     "服务器",   "退出",     "刷新",     "查询"};
    static_assert(std::size(kItems) == static_cast<std::size_t>(skin::MenuIcon::kCount));
    int picture = 0;
    for (const char* item : kItems) menu_.AddItem(item, picture++);
    menu_.SetCurSel(0);
}

void FrontPage::CreateLists() {
    orders_.Create(CRect(0, 0, 0, 0), this, kFrontOrders);
    OrderRows::Attach(orders_);
    orders_.ShowWindow(SW_SHOW);
    tabs_.Create(this, kFrontTabs);
    for (const char* tab : {"止盈止损", "持仓", "组合", "历史成交"}) tabs_.AddTab(tab);
    stops_.Create(CRect(0, 0, 0, 0), this, kFrontStops);
    OrderRows::FillStops(stops_);
    stops_.SetTimer(kTipTimer, kTipTimerMillis, nullptr);
    stops_.ShowWindow(SW_SHOW);
}

HTREEITEM FrontPage::AddNode(HTREEITEM parent, const char* text) {
    char buffer[64];
    std::snprintf(buffer, sizeof(buffer), "%s", text);
    TVINSERTSTRUCT insert{};
    insert.hParent = parent;
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT;
    insert.item.pszText = buffer;
    return reinterpret_cast<HTREEITEM>(
        tree_.SendMessage(TVM_INSERTITEM, 0, reinterpret_cast<LPARAM>(&insert)));
}

void FrontPage::CreateTree() {
    tree_.CreateEx(0, WC_TREEVIEW, "",
                   WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_BORDER | TVS_HASBUTTONS | TVS_HASLINES |
                       TVS_LINESATROOT | TVS_SHOWSELALWAYS,
                   CRect(0, 0, 0, 0), this, kFrontTree);
    tree_.SetFont(&font_);
    const HTREEITEM deferred = AddNode(TVI_ROOT, "延期");
    AddNode(deferred, "Au(T+D)");
    const HTREEITEM silver = AddNode(deferred, "Ag(T+D)");
    AddNode(deferred, "mAu(T+D)");
    const HTREEITEM spot = AddNode(TVI_ROOT, "现货");
    AddNode(spot, "Au99.99");
    AddNode(spot, "Au100g");
    tree_.Expand(deferred, TVE_EXPAND);
    tree_.SelectItem(silver);
}

void FrontPage::CreateMarks() {
    static constexpr const char* kRadioTexts[] = {"限价", "市价", "不可用"};
    static constexpr const char* kCheckTexts[] = {"止盈", "止损", "不可用"};
    const CRect nowhere;
    for (int i = 0; i < kMarkCount; ++i) {
        const auto index = static_cast<std::size_t>(i);
        const auto id = static_cast<UINT>(i);
        radios_[index].Create(kRadioTexts[i], WS_VISIBLE | WS_TABSTOP, nowhere, this,
                              kFrontRadio + id);
        checks_[index].Create(kCheckTexts[i], WS_VISIBLE | WS_TABSTOP, nowhere, this,
                              kFrontCheck + id);
        radios_[index].SetFont(&font_);
        checks_[index].SetFont(&font_);
    }
    radios_[0].SetChecked(TRUE);
    checks_[0].SetChecked(TRUE);
    checks_[2].SetChecked(TRUE);
    radios_[2].EnableWindow(FALSE);
    checks_[2].EnableWindow(FALSE);
}

void FrontPage::OnSize(UINT kind, int width, int height) {
    CWnd::OnSize(kind, width, height);
    if (menu_.GetSafeHwnd() == nullptr) return;
    const Layout layout(CSize(width, height));
    menu_.MoveWindow(layout.menu);
    orders_.MoveWindow(layout.orders);
    stops_.MoveWindow(layout.stops);
    const auto put_title = [this](Title title, int left, int top, int right) {
        titles_[title].MoveWindow(left, top, right - left, kTitleHeight - 4);
    };
    const CRect& side = layout.side;
    put_title(kOrdersTitle, layout.orders.left, layout.orders.top - kTitleHeight,
              layout.orders.right);
    tabs_.MoveWindow(layout.stops.left, layout.stops.top - kTabsHeight, layout.stops.Width(),
                     kTabsHeight - 1);
    put_title(kTreeTitle, side.left, layout.stops.top - kTitleHeight, side.right);
    tree_.MoveWindow(side.left, layout.stops.top, 180, layout.stops.Height());
    put_title(kButtonsTitle, side.left, side.top, side.right);
    buttons_.MoveWindow(side.left, side.top + kTitleHeight, ButtonBoard::kWidth,
                        std::max<int>(layout.stops.top - 2 * kTitleHeight - kMargin, 0));
    const int marks = side.left + 196;
    put_title(kMarksTitle, marks, layout.stops.top - kTitleHeight, side.right);
    for (int i = 0; i < kMarkCount; ++i) {
        const auto index = static_cast<std::size_t>(i);
        const int top = layout.stops.top + i * kMarkHeight;
        radios_[index].MoveWindow(marks, top, 80, 20);
        checks_[index].MoveWindow(marks + 88, top, 80, 20);
    }
}

BOOL FrontPage::OnEraseBkgnd(CDC* dc) {
    FillPageGround(*this, dc);
    orders_.DrawBorder();
    stops_.DrawBorder();
    return TRUE;
}

HBRUSH FrontPage::OnCtlColor(CDC* dc, CWnd* control, UINT kind) {
    const HBRUSH brush = PageGroundBrush(dc, kind);
    return brush ? brush : CWnd::OnCtlColor(dc, control, kind);
}

LRESULT FrontPage::OnListEvent(WPARAM, LPARAM) { return 0; }

LRESULT FrontPage::OnRadio(WPARAM, LPARAM lParam) {
    for (COwerRadio& radio : radios_) {
        if (radio.GetDlgCtrlID() != lParam) radio.SetChecked(FALSE);
    }
    return 0;
}

}  // namespace gallery
