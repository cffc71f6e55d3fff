#pragma once

#include <memory>
#include <string>
#include <vector>

#include "controls/tool_tip.h"
#include "controls/track_button.h"

namespace gallery {

/// Every kind of button in each of its states, the dark ones on a panel's ground.
class ButtonBoard : public CWnd {
public:
    static constexpr int kWidth = 372;

    BOOL CreateBoard(CWnd* parent, UINT id);
    /// A button with a tip.
    CWnd& WithTip() { return *buttons_.front(); }
    /// A button that shows a tip of items.
    CWnd& WithItems() { return *GetDlgItem(kItemsButton); }

protected:
    int OnCreate(LPCREATESTRUCT create);
    BOOL OnEraseBkgnd(CDC* dc);
    HBRUSH OnCtlColor(CDC* dc, CWnd* control, UINT kind);
    void OnDestroy();
    void OnShowItems();
    LRESULT OnItem(WPARAM, LPARAM) { return 0; }
    DECLARE_MESSAGE_MAP()

private:
    static constexpr int kItemsButton = 1;

    struct Label {
        std::string text;
        CRect rect;
        COLORREF color;
    };

    void AddLightRows();
    void AddDarkRows();
    /// A row of one kind, a button for each state; `make` makes and skins one. Ends `height` lower.
    template <class Make>
    void AddRow(const char* label, int height, Make make);
    void AddLabel(const char* text, const CRect& rect);
    CRect Cell(int state, CSize size) const;

    CFont font_;
    CBrush panel_brush_;
    CToolTip items_;
    std::vector<std::unique_ptr<CTrackButton>> buttons_;
    std::vector<Label> labels_;
    int top_ = 0;
    int panel_top_ = 0;  ///< the dark ground begins here; 0 while the light rows are made
};

}  // namespace gallery
