// Only this system lacks a text mode of its own.
#ifndef _WIN32

#include "platform/text/text_stream.h"

#include <sys/types.h>

#include <cerrno>
#include <memory>
#include <string>
#include <string_view>

namespace text {
namespace {

constexpr char kEndOfText = 26;

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

/// A file's whole content, translated when it is opened; text files are small.
struct Reader {
    std::string content;
    std::size_t position = 0;
};

std::string Translate(std::string_view raw) {
    raw = raw.substr(0, raw.find(kEndOfText));
    std::string text;
    text.reserve(raw.size());
    for (std::size_t i = 0; i < raw.size(); ++i) {
        const bool line_end = raw[i] == '\r' && i + 1 < raw.size() && raw[i + 1] == '\n';
        if (!line_end) text.push_back(raw[i]);
    }
    return text;
}

ssize_t Read(void* cookie, char* buffer, std::size_t size) {
    auto& reader = *static_cast<Reader*>(cookie);
    const std::size_t length = reader.content.copy(buffer, size, reader.position);
    reader.position += length;
    return static_cast<ssize_t>(length);
}

int Seek(void* cookie, off64_t* offset, int origin) {
    auto& reader = *static_cast<Reader*>(cookie);
    const auto size = static_cast<off64_t>(reader.content.size());
    const off64_t base = origin == SEEK_SET   ? 0
                         : origin == SEEK_CUR ? static_cast<off64_t>(reader.position)
                                              : size;
    if (*offset < -base || *offset > size - base) {
        errno = EINVAL;
        return -1;
    }
    *offset += base;
    reader.position = static_cast<std::size_t>(*offset);
    return 0;
}

int CloseReader(void* cookie) {
    delete static_cast<Reader*>(cookie);
    return 0;
}

ssize_t Write(void* cookie, const char* buffer, std::size_t size) {
    auto* file = static_cast<std::FILE*>(cookie);
    std::string raw;
    raw.reserve(size + size / 8);
    for (const char c : std::string_view(buffer, size)) {
        if (c == '\n') raw.push_back('\r');
        raw.push_back(c);
    }
    // A stream knows a failed write by the answer 0.
    const bool whole = std::fwrite(raw.data(), 1, raw.size(), file) == raw.size();
    return whole ? static_cast<ssize_t>(size) : 0;
}

int CloseWriter(void* cookie) { return std::fclose(static_cast<std::FILE*>(cookie)); }

}  // namespace

std::FILE* OpenTextReader(std::FILE* binary) {
    const File file(binary);
    std::string raw;
    char buffer[4096];
    while (const std::size_t length = std::fread(buffer, 1, sizeof(buffer), binary)) {
        raw.append(buffer, length);
    }
    if (std::ferror(binary)) {
        errno = EIO;
        return nullptr;
    }
    auto reader = std::make_unique<Reader>(Reader{Translate(raw)});
    std::FILE* stream = fopencookie(reader.get(), "r", {Read, nullptr, Seek, CloseReader});
    if (stream) static_cast<void>(reader.release());
    return stream;
}

std::FILE* OpenTextWriter(std::FILE* binary) {
    File file(binary);
    std::FILE* stream = fopencookie(binary, "w", {nullptr, Write, nullptr, CloseWriter});
    if (stream) static_cast<void>(file.release());
    return stream;
}

}  // namespace text

#endif
