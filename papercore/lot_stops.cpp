#include "papercore/lot_stops.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace papercore {
namespace {

constexpr double kOff = 0.0001;

}  // namespace

bool IsActiveStop(const CPresetStop& record) {
    const std::array<double, 6> rules = {record.dLongProfit, record.dShortProfit,
                                         record.dLongStop,   record.dShortStop,
                                         record.dStopTicks,  record.dProfitTicks};
    return std::any_of(rules.begin(), rules.end(), [](double value) { return value > kOff; });
}

bool IsFiniteStop(const CPresetStop& record) {
    const std::array<double, 8> values = {
        record.dProfitTicks, record.dProfitPullback, record.dStopTicks,   record.dStopFloat,
        record.dLongProfit,  record.dLongStop,       record.dShortProfit, record.dShortStop};
    return std::all_of(values.begin(), values.end(),
                       [](double value) { return std::isfinite(value); });
}

}  // namespace papercore
