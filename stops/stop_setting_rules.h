#pragma once

#include <string>

#include "plugin/contract/market_records.h"
#include "plugin/contract/parameter_records.h"

// How stops and the account's settings for them become texts in edits, and back.

/// The stop settings of the trading parameters, as numbers at natural addresses.
struct StopSettings {
    int m_nStopTicks = 0;
    unsigned char m_nStopTriggerPrice = 0;
    int m_nProfitTicks = 0;
    unsigned char m_nProfitTriggerPrice = 0;
    unsigned char m_nStopOrderPrice = 0;
    unsigned char m_nProfitOrderPrice = 0;
    int m_nProfitAdjust = 0;
    int m_nStopAdjust = 0;
    int m_bAutoChase = 0;
    int m_nValidity = 0;
};
StopSettings StopSettingsOf(const CTradeParam& param);
/// Leaves everything else of the parameters as it is.
void PutStopSettings(CTradeParam& param, const StopSettings& settings);
/// The number of a combo's row; none selected is row 0, and so is one that no byte holds.
unsigned char RowNumber(long long selected);

/// A stop or a take-profit relative to the open price, as its two radio buttons and edits show it.
struct RelativeRule {
    bool on = false;
    bool fixed = false;     ///< at `fixed_distance`
    bool floating = false;  ///< at `distance`, following in steps (a stop) or with a pull-back
    std::string fixed_distance;
    std::string distance;
    std::string step;
};
struct RelativeDistance {
    double ticks;
    double step;
};
RelativeRule StopRuleOf(const CPresetStop& stop);
RelativeRule ProfitRuleOf(const CPresetStop& stop);
/// What the record holds for the controls as they stand; zeroes for a rule that is off.
RelativeDistance DistanceOf(const RelativeRule& rule);

/// The text of an absolute price; empty for one that is off.
std::string AbsolutePriceText(double price, const CZebContract& contract);
/// The price of an edit; 0 if its box is not checked. Texts that are no finite number are 0.
double AbsolutePrice(bool checked, const char* text);

/// The price that a box which is just checked suggests: 20 ticks from the last price, to the side
/// of the sign. Empty if there is no contract or the host does not know it.
std::string SuggestedPrice(const CZebContract* contract, int sign);

/// What edits show after a click on their spin with this delta (-1 for up). Counts and distances go
/// no lower than 1 (StepVolume), adjustments anywhere.
std::string SteppedAdjustment(const char* text, int delta);
/// A price goes no lower than a tick.
std::string SteppedStopPrice(const char* text, int delta, const CZebContract& contract);
