// Where the tree's rows stand and how they are painted.

#include <algorithm>

#include "platform/win32/controls/control.h"
#include "platform/win32/controls/tree_view.h"

namespace winbase {

namespace {

constexpr int kIndent = 16;     // a level's column, which holds its button
constexpr int kTextInset = 4;   // between the ground of a text and the text
constexpr int kRowPadding = 8;  // a row is so much higher than its text

}  // namespace

void TreeViewControl::SetFont(HFONT font) {
    font_ = font;
    if (!own_height_) item_height_ = LineHeight(font_) + kRowPadding;
    Changed();
}

LRESULT TreeViewControl::SetItemHeight(int height) {
    const int old = item_height_;
    own_height_ = height > 0;
    item_height_ = own_height_ ? height : LineHeight(font_) + kRowPadding;
    Changed();
    return old;
}

int TreeViewControl::VisibleRows() const {
    RECT client{};
    GetClientRect(window_, &client);
    return std::max<int>(client.bottom / item_height_, 1);
}

int TreeViewControl::IndentOf(const TreeItem& item) const {
    const bool columns = HasStyle(TVS_HASBUTTONS | TVS_HASLINES);
    const int at_root = columns && HasStyle(TVS_LINESATROOT) ? 1 : 0;
    return (items_.Level(item) + at_root) * kIndent;
}

RECT TreeViewControl::RowRect(int row) const {
    RECT rect{};
    GetClientRect(window_, &rect);
    rect.top = (row - top_) * item_height_;
    rect.bottom = rect.top + item_height_;
    return rect;
}

RECT TreeViewControl::TextRect(const TreeItem& item, int row) const {
    SIZE size{};
    const HDC dc = CreateCompatibleDC(nullptr);
    {
        const UseFont use(dc, font_);
        GetTextExtentPoint32A(dc, item.text.c_str(), static_cast<int>(item.text.size()), &size);
    }
    DeleteDC(dc);
    RECT rect = RowRect(row);
    rect.left = IndentOf(item);
    rect.right = rect.left + size.cx + 2 * kTextInset;
    return rect;
}

RECT TreeViewControl::ButtonRect(const TreeItem& item, int row) const {
    RECT rect = RowRect(row);
    rect.right = IndentOf(item);
    rect.left = std::max<LONG>(rect.right - kIndent, 0);
    return rect;
}

bool TreeViewControl::GetItemRect(bool text_only, RECT* rect) const {
    // The rectangle comes in with the item's handle in its first bytes.
    const TreeItem* const item =
        rect != nullptr ? items_.Find(*reinterpret_cast<const HTREEITEM*>(rect)) : nullptr;
    const int row = item != nullptr ? items_.RowOf(*item) : -1;
    if (row < 0) return false;
    *rect = text_only ? TextRect(*item, row) : RowRect(row);
    return true;
}

TreeItem* TreeViewControl::HitTest(POINT point, UINT* flags) const {
    RECT client{};
    GetClientRect(window_, &client);
    *flags = (point.x < 0               ? TVHT_TOLEFT
              : point.x >= client.right ? TVHT_TORIGHT
                                        : 0U) |
             (point.y < 0                ? TVHT_ABOVE
              : point.y >= client.bottom ? TVHT_BELOW
                                         : 0U);
    if (*flags != 0) return nullptr;
    const int row = top_ + point.y / item_height_;
    TreeItem* const item = items_.AtRow(row);
    if (item == nullptr) {
        *flags = TVHT_NOWHERE;
        return nullptr;
    }
    const RECT button = ButtonRect(*item, row);
    const bool has_button = HasStyle(TVS_HASBUTTONS) && item->can_expand();
    if (point.x < button.right) {
        *flags = has_button && point.x >= button.left ? TVHT_ONITEMBUTTON : TVHT_ONITEMINDENT;
    } else {
        *flags = point.x < TextRect(*item, row).right ? TVHT_ONITEMLABEL : TVHT_ONITEMRIGHT;
    }
    return item;
}

void TreeViewControl::SetTop(int top) {
    const int rows = static_cast<int>(items_.rows().size());
    const int target = std::clamp(top, 0, std::max(rows - VisibleRows(), 0));
    if (target == top_) return;
    top_ = target;
    Changed();
}

void TreeViewControl::Changed() {
    UpdateScrollBar();
    InvalidateRect(window_, nullptr, TRUE);
}

void TreeViewControl::UpdateScrollBar() {
    const int rows = static_cast<int>(items_.rows().size());
    top_ = std::clamp(top_, 0, std::max(rows - VisibleRows(), 0));
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMax = std::max(rows - 1, 0);
    info.nPage = static_cast<UINT>(VisibleRows());
    info.nPos = top_;
    SetScrollInfo(window_, SB_VERT, &info, TRUE);
}

void TreeViewControl::Scroll(int code, int position) {
    switch (code) {
        case SB_LINEUP: SetTop(top_ - 1); return;
        case SB_LINEDOWN: SetTop(top_ + 1); return;
        case SB_PAGEUP: SetTop(top_ - VisibleRows()); return;
        case SB_PAGEDOWN: SetTop(top_ + VisibleRows()); return;
        case SB_TOP: SetTop(0); return;
        case SB_BOTTOM: SetTop(static_cast<int>(items_.rows().size())); return;
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION: SetTop(position); return;
        default: return;
    }
}

LRESULT TreeViewControl::TellDrawing(NMTVCUSTOMDRAW& drawing, DWORD stage) {
    drawing.nmcd.dwDrawStage = stage;
    return TellParent(window_, drawing.nmcd.hdr, NM_CUSTOMDRAW);
}

void TreeViewControl::Paint() {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window_, &paint);
    if (dc == nullptr) return;
    {
        const UseFont use(dc, font_);
        SetBkMode(dc, TRANSPARENT);
        NMTVCUSTOMDRAW drawing{};
        drawing.nmcd.hdc = dc;
        GetClientRect(window_, &drawing.nmcd.rc);
        const LRESULT answer = TellDrawing(drawing, CDDS_PREPAINT);
        if ((answer & CDRF_SKIPDEFAULT) == 0) {
            PaintRows(dc, paint.rcPaint, (answer & CDRF_NOTIFYITEMDRAW) != 0);
        }
        if ((answer & CDRF_NOTIFYPOSTPAINT) != 0) TellDrawing(drawing, CDDS_POSTPAINT);
    }
    EndPaint(window_, &paint);
}

