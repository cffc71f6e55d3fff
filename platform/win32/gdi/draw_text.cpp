#include <algorithm>
#include <cassert>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "platform/win32/gdi/text.h"

using namespace winbase;

namespace {

constexpr UINT kSupported = DT_CENTER | DT_RIGHT | DT_VCENTER | DT_BOTTOM | DT_WORDBREAK |
                            DT_SINGLELINE | DT_EXPANDTABS | DT_NOCLIP | DT_CALCRECT | DT_NOPREFIX |
                            DT_END_ELLIPSIS;
constexpr int kTabCharacters = 8;
constexpr std::string_view kEllipsis = "...";

/// One line as it is drawn: without the & that underline, and where these underlines go.
struct Line {
    std::string_view text;
    std::string storage;  ///< behind `text` when it is not part of the program's text
    int width = 0;
    int underline_left = -1;  ///< from the line's left; none below 0
    int underline_right = -1;
};

/// All that stays the same while one text is drawn.
struct Layout {
    Dc& dc;
    FontFace& face;
    UINT format;
    RECT rect;  ///< in surface coordinates

    bool Has(UINT flag) const { return (format & flag) != 0; }
    int Width() const { return rect.right - rect.left; }
    int TabWidth() const { return kTabCharacters * face.size().average_width; }
};

bool HasPrefix(const Layout& layout, std::string_view text) {
    return !layout.Has(DT_NOPREFIX) && text.find('&') != std::string_view::npos;
}

/// Width with tabs, when these are to be expanded.
int MeasuredWidth(const Layout& layout, std::string_view text) {
    if (!layout.Has(DT_EXPANDTABS)) return TextWidth(layout.face, text);
    int width = 0;
    while (!text.empty()) {
        const unsigned code = TakeCode(&text);
        if (code == '\t') {
            width = (width / layout.TabWidth() + 1) * layout.TabWidth();
        } else {
            width += layout.face.Advance(code);
        }
    }
    return width;
}

/// Removes each &, doubles apart; the last one that is followed by a character underlines it.
void TakePrefixes(const Layout& layout, std::string_view text, Line* line) {
    std::size_t underlined = std::string::npos;
    while (!text.empty()) {
        if (text[0] == '&') {
            text.remove_prefix(1);
            if (text.empty()) break;
            if (text[0] != '&') underlined = line->storage.size();
        }
        std::string_view rest = text;
        TakeCode(&rest);
        line->storage += text.substr(0, text.size() - rest.size());
        text = rest;
    }
    line->text = line->storage;
    if (underlined == std::string::npos) return;
    std::string_view rest = line->text.substr(underlined);
    line->underline_left = MeasuredWidth(layout, line->text.substr(0, underlined));
    line->underline_right = line->underline_left + layout.face.Advance(TakeCode(&rest));
}

/// Cuts the line so that it and three dots fit; at least one character stays.
void PutEllipsis(const Layout& layout, Line* line) {
    const int room = layout.Width() - TextWidth(layout.face, kEllipsis);
    std::string_view rest = line->text;
    std::size_t kept = 0;
    int width = 0;
    while (!rest.empty()) {
        width += layout.face.Advance(TakeCode(&rest));
        if (kept != 0 && width > room) break;
        kept = line->text.size() - rest.size();
    }
    line->storage = std::string(line->text.substr(0, kept)).append(kEllipsis);
    line->text = line->storage;
    line->width = MeasuredWidth(layout, line->text);
}

void Prepare(const Layout& layout, std::string_view text, Line* line) {
    line->text = text;
    if (HasPrefix(layout, text)) TakePrefixes(layout, text, line);
    line->width = MeasuredWidth(layout, line->text);
    if (layout.Has(DT_END_ELLIPSIS) && line->width > layout.Width()) PutEllipsis(layout, line);
}

void DrawLineText(const Layout& layout, const Line& line, POINT place, const RECT* clip) {
    Dc& dc = layout.dc;
    if (!layout.Has(DT_EXPANDTABS)) {
        DrawRun(dc, {line.text, place, clip, nullptr, line.width});
        return;
    }
    std::string_view rest = line.text;
    int x = 0;
    while (!rest.empty()) {
        const std::string_view piece = rest.substr(0, rest.find('\t'));
        const int width = TextWidth(layout.face, piece);
        DrawRun(dc, {piece, {place.x + x, place.y}, clip, nullptr, width});
        x = ((x + width) / layout.TabWidth() + 1) * layout.TabWidth();
        rest.remove_prefix(std::min(rest.size(), piece.size() + 1));
    }
}

void DrawPrepared(const Layout& layout, const Line& line, int y) {
    if (layout.Has(DT_CALCRECT)) return;
    int x = layout.rect.left;
    if (layout.Has(DT_CENTER)) {
        x += (layout.Width() - line.width) / 2;
    } else if (layout.Has(DT_RIGHT)) {
        x = layout.rect.right - line.width;
    }
    const RECT* clip = layout.Has(DT_NOCLIP) ? nullptr : &layout.rect;
    DrawLineText(layout, line, {x, y}, clip);
    if (line.underline_left < 0) return;
    DrawUnderline(layout.dc, x + line.underline_left, x + line.underline_right, y, clip);
}

struct Extent {
    int width;
    int height;  ///< DrawTextA's result: from the rectangle's top to the text's bottom
};

Extent DrawSingleLine(const Layout& layout, std::string_view text) {
    Line line;
    Prepare(layout, text, &line);
    const int height = layout.face.size().Height();
    if (text.empty()) return {0, height};
    const int room = layout.rect.bottom - layout.rect.top - height;
    int y = 0;
    if (layout.Has(DT_VCENTER)) {
        y = room / 2;
    } else if (layout.Has(DT_BOTTOM)) {
        y = room;
    }
    DrawPrepared(layout, line, layout.rect.top + y);
    return {line.width, y + height};
}

/// Takes the part up to a line's end off the text, with the end itself: CR, LF or both.
std::string_view TakeParagraph(std::string_view* text) {
    const std::string_view paragraph = text->substr(0, text->find_first_of("\r\n"));
    text->remove_prefix(paragraph.size());
    if (text->starts_with("\r\n")) {
        text->remove_prefix(2);
    } else if (!text->empty()) {
        text->remove_prefix(1);
    }
    return paragraph;
}

/// The characters of `text` that fill one line: up to the last blank or the last border of a
/// double-byte character that fits, or the first one when none does.
std::size_t BrokenLength(const Layout& layout, std::string_view text) {
    std::string_view rest = text;
    std::size_t length = 0;
    int width = 0;
    bool after_wide = false;
    while (!rest.empty()) {
        const std::size_t at = text.size() - rest.size();
        const unsigned code = TakeCode(&rest);
        const bool may_break =
            at != 0 && (after_wide || code > 0xFF || text[at - 1] == ' ') && code != ' ';
        if (may_break) length = at;
        if (code != '&' || layout.Has(DT_NOPREFIX)) width += layout.face.Advance(code);
        // A blank at the end may reach beyond the line.
        if (width > layout.Width() && code != ' ' && length != 0) return length;
        after_wide = code > 0xFF;
    }
    return text.size();
}

Extent DrawLines(const Layout& layout, std::string_view text) {
    const int height = layout.face.size().Height();
    Extent extent{0, 0};
    do {
        std::string_view paragraph = TakeParagraph(&text);
        do {
            const std::size_t length =
                layout.Has(DT_WORDBREAK) ? BrokenLength(layout, paragraph) : paragraph.size();
            Line line;
            Prepare(layout, paragraph.substr(0, length), &line);
            if (!line.text.empty()) DrawPrepared(layout, line, layout.rect.top + extent.height);
            extent.width = std::max(extent.width, line.width);
            extent.height += height;
            paragraph.remove_prefix(length);
        } while (!paragraph.empty());
    } while (!text.empty());
    return extent;
}

}  // namespace

int WINAPI DrawTextA(HDC handle, LPCSTR text, int count, LPRECT rect, UINT format) {
    assert((format & ~kSupported) == 0 && "a format of DrawText that is not supported");
    Dc* dc = FindDcToDraw(handle);
    if (!dc || !text || !rect || count == 0 || count < -1) return 0;
    const std::size_t length = count < 0 ? std::strlen(text) : static_cast<std::size_t>(count);
    const Layout layout{*dc, dc->state.font->Face(), format, dc->ToSurface(Near(*rect))};
    const std::string_view whole(text, length);
    const Extent extent =
        layout.Has(DT_SINGLELINE) ? DrawSingleLine(layout, whole) : DrawLines(layout, whole);
    if (layout.Has(DT_CALCRECT)) {
        rect->right = Near(rect->left) + extent.width;
        rect->bottom = Near(rect->top) + extent.height;
    }
    return extent.height;
}
