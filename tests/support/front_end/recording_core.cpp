#include "tests/support/front_end/recording_core.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <type_traits>

#include "platform/text/bounded_text.h"

namespace tests {

namespace {

std::string Printed(const char* text) { return text ? "\"" + std::string(text) + "\"" : "null"; }
std::string Printed(char code) { return code == '\0' ? "NUL" : std::string(1, code); }
template <class Number>
requires std::is_integral_v<Number> std::string Printed(Number number) {
    return std::to_string(number);
}
std::string Printed(double number) {
    char buffer[40];
    std::snprintf(buffer, sizeof(buffer), "%g", number);
    return buffer;
}
template <std::size_t N>
std::string Field(const char (&field)[N]) {
    return std::string(text::FieldText(field));
}

template <class... Values>
std::string List(const Values&... values) {
    std::string list;
    ((list += (list.empty() ? "" : ", ") + Printed(values)), ...);
    return list;
}

std::string StopArguments(const CPresetStop& stop) {
    const struct {
        const char* name;
        double value;
    } rules[] = {
        {"profit_ticks", stop.dProfitTicks}, {"pullback", stop.dProfitPullback},
        {"stop_ticks", stop.dStopTicks},     {"float", stop.dStopFloat},
        {"long_profit", stop.dLongProfit},   {"long_stop", stop.dLongStop},
        {"short_profit", stop.dShortProfit}, {"short_stop", stop.dShortStop},
    };
    std::string text;
    for (const auto& rule : rules) {
        if (rule.value != 0) text += std::string(", ") + rule.name + "=" + Printed(rule.value);
    }
    return text;
}

std::string BankArguments(const CBankRequest& request, int zero) {
    return "type=" + Printed(static_cast<int>(request.nType)) + " bank=" + Field(request.szBankId) +
           " account=" + Field(request.szBankAccount) + " field=" + Field(request.szBankField) +
           " fund_password=" + Field(request.szFundPassword) +
           " bank_password=" + Field(request.szBankPassword) +
           " amount=" + Field(request.szAmount) + ", " + Printed(zero);
}

std::string Text(const char* text) { return text ? text : ""; }

}  // namespace

void RecordingCore::Record(std::string_view name, const std::string& arguments, From from) {
    std::string line = std::string(name) + "(" + arguments + ")";
    if (from == From::kWindowsThread && std::this_thread::get_id() != thread_) {
        line += " [other thread]";
    }
    {
        const std::lock_guard lock(mutex_);
        if (omitted_.contains(std::string(name))) return;
        calls_.push_back(line);
    }
    if (on_call) on_call(line);
}

std::vector<std::string> RecordingCore::Calls() const {
    const std::lock_guard lock(mutex_);
    return calls_;
}

std::vector<std::string> RecordingCore::TakeCalls() {
    const std::lock_guard lock(mutex_);
    return std::exchange(calls_, {});
}

std::vector<std::string> RecordingCore::CallsOf(std::string_view name) const {
    const std::string start = std::string(name) + "(";
    std::vector<std::string> calls = Calls();
    std::erase_if(calls, [&](const std::string& line) { return !line.starts_with(start); });
    return calls;
}

void RecordingCore::Omit(std::set<std::string> names) {
    const std::lock_guard lock(mutex_);
    omitted_ = std::move(names);
}

CQueryMaxVolumeResult RecordingCore::MaxVolumeAnswer() const {
    CQueryMaxVolumeResult answer{};
    if (!max_volume_queries.empty()) {
        const CQueryMaxVolume& query = max_volume_queries.back();
        text::CopyText(answer.szExchange, text::FieldText(query.szExchange));
        text::CopyText(answer.szContract, text::FieldText(query.szContract));
        answer.cDirection = query.cDirection;
        answer.cOffset = query.cOffset;
    }
    answer.nMaxVolume = max_volume;
    return answer;
}

template <class Entry>
int RecordingCore::Serve(std::string_view name, const std::vector<Entry>& list, Entry* buffer,
                         int capacity, const std::string& arguments) {
    const int count = static_cast<int>(list.size());
    Record(name, arguments + (buffer ? "read" : "count"));
    if (!buffer) return count + promised_too_many;
    const int written = std::clamp(capacity, 0, count);
    std::copy_n(list.begin(), written, buffer);
    return written;
}

HBITMAP RecordingCore::GetSkinBitmap(int group, int index) {
    Record("GetSkinBitmap", List(group, index));
    return has_skin ? skin_.Get(group, index) : nullptr;
}

COLORREF RecordingCore::GetSkinColor() {
    Record("GetSkinColor", "");
    return skin_color;
}

int RecordingCore::GetPositionDetailList(PositionGroup* buffer, int capacity) {
    return Serve("GetPositionDetailList", position_details, buffer, capacity);
}

int RecordingCore::GetPositionGroupList(CGroupHead* buffer, int capacity) {
    return Serve("GetPositionGroupList", position_groups, buffer, capacity);
}

int RecordingCore::GetPositionGroupDetail(const char* key, CGroupHead* group) {
    Record("GetPositionGroupDetail", Printed(key));
    for (const CGroupHead& head : position_groups) {
        if (text::FieldText(head.szGroupKey) != Text(key)) continue;
        *group = head;
        return 1;
    }
    return 0;
}

int RecordingCore::GetPositionGroupLegs(const char* key, PositionGroup* buffer, int capacity) {
    const auto legs = group_legs.find(Text(key));
    return Serve("GetPositionGroupLegs",
                 legs == group_legs.end() ? std::vector<PositionGroup>{} : legs->second, buffer,
                 capacity, Printed(key) + ", ");
}

void RecordingCore::SetPresetStop(const char* exchange, const char* contract, CPresetStop* stop) {
    preset_stops[{Text(exchange), Text(contract)}] = *stop;
    Record("SetPresetStop", List(exchange, contract) + StopArguments(*stop));
}

void RecordingCore::GetPresetStop(const char* exchange, const char* contract, CPresetStop* stop) {
    Record("GetPresetStop", List(exchange, contract));
    const auto found = preset_stops.find({Text(exchange), Text(contract)});
    *stop = found == preset_stops.end() ? CPresetStop{} : found->second;
}

void RecordingCore::GetGroupStop(int groupId, CPresetStop* stop) {
    Record("GetGroupStop", List(groupId));
    const auto found = group_stops.find(groupId);
    *stop = found == group_stops.end() ? CPresetStop{} : found->second;
}

void RecordingCore::SetGroupStop(int groupId, CPresetStop* stop) {
    group_stops[groupId] = *stop;
    Record("SetGroupStop", List(groupId) + StopArguments(*stop));
}

void RecordingCore::InsertOrder(CInsertOrderRequest* request, CTradeParam* param,
                                unsigned char priceType, int source) {
    inserts.push_back(
        {*request, param != nullptr, param ? *param : CTradeParam{}, priceType, source});
    const CInsertOrderRequest& order = *request;
    Record("InsertOrder",
           Field(order.szExchange) + " " + Field(order.szContract) +
               " price=" + Field(order.szPrice) + " volume=" + Printed(int{order.nVolume}) +
               " direction=" + Printed(char{order.cDirection}) +
               " offset=" + Printed(char{order.cOffset}) + " hedge=" + Printed(char{order.cHedge}) +
               " type=" + Printed(char{order.cOrderType}) + " session=" +
               Printed(int{order.nSession}) + " group=" + Printed(int{order.nGroupID}) +
               " account=" + Field(order.stAccount.szAccount) + " note=" + Field(order.szNote) +
               ", price_type=" + Printed(int{priceType}) + ", source=" + Printed(source));
}

void RecordingCore::StartStopMonitor() { Record("StartStopMonitor", ""); }

int RecordingCore::IsLoggedIn() {
    Record("IsLoggedIn", "", From::kAnyThread);
    return logged_in ? 1 : 0;
}

double RecordingCore::GetGroupFloatingProfit(const char* key) {
    Record("GetGroupFloatingProfit", Printed(key));
    const auto found = floating_profits.find(Text(key));
    return found == floating_profits.end() ? 0 : found->second;
}

void RecordingCore::QueryInitial1() { Record("QueryInitial1", ""); }
void RecordingCore::QueryInitial3() { Record("QueryInitial3", ""); }
void RecordingCore::QueryInitial2() { Record("QueryInitial2", ""); }

void RecordingCore::GetTradeParam(CTradeParam* param) {
    Record("GetTradeParam", "");
    *param = trade_param;
}

void RecordingCore::SetTradeParam(CTradeParam* param) {
    trade_param = *param;
    set_params.push_back(*param);
    Record("SetTradeParam", "");
}

void RecordingCore::SetLoginRoute(int* route, int one) {
    Record("SetLoginRoute", (route ? Printed(*route) : "null") + ", " + Printed(one));
}

void RecordingCore::Logout() { Record("Logout", ""); }
void RecordingCore::StartSession() { Record("StartSession", ""); }
void RecordingCore::RefreshOrders() { Record("RefreshOrders", ""); }

void RecordingCore::QueryTradeByDate(int from, int to, int zero) {
    Record("QueryTradeByDate", List(from, to, zero));
}

void RecordingCore::QueryAccount(int zero) { Record("QueryAccount", List(zero)); }

void RecordingCore::QueryMaxVolume(CQueryMaxVolume* query, int zero) {
    max_volume_queries.push_back(*query);
    Record("QueryMaxVolume", Field(query->szExchange) + " " + Field(query->szContract) +
                                 " direction=" + Printed(char{query->cDirection}) +
                                 " offset=" + Printed(char{query->cOffset}) + " flags=" +
                                 Printed(char{query->cFlag1}) + Printed(char{query->cFlag2}) +
                                 " price=" + Printed(double{query->dPrice}) + ", " + Printed(zero));
}

void RecordingCore::CancelOrder(CZebOrder* order, const char* orderRef, const char* note,
                                int session) {
    cancels.push_back({*order, Text(orderRef), Text(note), session});
    Record("CancelOrder", Field(order->szOrderNo) + ", " + List(orderRef, note, session));
}

void RecordingCore::ChangePassword(CChangePasswordRequest* request, int zero) {
    password_changes.push_back(*request);
    Record("ChangePassword", "kind=" + Printed(int{request->nKind}) +
                                 " old=" + Field(request->szOldPassword) +
                                 " new=" + Field(request->szNewPassword) + ", " + Printed(zero));
}

void RecordingCore::QueryBankBalance(CBankRequest* request, int zero) {
    balance_queries.push_back(*request);
    Record("QueryBankBalance", BankArguments(*request, zero));
}

void RecordingCore::QueryBankTransfer(int zero) { Record("QueryBankTransfer", List(zero)); }

void RecordingCore::BankTransfer(CBankRequest* request, int zero) {
    transfers.push_back(*request);
    Record("BankTransfer", BankArguments(*request, zero));
}

int RecordingCore::GetContractList(CZebContract* buffer, int capacity) {
    return Serve("GetContractList", contracts, buffer, capacity);
}

int RecordingCore::GetOrderList(CZebOrder* buffer, int capacity) {
    return Serve("GetOrderList", orders, buffer, capacity);
}

int RecordingCore::GetTradeList(CZebTrade* buffer, int capacity) {
    return Serve("GetTradeList", trades, buffer, capacity);
}

int RecordingCore::GetPositionList(CZebPosition* buffer, int capacity) {
    return Serve("GetPositionList", positions, buffer, capacity);
}

int RecordingCore::GetBankList(CZebBank* buffer, int capacity) {
    return Serve("GetBankList", banks, buffer, capacity);
}

void RecordingCore::ShowStatusText(const char* text, int code) {
    Record("ShowStatusText", List(text, code));
}

void RecordingCore::GetPromptText(int zero, char* buffer, int size) {
    Record("GetPromptText", List(zero, size));
    if (size > 0) text::CopyText(buffer, static_cast<std::size_t>(size), prompt_text);
}

void RecordingCore::ShowLoginProgress(int zero, const char* text) {
    prompt_text = Text(text);
    Record("ShowLoginProgress", List(zero, text));
}

void RecordingCore::GetLoginAccount(CAccountInfo* account) {
    Record("GetLoginAccount", "");
    *account = login_account;
}

void RecordingCore::BeginTrading() { Record("BeginTrading", ""); }

void RecordingCore::SetAccountDisplayName(const char* name, int module) {
    Record("SetAccountDisplayName", List(name, module));
}

void RecordingCore::ApplyTradeParam(CTradeParam* param) {
    applied_params.push_back(*param);
    Record("ApplyTradeParam", "");
}

void RecordingCore::SetFundsText(const char* text, int module) {
    Record("SetFundsText", List(text, module));
}

void RecordingCore::GetPanelBackColor(COLORREF* color) {
    Record("GetPanelBackColor", "");
    *color = panel_color;
}

int RecordingCore::GetContractUnit(int zero1, const char* exchange, const char* contract, int zero2,
                                   int zero3) {
    Record("GetContractUnit", List(zero1, exchange, contract, zero2, zero3));
    const auto found = contract_units.find(Text(contract));
    return found == contract_units.end() ? contract_unit : found->second;
}

void RecordingCore::Login(const char* account, const char* password, const char* request,
                          const CServerEntry* server) {
    logins.push_back({Text(account), Text(password), Text(request), server});
    Record("Login", List(account, password, request));
}

void RecordingCore::SendFunctionRequest(int function, const char* text) {
    Record("SendFunctionRequest", List(function, text));
}

void RecordingCore::NotifyEvent(int module, WPARAM wParam, LPARAM) {
    char event[32];
    std::snprintf(event, sizeof(event), "0x%02X%s", static_cast<unsigned>(LOWORD(wParam)),
                  HIWORD(wParam) != 0 ? " failed" : "");
    Record("NotifyEvent", Printed(module) + ", " + event);
}

void RecordingCore::NotifyInitDone(int module) { Record("NotifyInitDone", List(module)); }

void RecordingCore::ForwardEvent(UINT message, WPARAM wParam, LPARAM) {
    char event[48];
    std::snprintf(event, sizeof(event), "0x%X, 0x%02X%s", message,
                  static_cast<unsigned>(LOWORD(wParam)), HIWORD(wParam) != 0 ? " failed" : "");
    Record("ForwardEvent", event);
}

void RecordingCore::GetLoginResult(CLoginResult* result) {
    Record("GetLoginResult", "");
    *result = login_result;
}

void RecordingCore::ReportSettlementText(int module, int kind, const char* text) {
    Record("ReportSettlementText", List(module, kind, text));
}

}  // namespace tests
