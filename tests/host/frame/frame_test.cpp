#include "host/terminal/frame.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "controls/templates.h"
#include "host/terminal/param_dlg.h"
#include "host/terminal/quote_record.h"
#include "host/terminal/templates.h"
#include "platform/testing/input.h"
#include "platform/testing/sight.h"
#include "platform/text/bounded_text.h"
#include "platform/text/gbk.h"
#include "plugin/contract/messages.h"
#include "plugin/qm_interface_ui.h"
#include "tests/support/front_end/recording_core.h"
#include "tests/support/front_end/recording_host.h"
#include "tests/support/temp_folder.h"

namespace {

using namespace terminal;
using papercore::PriceFromYuan;
using platform::testing::Click;
using platform::testing::Key;
using platform::testing::Pump;
using platform::testing::SeenText;

const toolkit::TemplateTable kTables[] = {controls::kTemplates, terminal::kTemplates};
CWinApp app;

papercore::Quote GoldQuote(double last) {
    papercore::Quote quote;
    quote.time = 1'772'000'000'000;
    quote.last = PriceFromYuan(last);
    quote.previous_settlement = PriceFromYuan(900);
    quote.upper_limit = PriceFromYuan(1035);
    quote.lower_limit = PriceFromYuan(765);
    for (std::size_t level = 0; level < papercore::kLevels; ++level) {
        const auto step = static_cast<papercore::Price>(100 * (level + 1));
        quote.bid[level] = {quote.last - step, 3};
        quote.ask[level] = {quote.last + step, 4};
    }
    return quote;
}

/// The frame over the real front end, with a core and a feed that tests speak for.
class FrameTest : public testing::Test {
protected:
    FrameTest() {
        platform::testing::RememberTexts();
        QmInterfaceUI::SetCallBack(&tests::RecordingHost::Function);
        ui_.SetUICallBack(&core_);
        frame_ =
            std::make_unique<Frame>(ui_, core_, symbols_, quotes_, log_, Sources(), remembered_);
        log_.SetWake([this] { ::PostMessageA(*frame_, WM_STATUS_WAITS, 0, 0); });
        made_ = frame_->CreateFrame("首次运行：账户 demo，密码 demo") != FALSE;
        frame_->ShowWindow(SW_SHOW);
        Pump();
    }
    FrameSources Sources() {
        FrameSources sources;
        sources.candles = [](int, int) { return std::vector<views::Candle>(); };
        sources.trades = [](int) { return std::vector<views::TapeTrade>(); };
        sources.marks = [](int) { return std::vector<views::ChartMark>(); };
        sources.terms = [](int) { return static_cast<papercore::ContractTerms*>(nullptr); };
        sources.clock = [] { return ClockTexts{"02-24 09:00:00", "连续交易", ""}; };
        sources.sign_in = [this](const std::string& account, const std::string& password) {
            sign_ins_.push_back(account + "/" + password);
        };
        return sources;
    }
    ~FrameTest() override {
        frame_.reset();
        QmInterfaceUI::SetCallBack(nullptr);
        Pump();
    }

    bool Shows(const std::string& gbk) const {
        Pump();
        const std::string utf8 = text::Utf8FromGbk(gbk);
        for (const SeenText& seen : platform::testing::SeenTexts(*frame_)) {
            if (seen.utf8.find(utf8) != std::string::npos) return true;
        }
        return false;
    }
    static HWND Dialog(const char* title) { return FindWindowA(nullptr, title); }

