#pragma once

#include <functional>
#include <string_view>

/// Takes the next bytes of a file and answers whether they found room.
using ExportSink = std::function<bool(std::string_view)>;
using ExportWriter = std::function<bool(const ExportSink& sink)>;

/// What became of a file.
enum class ExportResult {
    kWritten,
    kRefused,  ///< it can't be opened, or must not be replaced
    kBroken,   ///< its content found no room
};

/// Writes the file of a path in GBK. It is written beside its place and takes it when it is whole,
/// so that a full disk leaves the former one; where that can't be done it is written in place.
/// `write` hands the bytes to a sink and answers whether all found room.
ExportResult WriteExport(const char* path, const ExportWriter& write);
