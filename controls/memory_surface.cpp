#include "controls/memory_surface.h"

bool MemorySurface::Create(HDC like, CSize size) {
    Free();
    if (size.cx < 1 || size.cy < 1) return false;
    if (!dc_.Attach(::CreateCompatibleDC(like))) return false;
    if (!bitmap_.CreateCompatibleBitmap(like, int{size.cx}, int{size.cy})) {
        dc_.DeleteDC();
        return false;
    }
    former_ = dc_.SelectObject(&bitmap_);
    size_ = size;
    return true;
}

void MemorySurface::Free() {
    if (!exists()) return;
    dc_.SelectObject(former_);
    dc_.DeleteDC();
    bitmap_.DeleteObject();
    size_ = CSize();
}

void MemorySurface::CopyTo(HDC target) const {
    if (exists()) {
        ::BitBlt(target, 0, 0, int{size_.cx}, int{size_.cy}, dc_, 0, 0, SRCCOPY);
    }
}

void BackgroundCopy::TakeOnce(const CWnd& control, HWND owner) {
    if (taken() || owner == nullptr) return;
    CRect place;
    control.GetClientRect(place);
    CPoint origin;
    ::MapWindowPoints(control.GetSafeHwnd(), owner, &origin, 1);
    const HDC source = ::GetDC(owner);
    if (surface_.Create(source, place.Size())) {
        ::BitBlt(surface_.dc(), 0, 0, place.Width(), place.Height(), source, int{origin.x},
                 int{origin.y}, SRCCOPY);
    }
    ::ReleaseDC(owner, source);
}