    tests::RecordingHost host_;
    tests::RecordingCore core_;
    SymbolTable symbols_{{{"SGE", "Au(T+D)", 1, 1, 2}, {"SGE", "Ag(T+D)", 1, 2, 0}}};
    QuoteBoard quotes_{2, [this] { ::PostMessageA(*frame_, WM_QUOTES_WAIT, 0, 0); }};
    StatusLog log_;
    Remembered remembered_;
    QmInterfaceUI front_end_;
    CBaseUI& ui_ = front_end_;
    std::vector<std::string> sign_ins_;
    std::unique_ptr<Frame> frame_;
    bool made_ = false;
};

TEST_F(FrameTest, QuotesReachTheListTheDepthAndTheFrontEnd) {
    ASSERT_TRUE(made_);
    EXPECT_EQ(frame_->CurrentSymbol(), 0);
    quotes_.Put(0, GoldQuote(901.25));
    quotes_.Put(1, GoldQuote(7000));
    EXPECT_TRUE(Shows("901.25"));
    EXPECT_TRUE(Shows("901.26")) << "the best ask";
    EXPECT_TRUE(Shows("模拟交易"));
}

TEST_F(FrameTest, PagesAreChosenByTheMenuAndByKeys) {
    int unused = 0;
    const HWND menu = ui_.GetMenuCtrl(unused)->GetSafeHwnd();
    EXPECT_EQ(SendMessageA(menu, LB_GETCOUNT, 0, 0), 8);
    EXPECT_EQ(frame_->pages().Page(), 0);
    Click(menu, 60, 22 * 4 + 10);
    EXPECT_EQ(frame_->pages().Page(), 4);
    MSG key{};
    key.message = WM_KEYDOWN;
    for (const WPARAM digit : {WPARAM{0x32}, WPARAM{0x39}, WPARAM{0x31}}) {
        key.wParam = digit;
        keybd_event(VK_CONTROL, 0, 0, 0);
        Pump();
        EXPECT_EQ(frame_->HandleKey(key), digit != 0x39);
        keybd_event(VK_CONTROL, 0, KEYEVENTF_KEYUP, 0);
        Pump();
    }
    EXPECT_EQ(frame_->pages().Page(), 0);
    EXPECT_EQ(SendMessageA(menu, LB_GETCURSEL, 0, 0), 0);
    frame_->ShowPage(12345);
    EXPECT_EQ(frame_->pages().Page(), 0);
}

TEST_F(FrameTest, TheSignInAsksUntilTheSessionIsReadyAndComesBackWhenItIsLost) {
    frame_->OpenSignIn("");
    const HWND dialog = Dialog("登录模拟账户");
    ASSERT_TRUE(IsWindowVisible(dialog));
    const HWND account = GetDlgItem(dialog, SignInDlg::kAccount);
    SetWindowTextA(account, "");
    Click(GetDlgItem(dialog, IDOK));
    EXPECT_TRUE(sign_ins_.empty());
    SetWindowTextA(account, "demo");
    Click(GetDlgItem(dialog, SignInDlg::kPassword));
    platform::testing::Type("pw1");
    Click(GetDlgItem(dialog, IDOK));
    ASSERT_EQ(sign_ins_, std::vector<std::string>{"demo/pw1"});
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDOK))) << "nothing is sent twice";
    frame_->OnSignInRefused("账户或密码错误");
    EXPECT_TRUE(IsWindowEnabled(GetDlgItem(dialog, IDOK)));
    char message[128];
    GetDlgItemTextA(dialog, SignInDlg::kMessage, message, sizeof message);
    EXPECT_STREQ(message, "账户或密码错误");
    core_.logged_in = true;
    core_.ForgetCalls();
    frame_->OnSessionReady();
    EXPECT_FALSE(IsWindowVisible(dialog));
    core_.logged_in = false;
    ::PostMessageA(*frame_, WM_SESSION_LOST, 0, kModuleNumber);
    EXPECT_TRUE(Shows("连接中断"));
    EXPECT_TRUE(IsWindowVisible(dialog));
}

TEST_F(FrameTest, OneOfTheRememberedPagesIsOnShowAlone) {
    for (const int page : {4, 32, 7, 6, 12345}) {
        frame_.reset();
        Pump();
        remembered_.page = page;
        frame_ =
            std::make_unique<Frame>(ui_, core_, symbols_, quotes_, log_, Sources(), remembered_);
        ASSERT_TRUE(frame_->CreateFrame(""));
        frame_->ShowWindow(SW_SHOW);
        Pump();
        EXPECT_EQ(frame_->pages().Page(), page == 12345 ? 0 : page);
        int shown = 0;
        HWND child = GetWindow(frame_->pages().MainWindow(), GW_CHILD);
        for (; child; child = GetWindow(child, GW_HWNDNEXT)) {
            const bool is_dialog =
                (GetWindowLongPtrA(child, GWL_EXSTYLE) & WS_EX_CONTROLPARENT) != 0;
            shown += is_dialog && IsWindowVisible(child) ? 1 : 0;
        }
        EXPECT_EQ(shown, 1) << page;
    }
}

TEST_F(FrameTest, ASessionBeginsWithTheSelectionAndTheWantedQuotesAndNoNoticeRepeatsIt) {
    host_.AddSymbol("Au(T+D)", 1, 1, 2);
    host_.AddSymbol("Ag(T+D)", 1, 2, 0);
    CZebContract contract{};
    text::CopyText(contract.szExchange, "SGE");
    text::CopyText(contract.szContract, "Au(T+D)");
    contract.nUnit = 1000;
    contract.nPriceDigits = 2;
    contract.dPriceTick = 0.01;
    core_.contracts.push_back(contract);
    core_.logged_in = true;
    ui_.OnLoginPrompt(nullptr, ZEB_LOGIN_PROMPT_DONE, nullptr);
    quotes_.Put(0, GoldQuote(901.25));
    Pump();
    host_.TakeCalls();
    ::PostMessageA(*frame_, WM_FRAME_NOTICE, kFrameReady, 0);
    ::PostMessageA(*frame_, WM_FRAME_NOTICE, kFrameLoginWanted, kModuleNumber);
    Pump();
    EXPECT_TRUE(host_.Calls().empty()) << host_.Calls().front();
    frame_->OnSessionReady();
    EXPECT_FALSE(host_.CallsOf("HOST_FIND_SYMBOL").empty()) << "what quotes are wanted";
    EXPECT_FALSE(host_.CallsOf("HOST_GET_SYMBOL").empty()) << "the contract on show";
}

