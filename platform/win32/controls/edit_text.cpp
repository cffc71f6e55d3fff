#include "platform/win32/controls/edit_text.h"

#include <algorithm>

#include "platform/text/gbk.h"

namespace winbase {

namespace {

bool IsBlank(char16_t code) { return code == ' ' || code == '\t' || code == '\r' || code == '\n'; }

// Words end at blanks, and where letters meet Chinese characters.
int WordClass(char16_t code) { return IsBlank(code) ? 0 : code < 0x100 ? 1 : 2; }

}  // namespace

Codes CodesFromBytes(std::string_view bytes) {
    Codes codes;
    codes.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t length = text::CharLength(bytes.substr(at));
        const auto first = static_cast<unsigned char>(bytes[at]);
        if (length == 2) {
            const auto second = static_cast<unsigned char>(bytes[at + 1]);
            codes.push_back(static_cast<char16_t>(first << 8 | second));
        } else {
            codes.push_back(first);
        }
        at += length;
    }
    return codes;
}

std::string BytesFromCodes(std::u16string_view codes) {
    std::string bytes;
    bytes.reserve(codes.size() * 2);
    for (const char16_t code : codes) {
        if (code >= 0x100) bytes.push_back(static_cast<char>(code >> 8));
        bytes.push_back(static_cast<char>(code & 0xFF));
    }
    return bytes;
}

std::size_t ByteLength(std::u16string_view codes) {
    const auto wide =
        std::count_if(codes.begin(), codes.end(), [](char16_t c) { return c >= 0x100; });
    return codes.size() + static_cast<std::size_t>(wide);
}

std::u16string_view EditText::selected() const {
    return std::u16string_view(codes_).substr(selection_start(),
                                              selection_end() - selection_start());
}

bool EditText::InsidePair(std::size_t position) const {
    return ends_ == LineEnds::kPairs && position > 0 && position < codes_.size() &&
           codes_[position - 1] == '\r' && codes_[position] == '\n';
}

void EditText::Select(std::size_t anchor, std::size_t caret) {
    anchor_ = std::min(anchor, codes_.size());
    caret_ = std::min(caret, codes_.size());
    if (InsidePair(anchor_)) --anchor_;
    if (InsidePair(caret_)) --caret_;
}

void EditText::MoveCaret(std::size_t position, bool extend) {
    Select(extend ? anchor_ : position, position);
    if (!extend) anchor_ = caret_;
}

void EditText::Assign(std::string_view bytes) {
    codes_ = ends_ == LineEnds::kReturns ? Convert(bytes) : CodesFromBytes(bytes);
    anchor_ = caret_ = 0;
    undo_.reset();
}

std::string EditText::Bytes() const {
    if (ends_ != LineEnds::kReturns) return BytesFromCodes(codes_);
    Codes pairs;
    pairs.reserve(codes_.size());
    for (const char16_t code : codes_) {
        pairs.push_back(code);
        if (code == '\r') pairs.push_back('\n');
    }
    return BytesFromCodes(pairs);
}

Codes EditText::Convert(std::string_view bytes) const {
    const Codes raw = CodesFromBytes(bytes);
    Codes result;
    result.reserve(raw.size());
    for (std::size_t at = 0; at < raw.size(); ++at) {
        if (raw[at] != '\r' && raw[at] != '\n') {
            result.push_back(raw[at]);
            continue;
        }
        if (ends_ == LineEnds::kSingleLine) break;
        if (raw[at] == '\r' && at + 1 < raw.size() && raw[at + 1] == '\n') ++at;
        result.push_back('\r');
        if (ends_ == LineEnds::kPairs) result.push_back('\n');
    }
    return result;
}

void EditText::Replace(const Codes& inserted) {
    const std::size_t start = selection_start();
    const std::size_t length = selection_end() - start;
    undo_ = Change{start, inserted.size(), codes_.substr(start, length)};
    codes_.replace(start, length, inserted);
    anchor_ = caret_ = start + inserted.size();
}

bool EditText::Undo() {
    if (!undo_) return false;
    const Change change = std::move(*undo_);
    undo_ = Change{change.position, change.removed.size(),
                   codes_.substr(change.position, change.inserted)};
    codes_.replace(change.position, change.inserted, change.removed);
    anchor_ = change.position;
    caret_ = change.position + change.removed.size();
    return true;
}

std::size_t EditText::Before(std::size_t position) const {
    if (position == 0) return 0;
    --position;
    return InsidePair(position) ? position - 1 : position;
}

std::size_t EditText::Behind(std::size_t position) const {
    if (position >= codes_.size()) return codes_.size();
    ++position;
    return InsidePair(position) ? position + 1 : position;
}

std::size_t EditText::WordBefore(std::size_t position) const {
    position = std::min(position, codes_.size());
    while (position > 0 && IsBlank(codes_[position - 1])) --position;
    if (position == 0) return 0;
    const int kind = WordClass(codes_[position - 1]);
    while (position > 0 && WordClass(codes_[position - 1]) == kind) --position;
    return position;
}

std::size_t EditText::WordBehind(std::size_t position) const {
    if (position >= codes_.size()) return codes_.size();
    const int kind = WordClass(codes_[position]);
    while (position < codes_.size() && kind != 0 && WordClass(codes_[position]) == kind) ++position;
    while (position < codes_.size() && IsBlank(codes_[position])) ++position;
    return position;
}

}  // namespace winbase
