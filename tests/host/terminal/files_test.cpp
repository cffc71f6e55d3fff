#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "host/terminal/data_folder.h"
#include "host/terminal/remembered.h"
#include "tests/support/temp_folder.h"

namespace {

using namespace terminal;
namespace fs = std::filesystem;

std::string Content(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void Write(const fs::path& path, const std::string& content) {
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << content;
}

class Files : public ::testing::Test {
protected:
    testing_support::TempFolder temp_;
    fs::path folder_ = temp_.path();
};

TEST_F(Files, SamplesAreCopiedAsGbkAndNeverOverWhatIsThere) {
    const fs::path samples = folder_ / "samples";
    Write(samples / "A.ini", "[a]\nname=\xE9\x87\x91\n");  // UTF-8
    Write(samples / "Cfg/Trade/B.ini", "[b]\n");
    Write(samples / "terms.json", "{\"name\":\"\xE9\x87\x91\"}");
    const fs::path own = folder_ / "own/deep";
    ASSERT_EQ(FillFolder(own.string(), samples.string()), "");
    EXPECT_EQ(Content(own / "A.ini"), "[a]\nname=\xBD\xF0\n");  // GBK
    EXPECT_EQ(Content(own / "terms.json"), "{\"name\":\"\xE9\x87\x91\"}");
    EXPECT_TRUE(fs::exists(own / "Cfg/Trade/B.ini"));
    Write(own / "A.ini", "mine");
    fs::remove(own / "Cfg/Trade/B.ini");
    ASSERT_EQ(FillFolder(own.string(), samples.string()), "");
    EXPECT_EQ(Content(own / "A.ini"), "mine");
    EXPECT_TRUE(fs::exists(own / "Cfg/Trade/B.ini"));
}

TEST_F(Files, AFolderThatCannotBeMadeIsNamed) {
    Write(folder_ / "file", "x");
    EXPECT_NE(FillFolder((folder_ / "file/below").string(), "").find("below"), std::string::npos);
    EXPECT_NE(FillFolder((folder_ / "own").string(), (folder_ / "none").string()), "");
}

TEST_F(Files, WhatIsRememberedComesBack) {
    const std::string path = (folder_ / "goldterm.json").string();
    Remembered before;
    EXPECT_TRUE(ReadRemembered(path, before)) << "no file yet";
    before.sizes = {500, 210, 333};
    before.width = 1280;
    before.height = 800;
    before.maximised = true;
    before.look = Look::kLight;
    before.contract = "Ag(T+D)";
    before.account = "\xE9\x87\x91";
    before.page = 32;
    before.chart_period = 15;
    before.quote_columns = {70, 60};
    ASSERT_TRUE(WriteRemembered(path, before));
    Remembered after;
    ASSERT_TRUE(ReadRemembered(path, after));
    EXPECT_EQ(after.sizes.quotes_width, 500);
    EXPECT_EQ(after.sizes.depth_width, 210);
    EXPECT_EQ(after.sizes.pages_height, 333);
    EXPECT_EQ(after.width, 1280);
    EXPECT_EQ(after.height, 800);
    EXPECT_TRUE(after.maximised);
    EXPECT_EQ(after.look, Look::kLight);
    EXPECT_EQ(after.contract, "Ag(T+D)");
    EXPECT_EQ(after.account, before.account);
    EXPECT_EQ(after.page, 32);
    EXPECT_EQ(after.chart_period, 15);
    EXPECT_EQ(after.quote_columns, (std::vector<int>{70, 60}));
    EXPECT_FALSE(WriteRemembered((folder_ / "none/x.json").string(), before));
}

TEST_F(Files, BrokenMemoriesKeepTheDefaultsAndTheFile) {
    const std::string path = (folder_ / "goldterm.json").string();
    Write(path, "{ this is no json");
    Remembered remembered;
    EXPECT_FALSE(ReadRemembered(path, remembered));
    EXPECT_EQ(remembered.sizes.quotes_width, PaneSizes().quotes_width);
    ASSERT_TRUE(WriteRemembered(path, remembered));
    EXPECT_EQ(Content(path + ".unreadable"), "{ this is no json");

    Write(path, R"({"width": -5, "height": 1e99, "page": "x", "look": 3, "contract": [1],
                    "quotes_width": 99999999999, "quote_columns": [1, "a", -7]})");
    EXPECT_TRUE(ReadRemembered(path, remembered));
    EXPECT_EQ(remembered.width, 0);
    EXPECT_EQ(remembered.height, 0);
    EXPECT_EQ(remembered.page, 0);
    EXPECT_GT(remembered.sizes.quotes_width, 0);
    EXPECT_EQ(remembered.quote_columns, (std::vector<int>{1, 0, 0}));

    Write(path, R"({"quote_columns": [99999999999, 18446744073709551615, 4294967296, 70]})");
    EXPECT_TRUE(ReadRemembered(path, remembered));
    EXPECT_EQ(remembered.quote_columns, (std::vector<int>{20000, 20000, 20000, 70}));
    const std::string deep = std::string(200000, '[') + std::string(200000, ']');
    Write(path, R"({"look":)" + deep + R"(, "maximised":)" + deep + R"(, "quote_columns":)" + deep +
                    R"(, "page": 4})");
    EXPECT_TRUE(ReadRemembered(path, remembered));
    EXPECT_EQ(remembered.page, 4);

    std::mt19937 random(11);
    const std::string good = R"({"width": 1280, "quote_columns": [1, 2], "look": "light"})";
    for (int round = 0; round < 300; ++round) {
        std::string bytes = good;
        for (int change = 0; change < 4; ++change) {
            bytes[random() % bytes.size()] = static_cast<char>(random());
        }
        Write(path, bytes);
        Remembered any;
        ReadRemembered(path, any);
        EXPECT_GE(any.width, 0);
    }
}

}  // namespace
