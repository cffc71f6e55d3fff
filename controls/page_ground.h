#pragma once

#include "platform/toolkit/toolkit.h"

// The ground that all pages share: the skin's colour, or the system's without a core.

COLORREF PageGroundColor();
/// Answers WM_ERASEBKGND.
void FillPageGround(const CWnd& page, CDC* dc);
/// Answers WM_CTLCOLOR for what stands on the ground: labels, boxes, radio buttons. Null for other
/// controls, whose ground is their own.
HBRUSH PageGroundBrush(CDC* dc, UINT kind);
/// Gives a rich edit the ground's colour.
void SetGroundOfRichEdit(CWnd& page, int id);
