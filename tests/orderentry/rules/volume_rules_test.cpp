#include "orderentry/volume_rules.h"

#include <cstring>
#include <limits>
#include <random>

#include "plugin/settings/process_values.h"
#include "tests/orderentry/rules/trading.h"

namespace {

using Kind = MaxVolumeAnswer::Kind;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr int kMost = std::numeric_limits<int>::max();
constexpr int kLeast = std::numeric_limits<int>::min();

TEST(VolumeSpin, GoesUpWithoutEndAndDownToOne) {
    struct Case {
        const char* text;
        int delta;
        const char* stepped;
    };
    constexpr Case kCases[] = {
        {"5", -1, "6"},
        {"5", 1, "4"},
        {"1", 1, "1"},
        {"", -1, "1"},
        {"", 1, "1"},
        {"abc", -3, "3"},
        {"-9", -1, "1"},
        {"2147483647", -1, "2147483647"},
        {"99999999999", 1, "2147483646"},
        {"5", kLeast, "2147483647"},
        {"5", kMost, "1"},
        {nullptr, -1, "1"},
    };
    for (const Case& expected : kCases) {
        EXPECT_EQ(expected.stepped, StepVolume(expected.text, expected.delta));
    }
}

TEST(VolumeSpin, MakesAVolumeOfAnyText) {
    std::mt19937 random(4);
    for (int i = 0; i < 10000; ++i) {
        std::string text(random() % 32, '\0');
        for (char& byte : text) {
            byte =
                random() % 2 ? static_cast<char>(random() % 256) : "0123456789-+ "[random() % 13];
        }
        const std::string stepped = StepVolume(text.c_str(), static_cast<int>(random()));
        ASSERT_GE(ReadLots(stepped.c_str()), 1);
        ASSERT_EQ(std::string::npos, stepped.find_first_not_of("0123456789"));
    }
}

CZebPosition Position(std::string_view contract, char direction, int volume, int frozen) {
    CZebPosition position{};
    text::CopyText(position.szContract, contract);
    position.cDirection = direction;
    position.nVolume = volume;
    position.nFrozen = frozen;
    return position;
}

TEST(CloseVolume, IsThatOfTheFirstPositionOfTheOtherDirection) {
    const CZebPosition rows[] = {
        Position("Ag(T+D)", '0', 9, 0),       Position("Au(T+D)", '1', 7, 2),
        Position("Au(T+D)", '0', 10, 4),      Position("Au(T+D)", '0', 100, 0),
        Position("mAu(T+D)", '0', kMost, -1), Position("au100g", '0', 1, 5),
    };
    EXPECT_EQ(6, GetCloseVolume(rows, 6, "Au(T+D)", '1'));
    EXPECT_EQ(5, GetCloseVolume(rows, 6, "Au(T+D)", '0'));
    EXPECT_EQ(0, GetCloseVolume(rows, 2, "Au(T+D)", '1'));
    EXPECT_EQ(0, GetCloseVolume(rows, 6, "au(t+d)", '1'));
    EXPECT_EQ(kMost, GetCloseVolume(rows, 6, "mAu(T+D)", '1'));
    EXPECT_EQ(-4, GetCloseVolume(rows, 6, "au100g", '1'));
    EXPECT_EQ(0, GetCloseVolume(nullptr, 0, "Au(T+D)", '1'));
    EXPECT_EQ(0, GetCloseVolume(rows, 6, nullptr, '1'));
}

TEST(AffordableLots, AreWholeAndNeverNegative) {
    EXPECT_EQ(3, AffordableLots(100000, 0, 30000));
    EXPECT_EQ(2, AffordableLots(100000, -10000.01, 30000));
    EXPECT_EQ(0, AffordableLots(100000, -200000, 30000));
    EXPECT_EQ(0, AffordableLots(29999.99, 0, 30000));
    EXPECT_EQ(kMost, AffordableLots(1e300, 0, 1e-4));
    EXPECT_EQ(0, AffordableLots(kNan, 0, 30000));
    EXPECT_EQ(0, AffordableLots(1, 0, kInfinity));
}

TEST(MaxVolumeLabel, FollowsSideAndOffset) {
    struct Case {
        bool has_offset;
        char direction;
        char offset;
        const char* label;
    };
    constexpr Case kCases[] = {
        {true, '0', '0', "最大可开:"},  {true, '1', '0', "最大可开:"},
        {true, '0', '1', "最大可平:"},  {true, '1', '2', "最大可平:"},
        {false, '0', '0', "最大可买:"}, {false, '1', '1', "最大可卖:"},
        {false, '0', '1', "最大可买:"},
    };
    for (const Case& expected : kCases) {
        EXPECT_GBK_EQ(expected.label,
                      MaxVolumeLabel(expected.has_offset, expected.direction, expected.offset));
    }
}

class MaxVolume : public tests::Trading {
protected:
    MaxVolume() {
        JSDyn1 quote{};
        quote.dAsk[0] = 300;
        quote.dBid[0] = 200;
        host.SetQuote(kKey, quote);
    }
    ~MaxVolume() override { g_mapContractMargin = saved_; }

