#include "plugin/contract/get_field.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/support/gbk_text.h"

namespace {

/// All fields of a text, each read into a buffer of `capacity` bytes.
std::vector<std::string> Fields(const char* source, int capacity) {
    std::vector<std::string> fields;
    std::vector<char> out(static_cast<std::size_t>(capacity), 'x');
    while ((source = GetField(source, out.data(), capacity, '|'))) fields.push_back(out.data());
    return fields;
}

TEST(GetField, TakesATextApartAtItsSeparators) {
    using List = std::vector<std::string>;
    const struct {
        const char* source;
        List fields;
    } cases[] = {
        {"", {}},
        {"a", {"a"}},
        {"a|", {"a"}},
        {"|", {""}},
        {"|a", {"", "a"}},
        {"a||b", {"a", "", "b"}},
        {"4|1|黄金|Y|900", {"4", "1", "黄金", "Y", "900"}},
        {"long|sev|seven12|eight123|end", {"long", "sev", "seven12", "", "end"}},
    };
    for (const auto& c : cases) EXPECT_EQ(c.fields, Fields(c.source, 8)) << c.source;
}

TEST(GetField, LeavesCharactersWholeThatHoldASeparatorByte) {
    const std::string source = std::string("\xC1|") + "|b";
    EXPECT_EQ((std::vector<std::string>{"\xC1|", "b"}), Fields(source.c_str(), 8));
}

TEST(GetField, EmptiesTheBufferWhenThereIsNoField) {
    for (const char* source : {static_cast<const char*>(nullptr), ""}) {
        char out[4] = "old";
        EXPECT_EQ(nullptr, GetField(source, out, sizeof out, '|'));
        EXPECT_STREQ("", out);
    }
}

TEST(GetField, WritesNothingWithoutRoom) {
    char out = 'x';
    const char* const source = "a|b";
    EXPECT_EQ(source + 2, GetField(source, &out, 0, '|'));
    EXPECT_EQ('x', out);
    EXPECT_EQ(source + 2, GetField(source, &out, 1, '|'));
    EXPECT_EQ('\0', out);
}

TEST(GetField, SkipsAFieldOfAnySize) {
    const std::string source = std::string(200000, 'a') + "|Y";
    char out[31];
    const char* rest = GetField(source.c_str(), out, sizeof out, '|');
    EXPECT_STREQ("", out);
    EXPECT_STREQ("Y", rest);
}

}  // namespace
