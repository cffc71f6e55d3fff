#pragma once

#include "platform/types.h"
#include "plugin/contract/account_records.h"
#include "plugin/contract/bank_records.h"
#include "plugin/contract/codes.h"
#include "plugin/contract/market_records.h"
#include "plugin/contract/order_records.h"

class CUICallBack;
class CWnd;
class StepDataMap;
struct CHeartRequestResult;
struct CQueryCFMMCResult;
struct CQuerySettleResult;

/// The front end, as host and core see it. The order of the operations is the interface; there is
/// no destructor among them, so that only the implementing class can be deleted.
///
/// The On...Result, On...List and On...Msg operations and the pushes may come from any thread. They
/// copy what they are given before they return. The other operations belong to the windows' thread.
/// A window that travels as an unsigned int is its handle; 0 stands for the main window.
class CBaseUI {
public:
    virtual void SetUICallBack(CUICallBack* core) = 0;

    // Answers and pushes of the core. `last` ends a list.
    virtual void OnLoginResult(const CAccountInfo* account, CZebError* error, CLoginResult* result,
                               int request) = 0;
    virtual void OnQueryNoticeResult(const CAccountInfo* account, CZebError* error,
                                     const char* notice, int request) = 0;
    virtual void OnQuerySettleResult(const CAccountInfo* account, CZebError* error,
                                     CQuerySettleResult* result, int request, int last) = 0;
    virtual void OnQueryCFMMCResult(const CAccountInfo* account, CZebError* error,
                                    CQueryCFMMCResult* result, int request) = 0;
    virtual void OnLoginPrompt(const CAccountInfo* account, ZEB_LOGIN_PROMPT prompt,
                               CZebError* error) = 0;
    virtual void OnBatchQueryResult(const CAccountInfo* account, CZebError* error, int request) = 0;
    virtual void OnQueryAccountResult(const CAccountInfo* account, CZebError* error,
                                      CZebAccountSummary* summary, int request,
                                      const StepDataMap& steps) = 0;
    virtual void OnQueryMarginRateResult(const CAccountInfo* account, CZebError* error,
                                         const char* exchange, const char* contract,
                                         int request) = 0;
    virtual void OnQueryMaxVolumeResult(const CAccountInfo* account, CZebError* error,
                                        CQueryMaxVolumeResult* result, int request) = 0;
    virtual void OnQueryTradeByDateResult(const CAccountInfo* account, CZebError* error,
                                          CZebTrade* trade, int request, int last) = 0;
    virtual void OnInsertOrderResult(const CAccountInfo* account, CZebError* error,
                                     CInsertOrderRequest* request, int number) = 0;
    virtual void OnCancelOrderResult(const CAccountInfo* account, CZebError* error, const char* a,
                                     const char* b, int number) = 0;
    virtual void OnChangePasswordResult(const CAccountInfo* account, CZebError* error,
                                        int request) = 0;
    virtual void OnQueryBankBalanceResult(const CAccountInfo* account, CZebError* error,
                                          CBankResult* result, int request) = 0;
    virtual void OnQueryBankTransferResult(const CAccountInfo* account, CZebError* error,
                                           CBankTransfer* transfer, int request, int last) = 0;
    virtual void OnQueryBankTransferWithLSHResult(const CAccountInfo* account, CZebError* error,
                                                  CBankTransfer* transfer, int request,
                                                  int last) = 0;
    virtual void OnBankTransferResult(const CAccountInfo* account, CZebError* error,
                                      CBankResult* result, int request) = 0;
    virtual void OnOrderChange(const CAccountInfo* account, CZebOrder* order) = 0;
    virtual void OnTrade(const CAccountInfo* account, CZebTrade* trade) = 0;
    virtual void OnNetworkStatus(const CAccountInfo* account, ZEB_CONNECTION connection,
                                 ZEB_CONNECTION_STATUS status) = 0;
    virtual void OnExchangeStatus(const CAccountInfo* account, const char* exchange,
                                  ZEB_EXCHANGE_STATUS status) = 0;
    virtual void OnSystemNotice(const CAccountInfo* account, const char* notice) = 0;
    virtual void OnSystemInit(const CAccountInfo* account, int value) = 0;
    virtual void OnLowMemory() = 0;
    virtual void OnError(const CAccountInfo* account, CZebError* error) = 0;
    virtual void OnUpdateOrderList(const CAccountInfo* account) = 0;
    virtual void OnUpdateTradeList(const CAccountInfo* account) = 0;
    virtual void OnUpdatePositionList(const CAccountInfo* account) = 0;
    virtual void OnUpdatePositionDetailList(const CAccountInfo* account) = 0;
    virtual void OnUpdatePositionGroupList(const CAccountInfo* account) = 0;
    virtual void OnStopProfitLossMsg(const CAccountInfo* account, const char* exchange,
                                     const char* contract, double price, int value) = 0;
    virtual void OnChasePriceMsg(const CAccountInfo* account, const char* exchange,
                                 const char* contract, ChasePrice_STATUS status, unsigned char kind,
                                 double price, int value) = 0;
    virtual void OnCombinationMsg(const char* groupKey, unsigned char kind) = 0;
    virtual void OnUpdateChasePriceList() = 0;
    virtual void OnResult_WithReturnData(int function, const CAccountInfo* account,
                                         CZebError* error, const char* text) = 0;
    virtual void OnHeartRequestResult(const CAccountInfo* account, CZebError* error,
                                      CHeartRequestResult* result, int request) = 0;

    // The host's side: windows, quotes, the current contract.
    virtual void OnSize(int x, int y, int w, int h, unsigned int window) = 0;
    virtual void OnCodeListChanged() = 0;
    virtual void OnDestroyWindow(unsigned int window) = 0;
    virtual void ShowWindow(unsigned int command, unsigned int window) = 0;
    virtual void OnDyn(unsigned int market, int code, const JSDyn1* quote) = 0;
    /// Fills `list` with the packed keys of wanted quotes; tells how many.
    virtual int GetStkList(unsigned int* list, int capacity) = 0;
    virtual void SetFrameWnd(HWND frame) = 0;
    virtual void OnRefresh() = 0;
    virtual void CurStkChanged(unsigned short market, unsigned short code, unsigned int window) = 0;
    /// The panel's window; 0xFFFFFFFF before Create.
    virtual unsigned int CreatePanel(int x, int y, int w, int h, HWND parent) = 0;
    virtual int Create(int x, int y, int w, int h, HWND parent) = 0;
    virtual void gMouseDown(POINT point) = 0;
    virtual void Close() = 0;
    virtual void LockScreen(int lock) = 0;
    virtual void CodeTableChanged(unsigned short market) = 0;
    virtual CWnd* GetMainDlg() = 0;
    virtual CWnd* GetMenuCtrl(int& unused) = 0;
    virtual void ShowWindow_Script(int page, int command) = 0;
    virtual HWND CreateConditionOrderDlg(HWND target) = 0;
    virtual CWnd* GetConditionParentDlg() = 0;

protected:
    ~CBaseUI() = default;
};
