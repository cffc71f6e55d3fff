#pragma once

#include "platform/types.h"

// Private window messages between the core's callbacks, the host and the front end. Each is told
// with its sender, its receiver and what its parameters carry.

/// Core event: a CoreEvent code in the low word of wParam, kCoreEventFailed in the high word of a
/// failed one; lParam is a tagged block, which the receiver frees, a small value, or 0. Posted by
/// the exported class (sent for the codes that say so) to the main dialog.
inline constexpr UINT WM_CORE_EVENT = 0x600;

/// Trading parameters changed. Host to main dialog; wParam 1, anything else is ignored.
inline constexpr UINT WM_TRADE_PARAM_CHANGED = 0x608;

/// Run a function on the dialog's thread. Anybody to main dialog; wParam the function, lParam a
/// pointer to three ints.
inline constexpr UINT WM_RUN_ON_UI_THREAD = 0x416;

/// The session is lost. Posted by the main dialog to its parent's parent; wParam 0, lParam
/// kModuleNumber.
inline constexpr UINT WM_SESSION_LOST = 0x401;

/// News for the host. Posted to its frame window; wParam a FrameNotice, lParam kModuleNumber with
/// kFrameLoginWanted, else 0.
inline constexpr UINT WM_FRAME_NOTICE = 0x1B70;

/// Ask the order page for its contract. Host to order page; wParam kQueryContractText, lParam the
/// buffer for "exchange|contract".
inline constexpr UINT WM_QUERY_CONTRACT = 0x40B;
inline constexpr WPARAM kQueryContractText = 2;

/// Lock (wParam 3) or unlock (wParam 0) a panel. Host, or the lock page, to the panel; the lock
/// page tells the frame too: 0 unlocked, 1 cancelled, 2 exit.
inline constexpr UINT WM_LOCK_PANEL = 0x2B1B;

/// Another contract was chosen. Order page to its container; wParam the index in the container's
/// contracts. The container hands the record back before it returns.
inline constexpr UINT WM_CONTRACT_SELECTED = 0x2B15;

/// A position row was double-clicked. A position list to the order page or the panel, sent; wParam
/// a PositionGroup that is good until the answer, lParam 0.
inline constexpr UINT WM_POSITION_ROW = 0x2B16;

/// A position row was selected. The position list to the order page, posted; wParam the contract's
/// code, a text of the list's page that always tells the row selected last.
inline constexpr UINT WM_POSITION_CONTRACT = 0x2B17;

/// A combination was double-clicked. Combination page to the frame, with the group's key.
inline constexpr UINT WM_COMBINATION_CHOSEN = 1041;

/// A radio button was clicked and is checked now. COwerRadio to its parent, sent; wParam the
/// control's window, lParam its id.
inline constexpr UINT WM_RADIO_CHECKED = 0x2B12;

/// A check box was clicked and has changed. COwerCheckBox to its parent, posted; parameters as
/// above.
inline constexpr UINT WM_CHECK_CHANGED = 0x2B18;

/// A row of a list of price words was chosen. The list to its price edit; wParam the row.
inline constexpr UINT WM_PRICE_ROW_CHOSEN = 0x2B14;

/// Let the text of a password edit be read (wParam 1) or no more (wParam 0). Soft keyboard to the
/// edit that it serves. The keyboard's Enter key posts it to the edit's parent.
inline constexpr UINT WM_KEYBOARD_READ = 0x2B19;

/// Let a latched ratio button go. A page to its CRatioButton; the number is also that of
/// WM_KEYBOARD_READ, which only edits and their dialogs get.
inline constexpr UINT WM_UNLATCH_RATIO = 0x2B19;

enum FrameNotice : WPARAM {
    kFrameReady = 1,         ///< initial load is done, or the order page changed its contract
    kFrameLoginWanted = 77,  ///< a click on a panel's login link
};

/// This front end's number towards core and host.
inline constexpr int kModuleNumber = 4;

inline constexpr WORD kCoreEventFailed = 4;

/// Low word of a core event's wParam; behind each the success payload. A failed event carries a
/// block with the error's text unless told otherwise.
enum CoreEvent : WORD {
    EV_CONNECTION_LOST = 0x02,      ///< the status itself, -1 or -2
    EV_SETTLE_RESULT = 0x04,        ///< sent; the core's own record or text, no block
    EV_INSERT_REJECTED = 0x06,      ///< block: int, text at offset 4; failures only
    EV_CANCEL_RESULT = 0x07,        ///< block: int, text at offset 4
    EV_CONTRACTS_READY = 0x08,      ///< sent; 0
    EV_LOGIN_RESULT = 0x09,         ///< block: CLoginResult; never freed
    EV_ACCOUNT_RESULT = 0x0A,       ///< block: CZebAccountSummary
    EV_PASSWORD_RESULT = 0x0E,      ///< block: text
    EV_MAX_VOLUME_RESULT = 0x0F,    ///< block: CQueryMaxVolumeResult
    EV_ORDER_CHANGE = 0x15,         ///< block: CZebOrder
    EV_TRADE = 0x16,                ///< block: CZebTrade
    EV_INITIAL_LOAD_DONE = 0x17,    ///< sent; 0
    EV_BANK_BALANCE = 0x18,         ///< block: CBankResult
    EV_BANK_TRANSFER_ROW = 0x19,    ///< block: CBankTransfer; 0 ends the list
    EV_TRANSFER_KIND1_DONE = 0x1A,  ///< block: text
    EV_TRANSFER_KIND2_DONE = 0x1B,  ///< block: text; failures of both kinds
    EV_NOTICE = 0x1C,               ///< block: text, or 0
    EV_BATCH_QUERY_RESULT = 0x27,   ///< block: text
    EV_POSITION_LIST = 0x28,        ///< 0; sent at the end of the initial load, else posted
    EV_SYSTEM_NOTICE = 0x29,        ///< block: text; failed with 0 when no block could be had
    EV_TRADE_LIST = 0x2A,           ///< 0
    EV_ORDER_LIST = 0x2B,           ///< 0
    EV_TRADE_EXPORT_DONE = 0x2C,    ///< block: file name
    EV_POSITION_GROUP_LIST = 0x2D,  ///< 0
    EV_COMBINATION_MSG = 0x2E,      ///< block: group key
    EV_FUNCTION_RESULT = 0x31,      ///< block: int function, text at offset 4
};
