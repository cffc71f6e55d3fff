#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "host/skin/skin_bitmaps.h"
#include "host/terminal/status_log.h"
#include "papercore/paper_core.h"

namespace terminal {

/// What the core has for the windows since they looked last.
struct CoreNews {
    std::string progress;    ///< of the login; empty when there is none
    bool refused = false;    ///< the last login was
    std::string reason;      ///< why
    bool ready = false;      ///< the initial load is handled
    bool funds = false;      ///< may have changed
    bool lists = false;      ///< orders, positions or stops may have changed
    std::string account;     ///< to be shown
    std::string lost;        ///< why the session will be lost in a moment; empty if it won't
    std::string funds_text;  ///< "equity|available|open profit|" as the front end works it out
};

/// The paper core with a window side: skin, status texts, and news for the terminal's frame.
class TerminalCore final : public papercore::PaperCore {
public:
    TerminalCore(papercore::CoreParts parts, papercore::State state, StatusLog& log, int scale);
    ~TerminalCore() override;

    /// Called on whatever thread has news while none was waiting.
    void SetWake(std::function<void()> wake);
    /// What `ShowStatusText` writes in front of a line.
    void SetClock(std::function<std::string()> clock);
    CoreNews TakeNews();
    void Report(const std::string& text) { ShowStatusText(text.c_str(), kStatusPlain); }

    HBITMAP GetSkinBitmap(int group, int index) override { return skin_.Get(group, index); }
    COLORREF GetSkinColor() override;
    void SetLoginRoute(int*, int) override {}
    void ShowStatusText(const char* text, int code) override;
    void GetPromptText(int zero, char* buffer, int size) override;
    void ShowLoginProgress(int zero, const char* text) override;
    void SetAccountDisplayName(const char* name, int module) override;
    void SetFundsText(const char* text, int module) override;
    void GetPanelBackColor(COLORREF* color) override;
    void NotifyEvent(int module, WPARAM wParam, LPARAM lParam) override;
    void NotifyInitDone(int module) override;
    void ForwardEvent(UINT message, WPARAM wParam, LPARAM lParam) override;
    void ReportSettlementText(int, int, const char*) override {}

private:
    void TellRefused(LPARAM block);
    /// Changes the news under the lock, then wakes.
    void Tell(const std::function<void(CoreNews&)>& change);

    StatusLog& log_;
    skin::SkinBitmaps skin_;
    std::function<void()> wake_;
    std::function<std::string()> clock_;
    std::mutex news_mutex_;
    CoreNews news_;
    std::string prompt_;
    bool told_ = false;
};

}  // namespace terminal
