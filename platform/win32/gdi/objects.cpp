#include "platform/win32/gdi/objects.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "platform/win32/gdi/dc_target.h"
#include "platform/win32/gdi/font_face.h"
#include "platform/win32/kernel/handle_table.h"

namespace winbase {

namespace {

// Outlives every static object that may still draw while the process ends.
HandleTable<GdiObject>& Objects() {
    static auto& table = *new HandleTable<GdiObject>(HandleKind::kGdiObject);
    return table;
}

constexpr int kStockCount = DEFAULT_GUI_FONT + 1;

HGDIOBJ AddStock(std::unique_ptr<GdiObject> object) {
    object->stock = true;
    return AddObject(std::move(object));
}

HGDIOBJ AddStockFont(int height, int weight) {
    LOGFONTA log{};
    log.lfHeight = height;
    log.lfWeight = weight;
    log.lfCharSet = GB2312_CHARSET;
    std::strcpy(log.lfFaceName, "宋体");
    return AddStock(std::make_unique<Font>(log));
}

std::array<HGDIOBJ, kStockCount> MakeStock() {
    std::array<HGDIOBJ, kStockCount> stock{};
    constexpr COLORREF kGrays[] = {RGB(255, 255, 255), RGB(192, 192, 192), RGB(128, 128, 128),
                                   RGB(64, 64, 64), RGB(0, 0, 0)};
    for (std::size_t i = 0; i < std::size(kGrays); ++i) {
        stock[i] = AddStock(std::make_unique<Brush>(BS_SOLID, kGrays[i]));
    }
    stock[NULL_BRUSH] = AddStock(std::make_unique<Brush>(BS_NULL, RGB(0, 0, 0)));
    stock[WHITE_PEN] = AddStock(std::make_unique<Pen>(PS_SOLID, 0, RGB(255, 255, 255)));
    stock[BLACK_PEN] = AddStock(std::make_unique<Pen>(PS_SOLID, 0, RGB(0, 0, 0)));
    stock[NULL_PEN] = AddStock(std::make_unique<Pen>(PS_NULL, 0, RGB(0, 0, 0)));
    for (const int index : {OEM_FIXED_FONT, ANSI_FIXED_FONT, ANSI_VAR_FONT, SYSTEM_FIXED_FONT}) {
        stock[static_cast<std::size_t>(index)] = AddStockFont(12, FW_NORMAL);
    }
    stock[SYSTEM_FONT] = AddStockFont(16, FW_BOLD);
    stock[DEVICE_DEFAULT_FONT] = AddStockFont(16, FW_BOLD);
    stock[DEFAULT_GUI_FONT] = AddStockFont(-12, FW_NORMAL);
    return stock;
}

template <class Record>
int Fill(const Record& record, int size, LPVOID data) {
    if (!data) return static_cast<int>(sizeof(Record));
    const int count = std::clamp(size, 0, static_cast<int>(sizeof(Record)));
    std::memcpy(data, &record, static_cast<std::size_t>(count));
    return count;
}

BITMAP Describe(Bitmap& bitmap) {
    const bool mono = bitmap.depth == Bitmap::Depth::kMono;
    BITMAP record{};
    record.bmWidth = bitmap.surface.width();
    record.bmHeight = bitmap.surface.height();
    record.bmWidthBytes = mono ? (record.bmWidth + 15) / 16 * 2 : record.bmWidth * 4;
    record.bmPlanes = 1;
    record.bmBitsPixel = mono ? 1 : 32;
    record.bmBits = bitmap.is_section ? bitmap.surface.memory() : nullptr;
    return record;
}

int DescribeInto(GdiObject& object, int size, LPVOID data) {
    switch (object.kind) {
        case ObjectKind::kPen: {
            const auto& pen = static_cast<const Pen&>(object);
            return Fill(LOGPEN{static_cast<UINT>(pen.style), {pen.width, 0}, pen.color}, size,
                        data);
        }
        case ObjectKind::kBrush: {
            const auto& brush = static_cast<const Brush&>(object);
            const UINT style = brush.hollow ? BS_NULL : BS_SOLID;
            return Fill(LOGBRUSH{style, brush.color, 0}, size, data);
        }
        case ObjectKind::kFont: return Fill(static_cast<const Font&>(object).log, size, data);
        case ObjectKind::kBitmap: return Fill(Describe(static_cast<Bitmap&>(object)), size, data);
        case ObjectKind::kRegion: break;
    }
    return 0;
}

int default_scale = 1;

}  // namespace

Bitmap::Bitmap(int width, int height, int scale, Depth depth_of, const BITMAPINFOHEADER* info)
    : GdiObject(kKind),
      surface(width, height, scale, Surface::Damage::kIgnore,
              info && info->biHeight > 0 ? Surface::Rows::kBottomUp : Surface::Rows::kTopDown),
      depth(depth_of),
      is_section(info != nullptr) {}

FontFace& Font::Face() {
    if (!face_) face_ = OpenFontFace(log);
    return *face_;
}

HGDIOBJ AddObject(std::unique_ptr<GdiObject> object) {
    const std::uint32_t number = Objects().Add(object.get());
    if (number == 0) return nullptr;
    object->handle = ToHandle<HGDIOBJ>(number);
    return object.release()->handle;
}

GdiObject* FindObject(HGDIOBJ handle) { return Objects().Find(handle); }

Bitmap* FirstBitmap() {
    static Bitmap* bitmap = static_cast<Bitmap*>(
        FindObject(AddStock(std::make_unique<Bitmap>(1, 1, 1, Bitmap::Depth::kMono, nullptr))));
    return bitmap;
}

const Brush* FindBrush(HBRUSH brush) {
    const auto value = reinterpret_cast<std::uintptr_t>(brush);
    if (value != 0 && value <= 32) brush = GetSysColorBrush(static_cast<int>(value) - 1);
    return FindObject<Brush>(brush);
}

void Hold(GdiObject* object) {
    if (object) ++object->selections;
}

void LetGo(GdiObject* object) {
    if (!object || --object->selections > 0) return;
    if (object->kind == ObjectKind::kBitmap) static_cast<Bitmap*>(object)->selected_in = nullptr;
    if (!object->deleted) return;
    Objects().Remove(Objects().Number(object->handle));
    delete object;
}

int DefaultScale() { return default_scale; }

void SetDefaultScale(int scale) { default_scale = std::clamp(scale, 1, 3); }

Surface* SurfaceOf(HBITMAP bitmap) {
    auto* object = FindObject<Bitmap>(bitmap);
    return object ? &object->surface : nullptr;
}

}  // namespace winbase

