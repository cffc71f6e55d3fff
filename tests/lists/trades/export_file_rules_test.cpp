#include "lists/export_file_rules.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/support/temp_folder.h"

namespace tests {
namespace {

using testing_support::TempFolder;

int FilesIn(const TempFolder& folder) {
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        files += entry.exists() ? 1 : 0;
    }
    return files;
}

/// A disk that is full after the first bytes.
bool WriteHalf(const ExportSink& sink) {
    EXPECT_TRUE(sink("half"));
    return false;
}

ExportResult Write(const char* path, std::string_view content) {
    return WriteExport(path, [content](const ExportSink& sink) { return sink(content); });
}

/// A name so long that no other is to be had beside it.
std::string LongName() { return std::string(250, 'x'); }

std::u8string LongNameOfFile() { return std::u8string(250, u8'x'); }

TEST(ExportFile, ReplacesTheFormerFile) {
    const TempFolder folder;
    EXPECT_EQ(ExportResult::kWritten, Write("成交.csv", "one,\n"));
    EXPECT_EQ("one,\n", folder.Read(u8"成交.csv"));
    EXPECT_EQ(ExportResult::kWritten, Write(".\\成交.CSV", ""));
    EXPECT_EQ("", folder.Read(u8"成交.csv"));
    EXPECT_EQ(1, FilesIn(folder));
}

TEST(ExportFile, LeavesTheFormerFileOnAFullDisk) {
    const TempFolder folder;
    folder.Write(u8"old.csv", "old");
    EXPECT_EQ(ExportResult::kBroken, WriteExport("old.csv", WriteHalf));
    EXPECT_EQ(ExportResult::kBroken, WriteExport("new.csv", WriteHalf));
    EXPECT_EQ("old", folder.Read(u8"old.csv"));
    EXPECT_EQ(1, FilesIn(folder));
}

TEST(ExportFile, TakesNoOtherFileForItsDraft) {
    const TempFolder folder;
    folder.Write(u8"a.csv.part1", "mine");
    EXPECT_EQ(ExportResult::kWritten, Write("a.csv", "new"));
    EXPECT_EQ("new", folder.Read(u8"a.csv"));
    EXPECT_EQ("mine", folder.Read(u8"a.csv.part1"));
    EXPECT_EQ(2, FilesIn(folder));
}

TEST(ExportFile, IsWrittenInPlaceWhereThereIsNoRoomForADraft) {
    const TempFolder folder;
    EXPECT_EQ(ExportResult::kWritten, Write(LongName().c_str(), "new"));
    EXPECT_EQ("new", folder.Read(LongNameOfFile()));
    EXPECT_EQ(ExportResult::kBroken, WriteExport(LongName().c_str(), WriteHalf));
    EXPECT_EQ("half", folder.Read(LongNameOfFile()));
    EXPECT_EQ(1, FilesIn(folder));
}

TEST(ExportFile, RefusesWhatIsNoFileToWrite) {
    const TempFolder folder;
    folder.Write(u8"folder/x.csv", "x");
    folder.Write(u8"kept.csv", "old");
    using std::filesystem::perms;
    std::filesystem::permissions("kept.csv", perms::owner_read | perms::group_read);
    for (const char* const path : {"", "none\\x.csv", "folder", "a|b.csv", "kept.csv"}) {
        EXPECT_EQ(ExportResult::kRefused, Write(path, "new")) << path;
    }
    EXPECT_EQ("old", folder.Read(u8"kept.csv"));
    EXPECT_EQ(2, FilesIn(folder));
    std::filesystem::permissions("kept.csv", perms::owner_all);
}

}  // namespace
}  // namespace tests
