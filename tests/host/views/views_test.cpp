#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "host/views/chart_view.h"
#include "host/views/depth_view.h"
#include "host/views/detail_view.h"
#include "host/views/log_line.h"
#include "host/views/quote_list.h"
#include "host/views/splitter.h"
#include "host/views/top_bar.h"
#include "platform/testing/input.h"
#include "platform/testing/sight.h"
#include "platform/text/gbk.h"

namespace {

using namespace views;
using papercore::Price;
using papercore::Quote;
using platform::testing::Click;
using platform::testing::Key;
using platform::testing::Pump;
using platform::testing::SeenText;
using platform::testing::SeenTexts;

Price Yuan(double yuan) { return papercore::PriceFromYuan(yuan); }

Quote GoldQuote() {
    Quote quote;
    quote.last = Yuan(901.25);
    quote.previous_settlement = Yuan(900);
    quote.volume = 12345;
    for (std::size_t level = 0; level < papercore::kLevels; ++level) {
        const auto step = static_cast<Price>(level) * 100;
        quote.bid[level] = {Yuan(901.24) - step, 10 + static_cast<int>(level)};
        quote.ask[level] = {Yuan(901.26) + step, 20 + static_cast<int>(level)};
    }
    return quote;
}

class Views : public ::testing::Test {
protected:
    Views() {
        platform::testing::RememberTexts();
        parent_.CreateEx(0, AfxRegisterWndClass(0, LoadCursorA(nullptr, IDC_ARROW), nullptr), "",
                         WS_POPUP | WS_VISIBLE, CRect(0, 0, 1000, 700), nullptr, 0);
    }
    ~Views() override { parent_.DestroyWindow(); }

    void Show(View& view, int width, int height) {
        view.CreateView(&parent_, 7);
        view.MoveWindow(0, 0, width, height);
        Pump();
    }
    static bool Shows(const View& view, const std::string& gbk) { return !Find(view, gbk).empty(); }
    static std::vector<SeenText> Find(const View& view, const std::string& gbk) {
        Pump();
        const std::string utf8 = text::Utf8FromGbk(gbk);
        std::vector<SeenText> found = SeenTexts(view.GetSafeHwnd());
        std::erase_if(
            found, [&](const SeenText& seen) { return seen.utf8.find(utf8) == std::string::npos; });
        return found;
    }

