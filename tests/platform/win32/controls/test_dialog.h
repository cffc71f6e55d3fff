#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tests/support/message_log.h"

namespace tests {

/// One control of a template in memory.
struct TemplateItem {
    const char* window_class;
    int id;
    const char* text;
    DWORD style;
    short x, y, width, height;
    DWORD ex_style = 0;
};

/// A DLGTEMPLATE with its items behind it, 9 point 宋体. Texts are ASCII.
class Template {
public:
    Template(DWORD style, const std::vector<TemplateItem>& items, const char* title = "dialog",
             DWORD ex_style = 0);
    LPCDLGTEMPLATEA Get() const { return reinterpret_cast<LPCDLGTEMPLATEA>(words_.data()); }

private:
    void Text(const char* text);
    void Number(DWORD number);

    std::vector<WORD> words_;
};

inline constexpr DWORD kTestDialogStyle =
    WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_SETFONT;

/// Edits 100 and 101, buttons 1 (default), 2 and 102.
Template PlainTemplate();

inline constexpr int kEndCommand = 777;  ///< ends the dialog with 50 unless the script takes it

/// What a dialog under test does, and how its windows are called in the log. Given as the parameter
/// of its creation to ScriptProcedure.
struct DialogScript {
    MessageLog* log = nullptr;
    std::string role = "dialog";
    bool init_answer = true;
    std::function<void(HWND)> on_init;
    /// Answers true for a command that is not to go on.
    std::function<bool(HWND, int id)> on_command;
    HWND window = nullptr;

    LPARAM Parameter() { return reinterpret_cast<LPARAM>(this); }
};
/// Logs the dialog and its controls (ok, cancel, c<id>) from WM_INITDIALOG on.
INT_PTR CALLBACK ScriptProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

/// What pages act on: enabling, activation, focus, commands, dialog keys.
void ShowEffects(MessageLog& log);

/// Dispatches what the queue holds as a loop with IsDialogMessage does.
void PumpDialog(HWND dialog);
/// Types a key at a dialog, Shift held if asked.
void DialogKey(HWND dialog, BYTE key, bool shift = false);

}  // namespace tests
