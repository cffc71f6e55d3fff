#pragma once

#include "platform/types.h"
#include "plugin/contract/account_records.h"
#include "plugin/contract/bank_records.h"
#include "plugin/contract/market_records.h"
#include "plugin/contract/order_records.h"
#include "plugin/contract/parameter_records.h"
#include "plugin/contract/position_records.h"

struct CServerEntry;

// Function numbers of CUICallBack::SendFunctionRequest and of its replies.
inline constexpr int kFunctionClientReport = 4;
inline constexpr int kFunctionAccountExtra = 6012;  ///< never asked for; comes with the funds
inline constexpr int kFunctionMarketState = 6027;   ///< "exchange|contract"
inline constexpr int kFunctionVerification = 6095;  ///< "|code|"
inline constexpr int kFunctionSettlement = 9336;    ///< date, or empty for the latest report

// Codes of CUICallBack::ShowStatusText.
inline constexpr int kStatusPlain = 0;
inline constexpr int kStatusOrderNote = 3006;
inline constexpr int kStatusOrderPageNote = 3013;
inline constexpr int kStatusOrderChange = 3068;
inline constexpr int kStatusTrade = 3069;

// Sources of CUICallBack::InsertOrder.
inline constexpr int kOrderSourcePlain = 1;
inline constexpr int kOrderSourceWithStops = 5;
inline constexpr int kOrderSourceQuickClose = 6;

// Groups of CUICallBack::GetSkinBitmap.
inline constexpr int kSkinPages = 0;
inline constexpr int kSkinPanels = 1;

/// Second argument of CUICallBack::ReportSettlementText.
inline constexpr int kReportMarginCall = 900;

