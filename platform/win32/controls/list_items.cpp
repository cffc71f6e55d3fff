#include "platform/win32/controls/list_items.h"

#include <algorithm>

#include "platform/text/gbk.h"

namespace winbase {

std::string Folded(std::string_view gbk) {
    std::string folded(gbk);
    for (std::size_t at = 0; at < folded.size();) {
        const std::size_t length = text::CharLength(std::string_view(folded).substr(at));
        if (length == 1 && folded[at] >= 'A' && folded[at] <= 'Z') {
            folded[at] = static_cast<char>(folded[at] + ('a' - 'A'));
        }
        at += length;
    }
    return folded;
}

bool ListItems::Insert(int index, Item item) {
    if (index == -1) index = count();
    if (index < 0 || index > count()) return false;
    items_.insert(items_.begin() + index, std::move(item));
    return true;
}

int ListItems::SortedPlace(std::string_view text) const {
    const std::string wanted(text);
    const auto place = std::find_if(items_.begin(), items_.end(), [&](const Item& item) {
        return lstrcmpiA(item.text.c_str(), wanted.c_str()) >= 0;
    });
    return static_cast<int>(place - items_.begin());
}

int ListItems::Find(std::string_view text, LRESULT after, Match match) const {
    if (items_.empty() || text.empty()) return -1;
    const std::string wanted = Folded(text);
    const int first = Has(after) ? static_cast<int>(after) + 1 : 0;
    for (int step = 0; step < count(); ++step) {
        const int index = (first + step) % count();
        const std::string row = Folded(at(index).text);
        const bool hit = match == Match::kWhole ? row == wanted : row.starts_with(wanted);
        if (hit) return index;
    }
    return -1;
}

}  // namespace winbase
