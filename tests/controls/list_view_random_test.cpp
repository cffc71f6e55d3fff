// A day of use in a moment: whatever is done to a list, it keeps its promises to its owner.

#include <random>
#include <string>

#include "tests/controls/list_frame.h"

namespace tests {

namespace {

using platform::testing::Pump;

constexpr int kSteps = 3000;
constexpr int kMostRows = 200'000;

/// Drives one list by random input and changes. Both bars, the editor and the tip take part.
class RandomUse {
public:
    explicit RandomUse(bool is_virtual) {
        if (is_virtual) list_.SetVirtual();
        list_.SetDrawContext(this);
        list_.m_pfnDrawCell = PaintCell;
        InsertColumn();
        list_.SetTimer(1, 10, nullptr);
    }

    void Step() {
        using Action = void (RandomUse::*)();
        // Input is what there is most of.
        static constexpr Action kActions[] = {
            &RandomUse::MovePointer, &RandomUse::MovePointer,  &RandomUse::MovePointer,
            &RandomUse::Button,      &RandomUse::Button,       &RandomUse::Button,
            &RandomUse::Key,         &RandomUse::Key,          &RandomUse::Key,
            &RandomUse::Wheel,       &RandomUse::Wheel,        &RandomUse::ScrollMessage,
            &RandomUse::Rows,        &RandomUse::Rows,         &RandomUse::Columns,
            &RandomUse::Resize,      &RandomUse::StoredChange, &RandomUse::StoredChange,
            &RandomUse::Edit,        &RandomUse::Capture,      &RandomUse::Tick,
            &RandomUse::Other,
        };
        (this->*kActions[Below(std::size(kActions))])();
        Pump();
        Check();
    }

    int painted() const { return painted_; }
    std::size_t heard() const { return heard_; }

private:
    int Below(std::size_t limit) { return static_cast<int>(random_() % limit); }
    int Between(int low, int high) { return low + Below(static_cast<std::size_t>(high - low) + 1); }
    bool OneIn(std::size_t count) { return Below(count) == 0; }

    void MovePointer() {
        CRect window;
        list_.GetWindowRect(&window);
        // Often to where dividers and rows are; now and then outside.
        const int x = Between(-20, window.Width() + 20);
        const int y = OneIn(3) ? Between(-2, 25) : Between(-20, window.Height() + 20);
        ::SetCursorPos(window.left + x, window.top + y);
    }
    void Button() {
        static constexpr DWORD kButtons[] = {MOUSEEVENTF_LEFTDOWN,  MOUSEEVENTF_LEFTUP,
                                             MOUSEEVENTF_LEFTDOWN,  MOUSEEVENTF_LEFTUP,
                                             MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP};
        const DWORD button = kButtons[Below(std::size(kButtons))];
        ::mouse_event(button, 0, 0, 0, 0);
        // A press on a bar waits for its release.
        if (button == MOUSEEVENTF_LEFTDOWN && (OneIn(3) || !OnClient())) {
            ::mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
        }
    }
    bool OnClient() const {
        CPoint point;
        ::GetCursorPos(&point);
        list_.ScreenToClient(&point);
        CRect client;
        list_.GetClientRect(&client);
        return client.PtInRect(point);
    }
    void Key() {
        static constexpr BYTE kKeys[] = {VK_UP,  VK_DOWN,   VK_PRIOR, VK_NEXT, VK_HOME, VK_END,
                                         VK_TAB, VK_RETURN, VK_LEFT,  '7',     VK_BACK, VK_DELETE};
        if (OneIn(4)) list_.SetFocus();
        platform::testing::Key(kKeys[Below(std::size(kKeys))]);
    }
    void Wheel() { platform::testing::Wheel(Between(-3, 3)); }
    void ScrollMessage() {
        list_.SendMessage(OneIn(2) ? WM_VSCROLL : WM_HSCROLL,
                          MAKEWPARAM(Between(0, 10), Below(0x10000)));
    }
    void Rows() {
        const int most = OneIn(4) ? kMostRows : 40;
        list_.SetRowCount(Between(-2, most), Between(0, 1));
    }
    void InsertColumn() {
        list_.InsertColumn("合约", OneIn(6) ? Between(-5, 2000) : Between(5, 160), 37, 36,
                           Between(0, 1), Between(0, 1));
    }
    void Columns() {
        if (OneIn(4) || list_.m_columns.size() > 12) list_.DeleteAllColumns();
        for (int more = Between(0, 3); more > 0; --more) InsertColumn();
    }
    void Resize() {
        const int width = OneIn(8) ? Between(0, 25) : Between(50, 580);
        const int height = OneIn(8) ? Between(0, 25) : Between(50, 380);
        list_.MoveWindow(Between(0, 20), Between(0, 20), width, height);
    }
    void StoredChange() {
        static const std::string kTexts[] = {"", "Au(T+D)", "黄金延期交收合约",
                                             std::string(255, 'W'), std::string(400, '\xB0')};
        const auto text = [this] { return kTexts[Below(std::size(kTexts))].c_str(); };
        const int row = Between(-1, 12);
        const int column = Between(-1, 6);
        switch (Between(0, 8)) {
            case 0:
            case 1: list_.InsertRow(text()); break;
            case 2: list_.DeleteRow(row); break;
            case 3: OneIn(2) ? list_.DeleteAllRows() : list_.ClearRows(); break;
            case 4: list_.SetItemText(row, column, text()); break;
            case 5: list_.SetItemTip(row, column, text()); break;
            case 6: list_.SetItemEditable(row, column, Between(0, 3)); break;
            case 7: list_.SetItemBkColor(row, column, static_cast<COLORREF>(random_())); break;
            default: list_.SetItemTextColor(row, column, static_cast<COLORREF>(random_())); break;
        }
    }
    void Edit() {
        if (OneIn(3)) {
            list_.EndEdit();
        } else {
            list_.BeginEdit(Between(-1, 4), Between(-1, 12), "123.45", Between(-9, 9),
                            Between(-9, 9));
        }
    }
    void Capture() {
        if (OneIn(2)) {
            ::ReleaseCapture();
        } else {
            ::SetCapture(parent_);
            ::ReleaseCapture();
        }
    }
    void Tick() { platform::testing::PumpFor(static_cast<DWORD>(Between(0, 30))); }
    void Other() {
        switch (Between(0, 6)) {
            case 0: list_.ScrollToEnd(); break;
            case 1: list_.ResetScrollY(OneIn(3) ? -7 : 0); break;
            case 2: list_.SetRowHeight(OneIn(3) ? Between(-3, 60) : kRowHeight); break;
            case 3: list_.ShowWindow(OneIn(3) ? SW_HIDE : SW_SHOW); break;
            case 4: parent_.SetFocus(); break;
            case 5: list_.DrawBorder(); break;
            default: list_.m_dwLastMove -= 300; break;
        }
    }

