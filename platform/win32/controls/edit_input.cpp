// Keys, characters, mouse and clipboard of the edit control.

#include <algorithm>

#include "platform/win32/controls/clipboard.h"
#include "platform/win32/controls/edit_control.h"

namespace winbase {

namespace {

bool KeyHeld(int key) { return GetKeyState(key) < 0; }

POINT PointFrom(LPARAM lParam) {
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

}  // namespace

void EditControl::KeyDown(WPARAM key) {
    const bool shift = KeyHeld(VK_SHIFT);
    const bool control = KeyHeld(VK_CONTROL);
    if (KeyHeld(VK_MENU)) return;
    if (in_dialog_ && multi_line() && DialogKey(key, shift, control)) return;
    switch (key) {
        case VK_DELETE: DeleteKey(shift, control); return;
        case VK_INSERT:
            if (control) Copy();
            if (shift) Paste();
            return;
        default: NavigationKey(key, shift, control); return;
    }
}

bool EditControl::DialogKey(WPARAM key, bool shift, bool control) {
    const HWND dialog = GetParent(window_);
    switch (key) {
        case VK_TAB:
            if (control) return false;
            PostMessageA(dialog, WM_NEXTDLGCTL, shift ? TRUE : FALSE, FALSE);
            return true;
        case VK_ESCAPE: PostMessageA(dialog, WM_CLOSE, 0, 0); return true;
        case VK_RETURN: {
            if (control || HasStyle(ES_WANTRETURN)) return false;
            const LRESULT answer = SendMessageA(dialog, DM_GETDEFID, 0, 0);
            if (HIWORD(answer) != DC_HASDEFID) return true;
            const HWND button = GetDlgItem(dialog, LOWORD(answer));
            PostMessageA(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(button), TRUE);
            PostMessageA(button, WM_KEYDOWN, VK_RETURN, 0);
            return true;
        }
        default: return false;
    }
}

void EditControl::NavigationKey(WPARAM key, bool shift, bool control) {
    const std::size_t caret = text_.caret();
    if (key == VK_UP || key == VK_DOWN || key == VK_PRIOR || key == VK_NEXT) {
        if (!multi_line()) {
            if (key == VK_UP) MoveCaret(text_.Before(caret), shift);
            if (key == VK_DOWN) MoveCaret(text_.Behind(caret), shift);
            return;
        }
        const int page = std::max(VisibleLines() - 1, 1);
        MoveLines(key == VK_UP ? -1 : key == VK_DOWN ? 1 : key == VK_PRIOR ? -page : page, shift);
        return;
    }
    wanted_x_ = -1;
    const TextLine& line = layout_.lines()[layout_.LineOf(caret)];
    switch (key) {
        case VK_LEFT:
            MoveCaret(control ? text_.WordBefore(caret) : text_.Before(caret), shift);
            return;
        case VK_RIGHT:
            MoveCaret(control ? text_.WordBehind(caret) : text_.Behind(caret), shift);
            return;
        case VK_HOME: MoveCaret(control ? 0 : line.start, shift); return;
        case VK_END: MoveCaret(control ? text_.size() : line.end, shift); return;
        default: return;
    }
}

void EditControl::MoveLines(int lines, bool extend) {
    const auto from = static_cast<int>(layout_.LineOf(text_.caret()));
    const int last = static_cast<int>(layout_.lines().size()) - 1;
    const int to = std::clamp(from + lines, 0, last);
    const POINT here = PointOf(text_.caret());
    const int aim = wanted_x_ >= 0 ? wanted_x_ : here.x;
    if (to != from) {
        const int height = widths_.line_height();
        MoveCaret(PositionAt({aim, here.y + (to - from) * height}), extend);
    }
    wanted_x_ = aim;
}

void EditControl::DeleteKey(bool shift, bool control) {
    if (HasStyle(ES_READONLY)) return;
    if (text_.has_selection()) {
        if (shift) {
            Cut();
        } else {
            Erase(text_.selection_start(), text_.selection_end());
        }
        return;
    }
    const std::size_t caret = text_.caret();
    if (shift) {
        Erase(text_.Before(caret), caret);
        return;
    }
    const TextLine& line = layout_.lines()[layout_.LineOf(caret)];
    Erase(caret, control ? line.end : text_.Behind(caret));
}

void EditControl::Character(unsigned char byte) {
    if (lead_byte_ != 0) {
        const Codes code(1, static_cast<char16_t>(lead_byte_ << 8 | byte));
        lead_byte_ = 0;
        if (!HasStyle(ES_READONLY | ES_NUMBER)) Insert(code);
        return;
    }
    if (byte < ' ' || byte == 0x7F) {
        ControlCharacter(byte);
        return;
    }
    if (IsDBCSLeadByte(byte)) {
        lead_byte_ = byte;
        return;
    }
    if (HasStyle(ES_READONLY)) return;
    if (HasStyle(ES_NUMBER) && (byte < '0' || byte > '9')) {
        MessageBeep(MB_OK);
        return;
    }
    Insert(Codes(1, byte));
}

void EditControl::ControlCharacter(unsigned char byte) {
    constexpr unsigned char kSelectAll = 1;
    constexpr unsigned char kCopy = 3;
    constexpr unsigned char kPaste = 22;
    constexpr unsigned char kCut = 24;
    constexpr unsigned char kUndo = 26;
    switch (byte) {
        case kSelectAll: Select(0, text_.size()); return;
        case kCopy: Copy(); return;
        case kPaste: Paste(); return;
        case kCut: Cut(); return;
        case kUndo: Undo(); return;
        case '\r': NewLine(); return;
        case '\b': {
            if (HasStyle(ES_READONLY)) return;
            const std::size_t start = text_.selection_start();
            Erase(text_.has_selection() ? start : text_.Before(start), text_.selection_end());
            return;
        }
        case '\t':
            if (multi_line() && !in_dialog_ && !HasStyle(ES_READONLY)) Insert(Codes(1, u'\t'));
            return;
        default: return;
    }
}

void EditControl::NewLine() {
    if (!multi_line() || HasStyle(ES_READONLY)) return;
    const bool dialogs_own = in_dialog_ && !HasStyle(ES_WANTRETURN) && !KeyHeld(VK_CONTROL);
    if (!dialogs_own) Insert(text_.Convert("\r\n"));
}

void EditControl::Copy() const {
    if (!text_.has_selection() || HasStyle(ES_PASSWORD)) return;
    Codes copied;
    for (const char16_t code : text_.selected()) {
        copied.push_back(code);
        if (code == '\r' && text_.line_ends() == LineEnds::kReturns) copied.push_back('\n');
    }
    SetClipboardText(BytesFromCodes(copied));
}

void EditControl::Cut() {
    if (HasStyle(ES_READONLY) || HasStyle(ES_PASSWORD)) return;
    Copy();
    Erase(text_.selection_start(), text_.selection_end());
}

void EditControl::Paste() {
    if (HasStyle(ES_READONLY)) return;
    Codes pasted = text_.Convert(ClipboardText());
    if (HasStyle(ES_NUMBER)) {
        std::erase_if(pasted, [](char16_t code) { return code < '0' || code > '9'; });
    }
    if (!pasted.empty()) Insert(std::move(pasted));
}

LRESULT EditControl::MouseMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_LBUTTONDOWN: Press(PointFrom(lParam), (wParam & MK_SHIFT) != 0); return 0;
        case WM_LBUTTONDBLCLK: SelectWord(PointFrom(lParam)); return 0;
        case WM_MOUSEMOVE: DragTo(PointFrom(lParam)); return 0;
        case WM_LBUTTONUP: Release(); return 0;
        case WM_MOUSEWHEEL:
            if (multi_line()) {
                Wheel(wParam);
                return 0;
            }
            break;
        default: break;
    }
    return DefWindowProcA(window_, message, wParam, lParam);
}

void EditControl::Press(POINT point, bool extend) {
    if (GetFocus() != window_) SetFocus(window_);
    if (!IsWindow(window_)) return;
    wanted_x_ = -1;
    // Taking a capture that the window has already tells it of a loss first.
    SetCapture(window_);
    selecting_ = true;
    MoveCaret(PositionAt(point), extend);
}

void EditControl::SelectWord(POINT point) {
    const std::size_t position = PositionAt(point);
    const std::size_t behind = position < text_.size() ? text_.Behind(position) : position;
    const std::size_t start = text_.WordBefore(behind);
    Select(start, text_.WordBehind(start));
}

void EditControl::DragTo(POINT point) {
    if (selecting_) MoveCaret(PositionAt(point), true);
}

void EditControl::Release() {
    if (!selecting_) return;
    selecting_ = false;
    ReleaseCapture();
}

void EditControl::Wheel(WPARAM wParam) {
    constexpr int kLinesPerNotch = 3;
    ScrollTo(first_line_ - GET_WHEEL_DELTA_WPARAM(wParam) * kLinesPerNotch / WHEEL_DELTA);
}

}  // namespace winbase
