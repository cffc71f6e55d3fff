#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include "plugin/contract/base_ui.h"

namespace papercore_tests {

/// A front end that writes down what a core tells it, a line each, and can be waited for. Any
/// thread.
class RecordingUi : public CBaseUI {
public:
    virtual ~RecordingUi() = default;

    /// Called with each line, on the core's thread, before anybody can see it.
    std::function<void(const std::string& line)> on_line;

    std::vector<std::string> Take();
    /// Waits, for a minute at most, until a line begins so; false if none does.
    bool WaitFor(const std::string& beginning);
    /// The last funds that were told: balance, margin, frozen, available.
    std::string LastFunds() const;

    void OnLoginResult(const CAccountInfo* account, CZebError* error, CLoginResult* result,
                       int request) override;
    void OnLoginPrompt(const CAccountInfo* account, ZEB_LOGIN_PROMPT prompt,
                       CZebError* error) override;
    void OnQueryAccountResult(const CAccountInfo* account, CZebError* error,
                              CZebAccountSummary* summary, int request,
                              const StepDataMap& steps) override;
    void OnQueryMaxVolumeResult(const CAccountInfo* account, CZebError* error,
                                CQueryMaxVolumeResult* result, int request) override;
    void OnQueryTradeByDateResult(const CAccountInfo* account, CZebError* error, CZebTrade* trade,
                                  int request, int last) override;
    void OnInsertOrderResult(const CAccountInfo* account, CZebError* error,
                             CInsertOrderRequest* request, int number) override;
    void OnCancelOrderResult(const CAccountInfo* account, CZebError* error, const char* a,
                             const char* b, int number) override;
    void OnChangePasswordResult(const CAccountInfo* account, CZebError* error,
                                int request) override;
    void OnQueryBankBalanceResult(const CAccountInfo* account, CZebError* error,
                                  CBankResult* result, int request) override;
    void OnQueryBankTransferResult(const CAccountInfo* account, CZebError* error,
                                   CBankTransfer* transfer, int request, int last) override;
    void OnBankTransferResult(const CAccountInfo* account, CZebError* error, CBankResult* result,
                              int request) override;
    void OnOrderChange(const CAccountInfo* account, CZebOrder* order) override;
    void OnTrade(const CAccountInfo* account, CZebTrade* trade) override;
    void OnNetworkStatus(const CAccountInfo* account, ZEB_CONNECTION connection,
                         ZEB_CONNECTION_STATUS status) override;
    void OnSystemNotice(const CAccountInfo* account, const char* notice) override;
    void OnUpdateOrderList(const CAccountInfo*) override { Add("orders"); }
    void OnUpdateTradeList(const CAccountInfo*) override { Add("trades"); }
    void OnUpdatePositionList(const CAccountInfo*) override { Add("positions"); }
    void OnUpdatePositionGroupList(const CAccountInfo*) override { Add("groups"); }
    void OnResult_WithReturnData(int function, const CAccountInfo* account, CZebError* error,
                                 const char* text) override;

    // What no paper core calls.
    void SetUICallBack(CUICallBack*) override {}
    void OnQueryNoticeResult(const CAccountInfo*, CZebError*, const char*, int) override {}
    void OnQuerySettleResult(const CAccountInfo*, CZebError*, CQuerySettleResult*, int,
                             int) override {}
    void OnQueryCFMMCResult(const CAccountInfo*, CZebError*, CQueryCFMMCResult*, int) override {}
    void OnBatchQueryResult(const CAccountInfo*, CZebError*, int) override {}
    void OnQueryMarginRateResult(const CAccountInfo*, CZebError*, const char*, const char*,
                                 int) override {}
    void OnQueryBankTransferWithLSHResult(const CAccountInfo*, CZebError*, CBankTransfer*, int,
                                          int) override {}
    void OnExchangeStatus(const CAccountInfo*, const char*, ZEB_EXCHANGE_STATUS) override {}
    void OnSystemInit(const CAccountInfo*, int) override {}
    void OnLowMemory() override {}
    void OnError(const CAccountInfo*, CZebError*) override {}
    void OnUpdatePositionDetailList(const CAccountInfo*) override {}
    void OnStopProfitLossMsg(const CAccountInfo*, const char*, const char*, double, int) override {}
    void OnChasePriceMsg(const CAccountInfo*, const char*, const char*, ChasePrice_STATUS,
                         unsigned char, double, int) override {}
    void OnCombinationMsg(const char*, unsigned char) override {}
    void OnUpdateChasePriceList() override {}
    void OnHeartRequestResult(const CAccountInfo*, CZebError*, CHeartRequestResult*, int) override {
    }
    void OnSize(int, int, int, int, unsigned int) override {}
    void OnCodeListChanged() override {}
    void OnDestroyWindow(unsigned int) override {}
    void ShowWindow(unsigned int, unsigned int) override {}
    void OnDyn(unsigned int, int, const JSDyn1*) override {}
    int GetStkList(unsigned int*, int) override { return 0; }
    void SetFrameWnd(HWND) override {}
    void OnRefresh() override {}
    void CurStkChanged(unsigned short, unsigned short, unsigned int) override {}
    unsigned int CreatePanel(int, int, int, int, HWND) override { return 0; }
    int Create(int, int, int, int, HWND) override { return 1; }
    void gMouseDown(POINT) override {}
    void Close() override {}
    void LockScreen(int) override {}
    void CodeTableChanged(unsigned short) override {}
    CWnd* GetMainDlg() override { return nullptr; }
    CWnd* GetMenuCtrl(int&) override { return nullptr; }
    void ShowWindow_Script(int, int) override {}
    HWND CreateConditionOrderDlg(HWND) override { return nullptr; }
    CWnd* GetConditionParentDlg() override { return nullptr; }

private:
    void Add(const std::string& line);

    mutable std::mutex mutex_;
    std::condition_variable added_;
    std::vector<std::string> lines_;
    std::string funds_;
};

}  // namespace papercore_tests
