// The trade page with 10,000 trades of a day, and the file of them.

#include <cstring>
#include <filesystem>
#include <vector>

#include "bench/ratio.h"
#include "controls/templates.h"
#include "lists/export_file_rules.h"
#include "lists/export_trade_rules.h"
#include "lists/gold_trade_dlg.h"
#include "lists/templates.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/core_access.h"
#include "tests/support/front_end/recording_core.h"

namespace {

const toolkit::TemplateTable kTables[] = {controls::kTemplates, lists::kTemplates};

CWinApp& App() {
    static CWinApp app("trade_list_bench");
    return app;
}

constexpr int kTrades = 10'000;
constexpr int kWidth = 1000;
constexpr int kHeight = 600;
const char* const kContracts[] = {"Au(T+D)", "Ag(T+D)", "mAu(T+D)", "Au99.99"};

CZebTrade MakeTrade(int number) {
    CZebTrade trade{};
    const int seconds = 9 * 3600 + number * 2;
    text::CopyText(trade.szContract, kContracts[number % 4]);
    text::FormatText(trade.szTime, sizeof trade.szTime, "%02d:%02d:%02d", seconds / 3600,
                     seconds / 60 % 60, seconds % 60);
    // Numbers as long as they are, so that the thousandth stands between the first and the second;
    // an order in three is filled by several trades.
    text::FormatText(trade.szTradeNo, sizeof trade.szTradeNo, "%08d", 20000 + number);
    text::FormatText(trade.szOrderNo, sizeof trade.szOrderNo, "%08d", 40000 + number * 2 / 3);
    trade.cDirection = number % 2 == 0 ? '0' : '1';
    trade.cOffset = number % 3 == 0 ? '1' : '0';
    trade.nVolume = number % 30 + 1;
    trade.dPrice = 240 + number % 400 * 0.37;
    return trade;
}

const std::vector<CZebTrade>& Records() {
    static const std::vector<CZebTrade> records = [] {
        std::vector<CZebTrade> made;
        for (int number = 1; number <= kTrades; ++number) made.push_back(MakeTrade(number));
        return made;
    }();
    return records;
}

void CopyRecords(CZebTrade* buffer, int count) {
    std::memcpy(buffer, Records().data(), static_cast<std::size_t>(count) * sizeof(CZebTrade));
}

/// A core that copies its records out and does nothing else.
class QuickCore : public tests::RecordingCore {
public:
    int GetTradeList(CZebTrade* buffer, int capacity) override {
        if (buffer == nullptr) return kTrades;
        const int count = std::clamp(capacity, 0, kTrades);
        CopyRecords(buffer, count);
        return count;
    }
};

/// Looks contracts up in turn, as the container does.
class Contracts : public ContractSource {
public:
    Contracts() {
        for (std::size_t i = 0; i < std::size(contracts_); ++i) {
            text::CopyText(contracts_[i].szContract, kContracts[i]);
            contracts_[i].nPriceDigits = 2;
        }
    }
    const CZebContract* FindContractByCode(const char* code) const override {
        for (const CZebContract& contract : contracts_) {
            if (text::FieldText(contract.szContract) == code) return &contract;
        }
        return nullptr;
    }

private:
    CZebContract contracts_[std::size(kContracts)] = {};
};

const Contracts& TheContracts() {
    static const Contracts contracts;
    return contracts;
}

/// The shown page. Page and frame stay to the end of the program.
CGoldTradeDlg& MakePage() {
    static QuickCore core;
    g_pUICallBack = &core;
    auto* const frame = new CWnd;
    frame->CreateEx(0, AfxRegisterWndClass(0), "", WS_POPUP | WS_VISIBLE,
                    CRect(0, 0, kWidth, kHeight), nullptr, 0);
    auto* const page = new CGoldTradeDlg;
    page->Connect(&TheContracts());
    page->Create(CGoldTradeDlg::IDD, frame);
    page->MoveWindow(0, 0, kWidth, kHeight);
    page->ShowWindow(SW_SHOW);
    page->Refresh();
    frame->RedrawWindow(nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    return *page;
}

RATIO("lists.refresh_trades_over_copy") {
    static CGoldTradeDlg& page = MakePage();
    static std::vector<CZebTrade> copy(kTrades);
    static CWnd& list = *page.GetDlgItem(CGoldTradeDlg::kList);
    return {[] {
                page.Refresh();
                page.RedrawWindow(nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
            },
            [] {
                CopyRecords(copy.data(), kTrades);
                list.Invalidate(FALSE);
                list.UpdateWindow();
            }};
}

const char* const kTitles[] = {"时间",     "合约", "买卖",   "开平",
                               "成交价格", "数量", "委托号", "成交号"};

/// A name in a folder for files that go again; the kernel replaces it each time.
const std::string& FileName() {
    static const struct Folder {
        Folder()
            : path(std::filesystem::temp_directory_path() / "trade_list_bench"),
              name((path / "trades.csv").string()) {
            std::filesystem::create_directories(path);
        }
        ~Folder() {
            std::error_code ignored;
            std::filesystem::remove_all(path, ignored);
        }
        std::filesystem::path path;
        std::string name;
    } folder;
    return folder.name;
}

bool WriteAll(const ExportSink& sink) {
    return WriteTradeExport(kTitles, Records(), &TheContracts(), sink);
}

RATIO("lists.export_over_write") {
    static std::string content;
    WriteAll([](std::string_view bytes) {
        content += bytes;
        return true;
    });
    // The baseline's file becomes the former one of the kernel, and the other way round: a file
    // system that writes what is replaced at once does so for both.
    return {[] { WriteExport(FileName().c_str(), WriteAll); },
            [] {
                WriteExport(FileName().c_str(),
                            [](const ExportSink& sink) { return sink(content); });
            }};
}

}  // namespace

IMPLEMENT_MODULE(App(), kTables)
