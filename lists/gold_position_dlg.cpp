#include "lists/gold_position_dlg.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <string>

#include "controls/page_ground.h"
#include "lists/position_cell_rules.h"
#include "lists/position_profit_rules.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/messages.h"
#include "plugin/contract/record_list.h"
#include "plugin/contract/ui_callback.h"
#include "plugin/settings/process_values.h"

namespace {

constexpr int kSpareRecords = 16;

constexpr lists::Column kTotalColumns[] = {
    {"合约名称", 60}, {"买卖", 60}, {"持仓", 60}, {"可用", 60}, {"开仓均价", 60}, {"开仓盈亏", 90},
};
constexpr lists::Column kLotColumns[] = {
    {"合约名称", 60}, {"买卖", 60},     {"持仓", 60},      {"可用", 60},
    {"开仓均价", 60}, {"开仓盈亏", 90}, {"止损止盈", 400},
};

/// The stops' text is the one that needs more room than there is.
constexpr lists::WideColumn kStopsColumn{lists::kPositionStops,
                                         kLotColumns[lists::kPositionStops].width};

// The buttons above the list share its width.
constexpr int kListLeft = 26;
constexpr int kButtonTop = 1;
constexpr int kButtonHeight = 22;
constexpr int kButtonGap = 4;
constexpr int kNarrowestButton = 56;
constexpr int kWidestButton = 84;

/// Totals keep their texts off the lines beside them.
constexpr int kTotalInset = 3;

template <class Row>
std::string CodeOf(const Row& row) {
    return std::string(text::FieldText(row.szContract));
}

/// A row whose contract nobody knows stays blank.
template <class Row>
void DrawRowCell(HDC dc, const Row* row, int column, const RECT& rect, HFONT bold,
                 lists::CellText (*cell)(const Row&, const CZebContract&, int)) {
    if (row == nullptr) return;
    const CZebContract* const contract = CContractManager::FindContract(CodeOf(*row));
    if (contract != nullptr) lists::DrawCellText(dc, cell(*row, *contract, column), rect, bold);
}

}  // namespace

BEGIN_MESSAGE_MAP(CGoldPositionDlg, CDialog)
    ON_WM_CREATE()
    ON_WM_SIZE()
    ON_WM_ERASEBKGND()
    ON_BN_CLICKED(kMode, &CGoldPositionDlg::OnMode)
    ON_BN_CLICKED(kClose1, &CGoldPositionDlg::OnClose<0>)
    ON_BN_CLICKED(kClose30, &CGoldPositionDlg::OnClose<1>)
    ON_BN_CLICKED(kClose50, &CGoldPositionDlg::OnClose<2>)
    ON_BN_CLICKED(kClose70, &CGoldPositionDlg::OnClose<3>)
    ON_BN_CLICKED(kClose100, &CGoldPositionDlg::OnClose<4>)
    ON_BN_CLICKED(kStop, &CGoldPositionDlg::OnStop)
    ON_MESSAGE(WM_LIST_EVENT, &CGoldPositionDlg::OnListEvent)
    ON_NOTIFY(NM_DBLCLK, kList, &CGoldPositionDlg::OnRowOpened)
END_MESSAGE_MAP()

int CGoldPositionDlg::OnCreate(LPCREATESTRUCT create) {
    if (CDialog::OnCreate(create) == -1) return -1;
    lists::MakeList(m_list, *this, kList, this);
    ShowColumns();
    return 0;
}

void CGoldPositionDlg::DoDataExchange(CDataExchange* exchange) {
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, kMode, m_btnMode);
    DDX_Control(exchange, kClose1, m_btnClose1);
    DDX_Control(exchange, kClose30, m_btnClose30);
    DDX_Control(exchange, kClose50, m_btnClose50);
    DDX_Control(exchange, kClose70, m_btnClose70);
    DDX_Control(exchange, kClose100, m_btnClose100);
    DDX_Control(exchange, kStop, m_btnStop);
}

BOOL CGoldPositionDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    SetPageSkin(m_btnMode, kSkinPages, lists::kUprightSkin);
    ShowModeText();
    UpdateCloseButtons(-1);
    m_btnStop.EnableWindow(FALSE);
    if (g_bNeedShowStopLossAndProfit == 0) m_btnStop.ShowWindow(SW_HIDE);
    return TRUE;
}

