#include "plugin/function_reply.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/gbk_text.h"

namespace {

TEST(FunctionReply, IsAcceptedByItsFourthFieldAlone) {
    const std::string thirty(30, 'Y');
    struct {
        std::string reply;
        const char* rest;  ///< null: refused
    } const cases[] = {
        {"a|b|c|Y|rest|more", "rest|more"},
        {"a|b|c|Yes|rest", "rest"},
        {"Y|Y|Y|N|rest", nullptr},
        {"a|b|c|y|rest", nullptr},
        {"a|b|c||rest", nullptr},
        {"|||Y|", ""},
        {"a|b|c|Y", ""},
        {"a|b|Y", nullptr},
        {"Y", nullptr},
        {"", nullptr},
        {"a|b|c|" + thirty + "|rest", "rest"},
        {"a|b|c|" + thirty + "Y|rest", nullptr},
        {thirty + "Y|b|c|Y|rest", "rest"},
    };
    for (const auto& one : cases) {
        const char* rest = AcceptedFields(one.reply.c_str());
        ASSERT_EQ(one.rest == nullptr, rest == nullptr) << one.reply;
        if (rest != nullptr) {
            EXPECT_GBK_EQ(one.rest, rest);
        }
    }
}

TEST(FunctionReply, OrdersTheNextReportAtThreeQuartersOfTheInterval) {
    struct {
        const char* fields;
        const char* challenge;
        UINT millis;
    } const cases[] = {
        {"abc|60|", "abc", 45000},
        {"abc|7", "abc", 5250},
        {"abc|1", "abc", 3750},
        {"abc|-9", "abc", 3750},
        {"abc|soon", "abc", 3750},
        {"abc", "abc", 3750},
        {"|60", "", 45000},
        {"", "", 3750},
        {"abc|2863311", "abc", 2147483250},
        {"abc|2863312", "abc", 0x7FFFFFFF},
        {"abc|99999999999999999999", "abc", 0x7FFFFFFF},
        {"abc|4294967299", "abc", 0x7FFFFFFF},
    };
    for (const auto& one : cases) {
        const ReportOrder order = ReadReportOrder(one.fields);
        EXPECT_GBK_EQ(one.challenge, order.challenge);
        EXPECT_EQ(one.millis, order.millisToReport) << one.fields;
    }
}

TEST(FunctionReply, SkipsAChallengeThatIsTooLong) {
    const std::string fits(4095, 'c');
    EXPECT_EQ(fits, ReadReportOrder((fits + "|60").c_str()).challenge);
    const ReportOrder order = ReadReportOrder((fits + "c|60").c_str());
    EXPECT_EQ("", order.challenge);
    EXPECT_EQ(45000U, order.millisToReport);
}

}  // namespace
