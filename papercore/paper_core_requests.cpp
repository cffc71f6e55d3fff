#include <algorithm>
#include <charconv>
#include <cstring>
#include <utility>

#include "papercore/order_rules.h"
#include "papercore/paper_core.h"
#include "papercore/records.h"
#include "platform/text/bounded_text.h"

// What the front end asks for.

namespace papercore {
namespace {

constexpr char kNoBank[] = "模拟账户暂不支持银行转账";
constexpr char kNoStore[] = "账户文件无法写入，不再接受任何请求";
constexpr char kNoSession[] = "尚未登录，委托未发出";
constexpr char kNotYet[] = "模拟账户暂不支持此功能";
constexpr std::size_t kLongestRequestText = 4096;

std::string Bounded(const char* text, std::size_t most) {
    return text ? std::string(text, strnlen(text, most)) : std::string();
}

std::string PresetKey(const char* exchange, const char* contract) {
    return Bounded(exchange, sizeof(CPresetStop::szExchange) - 1) + "|" +
           Bounded(contract, sizeof(CPresetStop::szContract) - 1);
}

/// Digits of an order's reference; 0 for anything else.
OrderId OrderNumber(const std::string& ref) {
    OrderId id = 0;
    const char* const end = ref.data() + ref.size();
    const auto [rest, error] = std::from_chars(ref.data(), end, id);
    return error == std::errc() && rest == end && id > 0 ? id : 0;
}

}  // namespace

// Lists

template <class Record>
int PaperCore::ReadList(Shared<Record> Lists::*list, Record* buffer, int capacity) {
    return lists_ready_ ? published_.Read(list, buffer, capacity) : 0;
}

int PaperCore::GetContractList(CZebContract* buffer, int capacity) {
    return ReadList(&Lists::contracts, buffer, capacity);
}

int PaperCore::GetOrderList(CZebOrder* buffer, int capacity) {
    return ReadList(&Lists::orders, buffer, capacity);
}

int PaperCore::GetTradeList(CZebTrade* buffer, int capacity) {
    return ReadList(&Lists::trades, buffer, capacity);
}

int PaperCore::GetPositionList(CZebPosition* buffer, int capacity) {
    return ReadList(&Lists::positions, buffer, capacity);
}

int PaperCore::GetPositionDetailList(PositionGroup* buffer, int capacity) {
    return ReadList(&Lists::lots, buffer, capacity);
}

int PaperCore::GetContractUnit(int, const char*, const char* contract, int, int) {
    const std::string wanted = Bounded(contract, sizeof(CZebContract::szContract) - 1);
    const Shared<CZebContract> contracts = published_.Get().contracts;
    for (const CZebContract& record : *contracts) {
        if (text::FieldText(record.szContract) == wanted) return record.nUnit;
    }
    return 0;
}

// Settings

template <class Key, class Record>
std::uint64_t PaperCore::AskSetting(SettingMap<Key, Record> map, const Key& key,
                                    const Record& record) {
    const std::scoped_lock lock(settings_mutex_);
    (asked_.*map)[key] = {record, ++last_call_};
    return last_call_;
}

template <class Key, class Record>
void PaperCore::ForgetAsked(SettingMap<Key, Record> map, const Key& key, std::uint64_t call) {
    const std::scoped_lock lock(settings_mutex_);
    const auto found = (asked_.*map).find(key);
    if (found != (asked_.*map).end() && found->second.call == call) (asked_.*map).erase(found);
}

template <class Key, class Record>
void PaperCore::ReadSetting(SettingMap<Key, Record> map, const Key& key, Record* record) {
    if (!record) return;
    const std::scoped_lock lock(settings_mutex_);
    for (const Settings* settings : {&asked_, &kept_}) {
        const auto found = (settings->*map).find(key);
        if (found == (settings->*map).end()) continue;
        *record = found->second.record;
        return;
    }
}

/// Of what has no answer of its own.
void PaperCore::TellRefusal(const Answer& answer) {
    if (answer.code != 0 && Tells()) front_end_->OnSystemNotice(Account(), answer.text.c_str());
}

void PaperCore::GetTradeParam(CTradeParam* param) { ReadSetting(&Settings::params, 0, param); }

void PaperCore::SetTradeParam(CTradeParam* param) {
    if (!param) return;
    const std::uint64_t call = AskSetting(&Settings::params, 0, *param);
    Put([this, call, copy = *param] {
        const bool works = Fault().empty();
        if (works) engine_.SetTradeParam(copy);
        Finish();
        ForgetAsked(&Settings::params, 0, call);
        if (!works) TellRefusal({kRefused, kNoStore, 0});
    });
}

void PaperCore::GetPresetStop(const char* exchange, const char* contract, CPresetStop* stop) {
    ReadSetting(&Settings::presets, PresetKey(exchange, contract), stop);
}

void PaperCore::SetPresetStop(const char* exchange, const char* contract, CPresetStop* stop) {
    if (!stop) return;
    const std::string key = PresetKey(exchange, contract);
    const std::uint64_t call = AskSetting(&Settings::presets, key, *stop);
    Put([this, call, key, copy = *stop] {
        const std::size_t bar = key.find('|');
        Answer answer{kRefused, kNoStore, 0};
        if (Fault().empty()) {
            answer = engine_.SetPreset(key.substr(0, bar), key.substr(bar + 1), copy);
        }
        Finish();
        ForgetAsked(&Settings::presets, key, call);
        TellRefusal(answer);
    });
}

void PaperCore::GetGroupStop(int groupId, CPresetStop* stop) {
    ReadSetting(&Settings::lot_stops, groupId, stop);
}

void PaperCore::SetGroupStop(int groupId, CPresetStop* stop) {
    if (!stop) return;
    const std::uint64_t call = AskSetting(&Settings::lot_stops, groupId, *stop);
    Put([this, call, groupId, copy = *stop] {
        Answer answer{kRefused, kNoStore, 0};
        if (Fault().empty()) answer = engine_.SetLotStop(groupId, copy);
        Finish();
        ForgetAsked(&Settings::lot_stops, groupId, call);
        TellRefusal(answer);
    });
}

void PaperCore::StartStopMonitor() {
    Put([this] {
        // What sleeps waits for a login, whoever starts it.
        if (!Fault().empty() || !logged_in_) return;
        engine_.WakeStops();
        Finish();
    });
}

// Orders

void PaperCore::InsertOrder(CInsertOrderRequest* request, CTradeParam*, unsigned char priceType,
                            int source) {
    if (!request) return;
    if (!logged_in_) {
        Ask([this, copy = *request]() mutable {
            if (!front_end_) return;
            front_end_->OnInsertOrderResult(Account(), Error({kRefused, kNoSession, 0}), &copy, 0);
        });
        return;
    }
    Ask([this, copy = *request, priceType, source] { DoInsert(copy, priceType, source); });
}

void PaperCore::DoInsert(CInsertOrderRequest record, int price_code, int source) {
    Answer answer{kRefused, kNoStore, 0};
    if (Fault().empty()) answer = engine_.Insert(RequestOf(record, price_code, source), now_);
    // Nothing is told before it is kept.
    Finish();
    if (answer.code == 0 && !Fault().empty()) answer = {kRefused, kNoStore, 0};
    if (Tells()) front_end_->OnInsertOrderResult(Account(), Error(answer), &record, answer.order);
}

void PaperCore::CancelOrder(CZebOrder*, const char* orderRef, const char*, int session) {
    const std::string ref = Bounded(orderRef, sizeof(CZebOrder::szOrderRef) - 1);
    if (!logged_in_) return;
    Ask([this, ref, session] { DoCancel(ref, session); });
}

void PaperCore::DoCancel(const std::string& ref, int session) {
    const OrderId id = OrderNumber(ref);
    const auto found = told_.orders.find(id);
    Answer answer{kRefused, "委托" + WholeText(ref) + "不存在，不能撤单", 0};
    const bool known = found != told_.orders.end() && found->second.session == session;
    const std::string contract = known ? found->second.contract : std::string();
    if (known && Fault().empty()) answer = engine_.Cancel(id, now_);
    Finish();
    if (!Fault().empty()) answer = {kRefused, kNoStore, 0};
    if (answer.code == 0 || !Tells()) return;
    front_end_->OnCancelOrderResult(Account(), Error(answer), contract.c_str(), ref.c_str(), 0);
}

void PaperCore::RefreshOrders() {
    Ask([this] {
        if (Tells()) front_end_->OnUpdateOrderList(Account());
    });
}

void PaperCore::QueryMaxVolume(CQueryMaxVolume* query, int) {
    if (!query) return;
    Ask([this, copy = *query] { DoMaxVolume(copy); });
}

void PaperCore::DoMaxVolume(const CQueryMaxVolume& query) {
    if (!Tells()) return;
    CQueryMaxVolumeResult result{};
    std::memcpy(result.szExchange, query.szExchange, sizeof result.szExchange);
    std::memcpy(result.szContract, query.szContract, sizeof result.szContract);
    result.cDirection = query.cDirection;
    result.cOffset = query.cOffset;
    const std::string contract(text::FieldText(query.szContract));
    std::int64_t most = 0;
    if (Fault().empty()) {
        const Price price = PriceFromYuan(query.dPrice);
        most = engine_.MaxVolume(contract, query.cDirection, query.cOffset, price);
    }
    result.nMaxVolume = static_cast<std::int32_t>(std::clamp<std::int64_t>(most, 0, INT32_MAX));
    front_end_->OnQueryMaxVolumeResult(Account(), Error({}), &result, 0);
}

void PaperCore::QueryTradeByDate(int from, int to, int) {
    Ask([this, from, to] { DoTradesByDate(from, to); });
}

void PaperCore::DoTradesByDate(int from, int to) {
    if (!Tells()) return;
    std::vector<const Trade*> found;
    for (const auto* trades : {&told_.history, &told_.trades}) {
        for (const Trade& trade : *trades) {
            if (trade.day >= from && trade.day <= to) found.push_back(&trade);
        }
    }
    for (std::size_t index = 0; index < found.size(); ++index) {
        CZebTrade record = RecordOf(*found[index]);
        front_end_->OnQueryTradeByDateResult(Account(), Error({}), &record, 0,
                                             index + 1 == found.size() ? 1 : 0);
    }
    if (found.empty()) front_end_->OnQueryTradeByDateResult(Account(), Error({}), nullptr, 0, 1);
}

// Funds

void PaperCore::QueryAccount(int) {
    Ask([this] {
        if (!Tells()) return;
        if (Fault().empty()) PublishFunds(engine_.FundsNow());
        PushAccount(published_.Get().funds);
    });
}

void PaperCore::QueryInitial1() { QueryAccount(0); }

void PaperCore::QueryInitial2() {
    Ask([this] {
        if (!Tells()) return;
        front_end_->OnUpdateOrderList(Account());
        front_end_->OnUpdateTradeList(Account());
    });
}

void PaperCore::QueryInitial3() {
    Ask([this] {
        if (!Tells()) return;
        front_end_->OnUpdatePositionList(Account());
        front_end_->OnUpdatePositionGroupList(Account());
    });
}

void PaperCore::QueryBankBalance(CBankRequest*, int) {
    Ask([this] {
        if (Tells()) {
            front_end_->OnQueryBankBalanceResult(Account(), Error({kRefused, kNoBank, 0}), nullptr,
                                                 0);
        }
    });
}

void PaperCore::QueryBankTransfer(int) {
    Ask([this] {
        if (Tells()) {
            front_end_->OnQueryBankTransferResult(Account(), Error({kRefused, kNoBank, 0}), nullptr,
                                                  0, 1);
        }
    });
}

void PaperCore::BankTransfer(CBankRequest*, int) {
    Ask([this] {
        if (Tells()) {
            front_end_->OnBankTransferResult(Account(), Error({kRefused, kNoBank, 0}), nullptr, 0);
        }
    });
}

// Functions

void PaperCore::SendFunctionRequest(int function, const char* text) {
    const std::string copy = Bounded(text, kLongestRequestText);
    Ask([this, function, copy] { DoFunction(function, copy); });
}

void PaperCore::DoFunction(int function, const std::string& text) {
    if (!front_end_) return;
    if (function == kFunctionMarketState) {
        const std::string reply = MarketState(text);
        front_end_->OnResult_WithReturnData(function, Account(), Error({}), reply.c_str());
        return;
    }
    front_end_->OnResult_WithReturnData(function, Account(), Error({kRefused, kNotYet, 0}), "");
}

std::string PaperCore::MarketState(const std::string& text) const {
    const std::size_t bar = text.find('|');
    std::string contract = bar == std::string::npos ? std::string() : text.substr(bar + 1);
    contract.resize(std::min(contract.find('|'), contract.size()));
    const ContractTerms* terms = parts_.terms.Find(contract, engine_.Kept().day);
    if (!terms) return "0|0|0|N|" + text + "|";
    const bool open = CheckMarket(engine_.LastQuote(contract), engine_.Kept().day).empty();
    return "0|0|0|Y|" + terms->exchange + "|" + contract + (open ? "|1|" : "|2|");
}

}  // namespace papercore
