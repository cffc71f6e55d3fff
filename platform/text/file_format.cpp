#include "platform/text/file_format.h"

#include <algorithm>
#include <cstring>
#include <optional>

#include "platform/text/gbk.h"

namespace text {
namespace {

/// Fills a field front to back and drops what has no room.
class FieldWriter {
public:
    FieldWriter(char* field, std::size_t size) : field_(field), room_(size - 1) {}

    void Text(std::string_view text) {
        const std::size_t length = full_ ? 0 : PrefixLength(text, room_);
        if (length != 0) std::memcpy(field_, text.data(), length);
        Advance(length, text.size());
    }

    void Blanks(std::size_t count) {
        const std::size_t length = full_ ? 0 : std::min(count, room_);
        std::memset(field_, ' ', length);
        Advance(length, count);
    }

    bool Finish() {
        *field_ = '\0';
        return !full_;
    }

private:
    // After the first cut nothing more is written, even if a narrower character would still fit.
    void Advance(std::size_t written, std::size_t wanted) {
        field_ += written;
        room_ -= written;
        if (written < wanted) full_ = true;
    }

    char* field_;
    std::size_t room_;
    bool full_ = false;
};

struct Conversion {
    std::size_t length = 0;  ///< bytes from '%' to 's'
    bool left = false;
    std::size_t width = 0;
    std::optional<std::size_t> precision;
};

/// Reads digits and stops growing long before an overflow: no field is that wide.
std::size_t TakeNumber(std::string_view text, std::size_t& position) {
    constexpr std::size_t kWidest = 1u << 30;
    std::size_t number = 0;
    while (position < text.size() && text[position] >= '0' && text[position] <= '9') {
        number = std::min(number * 10 + static_cast<std::size_t>(text[position] - '0'), kWidest);
        ++position;
    }
    return number;
}

/// The conversion that `format` starts with, unless it is none that a file may ask for.
std::optional<Conversion> ParseConversion(std::string_view format) {
    Conversion conversion;
    std::size_t position = 1;
    while (position < format.size() && format[position] == '-') {
        conversion.left = true;
        ++position;
    }
    if (position < format.size() && format[position] == '0') return std::nullopt;
    conversion.width = TakeNumber(format, position);
    if (position < format.size() && format[position] == '.') {
        ++position;
        conversion.precision = TakeNumber(format, position);
    }
    if (position == format.size() || format[position] != 's') return std::nullopt;
    conversion.length = position + 1;
    return conversion;
}

void WriteArgument(FieldWriter& writer, const Conversion& conversion, std::string_view argument) {
    if (conversion.precision) {
        argument = argument.substr(0, PrefixLength(argument, *conversion.precision));
    }
    const std::size_t padding =
        conversion.width > argument.size() ? conversion.width - argument.size() : 0;
    if (!conversion.left) writer.Blanks(padding);
    writer.Text(argument);
    if (conversion.left) writer.Blanks(padding);
}

std::string_view UpToNul(std::string_view text) { return text.substr(0, text.find('\0')); }

}  // namespace

bool FormatFromFile(char* field, std::size_t size, std::string_view format,
                    std::string_view argument) {
    if (size == 0) return false;
    format = UpToNul(format);
    argument = UpToNul(argument);
    FieldWriter writer(field, size);
    bool argument_used = false;
    // '%' is no trail byte, so each one stands for itself.
    while (!format.empty()) {
        const std::size_t plain = std::min(format.find('%'), format.size());
        writer.Text(format.substr(0, plain));
        format.remove_prefix(plain);
        if (format.empty()) break;
        const auto conversion = argument_used ? std::nullopt : ParseConversion(format);
        if (conversion) {
            WriteArgument(writer, *conversion, argument);
            format.remove_prefix(conversion->length);
            argument_used = true;
        } else {
            writer.Text("%");
            format.remove_prefix(format.starts_with("%%") ? 2 : 1);
        }
    }
    return writer.Finish();
}

}  // namespace text
