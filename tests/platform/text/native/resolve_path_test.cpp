// What a path becomes where file names are UTF-8 and letter case tells them apart.

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>

#include "platform/text/file_path.h"
#include "tests/support/temp_folder.h"

namespace {

std::string Utf8(std::u8string_view text) { return {text.begin(), text.end()}; }

TEST(ResolvePath, SpellsWhatNeedNotExist) {
    const testing_support::TempFolder folder;
    const struct {
        const char* path;
        std::u8string_view expected;
    } cases[] = {
        {".\\a\\b.ini", u8"a/b.ini"},
        {"a\\b\\", u8"a/b/"},
        {"\\a", u8"/a"},
        {"C:\\a\\b", u8"/a/b"},
        {"c:a", u8"a"},
        {"a\\..\\b", u8"b"},
        {"..\\..\\a", u8"../../a"},
        {"\\..\\a", u8"/a"},
        {".", u8"./"},
        {"a\\..", u8"./"},
        {"\\", u8"/"},
        {"\\\\host\\a", u8"/host/a"},
        {"设置\\昞\\甲.ini", u8"设置/昞/甲.ini"},
        {"", u8""},
        {"C:", u8""},
        {"ab:c", u8""},
        {"D:\\a", u8""},
        {"bad\xD6", u8""},
    };
    for (const auto& c : cases) EXPECT_EQ(text::ResolvePath(c.path), Utf8(c.expected));
    EXPECT_EQ(text::ResolvePath(nullptr), "");
}

TEST(ResolvePath, TakesTheCaseOfTheDisk) {
    const testing_support::TempFolder folder;
    folder.Write(u8"Cfg/trade/x.ini", "");
    EXPECT_EQ(text::ResolvePath(".\\cfg\\Trade\\X.ini"), "Cfg/trade/x.ini");
    EXPECT_EQ(text::ResolvePath("CFG\\TRADE\\"), "Cfg/trade/");
    EXPECT_EQ(text::ResolvePath("cfg\\TRADE\\New.ini"), "Cfg/trade/New.ini");
    EXPECT_EQ(text::ResolvePath("cfg\\Other\\TRADE\\x.ini"), "Cfg/Other/TRADE/x.ini");
    EXPECT_EQ(text::ResolvePath("cfg\\trade\\x.INI\\y"), "Cfg/trade/x.ini/y");
}

TEST(ResolvePath, PrefersTheExactNameThenTheFirst) {
    const testing_support::TempFolder folder;
    folder.Write(u8"name.txt", "");
    folder.Write(u8"NAME.txt", "");
    folder.Write(u8"Name.txt", "");
    EXPECT_EQ(text::ResolvePath("Name.txt"), "Name.txt");
    EXPECT_EQ(text::ResolvePath("name.TXT"), "NAME.txt");
}

TEST(ResolvePath, PassesOverNamesThatGbkCannotWrite) {
    const testing_support::TempFolder folder;
    folder.Write(u8"\U0001F600.txt", "");
    folder.Write(u8"a.txt", "");
    std::FILE* raw = std::fopen("\xD6\xD0.txt", "wb");
    ASSERT_TRUE(raw);
    std::fclose(raw);
    EXPECT_EQ(text::ResolvePath("A.TXT"), "a.txt");
    EXPECT_EQ(text::ResolvePath("中.TXT"), Utf8(u8"中.TXT"));
}

TEST(OpenFile, TellsWhyItFailed) {
    const testing_support::TempFolder folder;
    folder.Write(u8"dir/x", "");
    const struct {
        const char* path;
        const char* mode;
        int error;
    } cases[] = {
        {"missing", "rb", ENOENT}, {"", "rb", ENOENT},      {"bad\xD6", "wb", ENOENT},
        {"dir", "rb", EACCES},     {"dir", "wb", EISDIR},   {"x", "", EINVAL},
        {"x", nullptr, EINVAL},    {"x", "r+", EINVAL},     {"x", "q", EINVAL},
        {"x", "rbt", EINVAL},      {"x", "rb,ccs", EINVAL},
    };
    for (const auto& c : cases) {
        errno = 0;
        EXPECT_FALSE(text::OpenFile(c.path, c.mode)) << c.path;
        EXPECT_EQ(errno, c.error) << c.path;
    }
}

TEST(OpenFile, AFullDiskShowsWhenTextIsWritten) {
    std::FILE* file = text::OpenFile("\\dev\\full", "w");
    ASSERT_TRUE(file);
    std::fputs("line\n", file);
    EXPECT_NE(std::fclose(file), 0);
}

}  // namespace
