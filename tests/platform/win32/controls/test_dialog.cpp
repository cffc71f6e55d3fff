#include "tests/platform/win32/controls/test_dialog.h"

namespace tests {

Template::Template(DWORD style, const std::vector<TemplateItem>& items, const char* title,
                   DWORD ex_style) {
    Number(style);
    Number(ex_style);
    words_.push_back(static_cast<WORD>(items.size()));
    for (const int value : {20, 20, 180, 100}) words_.push_back(static_cast<WORD>(value));
    words_.push_back(0);  // menu
    words_.push_back(0);  // class
    Text(title);
    words_.push_back(9);
    for (const int unit : {0x5B8B, 0x4F53, 0}) words_.push_back(static_cast<WORD>(unit));
    for (const TemplateItem& item : items) {
        if (words_.size() % 2 != 0) words_.push_back(0);
        Number(item.style | WS_CHILD);
        Number(item.ex_style);
        for (const short value : {item.x, item.y, item.width, item.height}) {
            words_.push_back(static_cast<WORD>(value));
        }
        words_.push_back(static_cast<WORD>(item.id));
        Text(item.window_class);
        Text(item.text);
        words_.push_back(0);  // creation data
    }
}

void Template::Text(const char* text) {
    for (; *text != '\0'; ++text) words_.push_back(static_cast<WORD>(*text));
    words_.push_back(0);
}

void Template::Number(DWORD number) {
    words_.push_back(LOWORD(number));
    words_.push_back(HIWORD(number));
}

Template PlainTemplate() {
    constexpr DWORD kStop = WS_VISIBLE | WS_TABSTOP;
    return Template(kTestDialogStyle,
                    {{"Edit", 100, "e1", kStop | WS_BORDER, 10, 10, 60, 14},
                     {"Edit", 101, "e2", kStop | WS_BORDER, 10, 30, 60, 14},
                     {"Button", IDOK, "ok", kStop | BS_DEFPUSHBUTTON, 10, 60, 40, 14},
                     {"Button", IDCANCEL, "cancel", kStop, 60, 60, 40, 14},
                     {"Button", 102, "third", kStop, 110, 60, 40, 14}});
}

namespace {

void Watch(DialogScript& script, HWND dialog) {
    script.log->Watch(dialog, script.role);
    for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        const int id = GetDlgCtrlID(child);
        const std::string role = id == IDOK       ? "ok"
                                 : id == IDCANCEL ? "cancel"
                                                  : "c" + std::to_string(id);
        script.log->Watch(child, role);
    }
}

}  // namespace

INT_PTR CALLBACK ScriptProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        auto* const script = reinterpret_cast<DialogScript*>(lParam);
        SetWindowLongPtrA(dialog, DWLP_USER, lParam);
        script->window = dialog;
        if (script->log != nullptr) Watch(*script, dialog);
        if (script->on_init) script->on_init(dialog);
        return script->init_answer ? TRUE : FALSE;
    }
    auto* const script = reinterpret_cast<DialogScript*>(GetWindowLongPtrA(dialog, DWLP_USER));
    if (script == nullptr || message != WM_COMMAND) return FALSE;
    const int id = LOWORD(wParam);
    if (script->on_command && script->on_command(dialog, id)) return TRUE;
    if (id == kEndCommand) EndDialog(dialog, 50);
    if ((id == IDOK || id == IDCANCEL) && HIWORD(wParam) == BN_CLICKED) return TRUE;
    return id == kEndCommand ? TRUE : FALSE;
}

void ShowEffects(MessageLog& log) {
    log.Only({WM_ENABLE, WM_ACTIVATE, WM_SETFOCUS, WM_KILLFOCUS, WM_COMMAND, WM_CLOSE,
              WM_SYSCOMMAND, WM_NEXTDLGCTL, WM_DESTROY, DM_SETDEFID});
}

void PumpDialog(HWND dialog) {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (IsDialogMessageA(dialog, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

void DialogKey(HWND dialog, BYTE key, bool shift) {
    if (shift) keybd_event(VK_SHIFT, 0, 0, 0);
    keybd_event(key, 0, 0, 0);
    keybd_event(key, 0, KEYEVENTF_KEYUP, 0);
    if (shift) keybd_event(VK_SHIFT, 0, KEYEVENTF_KEYUP, 0);
    PumpDialog(dialog);
}

}  // namespace tests
