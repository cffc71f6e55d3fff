#pragma once

#include "controls/list_colors.h"
#include "platform/system.h"

/// A column of a list.
struct ListColumn {
    char szTitle[256];
    int nWidth;          ///< pixels when it was inserted; the grid has the width of the moment
    UINT nCellFormat;    ///< DrawText format of the texts that the list keeps itself
    UINT nHeaderFormat;  ///< DrawText format of the title
    BYTE bSortable;      ///< kept for the owner
    BYTE bHasIcon;       ///< 16 pixels stay free before the text; the tip belongs to rcHot only
};

/// A cell that the list keeps itself.
struct ListCell {
    char szText[260] = "";
    COLORREF crBack = list_colors::kUnset;
    BYTE bEditable = 0;  ///< a click opens the editor
    RECT rcCell{};       ///< where it was painted last, in the body's coordinates
    RECT rcHot{};       ///< where the tip of a column with icons appears, in the body's coordinates
    BYTE bChecked = 0;  ///< the owner's flag, never painted
    COLORREF crText = list_colors::kUnset;
    char szTip[256] = "";
};

static_assert(sizeof(ListColumn) == 272 && sizeof(ListCell) == 564);

/// Bytes of a cell's text and tip, with the terminator.
constexpr std::size_t kCellTextSize = 256;
/// What a column with icons keeps free.
constexpr int kIconWidth = 16;
