// Mouse, keys, the editor and tips.

#include "controls/list_scroll.h"
#include "controls/ower_draw_list_view.h"
#include "platform/text/bounded_text.h"

namespace {

constexpr DWORD kTipDelayMillis = 300;
/// Of a key message's flags: the key was down already.
constexpr UINT kAutoRepeat = 0x4000;

LPARAM PackedCell(int column, int row) {
    return static_cast<LPARAM>(static_cast<DWORD>(MAKELONG(column, row)));
}

}  // namespace

void COwerDrawListView::OnLButtonDown(UINT, CPoint point) {
    SetFocus();
    SetCapture();
    bool opened = false;
    if (m_pGrid != nullptr && m_pGrid->SelectAt(point.x, point.y) >= 0) {
        Invalidate(FALSE);
        const CListGrid::Cell cell = m_pGrid->GetHitCell(point.x, point.y);
        if (m_bVirtual) {
            PostPress(cell);
        } else {
            opened = OpenPressedCell(cell);
        }
    }
    Default();
    if (!opened) EndEdit();
}

void COwerDrawListView::PostPress(CListGrid::Cell cell) const {
    if (m_pParent == nullptr) return;
    m_pParent->PostMessage(WM_LIST_EVENT, kListRowChosen, reinterpret_cast<LPARAM>(this));
    if (cell.column < 0 || cell.row < 0) return;
    m_pParent->PostMessage(WM_LIST_EVENT, kListCellPressed, PackedCell(cell.column, cell.row));
}

bool COwerDrawListView::OpenPressedCell(CListGrid::Cell cell) {
    const ListCell* const pressed = FindCell(cell.row, cell.column);
    if (pressed == nullptr || pressed->bEditable == 0) return false;
    EndEdit();
    RECT rect = pressed->rcCell;
    ::OffsetRect(&rect, 0, m_pGrid->nRowHeight);
    OpenEditor(cell.column, cell.row, rect, pressed->szText);
    const bool released = ::GetAsyncKeyState(VK_LBUTTON) >= 0;
    // The press is made once more, for the editor to put its caret under the pointer.
    ::mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    ::mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    // A quick click has let go before: its release stands in front of the new press.
    if (released) ::mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    return true;
}

void COwerDrawListView::OnLButtonUp(UINT, CPoint) {
    if (::GetCapture() == m_hWnd) ::ReleaseCapture();
    if (m_pGrid != nullptr) m_pGrid->bResizing = false;
    Default();
}

LRESULT COwerDrawListView::OnCaptureChanged(WPARAM, LPARAM) {
    if (m_pGrid != nullptr) m_pGrid->bResizing = false;
    return Default();
}

// Stands for the second press of a double click, so it may begin to drag a divider, too.
void COwerDrawListView::OnLButtonDblClk(UINT, CPoint point) {
    if (m_pGrid == nullptr) return;
    if (m_pGrid->SelectAt(point.x, point.y) >= 0) {
        Invalidate(FALSE);
        Notify(NM_DBLCLK);
    } else if (m_pGrid->bResizing) {
        SetCapture();
    }
}

void COwerDrawListView::OnRButtonUp(UINT, CPoint) { Notify(NM_RCLICK); }

void COwerDrawListView::OnNcLButtonDown(UINT, CPoint) {
    EndEdit();
    Default();
}

void COwerDrawListView::Notify(UINT code) const {
    if (m_pParent == nullptr) return;
    NMHDR header{m_hWnd, static_cast<UINT_PTR>(m_nID), code};
    m_pParent->SendMessage(WM_NOTIFY, static_cast<WPARAM>(m_nID),
                           reinterpret_cast<LPARAM>(&header));
}

void COwerDrawListView::OnMouseMove(UINT, CPoint point) {
    if (m_pGrid == nullptr) return;
    bool widened = false;
    const bool dragging = m_pGrid->MoveAt(point.x, point.y, &widened);
    if (widened) Invalidate(FALSE);
    if (dragging) UpdateScrollBars();
    m_dwLastMove = ::GetTickCount();
    m_tip.Hide();
    m_bTipDone = FALSE;
}

// Enter is wanted even with no row selected: it must not press a dialog's button from here.
LRESULT COwerDrawListView::OnGetDlgCode(WPARAM, LPARAM lParam) {
    const auto* const message = reinterpret_cast<const MSG*>(lParam);
    const bool enter = message != nullptr && message->wParam == VK_RETURN;
    return DLGC_WANTARROWS | (enter ? DLGC_WANTMESSAGE : 0);
}

void COwerDrawListView::OnKeyDown(UINT key, UINT, UINT flags) {
    if (m_pGrid == nullptr) return;
    const int count = m_pGrid->nRowCount;
    const int selected = m_pGrid->nSelected;
    if (key == VK_RETURN) {
        const bool fresh = (flags & kAutoRepeat) == 0;
        if (fresh && selected >= 0 && selected < count) Notify(NM_DBLCLK);
        return;
    }
    const auto row = list_scroll::RowByKey(key, selected, count, m_pGrid->RowsInView());
    if (!row) {
        Default();
    } else if (count > 0) {
        SelectByKey(*row);
    }
}

