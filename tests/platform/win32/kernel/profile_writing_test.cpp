#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

#include "tests/support/gbk_text.h"
#include "tests/support/temp_folder.h"

namespace {

using testing_support::Readable;
using testing_support::TempFolder;

struct Case {
    const char* before;
    const char* section;
    const char* key;
    const char* value;
    const char* after;
};

void ExpectFiles(const std::vector<Case>& cases) {
    const TempFolder folder;
    for (const Case& c : cases) {
        folder.Write(u8"p.ini", c.before);
        EXPECT_TRUE(WritePrivateProfileStringA(c.section, c.key, c.value, ".\\p.ini"));
        EXPECT_GBK_EQ(c.after, folder.Read(u8"p.ini")) << "before: " << Readable(c.before);
    }
}

TEST(ProfileWriting, NewKeysAndSections) {
    ExpectFiles({
        {"", "s", "a", "1", "[s]\r\na=1\r\n"},
        {"[s]\r\na=1\r\n", "s", "b", "2", "[s]\r\na=1\r\nb=2\r\n"},
        {"[s]\r\na=1\r\n[t]\r\nx=9\r\n", "s", "b", "2", "[s]\r\na=1\r\nb=2\r\n[t]\r\nx=9\r\n"},
        {"[s]\r\na=1\r\n", "t", "b", "2", "[s]\r\na=1\r\n[t]\r\nb=2\r\n"},
        {"[s]\r\na=1", "s", "b", "2", "[s]\r\na=1\r\nb=2\r\n"},
        {"[s]\r\na=1", "t", "b", "2", "[s]\r\na=1\r\n[t]\r\nb=2\r\n"},
        {"[s]\r\nnoequal\r\n", "s", "a", "1", "[s]\r\nnoequal\r\na=1\r\n"},
        {"x=1\r\n[s]\r\n", "s", "a", "1", "x=1\r\n[s]\r\na=1\r\n"},
        {"[s]\r\n", "s", "a", "\"v\"", "[s]\r\na=\"v\"\r\n"},
        {"[s]\r\n", "s", "键", "中文", "[s]\r\n键=中文\r\n"},
    });
}

TEST(ProfileWriting, ExistingKeys) {
    ExpectFiles({
        {"[s]\r\na=1\r\nb=2\r\n", "s", "a", "new", "[s]\r\na=new\r\nb=2\r\n"},
        {"[Sec]\r\nKey=1\r\n", "sEC", "kEY", "new", "[Sec]\r\nKey=new\r\n"},
        {"[s]\r\n  a  =  1  ; c\r\n", "s", "a", "2", "[s]\r\na=2\r\n"},
        {"[s]\r\na=1\r\na=2\r\n", "s", "a", "3", "[s]\r\na=3\r\na=2\r\n"},
        {"[s]\r\na=1\r\n", "s", "a", "", "[s]\r\na=\r\n"},
        {"[s]\r\n a = 1\r\n", "s", "a", "1", "[s]\r\n a = 1\r\n"},
    });
}

TEST(ProfileWriting, Removal) {
    ExpectFiles({
        {"[s]\r\na=1\r\nb=2\r\n", "s", "a", nullptr, "[s]\r\nb=2\r\n"},
        {"[s]\r\na=1\r\n", "s", "b", nullptr, "[s]\r\na=1\r\n"},
        {"[s]\r\na=1\r\n[t]\r\nb=2\r\n", "s", nullptr, nullptr, "[t]\r\nb=2\r\n"},
        {"[s]\r\na=1\r\n", "t", nullptr, nullptr, "[s]\r\na=1\r\n"},
    });
}

TEST(ProfileWriting, CreatesTheFileInAnExistingFolderOnly) {
    const TempFolder folder;
    EXPECT_TRUE(WritePrivateProfileStringA("s", "a", "1", ".\\new.ini"));
    EXPECT_EQ(folder.Read(u8"new.ini"), "[s]\r\na=1\r\n");
    SetLastError(0);
    EXPECT_FALSE(WritePrivateProfileStringA("s", "a", "1", ".\\none\\new.ini"));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_PATH_NOT_FOUND});
}

TEST(ProfileWriting, WhatIsWrittenIsReadBack) {
    const TempFolder folder;
    char text[16];
    for (const char* value : {"1", "中文", "x;y", "a=b"}) {
        ASSERT_TRUE(WritePrivateProfileStringA("s", "a", value, ".\\p.ini"));
        GetPrivateProfileStringA("s", "a", "", text, sizeof text, ".\\P.INI");
        EXPECT_GBK_EQ(value, text);
    }
}

}  // namespace
