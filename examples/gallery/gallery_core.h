#pragma once

#include "host/skin/skin_bitmaps.h"
#include "plugin/contract/ui_callback.h"

namespace gallery {

/// A core that knows the skin and nothing else: no session, no lists, every request in vain.
class GalleryCore : public CUICallBack {
public:
    explicit GalleryCore(int scale) : skin_(scale) {}
    virtual ~GalleryCore() = default;

    HBITMAP GetSkinBitmap(int group, int index) override { return skin_.Get(group, index); }
    COLORREF GetSkinColor() override;
    void GetPanelBackColor(COLORREF* color) override;

    int GetPositionDetailList(PositionGroup*, int) override { return 0; }
    int GetPositionGroupList(CGroupHead*, int) override { return 0; }
    int GetPositionGroupDetail(const char*, CGroupHead*) override { return 0; }
    int GetPositionGroupLegs(const char*, PositionGroup*, int) override { return 0; }
    void SetPresetStop(const char*, const char*, CPresetStop*) override {}
    void GetPresetStop(const char*, const char*, CPresetStop*) override {}
    void GetGroupStop(int, CPresetStop*) override {}
    void SetGroupStop(int, CPresetStop*) override {}
    void InsertOrder(CInsertOrderRequest*, CTradeParam*, unsigned char, int) override {}
    void StartStopMonitor() override {}
    int IsLoggedIn() override { return 0; }
    double GetGroupFloatingProfit(const char*) override { return 0; }
    void QueryInitial1() override {}
    void QueryInitial3() override {}
    void QueryInitial2() override {}
    void GetTradeParam(CTradeParam*) override {}
    void SetTradeParam(CTradeParam*) override {}
    void SetLoginRoute(int*, int) override {}
    void Logout() override {}
    void StartSession() override {}
    void RefreshOrders() override {}
    void QueryTradeByDate(int, int, int) override {}
    void QueryAccount(int) override {}
    void QueryMaxVolume(CQueryMaxVolume*, int) override {}
    void CancelOrder(CZebOrder*, const char*, const char*, int) override {}
    void ChangePassword(CChangePasswordRequest*, int) override {}
    void QueryBankBalance(CBankRequest*, int) override {}
    void QueryBankTransfer(int) override {}
    void BankTransfer(CBankRequest*, int) override {}
    int GetContractList(CZebContract*, int) override { return 0; }
    int GetOrderList(CZebOrder*, int) override { return 0; }
    int GetTradeList(CZebTrade*, int) override { return 0; }
    int GetPositionList(CZebPosition*, int) override { return 0; }
    int GetBankList(CZebBank*, int) override { return 0; }
    void ShowStatusText(const char*, int) override {}
    void GetPromptText(int, char*, int) override {}
    void ShowLoginProgress(int, const char*) override {}
    void GetLoginAccount(CAccountInfo*) override {}
    void BeginTrading() override {}
    void SetAccountDisplayName(const char*, int) override {}
    void ApplyTradeParam(CTradeParam*) override {}
    void SetFundsText(const char*, int) override {}
    int GetContractUnit(int, const char*, const char*, int, int) override { return 0; }
    void Login(const char*, const char*, const char*, const CServerEntry*) override {}
    void SendFunctionRequest(int, const char*) override {}
    void NotifyEvent(int, WPARAM, LPARAM) override {}
    void NotifyInitDone(int) override {}
    void ForwardEvent(UINT, WPARAM, LPARAM) override {}
    void GetLoginResult(CLoginResult*) override {}
    void ReportSettlementText(int, int, const char*) override {}

private:
    skin::SkinBitmaps skin_;
};

}  // namespace gallery