    MaxVolumeQuestion Question(char offset = '0', bool has_offset = true) {
        return {.contract = &contract,
                .symbol = symbol,
                .price_text = "对手价",
                .direction = '0',
                .checked_direction = '0',
                .offset = offset,
                .has_offset = has_offset,
                .net = false,
                .closable = 42,
                .available = 10120,
                .open_losses = -1000};
    }
    /// The factor makes 100 a lot at 200, 150 at 300.
    void KnowMargin() { g_mapContractMargin = {{"Au(T+D)", 0.5}}; }

private:
    std::map<std::string, double> saved_ = g_mapContractMargin;
};

TEST_F(MaxVolume, IsWhatCanBeClosedOnTheClosingSide) {
    for (const char offset : {'1', '2'}) {
        const MaxVolumeAnswer answer = AskMaxVolume(Question(offset));
        EXPECT_EQ(Kind::kShow, answer.kind);
        EXPECT_EQ(42, answer.lots);
    }
    EXPECT_THAT(host.Calls(), testing::IsEmpty()) << "no price is needed";
}

TEST_F(MaxVolume, IsWhatTheFundsAllowOnTheOpeningSide) {
    KnowMargin();
    MaxVolumeQuestion question = Question();
    EXPECT_EQ(60, AskMaxVolume(question).lots);
    question.checked_direction = '1';
    EXPECT_EQ(91, AskMaxVolume(question).lots) << "the radio button's side";
    question.direction = '1';
    question.checked_direction = '0';
    EXPECT_EQ(60, AskMaxVolume(question).lots) << "not the page's";
    EXPECT_EQ(60, AskMaxVolume(Question('1', false)).lots) << "spot knows no closing";
}

TEST_F(MaxVolume, StaysAsItIsWithoutContractPriceOrOffset) {
    KnowMargin();
    MaxVolumeQuestion question = Question();
    question.contract = nullptr;
    EXPECT_EQ(Kind::kKeep, AskMaxVolume(question).kind);
    question.offset = '1';
    EXPECT_EQ(Kind::kKeep, AskMaxVolume(question).kind);
    question = Question();
    question.net = true;
    EXPECT_EQ(Kind::kKeep, AskMaxVolume(question).kind);
    for (const char* text : {"", "市价", "0", "abc", "0.0000005", "-3"}) {
        question = Question();
        question.price_text = text;
        EXPECT_EQ(Kind::kKeep, AskMaxVolume(question).kind) << text;
    }
    const CZebContract nameless = tests::MakeContract("", "GT-F", 0.01, 2);
    question = Question();
    question.contract = &nameless;
    EXPECT_EQ(Kind::kKeep, AskMaxVolume(question).kind);
}

TEST_F(MaxVolume, IsAskedOfTheCoreWithoutAMargin) {
    g_mapContractMargin.clear();
    MaxVolumeQuestion question = Question('2', false);
    question.direction = '1';
    const MaxVolumeAnswer answer = AskMaxVolume(question);
    ASSERT_EQ(Kind::kQuery, answer.kind);
    char expected[184] = {};
    std::memcpy(expected, "SGE", 3);
    std::memcpy(expected + 12, "Au(T+D)", 7);
    std::memcpy(expected + 84, "1110", 4);  // direction, offset, two flags
    const double price = 300 + 1e-8;
    std::memcpy(expected + 88, &price, sizeof price);
    EXPECT_EQ(std::string_view(expected, sizeof expected), tests::BytesOf(answer.query));
    EXPECT_EQ('0', AskMaxVolume(Question()).query.cOffset);

    question.price_text = "0.000005";
    EXPECT_EQ(Kind::kKeep, AskMaxVolume(question).kind) << "too low to ask about";
}

TEST_F(MaxVolume, TakesOnlyAnswersAboutWhatIsShown) {
    CQueryMaxVolumeResult result{};
    text::CopyText(result.szExchange, "SGE");
    text::CopyText(result.szContract, "Au(T+D)");
    result.cDirection = '1';
    result.cOffset = '0';
    EXPECT_TRUE(IsAnswerFor(result, &contract, '1', '0'));
    EXPECT_FALSE(IsAnswerFor(result, nullptr, '1', '0'));
    EXPECT_FALSE(IsAnswerFor(result, &contract, '0', '0'));
    EXPECT_FALSE(IsAnswerFor(result, &contract, '1', '1'));
    CQueryMaxVolumeResult other = result;
    text::CopyText(other.szExchange, "SGX");
    EXPECT_FALSE(IsAnswerFor(other, &contract, '1', '0'));
    other = result;
    text::CopyText(other.szContract, "Au(T+d)");
    EXPECT_FALSE(IsAnswerFor(other, &contract, '1', '0'));

    result.nMaxVolume = 12;
    EXPECT_EQ(12, ShownLots(result));
    result.nMaxVolume = kLeast;
    EXPECT_EQ(0, ShownLots(result));
}

}  // namespace
