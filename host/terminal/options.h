#pragma once

#include <cstdint>
#include <string>

namespace terminal {

enum class FeedKind { kSimulator, kReplay, kManual };
enum class Look { kDark, kLight };

/// As fast as it goes.
inline constexpr double kMaximumSpeed = -1;

/// What the command line says. Paths are absolute, in the system's own encoding; empty where the
/// default is meant.
struct Options {
    FeedKind feed = FeedKind::kSimulator;
    std::string replay_file;
    std::string replay_as;         ///< contract that the replayed rows stand for
    double yuan_per_currency = 0;  ///< above 0: replayed prices are of a troy ounce in a currency
    double speed = 1;              ///< of the market's time; 0: only by steps
    std::uint64_t seed = 1;
    std::string account_file;
    std::string config_folder;
    std::string shots_folder;
    bool headless = false;
    bool automation = false;
    bool manual_clock = false;  ///< time passes by steps alone
    bool reset_account = false;
    bool first_frame = false;  ///< ends after the first picture
    int scale = 1;
    int width = 1280;  ///< logical pixels of the desktop, or of the window that shows it
    int height = 800;
    Look look = Look::kDark;
    bool look_given = false;
};

/// Reads the command line. False when the program is to end with `exit_code`; `message` (UTF-8)
/// then goes to standard output for 0 (help) and to standard error otherwise.
bool ParseOptions(int argc, const char* const* argv, Options& options, int& exit_code,
                  std::string& message);

}  // namespace terminal
