#pragma once

#include "platform/toolkit/toolkit.h"

/// A bitmap with a device context of its own, to compose on and to copy from.
class MemorySurface {
public:
    MemorySurface() = default;
    ~MemorySurface() { Free(); }
    MemorySurface(const MemorySurface&) = delete;
    MemorySurface& operator=(const MemorySurface&) = delete;

    /// Makes it anew, of the colours of `like`. False, and no surface, without a pixel or memory.
    bool Create(HDC like, CSize size);
    void Free();

    HDC dc() const { return dc_; }
    CSize size() const { return size_; }
    bool exists() const { return dc_.GetSafeHdc() != nullptr; }
    /// Copies all of it to the upper left corner.
    void CopyTo(HDC target) const;

private:
    CBitmap bitmap_;
    CDC dc_;
    HGDIOBJ former_ = nullptr;
    CSize size_;
};

/// What a window shows behind a control, copied once for good, so that the control can paint itself
/// on it again and again.
class BackgroundCopy {
public:
    /// The first call with a visible pixel copies; later ones change nothing.
    void TakeOnce(const CWnd& control, HWND owner);
    /// Without a copy nothing is painted.
    void CopyTo(HDC target) const { surface_.CopyTo(target); }
    bool taken() const { return surface_.exists(); }

private:
    MemorySurface surface_;
};
