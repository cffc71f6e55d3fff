#pragma once

#include <string>

#include "platform/system.h"

/// A memory context on a white bitmap whose pixels can be read.
class Canvas {
public:
    Canvas(int width, int height);
    ~Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    HDC dc() const { return dc_; }
    /// 0x00RRGGBB.
    DWORD At(int x, int y) const { return pixels_[y * width_ + x] & 0xFFFFFF; }
    /// Rows from the top, separated by blanks: '.' white, '#' black, R, G, B, '?' another colour.
    std::string Rows() const;
    /// The smallest rectangle around what is not white; 0,0-0,0 when all is.
    RECT Ink() const;
    void Clear();

private:
    int width_;
    int height_;
    HDC dc_;
    HBITMAP bitmap_;
    HGDIOBJ former_;
    const DWORD* pixels_ = nullptr;
};

/// "left,top-right,bottom".
std::string Text(const RECT& rect);

/// An object that is selected for as long as this lives, and deleted then.
class Selected {
public:
    Selected(HDC dc, HGDIOBJ object)
        : dc_(dc), object_(object), former_(SelectObject(dc, object)) {}
    ~Selected() {
        SelectObject(dc_, former_);
        DeleteObject(object_);
    }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

private:
    HDC dc_;
    HGDIOBJ object_;
    HGDIOBJ former_;
};
