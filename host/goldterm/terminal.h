#pragma once

#include <memory>
#include <mutex>
#include <string>

#include "host/automation/automation.h"
#include "host/terminal/feed.h"
#include "host/terminal/frame.h"
#include "host/terminal/options.h"
#include "host/terminal/remembered.h"
#include "host/terminal/terminal_core.h"
#include "plugin/qm_interface_ui.h"

namespace terminal {

/// Between the thread that reads commands, which outlives the terminal, and what runs them.
struct CommandGate {
    std::mutex mutex;
    automation::Automation* automation = nullptr;  ///< null once the terminal has gone
};

/// The whole terminal: market, account, front end and window, joined.
class Terminal {
public:
    explicit Terminal(Options options);
    ~Terminal();
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    /// Reads all files and makes feed and core. Empty on success, else one line of UTF-8.
    std::string Open();
    /// Makes the window and starts everything. False if the window can't be made.
    bool Show();
    /// The window, or null.
    Frame* frame() { return frame_.get(); }
    /// A message that a loop fetched: true if it is the terminal's own.
    bool Translate(const MSG& message);
    /// Ends feed, core and front end and stores what is to be remembered.
    void Close();

private:
    std::string OpenFolders();
    std::string OpenTerms();
    std::string OpenMarket();
    std::string OpenAccount();
    static std::string ResetAccount(const std::string& path);
    FrameSources Sources();
    automation::Doors Doors();
    void TakeCoreNews();
    void ShowFunds(const std::string& front_end_text);
    ClockTexts Clock() const;

    std::string PutQuote(const automation::json& command);
    std::string Step(const automation::json& command);
    std::string CoreCommand(const automation::json& command);
    automation::json NewStatus();
    automation::json State() const;

    static ULONG_PTR CALLBACK HostCall(UINT message, WPARAM wParam, LPARAM lParam);
    ULONG_PTR Answer(UINT message, WPARAM wParam, LPARAM lParam);

    Options options_;
    std::string data_folder_;
    Remembered remembered_;
    papercore::TermsTable terms_;
    SymbolTable symbols_;
    StatusLog log_;
    std::unique_ptr<market::Market> market_;
    std::unique_ptr<Feed> feed_;
    std::unique_ptr<QuoteBoard> quotes_;
    std::unique_ptr<TerminalCore> core_;
    std::unique_ptr<QmInterfaceUI> front_end_;
    std::unique_ptr<Frame> frame_;
    std::unique_ptr<automation::Automation> automation_;
    std::shared_ptr<CommandGate> gate_;
    bool front_end_counts_ = false;  ///< works the account's figures out itself
    std::size_t told_status_ = 0;
    papercore::Day account_day_ = 0;
    bool new_account_ = false;
    bool closed_ = false;
};

}  // namespace terminal
