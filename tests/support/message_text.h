#pragma once

#include <string>

#include "platform/system.h"

namespace tests {

/// Words for what travels in messages, as the tables of expected messages write them.
std::string PositionFlags(const WINDOWPOS& position);
std::string ActivationWord(WPARAM wParam);
std::string ScrollWord(int code);
std::string SystemCommandText(WPARAM wParam);
std::string PointText(LPARAM lParam);
std::string HexText(unsigned value);

}  // namespace tests
