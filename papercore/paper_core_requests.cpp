#include <cstdlib>
#include <cstring>
#include <utility>

#include "papercore/paper_core.h"
#include "papercore/records.h"
#include "platform/text/bounded_text.h"

// What the front end asks for.

namespace papercore {
namespace {

constexpr char kNoBank[] = "模拟账户暂不支持银行转账";
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
    if (ref.empty() || ref.size() > 9) return 0;
    if (ref.find_first_not_of("0123456789") != std::string::npos) return 0;
    return std::atoi(ref.c_str());
}

bool SameBytes(const auto& left, const auto& right) {
    return std::memcmp(&left, &right, sizeof left) == 0;
}

template <class Key, class Value>
void ForgetIfSame(std::map<Key, Value>& asked, const Key& key, const Value& value) {
    const auto found = asked.find(key);
    if (found != asked.end() && SameBytes(found->second, value)) asked.erase(found);
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

void PaperCore::GetTradeParam(CTradeParam* param) {
    const std::scoped_lock lock(settings_mutex_);
    if (param) *param = asked_.param ? *asked_.param : *kept_.param;
}

void PaperCore::SetTradeParam(CTradeParam* param) {
    if (!param) return;
    {
        const std::scoped_lock lock(settings_mutex_);
        asked_.param = *param;
    }
    Put([this, copy = *param] {
        engine_.SetTradeParam(copy);
        Finish();
        const std::scoped_lock lock(settings_mutex_);
        if (asked_.param && SameBytes(*asked_.param, copy)) asked_.param.reset();
    });
}

void PaperCore::GetPresetStop(const char* exchange, const char* contract, CPresetStop* stop) {
    if (!stop) return;
    const std::string key = PresetKey(exchange, contract);
    const std::scoped_lock lock(settings_mutex_);
    for (const Settings* settings : {&asked_, &kept_}) {
        const auto found = settings->presets.find(key);
        if (found == settings->presets.end()) continue;
        *stop = found->second;
        return;
    }
}

void PaperCore::SetPresetStop(const char* exchange, const char* contract, CPresetStop* stop) {
    if (!stop) return;
    const std::string key = PresetKey(exchange, contract);
    {
        const std::scoped_lock lock(settings_mutex_);
        asked_.presets[key] = *stop;
    }
    Put([this, key, copy = *stop] {
        const std::size_t bar = key.find('|');
        engine_.SetPreset(key.substr(0, bar), key.substr(bar + 1), copy);
        Finish();
        const std::scoped_lock lock(settings_mutex_);
        ForgetIfSame(asked_.presets, key, copy);
    });
}

void PaperCore::GetGroupStop(int groupId, CPresetStop* stop) {
    if (!stop) return;
    const std::scoped_lock lock(settings_mutex_);
    for (const Settings* settings : {&asked_, &kept_}) {
        const auto found = settings->lot_stops.find(groupId);
        if (found == settings->lot_stops.end()) continue;
        *stop = found->second;
        return;
    }
}

void PaperCore::SetGroupStop(int groupId, CPresetStop* stop) {
    if (!stop) return;
    {
        const std::scoped_lock lock(settings_mutex_);
        asked_.lot_stops[groupId] = *stop;
    }
    Put([this, groupId, copy = *stop] {
        const Answer answer = engine_.SetLotStop(groupId, copy);
        Finish();
        {
            const std::scoped_lock lock(settings_mutex_);
            ForgetIfSame(asked_.lot_stops, groupId, copy);
        }
        if (answer.code != 0 && Tells()) {
            front_end_->OnSystemNotice(Account(), answer.text.c_str());
        }
    });
}

void PaperCore::StartStopMonitor() {
    Put([this] {
        engine_.WakeStops();
        Finish();
    });
}

// Orders

void PaperCore::InsertOrder(CInsertOrderRequest* request, CTradeParam*, unsigned char priceType,
                            int source) {
    if (!request) return;
    Ask([this, copy = *request, priceType, source] { DoInsert(copy, priceType, source); });
}

void PaperCore::DoInsert(CInsertOrderRequest record, int price_code, int source) {
    const std::string fault = Fault();
    Answer answer{kRefused, "账户文件无法写入，委托未发出", 0};
    if (fault.empty()) answer = engine_.Insert(RequestOf(record, price_code, source), now_);
    // Nothing is told before it is kept.
    Finish();
    if (answer.code == 0 && !Fault().empty()) answer = {kRefused, "账户文件无法写入", 0};
    if (Tells()) front_end_->OnInsertOrderResult(Account(), Error(answer), &record, answer.order);
}

void PaperCore::CancelOrder(CZebOrder*, const char* orderRef, const char*, int session) {
    const std::string ref = Bounded(orderRef, sizeof(CZebOrder::szOrderRef) - 1);
    Ask([this, ref, session] { DoCancel(ref, session); });
}

void PaperCore::DoCancel(const std::string& ref, int session) {
    const OrderId id = OrderNumber(ref);
    const auto found = engine_.Kept().orders.find(id);
    Answer answer{kRefused, "委托" + ref + "不存在，不能撤单", 0};
    const bool known = found != engine_.Kept().orders.end() && found->second.session == session;
    if (known) answer = engine_.Cancel(id, now_);
    Finish();
    if (known && answer.code == 0 && !Fault().empty()) answer = {kRefused, "账户文件无法写入", 0};
    if (answer.code == 0 || !Tells()) return;
    const std::string contract = known ? found->second.contract : std::string();
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
    const std::int64_t most =
        engine_.MaxVolume(contract, query.cDirection, query.cOffset, PriceFromYuan(query.dPrice));
    result.nMaxVolume = static_cast<std::int32_t>(std::clamp<std::int64_t>(most, 0, INT32_MAX));
    front_end_->OnQueryMaxVolumeResult(Account(), Error({}), &result, 0);
}

void PaperCore::QueryTradeByDate(int from, int to, int) {
    Ask([this, from, to] { DoTradesByDate(from, to); });
}

void PaperCore::DoTradesByDate(int from, int to) {
    if (!Tells()) return;
    std::vector<const Trade*> found;
    for (const auto* trades : {&engine_.Kept().history, &engine_.Kept().trades}) {
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
        if (Tells()) PushAccount();
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
    const std::string contract = bar == std::string::npos ? std::string() : text.substr(bar + 1);
    const ContractTerms* terms = parts_.terms.Find(contract, engine_.Kept().day);
    if (!terms) return "0|0|0|N|" + text + "|";
    const Quote* quote = engine_.LastQuote(contract);
    const bool open = quote && quote->phase != MarketPhase::kClosed;
    return "0|0|0|Y|" + terms->exchange + "|" + contract + (open ? "|1|" : "|2|");
}

}  // namespace papercore
