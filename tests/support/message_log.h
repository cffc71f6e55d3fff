#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/system.h"

namespace tests {

/// Writes down, in order and as text, what arrives at a few windows.
///
///     frame WM_ACTIVATE(active, null) [frame WM_SETFOCUS(null)]; *frame WM_PAINT*
///
/// Items are joined by "; ", brackets hold what was sent while the message before them was handled,
/// stars stand around what was fetched from the queue. Windows are told by role. Only the newest
/// log listens; it belongs to the thread that made it.
class MessageLog {
public:
    MessageLog();
    ~MessageLog();
    MessageLog(const MessageLog&) = delete;
    MessageLog& operator=(const MessageLog&) = delete;

    /// Creates a window of a class of the log's own, logged from WM_NCCREATE on. Its WM_PAINT
    /// handler calls BeginPaint and EndPaint.
    HWND Create(const std::string& role, DWORD style, RECT rect, HWND parent = nullptr, int id = 0,
                DWORD ex_style = 0, UINT class_style = 0, bool brush = true);
    /// Logs a window that exists already, by subclassing it.
    void Watch(HWND window, const std::string& role);
    /// Names a window in arguments without logging it.
    void Name(HWND window, const std::string& role);

    /// Leaves messages out, for all windows or for one role.
    void Omit(const std::set<UINT>& messages) { omitted_.insert(messages.begin(), messages.end()); }
    /// Shows these messages and no others; an empty set shows all that are not left out.
    void Only(const std::set<UINT>& messages) { only_ = messages; }
    /// Shows the answer behind these messages, as in WM_ERASEBKGND=1.
    void ShowAnswers(const std::set<UINT>& messages) { answers_ = messages; }

    /// Adds a remark of the test, in the place where it happens.
    void Remark(const std::string& text);
    /// What was written since the last call.
    std::string Take();
    /// Dispatches what the queue holds, then Take.
    std::string PumpAndTake();

    std::string RoleOf(HWND window) const;

    /// Called instead of the log's default for its own windows; return true and set the answer to
    /// end the message there.
    using Handler = bool (*)(MessageLog& log, const std::string& role, UINT message, WPARAM wParam,
                             LPARAM lParam, LRESULT& answer);
    void SetHandler(Handler handler) { handler_ = handler; }

private:
    struct Entry {
        std::string text;
        std::vector<Entry> inner;
    };

    static LRESULT CALLBACK OwnProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK WatchProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK FetchHook(int code, WPARAM wParam, LPARAM lParam);

    LRESULT Record(HWND window, UINT message, WPARAM wParam, LPARAM lParam, WNDPROC next);
    LRESULT Handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam, WNDPROC next);
    bool Wanted(UINT message) const;
    bool TakeFetched(HWND window, UINT message);
    std::string Describe(UINT message, WPARAM wParam, LPARAM lParam) const;
    std::string DescribeInput(UINT message, WPARAM wParam, LPARAM lParam) const;
    static std::string Print(const std::vector<Entry>& entries);

    std::map<HWND, std::string> roles_;
    std::map<HWND, WNDPROC> watched_;
    std::set<UINT> omitted_;
    std::set<UINT> only_;
    std::set<UINT> answers_;
    std::vector<Entry> entries_;
    std::vector<std::vector<Entry>*> open_{&entries_};
    std::string next_role_;
    HHOOK hook_ = nullptr;
    MSG fetched_{};
    bool has_fetched_ = false;
    Handler handler_ = nullptr;
};

/// The name of a message, or its number as 0x...; WM_USER and above as WM_USER+n.
std::string MessageName(UINT message);

/// Dispatches all that the queue holds, without waiting.
void PumpQueue();

}  // namespace tests
