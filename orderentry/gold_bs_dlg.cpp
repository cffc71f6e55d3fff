#include "orderentry/gold_bs_dlg.h"

#include <algorithm>

#include "controls/page_ground.h"
#include "orderentry/volume_rules.h"
#include "plugin/contract/messages.h"
#include "plugin/settings/process_values.h"

// The order page's window: what it is made of, how it lies and looks, where its keys go.

namespace {

constexpr int kPriceListWidth = 120;
constexpr int kChoiceWidth = 45;
constexpr int kStopWidth = 70;
constexpr int kChoiceHeight = 18;
constexpr int kChoicePitch = 50;

constexpr COLORREF kBuyColor = 0x0000FF;
constexpr COLORREF kSellColor = 0x019300;

struct TextColor {
    int id;
    COLORREF color;
};
constexpr TextColor kChoiceColors[] = {
    {CGoldBsDlg::kBuy, kBuyColor},
    {CGoldBsDlg::kSell, kSellColor},
    {CGoldBsDlg::kOpen, 0x545454},
    {CGoldBsDlg::kClose, 0xC46D2D},
};

constexpr int kSideLabels[] = {
    CGoldBsDlg::kContractLabel, CGoldBsDlg::kDirectionLabel, CGoldBsDlg::kOffsetLabel,
    CGoldBsDlg::kPriceLabel,    CGoldBsDlg::kMaxVolumeLabel, CGoldBsDlg::kVolumeLabel,
};

/// Grounds and frame of the button that sends, normal, under the pointer and pressed.
struct SideFaces {
    COLORREF grounds[3];
    COLORREF frame;
};
constexpr SideFaces kBuyFaces = {
    {RGB(0xFF, 0xFF, 0xFF), RGB(0xFD, 0xEE, 0xEE), RGB(0xFA, 0xDC, 0xDC)}, RGB(0xD6, 0x26, 0x2B)};
constexpr SideFaces kSellFaces = {
    {RGB(0xFF, 0xFF, 0xFF), RGB(0xEB, 0xF6, 0xEF), RGB(0xD6, 0xEC, 0xDF)}, RGB(0x12, 0x87, 0x4A)};

void SetTabStop(CWnd& control, bool stop) {
    control.ModifyStyle(stop ? 0 : WS_TABSTOP, stop ? WS_TABSTOP : 0);
}

void PlaceBehind(HWND window, HWND before) {
    ::SetWindowPos(window, before, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

}  // namespace

BEGIN_MESSAGE_MAP(CGoldBsDlg, CDialog)
    ON_WM_SIZE()
    ON_WM_ERASEBKGND()
    ON_WM_CTLCOLOR()
    ON_WM_LBUTTONDOWN()
    ON_MESSAGE(WM_QUERY_CONTRACT, &CGoldBsDlg::OnQueryContract)
    ON_MESSAGE(WM_POSITION_ROW, &CGoldBsDlg::OnPositionRow)
    ON_MESSAGE(WM_POSITION_CONTRACT, &CGoldBsDlg::OnPositionContract)
    ON_MESSAGE(WM_RADIO_CHECKED, &CGoldBsDlg::OnRadioChecked)
    ON_MESSAGE(WM_CHECK_CHANGED, &CGoldBsDlg::OnCheckChanged)
    ON_CBN_SELCHANGE(kContract, &CGoldBsDlg::OnContractSelected)
    ON_CBN_EDITCHANGE(kContract, &CGoldBsDlg::OnContractTyped)
    ON_EN_CHANGE(kPrice, &CGoldBsDlg::OnPriceChanged)
    ON_EN_KILLFOCUS(kPrice, &CGoldBsDlg::OnPriceLeft)
    ON_NOTIFY(UDN_DELTAPOS, kPriceSpin, &CGoldBsDlg::OnPriceStep)
    ON_NOTIFY(UDN_DELTAPOS, kVolumeSpin, &CGoldBsDlg::OnVolumeStep)
    ON_BN_CLICKED(kSubmit, &CGoldBsDlg::OnSubmit)
    ON_BN_CLICKED(kReset, &CGoldBsDlg::OnReset)
    ON_BN_CLICKED(kAskMaxVolume, &CGoldBsDlg::OnAskMaxVolume)
END_MESSAGE_MAP()

void CGoldBsDlg::Connect(const ReportPane* report, StopCheckListener* listener, StopDialog* stops) {
    m_pReport = report;
    m_pStopListener = listener;
    m_pStopDialog = stops;
}

void CGoldBsDlg::DoDataExchange(CDataExchange* exchange) {
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, kBuy, m_buy);
    DDX_Control(exchange, kSell, m_sell);
    DDX_Control(exchange, kOpen, m_open);
    DDX_Control(exchange, kClose, m_close);
    DDX_Control(exchange, kNet, m_net);
    DDX_Control(exchange, kStops, m_stops);
    DDX_Control(exchange, kAutoStop, m_autoStop);
    DDX_Control(exchange, kSubmit, m_submit);
    DDX_Control(exchange, kReset, m_reset);
    DDX_Control(exchange, kAskMaxVolume, m_askMaxVolume);
}

HWND CGoldBsDlg::PriceWindow() const {
    const CWnd* const edit = m_price.InnerEdit();
    return edit != nullptr ? edit->m_hWnd : nullptr;
}

BOOL CGoldBsDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    m_price.CreateOver(*this, kPrice);
    m_volume.CreateOver(*this, kVolume);
    m_price.SetListWidth(kPriceListWidth);
    OrderTabStops();
    m_stops.ShowWindow(g_bNeedShowStopLossAndProfit == 1 ? SW_SHOW : SW_HIDE);
    m_autoStop.ShowWindow(SW_HIDE);
    RefreshLook();
    return TRUE;
}

