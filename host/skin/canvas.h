#pragma once

#include <cstdint>
#include <initializer_list>
#include <vector>

#include "platform/toolkit/gdi_objects.h"

namespace skin {

struct Spot {
    double x;
    double y;
};

/// A picture in the making. Places are pixels with fractions: (0.5, 0.5) is the middle of the first
/// one, so a stroke of width 1 is sharp when it runs through middles. Edges are smoothed. `scale`
/// device pixels stand for each pixel.
class Canvas {
public:
    enum class Ground { kTransparent };

    Canvas(int width, int height, int scale, COLORREF ground);
    Canvas(int width, int height, int scale, Ground ground);

    /// Everything drawn later is moved by this much.
    void SetOrigin(int x, int y) { origin_ = {static_cast<double>(x), static_cast<double>(y)}; }

    void Bar(double left, double top, double width, double height, COLORREF color);
    void RoundBar(double left, double top, double width, double height, double radius,
                  COLORREF color);
    void Disc(Spot center, double radius, COLORREF color);
    void Polygon(std::initializer_list<Spot> corners, COLORREF color);
    /// Strokes have round ends.
    void Line(Spot from, Spot to, double width, COLORREF color);
    void Lines(const std::vector<Spot>& corners, double width, COLORREF color);
    void RoundFrame(double left, double top, double width, double height, double radius,
                    double stroke, COLORREF color);
    /// Part of a circle, clockwise between degrees counted from the right.
    void Arc(Spot center, double radius, double from, double to, double width, COLORREF color);
    void Ring(Spot center, double radius, double width, COLORREF color) {
        Arc(center, radius, 0, 360, width, color);
    }

    /// The picture with 32 bits a pixel, colours multiplied by opacity; null if it can't be had.
    HBITMAP MakeBitmap() const;

private:
    struct Rect {
        double left, top, right, bottom;
    };

    /// Lays the colour over every pixel as far as `inside` holds for the places in it.
    template <class Inside>
    void Cover(const Rect& bounds, COLORREF color, Inside inside);
    void Blend(std::size_t index, COLORREF color, int sixteenths);
    HBITMAP MakeSection() const;

    int width_;
    int height_;
    int scale_;
    Spot origin_{0, 0};
    std::vector<std::uint32_t> pixels_;  ///< opacity, red, green, blue from the top byte down
};

}  // namespace skin