void SaveSettings(void*) {
    const HWND dialog = FindWindowA(nullptr, "交易设置");
    if (!dialog) return;
    SendDlgItemMessageA(dialog, ParamDlg::kConfirmOrders, BM_CLICK, 0, 0);
    SetDlgItemTextA(dialog, ParamDlg::kCloseTicks, "7");
    SendDlgItemMessageA(dialog, ParamDlg::kDefaultPrice, CB_SETCURSEL, 6, 0);
    ::PostMessageA(GetDlgItem(dialog, IDOK), BM_CLICK, 0, 0);
}

TEST_F(FrameTest, SettingsAreStoredAndAnnounced) {
    core_.trade_param.nStopTicks = 5;
    for (const SeenText& seen : platform::testing::SeenTexts(*frame_)) {
        if (seen.utf8 != text::Utf8FromGbk("设置")) continue;
        platform::testing::WhenIdle(SaveSettings, nullptr);
        Click(*frame_, seen.rect.left + 4, (seen.rect.top + seen.rect.bottom) / 2);
    }
    ASSERT_EQ(core_.set_params.size(), 1u);
    const CTradeParam& stored = core_.set_params[0];
    EXPECT_EQ(stored.bNoOrderConfirm, 1);
    EXPECT_EQ(stored.nCloseOverTicks, 7);
    EXPECT_EQ(stored.nDefaultPrice, 7);
    EXPECT_EQ(stored.nStopTicks, 5);
    EXPECT_EQ(core_.applied_params.size(), 1u) << "the front end was told";
}

TEST_F(FrameTest, TheLogOpensAndEscapeClosesIt) {
    log_.Add("09:00:01", 0, "委托失败：资金不足");
    EXPECT_TRUE(Shows("委托失败：资金不足"));
    const HWND line = GetDlgItem(*frame_, kLogLineId);
    const HWND list = GetDlgItem(*frame_, kLogListId);
    EXPECT_FALSE(IsWindowVisible(list));
    Click(line, 10, 10);
    EXPECT_TRUE(IsWindowVisible(list));
    Key(VK_ESCAPE);
    EXPECT_FALSE(IsWindowVisible(list));
    Click(line, 10, 10);
    Click(line, 10, 10);
    EXPECT_FALSE(IsWindowVisible(list));
}

TEST_F(FrameTest, WhatTheUserArrangedIsRemembered) {
    const HWND split = GetDlgItem(*frame_, kPagesSplitId);
    const int before = remembered_.sizes.pages_height;
    const POINT grip = platform::testing::ScreenPoint(split, 300, 2);
    platform::testing::Drag(grip, {grip.x, grip.y + 40});
    EXPECT_EQ(remembered_.sizes.pages_height, before - 40);
    Click(GetDlgItem(*frame_, kQuoteListId), 30, 26 + 26 + 8);
    EXPECT_EQ(remembered_.contract, "Ag(T+D)");
    frame_->Remember();
    EXPECT_EQ(remembered_.quote_columns.size(), 9u);
}

TEST_F(FrameTest, NoSizeLeavesAnythingOfTheFormerPicture) {
    const testing_support::TempFolder temp;
    std::mt19937 random(3);
    SIZE size{1000, 650};
    for (int turn = 0; turn < 30; ++turn) {
        // Steps of few pixels are where windows move onto their own former place.
        const int wider = random() % 2 == 0 ? 0 : static_cast<int>(random() % 60) - 30;
        size.cx = std::clamp<LONG>(size.cx + wider, 900, 1280);
        size.cy = std::clamp<LONG>(size.cy + static_cast<int>(random() % 9) - 4, 560, 800);
        frame_->ShowPage(static_cast<int>(random() % 6));
        Pump();
        frame_->MoveWindow(turn % 2 * 80, turn % 2 * 50, size.cx, size.cy);
        Pump();
        ASSERT_TRUE(platform::testing::SavePicture(*frame_, "seen.png"));
        ::RedrawWindow(*frame_, nullptr, nullptr,
                       RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
        Pump();
        ASSERT_TRUE(platform::testing::SavePicture(*frame_, "anew.png"));
        ASSERT_TRUE(temp.Read(u8"seen.png") == temp.Read(u8"anew.png"))
            << turn << ": " << size.cx << " x " << size.cy;
    }
}

}  // namespace

IMPLEMENT_MODULE(app, kTables)
