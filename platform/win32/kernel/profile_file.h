#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace winbase {

/// The lines of a profile file: what stands before the first section, then sections of keys.
///
/// Names are compared without letter case; the first of equal sections and keys counts. Lines that
/// an edit does not concern keep every byte, their line end included. The text before the first
/// section is the section with the empty name.
class ProfileFile {
public:
    explicit ProfileFile(std::string_view content);

    /// The value without the blanks and the one pair of quotes around it.
    std::optional<std::string> Value(std::string_view section, std::string_view key) const;
    /// All named sections, repeated ones too.
    std::vector<std::string> SectionNames() const;
    /// The keys of the first section of this name in their order; nothing if there is none.
    std::optional<std::vector<std::string>> KeyNames(std::string_view section) const;

    /// Each answers whether the file became another one.
    bool SetValue(std::string_view section, std::string_view key, std::string_view value);
    bool RemoveKey(std::string_view section, std::string_view key);
    bool RemoveSection(std::string_view section);

    std::string Content() const;

private:
    enum class LineKind { kOther, kKey, kSection };
    struct Line {
        std::string text;  ///< without its end
        std::string end;
        LineKind kind = LineKind::kOther;
        std::string name;   ///< of the key or section
        std::string value;  ///< of the key, with its quotes
    };
    /// A section's lines: [first, last), its heading included.
    struct Range {
        std::size_t first;
        std::size_t last;
        std::size_t body;  ///< first line behind the heading
    };

    static Line Parse(std::string_view text, std::string_view end);
    std::optional<Range> FindSection(std::string_view name) const;
    std::optional<std::size_t> FindKey(const Range& range, std::string_view key) const;
    void AppendSection(std::string_view section, Line line);
    void Insert(std::size_t index, Line line);

    std::string signature_;  ///< UTF-8 mark that some editors put in front
    std::vector<Line> lines_;
};

/// What quotes around a whole text leave of it.
std::string_view StripQuotes(std::string_view text);

}  // namespace winbase
