#include "controls/v_button.h"

#include <algorithm>
#include <string_view>

#include "platform/text/gbk.h"

namespace {

constexpr int kCharHeight = 15;
constexpr COLORREF kText = RGB(0x1F, 0x29, 0x33);
constexpr COLORREF kDisabledText = RGB(0x84, 0x90, 0x9C);
// A dash lies across the direction of reading, so it is drawn instead of written.
constexpr std::string_view kDash = "—";

}  // namespace

CVButton::CVButton() {
    m_font.CreateFont(12, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, "宋体");
}

void CVButton::PaintState(const CDC& dc, const CRect& client, int state) {
    CSkinButton::PaintState(dc, client, state);
    PaintCaptionDown(dc, client, state == kDisabled ? kDisabledText : kText);
}

void CVButton::PaintCaptionDown(const CDC& dc, const CRect& client, COLORREF color) const {
    const toolkit::ScopedSelect select(dc, m_font);
    const std::string caption = Caption();
    int count = 0;
    for (const char* at = caption.c_str(); *at != '\0'; at = text::NextChar(at)) ++count;
    const int left = (client.left + client.right) / 2;
    int y = client.top + std::max(0, (client.Height() - count * kCharHeight) / 2);
    for (const char* at = caption.c_str(); *at != '\0'; y += kCharHeight) {
        const char* const next = text::NextChar(at);
        const std::string_view character(at, static_cast<std::size_t>(next - at));
        at = next;
        if (character == kDash) {
            dc.FillSolidRect(CRect(left, y + 2, left + 1, y + kCharHeight - 3), color);
        } else {
            controls::PaintCaption(dc, CRect(client.left, y, client.right, y + kCharHeight),
                                   std::string(character), color);
        }
    }
}
