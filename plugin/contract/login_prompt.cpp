#include <cstddef>
#include <iterator>

#include "plugin/contract/codes.h"

namespace {

// By value. The two requests in one text, and with it the texts that run ahead of their requests,
// are what users know.
constexpr const char* kTexts[] = {
    "",
    "登录过程中出错",
    "正在连接...",
    "登录中...",
    "查询通知...",
    "查询结算单...",
    "确认结算单...",
    "查询合约...",
    "查询交易编码...",
    "查询当日委托...",
    "查询当日成交...",
    "查询持仓...",
    "查询持仓明细...",
    "查询帐户资金...",
    "查询交易参数...",
    "查询保证金率...",
    "查询手续费率...查询银行列表...",
    "查询银行账号...",
    "查询保证金监控中心...",
    "",
    "",
    "",
    "",
};
static_assert(std::size(kTexts) == ZEB_LOGIN_PROMPT_DONE + 1);

}  // namespace

const char* LoginPromptText(ZEB_LOGIN_PROMPT prompt) {
    const auto index = static_cast<std::size_t>(prompt);
    return index < std::size(kTexts) ? kTexts[index] : "";
}
