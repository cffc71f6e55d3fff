#include "platform/win32/controls/save_file_dialog.h"

#include <algorithm>

#include "platform/win32/controls/control.h"
#include "platform/win32/controls/dialog.h"

namespace winbase {

namespace {

// The numbers of the system's own file dialogs.
constexpr int kNameEdit = 0x0480;
constexpr int kFileList = 0x0460;
constexpr int kTypeCombo = 0x0470;
constexpr int kFolderText = 0x0440;
constexpr int kEmptyText = 0x0441;
constexpr int kUpButton = 0x0400;

constexpr int kRowHeight = 20;
constexpr COLORREF kFolderColor = RGB(0xD9, 0xA4, 0x41);
constexpr COLORREF kFileColor = RGB(0x8A, 0x98, 0xA6);

// Dialog units; 9 point text makes 3 pixels of 2 units both ways.
DialogTemplate MakeTemplate(const std::string& title) {
    DialogTemplate dialog;
    dialog.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_SETFONT | DS_CENTER;
    dialog.width = 344;
    dialog.height = 252;
    dialog.title = title;
    dialog.point_size = 9;
    dialog.face = "宋体";
    constexpr DWORD kLabel = WS_VISIBLE | SS_LEFT | SS_CENTERIMAGE;
    constexpr DWORD kPath = kLabel | SS_NOPREFIX | SS_ENDELLIPSIS;
    constexpr DWORD kStop = WS_VISIBLE | WS_TABSTOP;
    constexpr DWORD kList = kStop | WS_BORDER | WS_VSCROLL | WS_CLIPSIBLINGS | LBS_NOTIFY |
                            LBS_OWNERDRAWFIXED | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT;
    constexpr DWORD kEdit = kStop | WS_BORDER | ES_AUTOHSCROLL;
    constexpr DWORD kCombo = kStop | WS_VSCROLL | CBS_DROPDOWNLIST;
    constexpr DWORD kDefault = kStop | BS_DEFPUSHBUTTON;
    constexpr DWORD kHint = SS_CENTER | SS_NOPREFIX;
    dialog.controls = {
        {kLabel, 0, 8, 8, 48, 16, -1, "Static", "保存在(&I):", {}},
        {kPath, 0, 60, 8, 216, 16, kFolderText, "Static", "", {}},
        {kStop, 0, 280, 8, 56, 16, kUpButton, "Button", "上一级(&U)", {}},
        // Over the list, which leaves its place out.
        {kHint, 0, 80, 80, 184, 12, kEmptyText, "Static", "没有这种类型的文件", {}},
        {kList, 0, 8, 28, 328, 148, kFileList, "ListBox", "", {}},
        {kLabel, 0, 8, 184, 52, 16, -1, "Static", "文件名(&N):", {}},
        {kEdit, 0, 60, 184, 276, 16, kNameEdit, "Edit", "", {}},
        {kLabel, 0, 8, 204, 52, 16, -1, "Static", "保存类型(&T):", {}},
        {kCombo, 0, 60, 204, 276, 96, kTypeCombo, "ComboBox", "", {}},
        {kDefault, 0, 220, 228, 56, 16, IDOK, "Button", "保存(&S)", {}},
        {kStop, 0, 280, 228, 56, 16, IDCANCEL, "Button", "取消", {}},
    };
    return dialog;
}

std::string Trimmed(const std::string& text) {
    const std::size_t from = text.find_first_not_of(" \t\"");
    const std::size_t to = text.find_last_not_of(" \t\"");
    return from == std::string::npos ? std::string() : text.substr(from, to - from + 1);
}

void DrawFolderMark(HDC dc, int x, int y) {
    FillColor(dc, {x, y, x + 6, y + 2}, kFolderColor);
    FillColor(dc, {x, y + 2, x + 14, y + 11}, kFolderColor);
}

void DrawFileMark(HDC dc, int x, int y) {
    FillColor(dc, {x + 2, y - 1, x + 12, y + 12}, kFileColor);
    FillColor(dc, {x + 3, y, x + 11, y + 11}, look::kPaper);
    for (int line = 2; line < 10; line += 3) {
        FillColor(dc, {x + 5, y + line, x + 9, y + line + 1}, kFileColor);
    }
}

}  // namespace

bool SaveFileDialog::Run(HWND owner) {
    const INT_PTR result = RunDialog(MakeTemplate(title.empty() ? "另存为" : title), nullptr, owner,
                                     Procedure, reinterpret_cast<LPARAM>(this));
    dialog_ = nullptr;
    return result == IDOK;
}

INT_PTR CALLBACK SaveFileDialog::Procedure(HWND dialog, UINT message, WPARAM wParam,
                                           LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        auto* const self = reinterpret_cast<SaveFileDialog*>(lParam);
        SetWindowLongPtrA(dialog, DWLP_USER, lParam);
        self->dialog_ = dialog;
        self->Initialise();
        return FALSE;  // the name has the focus
    }
    auto* const self = reinterpret_cast<SaveFileDialog*>(GetWindowLongPtrA(dialog, DWLP_USER));
    return self != nullptr ? self->Message(message, wParam, lParam) : FALSE;
}

