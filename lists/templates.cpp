#include "lists/templates.h"

#include "lists/gold_history_trade_dlg.h"
#include "lists/gold_order_dlg.h"
#include "lists/gold_position_dlg.h"
#include "lists/gold_reprot_dlg.h"
#include "lists/gold_trade_dlg.h"

namespace lists {

namespace {

using toolkit::Control;
using toolkit::DialogControl;
using toolkit::DialogTemplate;
using toolkit::Pixels;
using toolkit::PushButton;
using toolkit::Units;

// The mode buttons stand upright at the left edge of their list, the others above it. The pages'
// code gives modes and lists their place, and shares the width between the positions' buttons.
constexpr DialogControl kPositionControls[] = {
    PushButton(CGoldPositionDlg::kMode, "持仓—分笔", Pixels(0, 24, 21, 172)),
    PushButton(CGoldPositionDlg::kClose1, "平仓", Pixels(26, 1, 84, 22)),
    PushButton(CGoldPositionDlg::kClose30, "平仓30%", Pixels(114, 1, 84, 22)),
    PushButton(CGoldPositionDlg::kClose50, "平仓50%", Pixels(202, 1, 84, 22)),
    PushButton(CGoldPositionDlg::kClose70, "平仓70%", Pixels(290, 1, 84, 22)),
    PushButton(CGoldPositionDlg::kClose100, "平仓100%", Pixels(378, 1, 84, 22)),
    PushButton(CGoldPositionDlg::kStop, "止盈止损", Pixels(466, 1, 84, 22)),
};

constexpr DialogControl kOrderControls[] = {
    PushButton(CGoldOrderDlg::kMode, "委托—可撤", Pixels(0, 2, 21, 196)),
    Control(CGoldOrderDlg::kCancel, "Button", "撤单", BS_PUSHBUTTON | WS_TABSTOP,
            Pixels(28, 2, 60, 20)),
    Control(CGoldOrderDlg::kCancelAll, "Button", "全部撤单", BS_PUSHBUTTON | WS_TABSTOP,
            Pixels(92, 2, 72, 20)),
};

constexpr DialogControl kTradeControls[] = {
    PushButton(CGoldTradeDlg::kMode, "成交", Pixels(0, 32, 21, 166)),
    PushButton(CGoldTradeDlg::kExport, "导  出", Pixels(538, 5, 60, 20)),
};

constexpr DialogControl kHistoryControls[] = {
    Control(CGoldHistoryTradeDlg::kFrom, "SysDateTimePick32", "", WS_VISIBLE | WS_TABSTOP,
            Pixels(12, 12, 104, 24)),
    Control(CGoldHistoryTradeDlg::kTo, "SysDateTimePick32", "", WS_VISIBLE | WS_TABSTOP,
            Pixels(124, 12, 104, 24)),
    PushButton(CGoldHistoryTradeDlg::kQuery, "查询", Pixels(236, 12, 72, 24)),
    Control(CGoldHistoryTradeDlg::kText, "RichEdit20A", "",
            WS_VISIBLE | WS_TABSTOP | WS_BORDER | WS_VSCROLL | ES_MULTILINE | ES_AUTOVSCROLL |
                ES_READONLY,
            Pixels(12, 44, 576, 244)),
};

constexpr DialogTemplate Page(UINT id, std::span<const DialogControl> controls, int height) {
    return {.id = id,
            .style = toolkit::kPageStyle | WS_CLIPCHILDREN,
            .ex_style = WS_EX_CONTROLPARENT,
            .width = Units(600),
            .height = Units(height),
            .controls = controls};
}

constexpr DialogTemplate kDialogs[] = {
    Page(CGoldReprotDlg::IDD, {}, 300),
    Page(CGoldPositionDlg::IDD, kPositionControls, 200),
    Page(CGoldOrderDlg::IDD, kOrderControls, 200),
    Page(CGoldTradeDlg::IDD, kTradeControls, 200),
    Page(CGoldHistoryTradeDlg::IDD, kHistoryControls, 300),
};

}  // namespace

constinit const toolkit::TemplateTable kTemplates = kDialogs;

}  // namespace lists
