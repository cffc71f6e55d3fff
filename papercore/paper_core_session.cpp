#include <cstring>
#include <memory>

#include "papercore/paper_core.h"
#include "papercore/records.h"
#include "platform/text/bounded_text.h"
#include "platform/text/gbk.h"

// Login, password, logout.

namespace papercore {
namespace {

constexpr char kCustomer[] = "模拟账户";
constexpr char kBroker[] = "模拟交易";
constexpr char kVersion[] = "1.0";
constexpr char kNoHash[] = "无法计算密码的散列值，请稍后再试";
/// A longer one could never be changed.
constexpr std::size_t kLongestPassword = sizeof(CChangePasswordRequest::szOldPassword);

std::string Bounded(const char* text) {
    constexpr std::size_t kLongest = 128;
    return text ? std::string(text, strnlen(text, kLongest)) : std::string();
}

}  // namespace

void PaperCore::Login(const char* account, const char* password, const char*, const CServerEntry*) {
    int login = 0;
    {
        const std::scoped_lock lock(session_mutex_);
        login = ++logins_;
    }
    Ask([this, login, name = WholeText(Bounded(account)), word = Bounded(password)] {
        DoLogin(login, name, word);
    });
}

bool PaperCore::IsWanted(int login) {
    const std::scoped_lock lock(session_mutex_);
    return login > logins_ended_;
}

bool PaperCore::BeginSession(int login) {
    const std::scoped_lock lock(session_mutex_);
    if (login <= logins_ended_) return false;
    lists_ready_ = true;
    logged_in_ = true;
    return true;
}

/// False once nobody wants to hear of the login any more.
bool PaperCore::Prompt(int login, int first, int last) {
    for (int prompt = first; prompt <= last; ++prompt) {
        Pause();
        if (!front_end_ || !IsWanted(login)) return false;
        front_end_->OnLoginPrompt(Account(), static_cast<ZEB_LOGIN_PROMPT>(prompt), Error({}));
    }
    return true;
}

void PaperCore::DoLogin(int login, const std::string& account, const std::string& password) {
    logged_in_ = false;
    lists_ready_ = false;
    CAccountInfo asked{};
    text::CopyText(asked.szAccount, account);
    if (!Prompt(login, ZEB_LOGIN_PROMPT_CONNECTING, ZEB_LOGIN_PROMPT_LOGGING_IN)) return;
    Answer answer{kRefused, {}, 0};
    if (Fault().empty()) answer = CheckLogin(account, password);
    Finish();
    if (!Fault().empty()) {
        answer = {kRefused, "账户文件无法使用：" + text::GbkFromUtf8(Fault()), 0};
    }
    if (!AnswerLogin(login, asked, answer)) return;
    if (!Prompt(login, ZEB_LOGIN_PROMPT_SESSION, ZEB_LOGIN_PROMPT_SESSION)) return;
    if (BeginSession(login)) Prompt(login, ZEB_LOGIN_PROMPT_DONE, ZEB_LOGIN_PROMPT_DONE);
}

/// Whether the login goes on.
bool PaperCore::AnswerLogin(int login, const CAccountInfo& asked, const Answer& answer) {
    if (answer.code != 0) {
        if (front_end_ && IsWanted(login)) {
            front_end_->OnLoginResult(&asked, Error(answer), nullptr, 0);
        }
        return false;
    }
    account_ = asked;
    {
        const std::scoped_lock lock(settings_mutex_);
        shown_account_ = asked;
    }
    if (!Prompt(login, ZEB_LOGIN_PROMPT_NOTICE, ZEB_LOGIN_PROMPT_MARGIN_MONITORING)) return false;
    const auto result = std::make_unique<CLoginResult>();
    GetLoginResult(result.get());
    front_end_->OnLoginResult(Account(), Error({}), result.get(), 0);
    return true;
}

Answer PaperCore::CheckLogin(const std::string& account, const std::string& password) {
    if (account.empty()) return {kRefused, "请输入账户", 0};
    if (password.empty()) return {kRefused, "请输入密码", 0};
    if (account.size() >= sizeof(CAccountInfo::szAccount)) return {kRefused, "账户名称过长", 0};
    const papercore::Login& kept = engine_.Kept().login;
    papercore::Login login{account, kept.salt, kept.hash};
    if (kept.account.empty()) {
        if (password.size() > kLongestPassword) return {kRefused, "密码过长", 0};
        login.salt = parts_.make_salt();
        login.hash = parts_.hash(password, login.salt);
        if (login.salt.empty() || login.hash.empty()) return {kRefused, kNoHash, 0};
    } else if (kept.account == account) {
        const std::string hash = parts_.hash(password, kept.salt);
        if (hash.empty()) return {kRefused, kNoHash, 0};
        if (hash != kept.hash) return {kRefused, "账户或密码错误", 0};
    }
    return engine_.OpenSession(login, now_);
}

void PaperCore::Logout() {
    const std::scoped_lock lock(session_mutex_);
    logins_ended_ = logins_;
    logged_in_ = false;
    lists_ready_ = false;
    published_.Unpin();
}

void PaperCore::ChangePassword(CChangePasswordRequest* request, int) {
    if (!request || !logged_in_) return;
    Ask([this, copy = *request] { DoChangePassword(copy); });
}

void PaperCore::DoChangePassword(const CChangePasswordRequest& request) {
    const std::string before(text::FieldText(request.szOldPassword));
    const std::string after(text::FieldText(request.szNewPassword));
    const Answer answer = CheckPassword(before, after);
    if (Tells()) front_end_->OnChangePasswordResult(Account(), Error(answer), 0);
}

Answer PaperCore::CheckPassword(const std::string& before, const std::string& after) {
    const papercore::Login& kept = told_.login;
    const std::string hash = parts_.hash(before, kept.salt);
    if (hash.empty()) return {kRefused, kNoHash, 0};
    if (hash != kept.hash) return {kRefused, "原密码错误", 0};
    if (after.empty()) return {kRefused, "新密码不能为空", 0};
    const std::string salt = parts_.make_salt();
    const std::string changed = parts_.hash(after, salt);
    if (salt.empty() || changed.empty()) return {kRefused, kNoHash, 0};
    if (Fault().empty()) engine_.ChangePassword(salt, changed);
    Finish();
    if (!Fault().empty()) return {kRefused, "账户文件无法写入，密码未修改", 0};
    return {0, "密码修改成功", 0};
}

void PaperCore::GetLoginAccount(CAccountInfo* account) {
    const std::scoped_lock lock(settings_mutex_);
    if (account) *account = shown_account_;
}

void PaperCore::GetLoginResult(CLoginResult* result) {
    if (!result) return;
    std::memset(static_cast<void*>(result), 0, sizeof *result);
    text::CopyText(result->szCustomerName, kCustomer);
    text::CopyText(result->szBrokerName, kBroker);
    text::CopyText(result->szServerVersion, kVersion);
}

}  // namespace papercore
