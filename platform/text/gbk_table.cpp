#include <cstdint>

#include "platform/text/gbk.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <iconv.h>
#endif

namespace text {
namespace {

#ifdef _WIN32

/// Code page 936 as the system has it.
class CodePage {
public:
    char16_t Unit(const char* bytes, int length) const {
        wchar_t unit = 0;
        const int count = MultiByteToWideChar(936, MB_ERR_INVALID_CHARS, bytes, length, &unit, 1);
        return count == 1 ? static_cast<char16_t>(unit) : u'\0';
    }
};

#else

/// What the standard assigns; the private characters are not in the C library's table.
class CodePage {
public:
    CodePage() : converter_(iconv_open("UTF-16LE", "GBK")) {}
    ~CodePage() {
        if (IsOpen()) iconv_close(converter_);
    }
    CodePage(const CodePage&) = delete;
    CodePage& operator=(const CodePage&) = delete;

    char16_t Unit(const char* bytes, int length) const {
        if (!IsOpen()) return 0;
        iconv(converter_, nullptr, nullptr, nullptr, nullptr);
        char* input = const_cast<char*>(bytes);
        auto input_left = static_cast<std::size_t>(length);
        unsigned char unit[2] = {};
        char* output = reinterpret_cast<char*>(unit);
        std::size_t output_left = sizeof(unit);
        const std::size_t result = iconv(converter_, &input, &input_left, &output, &output_left);
        if (result == static_cast<std::size_t>(-1) || input_left != 0 || output_left != 0) return 0;
        return static_cast<char16_t>(unit[0] | unit[1] << 8);
    }

private:
    bool IsOpen() const { return reinterpret_cast<std::intptr_t>(converter_) != -1; }

    iconv_t converter_;
};

#endif

constexpr unsigned kFirstLead = 0x81;
constexpr unsigned kLastLead = 0xFE;

bool IsTrail(unsigned byte) { return byte >= 0x40 && byte <= 0xFE && byte != 0x7F; }

/// The unit of a code in one of the three user-defined areas, else 0.
char16_t UserDefinedUnit(unsigned lead, unsigned trail) {
    const unsigned column = trail - 0xA1;
    if (lead >= 0xAA && lead <= 0xAF && trail >= 0xA1) {
        return static_cast<char16_t>(0xE000 + (lead - 0xAA) * 94 + column);
    }
    if (lead >= 0xF8 && trail >= 0xA1) {
        return static_cast<char16_t>(0xE234 + (lead - 0xF8) * 94 + column);
    }
    if (lead >= 0xA1 && lead <= 0xA7 && trail <= 0xA0) {
        const unsigned before = trail > 0x7F ? 0x41 : 0x40;
        return static_cast<char16_t>(0xE4C6 + (lead - 0xA1) * 96 + trail - before);
    }
    return 0;
}

GbkTable BuildTable() {
    GbkTable table{};
    const CodePage code_page;
    for (unsigned byte = 0; byte < 0x80; ++byte) table[byte] = static_cast<char16_t>(byte);
    table[0x80] = 0x20AC;
    table[0xFF] = 0xF8F5;
    char16_t next_private = 0xE766;
    for (unsigned lead = kFirstLead; lead <= kLastLead; ++lead) {
        for (unsigned trail = 0x40; trail <= 0xFE; ++trail) {
            if (!IsTrail(trail)) continue;
            const char bytes[2] = {static_cast<char>(lead), static_cast<char>(trail)};
            char16_t unit = UserDefinedUnit(lead, trail);
            if (unit == 0) unit = code_page.Unit(bytes, 2);
            if (unit == 0) unit = next_private;
            if (unit == next_private) ++next_private;
            table[lead << 8 | trail] = unit;
        }
    }
    return table;
}

GbkTable BuildReverse() {
    const GbkTable& forward = Utf16ByGbkCode();
    GbkTable reverse{};
    for (unsigned code = 1; code < forward.size(); ++code) {
        if (forward[code] != 0) reverse[forward[code]] = static_cast<char16_t>(code);
    }
    return reverse;
}

}  // namespace

const GbkTable& Utf16ByGbkCode() {
    static const GbkTable table = BuildTable();
    return table;
}

const GbkTable& GbkCodeByUtf16() {
    static const GbkTable table = BuildReverse();
    return table;
}

}  // namespace text
