#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "plugin/contract/messages.h"
#include "plugin/main_dlg.h"
#include "tests/support/front_end/recording_core.h"
#include "tests/support/front_end/recording_host.h"

namespace tests {

/// A window of the host that writes the front end's messages down.
class HostWindow : public CWnd {
public:
    HostWindow(const char* name, std::vector<std::string>& log) : name_(name), log_(log) {}

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    const char* name_;
    std::vector<std::string>& log_;
};

/// The main dialog in a host's windows, over a core and a host that record.
///
/// `log` holds in one order what the events lead to: calls of the core, messages to the host's
/// windows, and boxes as `box "text" "title" icon`. Texts are GBK.
class ShellTest : public ::testing::Test {
protected:
    ShellTest();
    ~ShellTest() override;

    void MakeShell();
    /// A panel in the frame; with a name, its pages are spies that log under it.
    CPanelTradeDlg& AddPanel(const char* name = nullptr);
    /// The button that buys on the panel's ticket: enabled while the panel has a contract.
    static HWND TicketButton(const CPanelTradeDlg& panel);
    /// Is the panel's login page shown instead of its ticket?
    static bool ShowsLogin(const CPanelTradeDlg& panel);
    /// Makes a contract known to core and host.
    CZebContract AddContract(const char* code, int market, int number);

    /// A block with these bytes; the event that carries it takes it over.
    static LPARAM Block(std::string_view bytes, int size);
    static LPARAM TextBlock(std::string_view text) {
        return Block(text, static_cast<int>(text.size()) + 1);
    }
    /// A number, and the text behind it.
    static LPARAM NumberedBlock(int number, std::string_view text);
    template <class Record>
    static LPARAM RecordBlock(const Record& record, int spare = 0) {
        return Block({reinterpret_cast<const char*>(&record), sizeof(record)},
                     static_cast<int>(sizeof(record)) + spare);
    }

    void Send(int code, LPARAM lParam = 0) { SendRaw(static_cast<WPARAM>(code), lParam); }
    void SendFailed(int code, LPARAM lParam = 0) {
        SendRaw(static_cast<WPARAM>(code) | WPARAM{kCoreEventFailed} << 16, lParam);
    }
    void SendRaw(WPARAM wParam, LPARAM lParam);
    /// What was logged since the last call, joined by "; ": the lines that begin with one of the
    /// words, or all, but never the NotifyEvent that every event begins with.
    std::string TakeLog(std::initializer_list<std::string_view> words = {""});

    /// Called for each box once it waits for the user: writes it down and presses a button.
    virtual void OnBox(HWND box);
    static void PressButton(HWND box, int button = IDOK);
    /// A box as the log shows it.
    static std::string Describe(HWND box);

    /// Called before a box is answered.
    std::function<void()> on_box;

    static std::string TextOf(const CWnd& window, int control);

    std::vector<std::string> log;
    RecordingHost host;
    RecordingCore core;
    FrontEndDoors doors{core, host};
    HostWindow frame{"frame", log};
    HostWindow parent{"parent", log};
    std::unique_ptr<CMainDlg> shell;

private:
    static void Arm();
    static void OnIdle(void*);
};

}  // namespace tests
