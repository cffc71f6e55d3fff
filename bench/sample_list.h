#pragma once

#include <cstdio>
#include <vector>

#include "controls/ower_draw_list_view.h"

/// A list of 10,000 rows and 10 columns whose cells a page paints, texts formatted from records
/// each time, on 1000 x 600 pixels. Programs that use it need the templates of the controls.
namespace bench {

inline constexpr int kRows = 10'000;
inline constexpr int kColumns = 10;
inline constexpr int kColumnWidth = 100;
inline constexpr int kRowHeight = 22;
inline constexpr int kWidth = 1000;
inline constexpr int kHeight = 600;

struct Record {
    const char* contract;
    bool buy;
    double price;
    int volume;
    double profit;
    int seconds;
};

inline const std::vector<Record>& Records() {
    static const std::vector<Record> records = [] {
        static const char* const kContracts[] = {"Au(T+D)", "Ag(T+D)", "mAu(T+D)", "Au99.99"};
        std::vector<Record> made;
        made.reserve(kRows);
        for (int row = 0; row < kRows; ++row) {
            made.push_back({kContracts[row % 4], row % 2 == 0, 240 + row % 400 * 1.37,
                            row % 300 * 13 + 1, (row % 100 - 10) * 123.45, row * 7 % 86400});
        }
        return made;
    }();
    return records;
}

struct Cell {
    char text[64];
    COLORREF color = 0x555555;
    UINT format = DT_SINGLELINE | DT_VCENTER;
};

inline void Fill(const Record& record, int column, Cell& cell) {
    const auto print = [&cell](const char* pattern, auto... values) {
        std::snprintf(cell.text, sizeof cell.text, pattern, values...);
    };
    switch (column) {
        case 0: print("%s", record.contract); break;
        case 1: print("%s", record.buy ? "买入" : "卖出"); break;
        case 2: print("%.2f", record.price); break;
        case 3: print("%d", record.volume); break;
        case 4: print("%+.2f", record.profit); break;
        case 5:
            print("%02d:%02d:%02d", record.seconds / 3600, record.seconds / 60 % 60,
                  record.seconds % 60);
            break;
        case 6: print("%s", "黄金延期"); break;
        case 7: print("%.2f", record.price * 1.1); break;
        case 8: print("%s", "已成交"); break;
        default: print("%d手", record.volume / 2); break;
    }
    const bool number = column == 2 || column == 3 || column == 4 || column == 7;
    if (number) cell.format |= DT_RIGHT;
    if (column == 0) cell.color = 0xB26429;
    if (column == 1) cell.color = record.buy ? 0x0001F6 : 0x019900;
    if (column == 4) cell.color = record.profit > 0 ? 0x0001F6 : 0x019900;
}

inline void PaintCell(HDC dc, int row, int column, RECT* rect, HFONT, CWnd*, void*) {
    Cell cell;
    Fill(Records()[static_cast<std::size_t>(row % kRows)], column, cell);
    SetTextColor(dc, cell.color);
    DrawTextA(dc, cell.text, -1, rect, cell.format);
}

/// A window with nothing but a list whose client area is as large as the other lists measured.
class ListWindow : public CWnd {
public:
    explicit ListWindow(int rows) {
        const CRect list_place(0, 0, kWidth + GetSystemMetrics(SM_CXVSCROLL),
                               kHeight + GetSystemMetrics(SM_CYHSCROLL));
        CreateEx(0, nullptr, "", WS_POPUP | WS_VISIBLE, list_place, nullptr, 0);
        list.Create(list_place, this, 1);
        list.SetVirtual();
        list.m_pfnDrawCell = PaintCell;
        for (int column = 0; column < kColumns; ++column) {
            list.InsertColumn("标题", kColumnWidth, DT_SINGLELINE | DT_VCENTER | DT_CENTER, 0,
                              FALSE, FALSE);
        }
        list.SetRowCount(rows, TRUE);
        list.ShowWindow(SW_SHOW);
        UpdateWindow();
    }
    ~ListWindow() override { DestroyWindow(); }

    COwerDrawListView list;
};

// Windows of their own that stay to the end of the program.
inline COwerDrawListView& MakeList(int rows) { return (new ListWindow(rows))->list; }

/// The list that others are measured against, all of it.
inline COwerDrawListView& List() {
    static COwerDrawListView& list = MakeList(kRows);
    return list;
}

inline void RepaintList() {
    COwerDrawListView& list = List();
    list.SetRowCount(kRows, TRUE);
    list.UpdateWindow();
}

}  // namespace bench
