#pragma once

#include "host/market/simulator.h"

namespace market {

/// A made up trading day of one-minute bars, by contract: each contract's continuous sessions on
/// `day`. Contracts of a metal move together, and all end at the prices at which the simulator's
/// first day takes over.
History MakeHistory(const papercore::TermsTable& terms, papercore::Day day,
                    const SimulatorOptions& options);

}  // namespace market
