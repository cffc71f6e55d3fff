#include "papercore/contract_terms.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace papercore {
namespace {

const std::string kSample = R"json({"version": 1,
 "session_tables": {"all": [
  {"phase": "auction", "begin": "19:50", "end": "20:00"},
  {"phase": "continuous", "begin": "20:00", "end": "02:30"},
  {"phase": "continuous", "begin": "09:00", "end": "15:30"}]},
 "contracts": [{"contract": "Au(T+D)", "exchange": "SGE", "market": "GT-F", "unit": 1000,
  "digits": 2, "tick": 0.01, "smallest_order": 1, "largest_order": 500, "sessions": "all",
  "fee_open_percent": 0.015, "fee_close_percent": 0.02, "fee_close_today_percent": 0,
  "deferred_percent": 0.0175, "deferred_payer": "short", "limit_percent": 15,
  "dated": [{"from": "2026-01-05", "margin_percent": 16},
            {"from": "2026-02-24", "margin_percent": 18, "limit_percent": 17}]}]})json";

std::string With(const std::string& from, const std::string& to) {
    std::string text = kSample;
    const auto at = text.find(from);
    EXPECT_NE(std::string::npos, at) << from;
    if (at != std::string::npos) text.replace(at, from.size(), to);
    return text;
}

TEST(ContractTermsFile, GivesExactRatesInForceOnADay) {
    TermsTable table;
    ASSERT_EQ("", table.Parse(kSample));
    const ContractTerms* terms = table.Find("Au(T+D)", 20260223);
    ASSERT_NE(nullptr, terms);
    EXPECT_EQ(160'000, terms->margin);
    EXPECT_EQ(150'000, terms->limit);
    EXPECT_EQ(150, terms->fee_open);
    EXPECT_EQ(200, terms->fee_close);
    EXPECT_EQ(175, terms->deferred);
    EXPECT_EQ(DeferredDirection::kShortPays, terms->deferred_direction);
    EXPECT_EQ(100, terms->tick);
    EXPECT_EQ(180'000, table.Find("Au(T+D)", 20260224)->margin);
    EXPECT_EQ(170'000, table.Find("Au(T+D)", 20260224)->limit);
}

TEST(ContractTermsFile, CountsSessionsFromTheEveningBefore) {
    TermsTable table;
    ASSERT_EQ("", table.Parse(kSample));
    const auto& sessions = table.Find("Au(T+D)", 20260105)->sessions;
    ASSERT_EQ(3U, sessions.size());
    EXPECT_EQ(1190, sessions[0].begin);
    EXPECT_EQ(PhaseKind::kAuction, sessions[0].kind);
    EXPECT_EQ(1590, sessions[1].end);
    EXPECT_EQ(1980, sessions[2].begin);
    EXPECT_EQ(2370, sessions[2].end);
}

TEST(ContractTermsFile, SaysWhereAFaultIsAndKeepsTheOldTable) {
    struct Case {
        const char* from;
        const char* to;
        const char* said;
    };
    const Case cases[] = {
        {"\"version\": 1", "\"version\": 2", "\"version\" is not 1"},
        {"\"unit\": 1000", "\"unit\": 0", "contracts[0].dated[0]: \"unit\" is out of range"},
        {"\"unit\": 1000", "\"unit\": 1.5", "\"unit\" is not whole"},
        {"\"unit\": 1000", "\"unit\": \"x\"", "\"unit\" is not a number"},
        {"\"unit\": 1000,", "", "\"unit\" is missing"},
        {"\"tick\": 0.01", "\"tick\": 0.001", "more places"},
        {"\"tick\": 0.01", "\"tik\": 0.01", "unknown field \"tik\""},
        {"\"margin_percent\": 18", "\"margin_percent\": 0", "dated[1]: \"margin_percent\" is 0"},
        {"\"margin_percent\": 18", "\"margin_percent\": 1e300", "out of range"},
        {"2026-02-24", "2026-13-24", "dated[1]: \"from\""},
        {"2026-02-24", "2026-02-30", "dated[1]: \"from\""},
        {"\"margin_percent\": 18", "\"margin_percent\": -18", "out of range"},
        {"\"margin_percent\": 18", "\"margin_percent\": null", "is not a number"},
        {"\"limit_percent\": 17", "\"contract\": \"Au\"", "stands at the contract only"},
        {"\"smallest_order\": 1", "\"smallest_order\": 501", "is below \"smallest_order\""},
        {"\"02:30\"", "\"20:00\"", "session_tables.all[1]"},
        {"2026-02-24", "2026-01-05", "two rows for day 20260105"},
        {"\"short\"", "\"both\"", "deferred_payer"},
        {"\"sessions\": \"all\"", "\"sessions\": \"none\"", "names no session table"},
        {"\"09:00\"", "\"02:00\"", "session_tables.all[2]"},
        {"\"15:30\"", "\"25:30\"", "HH:MM"},
        {"\"GT-F\"", "\"GT-S\"", "paid in full"},
        {"\"largest_order\": 500", "\"largest_order\": 0", "out of range"},
        {"Au(T+D)", "Au (T+D)", "\"contract\" is not"},
    };
    TermsTable table;
    ASSERT_EQ("", table.Parse(kSample));
    for (const Case& each : cases) {
        const std::string said = table.Parse(With(each.from, each.to));
        EXPECT_NE(std::string::npos, said.find(each.said)) << each.to << " gave: " << said;
        EXPECT_EQ(std::string::npos, said.find('\n'));
        ASSERT_NE(nullptr, table.Find("Au(T+D)", 20260301));
        EXPECT_EQ(180'000, table.Find("Au(T+D)", 20260301)->margin);
    }
}

TEST(ContractTermsFile, EveryCutAndEverySpoiltByteIsAnsweredNotACrash) {
    for (std::size_t at = 0; at < kSample.size(); ++at) {
        TermsTable table;
        EXPECT_NE("", table.Parse(std::string_view(kSample).substr(0, at)));
        std::string spoilt = kSample;
        spoilt[at] = static_cast<char>(0xFF);
        EXPECT_NE("", table.Parse(spoilt));
        EXPECT_TRUE(table.Contracts().empty());
    }
}

TEST(ContractTermsFile, NestingWithoutEndIsRefused) {
    const std::string open(200'000, '[');
    const std::string shut(200'000, ']');
    for (const std::string& text :
         {open, open + shut, With("1000", open + shut), With("\"GT-F\"", open + shut),
          With("{\"from\": \"2026-01-05\"", "{\"x\": " + open + shut)}) {
        TermsTable table;
        EXPECT_NE("", table.Parse(text));
    }
}

/// TERMS_FUZZ sets the number of rounds.
TEST(ContractTermsFile, AnyBytesAreAnsweredInOneLine) {
    const char* rounds = std::getenv("TERMS_FUZZ");
    std::mt19937 random(1);
    const auto pick = [&random](std::size_t below) { return random() % below; };
    const std::string odd[] = {"1e999", "-0",          "[]",           "{}",
                               "null",  "\"\\u0000\"", "\xEF\xBB\xBF", ","};
    for (int round = rounds ? std::atoi(rounds) : 2000; round > 0; --round) {
        std::string text = round % 4 == 0 ? std::string(pick(200), ' ') : kSample;
        for (std::size_t spoilt = 1 + pick(round % 4 == 0 ? 200 : 4); spoilt > 0; --spoilt) {
            if (text.empty()) break;
            const std::size_t at = pick(text.size());
            if (pick(2) == 0) {
                text[at] = static_cast<char>(pick(256));
            } else {
                text.replace(at, pick(6), odd[pick(std::size(odd))]);
            }
        }
        TermsTable table;
        const std::string said = table.Parse(text);
        EXPECT_EQ(said.empty(), !table.Contracts().empty());
        EXPECT_EQ(std::string::npos, said.find_first_of("\r\n"));
        for (const std::string& name : table.Contracts()) {
            const ContractTerms* terms = table.Find(name, 20260301);
            ASSERT_NE(nullptr, terms);
            EXPECT_TRUE(terms->tick > 0 && terms->unit > 0 && terms->margin > 0 &&
                        !terms->sessions.empty());
        }
    }
}

TEST(ContractTermsFile, TheOneThatIsShippedHoldsTheSixContracts) {
    std::ifstream file(CONTRACT_TERMS, std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    TermsTable table;
    ASSERT_EQ("", table.Parse(content));
    struct Case {
        const char* contract;
        const char* market;
        int unit;
        Price tick;
        Ppm margin, limit, limit_of_2019;
        std::int64_t largest_order;
    };
    const Case cases[] = {
        {"Au(T+D)", "GT-F", 1000, 100, 180'000, 170'000, 50'000, 1000},
        {"Ag(T+D)", "GT-F", 1, 10'000, 240'000, 230'000, 60'000, 2000},
        {"mAu(T+D)", "GT-F", 100, 100, 180'000, 170'000, 50'000, 2000},
        {"Au100g", "GT-S", 100, 100, 1'000'000, 300'000, 300'000, 1000},
        {"Au99.99", "GT-S", 10, 100, 1'000'000, 300'000, 300'000, 10'000},
        {"Au99.95", "GT-S", 1000, 100, 1'000'000, 300'000, 300'000, 1000},
    };
    ASSERT_EQ(std::size(cases), table.Contracts().size());
    for (const Case& each : cases) {
        SCOPED_TRACE(each.contract);
        const ContractTerms* terms = table.Find(each.contract, 20260224);
        ASSERT_NE(nullptr, terms);
        EXPECT_EQ(each.market, terms->market);
        EXPECT_EQ(each.unit, terms->unit);
        EXPECT_EQ(each.tick, terms->tick);
        EXPECT_EQ(each.margin, terms->margin);
        EXPECT_EQ(each.limit, terms->limit);
        EXPECT_EQ(each.largest_order, terms->largest_order);
        EXPECT_EQ(800, terms->fee_open);
        EXPECT_EQ(terms->IsSpot() ? 0 : 175, terms->deferred);
        EXPECT_EQ(3U, terms->sessions.size());
        EXPECT_EQ(4U, table.Find(each.contract, 20190614)->sessions.size());
        EXPECT_EQ(each.limit_of_2019, table.Find(each.contract, 20190614)->limit);
    }
    EXPECT_EQ(230'000, table.Find("Ag(T+D)", 20260203)->margin);
    EXPECT_EQ(160'000, table.Find("Au(T+D)", 20260203)->margin);
}

}  // namespace
}  // namespace papercore
