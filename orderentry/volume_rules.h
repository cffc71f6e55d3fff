#pragma once

#include <string>

#include "plugin/contract/market_records.h"
#include "plugin/contract/order_records.h"
#include "plugin/contract/position_records.h"

// Lots: what a volume box means, and how many lots could be traded.

/// Lots of a volume box; below 1 it holds no volume.
int ReadLots(const char* text);
/// What a volume box shows after a click on its spin with this delta (-1 for up): at least 1.
std::string StepVolume(const char* text, int delta);

/// Lots that an order of this direction can close: those not frozen of the first position of the
/// contract with another direction; 0 without one.
int GetCloseVolume(const CZebPosition* positions, int count, const char* contract, char direction);
/// Lots that the money is enough for, 0 if there is none. Open losses are 0 or less.
int AffordableLots(double available, double open_losses, double margin_per_lot);

/// What the display of the maximum volume rests on: the order page's state.
struct MaxVolumeQuestion {
    const CZebContract* contract;  ///< null for none
    CHostSymbol symbol;
    const char* price_text;
    char direction;          ///< the page's
    char checked_direction;  ///< that of the checked radio button, for which the price is resolved
    char offset;
    bool has_offset;
    bool net;
    int closable;  ///< by GetCloseVolume
    double available;
    double open_losses;
};

struct MaxVolumeAnswer {
    enum class Kind {
        kKeep,   ///< the display stays
        kShow,   ///< `lots` are shown
        kQuery,  ///< `query` goes to the core, which answers later
    };
    Kind kind = Kind::kKeep;
    int lots = 0;
    CQueryMaxVolume query{};
};

/// What happens to the display. An offset other than '0' is the closing side.
MaxVolumeAnswer AskMaxVolume(const MaxVolumeQuestion& question);
CQueryMaxVolume MaxVolumeQuery(const CZebContract& contract, char direction, char offset,
                               double price);
/// Is the core's answer about what the page shows now?
bool IsAnswerFor(const CQueryMaxVolumeResult& result, const CZebContract* contract, char direction,
                 char offset);
/// Lots of the core's answer as they are shown.
int ShownLots(const CQueryMaxVolumeResult& result);
const char* MaxVolumeLabel(bool has_offset, char direction, char offset);
