#include <gtest/gtest.h>
#include <objbase.h>
#include <windows.h>

#include <string>

#include "tests/support/temp_folder.h"

namespace {

std::string FileName(HMODULE module) {
    char name[MAX_PATH];
    return std::string(name, GetModuleFileNameA(module, name, sizeof name));
}

TEST(Modules, ProgramHasAFullName) {
    const std::string name = FileName(nullptr);
    EXPECT_EQ(name, FileName(GetModuleHandleA(nullptr)));
    ASSERT_GT(name.size(), 3u);
    EXPECT_EQ(name.substr(1, 2), ":\\");
    EXPECT_NE(GetFileAttributesA(name.c_str()), DWORD{INVALID_FILE_ATTRIBUTES}) << name;
}

TEST(Modules, AnAddressTellsItsModule) {
    constexpr DWORD kByAddress =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    static const char here = 0;
    HMODULE module = nullptr;
    EXPECT_TRUE(GetModuleHandleExA(kByAddress, &here, &module));
    EXPECT_EQ(module, GetModuleHandleA(nullptr));
    SetLastError(0);
    EXPECT_FALSE(GetModuleHandleExA(kByAddress, nullptr, &module));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_MOD_NOT_FOUND});
    EXPECT_EQ(module, nullptr);
}

TEST(Modules, NameIsCutToTheBuffer) {
    char buffer[5] = "zzzz";
    SetLastError(0);
    EXPECT_EQ(GetModuleFileNameA(nullptr, buffer, 4), 4u);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
    EXPECT_EQ(std::string(buffer, 5), FileName(nullptr).substr(0, 3) + '\0' + '\0');
}

TEST(Modules, MissingOnes) {
    const testing_support::TempFolder folder;
    SetLastError(0);
    EXPECT_EQ(GetModuleHandleA("missing.dll"), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_MOD_NOT_FOUND});
    for (const char* name : {"missing.dll", ".\\Missing.dll", "missing"}) {
        SetLastError(0);
        EXPECT_EQ(LoadLibraryA(name), nullptr) << name;
        EXPECT_EQ(GetLastError(), DWORD{ERROR_MOD_NOT_FOUND}) << name;
    }
    folder.Write(u8"text.dll", "no library");
    EXPECT_EQ(LoadLibraryA(".\\text.dll"), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_BAD_EXE_FORMAT});
}

TEST(Modules, SystemLibrariesAreThereUnderTheirNames) {
    const HMODULE kernel = GetModuleHandleA("KERNEL32");
    ASSERT_TRUE(kernel);
    EXPECT_EQ(GetModuleHandleA("kernel32.dll"), kernel);
    EXPECT_EQ(LoadLibraryA("kernel32.dll"), kernel);
    EXPECT_TRUE(FreeLibrary(kernel));
    EXPECT_TRUE(GetProcAddress(kernel, "GetTickCount"));
    SetLastError(0);
    EXPECT_EQ(GetProcAddress(kernel, "NoSuchFunction"), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_PROC_NOT_FOUND});
    const HMODULE rich_edit = LoadLibraryA("riched20.dll");
    ASSERT_TRUE(rich_edit);
    EXPECT_NE(rich_edit, kernel);
    EXPECT_TRUE(FreeLibrary(rich_edit));
}

TEST(Ole, EachSuccessWantsItsEnd) {
    EXPECT_EQ(OleInitialize(nullptr), S_OK);
    EXPECT_EQ(OleInitialize(nullptr), S_FALSE);
    OleUninitialize();
    OleUninitialize();
    EXPECT_EQ(OleInitialize(nullptr), S_OK);
    OleUninitialize();
}

}  // namespace
