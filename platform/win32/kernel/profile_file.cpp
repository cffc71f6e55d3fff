#include "platform/win32/kernel/profile_file.h"

#include <algorithm>

#include "platform/text/gbk.h"
#include "platform/win32/kernel/text_compare.h"

namespace winbase {
namespace {

constexpr std::string_view kBlanks = " \t\v\f";
constexpr std::string_view kSignature = "\xEF\xBB\xBF";
constexpr std::string_view kLineEnd = "\r\n";

std::string_view Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// Where the last ']' stands that is not the second byte of a character.
std::size_t LastBracket(std::string_view text) {
    std::size_t found = text.npos;
    for (std::size_t i = 0; i < text.size(); i += text::CharLength(text.substr(i))) {
        if (text[i] == ']') found = i;
    }
    return found;
}

/// The length of the line end at the front of a text: CR LF, LF or CR.
std::size_t LineEndLength(std::string_view text) {
    if (text.empty()) return 0;
    return text.substr(0, 2) == kLineEnd ? 2 : 1;
}

}  // namespace

std::string_view StripQuotes(std::string_view text) {
    const bool quoted = text.size() >= 2 && (text.front() == '"' || text.front() == '\'') &&
                        text.back() == text.front();
    return quoted ? text.substr(1, text.size() - 2) : text;
}

ProfileFile::ProfileFile(std::string_view content) {
    if (content.substr(0, kSignature.size()) == kSignature) {
        signature_ = kSignature;
        content.remove_prefix(kSignature.size());
    }
    while (!content.empty()) {
        const std::size_t length = std::min(content.find_first_of(kLineEnd), content.size());
        const std::size_t end = LineEndLength(content.substr(length));
        lines_.push_back(Parse(content.substr(0, length), content.substr(length, end)));
        content.remove_prefix(length + end);
    }
}

ProfileFile::Line ProfileFile::Parse(std::string_view text, std::string_view end) {
    Line line{std::string(text), std::string(end), LineKind::kOther, {}, {}};
    const std::string_view trimmed = Trim(text);
    if (!trimmed.empty() && trimmed.front() == '[') {
        const std::size_t bracket = LastBracket(trimmed);
        if (bracket == trimmed.npos) return line;
        line.kind = LineKind::kSection;
        line.name = Trim(trimmed.substr(1, bracket - 1));
        return line;
    }
    const std::size_t equals = trimmed.find('=');
    if (equals == trimmed.npos) return line;
    line.kind = LineKind::kKey;
    line.name = Trim(trimmed.substr(0, equals));
    line.value = Trim(trimmed.substr(equals + 1));
    return line;
}

std::optional<ProfileFile::Range> ProfileFile::FindSection(std::string_view name) const {
    const auto is_heading = [](const Line& line) { return line.kind == LineKind::kSection; };
    const auto index = [this](auto line) {
        return static_cast<std::size_t>(line - lines_.begin());
    };
    auto heading = std::find_if(lines_.begin(), lines_.end(), is_heading);
    if (name.empty()) return Range{0, index(heading), 0};
    while (heading != lines_.end()) {
        const auto next = std::find_if(heading + 1, lines_.end(), is_heading);
        if (EqualNoCase(heading->name, name)) {
            return Range{index(heading), index(next), index(heading) + 1};
        }
        heading = next;
    }
    return std::nullopt;
}

std::optional<std::size_t> ProfileFile::FindKey(const Range& range, std::string_view key) const {
    for (std::size_t i = range.body; i < range.last; ++i) {
        if (lines_[i].kind == LineKind::kKey && EqualNoCase(lines_[i].name, key)) return i;
    }
    return std::nullopt;
}

std::optional<std::string> ProfileFile::Value(std::string_view section,
                                              std::string_view key) const {
    const auto range = FindSection(section);
    const auto line = range ? FindKey(*range, key) : std::nullopt;
    if (!line) return std::nullopt;
    return std::string(StripQuotes(lines_[*line].value));
}

std::vector<std::string> ProfileFile::SectionNames() const {
    std::vector<std::string> names;
    for (const Line& line : lines_) {
        if (line.kind == LineKind::kSection && !line.name.empty()) names.push_back(line.name);
    }
    return names;
}

std::optional<std::vector<std::string>> ProfileFile::KeyNames(std::string_view section) const {
    const auto range = FindSection(section);
    if (!range) return std::nullopt;
    std::vector<std::string> names;
    for (std::size_t i = range->body; i < range->last; ++i) {
        const Line& line = lines_[i];
        const bool comment = !line.name.empty() && line.name.front() == ';';
        if (line.kind == LineKind::kKey && !comment) names.push_back(line.name);
    }
    return names;
}

bool ProfileFile::SetValue(std::string_view section, std::string_view key, std::string_view value) {
    const auto range = FindSection(section);
    const auto found = range ? FindKey(*range, key) : std::nullopt;
    if (found) {
        Line& line = lines_[*found];
        if (line.value == value) return false;
        line.text = line.name + '=' + std::string(value);
        line.value = value;
        return true;
    }
    Line line{std::string(key) + '=' + std::string(value), std::string(kLineEnd), LineKind::kKey,
              std::string(key), std::string(value)};
    if (!range) {
        AppendSection(section, std::move(line));
        return true;
    }
    // The empty lines that set a section off from the next one stay between the two.
    std::size_t index = range->last;
    while (index > range->body && Trim(lines_[index - 1].text).empty()) --index;
    Insert(index, std::move(line));
    return true;
}

void ProfileFile::AppendSection(std::string_view section, Line line) {
    Insert(lines_.size(), Parse("[" + std::string(section) + "]", kLineEnd));
    Insert(lines_.size(), std::move(line));
}

void ProfileFile::Insert(std::size_t index, Line line) {
    if (index > 0 && lines_[index - 1].end.empty()) lines_[index - 1].end = kLineEnd;
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(index), std::move(line));
}

bool ProfileFile::RemoveKey(std::string_view section, std::string_view key) {
    const auto range = FindSection(section);
    const auto found = range ? FindKey(*range, key) : std::nullopt;
    if (!found) return false;
    lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(*found));
    return true;
}

bool ProfileFile::RemoveSection(std::string_view section) {
    const auto range = FindSection(section);
    if (!range || range->first == range->last) return false;
    const auto at = [this](std::size_t i) {
        return lines_.begin() + static_cast<std::ptrdiff_t>(i);
    };
    lines_.erase(at(range->first), at(range->last));
    return true;
}

std::string ProfileFile::Content() const {
    std::string content = signature_;
    for (const Line& line : lines_) content += line.text + line.end;
    return content;
}

}  // namespace winbase
