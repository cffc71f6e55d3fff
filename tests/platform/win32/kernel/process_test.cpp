#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "tests/support/temp_folder.h"

namespace {

struct Pipe {
    explicit Pipe(BOOL inherit = FALSE) {
        SECURITY_ATTRIBUTES security = {sizeof security, nullptr, inherit};
        EXPECT_TRUE(CreatePipe(&reader, &writer, &security, 0));
    }
    HANDLE reader = nullptr;
    HANDLE writer = nullptr;
};

std::string ReadOnce(HANDLE reader, DWORD size) {
    std::string text(size, '\0');
    DWORD count = 99;
    SetLastError(0);
    const BOOL done = ReadFile(reader, text.data(), size, &count, nullptr);
    if (!done) return "error " + std::to_string(GetLastError()) + ", " + std::to_string(count);
    return text.substr(0, count);
}

std::string ReadAll(HANDLE reader) {
    std::string text;
    char block[256];
    DWORD count = 0;
    while (ReadFile(reader, block, sizeof block, &count, nullptr)) text.append(block, count);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_BROKEN_PIPE});
    return text;
}

TEST(Pipes, GiveWhatWasWrittenAndThenTheEnd) {
    const Pipe pipe;
    DWORD written = 0;
    EXPECT_TRUE(WriteFile(pipe.writer, "sixsix", 6, &written, nullptr));
    EXPECT_EQ(written, 6u);
    EXPECT_EQ(ReadOnce(pipe.reader, 4), "sixs");
    EXPECT_EQ(ReadOnce(pipe.reader, 4), "ix");
    EXPECT_TRUE(CloseHandle(pipe.writer));
    EXPECT_EQ(ReadOnce(pipe.reader, 4), "error 109, 0");
    EXPECT_TRUE(CloseHandle(pipe.reader));
}

TEST(Pipes, WithoutAReaderWritingFails) {
    const Pipe pipe;
    EXPECT_TRUE(CloseHandle(pipe.reader));
    DWORD written = 99;
    SetLastError(0);
    EXPECT_FALSE(WriteFile(pipe.writer, "x", 1, &written, nullptr));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_NO_DATA});
    EXPECT_EQ(written, 0u);
    EXPECT_TRUE(CloseHandle(pipe.writer));
}

TEST(Handles, OfNothingAreRefused) {
    const Pipe pipe;
    EXPECT_TRUE(CloseHandle(pipe.reader));
    EXPECT_TRUE(CloseHandle(pipe.writer));
    const HANDLE handles[] = {nullptr, reinterpret_cast<HANDLE>(UINT_PTR{0x7FFF0001}), pipe.reader,
                              pipe.writer};
    for (const HANDLE handle : handles) {
        SetLastError(0);
        EXPECT_FALSE(CloseHandle(handle));
        EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_HANDLE});
        EXPECT_EQ(ReadOnce(handle, 1), "error 6, 0");
        SetLastError(0);
        EXPECT_EQ(WaitForSingleObject(handle, 0), DWORD{WAIT_FAILED});
        EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_HANDLE});
    }
}

DWORD StartError(const char* program, std::string line) {
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION information = {};
    SetLastError(0);
    EXPECT_FALSE(CreateProcessA(program, line.empty() ? nullptr : line.data(), nullptr, nullptr,
                                FALSE, 0, nullptr, nullptr, &startup, &information))
        << line;
    return GetLastError();
}

TEST(Processes, ProgramsThatCannotStart) {
    const testing_support::TempFolder folder;
    folder.Write(u8"text.txt", "no program");
    EXPECT_EQ(StartError(nullptr, "nosuch.exe arg"), DWORD{ERROR_FILE_NOT_FOUND});
    EXPECT_EQ(StartError("C:\\nosuch.exe", ""), DWORD{ERROR_FILE_NOT_FOUND});
    EXPECT_EQ(StartError("C:\\missing folder\\x.exe", ""), DWORD{ERROR_PATH_NOT_FOUND});
    EXPECT_EQ(StartError(".\\text.txt", ""), DWORD{ERROR_BAD_EXE_FORMAT});
}

std::string OwnName() {
    char name[MAX_PATH];
    return std::string(name, GetModuleFileNameA(nullptr, name, sizeof name));
}

// The one program that is there on every system is this one: it lists a test of its own.
TEST(Processes, WriteIntoAnInheritedPipe) {
    const Pipe pipe(TRUE);
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES | STARTF_USESHOWWINDOW;
    startup.hStdOutput = pipe.writer;
    startup.hStdError = pipe.writer;
    std::string line = '"' + OwnName() + "\" --gtest_list_tests --gtest_filter=Pipes.Give*";
    PROCESS_INFORMATION information = {};
    ASSERT_TRUE(CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                               &startup, &information));
    EXPECT_TRUE(CloseHandle(pipe.writer));
    const std::string output = ReadAll(pipe.reader);
    EXPECT_NE(output.find("GiveWhatWasWrittenAndThenTheEnd"), output.npos) << output;
    EXPECT_EQ(output.find("WithoutAReader"), output.npos) << output;
    EXPECT_EQ(WaitForSingleObject(information.hProcess, INFINITE), DWORD{WAIT_OBJECT_0});
    EXPECT_EQ(WaitForSingleObject(information.hThread, INFINITE), DWORD{WAIT_OBJECT_0});
    DWORD code = 99;
    EXPECT_TRUE(GetExitCodeProcess(information.hProcess, &code));
    EXPECT_EQ(code, 0u);
    EXPECT_TRUE(CloseHandle(information.hThread));
    EXPECT_TRUE(CloseHandle(information.hProcess));
    EXPECT_TRUE(CloseHandle(pipe.reader));
}

}  // namespace
