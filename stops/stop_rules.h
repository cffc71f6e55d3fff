#pragma once

#include <cstddef>
#include <string>

#include "plugin/contract/parameter_records.h"

// What stop strategies say, and when one may be set. All texts are GBK.

/// Is anything of it switched on?
bool IsPresetStopActive(const CPresetStop& stop);

/// The pages differ in how they write distances.
enum class StopPage {
    kOrderPage,
    kPanel,
};

struct StopDescription {
    char text[256];
};
/// One line, a line feed behind it; cut between two characters if prices do not fit.
StopDescription DescribePresetStop(const CPresetStop& stop, StopPage page);
/// Writes that line to the host's status.
void LogPresetStop(const CPresetStop& stop, StopPage page);

/// Title of the dialog for stops of future positions, and whether a title is one.
std::string PresetStopTitle(const char* contract);
bool IsPresetStopTitle(const char* title);

/// "永久有效" or "当日有效", by CTradeParam::nValidity.
const char* ValidityText(int validity);

// Texts of the configuration, each with a default.

std::string AllowedPrompt();
std::string RefusedPrompt();
/// The note below the tabs when stops are set on a position, at most kNoteSize - 1 bytes.
inline constexpr std::size_t kNoteSize = 2049;
std::string StopNote(int validity);

// Stops on a position depend on the state of the market, which the core is asked for.

/// What goes out with kFunctionMarketState.
std::string MarketStateRequest(const CPresetStop& stop);

enum class MarketVerdict {
    kQueryFailed,
    kRefused,
    kAllowed,
};
/// By the reply and CTradeParam::nValidity.
MarketVerdict JudgeMarketState(const char* reply, int validity);
/// The same with the trading parameters as they are now.
MarketVerdict CheckMarketState(const char* reply);
/// What the user is told.
std::string MarketVerdictText(MarketVerdict verdict);
