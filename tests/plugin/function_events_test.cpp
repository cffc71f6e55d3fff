#include "platform/testing/input.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/my_event_utils.h"
#include "plugin/settings/process_values.h"
#include "tests/plugin/shell_test.h"
#include "tests/support/gbk_text.h"

namespace {

/// Writes down the replies that it hears of.
class Listener : public MyEventUtils {
public:
    explicit Listener(std::vector<std::string>& log) : log_(log) { Listen(2); }

protected:
    void OnFunctionReply(const CAccountInfo* account, int function, const char* text) override {
        log_.push_back("heard " + std::string(account->szAccount) + " " + std::to_string(function) +
                       " " + text);
    }

private:
    std::vector<std::string>& log_;
};

class FunctionEvents : public tests::ShellTest {
protected:
    FunctionEvents() {
        text::CopyText(core.login_account.szAccount, "1001");
        core.logged_in = true;
        host.report_data = "abc";
    }

    /// Milliseconds until the client report goes out; -1 when none does within the time.
    int MillisToReport(int most) {
        log.clear();
        for (int millis = 0; millis <= most; millis += 50) {
            if (!TakeLog({"SendFunctionRequest(4"}).empty()) return millis;
            platform::testing::PumpFor(50);
        }
        return -1;
    }
};

TEST_F(FunctionEvents, TellEveryListenerOfEveryReplyAndOfNoFailure) {
    const Listener first(log);
    const Listener second(log);
    Send(EV_FUNCTION_RESULT, NumberedBlock(6012, "no fields"));
    EXPECT_EQ("GetLoginAccount(); heard 1001 6012 no fields; heard 1001 6012 no fields", TakeLog());
    SendFailed(EV_FUNCTION_RESULT, NumberedBlock(4, "a|b|c|Y|next|60"));
    Send(EV_FUNCTION_RESULT);
    EXPECT_EQ("", TakeLog());
}

TEST_F(FunctionEvents, StartTheClockOfTheNextReport) {
    Send(EV_FUNCTION_RESULT, NumberedBlock(4, "a|b|c|Y|challenge|1"));
    EXPECT_EQ("challenge", g_strReportChallenge);
    EXPECT_EQ(3750, MillisToReport(5000));
    EXPECT_EQ("HOST_GET_REPORT_DATA(challenge)", host.CallsOf("HOST_GET_REPORT_DATA").back());
    // Only an answer starts it again.
    EXPECT_EQ(-1, MillisToReport(20000));
}

TEST_F(FunctionEvents, RestartAClockThatRuns) {
    Send(EV_FUNCTION_RESULT, NumberedBlock(4, "a|b|c|Y|first|10"));
    platform::testing::PumpFor(7000);
    Send(EV_FUNCTION_RESULT, NumberedBlock(4, "a|b|c|Y|second|10"));
    EXPECT_EQ(7500, MillisToReport(9000));
    EXPECT_EQ("second", g_strReportChallenge);
}

TEST_F(FunctionEvents, ThatAreRefusedChangeNeitherClockNorChallenge) {
    Send(EV_FUNCTION_RESULT, NumberedBlock(4, "a|b|c|Y|first|10"));
    for (const char* reply : {"a|b|c|N|second|60", "a|b|Y|second|60", "", "|||"}) {
        Send(EV_FUNCTION_RESULT, NumberedBlock(4, reply));
        EXPECT_EQ("first", g_strReportChallenge) << reply;
    }
    EXPECT_EQ(7500, MillisToReport(8000));
}

TEST_F(FunctionEvents, StopTheClockForGoodWhenItFiresLoggedOut) {
    Send(EV_FUNCTION_RESULT, NumberedBlock(4, "a|b|c|Y|challenge|5"));
    core.logged_in = false;
    EXPECT_EQ(-1, MillisToReport(5000));
    core.logged_in = true;
    EXPECT_EQ(-1, MillisToReport(20000));
}

TEST_F(FunctionEvents, ReportBeforeTheirStatusLine) {
    Send(EV_FUNCTION_RESULT, NumberedBlock(4, "a|b|c|Y|challenge|5"));
    log.clear();
    platform::testing::PumpFor(4000);
    EXPECT_GBK_EQ("SendFunctionRequest(4, \"YWJj" + std::string(82, 'A') +
                      "==\"); ShowStatusText(\"发送4\", 0)",
                  TakeLog({"SendFunctionRequest", "ShowStatusText"}));
}

TEST_F(FunctionEvents, HandTheSettlementPageItsReportAndTheCoreTheMarginCall) {
    shell->Settlement().Query("");
    log.clear();
    Send(EV_FUNCTION_RESULT, NumberedBlock(9336, "a|b|c|N|{}"));
    shell->Settlement().Query("");
    EXPECT_EQ("GetLoginAccount()", TakeLog());
    Send(EV_FUNCTION_RESULT, NumberedBlock(9336, "a|b|c|Y|{}"));
    EXPECT_EQ("GetLoginAccount(); ReportSettlementText(4, 900, \"--\")", TakeLog());
    // The page knows that its answer has come.
    shell->Settlement().Query("20260105");
    EXPECT_EQ("SendFunctionRequest(9336, \"20260105\")", TakeLog());
}

TEST_F(FunctionEvents, OfOtherFunctionsEndWithTheListeners) {
    Send(EV_FUNCTION_RESULT, NumberedBlock(6027, "a|b|c|Y|challenge|5"));
    EXPECT_EQ("GetLoginAccount()", TakeLog());
    EXPECT_EQ("", g_strReportChallenge);
    EXPECT_EQ(-1, MillisToReport(5000));
}

}  // namespace