/// The trading core, as the front end sees it. The host makes it, hands it in and outlives the
/// front end with it; nobody deletes it through this class.
///
/// Called from the windows' thread only, but for IsLoggedIn, which any thread may ask, and for
/// StartSession and ShowLoginProgress, which OnLoginPrompt and OnQuerySettleResult of CBaseUI call
/// on the thread that they were called on. Requests return at once; where an answer is named, it
/// comes through that operation of CBaseUI, perhaps on another thread. Lists are read in two steps:
/// with (nullptr, 0) an operation tells how many records there are, with a buffer and its capacity
/// it fills the buffer and tells how many it wrote, which may be fewer. Truth values are ints. The
/// order of the operations is the interface: append, never insert.
class CUICallBack {
public:
    /// A bitmap of the host's skin; it stays the host's.
    virtual HBITMAP GetSkinBitmap(int group, int index) = 0;
    /// Background colour of the pages.
    virtual COLORREF GetSkinColor() = 0;
    /// List of the open lots.
    virtual int GetPositionDetailList(PositionGroup* buffer, int capacity) = 0;
    /// List of the position groups.
    virtual int GetPositionGroupList(CGroupHead* buffer, int capacity) = 0;
    /// One group by its key; 0 if there is none.
    virtual int GetPositionGroupDetail(const char* key, CGroupHead* group) = 0;
    /// List of a group's legs.
    virtual int GetPositionGroupLegs(const char* key, PositionGroup* buffer, int capacity) = 0;
    /// Keeps the stops that future positions of a contract get.
    virtual void SetPresetStop(const char* exchange, const char* contract, CPresetStop* stop) = 0;
    /// Tells those stops.
    virtual void GetPresetStop(const char* exchange, const char* contract, CPresetStop* stop) = 0;
    /// Tells the stop strategy of one open lot.
    virtual void GetGroupStop(int groupId, CPresetStop* stop) = 0;
    /// Keeps the stop strategy of one open lot.
    virtual void SetGroupStop(int groupId, CPresetStop* stop) = 0;
    /// Sends an order; `source` is one of the order sources. Answer: OnInsertOrderResult.
    virtual void InsertOrder(CInsertOrderRequest* request, CTradeParam* param,
                             unsigned char priceType, int source) = 0;
    /// Starts watching stops once the initial load is done.
    virtual void StartStopMonitor() = 0;
    /// Is there a session?
    virtual int IsLoggedIn() = 0;
    /// Profit of a position group at current prices.
    virtual double GetGroupFloatingProfit(const char* key) = 0;
    /// First query of the initial load.
    virtual void QueryInitial1() = 0;
    /// Third query of the initial load.
    virtual void QueryInitial3() = 0;
    /// Second query of the initial load.
    virtual void QueryInitial2() = 0;
    /// Tells the trading parameters.
    virtual void GetTradeParam(CTradeParam* param) = 0;
    /// Keeps the trading parameters.
    virtual void SetTradeParam(CTradeParam* param) = 0;
    /// Tells the core, after the login, the route value of the chosen server; `one` is always 1.
    virtual void SetLoginRoute(int* route, int one) = 0;
    /// Ends the session.
    virtual void Logout() = 0;
    /// Goes on from the login to the initial load.
    virtual void StartSession() = 0;
    /// Makes the core look for changed orders.
    virtual void RefreshOrders() = 0;
    /// Past trades, days as YYYYMMDD; `zero` is always 0. Answer: OnQueryTradeByDateResult.
    virtual void QueryTradeByDate(int from, int to, int zero) = 0;
    /// Funds. Answer: OnQueryAccountResult.
    virtual void QueryAccount(int zero) = 0;
    /// How much can be traded. Answer: OnQueryMaxVolumeResult.
    virtual void QueryMaxVolume(CQueryMaxVolume* query, int zero) = 0;
    /// Cancels an order. Answer: OnCancelOrderResult.
    virtual void CancelOrder(CZebOrder* order, const char* orderRef, const char* note,
                             int session) = 0;
    /// Changes the trading password. Answer: OnChangePasswordResult.
    virtual void ChangePassword(CChangePasswordRequest* request, int zero) = 0;
    /// Balance at a bank. Answer: OnQueryBankBalanceResult.
    virtual void QueryBankBalance(CBankRequest* request, int zero) = 0;
    /// Past transfers. Answer: OnQueryBankTransferResult, once for each.
    virtual void QueryBankTransfer(int zero) = 0;
    /// Moves money between a bank and the account. Answer: OnBankTransferResult.
    virtual void BankTransfer(CBankRequest* request, int zero) = 0;
    /// List of the tradable contracts.
    virtual int GetContractList(CZebContract* buffer, int capacity) = 0;
    /// List of today's orders.
    virtual int GetOrderList(CZebOrder* buffer, int capacity) = 0;
    /// List of today's trades.
    virtual int GetTradeList(CZebTrade* buffer, int capacity) = 0;
    /// List of the positions.
    virtual int GetPositionList(CZebPosition* buffer, int capacity) = 0;
    /// List of the account's banks.
    virtual int GetBankList(CZebBank* buffer, int capacity) = 0;
    /// A line for the host's status line and log; `code` is one of the status codes.
    virtual void ShowStatusText(const char* text, int code) = 0;
    /// Copies the text of the login's progress; empty when there is none.
    virtual void GetPromptText(int zero, char* buffer, int size) = 0;
    /// Takes down the text of the login's progress.
    virtual void ShowLoginProgress(int zero, const char* text) = 0;
    /// Tells the account in use.
    virtual void GetLoginAccount(CAccountInfo* account) = 0;
    /// The pages are up; comes before the queries of the initial load.
    virtual void BeginTrading() = 0;
    /// The name under which the host shows the account.
    virtual void SetAccountDisplayName(const char* name, int module) = 0;
    /// Puts changed trading parameters to work.
    virtual void ApplyTradeParam(CTradeParam* param) = 0;
    /// Funds for the host to show: "equity|available|open profit|", two decimal places each.
    virtual void SetFundsText(const char* text, int module) = 0;
    /// Background colour of the panels.
    virtual void GetPanelBackColor(COLORREF* color) = 0;
    /// Units in one lot of a contract that is not in the list.
    virtual int GetContractUnit(int zero1, const char* exchange, const char* contract, int zero2,
                                int zero3) = 0;
    /// Starts a login. Answers: OnLoginPrompt as it goes on, OnLoginResult.
    virtual void Login(const char* account, const char* password, const char* request,
                       const CServerEntry* server) = 0;
    /// Sends a text to a numbered function of the server. Answer: OnResult_WithReturnData.
    virtual void SendFunctionRequest(int function, const char* text) = 0;
    /// Hears of every core event before it is handled.
    virtual void NotifyEvent(int module, WPARAM wParam, LPARAM lParam) = 0;
    /// The initial load is handled.
    virtual void NotifyInitDone(int module) = 0;
    /// Hears of some core events after they are handled; what a block holds is to be copied.
    virtual void ForwardEvent(UINT message, WPARAM wParam, LPARAM lParam) = 0;
    /// Tells what the login answered.
    virtual void GetLoginResult(CLoginResult* result) = 0;
    /// The margin call value of the settlement report; `kind` is kReportMarginCall.
    virtual void ReportSettlementText(int module, int kind, const char* text) = 0;

protected:
    ~CUICallBack() = default;
};
