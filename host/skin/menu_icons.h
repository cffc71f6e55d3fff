#pragma once

#include "host/skin/canvas.h"

namespace skin {

/// The pictures of the menu strip, from the left; the value is the image index of a menu item.
enum class MenuIcon {
    kOrders,
    kPositions,
    kTrades,
    kFunds,
    kTransfer,
    kPassword,
    kSettlement,
    kSettings,
    kCombination,
    kLock,
    kHistory,
    kStops,
    kQuickClose,
    kPlaceOrder,
    kCancelOrder,
    kContracts,
    kChart,
    kAccount,
    kBank,
    kNotice,
    kReport,
    kExport,
    kServer,
    kLogout,
    kRefresh,
    kSearch,
    kCount
};

inline constexpr int kMenuIconSize = 16;

/// Draws an icon into the 16 by 16 pixels at the canvas's origin.
void DrawMenuIcon(Canvas& canvas, MenuIcon icon, COLORREF ink, COLORREF accent);

}  // namespace skin
