#include "plugin/core_error.h"

#include "platform/text/bounded_text.h"
#include "platform/text/gbk.h"

std::string_view ErrorText(const CZebError* error) {
    if (error == nullptr) return {};
    const std::string_view text = text::FieldText(error->szText);
    // A field without its NUL may end inside a character.
    return text.substr(0, text::PrefixLength(text, sizeof(error->szText) - 1));
}

std::string FramedErrorText(const CZebError* error) {
    return std::string(ErrorText(error)) + " (服务器信息[黄金])";
}