void CGoldPositionDlg::Connect(const ContractSource* contracts, HWND row_receiver) {
    m_pContracts = contracts;
    m_hOwner = row_receiver;
}

void CGoldPositionDlg::ReadTotals() {
    CUICallBack* const core = GetUICallBack();
    m_positions.SetSize(ReadRecords(m_positions, kSpareRecords, [core](auto* buffer, int capacity) {
        return core->GetPositionList(buffer, capacity);
    }));
}

void CGoldPositionDlg::ReadLots() {
    CUICallBack* const core = GetUICallBack();
    m_groups.SetSize(ReadRecords(m_groups, kSpareRecords, [core](auto* buffer, int capacity) {
        return core->GetPositionDetailList(buffer, capacity);
    }));
}

void CGoldPositionDlg::Refresh(bool bDetailList, bool bFetch) {
    if (GetUICallBack() == nullptr) return;
    if (bFetch && bDetailList) ReadLots();
    if (bFetch && !bDetailList) ReadTotals();
    if (bDetailList == m_bDetail) {
        m_list.SetRowCount(ShownCount(), TRUE);
        lists::FitColumn(m_list, m_stopsColumn);
    }
    OnSelectionChanged();
    SumUp();
    Publish();
}

// The core may have more positions by now than were read: they count at the next refresh.
void CGoldPositionDlg::SumUp() {
    const int held = GetUICallBack()->GetPositionList(nullptr, 0);
    lists::ProfitSums sums;
    for (int row = 0; row < std::min(held, m_positions.GetCount()); ++row) {
        const CZebPosition& position = m_positions.GetData()[row];
        const std::optional<int> unit = UnitOf(position);
        lists::RowQuote quote(position);
        lists::AddProfit(sums, lists::OpenProfitOf(position, unit, quote).value,
                         lists::HoldProfitOf(position, unit, quote).value);
    }
    m_dProfitOpen = sums.open;
    m_dProfitHold = sums.hold;
    m_dLossHold = sums.hold_loss;
}

void CGoldPositionDlg::Publish() {
    if (m_pPanelHost == nullptr) return;
    const double available = lists::AvailableAfterLoss(g_dAvailable, m_dProfitHold);
    m_pPanelHost->ShowFundsLine(g_dEquity, available, m_dProfitOpen);
    m_pPanelHost->ShowFundsOnPanels(g_dEquity, available, m_dProfitOpen);
}

// Profits are worked out anew when the list is painted; only the lots may have changed their
// stops. One read for each total of the contract, as it may be held long and short.
void CGoldPositionDlg::OnQuote(unsigned int packed, const JSDyn1&) {
    if (GetUICallBack() == nullptr) return;
    for (int row = 0; row < m_positions.GetCount(); ++row) {
        CHostSymbol symbol{};
        if (!GetSymbolByName(&symbol, CodeOf(m_positions.GetData()[row]).c_str())) continue;
        if (PackSymbol(symbol) != packed) continue;
        ReadLots();
        Refresh(m_bDetail, false);
    }
}

void CGoldPositionDlg::OnMode() {
    m_bDetail = !m_bDetail;
    ShowColumns();
    m_list.ResetScrollY(0);
    Refresh(m_bDetail, false);
    ShowModeText();
}

void CGoldPositionDlg::ShowColumns() {
    std::span<const lists::Column> columns = kTotalColumns;
    if (m_bDetail) {
        columns = kLotColumns;
        if (g_bNeedShowStopLossAndProfit == 0) columns = columns.first(columns.size() - 1);
    }
    lists::SetColumns(m_list, columns);
    m_stopsColumn = kStopsColumn;
    lists::FitColumn(m_list, m_stopsColumn);
    m_list.m_pfnDrawCell = m_bDetail ? &DrawLot : &DrawTotal;
}

void CGoldPositionDlg::ShowModeText() {
    m_btnMode.SetWindowText(m_bDetail ? "分笔—持仓" : "持仓—分笔");
}

void CGoldPositionDlg::DrawTotal(HDC dc, int row, int column, RECT* rect, HFONT bold, CWnd*,
                                 void* context) {
    auto& page = *static_cast<CGoldPositionDlg*>(context);
    const CScopedLock lock(page.m_lock);
    const RECT inset{rect->left + kTotalInset, rect->top, rect->right - kTotalInset, rect->bottom};
    DrawRowCell(dc, page.GetPositionAt(row), column, inset, bold, &lists::TotalCell);
}

