#include <memory>

#include "platform/win32/gdi/dc.h"
#include "platform/win32/gdi/objects.h"

using namespace winbase;

namespace {

// 64 Mi pixels, 256 MB: more than any desktop, and far from overflowing an int.
constexpr long long kMaxPixels = 1LL << 26;

bool SizeFits(long long width, long long height, int scale) {
    return width > 0 && height > 0 && width <= kMaxPixels && height <= kMaxPixels &&
           width * height * scale * scale <= kMaxPixels;
}

HBITMAP MakeBitmap(int width, int height, int scale, Bitmap::Depth depth,
                   const BITMAPINFOHEADER* info) {
    if (!SizeFits(width, height, scale)) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    return static_cast<HBITMAP>(
        AddObject(std::make_unique<Bitmap>(width, height, scale, depth, info)));
}

bool IsSupported(const BITMAPINFOHEADER& header) {
    return header.biSize >= sizeof(BITMAPINFOHEADER) && header.biPlanes == 1 &&
           header.biBitCount == 32 && header.biCompression == BI_RGB && header.biWidth > 0 &&
           header.biHeight != 0 && header.biHeight > -kFarthest;
}

}  // namespace

HBITMAP WINAPI CreateCompatibleBitmap(HDC handle, int width, int height) {
    const Dc* dc = FindDcToDraw(handle);
    if (!dc || width < 0 || height < 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    if (width == 0 || height == 0) {
        return MakeBitmap(1, 1, 1, Bitmap::Depth::kMono, nullptr);
    }
    const Bitmap* model = dc->state.bitmap;
    const int scale = dc->surface ? dc->surface->scale() : DefaultScale();
    return MakeBitmap(width, height, scale, model ? model->depth : Bitmap::Depth::kColor, nullptr);
}

HBITMAP WINAPI CreateDIBSection(HDC, const BITMAPINFO* info, UINT usage, void** bits,
                                HANDLE section, DWORD) {
    if (bits) *bits = nullptr;
    if (!info || usage != DIB_RGB_COLORS || section || !IsSupported(info->bmiHeader)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    const int height = info->bmiHeader.biHeight;
    const HBITMAP bitmap = MakeBitmap(info->bmiHeader.biWidth, height < 0 ? -height : height, 1,
                                      Bitmap::Depth::kColor, &info->bmiHeader);
    if (bitmap && bits) *bits = FindObject<Bitmap>(bitmap)->surface.memory();
    return bitmap;
}
