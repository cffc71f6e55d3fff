#pragma once

// Numbers of the gallery's dialogs and controls.

namespace gallery {

inline constexpr unsigned kControlsPage = 100;
inline constexpr unsigned kAskDialog = 101;

enum ControlId : int {
    kOpenAsk = 1001,
    kOpenBox,
    kOpenQuestion,
    kOpenSave,
    kOpenPopup,
    kPlainText,
    kPassword,
    kReadOnly,
    kDisabledEdit,
    kNumber,
    kLongText,
    kRichText,
    kPickList,
    kEditList,
    kDisabledList,
    kDate,
    kSpin,
    kSpinEdit,
    kDisabledSpin,
    kTabs,
    kListBox,
    kTree,
    kCheckOn,
    kCheckOff,
    kCheckDisabled,
    kRadioFirst,
    kRadioSecond,
    kRadioDisabled,
    kAskPrice,
    kAskVolume,
    kRows,
    kStatus,
    kPages,
    kFrontPage,
    kFrontMenu,
    kFrontOrders,
    kFrontTabs,
    kFrontStops,
    kFrontTree,
    kFrontButtons,
    kFrontRadio,                     ///< and the next
    kFrontCheck = kFrontRadio + 10,  ///< and the next
    kFrontEnd = kFrontCheck + 10,
};

}  // namespace gallery
