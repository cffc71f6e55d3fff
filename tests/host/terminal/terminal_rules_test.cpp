#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <set>
#include <string>
#include <thread>

#include "host/terminal/frame_layout.h"
#include "host/terminal/param_rules.h"
#include "host/terminal/quote_board.h"
#include "host/terminal/report_data.h"
#include "host/terminal/status_log.h"
#include "host/terminal/symbol_table.h"

namespace {

using namespace terminal;

void ExpectApart(const RECT& left, const RECT& right) {
    RECT common{};
    EXPECT_FALSE(IntersectRect(&common, &left, &right))
        << left.left << ',' << left.top << " and " << right.left << ',' << right.top;
}

TEST(FrameLayout, PanesFillTheFrameWithoutOverlapping) {
    for (const SIZE client :
         {SIZE{1280, 770}, SIZE{1920, 1050}, SIZE{2560, 1410}, SIZE{900, 530}}) {
        for (int panels = 0; panels <= kMostPanels; ++panels) {
            PaneSizes sizes;
            const FrameLayout layout = ArrangeFrame(client, panels, {182, 114}, sizes);
            std::vector<RECT> all = {layout.top,    layout.quotes,      layout.quotes_split,
                                     layout.detail, layout.chart,       layout.depth_split,
                                     layout.depth,  layout.pages_split, layout.pages,
                                     layout.status};
            for (int panel = 0; panel < panels; ++panel) {
                all.push_back(layout.panels[static_cast<std::size_t>(panel)]);
            }
            long long area = 0;
            for (const RECT& pane : all) {
                area += static_cast<long long>(pane.right - pane.left) * (pane.bottom - pane.top);
            }
            if (client.cx < 1280) continue;  // too narrow for three panels: only no nonsense
            EXPECT_EQ(area, static_cast<long long>(client.cx) * client.cy);
            for (std::size_t left = 0; left < all.size(); ++left) {
                for (std::size_t right = left + 1; right < all.size(); ++right) {
                    ExpectApart(all[left], all[right]);
                }
            }
        }
    }
}

TEST(FrameLayout, AnySizeGivesPanesThatAreNotInsideOut) {
    for (int width = -10; width < 1400; width += 97) {
        for (int height = -10; height < 900; height += 83) {
            for (const int wish : {-100, 0, 300, 100000}) {
                PaneSizes sizes{wish, wish, wish};
                const FrameLayout layout = ArrangeFrame({width, height}, 99, {182, 114}, sizes);
                for (const RECT& pane : {layout.top, layout.quotes, layout.chart, layout.depth,
                                         layout.pages, layout.status}) {
                    EXPECT_LE(pane.left, pane.right);
                    EXPECT_LE(pane.top, pane.bottom);
                }
            }
        }
    }
}

TEST(FrameLayout, DetailsStandBelowTheQuotesWhereThereIsRoom) {
    PaneSizes sizes;
    FrameLayout layout = ArrangeFrame({1280, 770}, 0, {182, 114}, sizes);
    EXPECT_EQ(layout.quotes.bottom - layout.quotes.top, 182);
    EXPECT_EQ(layout.detail.bottom, layout.chart.bottom);
    layout = ArrangeFrame({1280, 600}, 0, {182, 114}, sizes);
    EXPECT_EQ(layout.quotes.bottom, layout.chart.bottom);
    EXPECT_EQ(layout.detail.top, layout.detail.bottom);
}

TEST(FrameLayout, ADragBeyondTheEndStopsThere) {
    PaneSizes sizes;
    sizes.pages_height = 100000;
    sizes.quotes_width = 100000;
    const FrameLayout layout = ArrangeFrame({1280, 770}, 0, {182, 114}, sizes);
    EXPECT_LT(sizes.pages_height, 770);
    EXPECT_GT(layout.chart.right - layout.chart.left, 200);
    EXPECT_GT(layout.quotes.bottom - layout.quotes.top, 100);
    EXPECT_GT(layout.depth.right - layout.depth.left, 100);
}

TEST(ParamRules, ChoicesComeBackAndTheRestOfTheRecordStays) {
    CTradeParam param;
    std::memset(&param, 0x5A, sizeof param);
    const ParamChoices clipped = ChoicesOf(param);
    EXPECT_LE(clipped.over_ticks, kMostOverTicks);
    EXPECT_LT(clipped.panel_buy[0], 10);
    ParamChoices choices;
    choices.confirm_orders = false;
    choices.over_price = true;
    choices.over_ticks = 3;
    choices.default_price = 6;
    choices.close_price = 2;
    choices.panel_sell[1] = 9;
    StoreChoices(choices, param);
    EXPECT_EQ(param.bNoOrderConfirm, 1);
    EXPECT_EQ(param.nDefaultPrice, 7) << "the row after two empty ones";
    EXPECT_EQ(param.nStopTicks, 0x5A5A5A5A);
    EXPECT_EQ(param.reserved308[700], 0x5A);
    const ParamChoices read = ChoicesOf(param);
    EXPECT_FALSE(read.confirm_orders);
    EXPECT_TRUE(read.confirm_closes);
    EXPECT_TRUE(read.over_price);
    EXPECT_EQ(read.over_ticks, 3);
    EXPECT_EQ(read.default_price, 6);
    EXPECT_EQ(read.close_price, 2);
    EXPECT_EQ(read.panel_sell[1], 9);
}

TEST(QuoteBoard, OnlyTheLatestQuoteOfAContractWaits) {
    int woken = 0;
    QuoteBoard board(2, [&] { ++woken; });
    papercore::Quote quote;
    for (int price = 1; price <= 100; ++price) {
        quote.last = price;
        board.Put(0, quote);
    }
    board.Put(7, quote);
    board.Put(-1, quote);
    EXPECT_EQ(woken, 1);
    std::vector<papercore::Price> taken;
    board.Take([&](int index, const papercore::Quote& latest) {
        EXPECT_EQ(index, 0);
        taken.push_back(latest.last);
    });
    EXPECT_EQ(taken, std::vector<papercore::Price>{100});
    board.Take([&](int, const papercore::Quote&) { ADD_FAILURE(); });
    EXPECT_EQ(board.Latest(0).last, 100);
    EXPECT_EQ(board.Latest(9).last, 0);
    board.Put(1, quote);
    EXPECT_EQ(woken, 2);
}

TEST(QuoteBoard, NothingIsLostBetweenThreads) {
    std::atomic<int> woken = 0;
    QuoteBoard board(1, [&] { ++woken; });
    std::thread feed([&] {
        papercore::Quote quote;
        for (int price = 1; price <= 20000; ++price) {
            quote.last = price;
            board.Put(0, quote);
        }
    });
    papercore::Price last = 0;
    while (last < 20000) {
        board.Take([&](int, const papercore::Quote& quote) {
            EXPECT_GT(quote.last, last);
            last = quote.last;
        });
    }
    feed.join();
    EXPECT_GE(woken, 1);
}

TEST(ReportData, FollowsFromTheWholeChallengeAndKeepsItsSize) {
    std::set<std::string> seen;
    const std::string longer(5000, 'x');
    for (const std::string& challenge :
         {std::string(), std::string("1"), std::string("2"), std::string(40, 'a'),
          std::string(300, 'x'), longer, longer + "y"}) {
        std::string buffer(4096, '#');
        const std::size_t size = WriteReportData(buffer.data(), challenge.c_str());
        EXPECT_GE(size, 64u) << challenge.size();
        EXPECT_LE(size, 256u) << challenge.size();
        EXPECT_EQ(buffer.find('#'), size) << "nothing behind what was told";
        EXPECT_TRUE(seen.insert(buffer).second) << challenge.size();
        std::string again(4096, '#');
        WriteReportData(again.data(), challenge.c_str());
        EXPECT_EQ(again, buffer);
    }
    char buffer[256];
    EXPECT_EQ(WriteReportData(nullptr, "1"), 0u);
    EXPECT_GE(WriteReportData(buffer, nullptr), 64u);
}

TEST(SymbolTable, AnswersOnlyItsOwnKeys) {
    const SymbolTable symbols({{"SGE", "Au(T+D)", 1, 1, 2}, {"SGE", "Ag(T+D)", 1, 2, 0}});
    const struct {
        unsigned key;
        int index;
    } cases[] = {{0x10001, 0},  {0x20001, 1},     {0x30001, -1}, {0x00001, -1},
                 {0x10002, -1}, {0xFFFF0001, -1}, {0x1FFFF, -1}, {0, -1}};
    for (const auto& [key, index] : cases) EXPECT_EQ(symbols.IndexOfKey(key), index) << key;
    CHostSymbol record;
    std::memset(&record, 0x5A, sizeof record);
    EXPECT_EQ(symbols.Fill(1, record), 0);
    EXPECT_STREQ(record.szCode, "Ag(T+D)");
    EXPECT_EQ(record.wCode, 2);
    for (const int index : {-1, 2}) EXPECT_NE(symbols.Fill(index, record), 0);
}

TEST(StatusLog, KeepsTheNewestAndNumbersThemAll) {
    StatusLog log;
    int woken = 0;
    log.SetWake([&] { ++woken; });
    for (int line = 0; line < 5000; ++line) log.Add("t", line, "text " + std::to_string(line));
    EXPECT_EQ(woken, 1);
    EXPECT_EQ(log.Count(), 5000u);
    const std::vector<StatusEntry> newest = log.Newest(2);
    ASSERT_EQ(newest.size(), 2u);
    EXPECT_EQ(newest[1].text, "text 4999");
    log.Add("t", 0, "a\r\nb\n\n");
    EXPECT_EQ(woken, 2);
    EXPECT_EQ(log.Newest(1)[0].text, "a  b");
    std::size_t from = 4999;
    const std::vector<StatusEntry> since = log.Since(from);
    ASSERT_EQ(since.size(), 2u);
    EXPECT_EQ(since[0].text, "text 4999");
    EXPECT_EQ(from, 5001u);
    EXPECT_TRUE(log.Since(from).empty());
    from = 99999;
    EXPECT_TRUE(log.Since(from).empty());
}

}  // namespace
