#include <png.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>
#include <vector>

#include "platform/win32/gdi/surface.h"

namespace winbase {

namespace {

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

std::vector<unsigned char> RgbOf(const Surface& surface, const RECT& device) {
    std::vector<unsigned char> bytes;
    bytes.reserve(static_cast<std::size_t>(device.right - device.left) *
                  static_cast<std::size_t>(device.bottom - device.top) * 3);
    for (int y = device.top; y < device.bottom; ++y) {
        for (int x = device.left; x < device.right; ++x) {
            const Pixel pixel = surface.Row(y)[x];
            bytes.push_back(static_cast<unsigned char>(pixel >> 16 & 0xFF));
            bytes.push_back(static_cast<unsigned char>(pixel >> 8 & 0xFF));
            bytes.push_back(static_cast<unsigned char>(pixel & 0xFF));
        }
    }
    return bytes;
}

bool WriteTo(const std::string& path, const std::vector<unsigned char>& bytes, int width,
             int height) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width);
    image.height = static_cast<png_uint_32>(height);
    image.format = PNG_FORMAT_RGB;
    const std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path.c_str(), "wb"));
    return file && png_image_write_to_stdio(&image, file.get(), 0, bytes.data(), 0, nullptr) != 0 &&
           std::fflush(file.get()) == 0;
}

}  // namespace

bool WritePng(const Surface& surface, const std::string& path) {
    return WritePng(surface, surface.Bounds(), path);
}

bool WritePng(const Surface& surface, const RECT& part, const std::string& path) {
    const RECT rect = Intersection(part, surface.Bounds());
    if (IsEmpty(rect)) return false;
    const int scale = surface.scale();
    const RECT device{rect.left * scale, rect.top * scale, rect.right * scale, rect.bottom * scale};
    const std::string unfinished = path + ".part";
    std::error_code error;
    if (WriteTo(unfinished, RgbOf(surface, device), device.right - device.left,
                device.bottom - device.top)) {
        std::filesystem::rename(unfinished, path, error);
        if (!error) return true;
    }
    std::filesystem::remove(unfinished, error);
    return false;
}

}  // namespace winbase
