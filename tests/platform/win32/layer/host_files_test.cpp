#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <windows.h>

#include <chrono>
#include <filesystem>
#include <string>

#include "platform/text/file_path.h"
#include "tests/support/gbk_text.h"
#include "tests/support/temp_folder.h"

namespace {

namespace fs = std::filesystem;
using testing_support::TempFolder;

mode_t ModeOf(const fs::path& file) {
    struct stat status = {};
    EXPECT_EQ(stat(file.c_str(), &status), 0);
    return status.st_mode & 07777;
}

std::size_t EntriesIn(const fs::path& folder) {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

TEST(HostFiles, DriveCIsTheWholeFileSystem) {
    const TempFolder folder;
    folder.Write(u8"文件.txt", "x");
    char current[MAX_PATH];
    GetCurrentDirectoryA(sizeof current, current);
    const std::string name = std::string(current) + "\\文件.TXT";
    EXPECT_NE(GetFileAttributesA(name.c_str()), DWORD{INVALID_FILE_ATTRIBUTES});
    EXPECT_EQ(text::ResolvePath(name.c_str()), (folder.path() / u8"文件.txt").string());
    std::FILE* file = text::OpenFile(name.c_str(), "rb");
    ASSERT_TRUE(file);
    std::fclose(file);
}

TEST(HostFiles, OtherDrivesAreNone) {
    EXPECT_EQ(GetFileAttributesA("D:\\tmp"), DWORD{INVALID_FILE_ATTRIBUTES});
    EXPECT_EQ(GetLastError(), DWORD{ERROR_PATH_NOT_FOUND});
    EXPECT_FALSE(SetCurrentDirectoryA("D:\\"));
}

TEST(HostFiles, RootEndsWithABackslash) {
    const TempFolder folder;
    ASSERT_TRUE(SetCurrentDirectoryA("C:\\"));
    char current[8];
    EXPECT_EQ(GetCurrentDirectoryA(sizeof current, current), 3u);
    EXPECT_STREQ(current, "C:\\");
}

TEST(HostFiles, NamesThatCanBeNoneAreRefused) {
    const struct {
        const char* name;
        DWORD error;
    } cases[] = {{"", ERROR_PATH_NOT_FOUND},
                 {nullptr, ERROR_PATH_NOT_FOUND},
                 {"a|b", ERROR_INVALID_NAME},
                 {"a\xD6", ERROR_INVALID_NAME}};
    for (const auto& c : cases) {
        SetLastError(0);
        EXPECT_FALSE(DeleteFileA(c.name));
        EXPECT_EQ(GetLastError(), c.error) << testing_support::Readable(c.name ? c.name : "null");
    }
}

TEST(HostFiles, ReadOnlyFilesAreNotDeleted) {
    const TempFolder folder;
    folder.Write(u8"kept.txt", "x");
    ASSERT_EQ(chmod("kept.txt", 0444), 0);
    EXPECT_TRUE(GetFileAttributesA("kept.txt") & FILE_ATTRIBUTE_READONLY);
    EXPECT_FALSE(DeleteFileA("kept.txt"));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_ACCESS_DENIED});
    EXPECT_EQ(folder.Read(u8"kept.txt"), "x");
}

TEST(ProfileReplacement, KeepsEveryOtherByte) {
    const struct {
        const char* before;
        const char* after;
    } cases[] = {
        {"; top\r\n\r\n[s]\r\n; in\r\na=1\r\n\r\n; end\r\n",
         "; top\r\n\r\n[s]\r\n; in\r\na=2\r\n\r\n; end\r\n"},
        {"[s]\na=1\n[t]\nb=2\n", "[s]\na=2\n[t]\nb=2\n"},
        {"\xEF\xBB\xBF[s]\r\na=1\r\n", "\xEF\xBB\xBF[s]\r\na=2\r\n"},
        {"[s]\r\na=1", "[s]\r\na=2"},
        {"[s]\r\nb=1\r\n\r\n\r\n[t]\r\n", "[s]\r\nb=1\r\na=2\r\n\r\n\r\n[t]\r\n"},
        {"[s]\r\na=1\r\n\x1A\xFF\x81\r\n", "[s]\r\na=2\r\n\x1A\xFF\x81\r\n"},
    };
    const TempFolder folder;
    for (const auto& c : cases) {
        folder.Write(u8"p.ini", c.before);
        EXPECT_TRUE(WritePrivateProfileStringA("s", "a", "2", ".\\p.ini"));
        EXPECT_GBK_EQ(c.after, folder.Read(u8"p.ini"));
    }
    EXPECT_EQ(EntriesIn(folder.path()), 1u) << "a temporary file stayed behind";
}

