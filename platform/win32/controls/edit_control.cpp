#include "platform/win32/controls/edit_control.h"

#include <algorithm>
#include <cstring>
#include <memory>

#include "platform/win32/controls/control.h"
#include "platform/win32/controls/control_host.h"
#include "platform/win32/controls/rich_edit.h"

namespace winbase {

namespace {

constexpr std::size_t kUnlimited = 2147483646;

std::shared_ptr<EditControl> MakeControl(HWND window) {
    char name[32] = "";
    GetClassNameA(window, name, sizeof name);
    const bool lines = (GetWindowLongA(window, GWL_STYLE) & ES_MULTILINE) != 0;
    if (lstrcmpiA(name, "Edit") == 0) {
        return std::make_shared<EditControl>(window,
                                             lines ? LineEnds::kPairs : LineEnds::kSingleLine);
    }
    return std::make_shared<RichEditControl>(window,
                                             lines ? LineEnds::kReturns : LineEnds::kSingleLine);
}

std::string UpperCase(std::string_view bytes) {
    Codes codes = CodesFromBytes(bytes);
    for (char16_t& code : codes) {
        if (code >= 'a' && code <= 'z') code = static_cast<char16_t>(code - 'a' + 'A');
    }
    return BytesFromCodes(codes);
}

}  // namespace

LRESULT CALLBACK EditControl::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return HostControl<EditControl>(window, message, wParam, lParam,
                                    [&] { return MakeControl(window); });
}

EditControl::EditControl(HWND window, LineEnds ends) : window_(window), text_(ends) {}

EditControl::~EditControl() = default;

LRESULT EditControl::Message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE: {
            const auto& create = *reinterpret_cast<const CREATESTRUCTA*>(lParam);
            widths_.SetFont(nullptr);
            if (HasStyle(ES_PASSWORD)) SetMask('*');
            text_.Assign(create.lpszName != nullptr ? create.lpszName : "");
            Relayout();
            return 0;
        }
        case WM_SIZE: Size(); return 0;
        case WM_SETFOCUS: GainFocus(); return 0;
        case WM_KILLFOCUS: LoseFocus(); return 0;
        case WM_ENABLE: InvalidateRect(window_, nullptr, TRUE); return 0;
        case WM_PAINT: Paint(); return 0;
        case WM_NCPAINT:
            DefWindowProcA(window_, message, wParam, lParam);
            PaintFrame(nullptr);
            return 0;
        case WM_ERASEBKGND:
            return 1;  // painting fills the ground, so that the parent is asked once
        case WM_GETDLGCODE:
            if (lParam != 0) in_dialog_ = true;
            return DLGC_HASSETSEL | DLGC_WANTCHARS | DLGC_WANTARROWS |
                   (multi_line() ? DLGC_WANTALLKEYS : 0);
        case WM_KEYDOWN: KeyDown(wParam); return 0;
        case WM_CHAR: Character(static_cast<unsigned char>(wParam)); return 0;
        case WM_VSCROLL: Scroll(LOWORD(wParam), static_cast<short>(HIWORD(wParam))); return 0;
        default: break;
    }
    if (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST)
        return MouseMessage(message, wParam, lParam);
    if (message >= EM_GETSEL && message <= EM_CHARFROMPOS)
        return EditMessage(message, wParam, lParam);
    return TextMessage(message, wParam, lParam);
}

