// A list of live data, 27 rows of 10 columns with Chinese texts and numbers on 1000 x 600 pixels,
// as a page paints it: straight into the context of BeginPaint, texts formatted from records each
// time.

#include <array>
#include <cstdio>
#include <cstring>
#include <vector>

#include "bench/ratio.h"
#include "platform/system.h"

namespace {

constexpr int kRows = 27;
constexpr int kColumns = 10;
constexpr int kColumnWidth = 100;
constexpr int kRowHeight = 22;
constexpr int kWidth = 1000;
constexpr int kHeight = 600;
constexpr std::size_t kBytes = std::size_t{kWidth} * kHeight * 4;

struct Record {
    const char* contract;
    bool buy;
    double price;
    int volume;
    double profit;
    int seconds;
};

/// The window, the tools it paints with and the rows it shows.
class ListView {
public:
    ListView() : font_(MakeFont(400)), grid_(CreateSolidBrush(0xE0D7CC)) {
        static const char* const kContracts[] = {"Au(T+D)", "Ag(T+D)", "mAu(T+D)", "Au99.99"};
        for (int row = 0; row < kRows; ++row) {
            records_[static_cast<std::size_t>(row)] = {kContracts[row % 4], row % 2 == 0,
                                                       240 + row * 1.37,    row * 13 + 1,
                                                       (row - 10) * 123.45, row * 977};
        }
        WNDCLASSA window_class{};
        window_class.lpfnWndProc = Procedure;
        window_class.hInstance = GetModuleHandleA(nullptr);
        window_class.lpszClassName = "BenchList";
        RegisterClassA(&window_class);
        window_ = CreateWindowExA(0, "BenchList", "", WS_POPUP | WS_VISIBLE, 0, 0, kWidth, kHeight,
                                  nullptr, nullptr, window_class.hInstance, this);
        UpdateWindow(window_);
    }
    ListView(const ListView&) = delete;
    ListView& operator=(const ListView&) = delete;
    ~ListView() {
        DestroyWindow(window_);
        DeleteObject(font_);
        DeleteObject(grid_);
    }

    void RepaintAll() const {
        InvalidateRect(window_, nullptr, FALSE);
        UpdateWindow(window_);
    }

    void RepaintRow(int row) const {
        const RECT part{0, row * kRowHeight, kWidth, (row + 1) * kRowHeight};
        InvalidateRect(window_, &part, FALSE);
        UpdateWindow(window_);
    }

    void ScrollOneRow() const {
        ScrollWindow(window_, 0, -kRowHeight, nullptr, nullptr);
        UpdateWindow(window_);
    }

private:
    static HFONT MakeFont(int weight) {
        return CreateFontA(12, 0, 0, 0, weight, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, "宋体");
    }

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_NCCREATE) {
            const auto& create = *reinterpret_cast<const CREATESTRUCTA*>(lParam);
            SetWindowLongPtrA(window, GWLP_USERDATA,
                              reinterpret_cast<LONG_PTR>(create.lpCreateParams));
        }
        if (message == WM_PAINT) {
            reinterpret_cast<const ListView*>(GetWindowLongPtrA(window, GWLP_USERDATA))
                ->Paint(window);
            return 0;
        }
        if (message == WM_ERASEBKGND) return 1;
        return DefWindowProcA(window, message, wParam, lParam);
    }

    void Paint(HWND window) const {
        PAINTSTRUCT paint;
        const HDC dc = BeginPaint(window, &paint);
        const HGDIOBJ former = SelectObject(dc, font_);
        SetBkMode(dc, TRANSPARENT);
        FillRect(dc, &paint.rcPaint, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        const int first = paint.rcPaint.top / kRowHeight;
        for (int row = first; row < kRows && row * kRowHeight < paint.rcPaint.bottom; ++row) {
            for (int column = 0; column < kColumns; ++column) PaintCell(dc, row, column);
        }
        SelectObject(dc, former);
        EndPaint(window, &paint);
    }

    void PaintCell(HDC dc, int row, int column) const {
        const Record& record = records_[static_cast<std::size_t>(row)];
        char text[64];
        COLORREF color = 0x555555;
        UINT format = DT_SINGLELINE | DT_VCENTER;
        const auto print = [&text](const char* pattern, auto... values) {
            std::snprintf(text, sizeof text, pattern, values...);
        };
        switch (column) {
            case 0:
                print("%s", record.contract);
                color = 0xB26429;
                break;
            case 1:
                print("%s", record.buy ? "买入" : "卖出");
                color = record.buy ? 0x0001F6 : 0x019900;
                break;
            case 2:
                print("%.2f", record.price);
                format |= DT_RIGHT;
                break;
            case 3:
                print("%d", record.volume);
                format |= DT_RIGHT;
                break;
            case 4:
                print("%+.2f", record.profit);
                color = record.profit > 0 ? 0x0001F6 : 0x019900;
                format |= DT_RIGHT;
                break;
            case 5:
                print("%02d:%02d:%02d", record.seconds / 3600, record.seconds / 60 % 60,
                      record.seconds % 60);
                break;
            case 6: print("%s", "黄金延期"); break;
            case 7:
                print("%.2f", record.price * 1.1);
                format |= DT_RIGHT;
                break;
            case 8:
                print("%s", "已成交");
                format |= DT_CENTER;
                break;
            default: print("%d手", record.volume / 2); break;
        }
        RECT cell{column * kColumnWidth - 1, row * kRowHeight - 1, (column + 1) * kColumnWidth,
                  (row + 1) * kRowHeight};
        FrameRect(dc, &cell, grid_);
        InflateRect(&cell, -3, 0);
        SetTextColor(dc, color);
        DrawTextA(dc, text, -1, &cell, format);
    }

    std::array<Record, kRows> records_{};
    HFONT font_;
    HBRUSH grid_;
    HWND window_ = nullptr;
};

ListView& View() {
    static ListView view;
    return view;
}

std::vector<unsigned char>& Memory() {
    static std::vector<unsigned char> memory(kBytes + std::size_t{kWidth} * kRowHeight * 4);
    return memory;
}

// Keeps the compiler from dropping a write that nobody reads.
void Written(const void* memory) { asm volatile("" : : "r"(memory) : "memory"); }

RATIO("paint.full_repaint_over_memset") {
    return {[] { View().RepaintAll(); },
            [] {
                std::memset(Memory().data(), 0xFF, kBytes);
                Written(Memory().data());
            }};
}

RATIO("paint.scroll_row_over_memmove") {
    return {[] { View().ScrollOneRow(); },
            [] {
                constexpr std::size_t kRowBytes = std::size_t{kWidth} * kRowHeight * 4;
                std::memmove(Memory().data(), Memory().data() + kRowBytes, kBytes - kRowBytes);
                Written(Memory().data());
            }};
}

RATIO("paint.row_changed_over_full_repaint") {
    return {[] { View().RepaintRow(10); }, [] { View().RepaintAll(); }};
}

}  // namespace
