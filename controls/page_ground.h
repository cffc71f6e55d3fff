#pragma once

#include "controls/skin_button.h"
#include "platform/toolkit/toolkit.h"

// The ground that all pages share: the skin's colour, or the system's without a core.

COLORREF PageGroundColor();
/// Answers WM_ERASEBKGND.
void FillPageGround(const CWnd& page, CDC* dc);
/// Answers WM_CTLCOLOR for what stands on the ground: labels, boxes, radio buttons. Null for other
/// controls, whose ground is their own.
HBRUSH PageGroundBrush(CDC* dc, UINT kind);
/// Dresses a button in a picture of the skin that holds its four states side by side.
void SetPageSkin(CSkinButton& button, int group, int index);
/// Gives a rich edit the ground's colour.
void SetGroundOfRichEdit(CWnd& page, int id);
