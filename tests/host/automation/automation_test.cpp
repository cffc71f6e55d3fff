#include "host/automation/automation.h"

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <mutex>
#include <random>
#include <string>
#include <vector>

#include "host/automation/line_reader.h"
#include "platform/testing/input.h"
#include "platform/testing/sight.h"
#include "platform/toolkit/toolkit.h"
#include "tests/support/temp_folder.h"

namespace {

using automation::Automation;
using automation::json;

constexpr UINT kCall = WM_APP + 40;
constexpr UINT kDialog = 900;
constexpr int kEdit = 901;
constexpr int kAsk = 902;

constexpr toolkit::DialogControl kControls[] = {
    toolkit::TextEdit(kEdit, {4, 4, 80, 14}),
    toolkit::PushButton(kAsk, "询问", {4, 24, 40, 14}),
};
constexpr toolkit::DialogTemplate kDialogs[] = {
    {.id = kDialog, .title = "页", .width = 100, .height = 50, .controls = kControls},
};
const toolkit::TemplateTable kTables[] = {kDialogs};
CWinApp app;

class AskDialog : public CDialog {
public:
    int answers = 0;
    Automation* automation = nullptr;
    ~AskDialog() override { DestroyWindow(); }

protected:
    void OnOK() override {}
    void OnCancel() override {}
    void OnAsk() {
        if (MessageBox("真的吗", "问题", MB_YESNO) == IDYES) ++answers;
    }
    LRESULT OnCall(WPARAM, LPARAM) {
        automation->Wake();
        return 0;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(AskDialog, CDialog)
    ON_BN_CLICKED(kAsk, &AskDialog::OnAsk)
    ON_MESSAGE(kCall, &AskDialog::OnCall)
END_MESSAGE_MAP()

class Commands : public ::testing::Test {
protected:
    Commands() : automation_(MakeDoors()) {
        platform::testing::RememberTexts();
        dialog_.automation = &automation_;
        dialog_.Create(kDialog);
        dialog_.ShowWindow(SW_SHOW);
        dialog_.UpdateWindow();
    }

    automation::Doors MakeDoors() {
        automation::Doors doors;
        doors.quote = [](const json&) { return std::string("no feed"); };
        doors.step = [](const json&) { return std::string(); };
        doors.core = [](const json&) { return std::string(); };
        doors.core_is_quiet = [this] { return busy_looks_-- <= 0; };
        doors.new_status = [] { return json::array({"line"}); };
        doors.state = [] { return json{{"equity", "1.00"}}; };
        doors.quit = [] { PostQuitMessage(0); };
        doors.reply = [this](const std::string& line) { replies_.push_back(json::parse(line)); };
        doors.call = [this] { ::PostMessageA(dialog_.GetSafeHwnd(), kCall, 0, 0); };
        doors.shots_folder = temp_.path().string();
        return doors;
    }

    /// Runs the lines and then quits; the replies, the last being that of the quit.
    std::vector<json> Replies(const std::vector<std::string>& lines) {
        replies_.clear();
        for (const std::string& line : lines) automation_.Put(line);
        automation_.Put(R"({"cmd":"quit"})");
        MSG message;
        while (GetMessageA(&message, nullptr, 0, 0)) {
            if (dialog_.PreTranslateMessage(&message)) continue;
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
        return replies_;
    }

    testing_support::TempFolder temp_;
    AskDialog dialog_;
    int busy_looks_ = 0;
    std::vector<json> replies_;
    Automation automation_;
};

TEST_F(Commands, TypingClickingAndBoxesGoThroughTheQueue) {
    const std::vector<json> replies = Replies({
        R"({"cmd":"click","id":901})",
        R"({"cmd":"type","text":"ab\u91d1C"})",
        R"({"cmd":"type","text":"x.Y"})",
        R"({"cmd":"text","id":901})",
        R"({"cmd":"key","key":"Home","shift":true})",
        R"({"cmd":"key","key":"Delete"})",
        R"({"cmd":"text","id":901})",
        R"({"cmd":"click","id":902,"tag":7})",
        R"({"cmd":"find","text":"\u771f\u7684*"})",
        R"({"cmd":"click","id":6})",
        R"({"cmd":"find","text":"\u771f\u7684*"})",
    });
    ASSERT_EQ(replies.size(), 12u);
    for (const json& reply : replies) EXPECT_TRUE(reply["ok"]) << reply.dump();
    EXPECT_EQ(replies[3]["text"], json::parse(R"("ab\u91d1Cx.Y")"));
    EXPECT_EQ(replies[6]["text"], "");
    EXPECT_EQ(replies[7]["tag"], 7);
    EXPECT_EQ(replies[8]["windows"].size(), 1u);
    EXPECT_EQ(replies[10]["windows"].size(), 0u);
    EXPECT_EQ(dialog_.answers, 1);
}

TEST_F(Commands, EveryFailureIsAReplyWithAReason) {
    const std::vector<std::string> broken = {
        "",
        "nonsense",
        "[1]",
        "{}",
        R"({"cmd":3})",
        R"({"cmd":"fly"})",
        R"({"cmd":"click"})",
        R"({"cmd":"click","id":"x"})",
        R"({"cmd":"click","id":99999999999999999999})",
        R"({"cmd":"click","id":12345})",
        R"({"cmd":"click","window":12345678})",
        R"({"cmd":"click","window":-1})",
        R"({"cmd":"click","id":901,"x":99999})",
        R"({"cmd":"click","id":901,"button":"middle"})",
        R"({"cmd":"click","id":901,"double":1})",
        R"({"cmd":"wheel","id":901,"notches":1000})",
        R"({"cmd":"key","key":"Any"})",
        R"({"cmd":"key","key":"F13"})",
        R"({"cmd":"type"})",
        R"({"cmd":"text"})",
        R"({"cmd":"painted"})",
        R"({"cmd":"shot"})",
        R"({"cmd":"shot","name":"../x"})",
        R"({"cmd":"quote","contract":"x"})",
        std::string(200000, '['),
        R"({"cmd":"status","tag":)" + std::string(200000, '[') + std::string(200000, ']') + "}",
        R"({"cmd":)" + std::string(33, '[') + std::string(33, ']') + "}",
        R"({"cmd":"type","text":")" + std::string(1001, 'x') + "\"}",
    };
    for (const std::string& line : broken) {
        const json reply = automation_.Run(line);
        EXPECT_EQ(reply["ok"], false) << line.substr(0, 60);
        EXPECT_FALSE(reply["reason"].get<std::string>().empty()) << line.substr(0, 60);
    }
    EXPECT_TRUE(automation_.Run(
        R"({"cmd":"status","tag":"\\\"[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[["})")["ok"])
        << "brackets in a text are no depth";
    dialog_.GetDlgItem(kAsk)->EnableWindow(FALSE);
    EXPECT_EQ(automation_.Run(R"({"cmd":"click","id":902})")["reason"], "the window is disabled");
    dialog_.GetDlgItem(kAsk)->ShowWindow(SW_HIDE);
    EXPECT_EQ(automation_.Run(R"({"cmd":"click","id":902})")["reason"],
              "the window is not visible");
}

TEST_F(Commands, WhatIsSeenIsAnswered) {
    const json painted = automation_.Run(R"({"cmd":"painted","id":902})");
    ASSERT_TRUE(painted["ok"]) << painted.dump();
    EXPECT_EQ(painted["texts"][0]["text"], json::parse(R"("\u8be2\u95ee")"));
    EXPECT_TRUE(automation_.Run(R"({"cmd":"shot","name":"page_1"})")["ok"]);
    EXPECT_TRUE(std::filesystem::exists(temp_.path() / "page_1.png"));
    const json tree = automation_.Run(R"({"cmd":"tree"})");
    EXPECT_NE(tree["tree"].get<std::string>().find("id 901"), std::string::npos);
    EXPECT_EQ(automation_.Run(R"({"cmd":"state"})")["equity"], "1.00");
    EXPECT_EQ(automation_.Run(R"({"cmd":"status"})")["lines"][0], "line");
}

TEST_F(Commands, AWindowNamedByMoreThanOneKeyFitsThemAll) {
    const auto number = [](HWND window) {
        return std::to_string(reinterpret_cast<ULONG_PTR>(window));
    };
    const std::string page = number(dialog_.GetSafeHwnd());
    const std::string edit = number(dialog_.GetDlgItem(kEdit)->GetSafeHwnd());
    const struct {
        std::string keys;
        std::size_t found;
    } cases[] = {
        {"\"window\":" + edit + ",\"within\":" + page, 1},
        {"\"window\":" + page + ",\"within\":" + edit, 0},
        {"\"window\":" + edit + ",\"id\":902", 0},
        {"\"within\":" + page + ",\"id\":902,\"visible\":true", 1},
    };
    for (const auto& [keys, found] : cases) {
        const json reply = automation_.Run(R"({"cmd":"find",)" + keys + "}");
        ASSERT_TRUE(reply["ok"]) << reply.dump();
        EXPECT_EQ(reply["windows"].size(), found) << keys;
    }
    EXPECT_EQ(automation_.Run(R"({"cmd":"find","within":1234567,"window":)" + page + "}")["ok"],
              false);
}

TEST_F(Commands, AnEmptyLineHasItsReplyAndHoldsNothingUp) {
    EXPECT_EQ(Replies({"", R"({"cmd":"status"})"}).size(), 3u);
}

TEST_F(Commands, IdleWaitsUntilTheCoreIsQuiet) {
    busy_looks_ = 20;
    const std::vector<json> replies = Replies({R"({"cmd":"idle"})"});
    EXPECT_TRUE(replies[0]["ok"]);
    EXPECT_LE(busy_looks_, 0);
}

TEST_F(Commands, TheEndOfTheLinesQuits) {
    automation_.Put(R"({"cmd":"status"})");
    automation_.PutEnd();
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0)) DispatchMessageA(&message);
    EXPECT_EQ(replies_.size(), 1u);
}

TEST_F(Commands, RandomLinesNeverEndTheProgram) {
    std::mt19937 random(3);
    const std::vector<std::string> words = {"cmd",  "click", "id",   "window", "text",   "x",
                                            "find", "key",   "type", "within", "painted"};
    for (int round = 0; round < 3000; ++round) {
        json command = json::object();
        for (auto key = random() % 5; key > 0; --key) {
            const std::string& name = words[random() % words.size()];
            switch (random() % 5) {
                case 0: command[name] = words[random() % words.size()]; break;
                case 1: command[name] = static_cast<int>(random()); break;
                case 2: command[name] = 900 + random() % 4; break;
                case 3: command[name] = random() % 2 == 0; break;
                default: command[name] = json::array({1, nullptr}); break;
            }
        }
        if (command.value("cmd", json()) == "quit") continue;
        std::string line = command.dump();
        if (random() % 10 == 0) line[random() % line.size()] = static_cast<char>(random());
        EXPECT_TRUE(automation_.Run(line).contains("ok"));
    }
}

TEST(LineReader, GivesLinesWithoutTheirEndsAndThenTheEnd) {
    std::FILE* file = std::tmpfile();
    std::fputs("one\r\n\ntwo\nlast", file);
    std::rewind(file);
    std::mutex mutex;
    std::condition_variable done;
    std::vector<std::string> lines;
    bool ended = false;
    automation::ReadLines(
        file,
        [&](std::string line) {
            const std::scoped_lock lock(mutex);
            lines.push_back(std::move(line));
        },
        [&] {
            const std::scoped_lock lock(mutex);
            ended = true;
            done.notify_all();
        });
    std::unique_lock lock(mutex);
    ASSERT_TRUE(done.wait_for(lock, std::chrono::seconds(20), [&] { return ended; }));
    EXPECT_EQ(lines, (std::vector<std::string>{"one", "two", "last"}));
    std::fclose(file);
}

}  // namespace

IMPLEMENT_MODULE(app, kTables)
