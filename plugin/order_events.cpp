#include "plugin/contract/order_records.h"
#include "plugin/contract/ui_callback.h"
#include "plugin/event_call.h"
#include "plugin/event_cases.h"
#include "plugin/settings/process_values.h"
#include "plugin/status_lines.h"

namespace events {

namespace {

/// In blocks about one request its number comes first.
constexpr int kTextBehindNumber = 4;

/// The funds have changed; the main dialog's timer asks for them.
void NoteActivity() {
    const DWORD now = ::GetTickCount();
    g_dwLastActivityTick = now != 0 ? now : 1;
}

void ShowStatus(const EventCall& call, const std::string& line, int code) {
    if (CUICallBack* core = call.Core()) core->ShowStatusText(line.c_str(), code);
}

}  // namespace

// A cancel that went well is told the same way. The list follows by an event of its own.
void OnOrderRefused(EventCall& call) {
    if (call.HasBlock()) call.Box(call.Text(kTextBehindNumber), "错误", MB_ICONINFORMATION);
}

void OnMaxVolumeResult(EventCall& call) {
    if (call.Failed()) return;
    const auto* result = call.Record<CQueryMaxVolumeResult>();
    if (result == nullptr) return;
    call.Shell()->BSBase().OrderPage().OnMaxVolumeResult(result);
    call.Forward();
}

void OnOrderChange(EventCall& call) {
    NoteActivity();
    if (const auto* order = call.Record<CZebOrder>()) {
        ShowStatus(call, OrderStatusLine(*order), kStatusOrderChange);
    }
}

void OnTrade(EventCall& call) {
    NoteActivity();
    CMainDlg& shell = *call.Shell();
    shell.Positions().Refresh(false, true);
    shell.Positions().Refresh(true, true);
    shell.Trades().Refresh();
    if (const auto* trade = call.Record<CZebTrade>()) {
        ShowStatus(call, TradeStatusLine(*trade), kStatusTrade);
    }
}

}  // namespace events
