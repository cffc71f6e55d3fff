#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "platform/win32/controls/save_file_paths.h"

namespace winbase {

/// The dialog in which a person picks a name and a folder for a file that is to be written. It
/// lists real folders; nothing is created or changed on disk.
class SaveFileDialog {
public:
    std::string title;
    std::string folder;  ///< where the list starts, and afterwards the folder that was shown
    std::string name;    ///< proposed
    std::string default_extension;
    std::vector<FileFilter> filters;
    int filter = 0;  ///< chosen line of `filters`
    bool ask_overwrite = false;

    /// Shows the dialog. False when it was cancelled; else `path` is the whole name.
    bool Run(HWND owner);
    const std::string& path() const { return path_; }

private:
    static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR Message(UINT message, WPARAM wParam, LPARAM lParam);

    void Initialise();
    void Command(int id, int code);
    void ShowFolder(const std::string& wanted);
    void Fill();
    void SelectionChanged();
    void OpenSelection();
    void Accept();
    void AcceptName(const std::string& typed);
    bool MayWrite(const std::string& wanted);
    int Ask(const std::string& text, UINT flags);
    std::vector<std::string> Patterns() const;
    std::string EditText() const;
    const FolderEntry* Selected() const;
    void DrawRow(const DRAWITEMSTRUCT& item) const;

    HWND dialog_ = nullptr;
    std::vector<FolderEntry> entries_;
    std::string typed_pattern_;  ///< "*.x" typed as a name narrows the list
    std::string path_;
};

}  // namespace winbase