INT_PTR SaveFileDialog::Message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND: Command(LOWORD(wParam), HIWORD(wParam)); return TRUE;
        case WM_DRAWITEM:
            if (wParam != kFileList) return FALSE;
            DrawRow(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
            return TRUE;
        case WM_CTLCOLORSTATIC: {
            if (GetDlgCtrlID(reinterpret_cast<HWND>(lParam)) != kEmptyText) return FALSE;
            const auto dc = reinterpret_cast<HDC>(wParam);
            SetTextColor(dc, look::kSecondary);
            SetBkColor(dc, look::kPaper);
            return reinterpret_cast<INT_PTR>(GetStockObject(WHITE_BRUSH));
        }
        default: return FALSE;
    }
}

void SaveFileDialog::Initialise() {
    SendDlgItemMessageA(dialog_, kFileList, LB_SETITEMHEIGHT, 0, kRowHeight);
    for (const FileFilter& type : filters) {
        SendDlgItemMessageA(dialog_, kTypeCombo, CB_ADDSTRING, 0,
                            reinterpret_cast<LPARAM>(type.name.c_str()));
    }
    SendDlgItemMessageA(dialog_, kTypeCombo, CB_SETCURSEL, static_cast<WPARAM>(filter), 0);
    SendDlgItemMessageA(dialog_, kNameEdit, EM_LIMITTEXT, MAX_PATH - 1, 0);
    SetDlgItemTextA(dialog_, kNameEdit, name.c_str());
    ShowFolder(folder);
    const HWND edit = GetDlgItem(dialog_, kNameEdit);
    SendMessageA(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(edit), TRUE);
}

void SaveFileDialog::Command(int id, int code) {
    switch (id) {
        case IDOK: Accept(); break;
        case IDCANCEL: EndDialog(dialog_, IDCANCEL); break;
        case kUpButton: ShowFolder(ParentFolder(folder)); break;
        case kFileList:
            if (code == LBN_SELCHANGE) SelectionChanged();
            if (code == LBN_DBLCLK) OpenSelection();
            break;
        case kTypeCombo:
            if (code != CBN_SELCHANGE) break;
            filter = static_cast<int>(SendDlgItemMessageA(dialog_, kTypeCombo, CB_GETCURSEL, 0, 0));
            typed_pattern_.clear();
            Fill();
            break;
        default: break;
    }
}

void SaveFileDialog::ShowFolder(const std::string& wanted) {
    folder = wanted;
    SetDlgItemTextA(dialog_, kFolderText, folder.c_str());
    EnableWindow(GetDlgItem(dialog_, kUpButton), ParentFolder(folder) != folder);
    Fill();
}

void SaveFileDialog::Fill() {
    entries_ = ReadFolder(folder, Patterns());
    const HWND list = GetDlgItem(dialog_, kFileList);
    SendMessageA(list, WM_SETREDRAW, FALSE, 0);
    SendMessageA(list, LB_RESETCONTENT, 0, 0);
    for (const FolderEntry& entry : entries_) {
        SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry.name.c_str()));
    }
    SendMessageA(list, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list, nullptr, TRUE);
    ShowWindow(GetDlgItem(dialog_, kEmptyText), entries_.empty() ? SW_SHOW : SW_HIDE);
}

std::vector<std::string> SaveFileDialog::Patterns() const {
    if (!typed_pattern_.empty()) return {typed_pattern_};
    const auto chosen = static_cast<std::size_t>(filter);
    return filter >= 0 && chosen < filters.size() ? filters[chosen].patterns
                                                  : std::vector<std::string>{"*"};
}

