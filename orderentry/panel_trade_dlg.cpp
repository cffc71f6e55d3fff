#include "orderentry/panel_trade_dlg.h"

#include <string>

#include "orderentry/contract_rules.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/messages.h"
#include "plugin/contract/ui_callback.h"
#include "plugin/settings/process_values.h"

namespace {

constexpr int kPriceChartHeight = 60;
constexpr int kClientRightHeight = 49;
constexpr int kTicketHeight = 195;

constexpr WPARAM kUnlock = 0;
constexpr WPARAM kLock = 3;

bool LoggedIn() {
    CUICallBack* core = GetUICallBack();
    return core != nullptr && core->IsLoggedIn();
}

}  // namespace

BEGIN_MESSAGE_MAP(CPanelTradeDlg, CDialog)
    ON_WM_SIZE()
    ON_WM_ERASEBKGND()
    ON_MESSAGE(WM_CORE_EVENT, &CPanelTradeDlg::OnCoreEvent)
    ON_MESSAGE(WM_LOCK_PANEL, &CPanelTradeDlg::OnLock)
END_MESSAGE_MAP()

BOOL CPanelTradeDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    m_priceChart.Create(CPanelPriceChartDlg::IDD, this);
    m_parts->Create(PanelPart::kClientRight, this);
    m_bs.Create(CPanelBSDlg::IDD, this);
    m_parts->Create(PanelPart::kWatch, this);
    m_parts->Create(PanelPart::kLogin, this);
    m_parts->Create(PanelPart::kLock, this);
    m_parts->Connect(m_bs.m_hWnd);
    m_bs.SetContract(nullptr);
    ShowFace(LoggedIn() ? Face::kWorking : Face::kLogin);
    LayOut();
    return TRUE;
}

void CPanelTradeDlg::ShowFace(Face face) {
    const auto show = [](CWnd& page, bool visible) {
        if (page.m_hWnd != nullptr) page.ShowWindow(visible ? SW_SHOW : SW_HIDE);
    };
    // What goes is hidden before what comes, so nothing shines through in between.
    if (face != Face::kLogin) show(m_parts->Window(PanelPart::kLogin), false);
    if (face != Face::kLocked) show(m_parts->Window(PanelPart::kLock), false);
    const bool working = face == Face::kWorking;
    show(m_priceChart, working);
    show(m_parts->Window(PanelPart::kClientRight), working);
    show(m_bs, working);
    show(m_parts->Window(PanelPart::kWatch), working);
    if (face == Face::kLogin) show(m_parts->Window(PanelPart::kLogin), true);
    if (face == Face::kLocked) show(m_parts->Window(PanelPart::kLock), true);
}

void CPanelTradeDlg::BindContract(unsigned short market, unsigned short code,
                                  const CZebContract* contract) {
    m_symbol = {};
    if (contract != nullptr) {
        m_wMarket = market;
        m_wCode = code;
        const std::string name(text::FieldText(contract->szContract));
        GetSymbolByName(&m_symbol, name.c_str());
        m_parts->SetContract(contract);
        m_priceChart.SetSymbol(m_symbol, contract->nPriceDigits);
        m_bs.SetContract(contract);
    } else {
        m_bs.SetContract(nullptr);
        m_parts->SetContract(nullptr);
    }
    LayOut();
}

void CPanelTradeDlg::ShowLogin() {
    ShowFace(Face::kLogin);
    m_wMarket = 0;
    m_wCode = 0;
    LayOut();
    Unbind();
}

void CPanelTradeDlg::Unbind() {
    m_symbol = {};
    m_bs.SetContract(nullptr);
    m_parts->SetContract(nullptr);
    m_priceChart.SetSymbol({}, 2);
}

void CPanelTradeDlg::ShowLocked(bool locked) { ShowFace(locked ? Face::kLocked : Face::kWorking); }

void CPanelTradeDlg::ShowFunds(double, double available, double open_profit) {
    m_parts->ShowFunds(available, open_profit);
}

void CPanelTradeDlg::OnQuote(const JSDyn1& quote) {
    m_priceChart.OnQuoteEvent(quote);
    m_bs.OnQuoteEvent(quote);
}

LRESULT CPanelTradeDlg::OnCoreEvent(WPARAM wParam, LPARAM) {
    switch (LOWORD(wParam)) {
        case EV_CONNECTION_LOST:
            ShowFace(Face::kLogin);
            m_bs.SetContract(nullptr);
            m_parts->SetContract(nullptr);
            break;
        case EV_INITIAL_LOAD_DONE: ShowFace(Face::kWorking); break;
        case EV_POSITION_LIST: m_parts->RefreshPositions(); break;
        default: break;
    }
    return 0;
}

LRESULT CPanelTradeDlg::OnLock(WPARAM wParam, LPARAM) {
    if (!LoggedIn()) return 0;
    if (wParam == kUnlock) ShowFace(Face::kWorking);
    if (wParam == kLock) ShowFace(Face::kLocked);
    return 0;
}

void CPanelTradeDlg::OnSize(UINT type, int cx, int cy) {
    CDialog::OnSize(type, cx, cy);
    LayOut();
}

void CPanelTradeDlg::LayOut() {
    if (m_hWnd == nullptr) return;
    CRect client;
    GetClientRect(&client);
    const int width = client.Width();
    int top = 0;
    const auto place = [&](CWnd& page, int height) {
        if (page.m_hWnd != nullptr) page.MoveWindow(0, top, width, height);
        top += height;
    };
    place(m_priceChart, kPriceChartHeight);
    place(m_parts->Window(PanelPart::kClientRight), kClientRightHeight);
    place(m_bs, kTicketHeight);
    place(m_parts->Window(PanelPart::kWatch), client.Height() - top);
    for (const PanelPart part : {PanelPart::kLogin, PanelPart::kLock}) {
        CWnd& cover = m_parts->Window(part);
        if (cover.m_hWnd != nullptr) cover.MoveWindow(0, 0, width, client.Height());
    }
}

BOOL CPanelTradeDlg::OnEraseBkgnd(CDC* dc) {
    CRect client;
    GetClientRect(&client);
    const CBrush brush(crPanelBack);
    dc->FillRect(client, brush);
    return TRUE;
}
