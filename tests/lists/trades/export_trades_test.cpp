#include <functional>

#include "platform/text/gbk.h"
#include "plugin/settings/application_directory.h"
#include "tests/lists/trades/trade_page_stage.h"

namespace tests {
namespace {

using testing::IsEmpty;

constexpr int kNameEdit = 0x0480;
constexpr char kLine[] = "09:30:15,Au(T+D),买入,开仓,300.50,2,7,\t1\t,\n";
constexpr char kHeader[] = "时间,合约,买卖,开平,成交价格,数量,委托号,成交号,\n";

/// The application's directory, which is told once for the whole program.
std::string Home() {
    static const testing_support::TempFolder folder;
    static const bool remembered = [] {
        RememberApplicationDirectory();
        return true;
    }();
    return remembered ? ApplicationDirectory() : "";
}

std::string Current() {
    char name[MAX_PATH] = "";
    ::GetCurrentDirectoryA(sizeof name, name);
    return name;
}

std::string DayName() {
    SYSTEMTIME now;
    ::GetLocalTime(&now);
    return std::to_string(now.wYear) + "年" + std::to_string(now.wMonth) + "月" +
           std::to_string(now.wDay) + "日黄金成交报表.csv";
}

class ExportTrades : public TradePage {
protected:
    /// Presses the page's button; `answer` is done once its dialog is open.
    void Export(std::function<void()> answer) {
        answer_ = std::move(answer);
        shown_ = false;
        platform::testing::WhenIdle(
            [](void* test) {
                auto& self = *static_cast<ExportTrades*>(test);
                self.shown_ = true;
                self.answer_();
            },
            this);
        platform::testing::Click(::GetDlgItem(page_, CGoldTradeDlg::kExport));
    }
    static void Answer(int button, const char* name = nullptr) {
        const HWND dialog = ::GetActiveWindow();
        if (name != nullptr) ::SetDlgItemTextA(dialog, kNameEdit, name);
        ::PostMessageA(::GetDlgItem(dialog, button), BM_CLICK, 0, 0);
    }

    std::string home_ = Home();
    const testing_support::TempFolder folder_;  ///< the current one when the dialog opens
    bool shown_ = false;

private:
    std::function<void()> answer_;
};

TEST_F(ExportTrades, ProposesTheDaysFileAndWritesIt) {
    Show({MakeTrade("1")});
    const std::string name = DayName();
    std::string proposed(300, '\0');
    Export([&] {
        proposed.resize(::GetDlgItemTextA(::GetActiveWindow(), kNameEdit, proposed.data(), 300));
        Answer(IDOK);
    });
    EXPECT_GBK_EQ(name, proposed);
    const std::string file = text::Utf8FromGbk(name);
    EXPECT_GBK_EQ(std::string(kHeader) + kLine,
                  folder_.Read(std::u8string(file.begin(), file.end())));
    EXPECT_EQ(home_, Current());
    EXPECT_THAT(core_.Calls(), IsEmpty());
}

TEST_F(ExportTrades, EndsWithoutAWordWhereThereIsNothingToWrite) {
    Show({MakeTrade("1")});
    Export([] { Answer(IDCANCEL, "a.csv"); });
    EXPECT_TRUE(shown_);
    EXPECT_EQ("(missing)", folder_.Read(u8"a.csv"));
    EXPECT_EQ(home_, Current());
    EXPECT_THAT(core_.Calls(), IsEmpty());
    Show({});
    platform::testing::Click(::GetDlgItem(page_, CGoldTradeDlg::kExport));
    EXPECT_EQ(::GetActiveWindow(), frame_.m_hWnd);
    EXPECT_THAT(core_.Calls(), IsEmpty());
}

TEST_F(ExportTrades, WritesWhatTheListShowsByThenInItsOrder) {
    CZebTrade first = MakeTrade("5");
    text::CopyText(first.szTime, "1,2\n3");
    Show({first});
    Export([&] {
        Show({MakeTrade("1"), first});
        Answer(IDOK, "sub");
    });
    EXPECT_GBK_EQ(std::string(kHeader) + "1 2 3,Au(T+D),买入,开仓,300.50,2,7,\t5\t,\n" + kLine,
                  folder_.Read(u8"sub.csv"));
    EXPECT_EQ("1,2\n3", Cell(0, 0).text);
    EXPECT_EQ("5 1 ", ShownNumbers());
}

TEST_F(ExportTrades, AsksBeforeItWritesOverAFile) {
    Show({MakeTrade("1")});
    folder_.Write(u8"a.csv", "old");
    platform::testing::SeenBox box;
    Export([&] {
        Answer(IDOK, "a.csv");
        platform::testing::AnswerNextBox(IDYES, &box);
    });
    EXPECT_TRUE(box.shown);
    EXPECT_GBK_EQ(std::string(kHeader) + kLine, folder_.Read(u8"a.csv"));
}

TEST_F(ExportTrades, SurvivesThatThePageGoesMeanwhile) {
    Show({MakeTrade("1")});
    Export([&] {
        page_.DestroyWindow();
        Answer(IDOK, "a.csv");
    });
    EXPECT_EQ("(missing)", folder_.Read(u8"a.csv"));
    EXPECT_EQ(home_, Current());
}

}  // namespace
}  // namespace tests
