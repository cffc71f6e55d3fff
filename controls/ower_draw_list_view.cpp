#include "controls/ower_draw_list_view.h"

#include <algorithm>

#include "controls/list_cell_paint.h"
#include "controls/list_scroll.h"
#include "controls/templates.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/ui_callback.h"

namespace {

constexpr const char* kClassName = "OWERLISTVIEW";
constexpr UINT kEditorId = 1;
/// What a virtual cell keeps free before its text.
constexpr int kVirtualInset = 2;

COLORREF Darkened(COLORREF color) {
    const auto part = [](int value) { return static_cast<int>(value * 0.7); };
    return RGB(part(GetRValue(color)), part(GetGValue(color)), part(GetBValue(color)));
}

}  // namespace

BEGIN_MESSAGE_MAP(COwerDrawListView, CWnd)
    ON_WM_CREATE()
    ON_WM_DESTROY()
    ON_WM_SIZE()
    ON_WM_PAINT()
    ON_WM_ERASEBKGND()
    ON_WM_NCPAINT()
    ON_WM_HSCROLL()
    ON_WM_VSCROLL()
    ON_WM_MOUSEWHEEL()
    ON_WM_LBUTTONDOWN()
    ON_WM_LBUTTONUP()
    ON_WM_LBUTTONDBLCLK()
    ON_WM_RBUTTONUP()
    ON_WM_NCLBUTTONDOWN()
    ON_WM_MOUSEMOVE()
    ON_MESSAGE(WM_CAPTURECHANGED, &ThisClass::OnCaptureChanged)
    ON_MESSAGE(WM_GETDLGCODE, &ThisClass::OnGetDlgCode)
    ON_WM_KEYDOWN()
    ON_WM_TIMER()
END_MESSAGE_MAP()

COwerDrawListView::COwerDrawListView() { RegisterWindowClass(); }

COwerDrawListView::~COwerDrawListView() { DestroyWindow(); }

void COwerDrawListView::RegisterWindowClass() {
    WNDCLASSA window_class{};
    const HINSTANCE instance = AfxGetInstanceHandle();
    if (::GetClassInfoA(instance, kClassName, &window_class)) return;
    window_class = {};
    window_class.style = CS_VREDRAW | CS_HREDRAW | CS_DBLCLKS;
    window_class.lpfnWndProc = ::DefWindowProcA;
    window_class.hInstance = instance;
    window_class.hCursor = ::LoadCursorA(nullptr, IDC_ARROW);
    window_class.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<UINT_PTR>(COLOR_BTNFACE + 1));
    window_class.lpszClassName = kClassName;
    if (::RegisterClassA(&window_class) == 0) {
        ::MessageBoxA(nullptr, "RegisterWindowClass ERROR", nullptr, MB_OK);
    }
}

BOOL COwerDrawListView::Create(const RECT& rect, CWnd* parent, UINT id) {
    m_pParent = parent;
    m_nID = static_cast<int>(id);
    if (CWnd::Create(kClassName, "", WS_CHILD | WS_VSCROLL | WS_HSCROLL, rect, parent, id)) {
        return TRUE;
    }
    MessageBox("CREATE FAILE");
    return FALSE;
}

int COwerDrawListView::OnCreate(LPCREATESTRUCT create) {
    if (CWnd::OnCreate(create) == -1) return -1;
    m_hDC = ::GetDC(m_hWnd);
    m_pGrid = std::make_unique<CListGrid>(RECT{}, this, CListGrid::kPixels, m_hDC);
    m_pGrid->pfnDrawHeader = DrawHeaderCell;
    m_pGrid->pfnDrawItem = DrawBodyCell;
    for (const ListColumn& column : m_columns) m_pGrid->AddColumn(column.nWidth);
    m_edit.CreateEx(WS_EX_CLIENTEDGE, "EDIT", "", WS_CHILD | ES_RIGHT, CRect(0, 0, 0, 0), this,
                    kEditorId);
    m_tip.Create(controls::kEmptyDialog, this);
    m_tip.SetNotify(m_hWnd);
    return 0;
}

void COwerDrawListView::OnDestroy() {
    m_tip.DestroyWindow();
    m_pGrid.reset();
    ::ReleaseDC(m_hWnd, m_hDC);
    m_hDC = nullptr;
    Default();
}

void COwerDrawListView::InsertColumn(LPCSTR title, int width, UINT header_format, UINT cell_format,
                                     BOOL sortable, BOOL has_icon) {
    ListColumn column{};
    text::CopyText(column.szTitle, title);
    column.nWidth = width;
    column.nHeaderFormat = header_format;
    column.nCellFormat = cell_format;
    column.bSortable = sortable != FALSE;
    column.bHasIcon = has_icon != FALSE;
    if (m_pGrid != nullptr && !m_pGrid->AddColumn(width)) return;
    m_columns.push_back(column);
    UpdateScrollBars();
}

