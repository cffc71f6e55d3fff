#include <commdlg.h>
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <vector>

#include "platform/testing/input.h"
#include "tests/support/gbk_text.h"
#include "tests/support/message_log.h"
#include "tests/support/temp_folder.h"

namespace tests {
namespace {

constexpr int kNameEdit = 0x0480;
constexpr int kFileList = 0x0460;
constexpr int kTypeCombo = 0x0470;
constexpr int kUpButton = 0x0400;

const char kFilter[] = "Comma separated (*.csv)\0*.csv\0Two kinds\0*.txt;*.LOG\0All (*.*)\0*.*\0";

std::string ItemText(int id) {
    char text[300] = "";
    GetDlgItemTextA(GetActiveWindow(), id, text, sizeof text);
    return text;
}

std::string Rows() {
    const HWND list = GetDlgItem(GetActiveWindow(), kFileList);
    std::string rows;
    const LRESULT count = SendMessageA(list, LB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        char text[300] = "";
        SendMessageA(list, LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
        rows += (rows.empty() ? "" : " ") + std::string(text);
    }
    return rows;
}

void PressItem(int id) { PostMessageA(GetDlgItem(GetActiveWindow(), id), BM_CLICK, 0, 0); }

void PressKey(BYTE key) {
    keybd_event(key, 0, 0, 0);
    keybd_event(key, 0, KEYEVENTF_KEYUP, 0);
}

void Select(int row) {
    const HWND list = GetDlgItem(GetActiveWindow(), kFileList);
    SendMessageA(list, LB_SETCURSEL, static_cast<WPARAM>(row), 0);
    SendMessageA(GetActiveWindow(), WM_COMMAND, MAKEWPARAM(kFileList, LBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(list));
    SetFocus(list);
}

/// A folder with files, and a dialog that steps are done at one after the other.
class SaveFile : public ::testing::Test {
protected:
    void SetUp() override {
        folder_.Write(u8"old.csv", "1");
        folder_.Write(u8"b.csv", "1");
        folder_.Write(u8"Note.TXT", "1");
        folder_.Write(u8"run.log", "1");
        folder_.Write(u8"数据/deep.csv", "1");
        char current[MAX_PATH] = "";
        GetCurrentDirectoryA(sizeof current, current);
        start_ = current;
        parameters_.lStructSize = sizeof parameters_;
        parameters_.lpstrFilter = kFilter;
        parameters_.lpstrFile = file_;
        parameters_.nMaxFile = sizeof file_;
        parameters_.lpstrDefExt = "csv";
        parameters_.Flags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT;
    }

    BOOL Run(const std::vector<std::function<void()>>& steps) {
        for (const auto& step : steps) {
            platform::testing::WhenIdle(
                [](void* context) {
                    (*static_cast<const std::function<void()>*>(context))();
                    PostMessageA(nullptr, WM_NULL, 0, 0);
                },
                const_cast<std::function<void()>*>(&step));
        }
        return GetSaveFileNameA(&parameters_);
    }

    std::string In(const char* name) const { return start_ + "\\" + name; }

    testing_support::TempFolder folder_;
    std::string start_;
    OPENFILENAMEA parameters_{};
    char file_[MAX_PATH] = "";
};

TEST_F(SaveFile, ProposesANameAndTakesItWithTheUsualExtension) {
    std::strcpy(file_, "report");
    char title[40] = "";
    parameters_.lpstrFileTitle = title;
    parameters_.nMaxFileTitle = sizeof title;
    std::string proposed;
    std::string rows;
    EXPECT_TRUE(Run({[&] {
        proposed = ItemText(kNameEdit);
        rows = Rows();
        EXPECT_EQ(GetDlgItem(GetActiveWindow(), kNameEdit), GetFocus());
        PressKey(VK_RETURN);
    }}));
    EXPECT_EQ("report", proposed);
    EXPECT_GBK_EQ("数据 b.csv old.csv", rows);
    EXPECT_EQ(In("report.csv"), file_);
    EXPECT_STREQ("report.csv", title);
    EXPECT_EQ(start_.size() + 1, parameters_.nFileOffset);
    EXPECT_EQ(start_.size() + 8, parameters_.nFileExtension);
    EXPECT_EQ(1u, parameters_.nFilterIndex);
    EXPECT_EQ("(missing)", folder_.Read(u8"report.csv"));
}

TEST_F(SaveFile, NamesAreCompletedAsTyped) {
    const struct {
        const char* typed;
        const char* expected;
        bool differs;
    } kCases[] = {{"a", "a.csv", false},
                  {"a.txt", "a.txt", true},
                  {"a.", "a", true},
                  {" \"a b\" ", "a b.csv", false},
                  {"数据/x", "数据\\x.csv", false},
                  {".\\数据\\..\\y", "y.csv", false}};
    for (const auto& one : kCases) {
        SCOPED_TRACE(testing_support::Readable(one.typed));
        parameters_.Flags |= OFN_NOCHANGEDIR;
        file_[0] = '\0';
        EXPECT_TRUE(Run({[&] {
            SetDlgItemTextA(GetActiveWindow(), kNameEdit, one.typed);
            PressItem(IDOK);
        }}));
        EXPECT_GBK_EQ(In(one.expected), file_);
        EXPECT_EQ(one.differs, (parameters_.Flags & OFN_EXTENSIONDIFFERENT) != 0);
    }
}

TEST_F(SaveFile, ListsTheKindThatWasChosen) {
    std::string rows;
    parameters_.nFilterIndex = 2;
    EXPECT_FALSE(Run({[&] {
                          rows = Rows() + " | ";
                          const HWND combo = GetDlgItem(GetActiveWindow(), kTypeCombo);
                          SendMessageA(combo, CB_SETCURSEL, 2, 0);
                          SendMessageA(GetActiveWindow(), WM_COMMAND,
                                       MAKEWPARAM(kTypeCombo, CBN_SELCHANGE),
                                       reinterpret_cast<LPARAM>(combo));
                          rows += Rows();
                      },
                      [] { PressKey(VK_ESCAPE); }}));
    EXPECT_GBK_EQ("数据 Note.TXT run.log | 数据 b.csv Note.TXT old.csv run.log", rows);
    EXPECT_EQ(0u, CommDlgExtendedError());
}

TEST_F(SaveFile, WalksThroughFolders) {
    std::string rows;
    EXPECT_TRUE(Run({[] {
                         Select(0);
                         PressKey(VK_RETURN);
                     },
                     [&] {
                         rows = Rows();
                         PressItem(kUpButton);
                     },
                     [&] {
                         rows += " | " + Rows();
                         SetDlgItemTextA(GetActiveWindow(), kNameEdit, "数据");
                         PressItem(IDOK);
                     },
                     [] {
                         SetDlgItemTextA(GetActiveWindow(), kNameEdit, "new");
                         PressItem(IDOK);
                     }}));
    EXPECT_GBK_EQ("deep.csv | 数据 b.csv old.csv", rows);
    EXPECT_GBK_EQ(In("数据\\new.csv"), file_);
}

TEST_F(SaveFile, ChangesTheCurrentFolderUnlessAsked) {
    const struct {
        DWORD flag;
        const char* expected;
    } kCases[] = {{OFN_NOCHANGEDIR, ""}, {0, "\\数据"}};
    for (const auto& one : kCases) {
        parameters_.Flags = OFN_OVERWRITEPROMPT | one.flag;
        file_[0] = '\0';
        EXPECT_TRUE(Run({[] {
            SetDlgItemTextA(GetActiveWindow(), kNameEdit, "数据\\new");
            PressItem(IDOK);
        }}));
        char current[MAX_PATH] = "";
        GetCurrentDirectoryA(sizeof current, current);
        EXPECT_GBK_EQ(start_ + one.expected, current);
    }
}

TEST_F(SaveFile, AsksBeforeItTakesAnExistingFile) {
    std::string question;
    const auto choose = [] {
        SetDlgItemTextA(GetActiveWindow(), kNameEdit, "OLD");
        PressItem(IDOK);
    };
    EXPECT_FALSE(Run({choose,
                      [&] {
                          question = ItemText(0xFFFF);
                          PressItem(IDNO);
                      },
                      [] { PressItem(IDCANCEL); }}));
    EXPECT_GBK_EQ(In("OLD.csv") + " 已存在。\n要替换它吗?", question);
    EXPECT_TRUE(Run({choose, [] { PressItem(IDYES); }}));
    parameters_.Flags = 0;
    file_[0] = '\0';
    EXPECT_TRUE(Run({choose}));
    EXPECT_EQ("1", folder_.Read(u8"old.csv"));
}

TEST_F(SaveFile, StaysOpenForNamesThatCannotBe) {
    const char* const kNames[] = {"a<b", "no folder\\x", "数据\\a|b.csv", "con:x"};
    std::vector<std::function<void()>> steps;
    int warnings = 0;
    for (const char* const name : kNames) {
        steps.push_back([name] {
            SetDlgItemTextA(GetActiveWindow(), kNameEdit, name);
            PressItem(IDOK);
        });
        steps.push_back([&] {
            warnings += GetDlgItem(GetActiveWindow(), kNameEdit) == nullptr ? 1 : 0;
            PressItem(IDOK);
        });
    }
    steps.push_back([] { PressKey(VK_ESCAPE); });
    EXPECT_FALSE(Run(steps));
    EXPECT_EQ(4, warnings);
}

TEST_F(SaveFile, ReportsTheSizeThatABufferLacks) {
    char small[6] = "a";
    parameters_.lpstrFile = small;
    parameters_.nMaxFile = sizeof small;
    EXPECT_FALSE(Run({[] { PressItem(IDOK); }}));
    EXPECT_EQ(static_cast<DWORD>(FNERR_BUFFERTOOSMALL), CommDlgExtendedError());
    WORD needed = 0;
    std::memcpy(&needed, small, sizeof needed);
    EXPECT_EQ(In("a.csv").size() + 1, needed);
    parameters_.lStructSize = 4;
    EXPECT_FALSE(GetSaveFileNameA(&parameters_));
    EXPECT_EQ(static_cast<DWORD>(CDERR_STRUCTSIZE), CommDlgExtendedError());
}

}  // namespace
}  // namespace tests
