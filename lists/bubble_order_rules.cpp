#include "lists/bubble_order_rules.h"

#include <cassert>
#include <cstdint>
#include <cstring>

std::vector<int> BubbleOrderOfKeys(std::span<const int> keys) {
    struct Entry {
        int key;
        int index;
    };
    std::vector<Entry> entries;
    entries.reserve(keys.size());
    for (const int key : keys) {
        entries.push_back({key, static_cast<int>(entries.size())});
    }
    std::stable_sort(entries.begin(), entries.end(),
                     [](const Entry& a, const Entry& b) { return a.key > b.key; });
    std::vector<int> order;
    order.reserve(entries.size());
    for (const Entry& entry : entries) {
        order.push_back(entry.index);
    }
    return order;
}

void ReorderRecords(void* records, std::size_t record_size, std::size_t moved,
                    std::span<const int> order) {
    assert(moved <= record_size);
    auto* const bytes = static_cast<std::byte*>(records);
    const auto at = [&](int index) {
        return bytes + static_cast<std::size_t>(index) * record_size;
    };
    std::vector<std::byte> spare(moved);
    std::vector<bool> done(order.size());
    for (std::size_t start = 0; start < order.size(); ++start) {
        if (done[start] || order[start] == static_cast<int>(start)) {
            continue;
        }
        // Each cycle of the order is walked once: every place is filled from the one that its
        // record comes from, which is free from then on.
        std::memcpy(spare.data(), at(static_cast<int>(start)), moved);
        std::size_t place = start;
        while (order[place] != static_cast<int>(start)) {
            std::memcpy(at(static_cast<int>(place)), at(order[place]), moved);
            done[place] = true;
            place = static_cast<std::size_t>(order[place]);
        }
        std::memcpy(at(static_cast<int>(place)), spare.data(), moved);
        done[place] = true;
    }
}
