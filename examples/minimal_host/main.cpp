// The smallest host: a core that knows no account, a frame window, the main window and one panel.
// With any argument ("--once") it opens, paints and closes again.

#include "platform/system.h"
#include "plugin/contract/ui_callback.h"
#include "plugin/qm_interface_ui.h"

namespace {

constexpr int kPanelWidth = 220;

/// Nobody is logged in, so nearly every operation answers nothing.
class EmptyCore final : public CUICallBack {
public:
    virtual ~EmptyCore() = default;

private:
    HBITMAP GetSkinBitmap(int, int) override { return nullptr; }
    COLORREF GetSkinColor() override { return RGB(0xF3, 0xF5, 0xF8); }
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
    void GetPromptText(int, char* buffer, int) override { *buffer = '\0'; }
    void ShowLoginProgress(int, const char*) override {}
    void GetLoginAccount(CAccountInfo*) override {}
    void BeginTrading() override {}
    void SetAccountDisplayName(const char*, int) override {}
    void ApplyTradeParam(CTradeParam*) override {}
    void SetFundsText(const char*, int) override {}
    void GetPanelBackColor(COLORREF* color) override { *color = RGB(0x29, 0x29, 0x29); }
    int GetContractUnit(int, const char*, const char*, int, int) override { return 1; }
    void Login(const char*, const char*, const char*, const CServerEntry*) override {}
    void SendFunctionRequest(int, const char*) override {}
    void NotifyEvent(int, WPARAM, LPARAM) override {}
    void NotifyInitDone(int) override {}
    void ForwardEvent(UINT, WPARAM, LPARAM) override {}
    void GetLoginResult(CLoginResult*) override {}
    void ReportSettlementText(int, int, const char*) override {}
};

ULONG_PTR CALLBACK AnswerNothing(UINT message, WPARAM, LPARAM) {
    return message == HOST_FIND_SYMBOL || message == HOST_GET_SYMBOL ? 1 : 0;
}

LRESULT CALLBACK OnFrameMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_CLOSE) return DefWindowProcA(window, message, wParam, lParam);
    PostQuitMessage(0);
    return 0;
}

}  // namespace

int main(int argc, char**) {
    WNDCLASSA frame_class{};
    frame_class.lpfnWndProc = OnFrameMessage;
    frame_class.lpszClassName = "MinimalHost";
    RegisterClassA(&frame_class);
    const HWND frame = CreateWindowA("MinimalHost", "MinimalHost", WS_OVERLAPPEDWINDOW, 0, 0, 1000,
                                     700, nullptr, nullptr, nullptr, nullptr);
    RECT room;
    GetClientRect(frame, &room);
    EmptyCore core;
    QmInterfaceUI::SetCallBack(AnswerNothing);
    QmInterfaceUI front_end;
    CBaseUI& ui = front_end;
    ui.SetUICallBack(&core);
    ui.SetFrameWnd(frame);
    ui.Create(0, 0, room.right - kPanelWidth, room.bottom, frame);
    const unsigned panel = ui.CreatePanel(0, 0, 0, 0, frame);
    ui.OnSize(room.right - kPanelWidth, 0, kPanelWidth, room.bottom, panel);
    ui.ShowWindow(SW_SHOW, panel);
    ShowWindow(frame, SW_SHOW);
    UpdateWindow(frame);
    const bool complete = ui.GetMainDlg() && panel != 0xFFFFFFFF;
    if (argc > 1) PostMessageA(frame, WM_CLOSE, 0, 0);

    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0)) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    ui.Close();
    ui.OnDestroyWindow(0);
    DestroyWindow(frame);
    return complete ? 0 : 1;
}
