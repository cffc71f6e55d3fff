#include "host/terminal/options.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <map>

namespace terminal {
namespace {

constexpr double kFastest = 100000;
constexpr int kLeastWidth = 640;
constexpr int kLeastHeight = 480;
constexpr int kMostPixels = 8192;  // in either direction

// The current folder is another one soon.
void MakeAbsolute(std::string& path) {
    if (path.empty()) return;
    std::error_code error;
    const std::filesystem::path whole = std::filesystem::absolute(path, error);
    if (!error) path = whole.lexically_normal().string();
}

std::string CheckSpeed(const std::string& word) {
    if (word == "max") return {};
    double speed = -1;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), speed);
    const bool number = error == std::errc() && end == word.data() + word.size();
    if (!number || !std::isfinite(speed) || speed < 0 || speed > kFastest) {
        return "is neither \"max\" nor a number from 0 to 100000";
    }
    return {};
}

double SpeedOf(const std::string& word) {
    return word == "max" ? kMaximumSpeed : std::strtod(word.c_str(), nullptr);
}

/// "1920x1080". False for anything else, also beyond what a window can be.
bool ReadSize(const std::string& word, int& width, int& height) {
    const char* const end = word.data() + word.size();
    const auto across = std::from_chars(word.data(), end, width);
    if (across.ec != std::errc() || across.ptr == end || *across.ptr != 'x') return false;
    const auto down = std::from_chars(across.ptr + 1, end, height);
    if (down.ec != std::errc() || down.ptr != end) return false;
    return width >= kLeastWidth && width <= kMostPixels && height >= kLeastHeight &&
           height <= kMostPixels;
}

std::string CheckSize(const std::string& word) {
    int width = 0;
    int height = 0;
    if (ReadSize(word, width, height)) return {};
    return "is no size from 640x480 to 8192x8192";
}

// What one option alone can't tell. Empty if all is well.
std::string Conflict(const Options& options, bool feed_given) {
    const bool replays = !options.replay_file.empty();
    if (feed_given && (options.feed == FeedKind::kReplay) != replays) {
        return replays ? "--replay: only with --feed replay"
                       : "--feed replay: needs --replay FILE --as CONTRACT";
    }
    if (replays && options.replay_as.empty()) return "--replay: needs --as CONTRACT";
    if (!replays && !options.replay_as.empty()) return "--as: only with --replay FILE";
    if (!replays && options.yuan_per_currency > 0) return "--per-ounce: only with --replay FILE";
    if (options.manual_clock && !options.headless) return "--manual-clock: only with --headless";
    if (options.reset_account && options.automation) {
        return "--reset-account: asks a question, which --automation has no answer for";
    }
    return {};
}

std::string OneLine(std::string text) {
    for (char& c : text) {
        if (c == '\n' || c == '\r') c = ' ';
    }
    return text;
}

}  // namespace

bool ParseOptions(int argc, const char* const* argv, Options& options, int& exit_code,
                  std::string& message) {
    CLI::App app{"A terminal for spot gold contracts with a paper account.", "goldterm"};
    const std::map<std::string, FeedKind> feeds{{"sim", FeedKind::kSimulator},
                                                {"replay", FeedKind::kReplay},
                                                {"manual", FeedKind::kManual}};
    const std::map<std::string, Look> looks{{"dark", Look::kDark}, {"light", Look::kLight}};
    std::string speed = "1";
    std::string size;
    const CLI::Option* feed =
        app.add_option("--feed", options.feed, "where quotes come from: sim, replay or manual")
            ->transform(CLI::CheckedTransformer(feeds).description(""))
            ->option_text("sim|replay|manual");
    app.add_option("--replay", options.replay_file, "replay the rows of a CSV file")
        ->check(CLI::ExistingFile.description(""))
        ->option_text("FILE");
    app.add_option("--as", options.replay_as, "the contract that the rows stand for")
        ->option_text("CONTRACT");
    app.add_option("--per-ounce", options.yuan_per_currency,
                   "its prices are of a troy ounce, in a currency worth so many yuan")
        ->check(CLI::Range(0.0001, 10000.0).description(""))
        ->option_text("YUAN");
    app.add_option("--speed", speed, "market time: 0 (only by steps), 1, N or max")
        ->check(CLI::Validator(CheckSpeed, ""))
        ->option_text("N|max");
    app.add_option("--seed", options.seed, "of the simulator")
        ->check(CLI::NonNegativeNumber.description(""))
        ->option_text("N");
    app.add_option("--account", options.account_file, "the paper account's file")
        ->option_text("FILE");
    app.add_option("--config", options.config_folder, "folder with the INI and JSON files")
        ->check(CLI::ExistingDirectory.description(""))
        ->option_text("DIR");
    app.add_flag("--headless", options.headless, "no window");
    app.add_flag("--automation", options.automation,
                 "commands come as JSON lines on standard input");
    app.add_flag("--manual-clock", options.manual_clock,
                 "time passes by the command \"step\" alone (with --headless)");
    app.add_option("--shots", options.shots_folder, "folder for screenshots")->option_text("DIR");
    app.add_option("--scale", options.scale, "device pixels a pixel: 1, 2 or 3")
        ->check(CLI::Range(1, 3).description(""))
        ->option_text("N");
    app.add_option("--size", size, "logical pixels of the window, as 1280x800")
        ->check(CLI::Validator(CheckSize, ""))
        ->option_text("WxH");
    const CLI::Option* look = app.add_option("--look", options.look, "dark or light")
                                  ->transform(CLI::CheckedTransformer(looks).description(""))
                                  ->option_text("dark|light");
    app.add_flag("--reset-account", options.reset_account,
                 "start over with an empty account (asks first)");
    app.add_flag("--first-frame", options.first_frame, "end after the first picture");
    exit_code = 2;
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        exit_code = 0;
        message = app.help();
        return false;
    } catch (const CLI::ParseError& error) {
        message = "goldterm: " + OneLine(error.what());
        return false;
    }
    const std::string conflict = Conflict(options, feed->count() > 0);
    if (!conflict.empty()) {
        message = "goldterm: " + conflict;
        return false;
    }
    if (!options.replay_file.empty()) options.feed = FeedKind::kReplay;
    options.speed = SpeedOf(speed);
    if (!size.empty()) ReadSize(size, options.width, options.height);
    options.look_given = look->count() > 0;
    for (std::string* path : {&options.replay_file, &options.account_file, &options.config_folder,
                              &options.shots_folder}) {
        MakeAbsolute(*path);
    }
    exit_code = 0;
    return true;
}

}  // namespace terminal
