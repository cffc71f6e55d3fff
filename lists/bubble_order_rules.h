#pragma once

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <span>
#include <string_view>
#include <vector>

// Lists are ordered as a bubble sort with early exit leaves them:
//
//     do { swap all neighbours that want it, from the first to the last } while (something moved)
//
// which costs the square of the count. As long as no two records want to be swapped both ways
// round, this is the same as putting each record, in turn, as far to the left of those before it as
// its neighbours let it: also where the wishes contradict each other (a before b before c before
// a). Where they don't contradict each other it is a stable sort. All functions here return the
// index of the record that stands at each place in the end, and move nothing.

/// Highest key first, equal keys in the order in which they came.
std::vector<int> BubbleOrderOfKeys(std::span<const int> keys);

/// Compared as far as both texts go, by the first byte that differs, a signed one; where the
/// shorter text ends, by the number. So "9" comes before "10", and "1" and "10" go by their
/// numbers.
struct TextKey {
    std::string_view text;
    int number;
};

/// Highest key first. Texts that begin with each other may contradict the rest: "1" with number 5
/// wants to be before "11" with 4, that before "10", and "10" with 6 before "1".
std::vector<int> BubbleOrderOfTexts(std::span<const TextKey> keys);

/// Puts the records that `order` names in the order that bubbling gives. `wants_swap(left, right)`
/// takes two of the indices. Quick for few records, or for many that are nearly in place.
template <class WantsSwap>
void BubbleIndices(std::span<int> order, WantsSwap wants_swap) {
    for (std::size_t i = 1; i < order.size(); ++i) {
        const int moving = order[i];
        std::size_t place = i;
        for (; place > 0 && wants_swap(order[place - 1], moving); --place) {
            order[place] = order[place - 1];
        }
        order[place] = moving;
    }
}

/// For any wishes whatever, at the cost of bubbling's own comparisons.
template <class WantsSwap>
std::vector<int> BubbleOrder(int count, WantsSwap wants_swap) {
    std::vector<int> order(static_cast<std::size_t>(std::max(count, 0)));
    std::iota(order.begin(), order.end(), 0);
    BubbleIndices(std::span(order), wants_swap);
    return order;
}

/// For wishes that are those of a proper order, but for some records; costs a stable sort, and
/// bubbling among those records only.
/// `before(a, b)`: a strict weak order; records that are equal in it must want to be swapped in a
/// consistent manner.
/// `tangled(a, b)`, with a before b: the two may want something else than `before` says. Everything
/// between two tangled records must be tangled with the first as well, and what comes after them
/// with none of them or with the first; the prefixes of a text are so in the order of texts.
template <class Before, class Tangled, class WantsSwap>
std::vector<int> BubbleOrder(int count, Before before, Tangled tangled, WantsSwap wants_swap) {
    std::vector<int> order(static_cast<std::size_t>(std::max(count, 0)));
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), before);
    const auto wants_before = [&](int a, int b) { return wants_swap(b, a); };
    for (auto first = order.begin(); first != order.end();) {
        auto equal_end = first + 1;
        while (equal_end != order.end() && !before(*first, *equal_end)) {
            ++equal_end;
        }
        auto end = equal_end;
        while (end != order.end() && tangled(*first, *end)) {
            ++end;
        }
        if (end == equal_end) {
            if (end - first > 1) std::stable_sort(first, end, wants_before);
        } else {
            std::sort(first, end);  // as they came
            BubbleIndices(std::span(first, end), wants_swap);
        }
        first = end;
    }
    return order;
}

/// Brings `order.size()` records of `record_size` bytes into this order, each to the place of its
/// index in `order`. Only the first `moved` bytes of a record move; what follows stays where it
/// was.
void ReorderRecords(void* records, std::size_t record_size, std::size_t moved,
                    std::span<const int> order);
