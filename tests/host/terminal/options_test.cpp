#include "host/terminal/options.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/support/temp_folder.h"

namespace {

using namespace terminal;

struct Read {
    bool goes_on = false;
    int exit_code = -1;
    Options options;
    std::string message;
};

Read Parse(std::vector<const char*> words) {
    words.insert(words.begin(), "goldterm");
    Read read;
    read.goes_on = ParseOptions(static_cast<int>(words.size()), words.data(), read.options,
                                read.exit_code, read.message);
    return read;
}

TEST(Options, WithoutAWordTheSimulatorRunsAtNormalSpeed) {
    const Read read = Parse({});
    ASSERT_TRUE(read.goes_on);
    EXPECT_EQ(read.options.feed, FeedKind::kSimulator);
    EXPECT_EQ(read.options.speed, 1);
    EXPECT_EQ(read.options.scale, 1);
    EXPECT_FALSE(read.options.look_given);
}

TEST(Options, WordsAreTakenAndPathsMadeAbsolute) {
    std::ofstream("replayed.csv") << "x\n";
    const Read read =
        Parse({"--replay", "replayed.csv", "--as", "Au(T+D)", "--speed", "max", "--account", "a.db",
               "--headless", "--automation", "--manual-clock", "--scale", "2", "--look", "light",
               "--seed", "7", "--size", "1920x1080"});
    ASSERT_TRUE(read.goes_on) << read.message;
    EXPECT_EQ(read.options.feed, FeedKind::kReplay);
    EXPECT_TRUE(std::filesystem::path(read.options.replay_file).is_absolute());
    EXPECT_TRUE(std::filesystem::path(read.options.account_file).is_absolute());
    EXPECT_EQ(read.options.speed, kMaximumSpeed);
    EXPECT_EQ(read.options.scale, 2);
    EXPECT_EQ(read.options.width, 1920);
    EXPECT_EQ(read.options.height, 1080);
    EXPECT_EQ(read.options.look, Look::kLight);
    EXPECT_EQ(read.options.seed, 7u);
    EXPECT_TRUE(read.options.config_folder.empty());
    std::filesystem::remove("replayed.csv");
}

TEST(Options, HelpIsNoError) {
    const Read read = Parse({"--help"});
    EXPECT_FALSE(read.goes_on);
    EXPECT_EQ(read.exit_code, 0);
    EXPECT_NE(read.message.find("--replay"), std::string::npos);
}

TEST(Options, BrokenWordsGetOneClearLineAndExitCodeTwo) {
    const std::vector<std::vector<const char*>> broken = {
        {"--nonsense"},
        {"word"},
        {"--feed", "moon"},
        {"--feed", "replay"},
        {"--feed", "sim", "--replay", "/etc/passwd", "--as", "Au(T+D)"},
        {"--replay", "/etc/passwd"},
        {"--replay", "/no/such/file", "--as", "Au(T+D)"},
        {"--as", "Au(T+D)"},
        {"--per-ounce", "7.1"},
        {"--replay", "/etc/passwd", "--as", "Au(T+D)", "--per-ounce", "0"},
        {"--speed", "-1"},
        {"--speed", "fast"},
        {"--speed", "nan"},
        {"--speed", "1e9"},
        {"--speed", "1x"},
        {"--speed", ""},
        {"--scale", "4"},
        {"--scale", "0"},
        {"--size", "1280"},
        {"--size", "1280x"},
        {"--size", "1280x800x2"},
        {"--size", "639x480"},
        {"--size", "-1280x800"},
        {"--size", "1280x8193"},
        {"--look", "blue"},
        {"--seed", "-1"},
        {"--config", "/no/such/folder"},
        {"--manual-clock"},
        {"--reset-account", "--automation"},
    };
    for (const auto& words : broken) {
        const Read read = Parse(words);
        std::string line;
        for (const char* word : words) line += std::string(word) + " ";
        EXPECT_FALSE(read.goes_on) << line;
        EXPECT_EQ(read.exit_code, 2) << line;
        EXPECT_FALSE(read.message.empty()) << line;
        EXPECT_EQ(read.message.find('\n'), std::string::npos) << read.message;
    }
}

}  // namespace
