#include "lists/export_file_rules.h"

#include <cstdio>
#include <string>

#include "platform/system.h"
#include "platform/text/file_move.h"
#include "platform/text/file_path.h"

namespace {

bool Exists(const std::string& path) {
    return ::GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

/// The attribute decides as well as the right, because a privileged user could write anyway.
bool IsReadOnly(const char* path) {
    const DWORD attributes = ::GetFileAttributesA(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

/// A name beside the file that no file has; empty if there is none.
std::string NameBeside(const std::string& path) {
    constexpr int kTries = 100;
    for (int number = 1; number <= kTries; ++number) {
        const std::string name = path + ".part" + std::to_string(number);
        if (!Exists(name)) return name;
    }
    return "";
}

bool WriteAndClose(std::FILE* file, const ExportWriter& write) {
    const bool written = write([file](std::string_view bytes) {
        return std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
    });
    // What the library still holds goes out now, and may find the disk full.
    return std::fclose(file) == 0 && written;
}

ExportResult WriteInPlace(const char* path, const ExportWriter& write) {
    std::FILE* const file = text::OpenFile(path, "wb");
    if (file == nullptr) return ExportResult::kRefused;
    return WriteAndClose(file, write) ? ExportResult::kWritten : ExportResult::kBroken;
}

}  // namespace

ExportResult WriteExport(const char* path, const ExportWriter& write) {
    const std::string draft = NameBeside(path);
    std::FILE* const file = text::OpenFile(draft.c_str(), "wb");
    if (file == nullptr) return WriteInPlace(path, write);
    const bool written = WriteAndClose(file, write);
    if (written && text::MoveOver(draft.c_str(), path)) return ExportResult::kWritten;
    ::DeleteFileA(draft.c_str());
    if (!written) return ExportResult::kBroken;
    // The place may be a link to another volume, or a file that is open elsewhere.
    return IsReadOnly(path) ? ExportResult::kRefused : WriteInPlace(path, write);
}
