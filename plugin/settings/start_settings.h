#pragma once

/// Reads the settings that hold for the whole process into process_values.h, from
/// ".\TradeServer_KX_Gold.ini" and ".\Cfg\Trade\TradeParam.ini" of the current directory. What is
/// missing or broken leaves its default.
void ReadStartSettings();
