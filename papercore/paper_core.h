#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <variant>

#include "papercore/engine.h"
#include "papercore/published.h"
#include "papercore/shown_lists.h"
#include "papercore/store.h"
#include "plugin/contract/base_ui.h"
#include "plugin/contract/ui_callback.h"

/// Of no use to the front end, which knows its name only.
class StepDataMap {};

namespace papercore {

/// What a core is made of.
struct CoreParts {
    const TermsTable& terms;  ///< outlives the core
    std::unique_ptr<Store> store;
    EngineSettings settings;
    /// Bytes of a password's hash with a salt; slow on purpose.
    std::function<std::string(std::string_view password, std::string_view salt)> hash;
    std::function<std::string()> make_salt;
};

/// A paper account behind the front end's contract. It has a thread of its own, on which all is
/// decided, kept and then told; requests return at once. What concerns windows (skin, status,
/// host) is left to a deriving class.
///
/// Made, then given its front end, then started; stopped before it goes. Nothing is told under a
/// lock. When the store fails, the core tells so, once, and refuses whatever comes after.
class PaperCore : public CUICallBack {
public:
    /// `state` is what the store loaded.
    PaperCore(CoreParts parts, State state);
    virtual ~PaperCore();
    PaperCore(const PaperCore&) = delete;
    PaperCore& operator=(const PaperCore&) = delete;

    /// Before Start; null for nobody.
    void SetFrontEnd(CBaseUI* front_end) { front_end_ = front_end; }
    void Start();
    /// Ends the thread after the event that it is at; what waits is dropped but for what is to be
    /// kept. `pump` is called meanwhile, so that a push that waits for the caller's windows ends.
    void Stop(const std::function<void()>& pump);

    // The market. Any thread.
    void OnQuote(const Quote& quote);
    void OnDayEnd(const DayEnd& end);

    // What a person who tests the front end asks for. Any thread.
    /// The connection is lost: -1 or -2.
    void Disconnect(int status);
    void RefuseNext(const std::string& reason);
    void Notice(const std::string& text);
    /// Each answer takes this long.
    void SetDelay(int millis);
    /// Nothing waits and nothing is being done.
    bool IsQuiet() const { return waiting_ == 0; }

    /// The lists and funds after the last event, whether somebody is logged in or not.
    Lists Look() const { return published_.Get(); }
    /// Empty while the store works.
    std::string Fault() const;

    // CUICallBack, as told there.
    int GetPositionDetailList(PositionGroup* buffer, int capacity) override;
    int GetPositionGroupList(CGroupHead*, int) override { return 0; }
    int GetPositionGroupDetail(const char*, CGroupHead*) override { return 0; }
    int GetPositionGroupLegs(const char*, PositionGroup*, int) override { return 0; }
    void SetPresetStop(const char* exchange, const char* contract, CPresetStop* stop) override;
    void GetPresetStop(const char* exchange, const char* contract, CPresetStop* stop) override;
    void GetGroupStop(int groupId, CPresetStop* stop) override;
    void SetGroupStop(int groupId, CPresetStop* stop) override;
    void InsertOrder(CInsertOrderRequest* request, CTradeParam* param, unsigned char priceType,
                     int source) override;
    void StartStopMonitor() override;
    int IsLoggedIn() override { return logged_in_ ? 1 : 0; }
    double GetGroupFloatingProfit(const char*) override { return 0; }
    void QueryInitial1() override;
    void QueryInitial3() override;
    void QueryInitial2() override;
    void GetTradeParam(CTradeParam* param) override;
    void SetTradeParam(CTradeParam* param) override;
    void Logout() override;
    void StartSession() override {}
    void RefreshOrders() override;
    void QueryTradeByDate(int from, int to, int zero) override;
    void QueryAccount(int zero) override;
    void QueryMaxVolume(CQueryMaxVolume* query, int zero) override;
    void CancelOrder(CZebOrder* order, const char* orderRef, const char* note,
                     int session) override;
    void ChangePassword(CChangePasswordRequest* request, int zero) override;
    void QueryBankBalance(CBankRequest* request, int zero) override;
    void QueryBankTransfer(int zero) override;
    void BankTransfer(CBankRequest* request, int zero) override;
    int GetContractList(CZebContract* buffer, int capacity) override;
    int GetOrderList(CZebOrder* buffer, int capacity) override;
    int GetTradeList(CZebTrade* buffer, int capacity) override;
    int GetPositionList(CZebPosition* buffer, int capacity) override;
    int GetBankList(CZebBank*, int) override { return 0; }
    void GetLoginAccount(CAccountInfo* account) override;
    void BeginTrading() override {}
    void ApplyTradeParam(CTradeParam*) override {}
    int GetContractUnit(int zero1, const char* exchange, const char* contract, int zero2,
                        int zero3) override;
    void Login(const char* account, const char* password, const char* request,
               const CServerEntry* server) override;
    void SendFunctionRequest(int function, const char* text) override;
    void GetLoginResult(CLoginResult* result) override;

private:
    using Event = std::variant<Quote, std::function<void()>>;

