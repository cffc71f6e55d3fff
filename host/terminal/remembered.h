#pragma once

#include <string>
#include <vector>

#include "host/terminal/frame_layout.h"
#include "host/terminal/options.h"

namespace terminal {

/// What the terminal remembers from run to run.
struct Remembered {
    PaneSizes sizes;
    int width = 0;  ///< of the frame; 0: as large as the desktop allows
    int height = 0;
    bool maximised = false;
    Look look = Look::kDark;
    std::string contract;  ///< current one, UTF-8
    std::string account = "demo";
    int page = 0;
    int chart_period = 1;            ///< minutes of a candle; 0: the day's line
    std::vector<int> quote_columns;  ///< widths
};

/// Reads it. Missing or broken parts keep their defaults, numbers are clipped to sense. False if
/// there is a file that is none of ours; it is kept beside under another name when the next one is
/// written.
bool ReadRemembered(const std::string& path, Remembered& remembered);

/// Written beside and renamed. False if that failed.
bool WriteRemembered(const std::string& path, const Remembered& remembered);

}  // namespace terminal
