#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

#include "tests/support/gbk_text.h"
#include "tests/support/temp_folder.h"

namespace {

using testing_support::TempFolder;

std::string CurrentFolder() {
    char name[MAX_PATH];
    const DWORD length = GetCurrentDirectoryA(sizeof name, name);
    return std::string(name, length);
}

/// The result of a call and, if it failed, the last error.
template <class Call>
std::string Outcome(Call call) {
    SetLastError(0);
    const bool done = call();
    return done ? "done" : "error " + std::to_string(GetLastError());
}

TEST(CurrentDirectory, IsAFullNameThatCanBeSetAgain) {
    const TempFolder folder;
    const std::string name = CurrentFolder();
    ASSERT_GT(name.size(), 3u);
    EXPECT_EQ(name.substr(1, 2), ":\\");
    EXPECT_EQ(name.find('/'), name.npos);
    EXPECT_NE(name.back(), '\\');
    ASSERT_TRUE(CreateDirectoryA("黄金", nullptr));
    ASSERT_TRUE(SetCurrentDirectoryA("黄金"));
    EXPECT_GBK_EQ(name + "\\黄金", CurrentFolder());
    EXPECT_TRUE(SetCurrentDirectoryA(CurrentFolder().c_str()));
    EXPECT_TRUE(SetCurrentDirectoryA(".."));
    EXPECT_GBK_EQ(name, CurrentFolder());
    EXPECT_TRUE(SetCurrentDirectoryA("."));
    EXPECT_GBK_EQ(name, CurrentFolder());
}

TEST(CurrentDirectory, TellsTheSizeThatIsWanted) {
    const TempFolder folder;
    char small[4] = "zzz";
    EXPECT_EQ(GetCurrentDirectoryA(sizeof small, small), CurrentFolder().size() + 1);
    EXPECT_EQ(GetCurrentDirectoryA(0, nullptr), CurrentFolder().size() + 1);
}

TEST(Files, Failures) {
    const TempFolder folder;
    folder.Write(u8"file.txt", "x");
    folder.Write(u8"folder/inner.txt", "x");
    const auto set_current = [](const char* name) {
        return Outcome([name] { return SetCurrentDirectoryA(name); });
    };
    EXPECT_EQ(set_current("missing"), "error 2");
    EXPECT_EQ(set_current("file.txt"), "error 267");
    EXPECT_EQ(set_current(""), "error 123");
    const auto remove = [](const char* name) {
        return Outcome([name] { return DeleteFileA(name); });
    };
    EXPECT_EQ(remove("missing"), "error 2");
    EXPECT_EQ(remove("missing\\file.txt"), "error 3");
    EXPECT_EQ(remove("folder"), "error 5");
    EXPECT_EQ(remove("FILE.txt"), "done");
    EXPECT_EQ(remove("file.txt"), "error 2");
    const auto create = [](const char* name) {
        return Outcome([name] { return CreateDirectoryA(name, nullptr); });
    };
    EXPECT_EQ(create("folder"), "error 183");
    EXPECT_EQ(create("missing\\folder"), "error 3");
    EXPECT_EQ(create("folder\\new"), "done");
}

TEST(Files, Attributes) {
    const TempFolder folder;
    folder.Write(u8"Sub/File.txt", "x");
    EXPECT_TRUE(GetFileAttributesA("sub") & FILE_ATTRIBUTE_DIRECTORY);
    EXPECT_FALSE(GetFileAttributesA("SUB\\file.TXT") & FILE_ATTRIBUTE_DIRECTORY);
    SetLastError(0);
    EXPECT_EQ(GetFileAttributesA("sub\\missing"), DWORD{INVALID_FILE_ATTRIBUTES});
    EXPECT_EQ(GetLastError(), DWORD{ERROR_FILE_NOT_FOUND});
}

std::vector<std::string> Find(const char* pattern) {
    std::vector<std::string> names;
    WIN32_FIND_DATAA data;
    const HANDLE search = FindFirstFileA(pattern, &data);
    if (search == INVALID_HANDLE_VALUE) return names;
    do {
        const bool is_folder = data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY;
        names.push_back(std::string(data.cFileName) + (is_folder ? "/" : ""));
    } while (FindNextFileA(search, &data));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_NO_MORE_FILES});
    EXPECT_TRUE(FindClose(search));
    return names;
}

TEST(FindFiles, Patterns) {
    using Names = std::vector<std::string>;
    const TempFolder folder;
    for (const auto name : {u8"a.csv", u8"B.CSV", u8"c.txt", u8"noext", u8"设置.ini"}) {
        folder.Write(name, "12345");
    }
    folder.Write(u8"sub/inner.csv", "");
    EXPECT_EQ(Find("*"),
              (Names{"./", "../", "a.csv", "B.CSV", "c.txt", "noext", "sub/", "设置.ini"}));
    EXPECT_EQ(Find("*.*").size(), 8u);
    EXPECT_EQ(Find("*.csv"), (Names{"a.csv", "B.CSV"}));
    EXPECT_EQ(Find("?.?s?"), (Names{"a.csv", "B.CSV"}));
    EXPECT_EQ(Find("SUB"), (Names{"sub/"}));
    EXPECT_EQ(Find("sub\\*.csv"), (Names{"inner.csv"}));
    EXPECT_EQ(Find("??.ini"), (Names{"设置.ini"}));
}

TEST(FindFiles, TellsTheSize) {
    const TempFolder folder;
    folder.Write(u8"a.csv", "12345");
    WIN32_FIND_DATAA data = {};
    const HANDLE search = FindFirstFileA("a.csv", &data);
    ASSERT_NE(search, INVALID_HANDLE_VALUE);
    EXPECT_EQ(data.nFileSizeLow, 5u);
    EXPECT_TRUE(FindClose(search));
}

TEST(FindFiles, Failures) {
    const TempFolder folder;
    const struct {
        const char* pattern;
        DWORD error;
    } cases[] = {{"none.txt", ERROR_FILE_NOT_FOUND}, {"none\\*", ERROR_PATH_NOT_FOUND}};
    for (const auto& c : cases) {
        WIN32_FIND_DATAA data;
        SetLastError(0);
        EXPECT_EQ(FindFirstFileA(c.pattern, &data), INVALID_HANDLE_VALUE) << c.pattern;
        EXPECT_EQ(GetLastError(), c.error) << c.pattern;
    }
}

}  // namespace