LRESULT EditControl::TextMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SETTEXT: SetText(reinterpret_cast<const char*>(lParam)); return TRUE;
        case WM_GETTEXT: return GetText(reinterpret_cast<char*>(lParam), wParam);
        case WM_GETTEXTLENGTH: return static_cast<LRESULT>(text_.Bytes().size());
        case WM_SETFONT: SetFont(reinterpret_cast<HFONT>(wParam), LOWORD(lParam) != 0); return 0;
        case WM_GETFONT: return reinterpret_cast<LRESULT>(font_);
        case WM_CUT: Cut(); return 0;
        case WM_COPY: Copy(); return 0;
        case WM_PASTE: Paste(); return 0;
        case WM_CLEAR: Erase(text_.selection_start(), text_.selection_end()); return 0;
        case WM_UNDO: return Undo() ? TRUE : FALSE;
        case WM_CAPTURECHANGED: selecting_ = false; return 0;
        case WM_CONTEXTMENU: return DefWindowProcA(window_, message, wParam, lParam);
        default: return DefWindowProcA(window_, message, wParam, lParam);
    }
}

LRESULT EditControl::EditMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    switch (message) {
        case EM_GETSEL: GetSelection(wParam, lParam, &result); return result;
        case EM_SETSEL:
            SetSelection(static_cast<LONG>(wParam), static_cast<LONG>(lParam));
            return TRUE;
        case EM_REPLACESEL:
            if (lParam != 0) Insert(text_.Convert(reinterpret_cast<const char*>(lParam)));
            return TRUE;
        case EM_LIMITTEXT: limit_ = wParam == 0 ? kUnlimited : wParam; return TRUE;
        case EM_GETLIMITTEXT: return static_cast<LRESULT>(limit_);
        case EM_GETMODIFY: return modified_ ? TRUE : FALSE;
        case EM_SETMODIFY: modified_ = wParam != 0; return 0;
        case EM_CANUNDO: return text_.can_undo() ? TRUE : FALSE;
        case EM_UNDO: return Undo() ? TRUE : FALSE;
        case EM_EMPTYUNDOBUFFER: text_.ForgetUndo(); return 0;
        case EM_GETPASSWORDCHAR: return mask_;
        case EM_SETPASSWORDCHAR: SetMask(static_cast<char16_t>(wParam & 0xFF)); return 0;
        case EM_SETREADONLY: {
            const DWORD style = Style();
            const DWORD wanted = wParam != 0 ? style | ES_READONLY : style & ~DWORD{ES_READONLY};
            SetWindowLongA(window_, GWL_STYLE, static_cast<LONG>(wanted));
            InvalidateRect(window_, nullptr, TRUE);
            return TRUE;
        }
        case EM_SCROLLCARET: ScrollToCaret(); return TRUE;
        default: return LineMessage(message, wParam, lParam);
    }
}

LRESULT EditControl::LineMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case EM_GETLINECOUNT: return static_cast<LRESULT>(layout_.lines().size());
        case EM_LINEINDEX: return LineIndex(static_cast<LONG>(wParam));
        case EM_LINELENGTH: return LineLength(static_cast<LONG>(wParam));
        case EM_LINEFROMCHAR: {
            const auto position = static_cast<LONG>(wParam);
            const std::size_t place =
                position < 0 ? text_.selection_start() : static_cast<std::size_t>(position);
            return static_cast<LRESULT>(layout_.LineOf(std::min(place, text_.size())));
        }
        case EM_GETLINE: return GetLine(wParam, reinterpret_cast<char*>(lParam));
        case EM_LINESCROLL:
            if (!multi_line()) return FALSE;
            ScrollTo(first_line_ + static_cast<int>(lParam));
            return TRUE;
        case EM_SCROLL: {
            const int old = first_line_;
            Scroll(static_cast<int>(wParam), 0);
            return MAKELRESULT(first_line_ - old, TRUE);
        }
        case EM_GETFIRSTVISIBLELINE: return first_line_;
        case EM_POSFROMCHAR: {
            if (wParam >= text_.size()) return -1;
            const POINT point = PointOf(wParam);
            return MAKELRESULT(point.x, point.y);
        }
        case EM_CHARFROMPOS: {
            const POINT point{static_cast<short>(LOWORD(lParam)),
                              static_cast<short>(HIWORD(lParam))};
            const std::size_t position = PositionAt(point);
            return MAKELRESULT(position, layout_.LineOf(position));
        }
        case EM_GETRECT: *reinterpret_cast<RECT*>(lParam) = TextArea(); return 0;
        default: return DefWindowProcA(window_, message, wParam, lParam);
    }
}

