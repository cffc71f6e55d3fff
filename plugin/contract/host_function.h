#pragma once

#include "platform/types.h"

/// The host's one function: quotes, symbols and what concerns its windows. A HostMessage says what
/// is asked; the parameters carry numbers or addresses as told there.
using HostFunction = ULONG_PTR(CALLBACK*)(UINT message, WPARAM wParam, LPARAM lParam);

/// A "key" is market | code << 16.
enum HostMessage : UINT {
    /// Resolve a contract: CHostSymbol* out, contract text. Found if the result is 0 and szCode is
    /// not empty.
    HOST_FIND_SYMBOL = 0x203,
    /// Current quote: key, JSDyn1* out.
    HOST_GET_QUOTE = 0x205,
    /// Subscribe to quotes: key, 0.
    HOST_SUBSCRIBE = 0x206,
    /// Symbol with its decimal places: key, CHostSymbol* out. Found if the result is 0.
    HOST_GET_SYMBOL = 0x209,
    /// A row of the combination page was acted on.
    HOST_COMBINATION_ACTION = 0x212,
    /// A top-level page was created: window, 0.
    HOST_PAGE_CREATED = 0x300,
    /// A top-level page is being destroyed: window, 0.
    HOST_PAGE_DESTROYED = 0x301,
    /// Font of owner-drawn panel text: 0, kModuleNumber. The result is the HFONT.
    HOST_GET_PANEL_FONT = 0x302,
    /// Contracts are loaded: kModuleNumber, 0.
    HOST_CONTRACTS_LOADED = 0x91B,
    /// Data of the client report: char* buffer of kHostReportSize bytes, challenge text. The result
    /// is the number of bytes written; with less than 64 the report is no digest.
    HOST_GET_REPORT_DATA = 0x5002,
};

inline constexpr int kHostReportSize = 4096;
