#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/views/view.h"
#include "papercore/quote.h"

namespace views {

/// The contracts with their latest quotes, a row each. One is current; a click, Up and Down, Home
/// and End choose another. Columns are made wider or narrower by their dividers in the header.
class QuoteList : public View {
public:
    struct Contract {
        std::string name;  ///< GBK
        int digits = 2;
    };

    QuoteList();

    void SetContracts(std::vector<Contract> contracts);
    /// Header and all rows.
    int WholeHeight() const;
    /// An index that is not there is ignored, here and below.
    void SetQuote(int index, const papercore::Quote& quote);
    void Select(int index);
    int Selected() const { return selected_; }

    std::vector<int> ColumnWidths() const { return widths_; }
    /// Takes as many widths as there are columns, and none of a list of another length.
    void SetColumnWidths(const std::vector<int>& widths);

    /// The user chose another contract.
    std::function<void(int index)> on_select;

protected:
    void Paint(const Painter& painter, CSize size) override;
    void OnLButtonDown(UINT keys, CPoint point);
    void OnLButtonUp(UINT keys, CPoint point);
    void OnMouseMove(UINT keys, CPoint point);
    BOOL OnMouseWheel(UINT keys, short delta, CPoint point);
    BOOL OnSetCursor(CWnd* window, UINT hit, UINT message);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnSetFocus(CWnd* former);
    void OnKillFocus(CWnd* next);
    UINT OnGetDlgCode() { return DLGC_WANTARROWS; }
    LRESULT OnCaptureChanged(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    struct Row {
        Contract contract;
        papercore::Quote quote;
    };

    void PaintHeader(const Painter& painter, int width) const;
    void PaintRow(const Painter& painter, std::size_t row, int top, int width) const;
    RECT RowRect(int row) const;
    int RowsInView() const;
    void ScrollTo(int first);
    void Choose(int index);
    int DividerAt(CPoint point) const;

    std::vector<Row> rows_;
    std::vector<int> widths_;
    int selected_ = -1;
    int first_ = 0;        ///< row at the top
    int dragged_ = -1;     ///< column whose width is being dragged
    int drag_offset_ = 0;  ///< from the divider to the pointer
};

}  // namespace views
