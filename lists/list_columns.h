#pragma once

#include <span>

#include "controls/ower_draw_list_view.h"

/// What the pages of live lists share in making their list.
namespace lists {

/// Picture of the upright buttons, in the pages' group of the skin.
inline constexpr int kUprightSkin = 14;

struct Column {
    const char* title;
    int width;
    UINT format = 0;  ///< of the cells
};

/// A visible virtual list on the page, whose painter gets `context`.
void MakeList(COwerDrawListView& list, CWnd& page, int id, void* context);
void SetColumns(COwerDrawListView& list, std::span<const Column> columns);

/// A column of texts that takes what is left of a wide list.
struct WideColumn {
    int column = 0;
    int least = 0;
    int width = least;  ///< as it was made
};
/// Leaves it alone once the user has dragged it.
void FitColumn(COwerDrawListView& list, WideColumn& wide);

}  // namespace lists
