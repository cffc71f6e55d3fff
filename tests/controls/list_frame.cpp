#include "tests/controls/list_frame.h"

#include "platform/text/gbk.h"

namespace tests {

namespace {

using platform::testing::Pump;

constexpr int kListLeft = 20;
constexpr int kListTop = 30;

std::string Pair(LPARAM lParam) {
    return std::to_string(LOWORD(lParam)) + "," + std::to_string(HIWORD(lParam));
}

}  // namespace

BEGIN_MESSAGE_MAP(ListParent, CWnd)
    ON_MESSAGE(WM_LIST_EVENT, &ThisClass::OnListEvent)
END_MESSAGE_MAP()

ListParent::ListParent() {
    CreateEx(0, nullptr, "", WS_POPUP | WS_VISIBLE, CRect(100, 100, 700, 500), nullptr, 0);
    const CRect place(CPoint(kListLeft, kListTop),
                      CSize(kClientWidth + ::GetSystemMetrics(SM_CXVSCROLL),
                            kClientHeight + ::GetSystemMetrics(SM_CYHSCROLL)));
    list.Create(place, this, kListId);
    list.ShowWindow(SW_SHOW);
}

ListParent::~ListParent() { DestroyWindow(); }

LRESULT ListParent::OnListEvent(WPARAM wParam, LPARAM lParam) {
    switch (wParam) {
        case kListRowChosen:
            events.push_back(lParam == reinterpret_cast<LPARAM>(&list) ? "row" : "row of another");
            break;
        case kListCellPressed: events.push_back("cell " + Pair(lParam)); break;
        case kListEditEnds: {
            char text[64] = "";
            list.m_edit.GetWindowText(text, sizeof text);
            events.push_back("edit " + Pair(lParam) + " " + text);
            break;
        }
        default: events.push_back("event " + std::to_string(wParam));
    }
    return 0;
}

BOOL ListParent::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
    if (header.hwndFrom != list.m_hWnd) return CWnd::OnNotify(wParam, lParam, result);
    std::string what = "code " + std::to_string(static_cast<int>(header.code));
    if (header.code == NM_DBLCLK) what = "double click";
    if (header.code == NM_RCLICK) what = "right release";
    if (wParam != kListId || header.idFrom != kListId) what += " of another id";
    events.push_back(what);
    return TRUE;
}

ListTest::ListTest() {
    platform::testing::RememberTexts();
    platform::testing::MovePointer({5, 5});
    list_.InsertColumn("合约", 100, 37, 36, FALSE, FALSE);
    list_.InsertColumn("手数", 60, 37, 38, FALSE, FALSE);
    list_.InsertColumn("备注", 140, 37, 36, FALSE, FALSE);
    PaintNow();
}

void ListTest::MakeVirtual(int rows) {
    list_.SetVirtual();
    list_.SetDrawContext(this);
    list_.m_pfnDrawCell = PaintCell;
    list_.SetRowCount(rows, TRUE);
    PaintNow();
}

void ListTest::MakeStored(int rows) {
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < 3; ++column) {
            const std::string text = std::to_string(row) + "." + std::to_string(column);
            if (column == 0) {
                list_.InsertRow(text.c_str());
            } else {
                list_.SetItemText(row, column, text.c_str());
            }
        }
    }
    PaintNow();
}

void ListTest::NeedBothBars() {
    list_.InsertColumn("时间", 300, 37, 36, FALSE, FALSE);
    PaintNow();
}

POINT ListTest::Middle(int row, int column) const {
    const RECT cell = list_.m_pGrid->CellRect(row, column);
    return At((cell.left + cell.right) / 2, (cell.top + cell.bottom) / 2 + kRowHeight);
}

std::string ListTest::Heard() {
    std::string joined;
    for (const std::string& event : parent_.events) joined += (joined.empty() ? "" : "; ") + event;
    parent_.events.clear();
    return joined;
}

std::string ListTest::Seen() const {
    std::string joined;
    for (const platform::testing::SeenText& seen : platform::testing::SeenTexts(list_)) {
        joined += (joined.empty() ? "" : " ") + text::GbkFromUtf8(seen.utf8);
    }
    return joined;
}

SCROLLINFO ListTest::Bar(int bar) const {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    ::GetScrollInfo(list_, bar, &info);
    return info;
}

void ListTest::PaintNow() {
    Pump();
    painted_.clear();
    list_.Invalidate(FALSE);
    list_.UpdateWindow();
}

void ListTest::PaintCell(HDC dc, int row, int column, RECT* rect, HFONT, CWnd*, void* context) {
    static_cast<ListTest*>(context)->painted_.push_back({row, column, *rect});
    const std::string text = std::to_string(row) + "." + std::to_string(column);
    ::SetTextColor(dc, RGB(0x55, 0x55, 0x55));
    ::DrawTextA(dc, text.c_str(), -1, rect, 36);
}

}  // namespace tests
