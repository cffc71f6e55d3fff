#include <gtest/gtest.h>

#include <cerrno>
#include <memory>
#include <string>

#include "platform/text/file_path.h"
#include "tests/support/gbk_text.h"
#include "tests/support/temp_folder.h"

namespace {

struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Closer>;

std::string Content(const char* path, const char* mode) {
    const File file(text::OpenFile(path, mode));
    if (!file) return "(closed)";
    std::string content(1000, '\0');
    content.resize(std::fread(content.data(), 1, content.size(), file.get()));
    return content;
}

bool Put(const char* path, const char* mode, std::string_view content) {
    const File file(text::OpenFile(path, mode));
    return file && std::fwrite(content.data(), 1, content.size(), file.get()) == content.size();
}

TEST(OpenFile, FindsAFileInAnyLetterCase) {
    const testing_support::TempFolder folder;
    folder.Write(u8"Cfg/trade/x.ini", "found");
    folder.Write(u8"Cfg/黄金Ａ/设置.INI", "gold");
    const char* const names[] = {".\\cfg\\Trade\\X.ini",        "Cfg/trade/x.ini",
                                 "CFG\\TRADE\\X.INI",           "cfg\\\\trade\\x.ini",
                                 ".\\cfg\\.\\trade\\x.ini",     "cfg/Trade\\x.ini",
                                 "none\\..\\cfg\\trade\\x.ini", "cfg\\trade\\..\\TRADE\\x.ini"};
    for (const char* name : names) EXPECT_EQ(Content(name, "rb"), "found") << name;
    EXPECT_EQ(Content("cfg\\黄金ａ\\设置.ini", "rb"), "gold");
}

TEST(OpenFile, ReachesAbsolutePathsAndParents) {
    const testing_support::TempFolder folder;
    folder.Write(u8"here.txt", "found");
    std::string absolute = folder.path().string();
    EXPECT_EQ(Content((absolute + "\\HERE.txt").c_str(), "rb"), "found");
    const std::string name = folder.path().filename().string();
    EXPECT_EQ(Content(("..\\" + name + "\\here.txt").c_str(), "rb"), "found");
}

TEST(OpenFile, NewFilesGoIntoExistingFolders) {
    const testing_support::TempFolder folder;
    folder.Write(u8"Cfg/Trade/old.ini", "");
    EXPECT_TRUE(Put("cfg\\trade\\结算单.txt", "wb", "new"));
    EXPECT_EQ(folder.Read(u8"Cfg/Trade/结算单.txt"), "new");
    EXPECT_TRUE(Put("CFG\\trade\\OLD.INI", "wb", "again"));
    EXPECT_EQ(folder.Read(u8"Cfg/Trade/old.ini"), "again");
    EXPECT_FALSE(Put("none\\x.ini", "wb", "lost"));
}

TEST(OpenFile, ABackslashByteInsideACharacterSeparatesNothing) {
    const testing_support::TempFolder folder;
    ASSERT_TRUE(std::string_view("昞").ends_with('\\'));
    EXPECT_TRUE(Put("昞.txt", "wb", "x"));
    EXPECT_EQ(folder.Read(u8"昞.txt"), "x");
}

TEST(OpenFile, TextModeTranslatesLineEnds) {
    const testing_support::TempFolder folder;
    EXPECT_TRUE(Put("t.txt", "w", "a\nb\r\n"));
    EXPECT_TRUE(Put("t.txt", "a", "\nc"));
    EXPECT_EQ(folder.Read(u8"t.txt"), "a\r\nb\r\r\n\r\nc");
    EXPECT_EQ(Content("t.txt", "r"), "a\nb\r\n\nc");
    EXPECT_EQ(Content("t.txt", "rb"), "a\r\nb\r\r\n\r\nc");
    folder.Write(u8"e.txt",
                 "a\rb\r\n\x1A"
                 "c");
    EXPECT_EQ(Content("e.txt", "rt"), "a\rb\n");
    folder.Write(u8"end.txt", "x\r");
    EXPECT_EQ(Content("end.txt", "r"), "x\r");
}

TEST(OpenFile, BinaryFilesAreSizedBySeeking) {
    const testing_support::TempFolder folder;
    folder.Write(u8"b.bin", "a\r\n\x1A");
    const File file(text::OpenFile("B.bin", "rb"));
    ASSERT_TRUE(file);
    EXPECT_EQ(std::fseek(file.get(), 0, SEEK_END), 0);
    EXPECT_EQ(std::ftell(file.get()), 4);
    EXPECT_TRUE(Put("b.bin", "ab", "\n"));
    EXPECT_EQ(folder.Read(u8"b.bin"), "a\r\n\x1A\n");
}

TEST(OpenFile, RefusesWhatIsNoFile) {
    const testing_support::TempFolder folder;
    folder.Write(u8"dir/x", "");
    const char* const names[] = {"",  "missing", "dir", "dir\\", "dir\\x\\", "dir\\x\\y", "..",
                                 ".", "\\",      "C:",  "a<b",   "a\"b",     "a|b",       "ab:c"};
    for (const char* name : names) EXPECT_FALSE(text::OpenFile(name, "rb")) << name;
    for (const char* name : {"", "bad\xD6", "\x81\x30.txt", "a?b", "a*b", "a\tb"}) {
        EXPECT_FALSE(text::OpenFile(name, "wb")) << testing_support::Readable(name);
    }
    EXPECT_FALSE(text::OpenFile(nullptr, "rb"));
    EXPECT_FALSE(text::OpenFile(std::string(100000, 'x').c_str(), "rb"));
    std::string deep;
    for (int i = 0; i < 5000; ++i) deep += "x\\";
    EXPECT_FALSE(text::OpenFile(deep.c_str(), "wb"));
}

}  // namespace
