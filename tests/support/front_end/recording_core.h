#pragma once

#include <atomic>
#include <functional>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "host/skin/skin_bitmaps.h"
#include "plugin/contract/ui_callback.h"

namespace tests {

/// A trading core that writes down what the front end asks of it and answers from public members.
///
///     tests::RecordingCore core;
///     core.contracts.push_back(contract);
///     core.logged_in = true;
///     tests::FrontEndDoors doors(core, host);
///     ...
///     EXPECT_THAT(core.TakeCalls(), ElementsAre("QueryAccount(0)"));
///
/// A call is one line, "Name(arguments)", texts in GBK; " [other thread]" behind it when it came
/// from a thread that must not call. Answers belong to the thread that made the object, except for
/// logged_in. Recording is safe from any thread.
class RecordingCore : public CUICallBack {
public:
    struct Insert {
        CInsertOrderRequest request;
        bool has_param;     ///< were parameters handed in?
        CTradeParam param;  ///< zeroes without
        unsigned char price_type;
        int source;
    };
    struct Cancel {
        CZebOrder order;
        std::string order_ref;
        std::string note;
        int session;
    };
    struct LoginRequest {
        std::string account;
        std::string password;
        std::string request;
        const CServerEntry* server;  ///< as it was passed; may be gone by now
    };

    RecordingCore() = default;
    RecordingCore(const RecordingCore&) = delete;
    RecordingCore& operator=(const RecordingCore&) = delete;
    virtual ~RecordingCore() = default;

    // Answers
    std::vector<CZebContract> contracts;
    std::vector<CZebOrder> orders;
    std::vector<CZebTrade> trades;
    std::vector<CZebPosition> positions;
    std::vector<PositionGroup> position_details;
    std::vector<CGroupHead> position_groups;
    std::map<std::string, std::vector<PositionGroup>> group_legs;  ///< by group key
    std::vector<CZebBank> banks;
    /// Records that the first step of a list read promises and the second does not deliver.
    int promised_too_many = 0;

    std::atomic<bool> logged_in = false;
    std::string prompt_text;    ///< also set by ShowLoginProgress
    CTradeParam trade_param{};  ///< also set by SetTradeParam
    CAccountInfo login_account{};
    CLoginResult login_result{};
    std::map<std::string, double> floating_profits;  ///< by group key, else 0
    std::map<std::string, int> contract_units;       ///< by contract
    int contract_unit = 1;                           ///< of contracts that are not there
    std::map<std::pair<std::string, std::string>, CPresetStop> preset_stops;  ///< also set by calls
    std::map<int, CPresetStop> group_stops;                                   ///< also set by calls
    COLORREF skin_color = RGB(0xF3, 0xF5, 0xF8);
    COLORREF panel_color = RGB(0x29, 0x29, 0x29);
    bool has_skin = true;  ///< false: every skin bitmap is null
    int max_volume = 0;    ///< of MaxVolumeAnswer

    /// Called with each recorded line once it is written down, on the thread of the call: the place
    /// from which a test answers.
    std::function<void(std::string_view line)> on_call;

    // Records that came with requests, whole and in order
    std::vector<Insert> inserts;
    std::vector<Cancel> cancels;
    std::vector<LoginRequest> logins;
    std::vector<CQueryMaxVolume> max_volume_queries;
    std::vector<CChangePasswordRequest> password_changes;
    std::vector<CBankRequest> balance_queries;
    std::vector<CBankRequest> transfers;
    std::vector<CTradeParam> set_params;
    std::vector<CTradeParam> applied_params;

    /// What was called so far, or since the last TakeCalls.
    std::vector<std::string> Calls() const;
    std::vector<std::string> TakeCalls();
    /// Those of one operation.
    std::vector<std::string> CallsOf(std::string_view name) const;
    void ForgetCalls() { TakeCalls(); }
    /// Operations that are not written down. At first these are IsLoggedIn and the skin's, which
    /// come from every paint and push.
    void Omit(std::set<std::string> names);

    /// The answer to the last QueryMaxVolume, with max_volume.
    CQueryMaxVolumeResult MaxVolumeAnswer() const;

    HBITMAP GetSkinBitmap(int group, int index) override;
    COLORREF GetSkinColor() override;
    int GetPositionDetailList(PositionGroup* buffer, int capacity) override;
    int GetPositionGroupList(CGroupHead* buffer, int capacity) override;
    int GetPositionGroupDetail(const char* key, CGroupHead* group) override;
    int GetPositionGroupLegs(const char* key, PositionGroup* buffer, int capacity) override;
    void SetPresetStop(const char* exchange, const char* contract, CPresetStop* stop) override;
    void GetPresetStop(const char* exchange, const char* contract, CPresetStop* stop) override;
    void GetGroupStop(int groupId, CPresetStop* stop) override;
    void SetGroupStop(int groupId, CPresetStop* stop) override;
    void InsertOrder(CInsertOrderRequest* request, CTradeParam* param, unsigned char priceType,
                     int source) override;
    void StartStopMonitor() override;
    int IsLoggedIn() override;
    double GetGroupFloatingProfit(const char* key) override;
    void QueryInitial1() override;
    void QueryInitial3() override;
    void QueryInitial2() override;
    void GetTradeParam(CTradeParam* param) override;
    void SetTradeParam(CTradeParam* param) override;
    void SetLoginRoute(int* route, int one) override;
    void Logout() override;
    void StartSession() override;
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
    int GetBankList(CZebBank* buffer, int capacity) override;
    void ShowStatusText(const char* text, int code) override;
    void GetPromptText(int zero, char* buffer, int size) override;
    void ShowLoginProgress(int zero, const char* text) override;
    void GetLoginAccount(CAccountInfo* account) override;
    void BeginTrading() override;
    void SetAccountDisplayName(const char* name, int module) override;
    void ApplyTradeParam(CTradeParam* param) override;
    void SetFundsText(const char* text, int module) override;
    void GetPanelBackColor(COLORREF* color) override;
    int GetContractUnit(int zero1, const char* exchange, const char* contract, int zero2,
                        int zero3) override;
    void Login(const char* account, const char* password, const char* request,
               const CServerEntry* server) override;
    void SendFunctionRequest(int function, const char* text) override;
    void NotifyEvent(int module, WPARAM wParam, LPARAM lParam) override;
    void NotifyInitDone(int module) override;
    void ForwardEvent(UINT message, WPARAM wParam, LPARAM lParam) override;
    void GetLoginResult(CLoginResult* result) override;
    void ReportSettlementText(int module, int kind, const char* text) override;

private:
    enum class From { kWindowsThread, kAnyThread };

    /// Writes down "name(arguments)".
    void Record(std::string_view name, const std::string& arguments,
                From from = From::kWindowsThread);
    template <class Entry>
    int Serve(std::string_view name, const std::vector<Entry>& list, Entry* buffer, int capacity,
              const std::string& arguments = "");

    mutable std::mutex mutex_;
    std::vector<std::string> calls_;
    std::set<std::string> omitted_ = {"IsLoggedIn", "GetSkinBitmap", "GetSkinColor",
                                      "GetPanelBackColor"};
    std::thread::id thread_ = std::this_thread::get_id();
    skin::SkinBitmaps skin_;
};

}  // namespace tests
