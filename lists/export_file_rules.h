#pragma once

#include <cstdio>
#include <functional>
#include <string_view>

/// What became of a file.
enum class ExportResult {
    kWritten,
    kRefused,  ///< it can't be opened, or must not be replaced
    kBroken,   ///< its content found no room
};

/// Writes the file of a path in GBK. It is written beside its place and takes it when it is whole,
/// so that a full disk leaves the former one; where that can't be done it is written in place.
/// `write` answers whether everything went out.
ExportResult WriteExport(const char* path, const std::function<bool(std::FILE*)>& write);

/// The same with the bytes of `content`.
ExportResult WriteExport(const char* path, std::string_view content);
