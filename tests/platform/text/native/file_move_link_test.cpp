#include <gtest/gtest.h>

#include <filesystem>

#include "platform/text/file_move.h"
#include "tests/support/temp_folder.h"

namespace {

using testing_support::TempFolder;

TEST(MoveOver, ReplacesWhatALinkNames) {
    const TempFolder folder;
    folder.Write(u8"new.part", "new");
    folder.Write(u8"sub/real.csv", "old");
    std::filesystem::create_symlink("sub/real.csv", "link.csv");
    EXPECT_TRUE(text::MoveOver("new.part", "link.csv"));
    EXPECT_EQ(folder.Read(u8"sub/real.csv"), "new");
    EXPECT_TRUE(std::filesystem::is_symlink("link.csv"));
}

}  // namespace
