#pragma once

#include "plugin/contract/parameter_records.h"

namespace papercore {

/// Whether any rule of a strategy is on. A pull-back or a step alone is none.
bool IsActiveStop(const CPresetStop& record);

/// No value of the record is beyond all numbers.
bool IsFiniteStop(const CPresetStop& record);

}  // namespace papercore
