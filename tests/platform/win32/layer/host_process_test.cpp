#include <gtest/gtest.h>
#include <windows.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "tests/support/gbk_text.h"
#include "tests/support/temp_folder.h"

namespace {

namespace fs = std::filesystem;
using testing_support::TempFolder;

void WriteScript(const TempFolder& folder, std::u8string_view name, std::string_view text) {
    folder.Write(name, text);
    fs::permissions(folder.path() / name, fs::perms::owner_all);
}

struct Result {
    DWORD code = 0;
    std::string output;
};

enum class Handles { kInherited, kNotInherited };

/// Runs a command line with a pipe for what it writes.
Result RunLine(std::string line, const char* folder = nullptr, Handles mode = Handles::kInherited) {
    const BOOL inherit = mode == Handles::kInherited;
    SECURITY_ATTRIBUTES security = {sizeof security, nullptr, TRUE};
    HANDLE reader = nullptr;
    STARTUPINFOA startup = {};
    startup.dwFlags = STARTF_USESTDHANDLES;
    EXPECT_TRUE(CreatePipe(&reader, &startup.hStdOutput, &security, 0));
    PROCESS_INFORMATION information = {};
    EXPECT_TRUE(CreateProcessA(nullptr, line.data(), nullptr, nullptr, inherit, CREATE_NO_WINDOW,
                               nullptr, folder, &startup, &information));
    CloseHandle(startup.hStdOutput);
    Result result;
    char block[256];
    DWORD count = 0;
    while (ReadFile(reader, block, sizeof block, &count, nullptr)) {
        result.output.append(block, count);
    }
    EXPECT_EQ(WaitForSingleObject(information.hProcess, INFINITE), DWORD{WAIT_OBJECT_0});
    EXPECT_TRUE(GetExitCodeProcess(information.hProcess, &result.code));
    for (const HANDLE handle : {information.hThread, information.hProcess, reader}) {
        EXPECT_TRUE(CloseHandle(handle));
    }
    return result;
}

TEST(HostProcesses, TellTheirExitCode) {
    EXPECT_EQ(RunLine("sh -c \"exit 3\"").code, 3u);
    EXPECT_EQ(RunLine("sh -c \"kill -9 $$\"").code, 137u);
}

TEST(HostProcesses, GetTheirArguments) {
    const TempFolder folder;
    WriteScript(folder, u8"show.sh", "#!/bin/sh\nfor a in \"$@\"; do printf '[%s]' \"$a\"; done\n");
    const struct {
        const char* arguments;
        const char* output;
    } cases[] = {{"a b", "[a][b]"},
                 {"\"a b\"\tc", "[a b][c]"},
                 {"a\\b \"c\\d\\\\\"", "[a\\b][c\\d\\]"},
                 {"\\\"q\\\" x\"y\"z", "[\"q\"][xyz]"},
                 {"\"a\"\"b\" \"\"", "[a\"b][]"},
                 {"中文", "[\xE4\xB8\xAD\xE6\x96\x87]"}};
    for (const auto& c : cases) {
        EXPECT_EQ(RunLine(std::string(".\\show.sh ") + c.arguments).output, c.output)
            << c.arguments;
    }
}

TEST(HostProcesses, UnquotedNamesMayHoldBlanks) {
    const TempFolder folder;
    WriteScript(folder, u8"my tool.sh", "#!/bin/sh\nprintf tool\n");
    EXPECT_EQ(RunLine(".\\my tool.sh x").output, "tool");
    EXPECT_EQ(RunLine("\".\\MY TOOL.sh\" x").output, "tool");
}

TEST(HostProcesses, BareNamesAreFoundInTheCurrentFolder) {
    const TempFolder folder;
    WriteScript(folder, u8"inventory_tool", "#!/bin/sh\nprintf found\n");
    EXPECT_EQ(RunLine("INVENTORY_TOOL cpu").output, "found");
}

TEST(HostProcesses, StartInAFolder) {
    const TempFolder folder;
    fs::create_directory("Sub");
    EXPECT_EQ(RunLine("pwd", ".\\SUB").output, (folder.path() / "Sub\n").string());
    STARTUPINFOA startup = {};
    PROCESS_INFORMATION information = {};
    char line[] = "pwd";
    EXPECT_FALSE(CreateProcessA(nullptr, line, nullptr, nullptr, FALSE, 0, nullptr, ".\\none",
                                &startup, &information));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_DIRECTORY});
}

TEST(HostProcesses, GetNoHandleThatIsNotInherited) {
    EXPECT_EQ(RunLine("sh -c \"echo lost\"", nullptr, Handles::kNotInherited).output, "");
    const std::string open_files = RunLine("sh -c \"ls /proc/self/fd | wc -l\"").output;
    EXPECT_EQ(open_files, "4\n") << "three streams and the folder that is being listed";
}

TEST(HostProcesses, WaitingEndsWithItsTime) {
    SECURITY_ATTRIBUTES security = {sizeof security, nullptr, TRUE};
    HANDLE reader = nullptr;
    HANDLE writer = nullptr;
    ASSERT_TRUE(CreatePipe(&reader, &writer, &security, 0));
    STARTUPINFOA startup = {};
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = reader;
    PROCESS_INFORMATION information = {};
    // Ends when its input does.
    char line[] = "cat";
    ASSERT_TRUE(CreateProcessA(nullptr, line, nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                               &information));
    DWORD code = 0;
    EXPECT_EQ(WaitForSingleObject(information.hProcess, 0), DWORD{WAIT_TIMEOUT});
    EXPECT_TRUE(GetExitCodeProcess(information.hProcess, &code));
    EXPECT_EQ(code, DWORD{STILL_ACTIVE});
    CloseHandle(writer);
    EXPECT_EQ(WaitForSingleObject(information.hThread, INFINITE), DWORD{WAIT_OBJECT_0});
    for (const HANDLE handle : {reader, information.hProcess, information.hThread}) {
        EXPECT_TRUE(CloseHandle(handle));
    }
}

TEST(HostModules, RealLibrariesAreCounted) {
    char name[MAX_PATH];
    ASSERT_GT(GetModuleFileNameA(GetModuleHandleA("user32.dll"), name, sizeof name), 0u);
    const HMODULE library = LoadLibraryA(name);
    ASSERT_TRUE(library);
    EXPECT_EQ(LoadLibraryA(name), library);
    EXPECT_TRUE(GetProcAddress(library, "HeapAlloc"));
    EXPECT_FALSE(GetProcAddress(library, "malloc")) << "belongs to a library beneath";
    EXPECT_TRUE(FreeLibrary(library));
    EXPECT_TRUE(GetProcAddress(library, "HeapAlloc"));
    EXPECT_TRUE(FreeLibrary(library));
    EXPECT_FALSE(FreeLibrary(library));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_HANDLE});
    EXPECT_FALSE(CloseHandle(GetModuleHandleA(nullptr)));
}

TEST(HostModules, LibraryOfTheProgramHasOneHandle) {
    constexpr DWORD kByAddress =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    const auto inside = reinterpret_cast<LPCSTR>(&std::fopen);
    HMODULE module = nullptr;
    ASSERT_TRUE(GetModuleHandleExA(kByAddress, inside, &module));
    char name[MAX_PATH];
    ASSERT_GT(GetModuleFileNameA(module, name, sizeof name), 0u);
    EXPECT_EQ(LoadLibraryA(name), module);
    EXPECT_TRUE(FreeLibrary(module));
    HMODULE again = nullptr;
    EXPECT_TRUE(GetModuleHandleExA(kByAddress, inside, &again));
    EXPECT_EQ(again, module);
}

}  // namespace
