#include "platform/toolkit/file_dialog.h"

#include <algorithm>
#include <cassert>

CFileDialog::CFileDialog([[maybe_unused]] BOOL open, LPCSTR default_extension, LPCSTR file_name,
                         DWORD flags, LPCSTR filter, CWnd* parent)
    : filter_(filter != nullptr ? filter : ""), parent_(parent) {
    assert(!open && "only files to write are asked for");
    if (file_name != nullptr) ::lstrcpynA(path_.data(), file_name, static_cast<int>(path_.size()));
    // The system wants the parts ended by zeros; a text's own terminator makes the last one.
    std::replace(filter_.begin(), filter_.end(), '|', '\0');
    m_ofn.lStructSize = sizeof(m_ofn);
    m_ofn.lpstrFilter = filter != nullptr ? filter_.c_str() : nullptr;
    m_ofn.lpstrFile = path_.data();
    m_ofn.nMaxFile = static_cast<DWORD>(path_.size());
    m_ofn.lpstrDefExt = default_extension;
    m_ofn.Flags = flags;
}

INT_PTR CFileDialog::DoModal() {
    if (parent_ == nullptr) parent_ = AfxGetMainWnd();
    m_ofn.hwndOwner = parent_ != nullptr ? parent_->m_hWnd : nullptr;
    return ::GetSaveFileNameA(&m_ofn) ? IDOK : IDCANCEL;
}
