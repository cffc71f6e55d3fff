#include "lists/bubble_order_rules.h"

#include <bit>
#include <cassert>
#include <cstdint>
#include <cstring>

namespace {

/// A text key that is quick to compare. The head holds the text's first bytes, the first one
/// highest, shifted so that they compare as signed ones do.
struct PackedKey {
    std::uint64_t head = 0;
    std::string_view text;
    int number = 0;
};

constexpr std::size_t kHeadBytes = sizeof(PackedKey::head);

PackedKey Pack(const TextKey& key, std::size_t skipped) {
    PackedKey packed{.text = key.text.substr(skipped), .number = key.number};
    unsigned char bytes[kHeadBytes] = {};
    packed.text.copy(reinterpret_cast<char*>(bytes), kHeadBytes);
    for (const unsigned char byte : bytes) packed.head = packed.head << 8 | byte;
    packed.head ^= 0x8080808080808080U;  // the sign bits
    return packed;
}

/// Bytes that all texts begin with.
std::size_t CommonBytes(std::span<const TextKey> keys) {
    if (keys.empty()) return 0;
    std::string_view common = keys.front().text;
    for (const TextKey& key : keys) {
        if (key.text.starts_with(common)) continue;
        const auto end =
            std::mismatch(common.begin(), common.end(), key.text.begin(), key.text.end());
        common = common.substr(0, static_cast<std::size_t>(end.first - common.begin()));
    }
    return common.size();
}

/// Below, above or equal 0, as far as both texts go.
int CompareTexts(const PackedKey& a, const PackedKey& b) {
    const std::size_t both = std::min(a.text.size(), b.text.size());
    const auto same = static_cast<std::size_t>(std::countl_zero(a.head ^ b.head)) / 8;
    if (same < std::min(both, kHeadBytes)) return a.head < b.head ? -1 : 1;
    for (std::size_t i = kHeadBytes; i < both; ++i) {
        if (a.text[i] == b.text[i]) continue;
        return static_cast<signed char>(a.text[i]) < static_cast<signed char>(b.text[i]) ? -1 : 1;
    }
    return 0;
}

}  // namespace

std::vector<int> BubbleOrderOfTexts(std::span<const TextKey> keys) {
    // Numbers of one day often begin alike; without that they fit into the head.
    const std::size_t common = CommonBytes(keys);
    std::vector<PackedKey> packed;
    packed.reserve(keys.size());
    for (const TextKey& key : keys) packed.push_back(Pack(key, common));
    const auto of = [&packed](int i) -> const PackedKey& {
        return packed[static_cast<std::size_t>(i)];
    };
    // The shorter of two texts that begin alike goes first, so that it heads all that it tangles.
    const auto before = [&of](int a, int b) {
        const int order = CompareTexts(of(a), of(b));
        return order != 0 ? order > 0 : of(a).text.size() < of(b).text.size();
    };
    const auto tangled = [&of](int a, int b) { return CompareTexts(of(a), of(b)) == 0; };
    const auto wants_swap = [&of](int left, int right) {
        const int order = CompareTexts(of(left), of(right));
        return order != 0 ? order < 0 : of(left).number < of(right).number;
    };
    return BubbleOrder(static_cast<int>(keys.size()), before, tangled, wants_swap);
}

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
