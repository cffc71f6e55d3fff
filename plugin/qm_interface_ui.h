#pragma once

#include <atomic>

#include "plugin/contract/base_ui.h"
#include "plugin/contract/host_function.h"
#include "plugin/export.h"

class CMainDlg;

/// The front end of a host. A host makes one and drives it in this order: SetCallBack and
/// SetUICallBack, SetFrameWnd, Create, CreatePanel for each panel; at the end Close,
/// OnDestroyWindow(0) and the destructor. What base_ui.h tells of an operation holds here.
///
/// Threads: the operations that bring answers and pushes of the core (OnLoginResult to
/// OnHeartRequestResult) may be called from any thread. They touch no window: they copy what they
/// are given, post it to the main dialog and return, so that the caller's records are free again.
/// Only two wait for the windows' thread: OnQuerySettleResult, and OnLoginPrompt at the end of the
/// initial load; OnLoginPrompt waits for the user too when it has an error to show. Until Create
/// they do nothing, and before the login only those pass that a login needs. All other operations
/// belong to the windows' thread, and none may be called from within a window that it destroys.
///
/// The windows of one front end exist at a time: a process with two such objects calls Create on
/// one of them.
///
/// Outside of the library the operations are called through a CBaseUI alone: only what is marked
/// leaves it, and the table. The destructor is not in the table, which hosts know entry by entry;
/// as nobody can derive from the class, none is missed.
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor)
class SYMBOL_CLASS QmInterfaceUI final : public CBaseUI {
public:
    QMGOLDTRADEUI_API QmInterfaceUI();
    /// A copy has the core of the original, but no windows: those have one owner.
    QMGOLDTRADEUI_API QmInterfaceUI(const QmInterfaceUI& other);
    QMGOLDTRADEUI_API QmInterfaceUI& operator=(const QmInterfaceUI& other);
    /// Destroys the windows that are left.
    QMGOLDTRADEUI_API ~QmInterfaceUI();

    /// Stores the host's function; null takes it away. May come before there is an object.
    QMGOLDTRADEUI_API static void SetCallBack(HostFunction function);

    void SetUICallBack(CUICallBack* core) override;

    // A null error is a success. A null login result is a failure.
    void OnLoginResult(const CAccountInfo* account, CZebError* error, CLoginResult* result,
                       int request) override;
    void OnQueryNoticeResult(const CAccountInfo* account, CZebError* error, const char* notice,
                             int request) override;
    void OnQuerySettleResult(const CAccountInfo* account, CZebError* error,
                             CQuerySettleResult* result, int request, int last) override;
    void OnQueryCFMMCResult(const CAccountInfo* account, CZebError* error,
                            CQueryCFMMCResult* result, int request) override;
    void OnLoginPrompt(const CAccountInfo* account, ZEB_LOGIN_PROMPT prompt,
                       CZebError* error) override;
    void OnBatchQueryResult(const CAccountInfo* account, CZebError* error, int request) override;
    void OnQueryAccountResult(const CAccountInfo* account, CZebError* error,
                              CZebAccountSummary* summary, int request,
                              const StepDataMap& steps) override;
    void OnQueryMarginRateResult(const CAccountInfo* account, CZebError* error,
                                 const char* exchange, const char* contract, int request) override;
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
    void OnQueryBankTransferWithLSHResult(const CAccountInfo* account, CZebError* error,
                                          CBankTransfer* transfer, int request, int last) override;
    void OnBankTransferResult(const CAccountInfo* account, CZebError* error, CBankResult* result,
                              int request) override;
    void OnOrderChange(const CAccountInfo* account, CZebOrder* order) override;
    void OnTrade(const CAccountInfo* account, CZebTrade* trade) override;
    void OnNetworkStatus(const CAccountInfo* account, ZEB_CONNECTION connection,
                         ZEB_CONNECTION_STATUS status) override;
    void OnExchangeStatus(const CAccountInfo* account, const char* exchange,
                          ZEB_EXCHANGE_STATUS status) override;
    void OnSystemNotice(const CAccountInfo* account, const char* notice) override;
    void OnSystemInit(const CAccountInfo* account, int value) override;
    void OnLowMemory() override;
    void OnError(const CAccountInfo* account, CZebError* error) override;
    void OnUpdateOrderList(const CAccountInfo* account) override;
    void OnUpdateTradeList(const CAccountInfo* account) override;
    void OnUpdatePositionList(const CAccountInfo* account) override;
    /// Nothing: the pages hear of changed lots by the position list and by trades.
    void OnUpdatePositionDetailList(const CAccountInfo* account) override;
    void OnUpdatePositionGroupList(const CAccountInfo* account) override;
    void OnStopProfitLossMsg(const CAccountInfo* account, const char* exchange,
                             const char* contract, double price, int value) override;
    void OnChasePriceMsg(const CAccountInfo* account, const char* exchange, const char* contract,
                         ChasePrice_STATUS status, unsigned char kind, double price,
                         int value) override;
    void OnCombinationMsg(const char* groupKey, unsigned char kind) override;
    void OnUpdateChasePriceList() override;
    void OnResult_WithReturnData(int function, const CAccountInfo* account, CZebError* error,
                                 const char* text) override;
    void OnHeartRequestResult(const CAccountInfo* account, CZebError* error,
                              CHeartRequestResult* result, int request) override;

    // A window that is unknown is ignored.
    void OnSize(int x, int y, int w, int h, unsigned int window) override;
    void OnCodeListChanged() override;
    void OnDestroyWindow(unsigned int window) override;
    void ShowWindow(unsigned int command, unsigned int window) override;
    void OnDyn(unsigned int market, int code, const JSDyn1* quote) override;
    int GetStkList(unsigned int* list, int capacity) override;
    void SetFrameWnd(HWND frame) override;
    void OnRefresh() override;
    void CurStkChanged(unsigned short market, unsigned short code, unsigned int window) override;
    /// 0xFFFFFFFF also when the panel cannot be created. The rectangle is not used: a panel has no
    /// size until OnSize gives it one.
    unsigned int CreatePanel(int x, int y, int w, int h, HWND parent) override;
    /// Answers 1, whatever came of it. Windows of a former Create go first.
    int Create(int x, int y, int w, int h, HWND parent) override;
    void gMouseDown(POINT point) override;
    /// Nothing without a session: hides the windows, logs out, takes the panels back to their
    /// login.
    void Close() override;
    void LockScreen(int lock) override;
    void CodeTableChanged(unsigned short market) override;
    CWnd* GetMainDlg() override;
    CWnd* GetMenuCtrl(int& unused) override;
    void ShowWindow_Script(int page, int command) override;
    HWND CreateConditionOrderDlg(HWND target) override;
    CWnd* GetConditionParentDlg() override;

private:
    bool HasMain() const { return m_pMainDlg.load() != nullptr; }
    bool HasMainAndLogin() const;
    /// The main dialog while its window is alive, else null.
    CMainDlg* AliveMain() const;
    void DestroyWindows();
    void DeleteMain();

    CUICallBack* m_pUICallBack = nullptr;         ///< the host's
    std::atomic<CMainDlg*> m_pMainDlg = nullptr;  ///< owned; other threads only test it
    int m_nLock = 0;                              ///< as LockScreen was told last
};