// Each composite comes behind the edit whose place it takes.
void CGoldBsDlg::OrderTabStops() {
    PlaceBehind(m_price, ::GetDlgItem(m_hWnd, kPrice));
    PlaceBehind(m_volume, ::GetDlgItem(m_hWnd, kVolume));
}

void CGoldBsDlg::OnOK() {
    const HWND focus = ::GetFocus();
    if (focus == nullptr) return;
    if (m_volume.InnerEdit() != nullptr && focus == m_volume.InnerEdit()->m_hWnd) {
        m_submit.SetFocus();
        return;
    }
    // Painted buttons are no default buttons to the dialog, so Enter comes here.
    for (const HWND button : {m_submit.m_hWnd, m_reset.m_hWnd, m_askMaxVolume.m_hWnd}) {
        if (focus == button) ::SendMessageA(button, BM_CLICK, 0, 0);
    }
}

void CGoldBsDlg::OnSize(UINT type, int cx, int cy) {
    CDialog::OnSize(type, cx, cy);
    LayOut();
}

void CGoldBsDlg::LayOut() {
    HWND label = ::GetDlgItem(m_hWnd, kDirectionLabel);
    if (label == nullptr) return;
    CRect anchor;
    ::GetWindowRect(label, &anchor);
    ScreenToClient(&anchor);
    const int right = anchor.right;
    const int top = anchor.top;
    const int bottom = anchor.bottom;
    const auto move = [this](int id, int x, int y, int width) {
        HWND control = ::GetDlgItem(m_hWnd, id);
        if (control != nullptr) ::MoveWindow(control, x, y, width, kChoiceHeight, TRUE);
    };
    move(kBuy, right, top, kChoiceWidth);
    move(kSell, right + kChoicePitch, top, kChoiceWidth);
    move(kOpen, right, bottom + 10, kChoiceWidth);
    move(kClose, right + kChoicePitch, bottom + 10, kChoiceWidth);
    move(kNet, right + 2 * kChoicePitch, bottom + 10, kChoiceWidth);
    move(kStops, right + 35, bottom + 117, kStopWidth);
    move(kAutoStop, right + 78, bottom + 117, kStopWidth);
    CoverPlaceHolder(m_price, kPrice);
    CoverPlaceHolder(m_volume, kVolume);
}

