#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <vector>

/// A whole INI file in memory, for those who must list keys. Names are compared byte by byte, and
/// of equal keys in one section the first counts; a section may stand in several places.
///
/// A line is what the first of ";#[=" in it makes it: a comment, a section's name up to ']', or a
/// key up to '=' with its value behind it. Nothing is trimmed; lines without any of them are passed
/// over. Bytes of a character never count as one of the four. NUL bytes are kept.
class CIniFile {
public:
    struct Section {
        std::string name;
        std::vector<std::string> comments;
    };

    CIniFile() = default;
    /// Loads the file as well.
    explicit CIniFile(const char* path);
    virtual ~CIniFile() = default;
    CIniFile(const CIniFile&) = delete;
    CIniFile& operator=(const CIniFile&) = delete;

    /// Reads the file anew; non-zero if it has a section. A file that cannot be read is empty.
    int Load();

    /// The names of the keys in file order, repeated ones too.
    std::vector<std::string> GetSectionKeys(std::string_view section) const;
    /// Empty if either is unknown.
    std::string GetValue(std::string_view key, std::string_view section) const;

    const std::vector<Section>& Sections() const { return m_arrSections; }
    /// Those ahead of the first section.
    const std::vector<std::string>& Comments() const { return m_arrComments; }

private:
    struct Key {
        std::size_t section;  ///< place in m_arrSections plus 1; 0: ahead of the first section
        std::string name;
        std::string value;
    };
    using KeyOrder = std::vector<std::size_t>;

    void ReadLine(std::string_view line);
    void SortKeys();
    std::string_view SectionName(const Key& key) const;

    std::string m_strPath;
    std::vector<Section> m_arrSections;
    std::vector<std::string> m_arrComments;
    std::deque<Key> m_arrKeys;
    KeyOrder m_arrSorted;  ///< places of the keys by section and name, in file order where equal
};
