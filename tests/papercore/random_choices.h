#pragma once

#include <cstdint>
#include <cstdlib>
#include <random>
#include <string_view>

namespace papercore_tests {

/// Choices that a seed decides, the same everywhere.
class Random {
public:
    explicit Random(std::uint64_t seed) : source_(seed) {}
    std::int64_t Below(std::int64_t bound) {
        return static_cast<std::int64_t>(source_() % static_cast<std::uint64_t>(bound));
    }
    std::int64_t Between(std::int64_t low, std::int64_t high) {
        return low + Below(high - low + 1);
    }
    bool OneIn(std::int64_t count) { return Below(count) == 0; }
    char OneOf(std::string_view choices) {
        return choices[static_cast<std::size_t>(Below(static_cast<std::int64_t>(choices.size())))];
    }

private:
    std::mt19937_64 source_;
};

/// More streams by PAPERCORE_STREAMS, other ones by PAPERCORE_SEED.
inline std::int64_t Setting(const char* name, std::int64_t usual) {
    const char* value = std::getenv(name);
    return value ? std::atoll(value) : usual;
}

}  // namespace papercore_tests
