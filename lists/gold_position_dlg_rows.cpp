#include <optional>
#include <string>

#include "lists/gold_position_dlg.h"
#include "lists/position_profit_rules.h"
#include "lists/position_stop_rules.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/messages.h"
#include "plugin/contract/record_list.h"
#include "plugin/contract/ui_callback.h"
#include "plugin/settings/process_values.h"

// What the user does with a row of the position page: choose it, close it, set its stops.

namespace {

constexpr int kLotGrowth = 32;
constexpr int kSpareLots = 16;

constexpr const char* kStopsOfAllLots =
    "在总仓中设置止盈止损，所有的该买卖方向的合约都会具有一样的止盈止损设置。\r\n\r\n是否继续?";

void ReportStatus(const std::string& line) {
    if (CUICallBack* const core = GetUICallBack()) core->ShowStatusText(line.c_str(), kStatusPlain);
}

/// A copy of the contract. Its lack is told to the user.
template <class Row>
std::optional<CZebContract> FindContractOf(const Row& row) {
    const std::string code(text::FieldText(row.szContract));
    const CZebContract* const contract = CContractManager::FindContract(code);
    if (contract != nullptr) return *contract;
    ReportStatus("止损止盈未设置：没有合约" + code);
    return std::nullopt;
}

void Enable(CWnd& button, bool enable, CWnd& focus_heir) {
    // A disabled window that keeps the focus swallows all keys.
    if (!enable && ::GetFocus() == button.m_hWnd) focus_heir.SetFocus();
    if ((button.IsWindowEnabled() != FALSE) != enable) button.EnableWindow(enable);
}

// A quote refreshes the page: a button whose text stays is not painted again.
void SetTextIfNew(CWnd& button, const std::string& wanted) {
    char shown[64] = {};
    button.GetWindowText(shown, sizeof shown);
    if (wanted != shown) button.SetWindowText(wanted.c_str());
}

}  // namespace

int CGoldPositionDlg::SelectedRow() const {
    const int row = m_list.GetSelectedRow();
    return row >= 0 && row < ShownCount() ? row : -1;
}

LRESULT CGoldPositionDlg::OnListEvent(WPARAM event, LPARAM) {
    if (event != kListRowChosen) return 0;
    const CScopedLock lock(m_lock);
    TellSelection();
    OnSelectionChanged();
    return 0;
}

void CGoldPositionDlg::TellSelection() {
    const int row = SelectedRow();
    if (row < 0) return;
    if (m_bDetail) {
        text::CopyText(m_szSelected, text::FieldText(LotAt(row)->szContract));
    } else {
        text::CopyText(m_szSelected, text::FieldText(GetPositionAt(row)->szContract));
    }
    if (m_hOwner == nullptr) return;
    ::PostMessageA(m_hOwner, WM_POSITION_CONTRACT, reinterpret_cast<WPARAM>(m_szSelected), 0);
}

void CGoldPositionDlg::OnRowOpened(NMHDR*, LRESULT* result) {
    *result = 0;
    const CScopedLock lock(m_lock);
    const int row = SelectedRow();
    if (row < 0 || m_hOwner == nullptr) return;
    const PositionGroup copy = m_bDetail ? *LotAt(row) : lists::AsLot(*GetPositionAt(row));
    ::SendMessageA(m_hOwner, WM_POSITION_ROW, reinterpret_cast<WPARAM>(&copy), 0);
}

void CGoldPositionDlg::OnSelectionChanged() {
    if (m_btnStop.m_hWnd == nullptr) return;
    const int row = SelectedRow();
    UpdateCloseButtons(row);
    Enable(m_btnStop, row >= 0, m_list);
    if (g_bNeedShowStopLossAndProfit == 0) m_btnStop.ShowWindow(SW_HIDE);
}

CBmpButtonNoPic& CGoldPositionDlg::CloseButton(std::size_t index) {
    CBmpButtonNoPic* const buttons[lists::kCloseRatioCount] = {
        &m_btnClose1, &m_btnClose30, &m_btnClose50, &m_btnClose70, &m_btnClose100};
    return *buttons[index];
}

void CGoldPositionDlg::UpdateCloseButtons(int row) {
    const CScopedLock lock(m_lock);
    const PositionGroup* const lot = m_bDetail ? LotAt(row) : nullptr;
    const CZebPosition* const total = m_bDetail ? nullptr : GetPositionAt(row);
    int available = 0;
    if (lot != nullptr) available = lists::AvailableLots(*lot);
    if (total != nullptr) available = lists::AvailableLots(*total);
    for (std::size_t i = 0; i < lists::kCloseRatioCount; ++i) {
        const lists::CloseRatio& ratio = lists::kCloseRatios[i];
        const bool valid = lot != nullptr || total != nullptr;
        ShowOffer(CloseButton(i),
                  valid ? lists::OfferClose(available, ratio) : lists::NoCloseOffer(ratio));
    }
}

