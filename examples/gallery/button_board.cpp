#include "examples/gallery/button_board.h"

#include <iterator>
#include <utility>

#include "controls/black_button.h"
#include "controls/bmp_button_no_pic.h"
#include "controls/bs_button.h"
#include "controls/odd_button.h"
#include "controls/page_ground.h"
#include "controls/ratio_button.h"
#include "controls/rv_msgr_btn.h"
#include "controls/templates.h"
#include "controls/v_button.h"
#include "host/skin/palette.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/ui_callback.h"

namespace gallery {

namespace {

/// A click on an item of a tip, as it reaches the receiver.
constexpr UINT kTipItemClicked = WM_USER + 1;

constexpr int kStates = 4;
constexpr int kFirstColumn = 68;
constexpr int kColumnWidth = 76;
constexpr int kRowGap = 6;
constexpr int kTable[kStates] = {0, 1, 2, 3};

/// A button that can be shown in a state which otherwise a pointer brings about.
template <class Kind>
class Held : public Kind {
public:
    void Hold(int state) {
        if (state == CTrackButton::kDisabled) {
            this->EnableWindow(FALSE);
        } else {
            this->ChangeState(state);
        }
    }
};

template <class Kind>
std::unique_ptr<Held<Kind>> Place(ButtonBoard& board, const char* text, const CRect& rect,
                                  int state) {
    auto button = std::make_unique<Held<Kind>>();
    button->Create(text, WS_VISIBLE, rect, &board, 0);
    button->Hold(state);
    return button;
}

template <class Kind>
std::unique_ptr<CTrackButton> PlaceSkinned(ButtonBoard& board, const char* text, const CRect& rect,
                                           int state, int group, int index) {
    auto button = Place<Kind>(board, text, rect, state);
    button->SetSkin(GetUICallBack()->GetSkinBitmap(group, index), kStates, kTable, FALSE);
    return button;
}

std::unique_ptr<CTrackButton> PlaceTrade(ButtonBoard& board, const char* text, const CRect& rect,
                                         int state, int index, const char* price) {
    auto button = Place<CBSButton>(board, text, rect, state);
    button->SetSkin(GetUICallBack()->GetSkinBitmap(kSkinPanels, index), kStates, kTable, FALSE);
    button->SetPrice(price, index == 1 ? skin::kDark.buy : skin::kDark.sell);
    return button;
}

}  // namespace

BEGIN_MESSAGE_MAP(ButtonBoard, CWnd)
    ON_WM_CREATE()
    ON_WM_ERASEBKGND()
    ON_WM_CTLCOLOR()
    ON_WM_DESTROY()
    ON_BN_CLICKED(kItemsButton, &ButtonBoard::OnShowItems)
    ON_MESSAGE(kTipItemClicked, &ButtonBoard::OnItem)
END_MESSAGE_MAP()

BOOL ButtonBoard::CreateBoard(CWnd* parent, UINT id) {
    const LPCSTR window_class = AfxRegisterWndClass(0, ::LoadCursorA(nullptr, IDC_ARROW));
    return CreateEx(0, window_class, "", WS_CHILD | WS_VISIBLE, CRect(0, 0, 0, 0), parent, id);
}

int ButtonBoard::OnCreate(LPCREATESTRUCT create) {
    if (CWnd::OnCreate(create) == -1) return -1;
    font_.CreateFont(12, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, GB2312_CHARSET, 0, 0, 0, 0,
                     "宋体");
    panel_brush_.CreateSolidBrush(skin::kPanelGround);
    AddLightRows();
    AddDarkRows();
    for (const auto& button : buttons_) button->SetFont(&font_);
    return 0;
}

CRect ButtonBoard::Cell(int state, CSize size) const {
    return {CPoint(kFirstColumn + state * kColumnWidth, top_), size};
}

void ButtonBoard::AddLabel(const char* text, const CRect& rect) {
    labels_.push_back(
        {text, rect, panel_top_ > 0 ? skin::kDark.secondary : skin::kLight.secondary});
}

template <class Make>
void ButtonBoard::AddRow(const char* label, int height, Make make) {
    AddLabel(label, CRect(panel_top_ > 0 ? 12 : 0, top_, kFirstColumn, top_ + height));
    for (int state = 0; state < kStates; ++state) make(state);
    top_ += height + kRowGap;
}

void ButtonBoard::AddLightRows() {
    static constexpr const char* kHeads[kStates] = {"普通", "悬停", "按下", "禁用"};
    for (int state = 0; state < kStates; ++state) AddLabel(kHeads[state], Cell(state, {64, 16}));
    top_ += 20;
    AddRow("图片", 20, [this](int state) {
        auto button = Place<CBmpButton>(*this, "查询", Cell(state, {60, 20}), state);
        button->SetSkin(GetUICallBack()->GetSkinBitmap(kSkinPages, 1), kStates, kTable, FALSE);
        button->SetTip("查询所选日期之间的成交\r\n日期包括首尾两天\r\n");
        buttons_.push_back(std::move(button));
    });
    AddRow("无图", 22, [this](int state) {
        buttons_.push_back(Place<CBmpButtonNoPic>(*this, "平仓50%", Cell(state, {60, 22}), state));
        if (state == 0) ::SetWindowLongA(*buttons_.back(), GWL_ID, kItemsButton);
    });
    AddRow("凸起", 24, [this](int state) {
        buttons_.push_back(Place<CRvMsgrBtn>(*this, "确定", Cell(state, {64, 24}), state));
    });
    AddRow("无面", 20, [this](int state) {
        buttons_.push_back(Place<COddButton>(*this, "详情", Cell(state, {64, 20}), state));
    });
    AddRow("小键", 22, [this](int state) {
        CRect rect = Cell(state, {20, 20});
        for (const int index : {13, 68, 69}) {
            buttons_.push_back(PlaceSkinned<CBmpButton>(*this, "", rect, state, kSkinPages, index));
            rect = CRect(CPoint(int{rect.right} + 2, top_), CSize(22, 22));
        }
    });
    AddRow("竖排", 88, [this](int state) {
        buttons_.push_back(PlaceSkinned<CVButton>(*this, "当日成交", Cell(state, {21, 88}), state,
                                                  kSkinPages, 14));
    });
}

void ButtonBoard::AddDarkRows() {
    panel_top_ = top_ + 4;
    top_ += 16;
    AddRow("买入", 48, [this](int state) {
        buttons_.push_back(PlaceTrade(*this, "买入", Cell(state, {70, 48}), state, 1, "242.86"));
    });
    AddRow("卖出", 48, [this](int state) {
        buttons_.push_back(PlaceTrade(*this, "卖出", Cell(state, {70, 48}), state, 2, "242.85"));
    });
    AddRow("渐变", 24, [this](int state) {
        buttons_.push_back(Place<CBlackButton>(*this, "复位", Cell(state, {64, 24}), state));
    });
    AddRow("比例", 22, [this](int state) {
        buttons_.push_back(
            PlaceSkinned<CRatioButton>(*this, "1/2", Cell(state, {48, 22}), state, kSkinPanels, 5));
    });
    AddRow("锁定", 20, [this](int state) {
        buttons_.push_back(
            PlaceSkinned<CBmpButton>(*this, "解锁", Cell(state, {60, 20}), state, kSkinPages, 4));
    });
    AddRow("撤单", 20, [this](int state) {
        buttons_.push_back(
            PlaceSkinned<CBmpButton>(*this, "撤单", Cell(state, {40, 20}), state, kSkinPanels, 7));
    });
}

// Tips are windows of the desktop: nobody takes them along.
void ButtonBoard::OnDestroy() {
    if (items_.GetSafeHwnd()) items_.DestroyWindow();
    CWnd::OnDestroy();
}

void ButtonBoard::OnShowItems() {
    static constexpr TipItem kItems[] = {
        {1, "平仓10%"}, {2, "平仓30%"}, {3, "平仓50%"}, {4, "全部平仓"}};
    CRect button;
    WithItems().GetWindowRect(button);
    if (!items_.GetSafeHwnd() && !items_.Create(controls::kEmptyDialog, this)) return;
    items_.SetNotify(m_hWnd);
    items_.SetItems(kItems, static_cast<int>(std::size(kItems)));
    items_.ShowItems(button.TopLeft(), ::GetSystemMetrics(SM_CXSCREEN));
}

HBRUSH ButtonBoard::OnCtlColor(CDC* dc, CWnd* control, UINT kind) {
    CRect place;
    control->GetWindowRect(place);
    ScreenToClient(place);
    if (panel_top_ > 0 && place.top >= panel_top_) return panel_brush_;
    const HBRUSH brush = PageGroundBrush(dc, kind);
    return brush ? brush : CWnd::OnCtlColor(dc, control, kind);
}

BOOL ButtonBoard::OnEraseBkgnd(CDC* dc) {
    FillPageGround(*this, dc);
    dc->FillSolidRect(CRect(0, panel_top_, kWidth, top_ + 4), skin::kPanelGround);
    const toolkit::ScopedSelect font(*dc, font_);
    dc->SetBkMode(TRANSPARENT);
    for (Label& label : labels_) {
        dc->SetTextColor(label.color);
        dc->DrawText(label.text.c_str(), -1, label.rect, DT_LEFT | DT_VCENTER | DT_SINGLELINE);
    }
    return TRUE;
}

}  // namespace gallery
