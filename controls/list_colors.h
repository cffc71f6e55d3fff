#pragma once

#include "platform/system.h"

/// The fixed look of lists.
namespace list_colors {

constexpr COLORREF kGround = 0xFFFFFF;
constexpr COLORREF kHeader = 0xF5EFE9;
constexpr COLORREF kGrid = 0xE0D7CC;       ///< the lines around header and cells
constexpr COLORREF kSelection = 0xF2EDD8;  ///< the selected row

/// Stands for no colour; so does anything else that is not 24 bits.
constexpr COLORREF kUnset = 0x1000000;
constexpr bool IsSet(COLORREF color) { return color <= 0xFFFFFF; }

}  // namespace list_colors
