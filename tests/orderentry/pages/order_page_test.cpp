#include <gmock/gmock.h>

#include <algorithm>

#include "platform/text/bounded_text.h"
#include "platform/text/gbk.h"
#include "plugin/contract/messages.h"
#include "tests/orderentry/pages/order_page_frame.h"

namespace tests {
namespace {

using platform::testing::AnswerNextBox;
using platform::testing::Key;
using platform::testing::Pump;
using platform::testing::SeenBox;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kFirst = 0;  // Au100g
constexpr int kAu = 1;

class OrderPage : public OrderPageTest {
protected:
    /// Types into the contract box as a person who has just come there.
    void TypeContract(const char* text) {
        const HWND box = Control(CGoldBsDlg::kContract);
        ::SetFocus(box);
        ::SendMessageA(box, CB_SETEDITSEL, 0, MAKELPARAM(0, -1));
        platform::testing::Type(text);
    }
    std::string SelectedTail() {
        const LRESULT range = ::SendMessageA(Control(CGoldBsDlg::kContract), CB_GETEDITSEL, 0, 0);
        const std::string text = ContractText();
        return text.substr(LOWORD(range), HIWORD(range) - LOWORD(range));
    }
    std::string ShownContract() {
        return Order().Contract() != nullptr ? Order().Contract()->szContract : "";
    }
    static std::string TextOfBox(const SeenBox& box) {
        return text::GbkFromUtf8(box.title + "|" + box.text);
    }
    std::string BoxAfterSubmit(int answer = IDOK) {
        SeenBox box;
        AnswerNextBox(answer, &box);
        Press(CGoldBsDlg::kSubmit);
        EXPECT_TRUE(box.shown);
        return TextOfBox(box);
    }
    void SubmitUnasked() {
        core_.trade_param.bNoOrderConfirm = 1;
        Press(CGoldBsDlg::kSubmit);
    }
    std::string Maximum() { return Text(CGoldBsDlg::kMaxVolume); }
    void ExpectSent(const CInsertOrderRequest& expected) {
        ASSERT_EQ(core_.inserts.size(), 1U);
        EXPECT_EQ(std::memcmp(&core_.inserts[0].request, &expected, sizeof expected), 0)
            << testing_support::Readable(core_.CallsOf("InsertOrder").back());
    }
};

TEST_F(OrderPage, CompletesTheContractToTheLongestCode) {
    TypeContract("Au");
    EXPECT_EQ(ContractText(), "Au(T+D)");
    EXPECT_EQ(SelectedTail(), "(T+D)");
    EXPECT_EQ(ShownContract(), "Au(T+D)");
    platform::testing::Type("1");
    EXPECT_EQ(ContractText(), "Au100g");
    EXPECT_EQ(SelectedTail(), "00g");
    EXPECT_EQ(ShownContract(), "Au100g");
    TypeContract("Au100g");
    EXPECT_EQ(SelectedTail(), "Au100g");
}

TEST_F(OrderPage, LosesItsContractWithTheText) {
    for (const char* text : {"Aux", "\b"}) {
        core_.preset_stops[{"SGE", "Au(T+D)"}].dStopTicks = 5;
        HostSelects("Au(T+D)");
        ASSERT_TRUE(Checked(CGoldBsDlg::kStops));
        TypeContract(text);
        EXPECT_EQ(ContractText(), "") << text;
        EXPECT_EQ(ShownContract(), "") << text;
        EXPECT_FALSE(Checked(CGoldBsDlg::kStops)) << text;
    }
}

TEST_F(OrderPage, AChosenContractStartsATicketOfItsOwn) {
    HostSelects("Au100g");
    Press(CGoldBsDlg::kSell);
    Press(CGoldBsDlg::kClose);
    Press(CGoldBsDlg::kNet);
    g_hFrameWnd = page_;
    page_.messages.clear();
    host_.TakeCalls();
    UserSelects(kFirst + 1);
    EXPECT_GBK_EQ(Entered(), "Au(T+D) 对手价 1 1 0 1 0 0");
    EXPECT_TRUE(Enabled(CGoldBsDlg::kOpen));
    EXPECT_THAT(page_.messages, testing::Contains(WM_FRAME_NOTICE));
    EXPECT_THAT(host_.CallsOf("HOST_SUBSCRIBE"), testing::SizeIs(2));
    // The host's own choice is not told back.
    host_.TakeCalls();
    HostSelects("Ag99.99");
    EXPECT_EQ(ShownContract(), "Ag99.99");
    EXPECT_THAT(host_.CallsOf("HOST_SUBSCRIBE"), IsEmpty());
    UserSelects(kFirst);
    EXPECT_THAT(host_.CallsOf("HOST_SUBSCRIBE"), testing::SizeIs(1));
}

TEST_F(OrderPage, ASelectedPositionSelectsItsContractOnce) {
    const auto select = [&](const char* code) {
        Order().PostMessage(WM_POSITION_CONTRACT, reinterpret_cast<WPARAM>(code));
        Pump();
    };
    select("Au(T+D)");
    EXPECT_EQ(ShownContract(), "Au(T+D)");
    EXPECT_THAT(host_.CallsOf("HOST_SUBSCRIBE"), testing::SizeIs(1));
    Press(CGoldBsDlg::kSell);
    select("Au(T+D)");
    EXPECT_TRUE(Checked(CGoldBsDlg::kSell));
    select("au(t+d)");
    EXPECT_EQ(ShownContract(), "Au(T+D)");
}

TEST_F(OrderPage, SpotContractsHaveDirectionsOnly) {
    HostSelects("Ag99.99");
    EXPECT_FALSE(Visible(CGoldBsDlg::kNet));
    EXPECT_FALSE(Enabled(CGoldBsDlg::kOpen));
    EXPECT_FALSE(Enabled(CGoldBsDlg::kClose));
    EXPECT_GBK_EQ(Text(CGoldBsDlg::kMaxVolumeLabel), "最大可买:");
    Press(CGoldBsDlg::kSell);
    EXPECT_TRUE(Checked(CGoldBsDlg::kClose));
    EXPECT_GBK_EQ(Text(CGoldBsDlg::kMaxVolumeLabel), "最大可卖:");
    EXPECT_GBK_EQ(Text(CGoldBsDlg::kSubmit), "卖出");
    Press(CGoldBsDlg::kBuy);
    EXPECT_TRUE(Checked(CGoldBsDlg::kOpen));
    HostSelects("Au(T+D)");
    EXPECT_TRUE(Visible(CGoldBsDlg::kNet));
    EXPECT_GBK_EQ(Text(CGoldBsDlg::kMaxVolumeLabel), "最大可开:");
    Press(CGoldBsDlg::kClose);
    EXPECT_GBK_EQ(Text(CGoldBsDlg::kMaxVolumeLabel), "最大可平:");
    EXPECT_GBK_EQ(Text(CGoldBsDlg::kAskMaxVolume), "可平");
    EXPECT_EQ(InnerText(CGoldBsDlg::kVolume), "");
}

TEST_F(OrderPage, RefusesInTheOrderOfTheTicketAndSendsNothing) {
    EXPECT_GBK_EQ(BoxAfterSubmit(), "提示|请选择交易合约");
    HostSelects("Au(T+D)");
    core_.ForgetCalls();
    const struct {
        const char* volume;
        const char* price;
        const char* box;
    } kCases[] = {
        {"0", "0", "提示|错误的下单手数"},
        {"", "300.5", "提示|错误的下单手数"},
        {"1", "0", "提示|0没有数据"},
        {"1", "0.00001", "提示|0.00001没有数据"},
        {"1", "", "提示|没有数据"},
        {"1", "市价", "提示|市价没有数据"},
        {"1", "99999999999999", "提示|99999999999999没有数据"},
    };
    for (const auto& [volume, price, box] : kCases) {
        Inner(CGoldBsDlg::kVolume).SetWindowText(volume);
        Inner(CGoldBsDlg::kPrice).SetWindowText(price);
        Press(CGoldBsDlg::kBuy);
        Inner(CGoldBsDlg::kVolume).SetWindowText(volume);
        const std::string before = Entered();
        EXPECT_GBK_EQ(BoxAfterSubmit(), box);
        EXPECT_GBK_EQ(Entered(), before) << box;
    }
    EXPECT_THAT(core_.inserts, IsEmpty());
}

TEST_F(OrderPage, AWrongVolumeGetsTheFocus) {
    HostSelects("Au(T+D)");
    Inner(CGoldBsDlg::kVolume).SetWindowText("0");
    BoxAfterSubmit();
    EXPECT_EQ(::GetFocus(), Inner(CGoldBsDlg::kVolume).m_hWnd);
}

TEST_F(OrderPage, SendsWhatWasEnteredOnceItIsConfirmed) {
    UserSelects(kAu);
    Press(CGoldBsDlg::kSell);
    Press(CGoldBsDlg::kClose);
    TypePrice("301.237");
    TypeVolume("007");
    core_.ForgetCalls();
    BoxAfterSubmit();
    ExpectSent(Expected("Au(T+D)", '1', '1', 7, "301.24", 12, 1));
    EXPECT_EQ(core_.inserts[0].price_type, 6);
    EXPECT_EQ(core_.inserts[0].source, 1);
    // Confirmed or not, the visible volume stays.
    EXPECT_EQ(InnerText(CGoldBsDlg::kVolume), "007");
    std::vector<std::string> names;
    for (const std::string& call : core_.Calls()) names.push_back(call.substr(0, call.find('(')));
    EXPECT_THAT(names, ElementsAre("GetTradeParam", "GetTradeParam", "GetLoginAccount",
                                   "GetTradeParam", "InsertOrder"));
}

TEST_F(OrderPage, ACancelledQuestionSendsNothing) {
    HostSelects("Au(T+D)");
    TypeVolume("3");
    const std::string before = Entered();
    for (const int profile : {1, 0}) {
        g_nUseProfile = profile;
        Order().SetDlgItemText(CGoldBsDlg::kVolume, "9");
        BoxAfterSubmit(IDCANCEL);
        EXPECT_THAT(core_.inserts, IsEmpty());
        EXPECT_GBK_EQ(Entered(), before);
        // Not the visible volume: the hidden edit below it.
        EXPECT_EQ(Text(CGoldBsDlg::kVolume), profile ? "9" : "");
    }
}

TEST_F(OrderPage, SpotSellsCloseAndWordsBecomePrices) {
    HostSelects("Ag99.99");
    Press(CGoldBsDlg::kSell);
    TypeVolume("2");
    SubmitUnasked();
    ExpectSent(Expected("Ag99.99", '1', '1', 2, "300.0", 12, 3));
    EXPECT_EQ(core_.inserts[0].price_type, 0);
}

TEST_F(OrderPage, LeavesTheOffsetToTheNetPosition) {
    HostSelects("Au(T+D)");
    Press(CGoldBsDlg::kClose);
    Press(CGoldBsDlg::kNet);
    EXPECT_FALSE(Enabled(CGoldBsDlg::kOpen));
    EXPECT_FALSE(Enabled(CGoldBsDlg::kClose));
    TypeVolume("1");
    SubmitUnasked();
    CInsertOrderRequest net = Expected("Au(T+D)", '0', '\0', 1, "300.02", 12, 1);
    std::memset(net.szNote, 0, sizeof net.szNote);
    text::CopyText(net.szNote, "净仓");
    ExpectSent(net);
    EXPECT_EQ(core_.inserts[0].source, 5);
    Press(CGoldBsDlg::kNet);
    EXPECT_TRUE(Enabled(CGoldBsDlg::kOpen));
}

TEST_F(OrderPage, ARowIsClosedByTheOtherSideAndItsLotGoesAlong) {
    HostSelects("Au100g");
    TypeVolume("4");
    SendRow("Au(T+D)", '0', 77, 9, 2);
    EXPECT_GBK_EQ(Entered(), "Au(T+D) 对手价 1 0 1 0 1 0");
    EXPECT_EQ(Maximum(), "7");
    EXPECT_EQ(Text(CGoldBsDlg::kVolume), "7");
    SubmitUnasked();
    CInsertOrderRequest closing = Expected("Au(T+D)", '1', '1', 1, "300.00", 12, 1);
    closing.nGroupID = 77;
    ExpectSent(closing);
    // The hidden edit is emptied, and the link to the lot is used once.
    EXPECT_EQ(Text(CGoldBsDlg::kVolume), "");
    SubmitUnasked();
    EXPECT_EQ(core_.inserts[1].request.nGroupID, 0);
    SendRow("Pt99.95", '0', 78, 1, 0);
    EXPECT_EQ(ShownContract(), "Au(T+D)");
    EXPECT_EQ(Text(CGoldBsDlg::kVolume), "");
}

TEST_F(OrderPage, OptionsResetPriceAndDirectionAfterAnOrder) {
    core_.trade_param.nDefaultPrice = 7;
    HostSelects("Au(T+D)");
    for (const int reset : {0, 1}) {
        core_.trade_param.bResetPrice = reset;
        core_.trade_param.bResetDirection = static_cast<std::uint8_t>(reset);
        Press(CGoldBsDlg::kSell);
        Press(CGoldBsDlg::kClose);
        TypePrice("300");
        TypeVolume("1");
        SubmitUnasked();
        EXPECT_GBK_EQ(InnerText(CGoldBsDlg::kPrice), reset ? "挂单价超一个价位" : "300");
        EXPECT_EQ(Checked(CGoldBsDlg::kBuy), reset != 0);
        EXPECT_EQ(Checked(CGoldBsDlg::kOpen), reset != 0);
    }
    EXPECT_EQ(core_.inserts.size(), 2U);
}

TEST_F(OrderPage, ContractsMayGoWhileTheQuestionIsOpen) {
    HostSelects("Au(T+D)");
    TypeVolume("1");
    core_.trade_param.bResetPrice = 1;
    static CGoldBSBaseDlg* container = nullptr;
    container = &base_;
    platform::testing::WhenIdle([](void*) { container->LoadContracts(); }, nullptr);
    core_.contracts = {MakeContract("mAu(T+D)", "GT-T", 2, 0.01)};
    BoxAfterSubmit();
    ExpectSent(Expected("Au(T+D)", '0', '0', 1, "300.02", 12, 1));
    EXPECT_EQ(ShownContract(), "");
    EXPECT_EQ(ContractText(), "");
    EXPECT_GBK_EQ(BoxAfterSubmit(), "提示|请选择交易合约");
    EXPECT_EQ(core_.inserts.size(), 1U);
}

TEST_F(OrderPage, NothingIsSentForAPageThatHasGone) {
    HostSelects("Au(T+D)");
    TypeVolume("1");
    platform::testing::WhenIdle(
        [](void* page) { static_cast<CGoldBSBaseDlg*>(page)->DestroyWindow(); }, &base_);
    AnswerNextBox(IDOK);
    Press(CGoldBsDlg::kSubmit);
    EXPECT_THAT(core_.inserts, IsEmpty());
}

TEST_F(OrderPage, ShowsHowMuchCanBeTraded) {
    g_mapContractMargin["Au(T+D)"] = 0.5;
    g_dAvailable = 1000;
    lists_.loss = -249.9;
    HostSelects("Au(T+D)");
    EXPECT_EQ(Maximum(), "5");
    TypePrice("100");
    EXPECT_EQ(Maximum(), "15");
    // An unusable price leaves the display alone.
    Inner(CGoldBsDlg::kPrice).SetWindowText("0");
    EXPECT_EQ(Maximum(), "15");
    Press(CGoldBsDlg::kSell);
    Press(CGoldBsDlg::kClose);
    EXPECT_EQ(Maximum(), "7");
    // A price that is left counts for opening, whatever the side.
    TypePrice("150");
    EXPECT_EQ(Maximum(), "7");
    ::SetFocus(Control(CGoldBsDlg::kSubmit));
    EXPECT_EQ(Maximum(), "10");
}

TEST_F(OrderPage, AsksTheCoreWithoutAMarginOfItsOwn) {
    HostSelects("Au(T+D)");
    ASSERT_EQ(core_.max_volume_queries.size(), 1U);
    const CQueryMaxVolume& query = core_.max_volume_queries[0];
    EXPECT_EQ(query.cDirection, '0');
    EXPECT_EQ(query.cOffset, '0');
    EXPECT_NEAR(query.dPrice, 300.02, 1e-6);
    EXPECT_EQ(Maximum(), "");
    core_.max_volume = 12;
    CQueryMaxVolumeResult answer = core_.MaxVolumeAnswer();
    Order().OnMaxVolumeResult(&answer);
    EXPECT_EQ(Maximum(), "12");
    answer.nMaxVolume = -3;
    Order().OnMaxVolumeResult(&answer);
    EXPECT_EQ(Maximum(), "0");
    answer.nMaxVolume = 99;
    Press(CGoldBsDlg::kSell);
    Order().OnMaxVolumeResult(&answer);
    EXPECT_EQ(Maximum(), "0");
    // A quote asks as long as nothing is shown.
    const std::size_t asked = core_.max_volume_queries.size();
    base_.OnQuote(au_, Book());
    EXPECT_EQ(core_.max_volume_queries.size(), asked);
    Order().SetDlgItemText(CGoldBsDlg::kMaxVolume, "");
    base_.OnQuote(spot_, Book());
    EXPECT_EQ(core_.max_volume_queries.size(), asked);
    base_.OnQuote(au_, Book());
    EXPECT_EQ(core_.max_volume_queries.size(), asked + 1);
}

TEST_F(OrderPage, StepsPricesAndVolumesByButtonsAndKeys) {
    HostSelects("Au(T+D)");
    const auto minus = [&](int id) {
        const CWnd* const composite = Inner(id).GetParent();
        platform::testing::Click(::GetDlgItem(*composite, CPriceEditEx::kMinus));
    };
    minus(CGoldBsDlg::kPrice);
    EXPECT_EQ(InnerText(CGoldBsDlg::kPrice), "300.01");
    EXPECT_EQ(Maximum(), "");
    Inner(CGoldBsDlg::kPrice).SetFocus();
    Key(VK_UP);
    Key(VK_UP);
    EXPECT_EQ(InnerText(CGoldBsDlg::kPrice), "300.03");
    Inner(CGoldBsDlg::kVolume).SetFocus();
    Key(VK_UP);
    EXPECT_EQ(InnerText(CGoldBsDlg::kVolume), "2");
    minus(CGoldBsDlg::kVolume);
    minus(CGoldBsDlg::kVolume);
    EXPECT_EQ(InnerText(CGoldBsDlg::kVolume), "1");
    base_.LoadContracts();
    minus(CGoldBsDlg::kPrice);
    EXPECT_EQ(InnerText(CGoldBsDlg::kPrice), "300.03");
}

TEST_F(OrderPage, EnterInTheVolumeMovesOnAndOnlyThenSends) {
    core_.trade_param.bNoOrderConfirm = 1;
    HostSelects("Au(T+D)");
    TypeVolume("1");
    Key(VK_RETURN);
    EXPECT_THAT(core_.inserts, IsEmpty());
    EXPECT_EQ(::GetFocus(), Control(CGoldBsDlg::kSubmit));
    Key(VK_RETURN);
    EXPECT_EQ(core_.inserts.size(), 1U);
    // From nowhere else does Enter send.
    for (const int id : {CGoldBsDlg::kContract, CGoldBsDlg::kSell, CGoldBsDlg::kOpen}) {
        ::SetFocus(Control(id));
        Key(VK_RETURN);
        Key(VK_ESCAPE);
    }
    Inner(CGoldBsDlg::kPrice).SetFocus();
    Key(VK_RETURN);
    EXPECT_EQ(core_.inserts.size(), 1U);
    EXPECT_TRUE(Order().IsWindowVisible());
}

TEST_F(OrderPage, TheTabKeyFollowsTheTicket) {
    HostSelects("Au(T+D)");
    Press(CGoldBsDlg::kSell);
    ::SetFocus(Control(CGoldBsDlg::kContract));
    std::vector<int> stops;
    for (int i = 0; i < 5; ++i) {
        Key(VK_TAB);
        stops.push_back(::GetDlgCtrlID(::GetFocus()));
    }
    EXPECT_THAT(stops, ElementsAre(CGoldBsDlg::kSell, CGoldBsDlg::kOpen, CGoldBsDlg::kPrice,
                                   CGoldBsDlg::kVolume, CGoldBsDlg::kSubmit));
    // Arrows reach the other choice.
    ::SetFocus(Control(CGoldBsDlg::kOpen));
    Key(VK_RIGHT);
    Key(VK_SPACE);
    EXPECT_TRUE(Checked(CGoldBsDlg::kClose));
}

TEST_F(OrderPage, ResetsTheTicket) {
    HostSelects("Au(T+D)");
    Press(CGoldBsDlg::kSell);
    Press(CGoldBsDlg::kNet);
    TypePrice("12");
    TypeVolume("5");
    Press(CGoldBsDlg::kReset);
    EXPECT_GBK_EQ(Entered(), "Au(T+D) 对手价  1 0 1 0 0");
    EXPECT_EQ(Maximum(), "");
    EXPECT_TRUE(Enabled(CGoldBsDlg::kClose));
}

TEST_F(OrderPage, TakesTheDefaultPriceOfTheParameters) {
    HostSelects("Au(T+D)");
    const char* const kTexts[] = {"对手价", "最新价",           "挂单价",
                                  "涨停价", "跌停价",           "",
                                  "",       "挂单价超一个价位", "挂单价超一个价位"};
    for (std::size_t row = 0; row < std::size(kTexts); ++row) {
        core_.trade_param.nDefaultPrice = static_cast<std::uint8_t>(row);
        Order().ReloadSettings();
        EXPECT_GBK_EQ(InnerText(CGoldBsDlg::kPrice), kTexts[row]) << row;
    }
}

TEST_F(OrderPage, AClickedLevelBecomesThePrice) {
    HostSelects("Au(T+D)");
    Pump();
    for (const auto& text : platform::testing::SeenTexts(base_.FiveLevels())) {
        if (text.utf8 != "300.04") continue;
        platform::testing::Click(base_.FiveLevels(), text.rect.left + 2, text.rect.top + 2);
    }
    EXPECT_EQ(InnerText(CGoldBsDlg::kPrice), "300.04");
}

TEST_F(OrderPage, AContractUnknownToTheHostTakesNobodysQuotes) {
    const auto key = static_cast<unsigned>(host_.AddSymbol("Rubber", 0, 0, 2));
    ASSERT_EQ(key, 0U);
    host_.SetQuote(key, Book());
    core_.contracts.push_back(MakeContract("Pt99.95", "GT-T", 2, 0.01));
    base_.LoadContracts();
    const auto shows_depth = [this] {
        Pump();
        const auto texts = platform::testing::SeenTexts(base_.FiveLevels());
        return std::any_of(texts.begin(), texts.end(),
                           [](const auto& text) { return text.utf8 == "300.04"; });
    };
    HostSelects("Au(T+D)");
    EXPECT_TRUE(shows_depth());
    HostSelects("Pt99.95");
    ASSERT_EQ(ShownContract(), "Pt99.95");
    EXPECT_FALSE(shows_depth());
    base_.OnQuote(key, Book());
    EXPECT_FALSE(shows_depth());
    EXPECT_GBK_EQ(BoxAfterSubmit(), "提示|请选择交易合约");
}

TEST_F(OrderPage, AHostPressClosesTheListAndTakesTheFocus) {
    HostSelects("Au(T+D)");
    platform::testing::Click(Inner(CGoldBsDlg::kPrice));
    CRect price;
    Inner(CGoldBsDlg::kPrice).GetParent()->GetWindowRect(&price);
    base_.OnMousePress(price.CenterPoint());
    EXPECT_EQ(::GetFocus(), Inner(CGoldBsDlg::kPrice).m_hWnd);
    base_.OnMousePress(CPoint(5, 5));
    EXPECT_EQ(::GetFocus(), nullptr);
    Inner(CGoldBsDlg::kPrice).SetFocus();
    base_.ShowWindow(SW_HIDE);
    Inner(CGoldBsDlg::kVolume).SetFocus();
    const HWND focus = ::GetFocus();
    base_.OnMousePress(CPoint(5, 5));
    EXPECT_EQ(::GetFocus(), focus);
}

TEST_F(OrderPage, TheStopBoxShowsWhatTheCoreHasStored) {
    SeenBox box;
    AnswerNextBox(IDOK, &box);
    Press(CGoldBsDlg::kStops);
    EXPECT_GBK_EQ(TextOfBox(box), "错误|请选择合约");
    EXPECT_FALSE(Checked(CGoldBsDlg::kStops));
    HostSelects("Au(T+D)");
    core_.ForgetCalls();
    // Left without OK, nothing is stored.
    stops_.edit = [](const CZebContract&, CPresetStop& stop, CWnd*) {
        stop.dStopTicks = 3;
        return false;
    };
    Press(CGoldBsDlg::kStops);
    EXPECT_FALSE(Checked(CGoldBsDlg::kStops));
    EXPECT_THAT(core_.CallsOf("SetPresetStop"), IsEmpty());
    // The table may go while the dialog is open.
    stops_.edit = [this](const CZebContract& contract, CPresetStop& stop, CWnd* parent) {
        EXPECT_EQ(parent, &Order());
        EXPECT_STREQ(stop.szExchange, "SGE");
        base_.LoadContracts();
        EXPECT_STREQ(contract.szContract, "Au(T+D)");
        stop.dLongStop = 290;
        return true;
    };
    Press(CGoldBsDlg::kStops);
    ASSERT_EQ(stops_.titles.size(), 2U);
    EXPECT_GBK_EQ(stops_.titles[1], "Au(T+D)预设止盈止损");
    EXPECT_FALSE(Checked(CGoldBsDlg::kStops));
    const CPresetStop stored = core_.preset_stops[{"SGE", "Au(T+D)"}];
    EXPECT_EQ(double{stored.dLongStop}, 290);
    EXPECT_STREQ(stored.szContract, "Au(T+D)");
    HostSelects("Au(T+D)");
    EXPECT_TRUE(Checked(CGoldBsDlg::kStops));
    HostSelects("Au100g");
    EXPECT_FALSE(Checked(CGoldBsDlg::kStops));
}

TEST_F(OrderPage, WithoutStopsInTheSettingsNoneAreOffered) {
    HostSelects("Au(T+D)");
    g_bNeedShowStopLossAndProfit = 0;
    SeenBox box;
    AnswerNextBox(IDOK, &box);
    Order().PostMessage(WM_CHECK_CHANGED, 0, CGoldBsDlg::kStops);
    Pump();
    EXPECT_GBK_EQ(TextOfBox(box), "错误|不支持止损止盈");
    EXPECT_THAT(stops_.titles, IsEmpty());
}

TEST_F(OrderPage, SaysItsContractWithinTheAskersRoom) {
    CZebContract contract = MakeContract("", "", 2, 0.01);
    std::memset(contract.szExchange, 'E', sizeof contract.szExchange);
    std::memset(contract.szContract, 'C', sizeof contract.szContract);
    core_.contracts = {contract};
    base_.LoadContracts();
    UserSelects(0);
    char answer[64];
    std::memset(answer, '#', sizeof answer);
    Order().SendMessage(WM_QUERY_CONTRACT, kQueryContractText, reinterpret_cast<LPARAM>(answer));
    EXPECT_EQ(std::string(answer), std::string(12, 'E') + "|" + std::string(32, 'C'));
    EXPECT_EQ(answer[47], '#');
}

}  // namespace
}  // namespace tests
