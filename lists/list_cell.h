#pragma once

#include "platform/system.h"

/// What the cells of live lists show, and how it is drawn.
namespace lists {

inline constexpr COLORREF kGainColor = 0x0001F6;  ///< buying, and what is won
inline constexpr COLORREF kLossColor = 0x019900;  ///< selling, and what is lost
inline constexpr COLORREF kPlainColor = 0x555555;
inline constexpr COLORREF kContractColor = 0xB26429;

inline constexpr UINT kLeftFormat = DT_SINGLELINE | DT_VCENTER;
inline constexpr UINT kCenterFormat = DT_SINGLELINE | DT_VCENTER | DT_CENTER;
inline constexpr UINT kRightFormat = DT_SINGLELINE | DT_VCENTER | DT_RIGHT;

enum class CellWeight { kNormal, kBold };

/// A cell with its text in GBK; one without a text stays blank.
struct CellText {
    char text[256] = "";
    COLORREF color = kPlainColor;
    UINT format = kCenterFormat;
    CellWeight weight = CellWeight::kNormal;
};

/// Draws with the font that is selected, or with `bold`.
void DrawCellText(HDC dc, const CellText& cell, const RECT& rect, HFONT bold);

}  // namespace lists
