#pragma once

#include "platform/toolkit/toolkit.h"

/// A menu of items with pictures: a list box with LBS_OWNERDRAWFIXED and LBS_HASSTRINGS. An item's
/// data is the index of its picture in a horizontal strip of 16 by 16 ones; an index outside the
/// strip shows none.
class CMyListBox : public CListBox {
public:
    /// The strip stays the caller's and must outlive the control; null for none.
    void SetBitmap(HBITMAP strip);
    /// Adds an item behind the others and answers its index.
    int AddItem(LPCSTR text, int picture);

    void DrawItem(LPDRAWITEMSTRUCT item) override;

protected:
    BOOL OnEraseBkgnd(CDC* dc);
    DECLARE_MESSAGE_MAP()

private:
    void DrawPicture(const DRAWITEMSTRUCT& item) const;
    void DrawItemText(const DRAWITEMSTRUCT& item);

    HBITMAP strip_ = nullptr;
};
