#include <algorithm>
#include <cstring>
#include <string>
#include <utility>

#include "platform/system.h"
#include "platform/text/bounded_text.h"
#include "platform/text/gbk.h"
#include "plugin/contract/ui_callback.h"
#include "plugin/event_post.h"
#include "plugin/logged_in.h"
#include "plugin/qm_interface_ui.h"
#include "plugin/trade_file.h"

// The core's side of the exported class: answers and pushes, from any thread. No window is touched
// here, and the main dialog is only tested for: whether its window lives is event_post's business.

namespace {

// Bytes of the events' blocks. Cores see the blocks (NotifyEvent, ForwardEvent), so the sizes stay
// as they are known, whatever the contents need.
constexpr std::size_t kReplyBlock = 1228;
constexpr std::size_t kShortReplyBlock = 1028;
constexpr std::size_t kRefusalBlock = 1480;
constexpr std::size_t kFundsBlock = 67096;
constexpr std::size_t kFileNameBlock = 256;
constexpr std::size_t kFunctionBlock = 65536;
constexpr std::size_t kNoticeRoom = 200;
constexpr std::size_t kSystemNoticeRoom = 10;
constexpr std::size_t kGroupKeyRoom = 32;

/// The longest text of a function's reply.
constexpr std::size_t kLongestReply = 102300;

constexpr int kTransferKind1 = 1;
constexpr int kTransferKind2 = 2;

std::string_view View(const char* text) { return text != nullptr ? text : ""; }

/// A number and a text; a text that the usual block cannot hold has a larger one.
EventBlock FunctionBlock(int function, std::string_view text) {
    const std::size_t needed = sizeof(function) + text.size() + 1;
    return NumberedTextBlock(function, {text}, std::max(kFunctionBlock, needed));
}

/// A record on success, the framed error on failure, both in a block of one size.
template <class Record>
void PostAnswer(CoreEvent code, const CZebError* error, const Record* record, std::size_t size) {
    const Outcome outcome = OutcomeOf(error);
    PostCoreEvent(code, outcome,
                  outcome == Outcome::kDone ? RecordBlock(record, size)
                                            : TextBlock(FramedErrorText(error), size));
}

}  // namespace

bool QmInterfaceUI::HasMainAndLogin() const { return HasMain() && LoggedIn(); }

void QmInterfaceUI::OnLoginResult(const CAccountInfo*, CZebError* error, CLoginResult* result,
                                  int) {
    if (!HasMain()) return;
    if (OutcomeOf(error) == Outcome::kDone && result != nullptr) {
        PostCoreEvent(EV_LOGIN_RESULT, Outcome::kDone, RecordBlock(result));
    } else {
        PostCoreEvent(EV_LOGIN_RESULT, Outcome::kFailed,
                      TextBlock(ErrorText(error), sizeof(CLoginResult)));
    }
}

void QmInterfaceUI::OnQueryNoticeResult(const CAccountInfo*, CZebError* error, const char* notice,
                                        int) {
    if (!HasMain()) return;
    const Outcome outcome = OutcomeOf(error);
    EventBlock block;
    if (outcome == Outcome::kFailed) {
        block = TextBlock(FramedErrorText(error), kReplyBlock);
    } else if (const std::string_view text = View(notice); !text.empty()) {
        block = TextBlock(text, text.size() + kNoticeRoom);
    }
    PostCoreEvent(EV_NOTICE, outcome, std::move(block));
}

// The core waits until this is handled, so what it hands in needs no copy.
void QmInterfaceUI::OnQuerySettleResult(const CAccountInfo*, CZebError* error,
                                        CQuerySettleResult* result, int, int last) {
    if (!HasMain()) return;
    const Outcome outcome = OutcomeOf(error);
    const std::string text(ErrorText(error));
    SendCoreEvent(EV_SETTLE_RESULT, outcome,
                  outcome == Outcome::kDone ? reinterpret_cast<LPARAM>(result)
                                            : reinterpret_cast<LPARAM>(text.c_str()));
    CUICallBack* core = GetUICallBack();
    if (last != 0 && core != nullptr) core->StartSession();
}

// Before anything else of the front end is up; hence the box without an owner.
void QmInterfaceUI::OnLoginPrompt(const CAccountInfo*, ZEB_LOGIN_PROMPT prompt, CZebError* error) {
    const Outcome outcome = OutcomeOf(error);
    if (outcome == Outcome::kFailed) {
        const std::string text(ErrorText(error));
        ::MessageBoxA(nullptr, text.c_str(), "错误", MB_ICONERROR | MB_TOPMOST);
    }
    if (CUICallBack* core = GetUICallBack()) {
        if (prompt == ZEB_LOGIN_PROMPT_SESSION) core->StartSession();
        if (outcome == Outcome::kDone) core->ShowLoginProgress(0, LoginPromptText(prompt));
    }
    if (prompt != ZEB_LOGIN_PROMPT_DONE || !HasMain()) return;
    // The pages are up before the core goes on.
    for (const CoreEvent code : {EV_POSITION_LIST, EV_CONTRACTS_READY, EV_INITIAL_LOAD_DONE}) {
        SendCoreEvent(code, Outcome::kDone, 0);
    }
}

