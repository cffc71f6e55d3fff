#include "examples/gallery/controls_page.h"

#include <cstdio>
#include <cstdlib>

#include "examples/gallery/ids.h"

namespace gallery {

namespace {

constexpr const char* kReport =
    "上海黄金交易所 交易结算单\r\n"
    "客户号 1080012345    日期 2013-10-08\r\n"
    "----------------------------------------\r\n"
    "期初结存      172,944.00\r\n"
    "平仓盈亏        1,250.50\r\n"
    "手续费            -38.20\r\n"
    "期末结存      174,156.30\r\n"
    "风险率            23.5%\r\n";

class AskDialog : public CDialog {
public:
    explicit AskDialog(CWnd* parent) : CDialog(kAskDialog, parent) {}

protected:
    BOOL OnInitDialog() override {
        CDialog::OnInitDialog();
        SetDlgItemText(kAskPrice, "242.85");
        SetDlgItemText(kAskVolume, "3");
        return TRUE;
    }
};

}  // namespace

BEGIN_MESSAGE_MAP(ControlsPage, CDialog)
    ON_BN_CLICKED(kOpenAsk, &ControlsPage::OnOpenAsk)
    ON_BN_CLICKED(kOpenBox, &ControlsPage::OnOpenBox)
    ON_BN_CLICKED(kOpenQuestion, &ControlsPage::OnOpenQuestion)
    ON_BN_CLICKED(kOpenSave, &ControlsPage::OnOpenSave)
    ON_BN_CLICKED(kOpenPopup, &ControlsPage::OnOpenPopup)
    ON_NOTIFY(UDN_DELTAPOS, kSpin, &ControlsPage::OnSpin)
    ON_CBN_SELCHANGE(kPickList, &ControlsPage::OnPick)
END_MESSAGE_MAP()

BOOL ControlsPage::CreatePage(CWnd* parent) { return Create(kControlsPage, parent); }

BOOL ControlsPage::OnInitDialog() {
    CDialog::OnInitDialog();
    FillTexts();
    FillLists();
    FillTree();
    CheckDlgButton(kCheckOn, BST_CHECKED);
    CheckDlgButton(kCheckDisabled, BST_CHECKED);
    CheckDlgButton(kRadioFirst, BST_CHECKED);
    return TRUE;
}

void ControlsPage::FillTexts() {
    SetDlgItemText(kPlainText, "黄金 Au(T+D) 242.85");
    SetDlgItemText(kPassword, "secret");
    SetDlgItemText(kReadOnly, "客户号 1080012345");
    SetDlgItemText(kDisabledEdit, "暂不可用");
    SetDlgItemText(kSpinEdit, "10");
    SetDlgItemText(
        kLongText,
        "交易须知：\r\n一、报价单位为元/克，最小变动价位0.01元。\r\n二、保证金按合约价值的百分比"
        "收取。\r\nThe quick brown fox jumps over 12 lazy dogs.\r\n三、夜盘时间 20:00 至次日 "
        "02:30。");
    SetDlgItemText(kRichText, kReport);
    SendDlgItemMessage(kRichText, EM_SETBKGNDCOLOR, 0, RGB(0xFF, 0xFF, 0xF0));
}

void ControlsPage::FillLists() {
    static const char* const kContracts[] = {"Au(T+D)", "Ag(T+D)", "mAu(T+D)",
                                             "Au99.99", "Au100g",  "Au99.95"};
    for (const char* contract : kContracts) {
        const auto text = reinterpret_cast<LPARAM>(contract);
        SendDlgItemMessage(kPickList, CB_ADDSTRING, 0, text);
        SendDlgItemMessage(kEditList, CB_ADDSTRING, 0, text);
        SendDlgItemMessage(kDisabledList, CB_ADDSTRING, 0, text);
        SendDlgItemMessage(kListBox, LB_ADDSTRING, 0, text);
    }
    SendDlgItemMessage(kPickList, CB_SETCURSEL, 0);
    SendDlgItemMessage(kEditList, CB_SETCURSEL, 2);
    SendDlgItemMessage(kDisabledList, CB_SETCURSEL, 1);
    SendDlgItemMessage(kListBox, LB_SETCURSEL, 1);
    CTabCtrl tabs;
    tabs.Attach(::GetDlgItem(m_hWnd, kTabs));
    tabs.InsertItem(0, "绝对值");
    tabs.InsertItem(1, "相对值");
    tabs.Detach();
}

HTREEITEM ControlsPage::AddNode(HTREEITEM parent, const char* text) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%s", text);
    TVINSERTSTRUCT insert{};
    insert.hParent = parent;
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT;
    insert.item.pszText = buffer;
    return reinterpret_cast<HTREEITEM>(
        SendDlgItemMessage(kTree, TVM_INSERTITEM, 0, reinterpret_cast<LPARAM>(&insert)));
}

void ControlsPage::FillTree() {
    const HTREEITEM spot = AddNode(TVI_ROOT, "现货");
    AddNode(spot, "Au99.99");
    AddNode(spot, "Au99.95");
    const HTREEITEM deferred = AddNode(TVI_ROOT, "延期");
    AddNode(deferred, "Au(T+D)");
    SendDlgItemMessage(kTree, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(spot));
    SendDlgItemMessage(kTree, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(spot));
}

void ControlsPage::ShowStatus(const char* text) { SetDlgItemText(kStatus, text); }

void ControlsPage::OnOpenAsk() {
    AskDialog dialog(this);
    ShowStatus(dialog.DoModal() == IDOK ? "已确定" : "已取消");
}

void ControlsPage::OnOpenBox() {
    MessageBox("交易服务器连接断开，请重新登录。\n服务器信息[黄金]", "提示",
               MB_OK | MB_ICONINFORMATION);
}

void ControlsPage::OnOpenQuestion() {
    const int answer =
        MessageBox("确定要撤销全部未成交的委托吗？", "撤单", MB_YESNO | MB_ICONQUESTION);
    ShowStatus(answer == IDYES ? "选择了是" : "选择了否");
}

void ControlsPage::OnOpenSave() {
    CFileDialog dialog(FALSE, "csv", "成交记录", OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT,
                       "CSV文件(*.csv)|*.csv|所有文件(*.*)|*.*||", this);
    ShowStatus(dialog.DoModal() == IDOK ? "选了文件" : "没有选文件");
}

void ControlsPage::OnOpenPopup() {
    if (popup_.GetSafeHwnd() != nullptr) {
        popup_.DestroyWindow();
        return;
    }
    CRect button;
    GetDlgItem(kOpenPopup)->GetWindowRect(&button);
    popup_.CreateEx(WS_EX_TOOLWINDOW | WS_EX_TOPMOST, "Static", " 弹出窗口不取走焦点",
                    WS_POPUP | WS_BORDER | SS_CENTERIMAGE, button.left, button.bottom + 4, 160, 28,
                    m_hWnd, nullptr);
    popup_.ShowWindow(SW_SHOWNA);
}

void ControlsPage::OnSpin(NMHDR* header, LRESULT* result) {
    char text[16] = "";
    GetDlgItemText(kSpinEdit, text, sizeof text);
    const int volume = std::atoi(text) - reinterpret_cast<const NMUPDOWN*>(header)->iDelta;
    std::snprintf(text, sizeof text, "%d", volume > 0 ? volume : 0);
    SetDlgItemText(kSpinEdit, text);
    *result = 0;
}

void ControlsPage::OnPick() { ShowStatus("选了合约"); }

}  // namespace gallery
