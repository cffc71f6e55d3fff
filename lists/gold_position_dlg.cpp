#include "lists/gold_position_dlg.h"

#include "controls/page_ground.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/record_list.h"
#include "plugin/contract/ui_callback.h"

namespace {

constexpr int kSpareRecords = 16;

}  // namespace

BEGIN_MESSAGE_MAP(CGoldPositionDlg, CDialog)
    ON_WM_SIZE()
    ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

void CGoldPositionDlg::Connect(const ContractSource* contracts, HWND row_receiver) {
    m_pContracts = contracts;
    m_hOwner = row_receiver;
}

void CGoldPositionDlg::Refresh(bool bDetailList, bool bFetch) {
    CUICallBack* core = GetUICallBack();
    if (core == nullptr || !bFetch) return;
    if (bDetailList) {
        ReadRecords(m_groups, kSpareRecords, [core](PositionGroup* buffer, int capacity) {
            return core->GetPositionDetailList(buffer, capacity);
        });
    } else {
        ReadRecords(m_positions, kSpareRecords, [core](CZebPosition* buffer, int capacity) {
            return core->GetPositionList(buffer, capacity);
        });
    }
}

void CGoldPositionDlg::OnQuote(unsigned int, const JSDyn1&) {}

const CZebPosition* CGoldPositionDlg::GetPositionAt(int index) const {
    return index >= 0 && index < m_positions.GetCount() ? m_positions.GetData() + index : nullptr;
}

int CGoldPositionDlg::GetOppositeAvailable(const char* contract, char direction) const {
    for (int i = 0; i < m_positions.GetCount(); ++i) {
        const CZebPosition& position = m_positions.GetData()[i];
        if (text::FieldText(position.szContract) == contract && position.cDirection != direction) {
            return position.nVolume - position.nFrozen;
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

void CGoldPositionDlg::OnSize(UINT type, int cx, int cy) {
    CDialog::OnSize(type, cx, cy);
    HWND mode = ::GetDlgItem(m_hWnd, kMode);
    if (mode != nullptr) ::MoveWindow(mode, 0, 24, 21, cy - 28, TRUE);
}

BOOL CGoldPositionDlg::OnEraseBkgnd(CDC* dc) {
    FillPageGround(*this, dc);
    return TRUE;
}