void CGoldPositionDlg::DrawLot(HDC dc, int row, int column, RECT* rect, HFONT bold, CWnd*,
                               void* context) {
    auto& page = *static_cast<CGoldPositionDlg*>(context);
    const CScopedLock lock(page.m_lock);
    DrawRowCell(dc, page.LotAt(row), column, *rect, bold, &lists::LotCell);
}

int CGoldPositionDlg::ShownCount() const {
    return m_bDetail ? m_groups.GetCount() : m_positions.GetCount();
}

const CZebPosition* CGoldPositionDlg::GetPositionAt(int index) const {
    return index >= 0 && index < m_positions.GetCount() ? m_positions.GetData() + index : nullptr;
}

const PositionGroup* CGoldPositionDlg::LotAt(int row) const {
    return row >= 0 && row < m_groups.GetCount() ? m_groups.GetData() + row : nullptr;
}

int CGoldPositionDlg::GetOppositeAvailable(const char* contract, char direction) const {
    for (int i = 0; i < m_positions.GetCount(); ++i) {
        const CZebPosition& position = m_positions.GetData()[i];
        if (text::FieldText(position.szContract) == contract && position.cDirection != direction) {
            return lists::AvailableLots(position);
        }
    }
    return 0;
}

bool CGoldPositionDlg::HasPosition(const char* contract) const {
    for (int i = 0; i < m_positions.GetCount(); ++i) {
        if (text::FieldText(m_positions.GetData()[i].szContract) == contract) return true;
    }
    return false;
}

/// Units in a lot of the position's contract; none for an unknown one, which then has no profit but
/// the core's.
std::optional<int> CGoldPositionDlg::UnitOf(const CZebPosition& position) const {
    const CZebContract* const contract =
        m_pContracts != nullptr ? m_pContracts->FindContractByCode(CodeOf(position).c_str())
                                : nullptr;
    if (contract == nullptr) return std::nullopt;
    return contract->nUnit;
}

double CGoldPositionDlg::GetOpenProfit(int row) const {
    const CZebPosition* const position = GetPositionAt(row);
    if (position == nullptr) return 0;
    lists::RowQuote quote(*position);
    return lists::OpenProfitOf(*position, UnitOf(*position), quote).value;
}

double CGoldPositionDlg::GetHoldProfit(int row) const {
    const CZebPosition* const position = GetPositionAt(row);
    if (position == nullptr) return 0;
    lists::RowQuote quote(*position);
    return lists::HoldProfitOf(*position, UnitOf(*position), quote).value;
}

void CGoldPositionDlg::OnSize(UINT type, int cx, int cy) {
    CDialog::OnSize(type, cx, cy);
    if (m_btnMode.m_hWnd != nullptr) m_btnMode.MoveWindow(0, 24, 21, cy - 28);
    if (m_list.m_hWnd != nullptr) m_list.MoveWindow(kListLeft, 26, cx - 28, cy - 27);
    if (m_btnStop.m_hWnd != nullptr) PlaceButtons(cx);
    lists::FitColumn(m_list, m_stopsColumn);
    Invalidate();  // the list's frame is part of the ground
}

/// Volumes of up to four digits find room beside an order list on the smallest screen.
void CGoldPositionDlg::PlaceButtons(int page_width) {
    CWnd* const buttons[] = {&m_btnClose1,  &m_btnClose30,  &m_btnClose50,
                             &m_btnClose70, &m_btnClose100, &m_btnStop};
    constexpr int kCount = static_cast<int>(std::size(buttons));
    const int room = page_width - kListLeft - (kCount - 1) * kButtonGap;
    const int width = std::clamp(room / kCount, kNarrowestButton, kWidestButton);
    int x = kListLeft;
    for (CWnd* const button : buttons) {
        button->MoveWindow(x, kButtonTop, width, kButtonHeight);
        x += width + kButtonGap;
    }
}

BOOL CGoldPositionDlg::OnEraseBkgnd(CDC* dc) {
    FillPageGround(*this, dc);
    m_list.DrawBorder();
    return TRUE;
}
