// What the blocks of the core's events hold.

#include <algorithm>
#include <cstring>
#include <string>

#include "platform/text/bounded_text.h"
#include "platform/text/gbk.h"
#include "tests/plugin/interface_test.h"
#include "tests/support/gbk_text.h"
#include "tests/support/temp_folder.h"

namespace {

using tests::MakeError;
using tests::TakenEvent;

const StepDataMap kSteps;

/// A record no two neighbouring bytes of which are alike.
template <class Record>
Record Pattern() {
    Record record;
    auto* bytes = reinterpret_cast<unsigned char*>(&record);
    for (std::size_t i = 0; i < sizeof(record); ++i) {
        bytes[i] = static_cast<unsigned char>(i * 7 % 251 + 1);
    }
    return record;
}

/// The record, and zeroes behind it.
template <class Record>
void ExpectRecord(const Record& record, const TakenEvent& event) {
    const std::string_view bytes(reinterpret_cast<const char*>(&record), sizeof(record));
    ASSERT_GE(event.payload.size(), bytes.size());
    EXPECT_TRUE(event.payload.starts_with(bytes)) << event.Summary();
    EXPECT_EQ(event.payload.find_first_not_of('\0', bytes.size()), std::string::npos);
}

/// An error whose text fills its field to the last byte, without a NUL.
CZebError LongError() {
    CZebError error{7, {}};
    for (std::size_t i = 0; i < sizeof(error.szText); i += 2) {
        std::memcpy(error.szText + i, "金", 2);
    }
    return error;
}

bool IsWholeText(std::string_view gbk) {
    bool replaced = false;
    text::Utf8FromGbk(gbk, &replaced);
    return !replaced;
}

class CorePayloads : public tests::InterfaceTest {
protected:
    CorePayloads() { Start(); }

