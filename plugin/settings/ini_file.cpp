#include "plugin/settings/ini_file.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <numeric>
#include <tuple>

#include "platform/text/file_path.h"
#include "platform/text/gbk.h"

namespace {

std::string ReadFile(const char* path) {
    std::string content;
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(text::OpenFile(path, "rb"),
                                                               std::fclose);
    if (!file) return content;
    char chunk[16384];
    while (const std::size_t count = std::fread(chunk, 1, sizeof chunk, file.get())) {
        content.append(chunk, count);
    }
    return content;
}

/// Place of the first character that is one of `wanted`; npos without any.
std::size_t FindChar(std::string_view line, std::string_view wanted, std::size_t from = 0) {
    while (from < line.size() && wanted.find(line[from]) == std::string_view::npos) {
        from += text::CharLength(line.substr(from));
    }
    return from < line.size() ? from : std::string_view::npos;
}

}  // namespace

CIniFile::CIniFile(const char* path) : m_strPath(path ? path : "") { Load(); }

int CIniFile::Load() {
    m_arrSections.clear();
    m_arrComments.clear();
    m_arrKeys.clear();
    const std::string content = ReadFile(m_strPath.c_str());
    std::string_view rest = content;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        std::string_view line = rest.substr(0, end);
        if (line.ends_with('\r')) line.remove_suffix(1);
        ReadLine(line);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    SortKeys();
    return m_arrSections.empty() ? 0 : 1;
}

void CIniFile::ReadLine(std::string_view line) {
    const std::size_t mark = FindChar(line, ";#[=");
    if (mark == std::string_view::npos) return;
    const std::string_view behind = line.substr(mark + 1);
    if (line[mark] == '=') {
        m_arrKeys.push_back(
            {m_arrSections.size(), std::string(line.substr(0, mark)), std::string(behind)});
    } else if (line[mark] == '[') {
        const std::size_t end = FindChar(behind, "]");
        if (end == std::string_view::npos) return;
        m_arrSections.push_back({std::string(behind.substr(0, end)), {}});
    } else {
        auto& comments = m_arrSections.empty() ? m_arrComments : m_arrSections.back().comments;
        comments.emplace_back(behind);
    }
}

void CIniFile::SortKeys() {
    m_arrSorted.resize(m_arrKeys.size());
    std::iota(m_arrSorted.begin(), m_arrSorted.end(), std::size_t{0});
    const auto place = [this](std::size_t index) {
        const Key& key = m_arrKeys[index];
        return std::tuple(SectionName(key), std::string_view(key.name), index);
    };
    std::ranges::sort(m_arrSorted, {}, place);
}

std::string_view CIniFile::SectionName(const Key& key) const {
    return key.section == 0 ? std::string_view() : m_arrSections[key.section - 1].name;
}

std::vector<std::string> CIniFile::GetSectionKeys(std::string_view section) const {
    std::vector<std::string> names;
    for (const Key& key : m_arrKeys) {
        if (SectionName(key) == section) names.push_back(key.name);
    }
    return names;
}

std::string CIniFile::GetValue(std::string_view key, std::string_view section) const {
    const auto name_of = [this](std::size_t index) {
        const Key& entry = m_arrKeys[index];
        return std::pair(SectionName(entry), std::string_view(entry.name));
    };
    const std::pair wanted(section, key);
    const auto found = std::ranges::lower_bound(m_arrSorted, wanted, {}, name_of);
    if (found == m_arrSorted.end() || name_of(*found) != wanted) return {};
    return m_arrKeys[*found].value;
}
