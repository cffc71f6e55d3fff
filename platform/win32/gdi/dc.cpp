#include "platform/win32/gdi/dc.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "platform/win32/kernel/handle_table.h"

namespace winbase {

namespace {

HandleTable<Dc>& Contexts() {
    static auto& table = *new HandleTable<Dc>(HandleKind::kDeviceContext);
    return table;
}

DcState DefaultState(Bitmap* bitmap) {
    DcState state;
    state.pen = StockObject<Pen>(BLACK_PEN);
    state.brush = StockObject<Brush>(WHITE_BRUSH);
    state.font = StockObject<Font>(SYSTEM_FONT);
    state.bitmap = bitmap;
    return state;
}

void HoldAll(const DcState& state, Dc* dc) {
    Hold(state.pen);
    Hold(state.brush);
    Hold(state.font);
    Hold(state.bitmap);
    if (state.bitmap) state.bitmap->selected_in = dc;
}

void LetGoAll(const DcState& state) {
    LetGo(state.pen);
    LetGo(state.brush);
    LetGo(state.font);
    LetGo(state.bitmap);
}

HDC AddContext(std::unique_ptr<Dc> dc) {
    const std::uint32_t number = Contexts().Add(dc.get());
    if (number == 0) return nullptr;
    dc->handle = ToHandle<HDC>(number);
    HoldAll(dc->state, dc.get());
    return dc.release()->handle;
}

void RemoveContext(Dc* dc) {
    Contexts().Remove(Contexts().Number(dc->handle));
    LetGoAll(dc->state);
    for (const DcState& state : dc->saved) LetGoAll(state);
    delete dc;
}

void ReplaceState(Dc& dc, DcState state) {
    HoldAll(state, &dc);
    LetGoAll(dc.state);
    dc.state = std::move(state);
    dc.reach_stale = true;
}

void DropSaved(Dc& dc, std::size_t count) {
    while (dc.saved.size() > count) {
        LetGoAll(dc.saved.back());
        dc.saved.pop_back();
    }
}

/// Selects `object` in the place of `current` and answers the handle of what was there.
template <class T>
HGDIOBJ Exchange(T*& current, T* object) {
    const HGDIOBJ former = current->handle;
    Hold(object);
    LetGo(current);
    current = object;
    return former;
}

HGDIOBJ SelectBitmap(Dc& dc, Bitmap* bitmap) {
    const bool elsewhere = !bitmap->stock && bitmap->selected_in && bitmap->selected_in != &dc;
    if (!dc.state.bitmap || elsewhere) {
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    const HGDIOBJ former = Exchange(dc.state.bitmap, bitmap);
    bitmap->selected_in = &dc;
    dc.reach_stale = true;
    return former;
}

void FetchTarget(Dc& dc) {
    const unsigned long long epoch = dc.target->Epoch();
    if (epoch == dc.epoch) return;
    dc.epoch = epoch;
    dc.reach_stale = true;
}

}  // namespace

Dc* FindDc(HDC handle) { return Contexts().Find(handle); }

Dc* FindDcToDraw(HDC handle) {
    Dc* dc = FindDc(handle);
    if (dc) Refresh(*dc);
    return dc;
}

void Refresh(Dc& dc) {
    if (dc.target) FetchTarget(dc);
    if (!dc.reach_stale) return;
    dc.reach_stale = false;
    if (dc.target) {
        dc.surface = dc.target->TargetSurface();
        dc.origin = dc.target->Origin();
        dc.reach = dc.target->Visible();
    } else {
        dc.surface = &dc.state.bitmap->surface;
        dc.reach = Region(dc.surface->Bounds());
    }
    if (!dc.surface) {
        dc.reach.Clear();
        return;
    }
    dc.reach.Intersect(dc.surface->Bounds());
    for (const auto* clip : {&dc.paint_clip, &dc.state.clip}) {
        if (!*clip) continue;
        Region moved = **clip;
        moved.Offset(dc.origin.x, dc.origin.y);
        dc.reach.Intersect(moved);
    }
}

int Near(int coordinate) { return std::clamp(coordinate, -kFarthest, kFarthest); }

RECT Near(const RECT& rect) {
    return {Near(rect.left), Near(rect.top), Near(rect.right), Near(rect.bottom)};
}

HDC CreateTargetDc(DcTarget* target) {
    auto dc = std::make_unique<Dc>();
    dc->target = target;
    dc->state = DefaultState(nullptr);
    return AddContext(std::move(dc));
}

void DestroyTargetDc(HDC handle) {
    Dc* dc = FindDc(handle);
    if (dc && dc->target) RemoveContext(dc);
}

void ResetDc(HDC handle) {
    Dc* dc = FindDc(handle);
    if (!dc) return;
    DropSaved(*dc, 0);
    ReplaceState(*dc, DefaultState(dc->state.bitmap));
    dc->paint_clip.reset();
}

DcTarget* TargetOf(HDC handle) {
    const Dc* dc = FindDc(handle);
    return dc ? dc->target : nullptr;
}

void SetPaintClip(HDC handle, const Region* clip) {
    Dc* dc = FindDc(handle);
    if (!dc) return;
    dc->paint_clip.reset();
    if (clip) dc->paint_clip = *clip;
    dc->reach_stale = true;
}

Surface* SurfaceOf(HDC handle) {
    const Dc* dc = FindDcToDraw(handle);
    return dc ? dc->surface : nullptr;
}

}  // namespace winbase

using namespace winbase;

HDC WINAPI CreateCompatibleDC(HDC model) {
    if (model && !FindDc(model)) return nullptr;
    Bitmap* first = FirstBitmap();
    *first->surface.Row(0) = 0;
    auto dc = std::make_unique<Dc>();
    dc->state = DefaultState(first);
    return AddContext(std::move(dc));
}

BOOL WINAPI DeleteDC(HDC handle) {
    Dc* dc = FindDc(handle);
    // A window's context is given back by ReleaseDC, its window still needs it.
    if (!dc || dc->target) return FALSE;
    RemoveContext(dc);
    return TRUE;
}

int WINAPI SaveDC(HDC handle) {
    Dc* dc = FindDc(handle);
    if (!dc) return 0;
    HoldAll(dc->state, dc);
    dc->saved.push_back(dc->state);
    return static_cast<int>(dc->saved.size());
}

BOOL WINAPI RestoreDC(HDC handle, int saved) {
    Dc* dc = FindDc(handle);
    if (!dc) return FALSE;
    const int count = static_cast<int>(dc->saved.size());
    const int level = saved < 0 ? (saved < -count ? 0 : count + saved + 1) : saved;
    if (level < 1 || level > count) return FALSE;
    const auto index = static_cast<std::size_t>(level - 1);
    ReplaceState(*dc, dc->saved[index]);
    DropSaved(*dc, index);
    return TRUE;
}

HGDIOBJ WINAPI SelectObject(HDC handle, HGDIOBJ object_handle) {
    GdiObject* object = FindObject(object_handle);
    if (!object) return nullptr;
    if (object->kind == ObjectKind::kRegion) {
        const int result = SelectClipRgn(handle, static_cast<HRGN>(object_handle));
        return reinterpret_cast<HGDIOBJ>(static_cast<LONG_PTR>(result == ERROR ? -1 : result));
    }
    Dc* dc = FindDc(handle);
    if (!dc) {
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    switch (object->kind) {
        case ObjectKind::kPen: return Exchange(dc->state.pen, static_cast<Pen*>(object));
        case ObjectKind::kBrush: return Exchange(dc->state.brush, static_cast<Brush*>(object));
        case ObjectKind::kFont: return Exchange(dc->state.font, static_cast<Font*>(object));
        case ObjectKind::kBitmap: return SelectBitmap(*dc, static_cast<Bitmap*>(object));
        case ObjectKind::kRegion: break;
    }
    return nullptr;
}

HGDIOBJ WINAPI GetCurrentObject(HDC handle, UINT type) {
    const Dc* dc = FindDc(handle);
    if (!dc) return nullptr;
    switch (type) {
        case OBJ_PEN: return dc->state.pen->handle;
        case OBJ_BRUSH: return dc->state.brush->handle;
        case OBJ_FONT: return dc->state.font->handle;
        case OBJ_BITMAP: return dc->state.bitmap ? dc->state.bitmap->handle : nullptr;
        default: return nullptr;
    }
}

DWORD WINAPI GetObjectType(HGDIOBJ handle) {
    const GdiObject* object = FindObject(handle);
    if (!object) return 0;
    switch (object->kind) {
        case ObjectKind::kPen: return OBJ_PEN;
        case ObjectKind::kBrush: return OBJ_BRUSH;
        case ObjectKind::kFont: return OBJ_FONT;
        case ObjectKind::kBitmap: return OBJ_BITMAP;
        case ObjectKind::kRegion: break;
    }
    return OBJ_REGION;
}