LRESULT EditControl::GetText(char* bytes, std::size_t size) const {
    if (size == 0 || bytes == nullptr) return 0;
    const std::string whole = text_.Bytes();
    const std::size_t length = std::min(whole.size(), size - 1);
    std::memcpy(bytes, whole.data(), length);
    bytes[length] = '\0';
    return static_cast<LRESULT>(length);
}

void EditControl::GetSelection(WPARAM wParam, LPARAM lParam, LRESULT* result) const {
    const auto start = static_cast<DWORD>(text_.selection_start());
    const auto end = static_cast<DWORD>(text_.selection_end());
    if (wParam != 0) *reinterpret_cast<DWORD*>(wParam) = start;
    if (lParam != 0) *reinterpret_cast<DWORD*>(lParam) = end;
    *result = start > 0xFFFF || end > 0xFFFF ? -1 : MAKELRESULT(start, end);
}

void EditControl::SetSelection(LONG from, LONG to) {
    if (from < 0) {
        MoveCaret(text_.selection_end(), false);
        return;
    }
    const std::size_t start = static_cast<std::size_t>(from);
    const std::size_t end = to < 0 ? text_.size() : static_cast<std::size_t>(to);
    Select(std::min(start, end), std::max(start, end));
}

LRESULT EditControl::GetLine(std::size_t index, char* buffer) const {
    if (buffer == nullptr || index >= layout_.lines().size()) return 0;
    WORD size = 0;
    std::memcpy(&size, buffer, sizeof size);
    const TextLine& line = layout_.lines()[index];
    const std::string bytes = BytesFromCodes(
        std::u16string_view(text_.codes()).substr(line.start, line.end - line.start));
    const std::size_t length = std::min<std::size_t>(bytes.size(), size);
    std::memcpy(buffer, bytes.data(), length);
    if (length < size) buffer[length] = '\0';
    return static_cast<LRESULT>(length);
}

LRESULT EditControl::LineIndex(LONG line) const {
    const std::size_t index =
        line < 0 ? layout_.LineOf(text_.caret()) : static_cast<std::size_t>(line);
    if (index >= layout_.lines().size()) return -1;
    return static_cast<LRESULT>(layout_.lines()[index].start);
}

LRESULT EditControl::LineLength(LONG position) const {
    if (position < 0) {
        // What the lines of the selection hold outside it.
        const TextLine& first = layout_.lines()[layout_.LineOf(text_.selection_start())];
        const TextLine& last = layout_.lines()[layout_.LineOf(text_.selection_end())];
        return static_cast<LRESULT>(text_.selection_start() - first.start + last.end -
                                    std::min(text_.selection_end(), last.end));
    }
    const auto place = std::min(static_cast<std::size_t>(position), text_.size());
    const TextLine& line = layout_.lines()[layout_.LineOf(place)];
    return static_cast<LRESULT>(line.end - line.start);
}

void EditControl::SetText(const char* bytes) {
    const std::string whole = bytes != nullptr ? bytes : "";
    text_.Assign(HasStyle(ES_UPPERCASE) ? UpperCase(whole) : whole);
    modified_ = false;
    first_line_ = 0;
    scroll_x_ = 0;
    AfterChange(ChangeKind::kWhole);
}

bool EditControl::CanGrow(const Codes& inserted, std::size_t* room) const {
    const std::size_t kept = text_.size() - (text_.selection_end() - text_.selection_start());
    *room = kept >= limit_ ? 0 : std::min(limit_ - kept, inserted.size());
    if (!multi_line() && !HasStyle(ES_AUTOHSCROLL)) {
        // Such an edit takes what fits its width.
        Codes whole = text_.codes();
        whole.erase(text_.selection_start(), text_.selection_end() - text_.selection_start());
        const RECT area = TextArea();
        int width = widths_.Of(whole);
        std::size_t fits = 0;
        while (fits < *room && (width += widths_.Of(inserted[fits])) <= area.right - area.left)
            ++fits;
        *room = fits;
    }
    return *room == inserted.size();
}