const FolderEntry* SaveFileDialog::Selected() const {
    const LRESULT row = SendDlgItemMessageA(dialog_, kFileList, LB_GETCURSEL, 0, 0);
    const auto at = static_cast<std::size_t>(row);
    return row >= 0 && at < entries_.size() ? &entries_[at] : nullptr;
}

void SaveFileDialog::SelectionChanged() {
    const FolderEntry* const entry = Selected();
    if (entry != nullptr && !entry->is_folder) {
        SetDlgItemTextA(dialog_, kNameEdit, entry->name.c_str());
    }
}

void SaveFileDialog::OpenSelection() {
    const FolderEntry* const entry = Selected();
    if (entry == nullptr) return;
    if (entry->is_folder) {
        ShowFolder(JoinPath(folder, entry->name));
    } else {
        AcceptName(entry->name);
    }
}

std::string SaveFileDialog::EditText() const {
    char text[MAX_PATH + 1] = "";
    GetDlgItemTextA(dialog_, kNameEdit, text, sizeof text);
    return text;
}

void SaveFileDialog::Accept() {
    const FolderEntry* const entry = Selected();
    const bool in_list = GetFocus() == GetDlgItem(dialog_, kFileList);
    if (in_list && entry != nullptr && entry->is_folder) return OpenSelection();
    const std::string typed = Trimmed(EditText());
    if (!typed.empty()) AcceptName(typed);
}

void SaveFileDialog::AcceptName(const std::string& typed) {
    if (HasWildcard(typed) && SplitFileName(typed).folder.empty()) {
        typed_pattern_ = typed;
        return Fill();
    }
    std::string wanted = FullPath(folder, typed);
    if (FolderExists(wanted)) {
        ShowFolder(wanted);
        SetDlgItemTextA(dialog_, kNameEdit, name.c_str());
        return;
    }
    if (ExtensionPlace(wanted) == 0 && !default_extension.empty()) {
        // What ends with a dot says that it wants no extension.
        if (wanted.back() == '.') {
            wanted.pop_back();
        } else {
            wanted += "." + default_extension;
        }
    }
    if (!MayWrite(wanted)) return;
    path_ = wanted;
    EndDialog(dialog_, IDOK);
}

bool SaveFileDialog::MayWrite(const std::string& wanted) {
    const SplitPath split = SplitFileName(wanted);
    if (!IsFileName(split.name)) {
        Ask(split.name + "\n文件名无效。", MB_OK | MB_ICONWARNING);
        return false;
    }
    if (!FolderExists(split.folder)) {
        Ask(split.folder + "\n路径不存在。", MB_OK | MB_ICONWARNING);
        return false;
    }
    if (!ask_overwrite || !FileExists(wanted)) return true;
    return Ask(wanted + " 已存在。\n要替换它吗?", MB_YESNO | MB_ICONWARNING | MB_DEFBUTTON2) ==
           IDYES;
}

int SaveFileDialog::Ask(const std::string& text, UINT flags) {
    char caption[64] = "";
    GetWindowTextA(dialog_, caption, sizeof caption);
    return MessageBoxA(dialog_, text.c_str(), caption, flags);
}

void SaveFileDialog::DrawRow(const DRAWITEMSTRUCT& item) const {
    const auto at = static_cast<std::size_t>(item.itemID);
    if (item.itemID == static_cast<UINT>(-1) || at >= entries_.size()) return;
    const FolderEntry& entry = entries_[at];
    const bool selected = (item.itemState & ODS_SELECTED) != 0;
    FillColor(item.hDC, item.rcItem, selected ? look::kAccent : look::kPaper);
    const int x = item.rcItem.left + 6;
    const int y = item.rcItem.top + (item.rcItem.bottom - item.rcItem.top - 11) / 2;
    if (entry.is_folder) {
        DrawFolderMark(item.hDC, x, y);
    } else {
        DrawFileMark(item.hDC, x, y);
    }
    RECT area = item.rcItem;
    area.left = x + 20;
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, selected ? look::kPaper : look::kText);
    DrawTextA(item.hDC, entry.name.c_str(), static_cast<int>(entry.name.size()), &area,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

}  // namespace winbase
