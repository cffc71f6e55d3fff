#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace winbase {

/// The rows of a list box or combo box: texts in code page 936, each with a word of its owner's.
class ListItems {
public:
    struct Item {
        std::string text;
        ULONG_PTR data = 0;
    };

    int count() const { return static_cast<int>(items_.size()); }
    bool Has(LRESULT index) const { return index >= 0 && index < count(); }
    const Item& at(int index) const { return items_[static_cast<std::size_t>(index)]; }
    Item& at(int index) { return items_[static_cast<std::size_t>(index)]; }

    /// At the end for -1; false when the place is behind the end.
    bool Insert(int index, Item item);
    /// Where a sorted list takes the text: before its equals, letters regardless of case.
    int SortedPlace(std::string_view text) const;
    void Remove(int index) { items_.erase(items_.begin() + index); }
    void Clear() { items_.clear(); }

    enum class Match { kPrefix, kWhole };
    /// The first row behind `after` that begins with or equals the text, letters regardless of
    /// case; goes on at the top and ends where it began. -1 for none, and for an empty text.
    int Find(std::string_view text, LRESULT after, Match match) const;

private:
    std::vector<Item> items_;
};

/// ASCII letters in small; bytes of two-byte characters stay.
std::string Folded(std::string_view gbk);

}  // namespace winbase
