#include "host/skin/canvas.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "platform/toolkit/toolkit.h"

namespace skin {

namespace {

constexpr int kSamples = 4;  // each way in a device pixel
constexpr double kDegree = 3.14159265358979323846 / 180;

std::uint32_t Opaque(COLORREF color) {
    return 0xFF000000u | static_cast<std::uint32_t>(GetRValue(color)) << 16 |
           static_cast<std::uint32_t>(GetGValue(color)) << 8 |
           static_cast<std::uint32_t>(GetBValue(color));
}

std::size_t PixelCount(int width, int height, int scale) {
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height) *
           static_cast<std::size_t>(scale) * static_cast<std::size_t>(scale);
}

/// Distance of a place to the stretch between two others.
double DistanceToLine(Spot place, Spot from, Spot to) {
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const double square = dx * dx + dy * dy;
    const double along =
        square > 0 ? ((place.x - from.x) * dx + (place.y - from.y) * dy) / square : 0;
    const double t = std::clamp(along, 0.0, 1.0);
    return std::hypot(place.x - from.x - t * dx, place.y - from.y - t * dy);
}

bool InRoundBar(Spot place, double left, double top, double width, double height, double radius) {
    const double x = std::abs(place.x - left - width / 2) - width / 2 + radius;
    const double y = std::abs(place.y - top - height / 2) - height / 2 + radius;
    if (x > 0 && y > 0) return std::hypot(x, y) <= radius;
    return std::max(x, y) <= radius;
}

bool InPolygon(Spot place, std::initializer_list<Spot> corners) {
    bool inside = false;
    Spot from = *(corners.end() - 1);
    for (const Spot to : corners) {
        if ((from.y > place.y) != (to.y > place.y) &&
            place.x < (to.x - from.x) * (place.y - from.y) / (to.y - from.y) + from.x) {
            inside = !inside;
        }
        from = to;
    }
    return inside;
}

}  // namespace

Canvas::Canvas(int width, int height, int scale, COLORREF ground)
    : width_(width),
      height_(height),
      scale_(scale),
      pixels_(PixelCount(width, height, scale), Opaque(ground)) {}

Canvas::Canvas(int width, int height, int scale, Ground)
    : width_(width), height_(height), scale_(scale), pixels_(PixelCount(width, height, scale), 0) {}

void Canvas::Blend(std::size_t index, COLORREF color, int sixteenths) {
    const std::uint32_t over = Opaque(color);
    const std::uint32_t under = pixels_[index];
    std::uint32_t mixed = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const auto a = static_cast<int>(over >> shift & 0xFF);
        const auto b = static_cast<int>(under >> shift & 0xFF);
        mixed |= static_cast<std::uint32_t>((a * sixteenths + b * (16 - sixteenths) + 8) / 16)
                 << shift;
    }
    pixels_[index] = mixed;
}

template <class Inside>
void Canvas::Cover(const Rect& bounds, COLORREF color, Inside inside) {
    const auto first = [this](double at) {
        return std::max(static_cast<int>(std::floor(at * scale_)), 0);
    };
    const auto last = [this](double at, int size) {
        return std::min(static_cast<int>(std::ceil(at * scale_)), size * scale_);
    };
    const int right = last(bounds.right + origin_.x, width_);
    const int bottom = last(bounds.bottom + origin_.y, height_);
    const double step = 1.0 / (kSamples * scale_);
    for (int y = first(bounds.top + origin_.y); y < bottom; ++y) {
        for (int x = first(bounds.left + origin_.x); x < right; ++x) {
            int hits = 0;
            for (int i = 0; i < kSamples * kSamples; ++i) {
                const int across = x * kSamples + i % kSamples;
                const int down = y * kSamples + i / kSamples;
                const Spot place{(across + 0.5) * step - origin_.x,
                                 (down + 0.5) * step - origin_.y};
                if (inside(place)) ++hits;
            }
            const int index = y * width_ * scale_ + x;
            if (hits > 0) Blend(static_cast<std::size_t>(index), color, hits);
        }
    }
}

void Canvas::Bar(double left, double top, double width, double height, COLORREF color) {
    RoundBar(left, top, width, height, 0, color);
}