void QmInterfaceUI::OnBatchQueryResult(const CAccountInfo*, CZebError* error, int) {
    if (!HasMainAndLogin()) return;
    PostCoreEvent(EV_BATCH_QUERY_RESULT, OutcomeOf(error),
                  TextBlock(ErrorText(error), kShortReplyBlock));
}

void QmInterfaceUI::OnQueryAccountResult(const CAccountInfo*, CZebError* error,
                                         CZebAccountSummary* summary, int, const StepDataMap&) {
    if (!HasMainAndLogin()) return;
    PostAnswer(EV_ACCOUNT_RESULT, error, summary, kFundsBlock);
    if (summary == nullptr) return;
    const std::string_view extra = text::FieldText(summary->szExtra);
    if (extra.empty()) return;
    PostCoreEvent(EV_FUNCTION_RESULT, Outcome::kDone, FunctionBlock(kFunctionAccountExtra, extra));
}

void QmInterfaceUI::OnQueryMaxVolumeResult(const CAccountInfo*, CZebError* error,
                                           CQueryMaxVolumeResult* result, int) {
    if (!HasMainAndLogin()) return;
    PostAnswer(EV_MAX_VOLUME_RESULT, error, result, kReplyBlock);
}

void QmInterfaceUI::OnQueryTradeByDateResult(const CAccountInfo*, CZebError* error,
                                             CZebTrade* trade, int, int last) {
    if (!HasMainAndLogin()) return;
    if (trade != nullptr) AppendTrade(*trade);
    if (last == 0) return;
    const Outcome outcome = OutcomeOf(error);
    PostCoreEvent(
        EV_TRADE_EXPORT_DONE, outcome,
        TextBlock(outcome == Outcome::kDone ? kTradeFile : ErrorText(error), kFileNameBlock));
}

// An order that was taken is heard of by its changes.
void QmInterfaceUI::OnInsertOrderResult(const CAccountInfo*, CZebError* error, CInsertOrderRequest*,
                                        int number) {
    if (!HasMainAndLogin() || OutcomeOf(error) == Outcome::kDone) return;
    PostCoreEvent(EV_INSERT_REJECTED, Outcome::kFailed,
                  NumberedTextBlock(number, {FramedErrorText(error)}, kRefusalBlock));
}

void QmInterfaceUI::OnCancelOrderResult(const CAccountInfo*, CZebError* error, const char* a,
                                        const char* b, int number) {
    if (!HasMainAndLogin()) return;
    PostCoreEvent(
        EV_CANCEL_RESULT, OutcomeOf(error),
        NumberedTextBlock(number, {FramedErrorText(error), View(b), View(a)}, kReplyBlock));
}

void QmInterfaceUI::OnChangePasswordResult(const CAccountInfo*, CZebError* error, int) {
    if (!HasMainAndLogin()) return;
    PostCoreEvent(EV_PASSWORD_RESULT, OutcomeOf(error),
                  TextBlock(FramedErrorText(error), kReplyBlock));
}

void QmInterfaceUI::OnQueryBankBalanceResult(const CAccountInfo*, CZebError* error,
                                             CBankResult* result, int) {
    if (!HasMainAndLogin()) return;
    PostAnswer(EV_BANK_BALANCE, error, result, kShortReplyBlock);
}

// An event without a block ends the list; so the last record is followed by one more event.
void QmInterfaceUI::OnQueryBankTransferResult(const CAccountInfo*, CZebError* error,
                                              CBankTransfer* transfer, int, int last) {
    if (!HasMainAndLogin()) return;
    const bool done = OutcomeOf(error) == Outcome::kDone;
    if (done && transfer != nullptr) {
        PostCoreEvent(EV_BANK_TRANSFER_ROW, Outcome::kDone, RecordBlock(transfer));
    } else {
        PostCoreEvent(EV_BANK_TRANSFER_ROW, Outcome::kFailed,
                      TextBlock(FramedErrorText(error), kReplyBlock));
    }
    if (last != 0 && done) PostCoreEvent(EV_BANK_TRANSFER_ROW, Outcome::kDone, nullptr);
}

// A failure has the second kind's code, whichever kind it was.
void QmInterfaceUI::OnBankTransferResult(const CAccountInfo*, CZebError* error, CBankResult* result,
                                         int) {
    if (!HasMainAndLogin()) return;
    const std::string_view text = ErrorText(error);
    if (OutcomeOf(error) == Outcome::kFailed || result == nullptr) {
        PostCoreEvent(EV_TRANSFER_KIND2_DONE, Outcome::kFailed, TextBlock(text, kShortReplyBlock));
        return;
    }
    const int kind = result->nKind;
    if (kind != kTransferKind1 && kind != kTransferKind2) return;
    PostCoreEvent(kind == kTransferKind1 ? EV_TRANSFER_KIND1_DONE : EV_TRANSFER_KIND2_DONE,
                  Outcome::kDone,
                  TextBlock(text.empty() ? "转账请求发送成功" : text, kShortReplyBlock));
}