void TreeViewControl::PaintRows(HDC dc, const RECT& damaged, bool tell) {
    RECT client{};
    GetClientRect(window_, &client);
    for (int row = top_; RowRect(row).top < client.bottom; ++row) {
        const TreeItem* const item = items_.AtRow(row);
        if (item == nullptr) return;
        const RECT rect = RowRect(row);
        if (rect.bottom > damaged.top && rect.top < damaged.bottom) PaintRow(dc, *item, row, tell);
    }
}

void TreeViewControl::PaintRow(HDC dc, const TreeItem& item, int row, bool tell) {
    const HTREEITEM handle = item.handle;
    const bool enabled = IsWindowEnabled(window_) != 0;
    const bool selected = handle == caret_;
    const bool marked = selected && focused_ && enabled;
    NMTVCUSTOMDRAW drawing{};
    drawing.nmcd.hdc = dc;
    drawing.nmcd.rc = RowRect(row);
    drawing.nmcd.dwItemSpec = reinterpret_cast<DWORD_PTR>(handle);
    drawing.nmcd.uItemState =
        (selected ? CDIS_SELECTED : 0U) | (selected && focused_ ? CDIS_FOCUS : 0U);
    drawing.nmcd.lItemlParam = item.data;
    drawing.iLevel = items_.Level(item);
    drawing.clrText = !enabled ? look::kDisabled
                      : marked ? GetSysColor(COLOR_HIGHLIGHTTEXT)
                               : GetSysColor(COLOR_WINDOWTEXT);
    drawing.clrTextBk = marked                                    ? GetSysColor(COLOR_HIGHLIGHT)
                        : selected && HasStyle(TVS_SHOWSELALWAYS) ? look::kPressed
                                                                  : GetSysColor(COLOR_WINDOW);
    const LRESULT answer = tell ? TellDrawing(drawing, CDDS_ITEMPREPAINT) : CDRF_DODEFAULT;
    if (items_.Find(handle) == nullptr) return;
    if ((answer & CDRF_SKIPDEFAULT) == 0) PaintItem(dc, item, row, drawing);
    if ((answer & CDRF_NOTIFYPOSTPAINT) != 0) TellDrawing(drawing, CDDS_ITEMPOSTPAINT);
}

void TreeViewControl::PaintItem(HDC dc, const TreeItem& item, int row,
                                const NMTVCUSTOMDRAW& colors) const {
    if (HasStyle(TVS_HASLINES)) PaintLines(dc, item, row);
    const RECT button = ButtonRect(item, row);
    if (HasStyle(TVS_HASBUTTONS) && item.can_expand() && button.right > button.left) {
        RECT ground = button;
        InflateRect(&ground, -3, -(item_height_ - 10) / 2);
        FillColor(dc, ground, GetSysColor(COLOR_WINDOW));
        DrawChevron(dc, button, item.expanded() ? Direction::kDown : Direction::kRight,
                    look::kSecondary);
    }
    RECT text = TextRect(item, row);
    FillColor(dc, text, colors.clrTextBk);
    SetTextColor(dc, colors.clrText);
    InflateRect(&text, -kTextInset, 0);
    DrawTextA(dc, item.text.c_str(), static_cast<int>(item.text.size()), &text,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_NOCLIP);
}

// From every ancestor that has more children below a line runs through; the item's own bends to it.
void TreeViewControl::PaintLines(HDC dc, const TreeItem& item, int row) const {
    const RECT own = ButtonRect(item, row);
    const LONG middle = (own.top + own.bottom) / 2;
    if (own.right <= own.left) return;
    LONG x = (own.left + own.right) / 2;
    const bool last = items_.Sibling(item, 1) == nullptr;
    const bool first = row == 0;
    FillColor(dc, {x, first ? middle : own.top, x + 1, last ? middle : own.bottom}, look::kLine);
    FillColor(dc, {x, middle, own.right, middle + 1}, look::kLine);
    for (const TreeItem* at = item.parent; at->parent != nullptr; at = at->parent) {
        x -= kIndent;
        if (x < 0) return;
        if (items_.Sibling(*at, 1) != nullptr)
            FillColor(dc, {x, own.top, x + 1, own.bottom}, look::kLine);
    }
}

}  // namespace winbase
