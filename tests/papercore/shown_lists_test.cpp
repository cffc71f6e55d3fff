#include "papercore/shown_lists.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "papercore/records.h"
#include "tests/papercore/scenario.h"

namespace papercore_tests {
namespace {

template <class Record>
std::vector<Record> Records(const papercore::Shared<Record>& list) {
    std::vector<Record> records(list->size());
    list->CopyTo(records.data(), records.size());
    return records;
}

template <class Record>
std::string_view Bytes(const Record& record) {
    return {reinterpret_cast<const char*>(&record), sizeof record};
}

template <class Record>
void ExpectSame(const std::vector<Record>& shown, const std::vector<Record>& expected,
                const char* what) {
    ASSERT_EQ(shown.size(), expected.size()) << what;
    for (std::size_t i = 0; i < shown.size(); ++i) {
        EXPECT_TRUE(Bytes(shown[i]) == Bytes(expected[i])) << what << " " << i;
    }
}

class ShownListsTest : public Scenario {
protected:
    /// Three days of orders, cancellations, fills and stops, as chance has them.
    void Trade() {
        Start(FenFromYuan(100'000'000));
        std::mt19937 random(3);
        CPresetStop stop{};
        stop.dStopTicks = 5;
        stop.dStopFloat = 1;
        Feed().Previous(900.00).Bid(899.99, 50).Ask(900.00, 50).Last(900.00);
        engine->SetPreset("SGE", kGold, stop);
        for (int step = 1; step <= 600; ++step) {
            const double price = 899.50 + static_cast<double>(random() % 100) / 100;
            const auto volume = static_cast<std::int64_t>(1 + random() % 4);
            switch (random() % 6) {
                case 0: Feed().Bid(price, 9).Ask(price + 0.01, 9).Last(price); break;
                case 1: Buy(volume).At(price); break;
                case 2: Sell(volume).Close().At(price); break;
                case 3: Sell(volume).At(price); break;
                case 4: engine->SetLotStop(state().last_lot, stop); break;
                default: CancelOrder(1 + static_cast<OrderId>(random() % 400)); break;
            }
            if (step % 200 == 0) EndDay(day + 1, {{kGold, 900.00}});
        }
        Note();
    }
};

TEST_F(ShownListsTest, AreAfterEveryEventAsIfTheyWereMadeAnew) {
    Trade();
    std::mt19937 random(4);
    State told;
    papercore::ShownLists shown(SampleTerms());
    papercore::Lists lists = shown.Make(told);
    std::size_t most = 0;
    for (std::size_t at = 0; at < journal.size();) {
        const papercore::Lists before = lists;
        const std::vector<CZebOrder> orders_before = Records(before.orders);
        papercore::Changes changes;
        const std::size_t end = std::min(journal.size(), at + 1 + random() % 4);
        for (; at < end; ++at) {
            changes.Add(told, journal[at]);
            ASSERT_TRUE(Apply(told, journal[at]));
        }
        lists = shown.Update(told, changes);
        SCOPED_TRACE("after fact " + std::to_string(at));
        ASSERT_NO_FATAL_FAILURE(
            ExpectSame(Records(lists.orders), papercore::OrderRecords(told), "order"));
        ASSERT_NO_FATAL_FAILURE(
            ExpectSame(Records(lists.trades), papercore::TradeRecords(told), "trade"));
        ASSERT_NO_FATAL_FAILURE(
            ExpectSame(Records(lists.lots), papercore::LotRecords(told), "lot"));
        ASSERT_NO_FATAL_FAILURE(
            ExpectSame(Records(lists.positions), papercore::PositionRecords(told), "position"));
        ASSERT_NO_FATAL_FAILURE(
            ExpectSame(Records(before.orders), orders_before, "a list that somebody still reads"));
        ASSERT_FALSE(HasFailure());
        most = std::max(most, lists.orders->size());
    }
    EXPECT_GT(most, 64u);
    EXPECT_EQ(lists.contracts->size(), 4u);
}

}  // namespace
}  // namespace papercore_tests
