#pragma once

#include "examples/gallery/controls_page.h"
#include "examples/gallery/row_list.h"

namespace gallery {

/// The gallery's window: the standard controls above, a list of 10,000 rows below.
class GalleryFrame : public CWnd {
public:
    BOOL CreateFrame();
    ControlsPage& page() { return page_; }
    RowList& list() { return list_; }
    /// From now on the close box does nothing.
    void StayOpen() { stays_open_ = true; }

protected:
    int OnCreate(LPCREATESTRUCT create);
    void OnSize(UINT kind, int width, int height);
    void OnDestroy();
    LRESULT OnClose(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    ControlsPage page_;
    RowList list_;
    bool stays_open_ = false;
};

}  // namespace gallery
