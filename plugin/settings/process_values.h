#pragma once

#include <map>
#include <string>

#include "platform/types.h"

// Values that hold for the whole process, each declared here and nowhere else. They belong to the
// windows' thread.

/// Products with a margin factor of their own, in the order of g_dMarginFactor.
enum MarginProduct {
    MARGIN_AG_TD,
    MARGIN_AU_TD,
    MARGIN_MAU_TD,
    MARGIN_AU100G,
    MARGIN_AU9999,
    MARGIN_AU9995,
    MARGIN_PRODUCT_COUNT,
};

// Settings, read once when the library starts (ReadStartSettings).

/// 1: funds are worked out here, with the margin factors below; any other value leaves that to the
/// server.
extern int g_nUseProfile;
/// 1: order page and position list offer stops, and the core is asked to watch them.
extern int g_bNeedShowStopLossAndProfit;
/// Multiplies the price to the margin of one lot; -1 each unless g_nUseProfile is 1.
extern double g_dMarginFactor[MARGIN_PRODUCT_COUNT];
/// The same by contract; goes before the products' factors.
extern std::map<std::string, double> g_mapContractMargin;

// Windows of the host.

extern HWND g_hParentWnd;  ///< the main dialog's parent
extern HWND g_hFrameWnd;

// Funds, in the account's currency, as of the last funds event.

extern double g_dAvailable;  ///< as the server gave it
extern double g_dEquity;

/// GetTickCount of the last order or trade; 0: no funds wanted, 1: wanted at the next timer tick.
extern DWORD g_dwLastActivityTick;

/// What the next client report answers to; empty until the server has sent one.
extern std::string g_strReportChallenge;

/// Background of the panels, as the core's skin names it when a panel is made.
extern COLORREF crPanelBack;
