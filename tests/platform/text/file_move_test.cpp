#include "platform/text/file_move.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/temp_folder.h"

namespace {

using testing_support::TempFolder;

TEST(MoveOver, GivesAFileItsNewName) {
    const TempFolder folder;
    folder.Write(u8"new.part", "new");
    EXPECT_TRUE(text::MoveOver(".\\new.part", "报表.csv"));
    EXPECT_EQ(folder.Read(u8"报表.csv"), "new");
    EXPECT_EQ(folder.Read(u8"new.part"), "(missing)");
    folder.Write(u8"newer.part", "newer");
    EXPECT_TRUE(text::MoveOver("NEWER.part", "报表.CSV"));
    EXPECT_EQ(folder.Read(u8"报表.csv"), "newer");
}

TEST(MoveOver, LeavesBothWhereItCanNot) {
    const TempFolder folder;
    folder.Write(u8"new.part", "new");
    folder.Write(u8"folder/x", "x");
    folder.Write(u8"kept.csv", "old");
    std::filesystem::permissions("kept.csv", std::filesystem::perms::owner_read |
                                                 std::filesystem::perms::group_read |
                                                 std::filesystem::perms::others_read);
    for (const char* const target : {"folder", "none\\x.csv", "kept.csv", "a|b", ""}) {
        EXPECT_FALSE(text::MoveOver("new.part", target)) << target;
    }
    EXPECT_FALSE(text::MoveOver("missing", "x.csv"));
    EXPECT_EQ(folder.Read(u8"new.part"), "new");
    EXPECT_EQ(folder.Read(u8"kept.csv"), "old");
    std::filesystem::permissions("kept.csv", std::filesystem::perms::owner_all);
}

}  // namespace