void COwerDrawListView::DeleteAllColumns() {
    m_columns.clear();
    if (m_pGrid != nullptr) m_pGrid->widths.RemoveAll();
    UpdateScrollBars();
}

int COwerDrawListView::GetColumnWidth(int column) const {
    return HasColumn(column) ? m_pGrid->PixelWidth(column) : 0;
}

void COwerDrawListView::SetColumnWidth(int column, int width) {
    if (!HasColumn(column)) return;
    m_pGrid->SetPixelWidth(column, width);
    UpdateScrollBars();
    Invalidate(FALSE);
}

bool COwerDrawListView::HasColumn(int column) const {
    return m_pGrid != nullptr && column >= 0 && column < m_pGrid->ColumnCount();
}

void COwerDrawListView::SetRowCount(int count, BOOL redraw) {
    if (m_pGrid == nullptr) return;
    m_pGrid->nRowCount = std::max(count, 0);
    UpdateScrollBars();
    if (redraw) Invalidate(FALSE);
}

void COwerDrawListView::SetRowHeight(int pixels) {
    if (m_pGrid != nullptr) m_pGrid->SetRowHeight(pixels);
}

void COwerDrawListView::OnSize(UINT, int width, int height) {
    if (m_pGrid == nullptr) return;
    m_pGrid->SetView({0, 0, width, height});
    UpdateScrollBars();
}

// All is painted anew whatever part is invalid: a virtual list's cells may have changed unseen.
void COwerDrawListView::OnPaint() {
    const CPaintDC validated(this);
    Repaint(&CListGrid::Paint);
}

BOOL COwerDrawListView::OnEraseBkgnd(CDC*) { return TRUE; }

void COwerDrawListView::Repaint(void (CListGrid::*paint)()) {
    if (m_pGrid == nullptr) return;
    if (!IsEditing()) {
        ((*m_pGrid).*paint)();
        return;
    }
    // Scrolling paints past WM_PAINT, and children are not clipped.
    CRect editor;
    m_edit.GetWindowRect(&editor);
    ScreenToClient(&editor);
    const int saved = ::SaveDC(m_hDC);
    ::ExcludeClipRect(m_hDC, editor.left, editor.top, editor.right, editor.bottom);
    ((*m_pGrid).*paint)();
    ::RestoreDC(m_hDC, saved);
}

void COwerDrawListView::OnNcPaint() {
    Default();
    if (m_pGrid == nullptr) return;
    CRect client;
    GetClientRect(&client);
    const bool rows_overflow = list_scroll::Overflows(
        {m_pGrid->nRowCount, m_pGrid->nRowHeight, static_cast<int>(client.bottom)});
    const bool columns_overflow =
        m_pGrid->nWidthMode == CListGrid::kPixels && m_pGrid->TotalWidth() > m_pGrid->ViewWidth();
    if (!rows_overflow || !columns_overflow) return;
    CRect whole;
    GetWindowRect(&whole);
    const CWindowDC dc(this);
    dc.FillSolidRect(
        {whole.Width() - ::GetSystemMetrics(SM_CXVSCROLL),
         whole.Height() - ::GetSystemMetrics(SM_CYHSCROLL), whole.Width(), whole.Height()},
        list_colors::kGround);
}

void COwerDrawListView::DrawBorder() {
    CUICallBack* const core = GetUICallBack();
    if (core == nullptr || m_hWnd == nullptr || m_pParent == nullptr) return;
    CPoint origin;
    ClientToScreen(&origin);
    m_pParent->ScreenToClient(&origin);
    CRect window;
    GetWindowRect(&window);
    const CRect frame(origin - CSize(1, 1), CSize(window.Width() + 2, window.Height() + 2));
    const CBrush brush(Darkened(core->GetSkinColor()));
    const CClientDC dc(m_pParent);
    dc.FrameRect(frame, brush);
}

void COwerDrawListView::DrawHeaderCell(HDC dc, HDC, int column, RECT* rect,
                                       COwerDrawListView* owner) {
    const auto index = static_cast<std::size_t>(column);
    const bool exists = index < owner->m_columns.size();
    list_cell::PaintHeader(dc, exists ? &owner->m_columns[index] : nullptr, *rect);
}

void COwerDrawListView::DrawBodyCell(HDC dc, bool, int row, int column, RECT* rect,
                                     COwerDrawListView* owner) {
    if (!owner->m_bVirtual) {
        ListCell* const cell = owner->FindCell(row, column);
        if (cell == nullptr) return;
        list_cell::Paint(dc, owner->m_columns[static_cast<std::size_t>(column)], *cell, *rect);
        return;
    }
    if (owner->m_pfnDrawCell == nullptr) return;
    RECT inset{rect->left + kVirtualInset, rect->top, rect->right, rect->bottom};
    owner->m_pfnDrawCell(dc, row, column, &inset, owner->m_pGrid->hBoldFont, owner->m_pParent,
                         owner->m_pContext);
}