    CWnd parent_;
};

TEST_F(Views, TheQuoteListShowsAQuoteInTheColoursOfItsDay) {
    QuoteList list;
    list.SetContracts({{"Au(T+D)", 2}, {"Ag(T+D)", 0}});
    Show(list, 640, 300);
    EXPECT_TRUE(Shows(list, "--"));
    list.SetQuote(0, GoldQuote());
    list.SetQuote(5, GoldQuote());
    list.SetQuote(-1, GoldQuote());
    ASSERT_EQ(Find(list, "901.25").size(), 1u);
    EXPECT_EQ(Find(list, "901.25")[0].color, skin::kDark.buy);
    EXPECT_TRUE(Shows(list, "+1.25"));
    EXPECT_TRUE(Shows(list, "+0.14%"));
    EXPECT_TRUE(Shows(list, "12,345"));
    Quote fallen = GoldQuote();
    fallen.last = Yuan(899);
    list.SetQuote(0, fallen);
    EXPECT_EQ(Find(list, "899.00")[0].color, skin::kDark.sell);
}

TEST_F(Views, ContractsAreChosenByClickAndKeys) {
    QuoteList list;
    std::vector<int> chosen;
    list.on_select = [&](int index) { chosen.push_back(index); };
    list.SetContracts({{"a", 2}, {"b", 2}, {"c", 2}, {"d", 2}, {"e", 2}, {"f", 2}});
    Show(list, 640, 26 + 4 * 26);
    Click(list, 30, 26 + 26 + 10);
    EXPECT_EQ(list.Selected(), 1);
    Key(VK_DOWN);
    Key(VK_DOWN);
    Key(VK_DOWN);
    EXPECT_TRUE(Shows(list, "e")) << "the chosen row is in view";
    Key(VK_END);
    Key(VK_DOWN);
    Key(VK_HOME);
    Key(VK_UP);
    EXPECT_EQ(chosen, (std::vector<int>{1, 2, 3, 4, 5, 0}));
    list.Select(99);
    EXPECT_EQ(list.Selected(), 0);
}

TEST_F(Views, ADividerInTheHeaderMakesItsColumnWider) {
    QuoteList list;
    list.SetContracts({{"a", 2}});
    Show(list, 900, 200);
    const std::vector<int> before = list.ColumnWidths();
    const POINT grip = platform::testing::ScreenPoint(list, before[0], 10);
    platform::testing::Drag(grip, {grip.x + 40, grip.y});
    EXPECT_EQ(list.ColumnWidths()[0], before[0] + 40);
    platform::testing::Drag({grip.x + 40, grip.y}, {grip.x - 5000, grip.y});
    EXPECT_GT(list.ColumnWidths()[0], 0);
    list.SetColumnWidths({1, 2});
    EXPECT_EQ(list.ColumnWidths().size(), before.size());
    std::vector<int> wild(before.size(), 1 << 30);
    list.SetColumnWidths(wild);
    EXPECT_LT(list.ColumnWidths()[0], 1000);
}

TEST_F(Views, ThePressedLevelTellsItsPrice) {
    DepthView depth;
    Price pressed = 0;
    depth.on_price = [&](Price price) { pressed = price; };
    depth.SetContract("Au(T+D)", 2);
    Show(depth, 200, 400);
    EXPECT_TRUE(Shows(depth, "暂无成交"));
    const auto press_text = [&](const char* text) {
        const std::vector<SeenText> found = Find(depth, text);
        ASSERT_FALSE(found.empty()) << text;
        Click(depth, found[0].rect.left + 1, (found[0].rect.top + found[0].rect.bottom) / 2);
    };
    press_text("卖一");
    EXPECT_EQ(pressed, 0);
    depth.SetQuote(GoldQuote());
    depth.SetTrades({{0, Yuan(901.25), 3, 1}});
    press_text("卖一");
    EXPECT_EQ(pressed, Yuan(901.26));
    press_text("买五");
    EXPECT_EQ(pressed, Yuan(901.20));
    EXPECT_FALSE(Shows(depth, "暂无成交"));
}

std::vector<Candle> Candles(int count) {
    std::vector<Candle> candles;
    for (int index = 0; index < count; ++index) {
        const Price open = Yuan(900 + index % 5);
        candles.push_back({60000LL * index, open, open + Yuan(1), open - Yuan(1), open + 5000, 9});
    }
    return candles;
}

TEST_F(Views, TheDetailsComeWithWhatTheHeightHoldsAndNeverOfAnotherContract) {
    papercore::ContractTerms terms;
    terms.unit = 1000;
    terms.margin = 160'000;
    for (const int width : {120, 310, 508}) {
        DetailView details;
        Show(details, width, DetailView::LeastHeight(width));
        details.SetContract("Au(T+D)", 2, &terms);
        details.SetQuote(GoldQuote());
        const std::vector<SeenText> swing = Find(details, "昨结");
        ASSERT_EQ(swing.size(), 1u);
        EXPECT_LE(swing[0].rect.bottom, DetailView::LeastHeight(width));
        EXPECT_TRUE(Shows(details, "900.00"));
        EXPECT_FALSE(Shows(details, "16%"));
        details.MoveWindow(0, 0, width, 600);
        EXPECT_TRUE(Shows(details, "16%"));
        details.SetContract("Ag(T+D)", 0, nullptr);
        EXPECT_FALSE(Shows(details, "900"));
        EXPECT_FALSE(Shows(details, "16%"));
    }
}

TEST_F(Views, TheChartChoosesPeriodsAndReadsCandlesUnderThePointer) {
    ChartView chart;
    std::vector<int> periods;
    chart.on_period = [&](int minutes) { periods.push_back(minutes); };
    chart.SetContract("Au(T+D)", 2, 100);
    Show(chart, 700, 400);
    EXPECT_TRUE(Shows(chart, "等待行情"));
    chart.SetCandles(Candles(300));
    EXPECT_FALSE(Shows(chart, "等待行情"));
    const std::vector<SeenText> five = Find(chart, "5分");
    ASSERT_GE(five.size(), 1u);
    Click(chart, five[0].rect.left + 2, 10);
    EXPECT_EQ(periods, std::vector<int>{5});
    chart.SetPeriod(7);
    EXPECT_EQ(chart.Period(), 5);
    platform::testing::MovePointer(platform::testing::ScreenPoint(chart, 300, 150));
    EXPECT_TRUE(Shows(chart, "收 "));
    platform::testing::MovePointer({950, 650});
    EXPECT_FALSE(Shows(chart, "收 "));
    chart.SetMarks({{ChartMark::Kind::kOpenPrice, Yuan(902), "多 3 手"}});
    EXPECT_TRUE(Shows(chart, "多 3 手"));
}

TEST_F(Views, TheChartStandsAnySizeZoomAndScroll) {
    std::mt19937 random(5);
    ChartView chart;
    chart.SetContract("Au(T+D)", 2, 0);
    Show(chart, 300, 200);
    for (int step = 0; step < 600; ++step) {
        switch (random() % 8) {
            case 0: chart.SetCandles(Candles(static_cast<int>(random() % 400))); break;
            case 1: chart.SetPeriod(ChartView::kPeriods[random() % 5]); break;
            case 2:
                chart.MoveWindow(0, 0, static_cast<int>(random() % 900),
                                 static_cast<int>(random() % 600));
                break;
            case 3:
                chart.SetMarks(
                    {{ChartMark::Kind::kOrder, Yuan(static_cast<int>(random() % 2000)), "x"}});
                break;
            case 4: chart.SetReference(Yuan(static_cast<int>(random() % 1000))); break;
            case 5:
                platform::testing::MovePointer(
                    {static_cast<LONG>(random() % 900), static_cast<LONG>(random() % 600)});
                break;
            case 6: platform::testing::Wheel(random() % 2 ? 1 : -1); break;
            default:
                chart.SetFocus();
                Key(random() % 2 ? VK_LEFT : VK_RIGHT);
                break;
        }
        Pump();
    }
    chart.MoveWindow(0, 0, 500, 300);
    chart.SetCandles(Candles(50));
    EXPECT_TRUE(Shows(chart, "Au(T+D)"));
}

TEST_F(Views, TheSplitterTellsHowFarItIsDragged) {
    Splitter bar(true);
    int moved = 0;
    int ended = 0;
    bar.on_drag = [&](int delta) {
        moved += delta;
        bar.MoveWindow(100 + moved, 0, 4, 300);
    };
    bar.on_end = [&] { ++ended; };
    Show(bar, 4, 300);
    bar.MoveWindow(100, 0, 4, 300);
    platform::testing::Drag({102, 100}, {180, 120});
    EXPECT_EQ(moved, 78);
    EXPECT_EQ(ended, 1);
}

TEST_F(Views, TheLogShowsTheNewestAndGoesWithEscape) {
    LogList log;
    int hidden = 0;
    log.on_hide = [&] { ++hidden; };
    Show(log, 10, 10);
    std::vector<LogText> lines;
    for (int line = 0; line < 100; ++line) {
        lines.push_back({"09:00:00", "line " + std::to_string(line) + ".", false});
    }
    log.Set(lines);
    log.ShowAbove({0, 400}, {500, 200});
    EXPECT_TRUE(Shows(log, "line 99."));
    EXPECT_FALSE(Shows(log, "line 80."));
    Key(VK_PRIOR);
    Key(VK_PRIOR);
    EXPECT_TRUE(Shows(log, "line 80."));
    Key(VK_ESCAPE);
    EXPECT_FALSE(log.IsWindowVisible());
    EXPECT_EQ(hidden, 1);
}

TEST_F(Views, TheTopBarSaysThatItIsPaperAtAnyWidth) {
    TopBar bar;
    int account = 0;
    int settings = 0;
    bar.on_account = [&] { ++account; };
    bar.on_settings = [&] { ++settings; };
    Show(bar, 900, 36);
    TopBarState state;
    state.connection = Connection::kLost;
    state.account = "demo";
    state.equity = "1,000,000.00";
    state.clock = "02-24 09:00:00";
    bar.Set(state);
    EXPECT_TRUE(Shows(bar, "连接中断"));
    EXPECT_TRUE(Shows(bar, "1,000,000.00"));
    EXPECT_TRUE(Shows(bar, "09:00:00"));
    const std::vector<SeenText> lost = Find(bar, "连接中断");
    Click(bar, lost[0].rect.left + 4, 18);
    Click(bar, Find(bar, "设置")[0].rect.left + 4, 18);
    EXPECT_EQ(account, 1);
    EXPECT_EQ(settings, 1);
    bar.MoveWindow(0, 0, 220, 36);
    EXPECT_TRUE(Shows(bar, "模拟交易"));
}

}  // namespace