void EditControl::Insert(Codes inserted) {
    std::size_t room = 0;
    if (!CanGrow(inserted, &room)) {
        TellTooLong();
        // What was told may have changed the text.
        CanGrow(inserted, &room);
        if (room == 0 && !text_.has_selection()) return;
        inserted.resize(room);
    }
    if (HasStyle(ES_UPPERCASE)) inserted = CodesFromBytes(UpperCase(BytesFromCodes(inserted)));
    text_.Replace(inserted);
    modified_ = true;
    AfterChange(ChangeKind::kPart);
}

void EditControl::Erase(std::size_t from, std::size_t to) {
    if (from == to) return;
    text_.Select(from, to);
    text_.Replace({});
    modified_ = true;
    AfterChange(ChangeKind::kPart);
}

void EditControl::AfterChange(ChangeKind kind) {
    wanted_x_ = -1;
    const int old_line = first_line_;
    Relayout();
    TellUpdate(kind);
    // Lines that went away scroll as well.
    if (kind == ChangeKind::kPart && first_line_ != old_line) Tell(EN_VSCROLL);
    ScrollToCaret();
    Repaint();
    TellChange(kind);
}

void EditControl::Select(std::size_t anchor, std::size_t caret) {
    const std::size_t old_anchor = text_.anchor();
    const std::size_t old_caret = text_.caret();
    text_.Select(anchor, caret);
    if (text_.anchor() == old_anchor && text_.caret() == old_caret) return;
    ScrollToCaret();
    Repaint();
    TellSelection();
}

void EditControl::MoveCaret(std::size_t position, bool extend) {
    Select(extend ? text_.anchor() : position, position);
}

bool EditControl::Undo() {
    if (HasStyle(ES_READONLY) || !text_.Undo()) return false;
    AfterChange(ChangeKind::kPart);
    return true;
}

// Lines that were set as a whole are not told: who set them knows.
void EditControl::TellUpdate(ChangeKind kind) {
    if (kind == ChangeKind::kPart || !multi_line()) Tell(EN_UPDATE);
}

void EditControl::TellChange(ChangeKind kind) {
    if (kind == ChangeKind::kPart || !multi_line()) Tell(EN_CHANGE);
}

void EditControl::Tell(int code) const {
    if (IsWindow(window_)) TellParent(window_, code);
}

void EditControl::SetFont(HFONT font, bool redraw) {
    font_ = font;
    widths_.SetFont(font);
    Relayout();
    if (redraw) InvalidateRect(window_, nullptr, TRUE);
}

void EditControl::SetMask(char16_t mask) {
    mask_ = mask;
    widths_.SetMask(mask);
    DWORD style = Style();
    style = mask != 0 ? style | ES_PASSWORD : style & ~DWORD{ES_PASSWORD};
    if (style != Style()) SetWindowLongA(window_, GWL_STYLE, static_cast<LONG>(style));
    Relayout();
    InvalidateRect(window_, nullptr, TRUE);
}

void EditControl::Size() {
    Relayout();
    ScrollToCaret();
    InvalidateRect(window_, nullptr, TRUE);
}

void EditControl::GainFocus() {
    focused_ = true;
    StartCaret();
    Repaint();
    if (HasFrame(window_)) RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
    Tell(EN_SETFOCUS);
}

void EditControl::LoseFocus() {
    focused_ = false;
    lead_byte_ = 0;
    if (selecting_) ReleaseCapture();
    Repaint();
    if (HasFrame(window_)) RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
    Tell(EN_KILLFOCUS);
}

}  // namespace winbase
