#include <gtest/gtest.h>

#include <climits>
#include <cstring>

#include "plugin/contract/codes.h"
#include "tests/support/gbk_text.h"

namespace {

const char* Prompt(int value) { return LoginPromptText(static_cast<ZEB_LOGIN_PROMPT>(value)); }

TEST(LoginPrompt, TextsStandWhereUsersKnowThem) {
    EXPECT_GBK_EQ("登录过程中出错", Prompt(1));
    EXPECT_GBK_EQ("查询手续费率...查询银行列表...", Prompt(16));
    EXPECT_GBK_EQ("查询保证金监控中心...", Prompt(18));
    for (const int silent : {0, 19, 20, 21, 22}) EXPECT_GBK_EQ("", Prompt(silent));
    for (const int unknown : {-1, 23, 1000, INT_MAX, INT_MIN}) EXPECT_GBK_EQ("", Prompt(unknown));
}

TEST(LoginPrompt, EveryTextFitsItsBuffer) {
    for (int value = 0; value <= ZEB_LOGIN_PROMPT_DONE; ++value) {
        EXPECT_LT(std::strlen(Prompt(value)), static_cast<std::size_t>(kLoginPromptTextSize));
    }
}

}  // namespace
