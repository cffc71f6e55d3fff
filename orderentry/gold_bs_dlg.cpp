#include "orderentry/gold_bs_dlg.h"

#include <cstdio>
#include <string>

#include "controls/page_ground.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/messages.h"
#include "plugin/settings/process_values.h"

namespace {

constexpr int kPriceListWidth = 120;
constexpr int kChoiceWidth = 45;
constexpr int kStopWidth = 70;
constexpr int kChoiceHeight = 18;
constexpr int kChoicePitch = 50;

struct TextColor {
    int id;
    COLORREF color;
};
constexpr TextColor kChoiceColors[] = {
    {CGoldBsDlg::kBuy, 0x0000FF},
    {CGoldBsDlg::kSell, 0x019300},
    {CGoldBsDlg::kOpen, 0x545454},
    {CGoldBsDlg::kClose, 0xC46D2D},
};

std::string CodeOf(const CZebContract& contract) {
    return std::string(text::FieldText(contract.szContract));
}

}  // namespace

BEGIN_MESSAGE_MAP(CGoldBsDlg, CDialog)
    ON_WM_SIZE()
    ON_WM_ERASEBKGND()
    ON_WM_CTLCOLOR()
    ON_MESSAGE(WM_QUERY_CONTRACT, &CGoldBsDlg::OnQueryContract)
    ON_CBN_SELCHANGE(kContract, &CGoldBsDlg::OnContractSelected)
END_MESSAGE_MAP()

void CGoldBsDlg::Connect(const ReportPane* report, StopCheckListener* listener) {
    m_pReport = report;
    m_pStopListener = listener;
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
}

BOOL CGoldBsDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    m_price.CreateOver(*this, kPrice);
    m_volume.CreateOver(*this, kVolume);
    m_price.SetListWidth(kPriceListWidth);
    m_buy.SetChecked(TRUE);
    m_open.SetChecked(TRUE);
    m_stops.ShowWindow(g_bNeedShowStopLossAndProfit == 1 ? SW_SHOW : SW_HIDE);
    LayOut();
    return TRUE;
}

void CGoldBsDlg::SetContracts(const CZebContract* contracts, int count) {
    m_pContracts = contracts;
    m_nContracts = count;
    m_pContract = nullptr;
    m_stSymbol = {};
    m_vecCodeLength.clear();
    if (m_hWnd == nullptr) return;
    SendDlgItemMessage(kContract, CB_RESETCONTENT);
    for (int index = 0; index < count; ++index) {
        const std::string code = CodeOf(contracts[index]);
        const LRESULT item =
            SendDlgItemMessage(kContract, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(code.c_str()));
        SendDlgItemMessage(kContract, CB_SETITEMDATA, static_cast<WPARAM>(item), index);
        m_vecCodeLength.push_back(static_cast<int>(code.size()));
    }
    OnContractSelected();
}

void CGoldBsDlg::SetContract(const CZebContract* contract) {
    if (contract == nullptr || contract == m_pContract || m_hWnd == nullptr) return;
    const std::string code = CodeOf(*contract);
    const LRESULT item = SendDlgItemMessage(kContract, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                            reinterpret_cast<LPARAM>(code.c_str()));
    if (item < 0) return;
    SendDlgItemMessage(kContract, CB_SETCURSEL, static_cast<WPARAM>(item));
    m_bHostDriven = true;
    OnContractSelected();
}

void CGoldBsDlg::OnContractSelected() {
    const LRESULT item = SendDlgItemMessage(kContract, CB_GETCURSEL);
    if (item < 0) return;
    m_nContractIndex =
        static_cast<int>(SendDlgItemMessage(kContract, CB_GETITEMDATA, static_cast<WPARAM>(item)));
    GetParent()->SendMessage(WM_CONTRACT_SELECTED, static_cast<WPARAM>(m_nContractIndex));
    if (m_pContract == nullptr) return;
    const std::string code = CodeOf(*m_pContract);
    if (!m_bHostDriven) SubscribeSymbol(code.c_str());
    m_bHostDriven = false;
    m_stSymbol = {};
    GetSymbolByName(&m_stSymbol, code.c_str());
    if (g_hFrameWnd != nullptr) ::PostMessageA(g_hFrameWnd, WM_FRAME_NOTICE, kFrameReady, 0);
}

void CGoldBsDlg::OnMaxVolumeResult(const CQueryMaxVolumeResult*) {}

void CGoldBsDlg::ReloadSettings() {}

void CGoldBsDlg::RefreshStopCheck() {}

void CGoldBsDlg::OnQuoteEvent(const JSDyn1&) {}

void CGoldBsDlg::OnMousePress(CPoint) {}

LRESULT CGoldBsDlg::OnQueryContract(WPARAM selector, LPARAM buffer) {
    if (selector != kQueryContractText || buffer == 0 || m_pContract == nullptr) return 0;
    // The host's buffer holds both fields; its size does not come along.
    const std::string line =
        std::string(text::FieldText(m_pContract->szExchange)) + "|" + CodeOf(*m_pContract);
    text::CopyText(reinterpret_cast<char*>(buffer), line.size() + 1, line);
    return 0;
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

BOOL CGoldBsDlg::OnEraseBkgnd(CDC* dc) {
    FillPageGround(*this, dc);
    return TRUE;
}

HBRUSH CGoldBsDlg::OnCtlColor(CDC* dc, CWnd* control, UINT kind) {
    const HBRUSH ground = PageGroundBrush(dc, kind);
    for (const TextColor& choice : kChoiceColors) {
        if (control->GetDlgCtrlID() == choice.id) dc->SetTextColor(choice.color);
    }
    return ground != nullptr ? ground : CDialog::OnCtlColor(dc, control, kind);
}
