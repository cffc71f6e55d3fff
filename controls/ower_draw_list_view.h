#pragma once

#include <memory>
#include <vector>

#include "controls/list_grid.h"
#include "controls/list_records.h"
#include "controls/tool_tip.h"
#include "controls/wy_edit.h"
#include "platform/toolkit/toolkit.h"

/// From a list to its parent, by wParam. Same number as the dialogs' DM_SETDEFID: a parent handles
/// it for every wParam and answers 0.
inline constexpr UINT WM_LIST_EVENT = WM_USER + 1;
enum ListEvent : WPARAM {
    kListRowChosen = 0,    ///< posted; lParam the list. A row was pressed or reached by a key
    kListCellPressed = 1,  ///< posted behind it; lParam column (low word) and row (high word)
    kListEditEnds = 2,     ///< sent; lParam likewise. The text is still in m_edit
};

/// The grid of all live lists: one selected row, columns that can be dragged, an editor in cells.
/// It never sorts.
///
/// In virtual mode, which pages use, it has a row count and asks the owner to paint each cell. Else
/// it keeps rows of its own; only then do the operations on rows and cells work and are there tips,
/// and it tells the parent of no press. Indexes out of range are ignored throughout. The window's
/// thread only.
///
/// Beside WM_LIST_EVENT (virtual mode) the parent gets WM_NOTIFY: NM_DBLCLK for a row that is
/// double-clicked or on which Enter is pressed, NM_RCLICK for the right button let go anywhere.
class COwerDrawListView : public CWnd {
public:
    /// Paints a cell of a virtual list. `rect` already begins 2 pixels further right.
    using DrawCell = void (*)(HDC dc, int row, int column, RECT* rect, HFONT bold, CWnd* parent,
                              void* context);
    using Row = std::vector<ListCell>;

    COwerDrawListView();
    ~COwerDrawListView() override;

    /// A child without WS_VISIBLE. Says so in a box when it fails.
    BOOL Create(const RECT& rect, CWnd* parent, UINT id);
    /// For good.
    void SetVirtual() { m_bVirtual = TRUE; }
    void SetDrawContext(void* context) { m_pContext = context; }
    /// Frames the list in a context of the parent, which calls this when it erases its background.
    void DrawBorder();

    // Columns
    void InsertColumn(LPCSTR title, int width, UINT header_format, UINT cell_format, BOOL sortable,
                      BOOL has_icon);
    void DeleteAllColumns();
    /// Pixels of a column as it is painted, once the list is created; 0 for one that is not there.
    int GetColumnWidth(int column) const;
    void SetColumnWidth(int column, int width);

    // Rows of any list
    int GetRowCount() const { return m_pGrid != nullptr ? m_pGrid->nRowCount : 0; }
    /// -1 for none. May lie behind the last row: test it against your records.
    int GetSelectedRow() const { return m_pGrid != nullptr ? m_pGrid->nSelected : -1; }
    void SetRowCount(int count, BOOL redraw);
    void SetRowHeight(int pixels);
    void ResetScrollY(int offset);
    void ScrollToEnd();

    // Rows that the list keeps
    /// The new row's index; -1 without memory and in virtual mode.
    int InsertRow(LPCSTR text);
    void DeleteRow(int row);
    void DeleteAllRows();
    /// Frees the rows and leaves the row count.
    void ClearRows();
    void SetItemText(int row, int column, LPCSTR text);
    void SetItemTip(int row, int column, LPCSTR text);
    void SetItemBkColor(int row, int column, COLORREF color);
    void SetItemTextColor(int row, int column, COLORREF color);
    void SetItemEditable(int row, int column, BOOL editable);
    void SetItemCheck(int row, int column, BOOL check);
    BOOL GetItemCheck(int row, int column);
    /// Null when there is none. Valid until rows or columns change.
    ListCell* GetItem(int row, int column);

    // Editor
    /// Opens the editor over a cell, its left side moved by `dx` and its right side by `dy`.
    void BeginEdit(int column, int row, LPCSTR text, int dx, int dy);
    /// Closes it. In virtual mode the parent is told first, else the cell takes the text.
    void EndEdit();
    BOOL IsEditing() const;

    std::vector<Row> m_rows;
    CWyEdit m_edit;
    int m_nEditCol = -1;
    int m_nEditRow = -1;
    BOOL m_bTipDone = TRUE;  ///< no tip is due
    DWORD m_dwLastMove = 0;
    CToolTip m_tip;
    BOOL m_bVirtual = FALSE;
    HDC m_hDC = nullptr;
    int m_nID = 0;
    CWnd* m_pParent = nullptr;
    DrawCell m_pfnDrawCell = nullptr;
    std::vector<ListColumn> m_columns;
    std::unique_ptr<CListGrid> m_pGrid;
    void* m_pContext = nullptr;

protected:
    int OnCreate(LPCREATESTRUCT create);
    void OnDestroy();
    void OnSize(UINT type, int width, int height);
    void OnPaint();
    BOOL OnEraseBkgnd(CDC* dc);
    void OnNcPaint();
    void OnHScroll(UINT code, UINT position, CScrollBar* bar);
    void OnVScroll(UINT code, UINT position, CScrollBar* bar);
    BOOL OnMouseWheel(UINT keys, short delta, CPoint point);
    void OnLButtonDown(UINT keys, CPoint point);
    void OnLButtonUp(UINT keys, CPoint point);
    void OnLButtonDblClk(UINT keys, CPoint point);
    void OnRButtonUp(UINT keys, CPoint point);
    void OnNcLButtonDown(UINT hit, CPoint point);
    void OnMouseMove(UINT keys, CPoint point);
    LRESULT OnCaptureChanged(WPARAM wParam, LPARAM lParam);
    LRESULT OnGetDlgCode(WPARAM wParam, LPARAM lParam);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnTimer(UINT_PTR timer);

    DECLARE_MESSAGE_MAP()

private:
    using CWnd::Create;

    static void RegisterWindowClass();
    static void DrawHeaderCell(HDC dc, HDC spare, int column, RECT* rect, COwerDrawListView* owner);
    static void DrawBodyCell(HDC dc, bool first_column, int row, int column, RECT* rect,
                             COwerDrawListView* owner);

    bool HasColumn(int column) const;
    void UpdateScrollBars();
    void UpdateHorizontalBar();
    void UpdateVerticalBar();
    void PullUp();
    void ScrollTo(int bar, int position);
    void Scroll(int bar, UINT code, UINT given);
    void Repaint(void (CListGrid::*paint)());

    ListCell* FindCell(int row, int column);
    ListCell* MakeCell(int row, int column);
    void RowsChanged();

    void PostPress(CListGrid::Cell cell) const;
    bool OpenPressedCell(CListGrid::Cell cell);
    void OpenEditor(int column, int row, const RECT& rect, LPCSTR text);
    void TakeEditedText();
    void TellEditEnds() const;
    void Notify(UINT code) const;
    void SelectByKey(int row);
    void ShowTip(CPoint point);
    const ListCell* TipCellAt(POINT point);

    bool ending_edit_ = false;
};
