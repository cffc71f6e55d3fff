#include "controls/skin_paint.h"

#include <algorithm>

namespace {

constexpr int kEdge = 6;

CSize SizeOf(HBITMAP bitmap) {
    BITMAP info{};
    if (!bitmap || !GetObjectA(bitmap, sizeof info, &info)) return {0, 0};
    return {std::max<int>(info.bmWidth, 0), std::max<int>(info.bmHeight, 0)};
}

}  // namespace

void StateSkin::Set(HBITMAP skin, int count, const int* state_table) {
    bitmap = skin;
    pictures = std::max(count, 0);
    states = state_table ? std::min(pictures, kMaxStates) : 0;
    for (int i = 0; i < states; ++i) table[i] = state_table[i];
}

CSize StateSkin::PictureSize() const {
    const CSize size = SizeOf(bitmap);
    if (pictures < 1 || size.cx < pictures || size.cy < 1) return {0, 0};
    return {size.cx / pictures, size.cy};
}

CRect StateSkin::PictureOf(int state) const {
    const CSize size = PictureSize();
    const int* const entry = std::find(table, table + states, state);
    const int picture = entry == table + states ? 0 : static_cast<int>(entry - table);
    const int left = picture * size.cx;
    return {left, 0, left + size.cx, size.cy};
}

void controls::PaintThreeParts(const CDC& dc, const CRect& rect, const StateSkin& skin, int state) {
    const CRect picture = skin.PictureOf(state);
    if (picture.IsRectEmpty() || rect.IsRectEmpty()) return;
    CDC source;
    source.CreateCompatibleDC(&dc);
    const toolkit::ScopedSelect select(source, skin.bitmap);
    const int height = picture.Height();
    // Shrunk pictures leave columns out; the default mode would mix them darker.
    ::SetStretchBltMode(dc, COLORONCOLOR);
    const auto copy = [&](int left, int width, int from, int from_width) {
        if (width > 0 && from_width > 0) {
            dc.StretchBlt(left, rect.top, width, rect.Height(), &source, from, 0, from_width,
                          height, SRCCOPY);
        }
    };
    if (picture.Width() <= 2 * kEdge || rect.Width() <= 2 * kEdge) {
        copy(rect.left, rect.Width(), picture.left, picture.Width());
        return;
    }
    copy(rect.left, kEdge, picture.left, kEdge);
    copy(rect.left + kEdge, rect.Width() - 2 * kEdge, picture.left + kEdge,
         picture.Width() - 2 * kEdge);
    copy(rect.right - kEdge, kEdge, picture.right - kEdge, kEdge);
}

COLORREF controls::SkinPixel(HBITMAP skin, CPoint point) {
    const CSize size = SizeOf(skin);
    if (point.x < 0 || point.y < 0 || point.x >= size.cx || point.y >= size.cy) return CLR_INVALID;
    CDC source;
    source.CreateCompatibleDC(nullptr);
    const toolkit::ScopedSelect select(source, skin);
    return source.GetPixel(point.x, point.y);
}
