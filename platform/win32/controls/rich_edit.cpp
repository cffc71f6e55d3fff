#include "platform/win32/controls/rich_edit.h"

#include <richedit.h>

#include <algorithm>
#include <cstring>

namespace winbase {

RichEditControl::RichEditControl(HWND window, LineEnds ends) : EditControl(window, ends) {
    limit_ = 32767;
}

RichEditControl::~RichEditControl() {
    if (ground_brush_ != nullptr) DeleteObject(ground_brush_);
}

LRESULT RichEditControl::Message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case EM_SETEVENTMASK: {
            const DWORD old = event_mask_;
            event_mask_ = static_cast<DWORD>(lParam);
            return static_cast<LRESULT>(old);
        }
        case EM_GETEVENTMASK: return static_cast<LRESULT>(event_mask_);
        case EM_SETBKGNDCOLOR: return SetGround(wParam != 0, static_cast<COLORREF>(lParam));
        case EM_EXLIMITTEXT:
            limit_ = lParam == 0 ? 0x10000 : static_cast<std::size_t>(lParam);
            return 0;
        case EM_EXGETSEL: {
            auto& range = *reinterpret_cast<CHARRANGE*>(lParam);
            range.cpMin = static_cast<LONG>(text_.selection_start());
            range.cpMax = static_cast<LONG>(text_.selection_end()) + (end_mark_selected_ ? 1 : 0);
            return 0;
        }
        case EM_EXSETSEL: {
            const auto& range = *reinterpret_cast<const CHARRANGE*>(lParam);
            return SelectRange(range.cpMin, range.cpMax);
        }
        case EM_GETSELTEXT: return GetSelectedText(reinterpret_cast<char*>(lParam));
        case EM_EXLINEFROMCHAR:
            return EditControl::Message(EM_LINEFROMCHAR, static_cast<WPARAM>(lParam), 0);
        case EM_SETSEL: return SelectRange(static_cast<LONG>(wParam), static_cast<LONG>(lParam));
        case EM_GETSEL: {
            const LRESULT result = EditControl::Message(message, wParam, lParam);
            if (end_mark_selected_ && lParam != 0) ++*reinterpret_cast<DWORD*>(lParam);
            return end_mark_selected_ ? MAKELRESULT(LOWORD(result), HIWORD(result) + 1) : result;
        }
        default: return EditControl::Message(message, wParam, lParam);
    }
}

LRESULT RichEditControl::SelectRange(LONG from, LONG to) {
    if (from < 0) {
        MoveCaret(to < 0 ? text_.size() : text_.selection_end(), false);
        end_mark_selected_ = false;
        return static_cast<LRESULT>(text_.caret());
    }
    const std::size_t start = static_cast<std::size_t>(from);
    const std::size_t end = to < 0 ? text_.size() + 1 : static_cast<std::size_t>(to);
    const bool everything = std::max(start, end) > text_.size() && start != end;
    Select(std::min(start, end), std::max(start, end));
    end_mark_selected_ = everything;
    return static_cast<LRESULT>(text_.selection_end()) + (everything ? 1 : 0);
}

// The caller's buffer has room for the selection and a terminator: this message's contract.
LRESULT RichEditControl::GetSelectedText(char* buffer) const {
    if (buffer == nullptr) return 0;
    const std::string bytes = BytesFromCodes(text_.selected());
    std::memcpy(buffer, bytes.c_str(), bytes.size() + 1);
    return static_cast<LRESULT>(bytes.size());
}

LRESULT RichEditControl::SetGround(bool system, COLORREF color) {
    const COLORREF old = ground_;
    ground_ = system ? GetSysColor(COLOR_WINDOW) : color;
    if (ground_brush_ != nullptr) DeleteObject(ground_brush_);
    ground_brush_ = system ? nullptr : CreateSolidBrush(ground_);
    InvalidateRect(window_, nullptr, TRUE);
    return static_cast<LRESULT>(old);
}

COLORREF RichEditControl::Ground(HDC dc, HBRUSH* brush) const {
    // Its colours are its own: the parent is not asked.
    SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
    *brush = ground_brush_ != nullptr ? ground_brush_ : GetSysColorBrush(COLOR_WINDOW);
    return IsWindowEnabled(window_) ? GetTextColor(dc) : GetSysColor(COLOR_GRAYTEXT);
}

bool RichEditControl::CanGrow(const Codes& inserted, std::size_t* room) const {
    const std::size_t kept = text_.size() - (text_.selection_end() - text_.selection_start());
    *room = kept >= limit_ ? 0 : std::min(limit_ - kept, inserted.size());
    return *room == inserted.size();
}

void RichEditControl::TellChange(ChangeKind) {
    TellSelection();
    if ((event_mask_ & ENM_CHANGE) != 0) Tell(EN_CHANGE);
}

// This control's second version sends EN_UPDATE whatever the mask says.
void RichEditControl::TellPainting() {
    if (!update_due_) return;
    update_due_ = false;
    Tell(EN_UPDATE);
}

void RichEditControl::TellSelection() {
    end_mark_selected_ = false;
    update_due_ = true;
    if ((event_mask_ & ENM_SELCHANGE) == 0) return;
    SELCHANGE change{};
    change.nmhdr.hwndFrom = window_;
    change.nmhdr.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID(window_));
    change.nmhdr.code = EN_SELCHANGE;
    change.chrg.cpMin = static_cast<LONG>(text_.selection_start());
    change.chrg.cpMax = static_cast<LONG>(text_.selection_end());
    const LONG length = change.chrg.cpMax - change.chrg.cpMin;
    change.seltyp = length == 0 ? SEL_EMPTY : length == 1 ? SEL_TEXT : SEL_TEXT | SEL_MULTICHAR;
    SendMessageA(GetParent(window_), WM_NOTIFY, change.nmhdr.idFrom,
                 reinterpret_cast<LPARAM>(&change));
}

}  // namespace winbase
