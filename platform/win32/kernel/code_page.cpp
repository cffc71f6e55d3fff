#include <windows.h>

#include <algorithm>
#include <cassert>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>

#include "platform/text/gbk.h"
#include "platform/win32/kernel/last_error.h"
#include "platform/win32/kernel/utf8.h"

using namespace winbase;

namespace winbase {
namespace {

constexpr UINT kGbk = 936;

bool IsGbk(UINT code_page) { return code_page == CP_ACP || code_page == kGbk; }

/// A text with its length, or up to its terminator and with it when the length is negative. False
/// for what both directions refuse.
template <class Char>
bool TakeSource(const Char* text, int length, const void* buffer, int size,
                std::basic_string_view<Char>& source) {
    const bool bad_buffer = size < 0 || (size > 0 && !buffer);
    if (!text || length == 0 || bad_buffer || static_cast<const void*>(text) == buffer)
        return false;
    const auto count =
        length < 0 ? std::char_traits<Char>::length(text) + 1 : static_cast<std::size_t>(length);
    source = {text, count};
    return count <= static_cast<std::size_t>(std::numeric_limits<int>::max());
}

/// Copies a whole result, or only counts it for a buffer of no size.
template <class Char>
int Answer(std::basic_string_view<Char> result, Char* buffer, int size) {
    const int length = static_cast<int>(result.size());
    if (size == 0) return length;
    if (length > size) return Fail(ERROR_INSUFFICIENT_BUFFER);
    std::copy(result.begin(), result.end(), buffer);
    return length;
}

/// What GBK lacks becomes the default character, once for each UTF-16 unit.
std::string GbkWithDefault(std::u16string_view source, std::string_view default_char, bool& used) {
    const text::GbkTable& codes = text::GbkCodeByUtf16();
    std::string result;
    for (const char16_t unit : source) {
        const char16_t code = codes[unit];
        if (code == 0 && unit != 0) {
            result += default_char;
            used = true;
            continue;
        }
        if (code > 0xFF) result += static_cast<char>(code >> 8);
        result += static_cast<char>(code & 0xFF);
    }
    return result;
}

}  // namespace
}  // namespace winbase

int MultiByteToWideChar(UINT code_page, DWORD flags, LPCSTR text, int length, LPWSTR buffer,
                        int size) {
    assert((flags & ~(MB_PRECOMPOSED | MB_ERR_INVALID_CHARS)) == 0 && "flag without support");
    std::string_view source;
    const bool known = IsGbk(code_page) || code_page == CP_UTF8;
    if (!known || !TakeSource(text, length, buffer, size, source)) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    bool replaced = false;
    const std::u16string result =
        IsGbk(code_page) ? text::Utf16FromGbk(source, &replaced) : Utf16FromUtf8(source, replaced);
    if (replaced && flags & MB_ERR_INVALID_CHARS) return Fail(ERROR_NO_UNICODE_TRANSLATION);
    return Answer<char16_t>(result, buffer, size);
}

int WideCharToMultiByte(UINT code_page, [[maybe_unused]] DWORD flags, LPCWSTR text, int length,
                        LPSTR buffer, int size, LPCSTR default_char, LPBOOL used_default) {
    assert((flags & ~WC_NO_BEST_FIT_CHARS) == 0 && "flag without support");
    std::u16string_view source;
    const bool utf8 = code_page == CP_UTF8;
    const bool known = IsGbk(code_page) || (utf8 && !default_char && !used_default);
    if (!known || !TakeSource(text, length, buffer, size, source)) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    bool used = false;
    const std::string_view substitute = default_char ? default_char : "?";
    const std::string result =
        utf8 ? Utf8FromUtf16(source) : GbkWithDefault(source, substitute.substr(0, 2), used);
    if (used_default) *used_default = used;
    return Answer<char>(result, buffer, size);
}

BOOL IsDBCSLeadByte(BYTE byte) { return text::IsLeadByte(static_cast<char>(byte)); }
