#include "plugin/contract/my_event_utils.h"
#include "plugin/contract/ui_callback.h"
#include "plugin/event_call.h"
#include "plugin/event_cases.h"
#include "plugin/function_reply.h"
#include "plugin/settings/login_blocks.h"
#include "plugin/settings/process_values.h"

namespace events {

namespace {

/// Behind the function's number.
constexpr int kReplyText = 4;

void TakeReportOrder(CMainDlg& shell, const char* fields) {
    shell.KillTimer(CMainDlg::kClientReportTimer);
    const ReportOrder order = ReadReportOrder(fields);
    g_strReportChallenge = order.challenge;
    shell.SetTimer(CMainDlg::kClientReportTimer, order.millisToReport, nullptr);
}

void TellListeners(const EventCall& call, int function, const std::string& reply) {
    CAccountInfo account{};
    if (CUICallBack* core = call.Core()) core->GetLoginAccount(&account);
    MyEventUtils::Fire(&account, function, reply.c_str());
}

}  // namespace

void ReportMarginCall(EventCall& call) {
    const std::string margin_call = call.Shell()->Settlement().GetMarginCall();
    if (CUICallBack* core = call.Core()) {
        core->ReportSettlementText(kModuleNumber, kReportMarginCall, margin_call.c_str());
    }
}

// Nothing is shown of a failure: the request told its own page, and the reply has no text.
void OnFunctionResult(EventCall& call) {
    TellLoginDialog(call.wParam, call.lParam);
    const auto* number = call.Record<std::int32_t>();
    if (call.Failed() || number == nullptr) return;
    const int function = *number;
    const std::string reply = call.Text(kReplyText);
    TellListeners(call, function, reply);
    const char* fields = AcceptedFields(reply.c_str());
    if (fields == nullptr || call.Shell() == nullptr) return;
    if (function == kFunctionClientReport) {
        TakeReportOrder(*call.Shell(), fields);
    } else if (function == kFunctionSettlement) {
        call.Shell()->Settlement().LoadReport(fields);
        ReportMarginCall(call);
    }
}

}  // namespace events
