#include "examples/gallery/row_list.h"

#include <algorithm>
#include <cstdio>

namespace gallery {

namespace {

constexpr COLORREF kSelection = 0xF2EDD8;
constexpr COLORREF kGrid = 0xE0D7CC;
constexpr COLORREF kHeader = 0xF5EFE9;
constexpr COLORREF kBuy = 0x0001F6;
constexpr COLORREF kSell = 0x019900;
constexpr COLORREF kPlain = 0x555555;
constexpr COLORREF kContract = 0xB26429;

struct Column {
    const char* title;
    int width;
    UINT format;
};

constexpr UINT kLeft = DT_SINGLELINE | DT_VCENTER;
constexpr Column kColumns[] = {{"合约", 90, kLeft},
                               {"买卖", 50, kLeft | DT_CENTER},
                               {"开平", 60, kLeft | DT_CENTER},
                               {"手数", 70, kLeft | DT_RIGHT},
                               {"可用", 70, kLeft | DT_RIGHT},
                               {"开仓均价", 100, kLeft | DT_RIGHT},
                               {"最新价", 100, kLeft | DT_RIGHT},
                               {"浮动盈亏", 120, kLeft | DT_RIGHT},
                               {"时间", 90, kLeft | DT_CENTER},
                               {"备注", 220, kLeft}};

struct Cell {
    char text[64];
    COLORREF color;
};

Cell CellOf(int row, int column) {
    static const char* const kContracts[] = {"Au(T+D)", "Ag(T+D)", "mAu(T+D)", "Au99.99", "Au100g"};
    const bool buy = row % 3 != 0;
    const int ticks = row * 37 % 4000 - 2000;
    Cell cell{{}, kPlain};
    const auto print = [&cell](const char* format, auto... values) {
        std::snprintf(cell.text, sizeof cell.text, format, values...);
    };
    switch (column) {
        case 0:
            print("%s", kContracts[row % 5]);
            cell.color = kContract;
            break;
        case 1:
            print("%s", buy ? "买" : "卖");
            cell.color = buy ? kBuy : kSell;
            break;
        case 2: print("%s", row % 4 == 0 ? "平仓" : "开仓"); break;
        case 3: print("%d", row % 50 + 1); break;
        case 4: print("%d", row % 50); break;
        case 5: print("%.2f", 240.0 + row % 900 * 0.05); break;
        case 6: print("%.2f", 240.0 + (row + 7) % 900 * 0.05); break;
        case 7:
            print("%+.2f", ticks * 10.0);
            cell.color = ticks >= 0 ? kBuy : kSell;
            break;
        case 8: print("%02d:%02d:%02d", row / 3600 % 24, row / 60 % 60, row % 60); break;
        default: print("第 %d 行，手动下单", row + 1); break;
    }
    return cell;
}

}  // namespace

BEGIN_MESSAGE_MAP(RowList, CWnd)
    ON_WM_PAINT()
    ON_WM_ERASEBKGND()
    ON_WM_SIZE()
    ON_WM_VSCROLL()
    ON_WM_MOUSEWHEEL()
    ON_WM_LBUTTONDOWN()
    ON_WM_KEYDOWN()
    ON_WM_GETDLGCODE()
END_MESSAGE_MAP()

BOOL RowList::CreateList(CWnd* parent, UINT id, const RECT& rect) {
    const LPCSTR window_class = AfxRegisterWndClass(CS_DBLCLKS, LoadCursorA(nullptr, IDC_ARROW));
    return CreateEx(0, window_class, "", WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_TABSTOP, rect,
                    parent, id);
}

int RowList::VisibleRows() const {
    CRect client;
    GetClientRect(&client);
    return std::max((static_cast<int>(client.bottom) - kRowHeight) / kRowHeight, 1);
}

void RowList::UpdateScrollBar() {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMax = kRowCount - 1;
    info.nPage = static_cast<UINT>(VisibleRows());
    info.nPos = top_;
    ::SetScrollInfo(m_hWnd, SB_VERT, &info, TRUE);
}

void RowList::ScrollTo(int top) {
    const int target = std::clamp(top, 0, kRowCount - VisibleRows());
    if (target == top_) return;
    top_ = target;
    UpdateScrollBar();
    Invalidate(FALSE);
}

void RowList::Select(int row) {
    selected_ = std::clamp(row, 0, kRowCount - 1);
    if (selected_ < top_) ScrollTo(selected_);
    if (selected_ >= top_ + VisibleRows()) ScrollTo(selected_ - VisibleRows() + 1);
    Invalidate(FALSE);
}

void RowList::OnSize(UINT, int, int) {
    UpdateScrollBar();
    Invalidate(FALSE);
}

void RowList::OnVScroll(UINT code, UINT, CScrollBar*) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_TRACKPOS;
    ::GetScrollInfo(m_hWnd, SB_VERT, &info);
    switch (code) {
        case SB_LINEUP: ScrollTo(top_ - 1); return;
        case SB_LINEDOWN: ScrollTo(top_ + 1); return;
        case SB_PAGEUP: ScrollTo(top_ - VisibleRows()); return;
        case SB_PAGEDOWN: ScrollTo(top_ + VisibleRows()); return;
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION: ScrollTo(info.nTrackPos); return;
        default: return;
    }
}