using namespace winbase;

HGDIOBJ WINAPI GetStockObject(int index) {
    static const std::array<HGDIOBJ, kStockCount> stock = MakeStock();
    return index < 0 || index >= kStockCount ? nullptr : stock[static_cast<std::size_t>(index)];
}

BOOL WINAPI DeleteObject(HGDIOBJ handle) {
    GdiObject* object = FindObject(handle);
    if (!object) return FALSE;
    if (object->stock) return TRUE;
    object->deleted = true;
    if (object->selections > 0) return TRUE;
    Objects().Remove(Objects().Number(handle));
    delete object;
    return TRUE;
}

int WINAPI GetObjectA(HANDLE handle, int size, LPVOID data) {
    GdiObject* object = FindObject(handle);
    return object ? DescribeInto(*object, size, data) : 0;
}

HBRUSH WINAPI CreateSolidBrush(COLORREF color) {
    return static_cast<HBRUSH>(AddObject(std::make_unique<Brush>(BS_SOLID, color & 0xFFFFFF)));
}

HPEN WINAPI CreatePen(int style, int width, COLORREF color) {
    if (style != PS_DOT && style != PS_DASH && style != PS_NULL) style = PS_SOLID;
    width = std::clamp(width, 0, 0x7FFF);
    return static_cast<HPEN>(AddObject(std::make_unique<Pen>(style, width, color & 0xFFFFFF)));
}
