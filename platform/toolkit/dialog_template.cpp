#include "platform/toolkit/dialog_template.h"

#include <string>

namespace toolkit {

namespace {

constexpr UINT kGbk = 936;
constexpr WORD kFontPoints = 9;
constexpr const char* kFontName = "宋体";

std::vector<WCHAR> ToUtf16(const char* gbk) {
    const int size = ::MultiByteToWideChar(kGbk, 0, gbk, -1, nullptr, 0);
    std::vector<WCHAR> text(size > 0 ? static_cast<std::size_t>(size) : 1);
    if (size > 0) ::MultiByteToWideChar(kGbk, 0, gbk, -1, text.data(), size);
    return text;
}

}  // namespace

MemoryTemplate::MemoryTemplate(const DialogTemplate& dialog) {
    Long(dialog.style | DS_SETFONT);
    Long(dialog.ex_style);
    Word(static_cast<unsigned>(dialog.controls.size()));
    Place({dialog.x, dialog.y, dialog.width, dialog.height});
    Word(0);  // no menu
    Word(0);  // the system's own dialog class
    Text(dialog.title);
    Word(kFontPoints);
    Text(kFontName);
    for (const DialogControl& control : dialog.controls) Control(control);
}

void MemoryTemplate::Word(unsigned value) { words_.push_back(static_cast<WORD>(value)); }

void MemoryTemplate::Long(DWORD value) {
    Word(LOWORD(value));
    Word(HIWORD(value));
}

void MemoryTemplate::Text(const char* gbk) {
    for (const WCHAR unit : ToUtf16(gbk)) Word(unit);
}

void MemoryTemplate::Place(const Placement& place) {
    for (const short value : {place.x, place.y, place.width, place.height}) {
        Word(static_cast<WORD>(value));
    }
}

void MemoryTemplate::Align() {
    if (words_.size() % 2 != 0) Word(0);
}

void MemoryTemplate::Control(const DialogControl& control) {
    Align();
    Long(control.style | WS_CHILD);
    Long(control.ex_style);
    Place(control.place);
    Word(static_cast<WORD>(control.id));
    Text(control.window_class);
    Text(control.text);
    Word(0);  // no creation data
}

}  // namespace toolkit
