#include <gtest/gtest.h>

#include <filesystem>

#include "lists/export_file_rules.h"
#include "tests/support/temp_folder.h"

namespace tests {
namespace {

/// A link to what is always full, and whose place no file can take.
TEST(ExportFile, IsWrittenInPlaceWhereItsDraftCanNotTakeIt) {
    const testing_support::TempFolder folder;
    std::filesystem::create_symlink("/dev/full", "link.csv");
    EXPECT_EQ(ExportResult::kBroken,
              WriteExport("link.csv", [](const ExportSink& sink) { return sink("new"); }));
    EXPECT_TRUE(std::filesystem::is_symlink("link.csv"));
    EXPECT_FALSE(std::filesystem::exists("link.csv.part1"));
}

}  // namespace
}  // namespace tests
