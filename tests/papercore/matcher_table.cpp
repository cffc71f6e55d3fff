#include "tests/papercore/matcher_table.h"

#include <cstdio>

namespace papercore_tests {

std::string MatcherTable::Words(const std::vector<papercore::Fill>& fills) {
    std::string words;
    for (const papercore::Fill& fill : fills) {
        char text[96];
        std::snprintf(text, sizeof text, "%s%d: %lld@%.2f", words.empty() ? "" : ", ", fill.order,
                      static_cast<long long>(fill.volume), papercore::YuanFromPrice(fill.price));
        words += text;
    }
    return words;
}

std::string MatcherTable::Add(papercore::Side side, std::int64_t volume, double limit,
                              papercore::OrderKind kind) {
    papercore::Order order;
    order.id = ++last_;
    order.contract = "Au(T+D)";
    order.side = side;
    order.volume = volume;
    order.limit = Yuan(limit);
    order.kind = kind;
    return Words(matcher_.Add(order));
}

}  // namespace papercore_tests
