#include <gtest/gtest.h>
#include <windows.h>

#include <cstring>
#include <string>

#include "tests/support/temp_folder.h"

namespace {

TEST(Machine, ComputerName) {
    char name[MAX_COMPUTERNAME_LENGTH + 1];
    DWORD size = sizeof name;
    ASSERT_TRUE(GetComputerNameA(name, &size));
    EXPECT_EQ(size, std::strlen(name));
    EXPECT_GT(size, 0u);
    DWORD small = 1;
    SetLastError(0);
    EXPECT_FALSE(GetComputerNameA(name, &small));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_BUFFER_OVERFLOW});
    EXPECT_GT(small, size);
}

TEST(Machine, SystemDirectoryIsAnExistingFolder) {
    char name[256] = "";
    const UINT length = GetSystemDirectoryA(name, sizeof name);
    EXPECT_EQ(length, std::strlen(name));
    EXPECT_NE(name[length - 1], '\\');
    EXPECT_TRUE(GetFileAttributesA(name) & FILE_ATTRIBUTE_DIRECTORY);
    char small[4];
    EXPECT_EQ(GetSystemDirectoryA(small, sizeof small), length + 1);
    ULARGE_INTEGER total = {};
    EXPECT_TRUE(GetDiskFreeSpaceExA(name, nullptr, &total, nullptr));
    EXPECT_GT(total.QuadPart, 0u);
}

TEST(Machine, VolumeOfTheSystemDrive) {
    for (const char* root : {"C:\\", "c:/"}) {
        char label[128];
        char file_system[16] = "";
        DWORD serial;
        DWORD longest = 0;
        DWORD flags;
        EXPECT_TRUE(GetVolumeInformationA(root, label, sizeof label, &serial, &longest, &flags,
                                          file_system, sizeof file_system))
            << root;
        EXPECT_STRNE(file_system, "");
        EXPECT_GE(longest, 255u);
    }
}

TEST(Machine, RootsThatAreNone) {
    const struct {
        const char* root;
        DWORD error;
    } cases[] = {
        {"Q:\\", ERROR_PATH_NOT_FOUND}, {"C:", ERROR_INVALID_NAME}, {"bad", ERROR_INVALID_NAME}};
    for (const auto& c : cases) {
        SetLastError(0);
        EXPECT_FALSE(
            GetVolumeInformationA(c.root, nullptr, 0, nullptr, nullptr, nullptr, nullptr, 0));
        EXPECT_EQ(GetLastError(), c.error) << c.root;
    }
}

TEST(Machine, DiskSpace) {
    const testing_support::TempFolder folder;
    const struct {
        const char* name;
        DWORD error;
    } cases[] = {{"C:\\", 0},
                 {nullptr, 0},
                 {"C:", 0},
                 {"Q:\\", ERROR_PATH_NOT_FOUND},
                 {"C:\\missing folder", ERROR_PATH_NOT_FOUND}};
    for (const auto& c : cases) {
        ULARGE_INTEGER available = {};
        ULARGE_INTEGER total = {};
        ULARGE_INTEGER free = {};
        const std::string label = c.name ? c.name : "(null)";
        SetLastError(0);
        EXPECT_EQ(GetDiskFreeSpaceExA(c.name, &available, &total, &free), c.error == 0) << label;
        EXPECT_EQ(GetLastError(), c.error) << label;
        EXPECT_EQ(total.QuadPart > 0, c.error == 0) << label;
        EXPECT_LE(available.QuadPart, total.QuadPart) << label;
    }
}

}  // namespace