    testing_support::TempFolder folder_;
    CZebError refused_ = MakeError(7, "资金不足");
    CZebError fine_ = MakeError(0, "all well");
};

TEST_F(CorePayloads, AreWholeRecordsOnSuccess) {
    auto login = Pattern<CLoginResult>();
    ui->OnLoginResult(nullptr, nullptr, &login, 1);
    ExpectRecord(login, TakeEvent());

    auto summary = Pattern<CZebAccountSummary>();
    summary.szExtra[0] = '\0';
    ui->OnQueryAccountResult(nullptr, nullptr, &summary, 1, kSteps);
    ExpectRecord(summary, TakeEvent());

    auto volume = Pattern<CQueryMaxVolumeResult>();
    ui->OnQueryMaxVolumeResult(nullptr, nullptr, &volume, 1);
    ExpectRecord(volume, TakeEvent());

    auto balance = Pattern<CBankResult>();
    ui->OnQueryBankBalanceResult(nullptr, nullptr, &balance, 1);
    ExpectRecord(balance, TakeEvent());

    auto transfer = Pattern<CBankTransfer>();
    ui->OnQueryBankTransferResult(nullptr, nullptr, &transfer, 1, 0);
    ExpectRecord(transfer, TakeEvent());

    auto order = Pattern<CZebOrder>();
    ui->OnOrderChange(nullptr, &order);
    ExpectRecord(order, TakeEvent());

    auto trade = Pattern<CZebTrade>();
    ui->OnTrade(nullptr, &trade);
    ExpectRecord(trade, TakeEvent());
}

TEST_F(CorePayloads, AreCopiesThatTheCoreMayOverwrite) {
    auto order = Pattern<CZebOrder>();
    const CZebOrder sent = order;
    ui->OnOrderChange(nullptr, &order);
    std::memset(&order, 0, sizeof(order));
    ExpectRecord(sent, TakeEvent());
}

TEST_F(CorePayloads, HoldTheErrorsTextBareOrFramed) {
    constexpr char kBare[] = "资金不足";
    constexpr char kFramed[] = "资金不足 (服务器信息[黄金])";
    CZebAccountSummary summary{};
    CQueryMaxVolumeResult volume{};
    CBankResult balance{};
    CBankResult transfer{1, {}, 0, {}};

    ui->OnLoginResult(nullptr, &refused_, nullptr, 1);
    EXPECT_GBK_EQ(kBare, TakeEvent().Text());
    ui->OnBatchQueryResult(nullptr, &refused_, 1);
    EXPECT_GBK_EQ(kBare, TakeEvent().Text());
    ui->OnQueryTradeByDateResult(nullptr, &refused_, nullptr, 1, 1);
    EXPECT_GBK_EQ(kBare, TakeEvent().Text());
    ui->OnBankTransferResult(nullptr, &refused_, &transfer, 1);
    EXPECT_GBK_EQ(kBare, TakeEvent().Text());

    ui->OnQueryNoticeResult(nullptr, &refused_, nullptr, 1);
    EXPECT_GBK_EQ(kFramed, TakeEvent().Text());
    ui->OnQueryAccountResult(nullptr, &refused_, &summary, 1, kSteps);
    EXPECT_GBK_EQ(kFramed, TakeEvent().Text());
    ui->OnQueryMaxVolumeResult(nullptr, &refused_, &volume, 1);
    EXPECT_GBK_EQ(kFramed, TakeEvent().Text());
    ui->OnChangePasswordResult(nullptr, &refused_, 1);
    EXPECT_GBK_EQ(kFramed, TakeEvent().Text());
    ui->OnQueryBankBalanceResult(nullptr, &refused_, &balance, 1);
    EXPECT_GBK_EQ(kFramed, TakeEvent().Text());
    ui->OnQueryBankTransferResult(nullptr, &refused_, nullptr, 1, 0);
    EXPECT_GBK_EQ(kFramed, TakeEvent().Text());
    ui->OnInsertOrderResult(nullptr, &refused_, nullptr, -5);
    const TakenEvent refusal = TakeEvent();
    EXPECT_EQ(refusal.Number(), -5);
    EXPECT_GBK_EQ(kFramed, refusal.Text(4));
}

TEST_F(CorePayloads, HoldTheFrameAloneWhenThereIsNoErrorToFrame) {
    constexpr char kFrame[] = " (服务器信息[黄金])";
    ui->OnChangePasswordResult(nullptr, nullptr, 1);
    EXPECT_GBK_EQ(kFrame, TakeEvent().Text());
    ui->OnQueryBankTransferResult(nullptr, nullptr, nullptr, 1, 0);
    EXPECT_GBK_EQ(kFrame, TakeEvent().Text());
    ui->OnLoginResult(nullptr, nullptr, nullptr, 1);
    EXPECT_EQ(TakeEvent().Text(), "");
}

TEST_F(CorePayloads, CutLongErrorsBetweenTwoCharacters) {
    CZebError error = LongError();
    const auto expect_whole = [this](std::size_t offset, std::size_t at_least) {
        const TakenEvent event = TakeEvent();
        const std::string_view text = event.Text(offset);
        EXPECT_LT(offset + text.size(), event.payload.size()) << "no NUL";
        EXPECT_GE(text.size(), at_least) << event.Summary();
        EXPECT_TRUE(IsWholeText(text)) << event.Summary();
    };
    ui->OnLoginResult(nullptr, &error, nullptr, 1);
    expect_whole(0, 1022);
    ui->OnBatchQueryResult(nullptr, &error, 1);
    expect_whole(0, 1022);
    ui->OnQueryTradeByDateResult(nullptr, &error, nullptr, 1, 1);
    expect_whole(0, 254);
    ui->OnQueryBankBalanceResult(nullptr, &error, nullptr, 1);
    expect_whole(0, 1026);
    ui->OnChangePasswordResult(nullptr, &error, 1);
    expect_whole(0, 1040);
    ui->OnInsertOrderResult(nullptr, &error, nullptr, 1);
    expect_whole(4, 1040);
    ui->OnCancelOrderResult(nullptr, &error, "a", "b", 1);
    expect_whole(4, 1040);
}

TEST_F(CorePayloads, OfACancelHoldItsTextsBehindEachOther) {
    ui->OnCancelOrderResult(nullptr, &refused_, "甲", "second", 42);
    const TakenEvent event = TakeEvent();
    EXPECT_EQ(event.Number(), 42);
    const std::string_view framed = event.Text(4);
    EXPECT_GBK_EQ("资金不足 (服务器信息[黄金])", framed);
    const std::size_t b = 4 + framed.size() + 1;
    EXPECT_EQ(event.Text(b), "second");
    EXPECT_GBK_EQ("甲", event.Text(b + 7));

    ui->OnCancelOrderResult(nullptr, &fine_, "a", nullptr, 0);
    const TakenEvent taken = TakeEvent();
    EXPECT_GBK_EQ("all well (服务器信息[黄金])", taken.Text(4));
    EXPECT_EQ(taken.Text(4 + taken.Text(4).size() + 1), "");
    EXPECT_EQ(taken.Text(4 + taken.Text(4).size() + 2), "a");
}

TEST_F(CorePayloads, OfACancelStayInTheirBlockHoweverLongTheTexts) {
    const std::string b(5000, 'b');
    for (const char* a : {"", "a", "a longer one"}) {
        ui->OnCancelOrderResult(nullptr, &refused_, a, b.c_str(), 1);
        const TakenEvent event = TakeEvent();
        const std::size_t behind = 4 + event.Text(4).size() + 1;
        const std::size_t used = behind + event.Text(behind).size() + 1;
        EXPECT_EQ(used, event.payload.size() - 1) << "all but the NUL of the last text";
        EXPECT_EQ(event.payload.back(), '\0');
    }
}

TEST_F(CorePayloads, OfATransferSayThatItWasSentWhenTheCoreSaysNothing) {
    CBankResult result{1, {}, 0, {}};
    ui->OnBankTransferResult(nullptr, nullptr, &result, 1);
    EXPECT_GBK_EQ("转账请求发送成功", TakeEvent().Text());
    ui->OnBankTransferResult(nullptr, &fine_, &result, 1);
    EXPECT_EQ(TakeEvent().Text(), "all well");
}

TEST_F(CorePayloads, OfNoticesAndKeysHoldTheWholeText) {
    const std::string text(5000, 'n');
    ui->OnQueryNoticeResult(nullptr, nullptr, text.c_str(), 1);
    EXPECT_EQ(TakeEvent().Text(), text);
    ui->OnSystemNotice(nullptr, text.c_str());
    EXPECT_EQ(TakeEvent().Text(), text);
    ui->OnCombinationMsg(text.c_str(), 0);
    EXPECT_EQ(TakeEvent().Text(), text);
}

TEST_F(CorePayloads, OfFunctionsGrowWithTheReplyUpToItsLimit) {
    struct Case {
        std::size_t sent;
        std::size_t kept;
        std::size_t block;
    };
    for (const Case& one : {Case{0, 0, 65536}, Case{65531, 65531, 65536}, Case{65532, 65532, 65537},
                            Case{102300, 102300, 102305}, Case{102301, 102300, 102305},
                            Case{300000, 102300, 102305}}) {
        ui->OnResult_WithReturnData(9336, nullptr, nullptr, std::string(one.sent, 'r').c_str());
        const TakenEvent event = TakeEvent();
        EXPECT_EQ(event.Number(), 9336);
        EXPECT_EQ(event.Text(4).size(), one.kept) << one.sent;
        EXPECT_EQ(event.payload.size(), one.block) << one.sent;
    }
}

TEST_F(CorePayloads, OfFunctionsAreCutBetweenTwoCharacters) {
    // A character whose halves stand on both sides of the limit goes.
    const std::string reply = std::string(102299, 'r') + "金" + "r";
    ui->OnResult_WithReturnData(4, nullptr, nullptr, reply.c_str());
    EXPECT_EQ(TakeEvent().Text(4), std::string(102299, 'r'));
}

TEST_F(CorePayloads, OfFailedFunctionsCarryTheReplyAndNotTheError) {
    ui->OnResult_WithReturnData(4, nullptr, &refused_, "reply");
    const TakenEvent event = TakeEvent();
    EXPECT_EQ(event.Number(), 4);
    EXPECT_EQ(event.Text(4), "reply");
}

TEST_F(CorePayloads, OfFundsPassTheExtraTextOnAsAReply) {
    CZebAccountSummary summary{};
    text::CopyText(summary.szExtra, "额外|text");
    ui->OnQueryAccountResult(nullptr, &refused_, &summary, 1, kSteps);
    std::vector<TakenEvent> events = TakeEvents();
    ASSERT_EQ(events.size(), 2u);
    EXPECT_EQ(events[1].Number(), 6012);
    EXPECT_GBK_EQ("额外|text", events[1].Text(4));

    // Nothing behind its field is read.
    std::memset(summary.szExtra, 'x', sizeof(summary.szExtra));
    ui->OnQueryAccountResult(nullptr, nullptr, &summary, 1, kSteps);
    events = TakeEvents();
    ASSERT_EQ(events.size(), 2u);
    EXPECT_EQ(events[1].Text(4).size(), sizeof(summary.szExtra));
}

TEST_F(CorePayloads, OfPastTradesNameTheFileThatHoldsThem) {
    CZebTrade trade{};
    text::CopyText(trade.szContract, "Au(T+D)");
    ui->OnQueryTradeByDateResult(nullptr, nullptr, &trade, 1, 0);
    ui->OnQueryTradeByDateResult(nullptr, &refused_, &trade, 1, 0);
    ui->OnQueryTradeByDateResult(nullptr, nullptr, nullptr, 1, 1);
    EXPECT_EQ(TakeEvent().Text(), ".\\trade.txt");
    const std::string file = folder_.Read(u8"trade.txt");
    EXPECT_EQ(std::count(file.begin(), file.end(), '\n'), 2) << "one line a trade";
}

}  // namespace
