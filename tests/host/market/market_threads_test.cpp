#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "host/market/simulator.h"
#include "tests/host/market/market_fixture.h"

// One thread steps, others read, join and leave.

namespace market {
namespace {

TEST(MarketThreads, ReadersSeeAMarketThatOnlyGoesForward) {
    Market market(std::make_unique<Simulator>(TableOf({kGold, "Ag(T+D)"}), SimulatorOptions{}));
    std::atomic<bool> over = false;
    std::atomic<int> faults = 0;
    std::vector<std::jthread> readers;
    for (int reader = 0; reader < 3; ++reader) {
        readers.emplace_back([&] {
            papercore::Instant newest = 0;
            std::int64_t volume = 0;
            while (!over) {
                const papercore::Instant now = market.Now();
                faults += now < newest ? 1 : 0;
                newest = now;
                const auto last = market.Last(kGold);
                if (last && last->trading_day == 20260302) {
                    faults += last->volume < volume ? 1 : 0;
                    volume = last->volume;
                }
                const auto trades = market.RecentTrades(kGold);
                faults += trades.size() > 200 ? 1 : 0;
                for (const Bar& bar : market.Bars(kGold, 1)) faults += bar.low > bar.high ? 1 : 0;
                market.LastQuotes();
                market.ClockText();
                market.Phase();
                market.TradingDay();
                market.AtEnd();
            }
        });
    }
    std::size_t told = 0;
    market.Subscribe({[&](const papercore::Quote&) { ++told; }, {}});
    for (int step = 0; step < 200; ++step) {
        market.SetSpeed(60);
        market.Pass(20);
        std::this_thread::yield();
    }
    over = true;
    readers.clear();
    EXPECT_EQ(0, faults);
    EXPECT_GT(told, 100U);
}

TEST(MarketThreads, NobodyIsToldAfterItsSubscriptionEnded) {
    Market market(std::make_unique<Metronome>(MidnightOf(20260302), 1, 1'000'000'000));
    std::atomic<int> faults = 0;
    std::jthread stepper([&](const std::stop_token& end) {
        while (!end.stop_requested()) market.Step(5);
    });
    std::vector<std::jthread> listeners;
    for (int listener = 0; listener < 3; ++listener) {
        listeners.emplace_back([&] {
            for (int round = 0; round < 100; ++round) {
                // Freed right after the end: a late call would write into freed memory.
                auto numbers = std::make_unique<std::vector<std::int64_t>>();
                std::atomic<bool> heard = false;
                const int subscription = market.Subscribe(
                    {[into = numbers.get(), &heard](const papercore::Quote& quote) {
                         into->push_back(quote.trade_volume);
                         heard = true;
                     },
                     {}});
                // However late the stepper starts, every subscription ends in the midst of quotes.
                while (!heard) std::this_thread::yield();
                market.Unsubscribe(subscription);
                for (std::size_t at = 1; at < numbers->size(); ++at) {
                    faults += (*numbers)[at] != (*numbers)[at - 1] + 1 ? 1 : 0;
                }
            }
        });
    }
    listeners.clear();
    EXPECT_EQ(0, faults) << "quotes were left out or doubled";
}

}  // namespace
}  // namespace market
