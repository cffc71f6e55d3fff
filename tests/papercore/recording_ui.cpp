#include "tests/papercore/recording_ui.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "platform/text/bounded_text.h"

namespace papercore_tests {
namespace {

template <std::size_t N>
std::string Text(const char (&field)[N]) {
    return std::string(text::FieldText(field));
}

std::string Outcome(const CZebError* error) {
    if (!error || error->nCode == 0) return "ok";
    return "refused: " + Text(error->szText);
}

}  // namespace

void RecordingUi::Add(const std::string& line) {
    if (on_line) on_line(line);
    {
        const std::scoped_lock lock(mutex_);
        lines_.push_back(line);
    }
    added_.notify_all();
}

std::vector<std::string> RecordingUi::Take() {
    const std::scoped_lock lock(mutex_);
    return std::exchange(lines_, {});
}

bool RecordingUi::WaitFor(const std::string& beginning) {
    std::unique_lock lock(mutex_);
    return added_.wait_for(lock, std::chrono::minutes(1), [&] {
        return std::ranges::any_of(
            lines_, [&](const std::string& line) { return line.starts_with(beginning); });
    });
}

std::string RecordingUi::LastFunds() const {
    const std::scoped_lock lock(mutex_);
    return funds_;
}

void RecordingUi::OnLoginResult(const CAccountInfo* account, CZebError* error, CLoginResult* result,
                                int) {
    Add("login " + Text(account->szAccount) + " " + Outcome(error) +
        (result ? " " + Text(result->szCustomerName) : ""));
}

void RecordingUi::OnLoginPrompt(const CAccountInfo*, ZEB_LOGIN_PROMPT prompt, CZebError* error) {
    Add("prompt " + std::to_string(prompt) + " " + Outcome(error));
}

void RecordingUi::OnQueryAccountResult(const CAccountInfo*, CZebError*, CZebAccountSummary* summary,
                                       int, const StepDataMap&) {
    {
        const std::scoped_lock lock(mutex_);
        funds_ = Text(summary->Balance) + " " + Text(summary->CurrMargin) + " " +
                 Text(summary->FrozenMargin) + " " + Text(summary->Available);
    }
    Add("account");
}

void RecordingUi::OnQueryMaxVolumeResult(const CAccountInfo*, CZebError*,
                                         CQueryMaxVolumeResult* result, int) {
    Add("most " + Text(result->szContract) + " " + result->cDirection +
        std::to_string(result->cOffset) + " " + std::to_string(result->nMaxVolume));
}

void RecordingUi::OnQueryTradeByDateResult(const CAccountInfo*, CZebError*, CZebTrade* trade, int,
                                           int last) {
    Add("past " + (trade ? Text(trade->szTradeNo) : std::string("nothing")) +
        (last ? " last" : ""));
}

void RecordingUi::OnInsertOrderResult(const CAccountInfo*, CZebError* error, CInsertOrderRequest*,
                                      int) {
    Add("insert " + Outcome(error));
}

void RecordingUi::OnCancelOrderResult(const CAccountInfo*, CZebError* error, const char*,
                                      const char*, int) {
    Add("cancel " + Outcome(error));
}

void RecordingUi::OnChangePasswordResult(const CAccountInfo*, CZebError* error, int) {
    Add("password " + Outcome(error) + " " + Text(error->szText));
}

void RecordingUi::OnQueryBankBalanceResult(const CAccountInfo*, CZebError* error, CBankResult*,
                                           int) {
    Add("balance " + Outcome(error));
}

void RecordingUi::OnQueryBankTransferResult(const CAccountInfo*, CZebError* error, CBankTransfer*,
                                            int, int) {
    Add("transfers " + Outcome(error));
}

void RecordingUi::OnBankTransferResult(const CAccountInfo*, CZebError* error, CBankResult*, int) {
    Add("transfer " + Outcome(error));
}

void RecordingUi::OnOrderChange(const CAccountInfo*, CZebOrder* order) {
    Add("order " + Text(order->szOrderNo) + " " + order->cStatus + " " +
        std::to_string(order->nFilled) + "/" + std::to_string(order->nVolume));
}

void RecordingUi::OnTrade(const CAccountInfo*, CZebTrade* trade) {
    Add("trade " + Text(trade->szTradeNo) + " of " + Text(trade->szOrderNo) + " " +
        std::to_string(trade->nVolume));
}

void RecordingUi::OnNetworkStatus(const CAccountInfo*, ZEB_CONNECTION,
                                  ZEB_CONNECTION_STATUS status) {
    Add("network " + std::to_string(status));
}

void RecordingUi::OnSystemNotice(const CAccountInfo*, const char* notice) {
    Add(std::string("notice ") + notice);
}

void RecordingUi::OnResult_WithReturnData(int function, const CAccountInfo*, CZebError* error,
                                          const char* text) {
    Add("function " + std::to_string(function) + " " + Outcome(error) + " " + text);
}

}  // namespace papercore_tests
