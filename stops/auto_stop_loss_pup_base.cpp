#include "stops/auto_stop_loss_pup_base.h"

#include "platform/text/gbk.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/ui_callback.h"
#include "stops/stop_rules.h"

BEGIN_MESSAGE_MAP(CGOLDAutoStopLossPupBase, CDialog)
    ON_NOTIFY(TCN_SELCHANGE, kTabs, &CGOLDAutoStopLossPupBase::OnTabChanged)
    ON_WM_CTLCOLOR()
END_MESSAGE_MAP()

namespace {

constexpr int kReplies = 2;
constexpr std::size_t kTitleMax = 63;
constexpr COLORREF kPromptColor = 0x2828DE;
constexpr COLORREF kLinkColor = 0x1E1EE6;

std::string Title(const char* title) {
    const std::string whole = title ? title : "";
    return whole.substr(0, text::PrefixLength(whole, kTitleMax));
}

CTradeParam ReadParam() {
    CTradeParam param{};
    if (CUICallBack* const core = GetUICallBack()) core->GetTradeParam(&param);
    return param;
}

}  // namespace

CGOLDAutoStopLossPupBase::CGOLDAutoStopLossPupBase(const CZebContract* contract, CPresetStop* stop,
                                                   const char* title, CWnd* parent)
    : CDialog(IDD, parent), m_strTitle(Title(title)), m_pStop(stop), m_stops(contract, stop) {
    Listen(kReplies);
}

bool CGOLDAutoStopLossPupBase::IsPreset() const { return IsPresetStopTitle(m_strTitle.c_str()); }

void CGOLDAutoStopLossPupBase::DoDataExchange(CDataExchange* exchange) {
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, kTabs, m_tabs);
}

BOOL CGOLDAutoStopLossPupBase::OnInitDialog() {
    CDialog::OnInitDialog();
    SetWindowText(m_strTitle.c_str());
    m_tabs.InsertItem(0, "止损止盈");
    m_tabs.InsertItem(1, "参    数");
    static_cast<StopSettings&>(m_settings) = StopSettingsOf(ReadParam());
    CreatePages();
    ShowSelectedPage();
    if (!IsPreset()) ShowNote();
    return TRUE;
}

void CGOLDAutoStopLossPupBase::CreatePages() {
    m_stops.Create(CGOLDAutoStopLossPup::IDD, &m_tabs);
    m_settings.Create(GOLDSetStopLoss::IDD, &m_tabs);
    CRect tabs;
    m_tabs.GetClientRect(&tabs);
    for (CDialog* page : {static_cast<CDialog*>(&m_stops), static_cast<CDialog*>(&m_settings)}) {
        page->MoveWindow(tabs.left + 3, tabs.top + 21, tabs.Width() - 8, tabs.Height() - 26);
    }
}

void CGOLDAutoStopLossPupBase::ShowNote() {
    CWnd& line = *GetDlgItem(kPrompt);
    CRect place;
    line.GetWindowRect(&place);
    ScreenToClient(&place);
    m_link.Create("STATIC", StopNote(m_settings.m_nValidity).c_str(),
                  WS_CHILD | WS_VISIBLE | SS_LEFT | SS_NOPREFIX, place, this, kLink);
    m_link.SetFont(GetFont(), FALSE);
    line.ShowWindow(SW_HIDE);
}

HBRUSH CGOLDAutoStopLossPupBase::OnCtlColor(CDC* dc, CWnd* control, UINT kind) {
    const HBRUSH brush = CDialog::OnCtlColor(dc, control, kind);
    const int id = control ? control->GetDlgCtrlID() : 0;
    if (id == kPrompt) dc->SetTextColor(kPromptColor);
    if (id == kLink) dc->SetTextColor(kLinkColor);
    return brush;
}

void CGOLDAutoStopLossPupBase::OnTabChanged(NMHDR*, LRESULT* result) {
    ShowSelectedPage();
    *result = 0;
}

void CGOLDAutoStopLossPupBase::ShowSelectedPage() {
    const bool settings = m_tabs.GetCurSel() == 1;
    m_stops.ShowWindow(settings ? SW_HIDE : SW_SHOW);
    m_settings.ShowWindow(settings ? SW_SHOW : SW_HIDE);
}

void CGOLDAutoStopLossPupBase::OnOK() {
    m_settings.ReadControls();
    m_stops.ReadControls();
    StoreSettings();
    IsPreset() ? CDialog::OnOK() : AskMarketState();
}

void CGOLDAutoStopLossPupBase::StoreSettings() {
    CUICallBack* const core = GetUICallBack();
    if (!core) return;
    CTradeParam param = ReadParam();
    PutStopSettings(param, m_settings);
    core->SetTradeParam(&param);
}

void CGOLDAutoStopLossPupBase::AskMarketState() {
    CUICallBack* const core = GetUICallBack();
    if (!core) return;
    // First, since a core may answer within the call.
    m_bAsked = true;
    m_asked = *m_pStop;
    core->SendFunctionRequest(kFunctionMarketState, MarketStateRequest(*m_pStop).c_str());
}

void CGOLDAutoStopLossPupBase::OnFunctionReply(const CAccountInfo*, int function,
                                               const char* text) {
    if (function != kFunctionMarketState || !m_bAsked || !GetSafeHwnd()) return;
    m_bAsked = false;
    const MarketVerdict verdict = CheckMarketState(text);
    const HWND window = m_hWnd;
    MessageBox(MarketVerdictText(verdict).c_str(), "提示", MB_TOPMOST);
    if (verdict != MarketVerdict::kAllowed || !::IsWindow(window)) return;
    // Clicks meanwhile have changed the record; what was asked about is what the caller gets.
    *m_pStop = m_asked;
    CDialog::OnOK();
}