    void Check() {
        const CListGrid& grid = *list_.m_pGrid;
        ASSERT_EQ(grid.ColumnCount(), static_cast<int>(list_.m_columns.size()));
        ASSERT_GE(grid.nRowCount, 0);
        ASSERT_GE(grid.nScrollY, 0);
        ASSERT_GE(grid.nScrollX, 0);
        ASSERT_GE(list_.GetSelectedRow(), -1);
        ASSERT_LE(list_.GetSelectedRow(), kMostRows);
        ASSERT_TRUE(!grid.bResizing || ::GetCapture() == list_.m_hWnd) << "nothing ends the drag";
        ASSERT_TRUE(!list_.IsEditing() || ::GetFocus() == list_.m_edit.m_hWnd) << "left open";
        ASSERT_EQ(misses_, 0) << "a cell that is not there was to be painted";
        CRect client;
        list_.GetClientRect(&client);
        if (!client.IsRectEmpty()) {
            // An empty window keeps its bars until it has room again.
            ASSERT_LE(grid.nScrollX, grid.TotalWidth());
            ASSERT_EQ(::GetScrollPos(list_, SB_HORZ), grid.nScrollX);
        }
        heard_ += parent_.events.size();
        parent_.events.clear();
    }

    static void PaintCell(HDC dc, int row, int column, RECT* rect, HFONT bold, CWnd*,
                          void* context) {
        RandomUse& use = *static_cast<RandomUse*>(context);
        ++use.painted_;
        const CListGrid& grid = *use.list_.m_pGrid;
        const bool there = row >= 0 && row < grid.nRowCount && column >= 0 &&
                           column < grid.ColumnCount() && rect->left - 2 < grid.ViewWidth() &&
                           rect->right >= 0 && rect->top < grid.rcView.bottom;
        if (!there) ++use.misses_;
        const toolkit::ScopedSelect font(dc, row % 5 == 0 ? bold : static_cast<HFONT>(grid.hFont));
        ::DrawTextA(dc, "黄金 1,234.56", -1, rect, 38);
    }

    ListParent parent_;
    COwerDrawListView& list_ = parent_.list;
    std::mt19937 random_{20261123};
    int painted_ = 0;
    int misses_ = 0;
    std::size_t heard_ = 0;
};

TEST(RandomUseOfLists, KeepsAVirtualListWhole) {
    platform::testing::StopClock();
    RandomUse use(true);
    for (int step = 0; step < kSteps && !::testing::Test::HasFatalFailure(); ++step) use.Step();
    EXPECT_GT(use.painted(), kSteps);
    EXPECT_GT(use.heard(), std::size_t{kSteps / 50});
}

TEST(RandomUseOfLists, KeepsAListWithRowsWhole) {
    platform::testing::StopClock();
    RandomUse use(false);
    for (int step = 0; step < kSteps && !::testing::Test::HasFatalFailure(); ++step) use.Step();
    EXPECT_EQ(use.painted(), 0);
    EXPECT_GT(use.heard(), std::size_t{kSteps / 200});
}

}  // namespace

}  // namespace tests
