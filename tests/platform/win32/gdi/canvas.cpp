#include "tests/platform/win32/gdi/canvas.h"

#include <algorithm>

Canvas::Canvas(int width, int height) : width_(width), height_(height) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    dc_ = CreateCompatibleDC(nullptr);
    bitmap_ = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    former_ = SelectObject(dc_, bitmap_);
    pixels_ = static_cast<const DWORD*>(bits);
    Clear();
}

Canvas::~Canvas() {
    SelectObject(dc_, former_);
    DeleteObject(bitmap_);
    DeleteDC(dc_);
}

void Canvas::Clear() { PatBlt(dc_, 0, 0, width_, height_, WHITENESS); }

std::string Canvas::Rows() const {
    const auto letter = [](DWORD pixel) {
        switch (pixel) {
            case 0xFFFFFF: return '.';
            case 0x000000: return '#';
            case 0xFF0000: return 'R';
            case 0x00FF00: return 'G';
            case 0x0000FF: return 'B';
            default: return '?';
        }
    };
    std::string rows;
    for (int y = 0; y < height_; ++y) {
        if (y > 0) rows += ' ';
        for (int x = 0; x < width_; ++x) rows += letter(At(x, y));
    }
    return rows;
}

RECT Canvas::Ink() const {
    RECT ink{width_, height_, 0, 0};
    for (int y = 0; y < height_; ++y) {
        for (int x = 0; x < width_; ++x) {
            if (At(x, y) == 0xFFFFFF) continue;
            ink = {std::min<LONG>(ink.left, x), std::min<LONG>(ink.top, y),
                   std::max<LONG>(ink.right, x + 1), std::max<LONG>(ink.bottom, y + 1)};
        }
    }
    return ink.left < ink.right ? ink : RECT{};
}

std::string Text(const RECT& rect) {
    return std::to_string(rect.left) + "," + std::to_string(rect.top) + "-" +
           std::to_string(rect.right) + "," + std::to_string(rect.bottom);
}
