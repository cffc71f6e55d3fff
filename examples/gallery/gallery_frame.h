#pragma once

#include "controls/tab_set.h"
#include "examples/gallery/controls_page.h"
#include "examples/gallery/front_page.h"
#include "examples/gallery/row_list.h"

namespace gallery {

/// The gallery's window. Its first view has the standard controls above and a list of 10,000 rows
/// below, its second the controls of the trading front end.
class GalleryFrame : public CWnd {
public:
    BOOL CreateFrame();
    ControlsPage& page() { return page_; }
    RowList& list() { return list_; }
    FrontPage& front() { return front_; }
    CTabSet& tabs() { return tabs_; }
    /// From now on the close box does nothing.
    void StayOpen() { stays_open_ = true; }

protected:
    int OnCreate(LPCREATESTRUCT create);
    void OnSize(UINT kind, int width, int height);
    void OnDestroy();
    void OnTab(NMHDR* header, LRESULT* result);
    LRESULT OnClose(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    void Arrange();
    void ShowChosen();

    ControlsPage page_;
    RowList list_;
    FrontPage front_;
    CTabSet tabs_;
    bool stays_open_ = false;
};

}  // namespace gallery