    void Put(Event event);
    /// A request, with the delay that answers have.
    void Ask(std::function<void()> request);
    void Run();
    bool Take(Event& event);
    void Handle(const Event& event);

    // On the core's thread.
    /// Keeps what the engine decided, then tells it.
    void Finish();
    void Publish(const Changes& changes);
    void PublishSettings();
    void PublishFunds(const Funds& funds);
    void Tell(const std::vector<Fact>& facts, Changes changes);
    void FollowPrices();
    bool KeepMoves();
    void PushAccount(const Funds& funds);
    void TellRefusal(const Answer& answer);
    void Break(const std::string& fault);
    void Pause();
    CZebError* Error(const Answer& answer);
    bool Prompt(int login, int first, int last);
    void DoLogin(int login, const std::string& account, const std::string& password);
    bool AnswerLogin(int login, const CAccountInfo& asked, const Answer& answer);
    Answer CheckLogin(const std::string& account, const std::string& password);
    /// Lets the session of this login begin, unless somebody logged out meanwhile.
    bool BeginSession(int login);
    bool IsWanted(int login);
    void DoInsert(CInsertOrderRequest record, int price_code, int source);
    void DoCancel(const std::string& ref, int session);
    void DoMaxVolume(const CQueryMaxVolume& query);
    void DoTradesByDate(int from, int to);
    void DoChangePassword(const CChangePasswordRequest& request);
    Answer CheckPassword(const std::string& before, const std::string& after);
    void DoFunction(int function, const std::string& text);
    std::string MarketState(const std::string& text) const;
    const CAccountInfo* Account() const { return &account_; }
    bool Tells() const { return front_end_ && logged_in_; }
    template <class Record>
    int ReadList(Shared<Record> Lists::*list, Record* buffer, int capacity);

    CoreParts parts_;
    Engine engine_;
    CBaseUI* front_end_ = nullptr;

    // The core's thread only.
    State told_;                ///< as of the facts that were told so far
    std::vector<Fact> unkept_;  ///< moves of float bases, which wait for the next thing to keep
    CAccountInfo account_{};
    CZebError error_{};
    Instant now_ = 0;
    Funds pushed_funds_;
    bool prices_moved_ = false;  ///< since funds were told
    std::chrono::steady_clock::time_point pushed_at_;
    ShownLists shown_;

    Published published_;
    std::atomic<bool> logged_in_ = false;
    std::atomic<bool> lists_ready_ = false;
    std::atomic<int> delay_ = 0;
    std::atomic<int> waiting_ = 0;

    /// What other threads set and get. What they set counts for them at once, in front of what is
    /// kept, until it is kept itself.
    struct Settings {
        /// With the number of the call that set it: an earlier one that is kept by now is no
        /// answer to it.
        template <class Record>
        struct One {
            Record record;
            std::uint64_t call = 0;
        };
        std::map<int, One<CTradeParam>> params;           ///< one, by 0
        std::map<std::string, One<CPresetStop>> presets;  ///< by exchange '|' contract
        std::map<int, One<CPresetStop>> lot_stops;
    };
    template <class Key, class Record>
    using SettingMap = std::map<Key, Settings::One<Record>> Settings::*;
    template <class Key, class Record>
    std::uint64_t AskSetting(SettingMap<Key, Record> map, const Key& key, const Record& record);
    template <class Key, class Record>
    void ForgetAsked(SettingMap<Key, Record> map, const Key& key, std::uint64_t call);
    template <class Key, class Record>
    void ReadSetting(SettingMap<Key, Record> map, const Key& key, Record* record);
    mutable std::mutex settings_mutex_;
    Settings asked_;
    Settings kept_;
    std::uint64_t last_call_ = 0;
    CAccountInfo shown_account_{};
    std::string fault_;

    std::mutex session_mutex_;
    int logins_ended_ = 0;  ///< calls of Login so far when Logout was called last
    int logins_ = 0;

    std::mutex mutex_;
    std::condition_variable wake_;
    std::deque<Event> events_;
    bool stopping_ = false;
    bool over_ = false;  ///< what comes now is dropped
    std::atomic<bool> ended_ = false;
    std::thread thread_;
};

}  // namespace papercore
