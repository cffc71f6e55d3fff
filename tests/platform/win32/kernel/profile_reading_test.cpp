#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "tests/support/gbk_text.h"
#include "tests/support/temp_folder.h"

namespace {

using testing_support::TempFolder;

struct Answer {
    std::string text;
    DWORD length;
};

Answer Ask(const char* section, const char* key, const char* fallback = "DEF", DWORD size = 64,
           const char* file = ".\\p.ini") {
    std::string buffer(size + 1, 'z');
    const DWORD length =
        GetPrivateProfileStringA(section, key, fallback, buffer.data(), size, file);
    EXPECT_EQ(buffer.back(), 'z') << "wrote behind the buffer";
    return {buffer.substr(0, buffer.find('\0')), length};
}

/// All bytes that a listing filled, zero bytes as '|'.
std::string List(const char* section, DWORD size = 64) {
    std::string buffer(size, 'z');
    const DWORD length =
        GetPrivateProfileStringA(section, nullptr, "DEF", buffer.data(), size, ".\\p.ini");
    for (char& c : buffer) c = c == '\0' ? '|' : c;
    return buffer.substr(0, buffer.find_last_not_of('z') + 1) + " " + std::to_string(length);
}

TEST(ProfileReading, LineInItsSection) {
    const struct {
        const char* line;
        const char* key;
        const char* value;
    } cases[] = {
        {"a=value", "a", "value"},
        {"a=value", "A", "value"},
        {"a=  value  ", "a", "value"},
        {"  a  =value", "a", "value"},
        {"a=\"quoted\"", "a", "quoted"},
        {"a='quoted'", "a", "quoted"},
        {"a=\"  in  \"", "a", "  in  "},
        {"a=\"open", "a", "\"open"},
        {"a=\"", "a", "\""},
        {"a=\"\"", "a", ""},
        {"a=x \"y\" z", "a", "x \"y\" z"},
        {"a=\"x\" y", "a", "\"x\" y"},
        {"a='x\"", "a", "'x\""},
        {"a=", "a", ""},
        {"a", "a", "DEF"},
        {"a=b=c", "a", "b=c"},
        {"a=1\r\na=2", "a", "1"},
        {"a=x;y", "a", "x;y"},
        {"a=x ; note", "a", "x ; note"},
        {";a=x", "a", "DEF"},
        {"#a=x", "#a", "x"},
        {"a\t=\tv\t", "a", "v"},
        {"a b=v", "a b", "v"},
        {"a=中文", "a", "中文"},
        {"键=v", "键", "v"},
        {"a=x\\ny", "a", "x\\ny"},
        {"b=1", "a", "DEF"},
        {"a=1\nb=2", "b", "2"},
        // The second byte of these two characters differs by the bit that tells "A" from "a".
        {"\xC1\x41=v", "\xC1\x61", "DEF"},
    };
    const TempFolder folder;
    for (const auto& c : cases) {
        folder.Write(u8"p.ini", std::string("[s]\r\n") + c.line + "\r\n");
        const Answer answer = Ask("s", c.key);
        EXPECT_GBK_EQ(c.value, answer.text) << testing_support::Readable(c.line);
        EXPECT_EQ(answer.length, answer.text.size()) << testing_support::Readable(c.line);
    }
}

TEST(ProfileReading, SectionInItsFile) {
    const struct {
        const char* content;
        const char* section;
        const char* value;
    } cases[] = {
        {"[SeC]\r\na=1\r\n", "sec", "1"},
        {"  [s]\r\na=1\r\n", "s", "1"},
        {"[s] x\r\na=1\r\n", "s", "1"},
        {"[s]\r\nb=1\r\n[s]\r\na=2\r\n", "s", "DEF"},
        {"[s]\r\na=1\r\n[s]\r\na=2\r\n", "s", "1"},
        {"[]\r\na=1\r\n", "", "DEF"},
        {"[t]\r\nb=1\r\n[s]\r\na=1", "s", "1"},
        {"", "s", "DEF"},
        {"a=1\r\n", "s", "DEF"},
        // A character whose second byte is a closing bracket.
        {"[\x81\x5D]\r\na=1\r\n", "\x81\x5D", "1"},
    };
    const TempFolder folder;
    for (const auto& c : cases) {
        folder.Write(u8"p.ini", c.content);
        EXPECT_EQ(Ask(c.section, "a").text, c.value) << testing_support::Readable(c.content);
    }
}

TEST(ProfileReading, DefaultLosesBlanksBehindItAndQuotes) {
    const TempFolder folder;
    folder.Write(u8"p.ini", "[s]\r\n");
    EXPECT_EQ(Ask("s", "a", "D  ").text, "D");
    EXPECT_EQ(Ask("s", "a", "  D").text, "  D");
    EXPECT_EQ(Ask("s", "a", "\"D\"").text, "D");
    EXPECT_EQ(Ask("s", "a", nullptr).text, "");
}

TEST(ProfileReading, CutsToTheBuffer) {
    const TempFolder folder;
    folder.Write(u8"p.ini", "[s]\r\na=value\r\nlong=" + std::string(5000, 'x') + "\r\n");
    const struct {
        const char* key;
        DWORD size;
        DWORD length;
    } cases[] = {{"a", 4, 3},       {"a", 6, 5},          {"a", 1, 0},
                 {"missing", 4, 3}, {"long", 6000, 5000}, {"long", 1024, 1023}};
    for (const auto& c : cases) {
        const Answer answer = Ask("s", c.key, "default", c.size);
        EXPECT_EQ(answer.length, c.length) << c.key << " into " << c.size;
        EXPECT_EQ(answer.text.size(), c.length) << c.key << " into " << c.size;
    }
}

TEST(ProfileReading, MissingFilesGiveTheDefault) {
    const TempFolder folder;
    folder.Write(u8"p.ini", "[s]\r\na=here\r\n");
    const struct {
        const char* file;
        const char* value;
        DWORD error;
    } cases[] = {{".\\none.ini", "DEF", ERROR_FILE_NOT_FOUND},
                 {".\\none\\p.ini", "DEF", ERROR_PATH_NOT_FOUND},
                 {".\\p.ini", "here", 0},
                 {"./p.ini", "here", 0},
                 // The folder of the system, not the current one.
                 {"p.ini", "DEF", ERROR_FILE_NOT_FOUND}};
    for (const auto& c : cases) {
        SetLastError(0);
        EXPECT_EQ(Ask("s", "a", "DEF", 64, c.file).text, c.value) << c.file;
        EXPECT_EQ(GetLastError(), c.error) << c.file;
    }
}

TEST(ProfileReading, SeesWhatAnotherWriterChanged) {
    const TempFolder folder;
    folder.Write(u8"p.ini", "[s]\r\na=1\r\n");
    EXPECT_EQ(Ask("s", "a").text, "1");
    folder.Write(u8"p.ini", "[s]\r\na=22\r\n");
    EXPECT_EQ(Ask("s", "a").text, "22");
}

TEST(ProfileReading, ListsSectionsAndKeys) {
    const TempFolder folder;
    folder.Write(u8"p.ini",
                 "x=0\r\n[one]\r\na=1\r\n;c=3\r\nb=\r\nnoequal\r\na=2\r\n[two]\r\n[one]\r\nd=4\r\n"
                 "[]\r\n");
    EXPECT_EQ(List(nullptr), "one|two|one|| 12");
    EXPECT_EQ(List("one"), "a|b|a|| 6");
    EXPECT_EQ(List("missing"), "DEF| 3");
    EXPECT_EQ(List(nullptr, 8), "one|tw|| 6");
    EXPECT_EQ(List("one", 6), "a|b||| 4");
    EXPECT_EQ(List("one", 1), "| 0");
}

TEST(ProfileReading, Numbers) {
    const struct {
        const char* value;
        int number;
    } cases[] = {
        {"12", 12},
        {"-12", -12},
        {"+12", 12},
        {"  12", 12},
        {"12abc", 12},
        {"abc", 0},
        {"", 77},
        {"0x1F", 31},
        {"0X1f", 0},
        {"-0x10", -16},
        {"0x", 0},
        {"010", 10},
        {"1.9", 1},
        {"1e3", 1},
        {"2147483647", 2147483647},
        {"2147483648", -2147483647 - 1},
        {"4294967295", -1},
        {"4294967296", 0},
        {"-2147483649", 2147483647},
        {"\"12\"", 12},
        {"1 2", 1},
        {"\t5", 5},
    };
    const TempFolder folder;
    for (const auto& c : cases) {
        folder.Write(u8"p.ini", std::string("[s]\r\na=") + c.value + "\r\n");
        EXPECT_EQ(static_cast<int>(GetPrivateProfileIntA("s", "a", 77, ".\\p.ini")), c.number)
            << c.value;
    }
    EXPECT_EQ(static_cast<int>(GetPrivateProfileIntA("s", "none", -5, ".\\p.ini")), -5);
    EXPECT_EQ(static_cast<int>(GetPrivateProfileIntA("s", "a", -5, ".\\none.ini")), -5);
}

}  // namespace
