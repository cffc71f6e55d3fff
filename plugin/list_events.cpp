#include <cstdio>
#include <limits>
#include <memory>

#include "platform/text/file_path.h"
#include "plugin/event_call.h"
#include "plugin/event_cases.h"

namespace events {

namespace {

/// Sent to the main dialog itself with each order list. Nothing here handles it; hosts that watch
/// the window's messages do.
constexpr UINT kOrderListNotice = 0x2B11;

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

/// Reads a file whole into a block, terminated, and drops it: nobody shows the content.
void ReadThrough(std::FILE* file) {
    constexpr long kMost = std::numeric_limits<int>::max() - 32;
    if (std::fseek(file, 0, SEEK_END) != 0) return;
    const long size = std::ftell(file);
    if (size < 0 || size > kMost || std::fseek(file, 0, SEEK_SET) != 0) return;
    const EventBlock content(AllocTaggedBlock(static_cast<int>(size) + 32));
    if (content == nullptr) return;
    const std::size_t read = std::fread(content.get(), 1, static_cast<std::size_t>(size), file);
    static_cast<char*>(content.get())[read] = '\0';
}

}  // namespace

void OnBatchQueryResult(EventCall& call) {
    if (call.Failed()) call.Box(call.TextOr("查询失败！"), "提示12", MB_ICONERROR);
}

void OnPositionList(EventCall& call) {
    CMainDlg& shell = *call.Shell();
    shell.Positions().Refresh(false, true);
    for (CPanelTradeDlg* panel : shell.LivePanels()) panel->RefreshPositions();
}

void OnTradeList(EventCall& call) {
    CMainDlg& shell = *call.Shell();
    shell.Trades().Refresh();
    shell.Combination().OnCoreEvent(call.wParam, call.lParam);
    call.Forward();
}

void OnOrderList(EventCall& call) {
    CMainDlg& shell = *call.Shell();
    shell.Orders().Refresh(true);
    shell.SendMessage(kOrderListNotice);
    shell.Combination().OnCoreEvent(call.wParam, call.lParam);
    call.Forward();
}

// The file is only consumed.
void OnTradeExportDone(EventCall& call) {
    if (call.Failed()) {
        call.Box(call.TextOr("查询失败"), "提示15", MB_ICONERROR);
        return;
    }
    const std::string name = call.Text();
    std::unique_ptr<std::FILE, FileCloser> file(text::OpenFile(name.c_str(), "rb"));
    if (file == nullptr) return;
    ReadThrough(file.get());
    file.reset();
    std::remove(text::ResolvePath(name.c_str()).c_str());
}

void OnPositionGroupList(EventCall& call) {
    call.Shell()->Positions().Refresh(true, true);
    call.Forward();
}

void OnCombinationMsg(EventCall& call) {
    call.Shell()->Combination().OnCoreEvent(call.wParam, call.lParam);
}

}  // namespace events
