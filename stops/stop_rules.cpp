#include "stops/stop_rules.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "orderentry/price_rules.h"
#include "platform/text/bounded_text.h"
#include "platform/text/gbk.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/get_field.h"
#include "plugin/contract/ui_callback.h"
#include "plugin/settings/cached_profile_string.h"

namespace {

constexpr double kOff = 0.0001;
constexpr char kPresetMark[] = "预设";

/// The values that switch a rule on; pull-back and float only modify one.
struct Switches {
    double values[6];
};
Switches SwitchesOf(const CPresetStop& stop) {
    return {{stop.dLongProfit, stop.dShortProfit, stop.dLongStop, stop.dShortStop, stop.dStopTicks,
             stop.dProfitTicks}};
}

std::string Prompt(const char* key, const char* default_text) {
    return GetCachedProfileString("StopLossProfit", key, default_text,
                                  ".\\cfg\\Trade\\ConditionPrompt.ini");
}

/// A bounded field of a reply; empty if it is missing or too long.
template <std::size_t N>
const char* TakeField(const char* reply, char (&field)[N]) {
    return GetField(reply, field, static_cast<int>(N), '|');
}

}  // namespace

bool IsPresetStopActive(const CPresetStop& stop) {
    const Switches switches = SwitchesOf(stop);
    return std::any_of(std::begin(switches.values), std::end(switches.values),
                       [](double value) { return value > kOff; });
}

StopDescription DescribePresetStop(const CPresetStop& stop, StopPage page) {
    StopDescription line{};
    auto& text = line.text;
    constexpr std::size_t kSize = sizeof line.text;
    text::CopyText(text, text::FieldText(stop.szContract));
    const Switches switches = SwitchesOf(stop);
    if (std::all_of(std::begin(switches.values), std::end(switches.values),
                    [](double value) { return value < kOff; })) {
        text::AppendText(text, "取消预设止盈止损!\n");
        return line;
    }
    const bool panel = page == StopPage::kPanel;
    const int places = panel ? 1 : 3;
    text::AppendText(text, panel ? "预设止盈止损策略| " : "预设止盈止损策略|");
    text::AppendFormat(text, kSize, "绝对值做多止损:%.3f,止盈:%.3f|", stop.dLongStop,
                       stop.dLongProfit);
    text::AppendFormat(text, kSize, "绝对值做空止损:%.3f,止盈:%.3f|", stop.dShortStop,
                       stop.dShortProfit);
    text::AppendFormat(text, kSize, "相对止损:%.*f,浮动:%.*f|", places, stop.dStopTicks, places,
                       stop.dStopFloat);
    text::AppendFormat(text, kSize, "相对止盈:%.*f,回撤:%.*f|\n", places, stop.dProfitTicks, places,
                       stop.dProfitPullback);
    return line;
}

void LogPresetStop(const CPresetStop& stop, StopPage page) {
    CUICallBack* const core = GetUICallBack();
    if (core != nullptr) core->ShowStatusText(DescribePresetStop(stop, page).text, kStatusPlain);
}

std::string PresetStopTitle(const char* contract) {
    char title[64];
    text::CopyText(title, contract);
    text::AppendText(title, "预设止盈止损");
    return title;
}

bool IsPresetStopTitle(const char* title) {
    if (title == nullptr) return false;
    constexpr std::size_t kLength = sizeof kPresetMark - 1;
    for (const char* at = title; *at != '\0'; at = text::NextChar(at)) {
        if (std::strncmp(at, kPresetMark, kLength) == 0) return true;
    }
    return false;
}

const char* ValidityText(int validity) { return validity != 0 ? "永久有效" : "当日有效"; }

std::string AllowedPrompt() {
    return Prompt(
        "AllowSetSLP",
        "止损止盈单设置成功，如您设置的是永久有效，在每日19:00至开盘前，登录交易后自动启动.");
}

std::string RefusedPrompt() { return Prompt("RefuseSetSLP", "盘后禁止设置当日有效条件单."); }

std::string StopNote(int validity) {
    const std::string prompt = Prompt(
        "StaticPrompt",
        "止损止盈单设置成功，如您设置的是永久有效，请在每日19:00至开盘前，登录交易后手动启动，"
        "以确保您的止损止盈单生效");
    char note[kNoteSize];
    text::FormatText(note, sizeof note, "有效范围：%s。", ValidityText(validity));
    text::AppendText(note, prompt.c_str());
    return note;
}

std::string MarketStateRequest(const CPresetStop& stop) {
    char request[256];
    text::CopyText(request, text::FieldText(stop.szExchange));
    text::AppendText(request, "|");
    text::AppendText(request, text::FieldText(stop.szContract));
    return request;
}

MarketVerdict JudgeMarketState(const char* reply, int validity) {
    constexpr int kAnswerPlace = 4;
    char field[128];
    for (int i = 0; i < kAnswerPlace; ++i) reply = TakeField(reply, field);
    if (field[0] != 'Y') return MarketVerdict::kQueryFailed;
    reply = TakeField(reply, field);
    reply = TakeField(reply, field);
    char state[32];
    TakeField(reply, state);
    if (state[0] == '1') return MarketVerdict::kAllowed;
    return state[0] == '2' && validity != 0 ? MarketVerdict::kAllowed : MarketVerdict::kRefused;
}

MarketVerdict CheckMarketState(const char* reply) {
    const int validity = ReadTradeParam().nValidity;
    return JudgeMarketState(reply, validity);
}

std::string MarketVerdictText(MarketVerdict verdict) {
    switch (verdict) {
        case MarketVerdict::kAllowed: return AllowedPrompt();
        case MarketVerdict::kRefused: return RefusedPrompt();
        case MarketVerdict::kQueryFailed: break;
    }
    return "市场状态查询失败，禁止设置止盈止损条件单";
}