void CGoldPositionDlg::ShowOffer(CBmpButtonNoPic& button, const lists::CloseOffer& offer) {
    SetTextIfNew(button, offer.text);
    Enable(button, offer.enabled, m_list);
    if (offer.lots.has_value()) button.m_nValue = *offer.lots;
}

void CGoldPositionDlg::OnCloseButton(std::size_t index) {
    const int row = SelectedRow();
    if (row < 0) return;
    const int lots = CloseButton(index).m_nValue;
    if (m_bDetail) {
        CloseLot(*LotAt(row), lots);
    } else {
        CloseTotal(*GetPositionAt(row), lots);
    }
}

void CGoldPositionDlg::CloseTotal(const CZebPosition& position, int lots) {
    if (lots > 0) Send(lists::PrepareCloseTotal(position, lots));
}

void CGoldPositionDlg::CloseLot(const PositionGroup& lot, int lots) {
    Send(lists::PrepareCloseLot(lot, lots));
}

void CGoldPositionDlg::Send(lists::PreparedClose close) {
    if (!close.problem.empty()) {
        ReportStatus(close.problem);
        return;
    }
    if (m_pDialogs == nullptr) return;
    const HWND page = m_hWnd;
    const bool confirmed = m_pDialogs->ConfirmOrder(this, close.request, close.is_close);
    // The host may have taken the page down while the question was open.
    if (!confirmed || !::IsWindow(page)) return;
    if (CUICallBack* const core = GetUICallBack()) {
        core->InsertOrder(&close.request, &close.param, close.price_type, kOrderSourceQuickClose);
    }
}

void CGoldPositionDlg::OnStop() {
    if (g_bNeedShowStopLossAndProfit == 0) {
        MessageBox("不支持止损止盈", "错误", MB_OK);
        return;
    }
    const int row = SelectedRow();
    if (row < 0 || GetUICallBack() == nullptr) return;
    if (m_bDetail) {
        SetStopsOfLot(*LotAt(row));
    } else {
        SetStopsOfTotal(*GetPositionAt(row));
    }
}

// The rows, and the table of contracts, may change while a dialog is open: each of the two works on
// copies.

// NOLINTNEXTLINE(performance-unnecessary-value-param)
void CGoldPositionDlg::SetStopsOfLot(PositionGroup lot) {
    const std::optional<CZebContract> contract = FindContractOf(lot);
    if (!contract || m_pDialogs == nullptr) return;
    const HWND page = m_hWnd;
    CPresetStop stop = lists::ReadGroupStop(lot);
    const bool accepted =
        m_pDialogs->EditStops(*contract, stop, lists::StopTitle(lot).c_str(), this);
    if (!::IsWindow(page)) return;
    if (accepted) lists::StoreGroupStop(lot, stop);
    Refresh(m_bDetail, true);
}

void CGoldPositionDlg::SetStopsOfTotal(const CZebPosition& total) {
    AskForLots();
    const PositionGroup* const found = FindLotOf(total);
    if (found == nullptr) return;
    const std::optional<CZebContract> contract = FindContractOf(total);
    if (!contract || m_pDialogs == nullptr) return;
    const HWND page = m_hWnd;
    const PositionGroup lot = *found;
    CPresetStop stop = lists::ReadGroupStop(lot);
    const int answer = MessageBox(kStopsOfAllLots, "提示", MB_YESNO);
    if (answer != IDYES || !::IsWindow(page)) return;
    const bool accepted =
        m_pDialogs->EditStops(*contract, stop, lists::StopTitle(lot).c_str(), this);
    if (!::IsWindow(page)) return;
    if (accepted) StoreOnSide(lot, stop);
    Refresh(m_bDetail, true);
}

/// Has the core bring its lots up to date; those that the page holds stay as the user sees them.
void CGoldPositionDlg::AskForLots() {
    CUICallBack* const core = GetUICallBack();
    EArray<PositionGroup> lots(kLotGrowth);
    ReadRecords(lots, kSpareLots, [core](PositionGroup* buffer, int capacity) {
        return core->GetPositionDetailList(buffer, capacity);
    });
}

const PositionGroup* CGoldPositionDlg::FindLotOf(const CZebPosition& total) const {
    for (int i = 0; i < m_groups.GetCount(); ++i) {
        if (lists::IsLotOf(m_groups.GetData()[i], total)) return m_groups.GetData() + i;
    }
    return nullptr;
}

/// Every lot of the contract in this direction gets the stops.
void CGoldPositionDlg::StoreOnSide(const PositionGroup& lot, const CPresetStop& stop) {
    if (GetUICallBack() == nullptr) return;
    ReadLots();
    for (int i = 0; i < m_groups.GetCount(); ++i) {
        const PositionGroup& other = m_groups.GetData()[i];
        if (lists::IsSameSide(other, lot)) lists::StoreGroupStop(other, stop);
    }
}
