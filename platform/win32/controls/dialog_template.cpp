#include "platform/win32/controls/dialog_template.h"

#include <cstring>

#include "platform/text/gbk.h"

namespace winbase {

namespace {

constexpr WORD kNumberFollows = 0xFFFF;

/// Walks through a template; the memory tells nobody how long it is.
class Reader {
public:
    explicit Reader(const void* memory) : start_(static_cast<const unsigned char*>(memory)) {}

    template <class Value>
    Value Take() {
        Value value;
        std::memcpy(&value, start_ + offset_, sizeof value);
        offset_ += sizeof value;
        return value;
    }

    WORD Peek() const {
        WORD value;
        std::memcpy(&value, start_ + offset_, sizeof value);
        return value;
    }

    std::string Text() {
        std::u16string text;
        while (const WORD unit = Take<WORD>()) text += static_cast<char16_t>(unit);
        return text::GbkFromUtf16(text);
    }

    std::vector<unsigned char> Bytes(std::size_t size) {
        const unsigned char* const from = start_ + offset_;
        offset_ += size;
        return {from, from + size};
    }

    void AlignToDword() { offset_ = (offset_ + 3) & ~std::size_t{3}; }

private:
    const unsigned char* start_;
    std::size_t offset_ = 0;
};

/// A name, or the number of a resource; there are no resources, so that number is dropped.
std::string TextOrNumber(Reader& reader) {
    if (reader.Peek() != kNumberFollows) return reader.Text();
    reader.Take<WORD>();
    reader.Take<WORD>();
    return {};
}

std::string ControlClass(Reader& reader) {
    if (reader.Peek() != kNumberFollows) return reader.Text();
    reader.Take<WORD>();
    switch (reader.Take<WORD>()) {
        case 0x0080: return "Button";
        case 0x0081: return "Edit";
        case 0x0082: return "Static";
        case 0x0083: return "ListBox";
        case 0x0084: return "ScrollBar";
        case 0x0085: return "ComboBox";
        default: return {};
    }
}

ControlTemplate ReadControl(Reader& reader) {
    reader.AlignToDword();
    const auto head = reader.Take<DLGITEMTEMPLATE>();
    ControlTemplate control;
    control.style = head.style;
    control.ex_style = head.dwExtendedStyle;
    control.x = head.x;
    control.y = head.y;
    control.width = head.cx;
    control.height = head.cy;
    control.id = head.id;
    control.window_class = ControlClass(reader);
    control.text = TextOrNumber(reader);
    control.data = reader.Bytes(reader.Take<WORD>());
    return control;
}

}  // namespace

std::optional<DialogTemplate> ReadTemplate(const DLGTEMPLATE* memory) {
    if (memory == nullptr) return std::nullopt;
    Reader reader(memory);
    const auto head = reader.Take<DLGTEMPLATE>();
    if (HIWORD(head.style) == 0xFFFF) return std::nullopt;
    DialogTemplate dialog;
    dialog.style = head.style;
    dialog.ex_style = head.dwExtendedStyle;
    dialog.x = head.x;
    dialog.y = head.y;
    dialog.width = head.cx;
    dialog.height = head.cy;
    TextOrNumber(reader);  // the menu: there are none
    dialog.window_class = TextOrNumber(reader);
    dialog.title = reader.Text();
    if ((dialog.style & DS_SETFONT) != 0) {
        dialog.point_size = reader.Take<WORD>();
        dialog.face = reader.Text();
    }
    for (int i = 0; i < head.cdit; ++i) dialog.controls.push_back(ReadControl(reader));
    return dialog;
}

}  // namespace winbase
