#include "tests/orderentry/pages/order_page_frame.h"

#include <stdexcept>

#include "platform/text/bounded_text.h"
#include "plugin/contract/messages.h"

namespace tests {

OrderPageTest::OrderPageTest() {
    g_bNeedShowStopLossAndProfit = 1;
    g_nUseProfile = 0;
    g_dAvailable = 0;
    core_.contracts = {MakeContract("Au100g", "GT-T", 2, 0.01),
                       MakeContract("Au(T+D)", "GT-T", 2, 0.01),
                       MakeContract("Ag99.99", "GT-S", 1, 0.5)};
    text::CopyText(core_.login_account.szAccount, "8001");
    host_.AddSymbol("Au100g", 12, 7, 2);
    au_ = static_cast<unsigned>(host_.AddSymbol("Au(T+D)", 12, 1, 2));
    spot_ = static_cast<unsigned>(host_.AddSymbol("Ag99.99", 12, 3, 1));
    host_.SetQuote(au_, Book());
    host_.SetQuote(spot_, Book());
    page_.MoveWindow(50, 50, 900, 420);
    base_.Create(CGoldBSBaseDlg::IDD, &page_);
    base_.MoveWindow(0, 0, 900, 420);
    base_.ShowWindow(SW_SHOW);
    Order().Connect(&lists_, nullptr, &stops_);
    base_.LoadContracts();
    platform::testing::Pump();
    core_.ForgetCalls();
    host_.TakeCalls();
}

OrderPageTest::~OrderPageTest() {
    base_.DestroyWindow();
    CContractManager::ClearContracts();
    g_mapContractMargin.clear();
    g_nUseProfile = 0;
    g_dAvailable = 0;
    g_hFrameWnd = nullptr;
}

CZebContract OrderPageTest::MakeContract(const char* code, const char* market, int digits,
                                         double tick) {
    CZebContract contract{};
    text::CopyText(contract.szExchange, "SGE");
    text::CopyText(contract.szContract, code);
    text::CopyText(contract.szMarket, market);
    contract.nPriceDigits = digits;
    contract.dPriceTick = tick;
    return contract;
}

JSDyn1 OrderPageTest::Book() {
    JSDyn1 quote{};
    quote.dPreClose = 299.00;
    quote.dLast = 300.01;
    quote.fUpperLimit = 330.0F;
    quote.fLowerLimit = 270.0F;
    for (int i = 0; i < 5; ++i) {
        quote.dAsk[i] = 300.02 + 0.01 * i;
        quote.nAskVolume[i] = 5;
        quote.dBid[i] = 300.00 - 0.01 * i;
        quote.nBidVolume[i] = 6;
    }
    return quote;
}

CWnd& OrderPageTest::Inner(int id) {
    for (HWND child = ::GetWindow(Order(), GW_CHILD); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT)) {
        if (HWND inner = ::GetDlgItem(child, id)) return *CWnd::FromHandle(inner);
    }
    throw std::runtime_error("no such composite");
}

std::string OrderPageTest::Text(int id) {
    char text[64] = {};
    Order().GetDlgItemText(id, text, sizeof text);
    return text;
}

void OrderPageTest::Press(int id) { platform::testing::Click(Control(id)); }

void OrderPageTest::UserSelects(int item) {
    ::SetFocus(Control(CGoldBsDlg::kContract));
    ::SendMessageA(Control(CGoldBsDlg::kContract), CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    for (int i = 0; i <= item; ++i) platform::testing::Key(VK_DOWN);
}

void OrderPageTest::TypePrice(const char* text) {
    Inner(CGoldBsDlg::kPrice).SetFocus();
    platform::testing::PumpFor(60);
    Inner(CGoldBsDlg::kPrice).SendMessage(EM_SETSEL, 0, -1);
    platform::testing::Type(text);
}

void OrderPageTest::TypeVolume(const char* text) {
    Inner(CGoldBsDlg::kVolume).SetFocus();
    platform::testing::PumpFor(120);
    Inner(CGoldBsDlg::kVolume).SendMessage(EM_SETSEL, 0, -1);
    platform::testing::Type(text);
}

void OrderPageTest::SendRow(const char* contract, char direction, int group, int volume,
                            int frozen) {
    PositionGroup row{};
    row.nGroupID = group;
    text::CopyText(row.szContract, contract);
    row.cDirection = direction;
    row.nVolume = volume;
    row.nFrozen = frozen;
    ::SendMessageA(lists_.row_receiver, WM_POSITION_ROW, reinterpret_cast<WPARAM>(&row), 0);
    platform::testing::Pump();
}

std::string OrderPageTest::Entered() {
    std::string entered =
        ContractText() + " " + InnerText(CGoldBsDlg::kPrice) + " " + InnerText(CGoldBsDlg::kVolume);
    for (const int id : {CGoldBsDlg::kBuy, CGoldBsDlg::kSell, CGoldBsDlg::kOpen, CGoldBsDlg::kClose,
                         CGoldBsDlg::kNet}) {
        entered += Checked(id) ? " 1" : " 0";
    }
    return entered;
}

CInsertOrderRequest OrderPageTest::Expected(const char* contract, char direction, char offset,
                                            int volume, const char* price, int market, int code) {
    CInsertOrderRequest request{};
    text::CopyText(request.szExchange, "SGE");
    text::CopyText(request.szContract, contract);
    text::CopyText(request.szPrice, price);
    text::CopyText(request.szNote, "手动下单");
    request.cDirection = direction;
    request.cOffset = offset;
    request.cHedge = '1';
    request.cOrderType = '0';
    request.nVolume = volume;
    request.stAccount = core_.login_account;
    request.wMarket = static_cast<std::uint16_t>(market);
    request.wCode = static_cast<std::uint16_t>(code);
    return request;
}

}  // namespace tests
