#include "lists/gold_position_dlg.h"

#include "controls/page_ground.h"
#include "lists/list_columns.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/record_list.h"
#include "plugin/contract/ui_callback.h"
#include "plugin/settings/process_values.h"

namespace {

constexpr int kSpareRecords = 16;

constexpr lists::Column kTotalColumns[] = {
    {"合约名称", 60}, {"买卖", 60}, {"持仓", 60}, {"可用", 60}, {"开仓均价", 60}, {"开仓盈亏", 90},
};

}  // namespace

BEGIN_MESSAGE_MAP(CGoldPositionDlg, CDialog)
    ON_WM_CREATE()
    ON_WM_SIZE()
    ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

int CGoldPositionDlg::OnCreate(LPCREATESTRUCT create) {
    if (CDialog::OnCreate(create) == -1) return -1;
    lists::MakeList(m_list, *this, kList, this);
    lists::SetColumns(m_list, kTotalColumns);
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
    m_btnClose1.SetWindowText("平仓1%");
    for (CWnd* button :
         {&m_btnClose1, &m_btnClose30, &m_btnClose50, &m_btnClose70, &m_btnClose100, &m_btnStop}) {
        button->EnableWindow(FALSE);
    }
    if (g_bNeedShowStopLossAndProfit == 0) m_btnStop.ShowWindow(SW_HIDE);
    return TRUE;
}

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
    if (m_btnMode.m_hWnd != nullptr) m_btnMode.MoveWindow(0, 24, 21, cy - 28);
    if (m_list.m_hWnd != nullptr) m_list.MoveWindow(26, 26, cx - 28, cy - 27);
}

BOOL CGoldPositionDlg::OnEraseBkgnd(CDC* dc) {
    FillPageGround(*this, dc);
    m_list.DrawBorder();
    return TRUE;
}
