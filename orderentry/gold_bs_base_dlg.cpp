#include "orderentry/gold_bs_base_dlg.h"

#include <algorithm>
#include <iterator>

#include "controls/page_ground.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/messages.h"
#include "plugin/contract/record_list.h"
#include "plugin/contract/ui_callback.h"

namespace {

constexpr int kSpareContracts = 16;
constexpr int kOrderPageTop = 4;
constexpr int kReportTop = 2;
constexpr int kLevelsWidth = 180;

constexpr int kListPages[] = {0, 1, 2, 3, 17};

}  // namespace

BEGIN_MESSAGE_MAP(CGoldBSBaseDlg, CDialog)
    ON_WM_SIZE()
    ON_WM_ERASEBKGND()
    ON_MESSAGE(WM_CONTRACT_SELECTED, &CGoldBSBaseDlg::OnContractSelected)
END_MESSAGE_MAP()

BOOL CGoldBSBaseDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    m_bs.Create(CGoldBsDlg::IDD, this);
    m_bs.ShowWindow(SW_SHOW);
    if (m_report.Create(this)) {
        m_report.Connect(*this, m_bs.m_hWnd);
        m_report.Window().ShowWindow(SW_SHOW);
    }
    m_stock5.Create(CStock5BSDlg::IDD, this);
    m_stock5.SetTarget(m_bs.PriceWindow());
    m_bs.SetFiveLevels(&m_stock5);
    ShowFiveLevels();
    return TRUE;
}

void CGoldBSBaseDlg::LoadContracts() {
    CUICallBack* core = GetUICallBack();
    if (core == nullptr) return;
    m_bs.SetContracts(nullptr, 0);
    m_bContractLoaded = false;
    CContractManager::ClearContracts();
    ReadRecords(m_contracts, kSpareContracts, [core](CZebContract* buffer, int capacity) {
        return core->GetContractList(buffer, capacity);
    });
    for (int i = 0; i < m_contracts.GetCount(); ++i) {
        CContractManager::AddContract(m_contracts.GetData()[i]);
    }
    m_bs.SetContracts(m_contracts.GetData(), m_contracts.GetCount());
    m_bContractLoaded = true;
}

const CZebContract* CGoldBSBaseDlg::FindContractByCode(const char* code) const {
    if (!m_bContractLoaded || code == nullptr) return nullptr;
    for (int i = 0; i < m_contracts.GetCount(); ++i) {
        const CZebContract& contract = m_contracts.GetData()[i];
        if (text::FieldText(contract.szContract) == code) return &contract;
    }
    return nullptr;
}

const CZebContract* CGoldBSBaseDlg::FindContractBySymbol(unsigned int packed) const {
    for (int i = 0; i < m_contracts.GetCount(); ++i) {
        const CZebContract& contract = m_contracts.GetData()[i];
        CHostSymbol symbol{};
        const std::string code(text::FieldText(contract.szContract));
        if (GetSymbolByName(&symbol, code.c_str()) && PackSymbol(symbol) == packed) {
            return &contract;
        }
    }
    return nullptr;
}

void CGoldBSBaseDlg::SetPage(int page) {
    if (m_stock5.m_hWnd != nullptr && std::ranges::find(kListPages, page) != std::end(kListPages)) {
        m_stock5.ShowWindow(SW_HIDE);
        LayOut();
    }
    m_report.SetPage(page);
}

void CGoldBSBaseDlg::ShowFiveLevels() {
    if (m_stock5.m_hWnd == nullptr) return;
    m_stock5.ShowWindow(SW_SHOW);
    LayOut();
}

void CGoldBSBaseDlg::OnQuote(unsigned int packed, const JSDyn1& quote) {
    m_report.OnQuote(packed, quote);
    if (!m_bs.IsQuotedBy(packed)) return;
    m_bs.OnQuoteEvent(quote);
    m_stock5.OnQuote(packed, quote);
}

void CGoldBSBaseDlg::OnMousePress(CPoint screen) { m_bs.OnMousePress(screen); }

LRESULT CGoldBSBaseDlg::OnContractSelected(WPARAM index, LPARAM) {
    const bool known = index < static_cast<WPARAM>(m_contracts.GetCount());
    m_bs.TakeContract(known ? m_contracts.GetData() + index : nullptr);
    return 0;
}

void CGoldBSBaseDlg::OnSize(UINT type, int cx, int cy) {
    CDialog::OnSize(type, cx, cy);
    LayOut();
}

void CGoldBSBaseDlg::LayOut() {
    if (m_bs.m_hWnd == nullptr || m_stock5.m_hWnd == nullptr) return;
    CRect client;
    GetClientRect(&client);
    m_bs.MoveWindow(0, kOrderPageTop, CGoldBsDlg::kWidth, client.Height() - kOrderPageTop);
    const bool levels = (m_stock5.GetStyle() & WS_VISIBLE) != 0;
    const int rest = client.Width() - CGoldBsDlg::kWidth;
    const int report_width = std::max(0, levels ? rest - kLevelsWidth : rest);
    const int height = client.Height() - kReportTop;
    m_stock5.MoveWindow(CGoldBsDlg::kWidth + report_width, kReportTop, kLevelsWidth, height);
    if (m_report.Window().m_hWnd == nullptr) return;
    m_report.Window().MoveWindow(CGoldBsDlg::kWidth, kReportTop, report_width, height);
}

BOOL CGoldBSBaseDlg::OnEraseBkgnd(CDC* dc) {
    FillPageGround(*this, dc);
    return TRUE;
}
