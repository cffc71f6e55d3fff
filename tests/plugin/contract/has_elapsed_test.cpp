#include "plugin/contract/has_elapsed.h"

#include <gtest/gtest.h>

namespace {

TEST(HasElapsed, CountsAcrossTheWrapOfTheTicks) {
    const struct {
        DWORD start;
        DWORD now;
        DWORD span;
        bool elapsed;
        const char* what;
    } cases[] = {
        {1000, 2999, 2000, false, "a millisecond early"},
        {1000, 3000, 2000, true, "to the millisecond"},
        {1000, 1000, 0, true, "no time asked for"},
        {0xFFFFF000, 0x100, 2000, true, "now wrapped, the end did not"},
        {0xFFFFFF00, 0xFFFFFFF0, 2000, false, "the end wrapped, now did not"},
        {0xFFFFFF00, 0x6CF, 2000, false, "both wrapped, a millisecond early"},
        {0xFFFFFF00, 0x6D0, 2000, true, "both wrapped, to the millisecond"},
        {1, 0x80000001, 2000, true, "further apart than half of all ticks"},
        {5000, 4999, 0xFFFFFFFF, true, "the longest span"},
    };
    for (const auto& c : cases) EXPECT_EQ(c.elapsed, HasElapsed(c.start, c.now, c.span)) << c.what;
}

}  // namespace