void QmInterfaceUI::OnOrderChange(const CAccountInfo*, CZebOrder* order) {
    if (HasMainAndLogin()) PostCoreEvent(EV_ORDER_CHANGE, Outcome::kDone, RecordBlock(order));
}

void QmInterfaceUI::OnTrade(const CAccountInfo*, CZebTrade* trade) {
    if (HasMainAndLogin()) PostCoreEvent(EV_TRADE, Outcome::kDone, RecordBlock(trade));
}

void QmInterfaceUI::OnNetworkStatus(const CAccountInfo*, ZEB_CONNECTION connection,
                                    ZEB_CONNECTION_STATUS status) {
    if (!HasMain() || connection != ZEB_CONNECTION_TRADE || status >= 0) return;
    PostCoreEventValue(EV_CONNECTION_LOST, status);
}

void QmInterfaceUI::OnSystemNotice(const CAccountInfo*, const char* notice) {
    if (!HasMain() || notice == nullptr) return;
    const std::string_view text = notice;
    EventBlock block = TextBlock(text, text.size() + kSystemNoticeRoom);
    const Outcome outcome = block != nullptr ? Outcome::kDone : Outcome::kFailed;
    PostCoreEvent(EV_SYSTEM_NOTICE, outcome, std::move(block));
}

void QmInterfaceUI::OnUpdateOrderList(const CAccountInfo*) {
    if (HasMainAndLogin()) PostCoreEvent(EV_ORDER_LIST, Outcome::kDone, nullptr);
}

void QmInterfaceUI::OnUpdateTradeList(const CAccountInfo*) {
    if (HasMainAndLogin()) PostCoreEvent(EV_TRADE_LIST, Outcome::kDone, nullptr);
}

void QmInterfaceUI::OnUpdatePositionList(const CAccountInfo*) {
    if (HasMainAndLogin()) PostCoreEvent(EV_POSITION_LIST, Outcome::kDone, nullptr);
}

void QmInterfaceUI::OnUpdatePositionGroupList(const CAccountInfo*) {
    if (HasMainAndLogin()) PostCoreEvent(EV_POSITION_GROUP_LIST, Outcome::kDone, nullptr);
}

void QmInterfaceUI::OnCombinationMsg(const char* groupKey, unsigned char) {
    if (!HasMainAndLogin()) return;
    const std::string_view key = View(groupKey);
    PostCoreEvent(EV_COMBINATION_MSG, Outcome::kDone, TextBlock(key, key.size() + kGroupKeyRoom));
}

// A failed reply tells its receiver the function's number; the error's text goes no further.
void QmInterfaceUI::OnResult_WithReturnData(int function, const CAccountInfo*, CZebError* error,
                                            const char* text) {
    if (!HasMain()) return;
    // One byte more than fits shows whether the last character is whole.
    const char* const reply = text != nullptr ? text : "";
    const std::string_view seen(reply, strnlen(reply, kLongestReply + 1));
    PostCoreEvent(EV_FUNCTION_RESULT, OutcomeOf(error),
                  FunctionBlock(function, seen.substr(0, text::PrefixLength(seen, kLongestReply))));
}

// What follows is of no interest to the pages.

void QmInterfaceUI::OnQueryCFMMCResult(const CAccountInfo*, CZebError*, CQueryCFMMCResult*, int) {}

void QmInterfaceUI::OnQueryMarginRateResult(const CAccountInfo*, CZebError*, const char*,
                                            const char*, int) {}

void QmInterfaceUI::OnQueryBankTransferWithLSHResult(const CAccountInfo*, CZebError*,
                                                     CBankTransfer*, int, int) {}

void QmInterfaceUI::OnExchangeStatus(const CAccountInfo*, const char*, ZEB_EXCHANGE_STATUS) {}

void QmInterfaceUI::OnSystemInit(const CAccountInfo*, int) {}

void QmInterfaceUI::OnLowMemory() {}

void QmInterfaceUI::OnError(const CAccountInfo*, CZebError*) {}

void QmInterfaceUI::OnUpdatePositionDetailList(const CAccountInfo*) {}

void QmInterfaceUI::OnStopProfitLossMsg(const CAccountInfo*, const char*, const char*, double,
                                        int) {}

void QmInterfaceUI::OnChasePriceMsg(const CAccountInfo*, const char*, const char*,
                                    ChasePrice_STATUS, unsigned char, double, int) {}

void QmInterfaceUI::OnUpdateChasePriceList() {}

void QmInterfaceUI::OnHeartRequestResult(const CAccountInfo*, CZebError*, CHeartRequestResult*,
                                         int) {}
