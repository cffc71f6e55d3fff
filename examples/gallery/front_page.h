#pragma once

#include <array>

#include "controls/my_list_box.h"
#include "controls/my_tree.h"
#include "controls/ower_check_box.h"
#include "controls/ower_draw_list_view.h"
#include "controls/ower_draw_static.h"
#include "controls/ower_radio.h"
#include "controls/tab_set.h"
#include "examples/gallery/button_board.h"

namespace gallery {

/// The trading front end's controls side by side, each in its states.
class FrontPage : public CWnd {
public:
    BOOL CreatePage(CWnd* parent, UINT id);

    COwerDrawListView& orders() { return orders_; }
    COwerDrawListView& stops() { return stops_; }
    ButtonBoard& buttons() { return buttons_; }
    CMyTree& tree() { return tree_; }

protected:
    int OnCreate(LPCREATESTRUCT create);
    void OnSize(UINT kind, int width, int height);
    BOOL OnEraseBkgnd(CDC* dc);
    HBRUSH OnCtlColor(CDC* dc, CWnd* control, UINT kind);
    LRESULT OnListEvent(WPARAM wParam, LPARAM lParam);
    LRESULT OnRadio(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    static constexpr int kMarkCount = 3;

    void CreateMenu();
    void CreateLists();
    void CreateTree();
    void CreateMarks();
    HTREEITEM AddNode(HTREEITEM parent, const char* text);

    CFont font_;
    CFont title_font_;
    CMyListBox menu_;
    COwerDrawListView orders_;
    CTabSet tabs_;
    COwerDrawListView stops_;
    CMyTree tree_;
    ButtonBoard buttons_;
    std::array<COwerDrawStatic, 4> titles_;
    std::array<COwerRadio, kMarkCount> radios_;
    std::array<COwerCheckBox, kMarkCount> checks_;
};

}  // namespace gallery