BOOL RowList::OnMouseWheel(UINT, short delta, CPoint) {
    ScrollTo(top_ - delta * 3 / WHEEL_DELTA);
    return TRUE;
}

void RowList::OnLButtonDown(UINT, CPoint point) {
    SetFocus();
    if (point.y >= kRowHeight) Select(top_ + (point.y - kRowHeight) / kRowHeight);
}

void RowList::OnKeyDown(UINT key, UINT, UINT) {
    switch (key) {
        case VK_UP: Select(selected_ - 1); return;
        case VK_DOWN: Select(selected_ + 1); return;
        case VK_PRIOR: Select(selected_ - VisibleRows()); return;
        case VK_NEXT: Select(selected_ + VisibleRows()); return;
        case VK_HOME: Select(0); return;
        case VK_END: Select(kRowCount - 1); return;
        default: Default(); return;
    }
}

void RowList::OnPaint() {
    CPaintDC paint(this);
    CRect client;
    GetClientRect(&client);
    CDC memory;
    memory.CreateCompatibleDC(&paint);
    CBitmap bitmap;
    bitmap.CreateCompatibleBitmap(paint, client.right, client.bottom);
    const toolkit::ScopedSelect select_bitmap(memory, bitmap);
    CFont font;
    font.CreateFont(12, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, 0, 0, 0, 0,
                    "宋体");
    const toolkit::ScopedSelect select_font(memory, font);
    memory.SetBkMode(TRANSPARENT);
    memory.FillSolidRect(client, RGB(255, 255, 255));
    int y = kRowHeight;
    for (int row = top_; row < kRowCount && y < client.bottom; ++row, y += kRowHeight) {
        PaintRow(memory, row, y, client.right);
    }
    PaintHeader(memory, client.right);
    paint.BitBlt(0, 0, client.right, client.bottom, &memory, 0, 0, SRCCOPY);
}

void RowList::PaintHeader(HDC dc, int width) const {
    const CBrush ground(kHeader);
    const CBrush grid(kGrid);
    const CRect whole(0, 0, width, kRowHeight);
    FillRect(dc, &whole, ground);
    SetTextColor(dc, kPlain);
    int x = 0;
    for (const Column& column : kColumns) {
        CRect cell(x - 1, 0, x + column.width, kRowHeight);
        FrameRect(dc, &cell, grid);
        cell.InflateRect(-4, 0);
        DrawTextA(dc, column.title, -1, &cell, column.format);
        x += column.width;
    }
}

void RowList::PaintRow(HDC dc, int row, int top, int width) const {
    const CBrush grid(kGrid);
    if (row == selected_) {
        const CBrush selection(kSelection);
        const CRect whole(0, top, width, top + kRowHeight);
        FillRect(dc, &whole, selection);
    }
    int x = 0;
    for (int index = 0; index < static_cast<int>(std::size(kColumns)); ++index) {
        const Column& column = kColumns[index];
        CRect cell(x - 1, top - 1, x + column.width, top + kRowHeight);
        FrameRect(dc, &cell, grid);
        cell.InflateRect(-4, 0);
        const Cell content = CellOf(row, index);
        SetTextColor(dc, content.color);
        DrawTextA(dc, content.text, -1, &cell, column.format);
        x += column.width;
    }
}

}  // namespace gallery
