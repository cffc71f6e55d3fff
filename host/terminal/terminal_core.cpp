#include "host/terminal/terminal_core.h"

#include <cstring>
#include <utility>

#include "host/skin/palette.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/messages.h"

namespace terminal {
namespace {

// Statuses of the trading connection that end the session.
constexpr int kConnectionDropped = -1;
constexpr int kServerClosed = -2;

}  // namespace

TerminalCore::TerminalCore(papercore::CoreParts parts, papercore::State state, StatusLog& log,
                           int scale)
    : PaperCore(std::move(parts), std::move(state)), log_(log), skin_(scale) {}

// The thread calls operations of this class, so it must not outlive it.
TerminalCore::~TerminalCore() { Stop({}); }

void TerminalCore::SetWake(std::function<void()> wake) {
    const std::scoped_lock lock(news_mutex_);
    wake_ = std::move(wake);
}

void TerminalCore::SetClock(std::function<std::string()> clock) {
    const std::scoped_lock lock(news_mutex_);
    clock_ = std::move(clock);
}

CoreNews TerminalCore::TakeNews() {
    const std::scoped_lock lock(news_mutex_);
    told_ = false;
    CoreNews taken = news_;
    news_.progress.clear();
    news_.lost.clear();
    news_.refused = news_.ready = news_.funds = news_.lists = false;
    return taken;
}

void TerminalCore::Tell(const std::function<void(CoreNews&)>& change) {
    std::function<void()> wake;
    {
        const std::scoped_lock lock(news_mutex_);
        change(news_);
        if (!std::exchange(told_, true)) wake = wake_;
    }
    if (wake) wake();
}

COLORREF TerminalCore::GetSkinColor() { return skin::kLight.ground; }

void TerminalCore::GetPanelBackColor(COLORREF* color) {
    if (color) *color = skin::kPanelGround;
}

void TerminalCore::ShowStatusText(const char* text, int code) {
    if (!text) return;
    std::function<std::string()> clock;
    {
        const std::scoped_lock lock(news_mutex_);
        clock = clock_;
    }
    log_.Add(clock ? clock() : std::string(), code, text);
}

void TerminalCore::GetPromptText(int, char* buffer, int size) {
    if (!buffer || size <= 0) return;
    const std::scoped_lock lock(news_mutex_);
    text::CopyText(buffer, static_cast<std::size_t>(size), prompt_);
}

void TerminalCore::ShowLoginProgress(int, const char* text) {
    if (!text) return;
    if (*text != '\0') ShowStatusText(text, kStatusPlain);
    Tell([this, text](CoreNews& news) { news.progress = prompt_ = text; });
}

void TerminalCore::SetAccountDisplayName(const char* name, int) {
    Tell([name](CoreNews& news) { news.account = name ? name : ""; });
}

void TerminalCore::SetFundsText(const char* text, int) {
    Tell([text](CoreNews& news) {
        news.funds_text = text ? text : "";
        news.funds = true;
    });
}

void TerminalCore::NotifyEvent(int, WPARAM wParam, LPARAM lParam) {
    const WORD event = LOWORD(wParam);
    const bool failed = HIWORD(wParam) == kCoreEventFailed;
    if ((event == EV_LOGIN_RESULT || event == EV_NOTICE) && failed) TellRefused(lParam);
    const auto status = static_cast<int>(lParam);
    if (event == EV_CONNECTION_LOST && (status == kConnectionDropped || status == kServerClosed)) {
        const std::string reason =
            status == kServerClosed ? "连接被交易服务器断开" : "与交易服务器的连接已中断";
        ShowStatusText(reason.c_str(), kStatusPlain);
        Tell([&reason](CoreNews& news) { news.lost = reason + "，请重新登录"; });
    }
    if (event == EV_ACCOUNT_RESULT) {
        Tell([](CoreNews& news) { news.funds = true; });
    }
    if (event == EV_ORDER_LIST || event == EV_POSITION_LIST || event == EV_POSITION_GROUP_LIST) {
        Tell([](CoreNews& news) { news.lists = true; });
    }
}

// The block begins with the reason.
void TerminalCore::TellRefused(LPARAM block) {
    const auto* text = reinterpret_cast<const char*>(block);
    const std::string reason = text ? std::string(text, strnlen(text, 1023)) : std::string();
    ShowStatusText(("登录失败：" + reason).c_str(), kStatusPlain);
    Tell([&reason](CoreNews& news) {
        news.refused = true;
        news.reason = reason.empty() ? "登录失败" : reason;
    });
}

void TerminalCore::NotifyInitDone(int) {
    Tell([](CoreNews& news) { news.ready = true; });
}

void TerminalCore::ForwardEvent(UINT, WPARAM, LPARAM) {}

}  // namespace terminal
