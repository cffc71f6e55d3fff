#include <commdlg.h>
#include <windows.h>

#include <algorithm>
#include <cassert>
#include <cstring>
#include <string>

#include "platform/text/bounded_text.h"
#include "platform/win32/controls/save_file_dialog.h"
#include "platform/win32/user/window.h"

using namespace winbase;

namespace {

thread_local DWORD t_error = 0;

constexpr DWORD kSupported = OFN_READONLY | OFN_OVERWRITEPROMPT | OFN_HIDEREADONLY |
                             OFN_NOCHANGEDIR | OFN_EXTENSIONDIFFERENT | OFN_PATHMUSTEXIST |
                             OFN_EXPLORER | OFN_ENABLESIZING;
constexpr std::size_t kExtensionBytes = 3;

BOOL Fail(DWORD error) {
    t_error = error;
    return FALSE;
}

std::string CurrentFolder() {
    char folder[MAX_PATH] = "";
    GetCurrentDirectoryA(sizeof folder, folder);
    return folder;
}

std::string FirstFolder(const OPENFILENAMEA& parameters, const std::string& proposed) {
    const std::string current = CurrentFolder();
    const std::string candidates[] = {
        SplitFileName(proposed).folder,
        parameters.lpstrInitialDir != nullptr ? parameters.lpstrInitialDir : ""};
    for (const std::string& candidate : candidates) {
        if (candidate.empty()) continue;
        const std::string whole = FullPath(current, candidate);
        if (FolderExists(whole)) return whole;
    }
    return current;
}

SaveFileDialog DialogFor(const OPENFILENAMEA& parameters) {
    const std::string proposed = parameters.lpstrFile;
    SaveFileDialog dialog;
    dialog.title = parameters.lpstrTitle != nullptr ? parameters.lpstrTitle : "";
    dialog.folder = FirstFolder(parameters, proposed);
    dialog.name = SplitFileName(proposed).name;
    dialog.filters = ReadFilters(parameters.lpstrFilter);
    dialog.filter = parameters.nFilterIndex > 0 ? static_cast<int>(parameters.nFilterIndex) - 1 : 0;
    dialog.ask_overwrite = (parameters.Flags & OFN_OVERWRITEPROMPT) != 0;
    if (parameters.lpstrDefExt != nullptr) {
        dialog.default_extension =
            std::string(parameters.lpstrDefExt)
                .substr(0, std::min(kExtensionBytes, std::strlen(parameters.lpstrDefExt)));
    }
    return dialog;
}

/// Too small a buffer gets the size that it should have in its first two bytes.
bool WritePath(OPENFILENAMEA& parameters, const std::string& path) {
    if (path.size() < parameters.nMaxFile) {
        text::CopyText(parameters.lpstrFile, parameters.nMaxFile, path);
        return true;
    }
    const auto needed = static_cast<WORD>(std::min<std::size_t>(path.size() + 1, 0xFFFF));
    if (parameters.nMaxFile >= sizeof needed) {
        std::memcpy(parameters.lpstrFile, &needed, sizeof needed);
    }
    return false;
}

void WriteResults(OPENFILENAMEA& parameters, const SaveFileDialog& dialog) {
    const std::string& path = dialog.path();
    const std::string name = SplitFileName(path).name;
    const std::size_t extension = ExtensionPlace(path);
    parameters.nFileOffset = static_cast<WORD>(path.size() - name.size());
    parameters.nFileExtension = static_cast<WORD>(extension);
    parameters.nFilterIndex = static_cast<DWORD>(dialog.filter + 1);
    if (parameters.lpstrFileTitle != nullptr) {
        text::CopyText(parameters.lpstrFileTitle, parameters.nMaxFileTitle, name);
    }
    parameters.Flags &= ~static_cast<DWORD>(OFN_READONLY | OFN_EXTENSIONDIFFERENT);
    const std::string& usual = dialog.default_extension;
    const bool differs = !usual.empty() && (extension == 0 || lstrcmpiA(path.c_str() + extension,
                                                                        usual.c_str()) != 0);
    if (differs) parameters.Flags |= OFN_EXTENSIONDIFFERENT;
}

}  // namespace

BOOL WINAPI GetSaveFileNameA(LPOPENFILENAMEA parameters) {
    AssertUiThread();
    t_error = 0;
    if (parameters == nullptr || parameters->lStructSize != sizeof *parameters) {
        return Fail(CDERR_STRUCTSIZE);
    }
    assert((parameters->Flags & ~kSupported) == 0 && "flags of the file dialog not supported");
    if (parameters->lpstrFile == nullptr || parameters->nMaxFile == 0) {
        return Fail(FNERR_BUFFERTOOSMALL);
    }
    SaveFileDialog dialog = DialogFor(*parameters);
    if (!dialog.Run(parameters->hwndOwner)) return FALSE;
    if (!WritePath(*parameters, dialog.path())) return Fail(FNERR_BUFFERTOOSMALL);
    WriteResults(*parameters, dialog);
    if ((parameters->Flags & OFN_NOCHANGEDIR) == 0) {
        SetCurrentDirectoryA(SplitFileName(dialog.path()).folder.c_str());
    }
    return TRUE;
}

DWORD WINAPI CommDlgExtendedError() { return t_error; }
