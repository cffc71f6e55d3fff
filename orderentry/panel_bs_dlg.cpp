#include "orderentry/panel_bs_dlg.h"

#include <string>

#include "controls/page_ground.h"
#include "orderentry/contract_rules.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/ui_callback.h"
#include "plugin/settings/process_values.h"

namespace {

constexpr COLORREF kControlGround = 0x292929;
constexpr COLORREF kControlText = RGB(0xD7, 0xDE, 0xE6);

// Pictures of the skin's panel group.
constexpr int kBuySkin = 1;
constexpr int kSellSkin = 2;
constexpr int kSmallBuySkin = 3;
constexpr int kSmallSellSkin = 4;
constexpr int kResetSkin = 5;

}  // namespace

BEGIN_MESSAGE_MAP(CPanelBSDlg, CDialog)
    ON_WM_ERASEBKGND()
    ON_WM_CTLCOLOR()
END_MESSAGE_MAP()

void CPanelBSDlg::DoDataExchange(CDataExchange* exchange) {
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, kPrice, m_price);
    DDX_Control(exchange, kOpen, m_open);
    DDX_Control(exchange, kClose, m_close);
    DDX_Control(exchange, kNet, m_net);
    DDX_Control(exchange, kStops, m_stops);
    DDX_Control(exchange, kAutoStop, m_autoStop);
    DDX_Control(exchange, kReset, m_reset);
    DDX_Control(exchange, kBuy, m_buy);
    DDX_Control(exchange, kSell, m_sell);
    DDX_Control(exchange, kBuyFirst, m_small[0]);
    DDX_Control(exchange, kBuySecond, m_small[1]);
    DDX_Control(exchange, kSellFirst, m_small[2]);
    DDX_Control(exchange, kSellSecond, m_small[3]);
}

BOOL CPanelBSDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    SetPageSkin(m_buy, kSkinPanels, kBuySkin);
    SetPageSkin(m_sell, kSkinPanels, kSellSkin);
    SetPageSkin(m_reset, kSkinPanels, kResetSkin);
    SetPageSkin(m_small[0], kSkinPanels, kSmallBuySkin);
    SetPageSkin(m_small[1], kSkinPanels, kSmallBuySkin);
    SetPageSkin(m_small[2], kSkinPanels, kSmallSellSkin);
    SetPageSkin(m_small[3], kSkinPanels, kSmallSellSkin);
    m_open.SetChecked(TRUE);
    m_stops.ShowWindow(g_bNeedShowStopLossAndProfit == 1 ? SW_SHOW : SW_HIDE);
    return TRUE;
}

BOOL CPanelBSDlg::OnEraseBkgnd(CDC* dc) {
    CRect client;
    GetClientRect(&client);
    dc->FillSolidRect(client, crPanelBack);
    return TRUE;
}

HBRUSH CPanelBSDlg::OnCtlColor(CDC* dc, CWnd*, UINT) {
    dc->SetTextColor(kControlText);
    dc->SetBkColor(kControlGround);
    return m_controlGround;
}

void CPanelBSDlg::SetContract(const CZebContract* contract) {
    m_pContract = contract;
    m_bEnabled = contract != nullptr;
    m_stSymbol = {};
    if (contract != nullptr) {
        const std::string code(text::FieldText(contract->szContract));
        GetSymbolByName(&m_stSymbol, code.c_str());
    }
    constexpr int kTrading[] = {kBuy,       kSell,       kBuyFirst, kBuySecond,
                                kSellFirst, kSellSecond, kStops,    kAutoStop};
    for (const int id : kTrading) {
        HWND control = ::GetDlgItem(m_hWnd, id);
        if (control != nullptr) ::EnableWindow(control, m_bEnabled);
    }
}

void CPanelBSDlg::OnQuoteEvent(const JSDyn1&) {}

void CPanelBSDlg::RefreshStopCheck() {}

void CPanelBSDlg::ReloadSettings() {}