void COwerDrawListView::SelectByKey(int row) {
    const bool moved = row != m_pGrid->nSelected;
    m_pGrid->nSelected = row;
    // A row that is cut off at the top is not in view.
    const int height = m_pGrid->nRowHeight;
    const int first = m_pGrid->nScrollY / height + (m_pGrid->nScrollY % height != 0 ? 1 : 0);
    const int target = list_scroll::FirstToShow(row, first, m_pGrid->RowsInView());
    if (target != first) {
        ScrollTo(SB_VERT, target);
    } else {
        Invalidate(FALSE);
    }
    if (moved && m_bVirtual) PostPress({});
}

void COwerDrawListView::BeginEdit(int column, int row, LPCSTR text, int dx, int dy) {
    if (m_pGrid == nullptr || column < 0 || column >= m_pGrid->ColumnCount() || row < 0 ||
        row >= m_pGrid->nRowCount) {
        return;
    }
    EndEdit();
    RECT rect = m_pGrid->CellRect(row, column);
    ::OffsetRect(&rect, 0, m_pGrid->nRowHeight);
    rect.left += dx;
    rect.right += dy;
    OpenEditor(column, row, rect, text);
}

void COwerDrawListView::OpenEditor(int column, int row, const RECT& rect, LPCSTR text) {
    m_nEditCol = column;
    m_nEditRow = row;
    m_edit.SetWindowText(text != nullptr ? text : "");
    m_edit.MoveWindow(&rect);
    m_edit.ShowWindow(SW_SHOW);
    m_edit.SetFocus();
}

// The style alone counts: the editor of a hidden page is still open.
BOOL COwerDrawListView::IsEditing() const {
    return m_edit.m_hWnd != nullptr && (m_edit.GetStyle() & WS_VISIBLE) != 0;
}

void COwerDrawListView::EndEdit() {
    // Hiding the editor, or a box that the parent shows, takes the focus and leads here again.
    if (!IsEditing() || ending_edit_) return;
    ending_edit_ = true;
    m_bVirtual ? TellEditEnds() : TakeEditedText();
    m_edit.ShowWindow(SW_HIDE);
    ending_edit_ = false;
}

void COwerDrawListView::TellEditEnds() const {
    if (m_pParent == nullptr) return;
    m_pParent->SendMessage(WM_LIST_EVENT, kListEditEnds, PackedCell(m_nEditCol, m_nEditRow));
}

void COwerDrawListView::TakeEditedText() {
    const ListCell* const cell = FindCell(m_nEditRow, m_nEditCol);
    if (cell == nullptr || cell->bEditable == 0) return;
    char text[257];
    m_edit.GetWindowText(text, sizeof text);
    SetItemText(m_nEditRow, m_nEditCol, text);
}

void COwerDrawListView::OnTimer(UINT_PTR) {
    Default();
    CPoint point;
    ::GetCursorPos(&point);
    ScreenToClient(&point);
    CRect client;
    GetClientRect(&client);
    // No message says that the pointer has left.
    if (!client.PtInRect(point)) m_tip.Hide();
    if (m_bTipDone || ::GetTickCount() - m_dwLastMove < kTipDelayMillis) return;
    m_bTipDone = TRUE;
    if (client.PtInRect(point)) ShowTip(point);
}

void COwerDrawListView::ShowTip(CPoint point) {
    const ListCell* const cell = TipCellAt(point);
    if (cell == nullptr) return;
    // The tip shows whole lines only.
    char tip[kCellTextSize + 2];
    text::CopyText(tip, cell->szTip);
    if (!text::FieldText(cell->szTip).ends_with("\r\n")) text::AppendText(tip, "\r\n");
    ClientToScreen(&point);
    m_tip.ShowText(tip, point, ::GetSystemMetrics(SM_CXSCREEN));
}

const ListCell* COwerDrawListView::TipCellAt(POINT point) {
    // Behind the header there are rows as well, but out of view.
    if (m_pGrid == nullptr || point.y < m_pGrid->BodyTop()) return nullptr;
    const CListGrid::Cell hit = m_pGrid->GetHitCell(point.x, point.y);
    const ListCell* const cell = FindCell(hit.row, hit.column);
    if (cell == nullptr || cell->szTip[0] == '\0') return nullptr;
    if (m_columns[static_cast<std::size_t>(hit.column)].bHasIcon == 0) return cell;
    // The hot rectangle's right and bottom belong to it.
    const RECT hot{cell->rcHot.left, cell->rcHot.top, cell->rcHot.right + 1,
                   cell->rcHot.bottom + 1};
    const POINT in_body{point.x - m_pGrid->rcView.left, point.y - m_pGrid->BodyTop()};
    return ::PtInRect(&hot, in_body) ? cell : nullptr;
}