void CGoldBsDlg::CoverPlaceHolder(CWnd& composite, int id) {
    HWND holder = ::GetDlgItem(m_hWnd, id);
    if (composite.m_hWnd == nullptr || holder == nullptr) return;
    CRect place;
    ::GetWindowRect(holder, &place);
    ScreenToClient(&place);
    composite.MoveWindow(place);
}

void CGoldBsDlg::RefreshLook() {
    const bool buy = m_cDirection == kDirectionBuy;
    ShowNet();
    EnableOffsets();
    CheckRadios();
    ShowLabel(kAskMaxVolume, m_cOffset == kOffsetOpen ? "可开" : "可平");
    ShowLabel(kOffsetLabel, "开平状态:");
    ShowLabel(kMaxVolumeLabel, MaxVolumeLabel(m_bHasOffset != 0, m_cDirection, m_cOffset));
    m_crSide = buy ? kBuyColor : kSellColor;
    PaintSubmit(buy);
    m_nLinkedPosition = 0;
    LayOut();
    Invalidate();
}

/// Only contracts that open and close can leave that to the net position.
void CGoldBsDlg::ShowNet() {
    m_net.ShowWindow(m_bHasOffset != 0 ? SW_SHOW : SW_HIDE);
    if (m_bHasOffset == 0) m_net.SetChecked(FALSE);
}

void CGoldBsDlg::EnableOffsets() {
    const bool enabled = m_bHasOffset != 0 && !IsNet();
    m_open.EnableWindow(enabled);
    m_close.EnableWindow(enabled);
    // The row has one stop: where the choice is made now.
    SetTabStop(m_net, IsNet());
}

void CGoldBsDlg::CheckRadios() {
    const bool buy = m_cDirection == kDirectionBuy;
    m_buy.SetChecked(buy);
    m_sell.SetChecked(!buy);
    m_open.SetChecked(m_cOffset == kOffsetOpen);
    m_close.SetChecked(m_cOffset == kOffsetClose);
    SetTabStop(m_buy, buy);
    SetTabStop(m_sell, !buy);
    SetTabStop(m_open, m_cOffset != kOffsetClose);
    SetTabStop(m_close, m_cOffset == kOffsetClose);
}

void CGoldBsDlg::ShowLabel(int id, const char* text) {
    char shown[64] = {};
    GetDlgItemText(id, shown, sizeof shown);
    if (std::string(shown) == text) return;
    CWnd* const label = GetDlgItem(id);
    label->SetRedraw(FALSE);
    label->SetWindowText(text);
    label->SetRedraw(TRUE);
    label->Invalidate();
}

void CGoldBsDlg::PaintSubmit(bool buy) {
    const SideFaces& faces = buy ? kBuyFaces : kSellFaces;
    for (int state = CTrackButton::kNormal; state <= CTrackButton::kPressed; ++state) {
        m_submit.SetStyle(state, {faces.grounds[state], faces.frame, m_crSide});
    }
    ShowLabel(kSubmit, buy ? "买入" : "卖出");
}

BOOL CGoldBsDlg::OnEraseBkgnd(CDC* dc) {
    FillPageGround(*this, dc);
    return TRUE;
}

HBRUSH CGoldBsDlg::OnCtlColor(CDC* dc, CWnd* control, UINT kind) {
    const HBRUSH ground = PageGroundBrush(dc, kind);
    const int id = control->GetDlgCtrlID();
    for (const TextColor& choice : kChoiceColors) {
        if (id == choice.id) dc->SetTextColor(choice.color);
    }
    if (std::ranges::find(kSideLabels, id) != std::end(kSideLabels)) dc->SetTextColor(m_crSide);
    return ground != nullptr ? ground : CDialog::OnCtlColor(dc, control, kind);
}

void CGoldBsDlg::OnLButtonDown(UINT, CPoint point) {
    Default();
    ClientToScreen(&point);
    m_price.OnClickOutside(point.x, point.y);
}

void CGoldBsDlg::OnMousePress(CPoint screen) {
    if (GetSafeHwnd() == nullptr || !IsWindowVisible()) return;
    m_price.OnClickOutside(screen.x, screen.y);
    CRect price;
    m_price.GetWindowRect(&price);
    if (!price.PtInRect(screen)) ::SetFocus(nullptr);
}
