#include "plugin/settings/application_directory.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/temp_folder.h"

namespace {

TEST(ApplicationDirectory, IsTheOneOfTheFirstCall) {
    RestoreApplicationDirectory();
    EXPECT_EQ("", ApplicationDirectory());

    const testing_support::TempFolder first;
    RememberApplicationDirectory();
    const std::string& remembered = ApplicationDirectory();
    EXPECT_NE("", remembered);
    {
        const testing_support::TempFolder second;
        RememberApplicationDirectory();
        EXPECT_EQ(remembered, ApplicationDirectory());
        RestoreApplicationDirectory();
        EXPECT_TRUE(std::filesystem::equivalent(std::filesystem::current_path(), first.path()));
    }
}

}  // namespace
