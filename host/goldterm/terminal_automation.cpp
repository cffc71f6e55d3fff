#include <algorithm>
#include <cmath>
#include <cstdio>

#include "host/automation/window_search.h"
#include "host/goldterm/terminal.h"
#include "papercore/texts.h"
#include "platform/testing/input.h"
#include "platform/text/bounded_text.h"
#include "platform/text/gbk.h"

// What commands do with the terminal.

namespace terminal {
namespace {

using automation::json;
using automation::Refusal;

constexpr int kLongestStep = 24 * 60 * 60 * 1000;
constexpr int kLongestDelay = 60000;
constexpr double kMostPrice = 1e9;

double NumberOf(const json& value, const char* what) {
    const double number = value.is_number() ? value.get<double>() : -1;
    if (!std::isfinite(number) || number < 0 || number > kMostPrice) {
        throw Refusal{std::string("\"") + what + "\" is no price or size"};
    }
    return number;
}

void TakePrice(const json& command, const char* key, papercore::Price& price) {
    const auto found = command.find(key);
    if (found != command.end()) price = papercore::PriceFromYuan(NumberOf(*found, key));
}

void TakeSide(const json& command, const char* key,
              std::array<papercore::Level, papercore::kLevels>& side) {
    const auto found = command.find(key);
    if (found == command.end()) return;
    if (!found->is_array() || found->size() > side.size()) {
        throw Refusal{std::string("\"") + key + "\" is no list of at most five levels"};
    }
    std::array<papercore::Level, papercore::kLevels> levels{};
    for (std::size_t level = 0; level < found->size(); ++level) {
        const json& pair = (*found)[level];
        if (!pair.is_array() || pair.size() != 2) {
            throw Refusal{std::string("a level of \"") + key + "\" is no [price, size]"};
        }
        levels[level].price = papercore::PriceFromYuan(NumberOf(pair[0], key));
        levels[level].volume = std::llround(NumberOf(pair[1], key));
    }
    side = levels;
}

template <std::size_t N>
std::string Utf8(const char (&field)[N]) {
    return text::Utf8FromGbk(text::FieldText(field));
}

json OrderJson(const CZebOrder& order) {
    return {{"number", Utf8(order.szOrderNo)},
            {"contract", Utf8(order.szContract)},
            {"direction", std::string(1, order.cDirection)},
            {"status", std::string(1, order.cStatus)},
            {"price", order.dPrice},
            {"volume", order.nVolume},
            {"filled", order.nFilled},
            {"remark", Utf8(order.szRemark)},
            {"time", Utf8(order.szTime)}};
}

json TradeJson(const CZebTrade& trade) {
    return {{"number", Utf8(trade.szTradeNo)},
            {"order", Utf8(trade.szOrderNo)},
            {"contract", Utf8(trade.szContract)},
            {"direction", std::string(1, trade.cDirection)},
            {"offset", std::string(1, trade.cOffset)},
            {"price", trade.dPrice},
            {"volume", trade.nVolume},
            {"time", Utf8(trade.szTime)}};
}

json PositionJson(const CZebPosition& position) {
    return {{"contract", Utf8(position.szContract)},
            {"direction", std::string(1, position.cDirection)},
            {"volume", position.nVolume},
            {"frozen", position.nFrozen},
            {"open_price", position.dOpenPrice},
            {"hold_price", position.dHoldPrice}};
}

json LotJson(const PositionGroup& lot) {
    return {{"id", lot.nGroupID},
            {"contract", Utf8(lot.szContract)},
            {"direction", std::string(1, lot.cDirection)},
            {"volume", lot.nVolume},
            {"open_price", lot.dOpenPrice},
            {"stop_ticks", lot.dStopLoss},
            {"profit_ticks", lot.dTakeProfit}};
}

template <class Record>
json ListJson(const papercore::Shared<Record>& records, json (*make)(const Record&)) {
    json list = json::array();
    for (const Record& record : *records) list.push_back(make(record));
    return list;
}

}  // namespace

std::string Terminal::PutQuote(const json& command) {
    if (options_.feed != FeedKind::kManual) return "the feed is not manual";
    const std::string contract = text::GbkFromUtf8(automation::TextOf(command, "contract"));
    const int index = symbols_.IndexOf(contract);
    if (index < 0) return "there is no such contract";
    papercore::Quote quote = quotes_->Latest(index);
    quote.contract = contract;
    quote.time = market_->Now();
    quote.trading_day = market_->TradingDay();
    quote.phase = papercore::MarketPhase::kContinuous;
    quote.trade_volume = 0;
    TakePrice(command, "last", quote.last);
    TakePrice(command, "upper", quote.upper_limit);
    TakePrice(command, "lower", quote.lower_limit);
    TakePrice(command, "settlement", quote.previous_settlement);
    TakeSide(command, "bid", quote.bid);
    TakeSide(command, "ask", quote.ask);
    if (quote.previous_close == 0) quote.previous_close = quote.previous_settlement;
    const int traded = automation::IntOf(command, "volume", 0, 0, 1'000'000'000);
    quote.trade_volume = traded;
    quote.trade_price = traded > 0 ? quote.last : 0;
    quote.volume += traded;
    feed_->WhileStill([&quote](market::Market& market) { market.Publish(quote); });
    return {};
}

std::string Terminal::Step(const json& command) {
    const int clock = automation::IntOf(command, "clock", 0, 0, kLongestStep);
    const int millis = automation::IntOf(command, "ms", 0, 0, kLongestStep);
    if (clock == 0 && millis == 0) return "neither \"ms\" nor \"clock\" is above 0";
    if (clock > 0 && !options_.manual_clock) return "the clock is real: --manual-clock";
    if (millis > 0) {
        feed_->WhileStill([millis](market::Market& market) { market.Step(millis); });
    }
    if (clock > 0) platform::testing::LetTimePass(static_cast<DWORD>(clock));
    return {};
}

std::string Terminal::CoreCommand(const json& command) {
    const std::string what = automation::TextOf(command, "do");
    if (what == "disconnect") {
        core_->Disconnect(automation::IntOf(command, "status", -1, -2, -1));
    } else if (what == "reject") {
        core_->RefuseNext(text::GbkFromUtf8(automation::TextOf(command, "reason", "rejected")));
    } else if (what == "notice") {
        core_->Notice(text::GbkFromUtf8(automation::TextOf(command, "text", "notice")));
    } else if (what == "slow") {
        core_->SetDelay(automation::IntOf(command, "ms", 0, 0, kLongestDelay));
    } else {
        return "\"do\" is disconnect, reject, notice or slow";
    }
    return {};
}

json Terminal::NewStatus() {
    json lines = json::array();
    for (const StatusEntry& entry : log_.Since(told_status_)) {
        lines.push_back(
            {{"time", entry.time}, {"code", entry.code}, {"text", text::Utf8FromGbk(entry.text)}});
    }
    return lines;
}

json Terminal::State() const {
    const papercore::Lists lists = core_->Look();
    const papercore::Funds& funds = lists.funds;
    CAccountInfo account{};
    core_->GetLoginAccount(&account);
    return {{"account",
             {{"name", Utf8(account.szAccount)},
              {"logged_in", core_->IsLoggedIn() != 0},
              {"balance", papercore::PlainMoneyText(funds.balance)},
              {"available", papercore::PlainMoneyText(funds.available)},
              {"margin", papercore::PlainMoneyText(funds.margin)},
              {"frozen", papercore::PlainMoneyText(funds.frozen)},
              {"commission", papercore::PlainMoneyText(funds.commission)},
              {"open_profit", papercore::PlainMoneyText(funds.open_profit)},
              {"holding_profit", papercore::PlainMoneyText(funds.holding_profit)},
              {"fault", core_->Fault()}}},
            {"clock", text::Utf8FromGbk(market_->ClockText())},
            {"orders", ListJson(lists.orders, OrderJson)},
            {"trades", ListJson(lists.trades, TradeJson)},
            {"positions", ListJson(lists.positions, PositionJson)},
            {"lots", ListJson(lists.lots, LotJson)}};
}

automation::Doors Terminal::Doors() {
    automation::Doors doors;
    doors.quote = [this](const json& command) { return PutQuote(command); };
    doors.step = [this](const json& command) { return Step(command); };
    doors.core = [this](const json& command) { return CoreCommand(command); };
    doors.core_is_quiet = [this] { return core_->IsQuiet(); };
    doors.new_status = [this] { return NewStatus(); };
    doors.state = [this] { return State(); };
    doors.quit = [this] {
        if (frame_ && frame_->GetSafeHwnd()) frame_->PostMessage(WM_CLOSE);
    };
    doors.reply = [](const std::string& line) {
        std::fputs(line.c_str(), stdout);
        std::fputc('\n', stdout);
        std::fflush(stdout);
    };
    doors.call = [this] {
        if (frame_) ::PostMessageA(frame_->GetSafeHwnd(), WM_COMMAND_WAITS, 0, 0);
    };
    doors.shots_folder = options_.shots_folder;
    return doors;
}

}  // namespace terminal
