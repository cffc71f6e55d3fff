#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/terminal/frame_layout.h"
#include "host/terminal/ids.h"
#include "host/terminal/pages_pane.h"
#include "host/terminal/quote_board.h"
#include "host/terminal/remembered.h"
#include "host/terminal/sign_in_dlg.h"
#include "host/terminal/status_log.h"
#include "host/terminal/symbol_table.h"
#include "host/views/chart_view.h"
#include "host/views/depth_view.h"
#include "host/views/detail_view.h"
#include "host/views/log_line.h"
#include "host/views/quote_list.h"
#include "host/views/splitter.h"
#include "host/views/top_bar.h"
#include "plugin/contract/base_ui.h"

class CUICallBack;

namespace terminal {

/// Posted to the frame by whoever has something for it, from any thread.
inline constexpr UINT WM_QUOTES_WAIT = WM_APP + 1;
inline constexpr UINT WM_STATUS_WAITS = WM_APP + 2;
inline constexpr UINT WM_CORE_WAITS = WM_APP + 3;     ///< login progress, funds, account
inline constexpr UINT WM_COMMAND_WAITS = WM_APP + 4;  ///< of automation

/// What the market's clock says; GBK.
struct ClockTexts {
    std::string time;
    std::string phase;
    std::string speed;
};

/// What the frame asks of feed and core. All are called on the windows' thread.
struct FrameSources {
    std::function<std::vector<views::Candle>(int symbol, int minutes)> candles;
    std::function<std::vector<views::TapeTrade>(int symbol)> trades;
    std::function<std::vector<views::ChartMark>(int symbol)> marks;
    /// Null if there are none.
    std::function<const papercore::ContractTerms*(int symbol)> terms;
    std::function<ClockTexts()> clock;
    std::function<void(const std::string& account, const std::string& password)> sign_in;
};

/// The terminal's main window: market above, the front end's pages below.
class Frame : public CWnd {
public:
    Frame(CBaseUI& front_end, CUICallBack& core, const SymbolTable& symbols, QuoteBoard& quotes,
          StatusLog& log, FrameSources sources, Remembered& remembered);
    ~Frame() override;

    /// Makes the window and everything in it; `hint` stands in the sign-in. FALSE if it can't be.
    BOOL CreateFrame(const std::string& hint);
    /// Shows the window as it was left, the first time maximised.
    void Appear();
    void SetLook(Look look);

    // The session, as the core tells it. GBK.
    void OnProgress(const std::string& text);
    void OnSignInRefused(const std::string& reason);
    /// The initial load is handled.
    void OnSessionReady();
    void OnSessionLost();
    /// Why the session will be lost in a moment.
    void SetLostReason(const std::string& reason) { lost_reason_ = reason; }
    void SetAccountName(const std::string& name);
    /// Three figures as the front end or the core gives them.
    void SetFunds(const std::string& equity, const std::string& available,
                  const std::string& profit);
    void OpenSignIn(const std::string& message);

    int CurrentSymbol() const { return quote_list_.Selected(); }
    void SelectSymbol(int symbol);
    /// The page with a script number, as the left menu chooses it.
    void ShowPage(int page);
    /// Marks on the chart may have changed.
    void RefreshMarks();
    /// Keys that belong to the terminal, wherever the focus is. True if the message was one.
    bool HandleKey(const MSG& message);
    /// Stores what the user arranged.
    void Remember();

    PagesPane& pages() { return pages_; }

protected:
    int OnCreate(LPCREATESTRUCT create);
    void OnSize(UINT kind, int width, int height);
    BOOL OnEraseBkgnd(CDC*) { return TRUE; }
    void OnDestroy();
    void OnTimer(UINT_PTR timer);
    LRESULT OnClose(WPARAM wParam, LPARAM lParam);
    LRESULT OnMinMax(WPARAM wParam, LPARAM lParam);
    LRESULT OnQuotesWait(WPARAM wParam, LPARAM lParam);
    LRESULT OnStatusWaits(WPARAM wParam, LPARAM lParam);
    LRESULT OnCoreWaits(WPARAM wParam, LPARAM lParam);
    LRESULT OnCommandWaits(WPARAM wParam, LPARAM lParam);
    LRESULT OnSessionLostMessage(WPARAM wParam, LPARAM lParam);
    LRESULT OnFrameNotice(WPARAM wParam, LPARAM lParam);
    LRESULT OnLockPanel(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    BOOL MakeChildren();
    void ConnectChildren();
    void Arrange();
    void DragSplit(int PaneSizes::*size, int delta);
    void UpdateClock();
    void UpdateChart();
    /// The contract's terms as they are on a trading day.
    void ShowTerms(int symbol, papercore::Day day);
    /// The latest quotes of the contracts that the front end asks for.
    void PushWantedQuotes();
    void PushQuote(int index, const papercore::Quote& quote);
    void ToggleLog();
    void ShowHelp();
    void EditSettings();
    void Refresh();

    CBaseUI& front_end_;
    CUICallBack& core_;
    const SymbolTable& symbols_;
    QuoteBoard& quotes_;
    StatusLog& log_;
    FrameSources sources_;
    Remembered& remembered_;
    const skin::Palette* palette_ = &skin::kDark;
    std::string hint_;
    bool maximised_ = true;
    std::string lost_reason_;

    views::TopBar top_bar_;
    views::QuoteList quote_list_;
    views::ChartView chart_;
    views::DepthView depth_;
    views::DetailView detail_;
    papercore::Day terms_day_ = 0;
    views::LogLine log_line_;
    views::LogList log_list_;
    views::Splitter quotes_split_{true};
    views::Splitter depth_split_{true};
    views::Splitter pages_split_{false};
    PagesPane pages_;
    SignInDlg sign_in_;

public:
    /// Called for WM_CORE_WAITS.
    std::function<void()> on_core_waits;
    /// Called for WM_COMMAND_WAITS.
    std::function<void()> on_command;
    /// Called when the window has gone.
    std::function<void()> on_gone;
};

}  // namespace terminal
