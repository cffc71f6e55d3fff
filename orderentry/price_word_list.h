#pragma once

#include "orderentry/price_list_box.h"

/// What the popup lists of all price edits have in common.
namespace orderentry {

/// Makes an empty, hidden popup list that belongs to the edit. False if the system refuses.
bool CreateWordList(CPriceListBox& list, CWnd& edit);
/// Shows it below a rectangle of the screen, as high as its rows, and leaves the focus where it is.
void PlaceWordList(CPriceListBox& list, const CRect& above, int width);
/// False for a list that does not exist or is hidden.
bool IsPointerOver(const CWnd& list);
bool IsShown(const CWnd& list);
/// Gives the edit the text of a row and takes the focus away from both; a row that the list does
/// not have changes no text.
void TakeRow(CWnd& edit, const CListBox& list, WPARAM row);

}  // namespace orderentry