TEST(ProfileReplacement, FailureLeavesTheOldFile) {
    const TempFolder folder;
    folder.Write(u8"p.ini", "[s]\r\na=1\r\n");
    ASSERT_EQ(chmod("p.ini", 0444), 0);
    SetLastError(0);
    EXPECT_FALSE(WritePrivateProfileStringA("s", "a", "2", ".\\p.ini"));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_ACCESS_DENIED});
    EXPECT_EQ(folder.Read(u8"p.ini"), "[s]\r\na=1\r\n");
    fs::create_directory("folder.ini");
    EXPECT_FALSE(WritePrivateProfileStringA("s", "a", "2", ".\\folder.ini"));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_ACCESS_DENIED});
    EXPECT_EQ(EntriesIn(folder.path()), 2u);
}

TEST(ProfileReplacement, KeepsModeAndLinks) {
    const TempFolder folder;
    folder.Write(u8"real.ini", "[s]\r\na=1\r\n");
    ASSERT_EQ(chmod("real.ini", 0640), 0);
    fs::create_symlink("real.ini", "link.ini");
    EXPECT_TRUE(WritePrivateProfileStringA("s", "a", "2", ".\\link.ini"));
    EXPECT_TRUE(fs::is_symlink("link.ini"));
    EXPECT_EQ(folder.Read(u8"real.ini"), "[s]\r\na=2\r\n");
    EXPECT_EQ(ModeOf("real.ini"), 0640u);
}

TEST(ProfileReplacement, PipesDoNotHoldTheReaderUp) {
    const TempFolder folder;
    ASSERT_EQ(mkfifo("pipe.ini", 0600), 0);
    char text[8];
    EXPECT_EQ(GetPrivateProfileStringA("s", "a", "DEF", text, sizeof text, ".\\pipe.ini"), 3u);
    EXPECT_FALSE(WritePrivateProfileStringA("s", "a", "2", ".\\pipe.ini"));
}

std::string Setting(const char* key) {
    char value[64];
    GetPrivateProfileStringA("s", key, "DEF", value, sizeof value, ".\\p.ini");
    return value;
}

/// A file that was last changed long ago, read once.
void WriteAndRead(const TempFolder& folder) {
    folder.Write(u8"p.ini", "[s]\r\na=1\r\n");
    fs::last_write_time(folder.path() / "p.ini",
                        fs::file_time_type::clock::now() - std::chrono::hours(1));
    EXPECT_EQ(Setting("a"), "1");
}

TEST(HostFiles, SettingsAreReadAnewOnceTheirFileChanged) {
    const TempFolder folder;
    WriteAndRead(folder);
    EXPECT_EQ(Setting("a"), "1");
    // As long as before.
    folder.Write(u8"p.ini", "[s]\r\na=2\r\n");
    EXPECT_EQ(Setting("a"), "2");
    folder.Write(u8"p.ini", "[s]\r\na=3\r\n");
    EXPECT_EQ(Setting("a"), "3");

    WriteAndRead(folder);
    EXPECT_TRUE(WritePrivateProfileStringA("s", "a", "4", ".\\p.ini"));
    EXPECT_EQ(Setting("a"), "4");

    // Another file of the same length and time takes its place.
    WriteAndRead(folder);
    folder.Write(u8"other.ini", "[s]\r\na=5\r\n");
    fs::last_write_time(folder.path() / "other.ini", fs::last_write_time(folder.path() / "p.ini"));
    fs::rename(folder.path() / "other.ini", folder.path() / "p.ini");
    EXPECT_EQ(Setting("a"), "5");

    WriteAndRead(folder);
    fs::remove(folder.path() / "p.ini");
    EXPECT_EQ(Setting("a"), "DEF");
    WriteAndRead(folder);
}

TEST(HostFiles, SettingsOfEqualNamesInTwoFoldersStayApart) {
    const TempFolder folder;
    WriteAndRead(folder);
    {
        const TempFolder other;
        EXPECT_EQ(Setting("a"), "DEF");
        other.Write(u8"p.ini", "[s]\r\na=2\r\n");
        fs::last_write_time(other.path() / "p.ini", fs::last_write_time(folder.path() / "p.ini"));
        EXPECT_EQ(Setting("a"), "2");
    }
    EXPECT_EQ(Setting("a"), "1");
}

}  // namespace
