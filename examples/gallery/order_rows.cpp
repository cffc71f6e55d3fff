#include "examples/gallery/order_rows.h"

#include <array>
#include <cstdio>
#include <iterator>

#include "host/skin/palette.h"

namespace gallery {

namespace {

constexpr UINT kLeft = DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS;
constexpr UINT kCenter = DT_CENTER | DT_VCENTER | DT_SINGLELINE;
constexpr UINT kRight = DT_RIGHT | DT_VCENTER | DT_SINGLELINE;

struct Column {
    const char* title;
    int width;
    UINT format;
};

enum OrderColumn : int {
    kTime,
    kContract,
    kSide,
    kOffset,
    kState,
    kPrice,
    kVolume,
    kFilled,
    kNumber
};

constexpr Column kOrderColumns[] = {
    {"委托时间", 68, kCenter}, {"合约", 76, kLeft},     {"买卖", 44, kCenter},
    {"开平", 44, kCenter},     {"委托状态", 84, kLeft}, {"委托价格", 88, kRight},
    {"委托量", 60, kRight},    {"已成交", 60, kRight},  {"委托号", 124, kLeft},
};

constexpr Column kStopColumns[] = {
    {"合约", 92, kLeft},    {"最新价", 76, kRight}, {"浮动盈亏", 92, kRight},
    {"止盈点", 64, kRight}, {"止损点", 64, kRight}, {"备注", 110, kLeft},
};

struct Order {
    int seconds;
    const char* contract;
    bool buy;
    bool open;
    int price_cents;
    int volume;
    int filled;
};

// Spread over the rows by small primes, so that neighbours differ and every run shows the same.
Order OrderAt(int row) {
    static constexpr struct {
        const char* code;
        int cents;
    } kContracts[] = {{"Au(T+D)", 24285},
                      {"Ag(T+D)", 412900},
                      {"mAu(T+D)", 24291},
                      {"Au99.99", 24302},
                      {"Au100g", 24345}};
    const auto& contract = kContracts[static_cast<std::size_t>(row * 7 % 5)];
    const int volume = 1 + row * 13 % 20;
    const int done = row * 11 % 6;
    return {9 * 3600 + row * 61 % 23400,
            contract.code,
            row * 5 % 3 != 0,
            row * 3 % 4 < 2,
            contract.cents + (row * 17 % 41 - 20) * (contract.cents > 100000 ? 100 : 1),
            volume,
            done > 2 ? volume : done * volume / 4};
}

struct State {
    const char* text;
    COLORREF color;
};

State StateOf(const Order& order, int row) {
    if (order.filled == order.volume) return {"全部成交", skin::kLight.text};
    if (row % 9 == 4) return {"已撤单", skin::kLight.secondary};
    if (row % 17 == 6) return {"废单", skin::kLight.buy};
    return {order.filled > 0 ? "部分成交" : "未成交", skin::kLight.accent};
}

template <class... Values>
std::array<char, 48> Print(const char* format, Values... values) {
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), format, values...);
    return text;
}

struct Cell {
    std::array<char, 48> text;
    COLORREF color = skin::kLight.text;
};

Cell CellAt(int row, int column) {
    const Order order = OrderAt(row);
    const COLORREF side = order.buy ? skin::kLight.buy : skin::kLight.sell;
    switch (column) {
        case kTime:
            return {Print("%02d:%02d:%02d", order.seconds / 3600, order.seconds / 60 % 60,
                          order.seconds % 60),
                    skin::kLight.secondary};
        case kContract: return {Print("%s", order.contract)};
        case kSide: return {Print("%s", order.buy ? "买" : "卖"), side};
        case kOffset: return {Print("%s", order.open ? "开" : "平")};
        case kState: return {Print("%s", StateOf(order, row).text), StateOf(order, row).color};
        case kPrice:
            return {Print("%d.%02d", order.price_cents / 100, order.price_cents % 100), side};
        case kVolume: return {Print("%d", order.volume)};
        case kFilled: return {Print("%d", order.filled)};
        default: return {Print("13100800%04d", row + 1), skin::kLight.secondary};
    }
}

void InsertColumns(COwerDrawListView& list, const Column* columns, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        const Column& column = columns[i];
        list.InsertColumn(column.title, column.width, column.format, column.format, FALSE, FALSE);
    }
}

}  // namespace

void OrderRows::Attach(COwerDrawListView& list) {
    list.SetVirtual();
    InsertColumns(list, kOrderColumns, std::size(kOrderColumns));
    list.m_pfnDrawCell = &OrderRows::DrawCell;
    list.SetRowCount(kCount, TRUE);
}

void OrderRows::DrawCell(HDC dc, int row, int column, RECT* rect, HFONT, CWnd*, void*) {
    if (row >= kCount) return;
    const Cell cell = CellAt(row, column);
    RECT inside = *rect;
    inside.left += 2;
    inside.right -= 4;
    ::SetTextColor(dc, cell.color);
    ::DrawTextA(dc, cell.text.data(), -1, &inside,
                kOrderColumns[static_cast<std::size_t>(column)].format);
}

void OrderRows::FillStops(COwerDrawListView& list) {
    struct Stop {
        const char* texts[6];
        COLORREF profit;
    };
    static constexpr Stop kStops[] = {
        {{"Au(T+D)", "242.85", "+1,250.50", "120", "60", "夜盘前检查"}, skin::kLight.buy},
        {{"Ag(T+D)", "4129.00", "-386.00", "45", "30", ""}, skin::kLight.sell},
        {{"mAu(T+D)", "242.91", "+18.20", "100", "50", "分批止盈"}, skin::kLight.buy},
        {{"Au99.99", "243.02", "0.00", "0", "0", "现货不设止损"}, skin::kLight.secondary},
        {{"Au100g", "243.45", "-72.10", "80", "40", ""}, skin::kLight.sell},
    };
    constexpr COLORREF kEditable = RGB(0xFF, 0xFF, 0xF0);
    for (const Column& column : kStopColumns) {
        const bool first = &column == kStopColumns;
        list.InsertColumn(column.title, column.width, column.format, column.format, FALSE, first);
    }
    for (const Stop& stop : kStops) {
        const int row = list.InsertRow(stop.texts[0]);
        for (int column = 1; column < 6; ++column)
            list.SetItemText(row, column, stop.texts[column]);
        list.SetItemTextColor(row, 2, stop.profit);
        for (int column = 3; column < 6; ++column) {
            list.SetItemEditable(row, column, TRUE);
            list.SetItemBkColor(row, column, kEditable);
        }
    }
    list.SetItemTip(0, 5, "黄金延期，一手 1000 克\r\n夜盘 20:00 开市");
}

}  // namespace gallery
