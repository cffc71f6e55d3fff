#include "orderentry/templates.h"

#include <array>

#include "orderentry/gold_bs_base_dlg.h"
#include "orderentry/key_board_dlg.h"
#include "orderentry/key_board_dlg_volume.h"
#include "orderentry/list_box_dlg.h"
#include "orderentry/panel_trade_dlg.h"
#include "orderentry/price_edit_ex.h"
#include "orderentry/prompt_insert_order_dlg.h"

namespace orderentry {

namespace {

using toolkit::Control;
using toolkit::DefaultButton;
using toolkit::DialogControl;
using toolkit::DialogTemplate;
using toolkit::DropDown;
using toolkit::Label;
using toolkit::Pixels;
using toolkit::PushButton;
using toolkit::RadioButton;
using toolkit::TextEdit;
using toolkit::Units;

constexpr DWORD kHiddenEdit = ES_AUTOHSCROLL | WS_BORDER | WS_DISABLED;
constexpr DWORD kHiddenCheck = BS_AUTOCHECKBOX | WS_TABSTOP;

// In the order of the Tab key. The hidden edits keep the places of the composites for price and
// volume. They stand before them, so their ids lead to them and not to the composites. No button is
// the default one: Enter must never send an order from another control.
constexpr DialogControl kBsControls[] = {
    Label(CGoldBsDlg::kContractLabel, "合约名称:", Pixels(6, 14, 60, 24), SS_CENTERIMAGE),
    DropDown(CGoldBsDlg::kContract, Pixels(66, 14, 150, 240), CBS_DROPDOWN | CBS_AUTOHSCROLL),
    Label(CGoldBsDlg::kDirectionLabel, "买卖方向:", Pixels(6, 44, 60, 18), SS_CENTERIMAGE),
    RadioButton(CGoldBsDlg::kBuy, "买入", Pixels(66, 44, 45, 18), WS_GROUP),
    RadioButton(CGoldBsDlg::kSell, "卖出", Pixels(116, 44, 45, 18)),
    Label(CGoldBsDlg::kOffsetLabel, "开平状态:", Pixels(6, 72, 60, 18), SS_CENTERIMAGE),
    RadioButton(CGoldBsDlg::kOpen, "开仓", Pixels(66, 72, 45, 18), WS_GROUP),
    RadioButton(CGoldBsDlg::kClose, "平仓", Pixels(116, 72, 45, 18)),
    Control(CGoldBsDlg::kNet, "Button", "自动", BS_AUTOCHECKBOX | WS_VISIBLE,
            Pixels(166, 72, 45, 18)),
    Label(CGoldBsDlg::kPriceLabel, "委托价格:", Pixels(6, 96, 60, 24), SS_CENTERIMAGE | WS_GROUP),
    Control(CGoldBsDlg::kPrice, "Edit", "", kHiddenEdit, Pixels(66, 96, 150, 24)),
    Label(CGoldBsDlg::kVolumeLabel, "委托数量:", Pixels(6, 153, 60, 24), SS_CENTERIMAGE),
    Control(CGoldBsDlg::kVolume, "Edit", "", kHiddenEdit, Pixels(66, 153, 150, 24)),
    PushButton(CGoldBsDlg::kSubmit, "买入", Pixels(66, 204, 98, 32)),
    PushButton(CGoldBsDlg::kReset, "复位", Pixels(168, 204, 48, 32)),
    Control(CGoldBsDlg::kStops, "Button", "止盈止损", kHiddenCheck, Pixels(101, 179, 70, 18)),
    Control(CGoldBsDlg::kAutoStop, "Button", "自动止损", kHiddenCheck, Pixels(144, 179, 70, 18)),
    Label(CGoldBsDlg::kMaxVolumeLabel, "最大可开:", Pixels(6, 125, 60, 24), SS_CENTERIMAGE),
    Control(CGoldBsDlg::kMaxVolume, "Edit", "",
            ES_AUTOHSCROLL | ES_READONLY | ES_RIGHT | WS_VISIBLE | WS_BORDER,
            Pixels(66, 125, 98, 24)),
    PushButton(CGoldBsDlg::kAskMaxVolume, "可开", Pixels(168, 125, 48, 24)),
};

// The texts before radios, price and volume are painted by the page.
constexpr DialogControl kPanelBsControls[] = {
    RadioButton(CPanelBSDlg::kOpen, "开仓", Pixels(48, 8, 48, 18), WS_GROUP),
    RadioButton(CPanelBSDlg::kClose, "平仓", Pixels(100, 8, 48, 18)),
    Control(CPanelBSDlg::kNet, "Button", "自动",
            BS_AUTOCHECKBOX | WS_VISIBLE | WS_TABSTOP | WS_GROUP, Pixels(152, 8, 48, 18)),
    PushButton(CPanelBSDlg::kReset, "复位", Pixels(216, 6, 56, 22)),
    TextEdit(CPanelBSDlg::kPrice, Pixels(48, 34, 208, 22)),
    Control(CPanelBSDlg::kPriceSpin, "msctls_updown32", "", WS_VISIBLE, Pixels(256, 34, 16, 22)),
    TextEdit(CPanelBSDlg::kVolume, Pixels(48, 62, 208, 22), ES_AUTOHSCROLL | ES_NUMBER),
    Control(CPanelBSDlg::kVolumeSpin, "msctls_updown32", "", WS_VISIBLE, Pixels(256, 62, 16, 22)),
    Control(CPanelBSDlg::kStops, "Button", "止盈止损", kHiddenCheck, Pixels(48, 90, 72, 18)),
    Control(CPanelBSDlg::kAutoStop, "Button", "自动止损", kHiddenCheck, Pixels(124, 90, 72, 18)),
    PushButton(CPanelBSDlg::kBuy, "买入", Pixels(8, 116, 76, 68)),
    PushButton(CPanelBSDlg::kBuyFirst, "", Pixels(88, 116, 48, 32)),
    PushButton(CPanelBSDlg::kBuySecond, "", Pixels(88, 152, 48, 32)),
    PushButton(CPanelBSDlg::kSellFirst, "", Pixels(144, 116, 48, 32)),
    PushButton(CPanelBSDlg::kSellSecond, "", Pixels(144, 152, 48, 32)),
    PushButton(CPanelBSDlg::kSell, "卖出", Pixels(196, 116, 76, 68)),
};

// A line says exactly what is sent: it has room for the longest code, and no character of it is a
// mark of a key.
constexpr DWORD kPromptLine = SS_LEFTNOWORDWRAP | SS_NOPREFIX;

constexpr DialogControl kPromptControls[] = {
    Control(CPromptInsertOrderDlg::kIcon, "Static", "", SS_ICON | WS_VISIBLE,
            Pixels(16, 16, 32, 32)),
    Label(CPromptInsertOrderDlg::kContract, "合约代码：", Pixels(64, 16, 256, 16), kPromptLine),
    Label(CPromptInsertOrderDlg::kDirection, "买卖方向：", Pixels(64, 40, 256, 16), kPromptLine),
    Label(CPromptInsertOrderDlg::kOffset, "开平方向：", Pixels(64, 64, 256, 16), kPromptLine),
    Label(CPromptInsertOrderDlg::kPrice, "委托价格：", Pixels(64, 88, 256, 16), kPromptLine),
    Label(CPromptInsertOrderDlg::kVolume, "委托数量：", Pixels(64, 112, 256, 16), kPromptLine),
    Label(CPromptInsertOrderDlg::kOrderType, "委托方式：", Pixels(64, 136, 256, 16), kPromptLine),
    Control(CPromptInsertOrderDlg::kExtra, "Static", "", kPromptLine, Pixels(64, 156, 256, 16)),
    DefaultButton(IDOK, "下单确认", Pixels(144, 176, 84, 28)),
    PushButton(IDCANCEL, "取消", Pixels(236, 176, 84, 28)),
};

constexpr DialogControl kListBoxControls[] = {
    Control(CListBoxDlg::kList, "ListBox", "", LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VISIBLE,
            Pixels(0, 0, 120, 84)),
};

constexpr int kKeyPitch = 28;

constexpr toolkit::Placement KeyPlace(int row, int column) {
    return Pixels(8 + column * kKeyPitch, 8 + row * kKeyPitch, 24, 24);
}

// The digits in one row, below them the letters, ten in a row; the captions are mixed when the
// keyboard opens. The keys that are no characters stand at the right.
constexpr auto kKeyBoardControls = [] {
    constexpr const char* kCaptions[] = {
        "0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "a", "b", "c", "d", "e", "f", "g", "h",
        "i", "j", "k", "l", "m", "n", "o", "p", "q", "r", "s", "t", "u", "v", "w", "x", "y", "z"};
    constexpr int kKeys = static_cast<int>(std::size(kCaptions));
    std::array<DialogControl, kKeys + 4> controls;
    for (int key = 0; key < kKeys; ++key) {
        controls[static_cast<std::size_t>(key)] = PushButton(
            CKeyBoardDlg::kFirstDigit + key, kCaptions[key], KeyPlace(key / 10, key % 10));
    }
    controls[kKeys] = PushButton(CKeyBoardDlg::kBackspace, "退格", Pixels(288, 8, 64, 24));
    controls[kKeys + 1] = PushButton(CKeyBoardDlg::kCase, "大    写", Pixels(288, 36, 64, 24));
    controls[kKeys + 2] = PushButton(CKeyBoardDlg::kHide, "关闭", Pixels(288, 64, 64, 24));
    controls[kKeys + 3] = PushButton(CKeyBoardDlg::kEnter, "回车", Pixels(288, 92, 64, 24));
    return controls;
}();

// Two rows of five volumes, and one key to take a digit back.
constexpr auto kVolumeKeyControls = [] {
    constexpr int kColumns = 5;
    constexpr std::size_t kKeys = std::size(CKeyBoardDlgVolume::kPresets);
    std::array<DialogControl, kKeys + 1> controls;
    for (std::size_t key = 0; key < kKeys; ++key) {
        const int row = static_cast<int>(key) / kColumns;
        const int column = static_cast<int>(key) % kColumns;
        controls[key] =
            PushButton(CKeyBoardDlgVolume::kPresets[key], "",
                       Pixels(8 + column * 44, 8 + row * kKeyPitch, 40, 24), BS_OWNERDRAW);
    }
    controls[kKeys] = PushButton(CKeyBoardDlgVolume::kBackspace, "退格", Pixels(228, 8, 48, 52));
    return controls;
}();

constexpr DialogTemplate Page(UINT id, std::span<const DialogControl> controls, int width,
                              int height, DWORD style = toolkit::kPageStyle | WS_CLIPCHILDREN) {
    return {.id = id,
            .style = style,
            .ex_style = WS_EX_CONTROLPARENT,
            .width = Units(width),
            .height = Units(height),
            .controls = controls};
}

constexpr DialogTemplate Popup(UINT id, std::span<const DialogControl> controls, int width,
                               int height, DWORD ex_style) {
    return {.id = id,
            .style = WS_POPUP | WS_BORDER,
            .ex_style = ex_style,
            .width = Units(width),
            .height = Units(height),
            .controls = controls};
}

// Pages with radio buttons of ours paint behind them: those copy what they find there. So do the
// composites: what clips its children does not hear for them that its page has painted over them.
constexpr DialogTemplate kDialogs[] = {
    Page(CPanelTradeDlg::IDD, {}, 280, 400),
    Page(CGoldBSBaseDlg::IDD, {}, 820, 300),
    Page(CGoldBsDlg::IDD, kBsControls, CGoldBsDlg::kWidth, 248, toolkit::kPageStyle),
    Page(CStock5BSDlg::IDD, {}, 180, 220),
    Page(CPanelBSDlg::IDD, kPanelBsControls, 280, 195, toolkit::kPageStyle),
    Page(CPanelPriceChartDlg::IDD, {}, 280, 60),
    {.id = CPromptInsertOrderDlg::IDD,
     .title = "下单提示",
     .width = Units(336),
     .height = Units(216),
     .controls = kPromptControls},
    Page(CPriceEditEx::IDD, {}, 144, 24, toolkit::kPageStyle),
    Popup(CListBoxDlg::IDD, kListBoxControls, 120, 84, WS_EX_TOOLWINDOW | WS_EX_TOPMOST),
    Popup(CKeyBoardDlg::IDD, kKeyBoardControls, 360, 124, WS_EX_TOOLWINDOW),
    Popup(CKeyBoardDlgVolume::IDD, kVolumeKeyControls, 284, 68, WS_EX_TOOLWINDOW),
};

}  // namespace

constinit const toolkit::TemplateTable kTemplates = kDialogs;

}  // namespace orderentry
