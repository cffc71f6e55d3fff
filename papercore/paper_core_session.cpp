#include <cstring>
#include <memory>

#include "papercore/paper_core.h"
#include "platform/text/bounded_text.h"
#include "platform/text/gbk.h"

// Login, password, logout.

namespace papercore {
namespace {

constexpr char kCustomer[] = "模拟账户";
constexpr char kBroker[] = "模拟交易";
constexpr char kVersion[] = "1.0";

std::string Bounded(const char* text) {
    constexpr std::size_t kLongest = 128;
    return text ? std::string(text, strnlen(text, kLongest)) : std::string();
}

}  // namespace

void PaperCore::Login(const char* account, const char* password, const char*, const CServerEntry*) {
    Ask([this, name = Bounded(account), word = Bounded(password)] { DoLogin(name, word); });
}

void PaperCore::Prompt(int first, int last) {
    for (int prompt = first; prompt <= last && front_end_; ++prompt) {
        Pause();
        front_end_->OnLoginPrompt(Account(), static_cast<ZEB_LOGIN_PROMPT>(prompt), Error({}));
    }
}

void PaperCore::DoLogin(const std::string& account, const std::string& password) {
    logged_in_ = false;
    lists_ready_ = false;
    CAccountInfo asked{};
    text::CopyText(asked.szAccount, account);
    Prompt(ZEB_LOGIN_PROMPT_CONNECTING, ZEB_LOGIN_PROMPT_LOGGING_IN);
    Answer answer = CheckLogin(account, password);
    Finish();
    if (answer.code == 0 && !Fault().empty()) {
        answer = {kRefused, "账户文件无法使用：" + text::GbkFromUtf8(Fault()), 0};
    }
    if (answer.code != 0) {
        if (front_end_) front_end_->OnLoginResult(&asked, Error(answer), nullptr, 0);
        return;
    }
    account_ = asked;
    {
        const std::scoped_lock lock(settings_mutex_);
        shown_account_ = asked;
    }
    Prompt(ZEB_LOGIN_PROMPT_NOTICE, ZEB_LOGIN_PROMPT_MARGIN_MONITORING);
    if (!front_end_) return;
    const auto result = std::make_unique<CLoginResult>();
    GetLoginResult(result.get());
    front_end_->OnLoginResult(Account(), Error({}), result.get(), 0);
    Prompt(ZEB_LOGIN_PROMPT_SESSION, ZEB_LOGIN_PROMPT_SESSION);
    lists_ready_ = true;
    logged_in_ = true;
    Prompt(ZEB_LOGIN_PROMPT_DONE, ZEB_LOGIN_PROMPT_DONE);
}

Answer PaperCore::CheckLogin(const std::string& account, const std::string& password) {
    if (account.empty()) return {kRefused, "请输入账户", 0};
    if (password.empty()) return {kRefused, "请输入密码", 0};
    if (account.size() >= sizeof(CAccountInfo::szAccount)) return {kRefused, "账户名称过长", 0};
    const papercore::Login& kept = engine_.Kept().login;
    papercore::Login login{account, kept.salt, kept.hash};
    if (kept.account.empty()) {
        login.salt = parts_.make_salt();
        login.hash = parts_.hash(password, login.salt);
    } else if (kept.account == account && parts_.hash(password, kept.salt) != kept.hash) {
        return {kRefused, "账户或密码错误", 0};
    }
    return engine_.OpenSession(login, now_);
}

void PaperCore::Logout() {
    logged_in_ = false;
    lists_ready_ = false;
}

void PaperCore::ChangePassword(CChangePasswordRequest* request, int) {
    if (!request) return;
    Ask([this, copy = *request] { DoChangePassword(copy); });
}

void PaperCore::DoChangePassword(const CChangePasswordRequest& request) {
    const std::string before(text::FieldText(request.szOldPassword));
    const std::string after(text::FieldText(request.szNewPassword));
    const papercore::Login& kept = engine_.Kept().login;
    Answer answer{0, "密码修改成功", 0};
    if (parts_.hash(before, kept.salt) != kept.hash) {
        answer = {kRefused, "原密码错误", 0};
    } else if (after.empty()) {
        answer = {kRefused, "新密码不能为空", 0};
    } else {
        const std::string salt = parts_.make_salt();
        engine_.ChangePassword(salt, parts_.hash(after, salt));
        Finish();
        if (!Fault().empty()) answer = {kRefused, "账户文件无法写入", 0};
    }
    if (Tells()) front_end_->OnChangePasswordResult(Account(), Error(answer), 0);
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