void Canvas::RoundBar(double left, double top, double width, double height, double radius,
                      COLORREF color) {
    Cover({left, top, left + width, top + height}, color,
          [=](Spot place) { return InRoundBar(place, left, top, width, height, radius); });
}

void Canvas::RoundFrame(double left, double top, double width, double height, double radius,
                        double stroke, COLORREF color) {
    const double inner_radius = std::max(radius - stroke, 0.0);
    Cover({left, top, left + width, top + height}, color, [=](Spot place) {
        return InRoundBar(place, left, top, width, height, radius) &&
               !InRoundBar(place, left + stroke, top + stroke, width - 2 * stroke,
                           height - 2 * stroke, inner_radius);
    });
}

void Canvas::Disc(Spot center, double radius, COLORREF color) {
    Cover({center.x - radius, center.y - radius, center.x + radius, center.y + radius}, color,
          [=](Spot place) { return std::hypot(place.x - center.x, place.y - center.y) <= radius; });
}

void Canvas::Polygon(std::initializer_list<Spot> corners, COLORREF color) {
    if (corners.size() == 0) return;
    const auto [left, right] = std::minmax_element(corners.begin(), corners.end(),
                                                   [](Spot a, Spot b) { return a.x < b.x; });
    const auto [top, bottom] = std::minmax_element(corners.begin(), corners.end(),
                                                   [](Spot a, Spot b) { return a.y < b.y; });
    Cover({left->x, top->y, right->x, bottom->y}, color,
          [corners](Spot place) { return InPolygon(place, corners); });
}

void Canvas::Line(Spot from, Spot to, double width, COLORREF color) {
    Lines({from, to}, width, color);
}

void Canvas::Lines(const std::vector<Spot>& corners, double width, COLORREF color) {
    if (corners.empty()) return;
    const double half = width / 2;
    Rect bounds{corners[0].x, corners[0].y, corners[0].x, corners[0].y};
    for (const Spot corner : corners) {
        bounds = {std::min(bounds.left, corner.x), std::min(bounds.top, corner.y),
                  std::max(bounds.right, corner.x), std::max(bounds.bottom, corner.y)};
    }
    bounds = {bounds.left - half, bounds.top - half, bounds.right + half, bounds.bottom + half};
    Cover(bounds, color, [&corners, half](Spot place) {
        for (std::size_t i = 1; i < corners.size(); ++i) {
            if (DistanceToLine(place, corners[i - 1], corners[i]) <= half) return true;
        }
        return false;
    });
}

void Canvas::Arc(Spot center, double radius, double from, double to, double width, COLORREF color) {
    const double reach = radius + width / 2;
    Cover({center.x - reach, center.y - reach, center.x + reach, center.y + reach}, color,
          [=](Spot place) {
              const double dx = place.x - center.x;
              const double dy = place.y - center.y;
              if (std::abs(std::hypot(dx, dy) - radius) > width / 2) return false;
              double angle = std::atan2(dy, dx) / kDegree;
              while (angle < from) angle += 360;
              return angle <= to;
          });
}

HBITMAP Canvas::MakeSection() const {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = width_ * scale_;
    info.bmiHeader.biHeight = -height_ * scale_;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    const HBITMAP section = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (section) std::memcpy(bits, pixels_.data(), pixels_.size() * sizeof(pixels_[0]));
    return section;
}

HBITMAP Canvas::MakeBitmap() const {
    if (scale_ == 1) return MakeSection();
    // A bitmap made for the desktop has its fineness, a section never has; the finer picture is
    // copied into one pixel for pixel.
    CBitmap section;
    section.Attach(MakeSection());
    CClientDC desktop(nullptr);
    CBitmap bitmap;
    CDC from;
    CDC to;
    if (!section.GetSafeHandle() || !bitmap.CreateCompatibleBitmap(desktop, width_, height_) ||
        !from.CreateCompatibleDC(&desktop) || !to.CreateCompatibleDC(&desktop)) {
        return nullptr;
    }
    const toolkit::ScopedSelect source(from, section);
    const toolkit::ScopedSelect target(to, bitmap);
    to.StretchBlt(0, 0, width_, height_, &from, 0, 0, width_ * scale_, height_ * scale_, SRCCOPY);
    return static_cast<HBITMAP>(bitmap.Detach());
}

}  // namespace skin
