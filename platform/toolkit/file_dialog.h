#pragma once

#include <array>
#include <string>

#include "platform/toolkit/wnd.h"

/// Asks for the name of a file to write.
class TOOLKIT_API CFileDialog {
public:
    OPENFILENAMEA m_ofn{};

    /// `open` must be FALSE: there is no dialog for files to read. The filter is pairs of a
    /// description and a pattern, each part followed by '|', with one more '|' at the end.
    CFileDialog(BOOL open, LPCSTR default_extension, LPCSTR file_name, DWORD flags, LPCSTR filter,
                CWnd* parent = nullptr);
    CFileDialog(const CFileDialog&) = delete;
    CFileDialog& operator=(const CFileDialog&) = delete;

    /// IDOK or IDCANCEL.
    INT_PTR DoModal();
    /// The full name, after IDOK.
    std::string GetPathName() const { return path_.data(); }

private:
    std::array<char, MAX_PATH> path_{};
    std::string filter_;
    CWnd* parent_;
};
