#include "plugin/funds_text.h"

#include <gtest/gtest.h>

#include <cstring>

#include "platform/text/bounded_text.h"
#include "tests/support/gbk_text.h"

namespace {

CZebAccountSummary Summary() {
    CZebAccountSummary summary{};
    text::CopyText(summary.Balance, "100000.00");
    text::CopyText(summary.Commission, "12.34");
    text::CopyText(summary.CurrMargin, "2000.00");
    text::CopyText(summary.FrozenMargin, "300.00");
    text::CopyText(summary.Available, "90000.50");
    text::CopyText(summary.Margin1, "1");
    text::CopyText(summary.Margin2, "20");
    text::CopyText(summary.Margin3, "400");
    return summary;
}

TEST(Funds, StandAsTheServerGaveThem) {
    const AccountFunds funds =
        ComputeFunds(Summary(), {.open = 55, .floating = -100}, FundsSource::kServer);
    EXPECT_DOUBLE_EQ(90000.50, funds.available);
    EXPECT_DOUBLE_EQ(90000.50, funds.shownAvailable);
    EXPECT_DOUBLE_EQ(100000, funds.equity);
    EXPECT_DOUBLE_EQ(2000, funds.margin);
    EXPECT_DOUBLE_EQ(300, funds.frozen);
    EXPECT_DOUBLE_EQ(12.34, funds.fee);
    EXPECT_DOUBLE_EQ(55, funds.openProfit);
}

TEST(Funds, WorkedOutHereLetALossLowerWhatIsFreeButNoGainRaiseIt) {
    struct {
        double floating;
        double shown;
        double equity;
    } const cases[] = {
        {100, 90000.50, 90000.50 + 100 + 2421 + 300},
        {-100, 89900.50, 90000.50 - 100 + 2421 + 300},
        {0, 90000.50, 90000.50 + 2421 + 300},
    };
    for (const auto& one : cases) {
        const AccountFunds funds =
            ComputeFunds(Summary(), {.open = 0, .floating = one.floating}, FundsSource::kClient);
        EXPECT_DOUBLE_EQ(90000.50, funds.available);
        EXPECT_DOUBLE_EQ(one.shown, funds.shownAvailable) << one.floating;
        EXPECT_DOUBLE_EQ(one.equity, funds.equity) << one.floating;
        EXPECT_DOUBLE_EQ(2421, funds.margin);
    }
}

TEST(Funds, ReadFieldsThatAreNoNumbersOrFilledToTheLastByte) {
    CZebAccountSummary summary;
    std::memset(static_cast<void*>(&summary), '9', sizeof(summary));
    std::memset(summary.Balance, ' ', sizeof(summary.Balance));
    const AccountFunds funds = ComputeFunds(summary, {}, FundsSource::kServer);
    EXPECT_DOUBLE_EQ(0, funds.equity);
    EXPECT_DOUBLE_EQ(1e32, funds.frozen);  // 32 nines, and no digit of the next field
    EXPECT_LT(FundsPageText(funds).size(), 4096U);
}

TEST(FundsTexts, ShowTheWholePage) {
    const AccountFunds funds{.available = 1,
                             .shownAvailable = 90000.5,
                             .equity = 100000,
                             .openProfit = -55.25,
                             .margin = 2000,
                             .frozen = 0,
                             .fee = 12.34};
    EXPECT_GBK_EQ(
        "\r\n 当前权益:       100000.00\r\n\r\n"
        " 可用资金:        90000.50        开仓盈亏:          -55.25\r\n\r\n"
        " 冻结资金:            0.00        持仓保证金:       2000.00\r\n\r\n"
        " 手续费:             12.34\r\n\r\n",
        FundsPageText(funds));
}

TEST(FundsTexts, KeepTheColumnOfTheSignWhenAFigureIsWide) {
    AccountFunds funds;
    funds.equity = 12345678901234.5;
    EXPECT_EQ(0U, FundsPageText(funds).find("\r\n 当前权益:    12345678901234.50\r\n"));
}

TEST(FundsTexts, GiveTheHostAndTheControlsTwoDecimalPlaces) {
    EXPECT_GBK_EQ("100000.00|-0.13|0.00|", FundsLine(100000, -0.125001, 0));
    EXPECT_GBK_EQ("90000.50", MoneyText(90000.5));
    EXPECT_EQ(309U + 3 + 1, MoneyText(-1e308).size());
}

}  // namespace
