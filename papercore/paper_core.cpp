#include "papercore/paper_core.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <utility>

#include "papercore/records.h"
#include "platform/text/bounded_text.h"
#include "platform/text/gbk.h"

// The thread, its queue, and what follows on an event.

namespace papercore {
namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds kFundsPause(1000);

bool IsBaseMove(const Fact& fact) { return std::holds_alternative<FloatBaseMoved>(fact); }

/// What a fact has to tell: an order as it is after it, and trades.
struct Told {
    std::optional<CZebOrder> order;
    std::vector<CZebTrade> trades;
};

struct FactWords {
    const State& state;  ///< after the fact

    std::optional<CZebOrder> Find(OrderId id) const {
        const auto found = state.orders.find(id);
        if (found == state.orders.end()) return std::nullopt;
        return RecordOf(found->second);
    }
    Told operator()(const OrderAccepted& fact) const { return {Find(fact.order.id), {}}; }
    Told operator()(const OrderEnded& fact) const { return {Find(fact.order), {}}; }
    Told operator()(const OrderBecameLimit& fact) const { return {Find(fact.order), {}}; }
    Told operator()(const OrderFilled& fact) const {
        Told told{Find(fact.order), {}};
        for (const Trade& trade : fact.trades) told.trades.push_back(RecordOf(trade));
        return told;
    }
    template <class Other>
    Told operator()(const Other&) const {
        return {};
    }
};

}  // namespace

PaperCore::PaperCore(CoreParts parts, State state)
    : parts_(std::move(parts)),
      engine_(parts_.terms, parts_.settings, std::move(state)),
      told_(engine_.Kept()),
      shown_(parts_.terms) {
    text::CopyText(account_.szAccount, told_.login.account);
    Changes all;
    all.day = true;
    Publish(all);
}

PaperCore::~PaperCore() { Stop({}); }

void PaperCore::Start() {
    if (!thread_.joinable()) thread_ = std::thread([this] { Run(); });
}

