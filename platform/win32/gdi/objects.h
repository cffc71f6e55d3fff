#pragma once

#include <windows.h>

#include <memory>

#include "platform/win32/gdi/region.h"
#include "platform/win32/gdi/surface.h"

namespace winbase {

class FontFace;
struct Dc;

enum class ObjectKind { kPen, kBrush, kFont, kBitmap, kRegion };

/// What a program selects into device contexts. While an object is selected anywhere, DeleteObject
/// only marks it: it goes when the last context lets it go.
struct GdiObject {
    explicit GdiObject(ObjectKind object_kind) : kind(object_kind) {}
    virtual ~GdiObject() = default;
    GdiObject(const GdiObject&) = delete;
    GdiObject& operator=(const GdiObject&) = delete;

    const ObjectKind kind;
    HGDIOBJ handle = nullptr;
    int selections = 0;
    bool stock = false;  ///< the system's own: never deleted
    bool deleted = false;
};

struct Pen : GdiObject {
    static constexpr ObjectKind kKind = ObjectKind::kPen;
    Pen(int pen_style, int pen_width, COLORREF pen_color)
        : GdiObject(kKind), style(pen_style), width(pen_width), color(pen_color) {}
    int style;
    int width;
    COLORREF color;
};

struct Brush : GdiObject {
    static constexpr ObjectKind kKind = ObjectKind::kBrush;
    Brush(UINT brush_style, COLORREF brush_color)
        : GdiObject(kKind), hollow(brush_style == BS_NULL), color(brush_color) {}
    bool hollow;
    COLORREF color;
};

struct Font : GdiObject {
    static constexpr ObjectKind kKind = ObjectKind::kFont;
    explicit Font(const LOGFONTA& log_font) : GdiObject(kKind), log(log_font) {}
    /// The face with its metrics, opened when first asked for.
    FontFace& Face();
    const LOGFONTA log;

private:
    std::shared_ptr<FontFace> face_;
};

struct Bitmap : GdiObject {
    static constexpr ObjectKind kKind = ObjectKind::kBitmap;
    enum class Depth { kColor, kMono };
    /// `info` is null unless the program sees the pixels, which then stand as it says.
    Bitmap(int width, int height, int scale, Depth depth_of, const BITMAPINFOHEADER* info);
    Surface surface;
    const Depth depth;
    const bool is_section;
    Dc* selected_in = nullptr;
};

struct RegionObject : GdiObject {
    static constexpr ObjectKind kKind = ObjectKind::kRegion;
    explicit RegionObject(const RECT& rect) : GdiObject(kKind), region(rect) {}
    Region region;
};

/// Takes the object into the table. Null when the table is full; the object is gone then.
HGDIOBJ AddObject(std::unique_ptr<GdiObject> object);
/// Null for a dead handle and for handles of anything else.
GdiObject* FindObject(HGDIOBJ handle);
template <class T>
T* FindObject(HGDIOBJ handle) {
    GdiObject* object = FindObject(handle);
    return object && object->kind == T::kKind ? static_cast<T*>(object) : nullptr;
}

/// A stock object of a known index and type.
template <class T>
T* StockObject(int index) {
    return FindObject<T>(GetStockObject(index));
}
/// The bitmap of 1 by 1 pixels in every new memory context.
Bitmap* FirstBitmap();

/// The brush behind a handle or behind a system colour plus 1, as FillRect takes both.
const Brush* FindBrush(HBRUSH brush);

void Hold(GdiObject* object);
void LetGo(GdiObject* object);

}  // namespace winbase