void PaperCore::Stop(const std::function<void()>& pump) {
    if (!thread_.joinable()) return;
    {
        const std::scoped_lock lock(mutex_);
        stopping_ = true;
    }
    wake_.notify_all();
    while (!ended_) {
        if (pump) pump();
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    thread_.join();
}

void PaperCore::Put(Event event) {
    {
        const std::scoped_lock lock(mutex_);
        if (over_) return;
        ++waiting_;
        events_.push_back(std::move(event));
    }
    wake_.notify_one();
}

void PaperCore::Ask(std::function<void()> request) {
    Put([this, request = std::move(request)] {
        Pause();
        request();
        Finish();
    });
}

void PaperCore::OnQuote(const Quote& quote) { Put(quote); }

void PaperCore::OnDayEnd(const DayEnd& end) {
    Put([this, end] {
        if (!Fault().empty()) return;
        now_ = end.time;
        engine_.OnDayEnd(end);
        Finish();
    });
}

bool PaperCore::Take(Event& event) {
    std::unique_lock lock(mutex_);
    const auto something = [this] { return stopping_ || !events_.empty(); };
    while (prices_moved_ && !wake_.wait_until(lock, pushed_at_ + kFundsPause, something)) {
        lock.unlock();
        FollowPrices();
        lock.lock();
    }
    wake_.wait(lock, something);
    // What was asked for before the end is still done, but nobody is told.
    if (stopping_) {
        logged_in_ = false;
        front_end_ = nullptr;
        waiting_ -= static_cast<int>(std::erase_if(
            events_, [](const Event& waiting) { return std::holds_alternative<Quote>(waiting); }));
    }
    if (events_.empty()) {
        over_ = true;
        return false;
    }
    event = std::move(events_.front());
    events_.pop_front();
    return true;
}

void PaperCore::Run() {
    Event event;
    while (Take(event)) {
        Handle(event);
        --waiting_;
    }
    if (!unkept_.empty()) static_cast<void>(parts_.store->Append(unkept_));
    ended_ = true;
}

void PaperCore::Handle(const Event& event) {
    if (const auto* request = std::get_if<std::function<void()>>(&event)) {
        (*request)();
        return;
    }
    const Quote& quote = std::get<Quote>(event);
    if (!Fault().empty()) return;
    now_ = quote.time;
    engine_.OnQuote(quote);
    Finish();
    prices_moved_ = !engine_.Kept().lots.empty();
    FollowPrices();
    // Who looks at a quiet core sees what is; who is told waits for the second to pass.
    if (prices_moved_ && waiting_ == 1) PublishFunds(engine_.FundsNow());
}

void PaperCore::Finish() {
    std::vector<Fact> facts = engine_.TakeFacts();
    if (facts.empty() || !Fault().empty()) return;
    // A better price so far is worth no wait for the disk: nobody was told of it.
    if (std::ranges::all_of(facts, IsBaseMove)) {
        for (Fact& fact : facts) {
            Apply(told_, fact);
            unkept_.push_back(std::move(fact));
        }
        return;
    }
    Changes changes;
    changes.bases = !unkept_.empty();
    unkept_.insert(unkept_.end(), facts.begin(), facts.end());
    const std::string fault = parts_.store->Append(std::exchange(unkept_, {}));
    if (!fault.empty()) {
        Break(fault);
        return;
    }
    Tell(facts, changes);
}

void PaperCore::Break(const std::string& fault) {
    {
        const std::scoped_lock lock(settings_mutex_);
        fault_ = fault;
        asked_ = {};
    }
    if (!front_end_) return;
    const std::string notice = "账户文件无法写入，模拟交易已停止：" + text::GbkFromUtf8(fault);
    front_end_->OnSystemNotice(Account(), notice.c_str());
}

std::string PaperCore::Fault() const {
    const std::scoped_lock lock(settings_mutex_);
    return fault_;
}

void PaperCore::Publish(const Changes& changes) {
    Lists lists = shown_.Update(engine_.Kept(), changes);
    lists.funds = engine_.FundsNow();
    published_.Set(std::move(lists));
    if (changes.day || changes.lots || changes.settings) PublishSettings();
}

void PaperCore::PublishSettings() {
    const State& state = engine_.Kept();
    const std::scoped_lock lock(settings_mutex_);
    kept_.params[0] = {TradeParamOf(state)};
    kept_.presets.clear();
    for (const auto& [key, record] : state.presets) kept_.presets[key] = {record};
    kept_.lot_stops.clear();
    for (const auto& [id, lot] : state.lots) {
        if (lot.has_stop && !lot.stop.triggered) kept_.lot_stops[id] = {lot.stop.record};
    }
}

/// `changes` has what is shown with the facts, but was kept back until now.
void PaperCore::Tell(const std::vector<Fact>& facts, Changes changes) {
    std::vector<Told> words;
    for (const Fact& fact : facts) {
        changes.Add(told_, fact);
        Apply(told_, fact);
        words.push_back(std::visit(FactWords{told_}, fact));
    }
    Publish(changes);
    if (!Tells()) return;
    for (Told& told : words) {
        if (told.order) front_end_->OnOrderChange(Account(), &*told.order);
        for (CZebTrade& trade : told.trades) front_end_->OnTrade(Account(), &trade);
    }
    if (changes.day || !changes.orders.empty()) front_end_->OnUpdateOrderList(Account());
    if (changes.day) front_end_->OnUpdateTradeList(Account());
    if (changes.day || changes.lots) front_end_->OnUpdatePositionList(Account());
    if (changes.day || changes.lots || changes.bases) {
        front_end_->OnUpdatePositionGroupList(Account());
    }
    if (changes.day || changes.money) PushAccount(engine_.FundsNow());
}

void PaperCore::PublishFunds(const Funds& funds) {
    Lists lists = published_.Get();
    lists.funds = funds;
    published_.Set(std::move(lists));
}

// At most once a second: prices move far oftener.
void PaperCore::FollowPrices() {
    const Clock::time_point now = Clock::now();
    if (!prices_moved_ || now - pushed_at_ < kFundsPause) return;
    pushed_at_ = now;
    prices_moved_ = false;
    // What the engine reckons with is not what is kept any more.
    if (!Fault().empty() || !KeepMoves()) return;
    const Funds funds = engine_.FundsNow();
    PublishFunds(funds);
    const bool same =
        funds.balance == pushed_funds_.balance && funds.available == pushed_funds_.available;
    if (!same && Tells()) PushAccount(funds);
}

/// Keeps the best prices of floating stops and shows them; without this a crash would take back
/// all of them since the last order. False when the store fails.
bool PaperCore::KeepMoves() {
    if (unkept_.empty()) return true;
    const std::string fault = parts_.store->Append(std::exchange(unkept_, {}));
    if (!fault.empty()) {
        Break(fault);
        return false;
    }
    Changes changes;
    changes.bases = true;
    Publish(changes);
    if (Tells()) front_end_->OnUpdatePositionGroupList(Account());
    return true;
}

void PaperCore::PushAccount(const Funds& funds) {
    const auto summary = std::make_unique<CZebAccountSummary>();
    pushed_funds_ = funds;
    pushed_at_ = Clock::now();
    FillSummary(pushed_funds_, *summary);
    front_end_->OnQueryAccountResult(Account(), Error({}), summary.get(), 0, StepDataMap());
}

CZebError* PaperCore::Error(const Answer& answer) {
    error_ = {};
    error_.nCode = answer.code;
    text::CopyText(error_.szText, answer.text);
    return &error_;
}

void PaperCore::Pause() {
    const int delay = delay_;
    if (delay <= 0) return;
    std::unique_lock lock(mutex_);
    wake_.wait_for(lock, std::chrono::milliseconds(delay), [this] { return stopping_; });
}

void PaperCore::Disconnect(int status) {
    Put([this, status] {
        if (!front_end_) return;
        front_end_->OnNetworkStatus(Account(), ZEB_CONNECTION_TRADE,
                                    static_cast<ZEB_CONNECTION_STATUS>(status));
    });
}

void PaperCore::RefuseNext(const std::string& reason) {
    Put([this, reason] { engine_.RefuseNext(reason); });
}

void PaperCore::Notice(const std::string& text) {
    Put([this, text] {
        if (front_end_) front_end_->OnSystemNotice(Account(), text.c_str());
    });
}

void PaperCore::SetDelay(int millis) { delay_ = std::clamp(millis, 0, 60000); }

}  // namespace papercore
