#include "papercore/store.h"

#include <gtest/gtest.h>

#include <array>
#include <iterator>
#include <limits>
#include <map>
#include <random>
#include <set>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "papercore/record_fields.h"
#include "tests/papercore/store/store_fixture.h"

namespace papercore_tests {
namespace {

/// Fills any fact with anything.
struct RandomFields {
    std::mt19937& random;

    template <class T>
    requires std::is_arithmetic_v<T>
    void Fill(T& value) {
        switch (random() % 3) {
            case 0: value = static_cast<T>(random() % 4); break;
            case 1: value = std::numeric_limits<T>::max(); break;
            default: value = static_cast<T>((std::uint64_t{random()} << 32U) | random());
        }
    }
    void Fill(bool& value) { value = random() % 2 == 0; }
    template <class T>
    requires std::is_enum_v<T>
    void Fill(T& value) { value = static_cast<T>(random() % 3); }
    void Fill(std::string& text) {
        static constexpr const char* kTexts[] = {"",     "SGE",      "手动下单",
                                                 "\xB0", "\x80\xFF", "a\"\\"};
        text = random() % 2 == 0 ? kTexts[random() % std::size(kTexts)] : std::string(2, '\0');
    }
    void Fill(CPresetStop& record) {
        for (char& byte : std::span(reinterpret_cast<char*>(&record), sizeof record)) {
            byte = static_cast<char>(random());
        }
    }
    template <std::size_t N>
    void Fill(std::array<char, N>& bytes) {
        for (char& byte : bytes) byte = static_cast<char>(random());
    }
    template <class T>
    void Fill(std::vector<T>& values) {
        values.resize(random() % 3);
        for (T& value : values) Fill(value);
    }
    template <class Key, class T>
    void Fill(std::map<Key, T>& values) {
        Key key{};
        Fill(key);
        Fill(values[key]);
    }
    template <class T>
    requires requires(RandomFields& f, T& x) { Fields(f, x); }
    void Fill(T& value) { Fields(*this, value); }
    template <class T>
    void operator()(const char*, T& value) {
        Fill(value);
    }
};

template <std::size_t Index = 0>
Fact RandomFact(std::size_t kind, RandomFields& fields) {
    if constexpr (Index < std::variant_size_v<Fact>) {
        if (kind != Index) return RandomFact<Index + 1>(kind, fields);
        std::variant_alternative_t<Index, Fact> fact;
        fields.Fill(fact);
        return fact;
    }
    return {};
}

TEST_F(StoreTest, LinesAndStatesComeBackByteForByte) {
    Trade();
    std::set<std::size_t> kinds;
    for (const Fact& fact : journal) {
        kinds.insert(fact.index());
        const std::string line = FactLine(fact);
        EXPECT_EQ(line.find('\n'), std::string::npos);
        Fact read;
        ASSERT_TRUE(ReadFactLine(line, read)) << line;
        EXPECT_EQ(read.index(), fact.index());
        EXPECT_EQ(FactLine(read), line);
    }
    EXPECT_GE(kinds.size(), 10u) << "the day has too little in it: "
                                 << testing::PrintToString(kinds);
    State read;
    ASSERT_TRUE(ReadStateText(StateText(state()), read));
    EXPECT_EQ(StateText(read), StateText(state()));
}

TEST_F(StoreTest, FactsOfEveryKindWithAnythingInThemComeBack) {
    Trade();
    std::mt19937 random(11);
    RandomFields fields{random};
    State other = state();
    int followed = 0;
    for (int round = 0; round < 1600; ++round) {
        const std::size_t kind = static_cast<std::size_t>(round) % std::variant_size_v<Fact>;
        const Fact fact = RandomFact(kind, fields);
        const std::string line = FactLine(fact);
        Fact read;
        ASSERT_TRUE(ReadFactLine(line, read)) << line;
        ASSERT_EQ(FactLine(read), line);
        const std::string before = StateText(other);
        if (Apply(other, read)) {
            ++followed;
            State again;
            ASSERT_TRUE(ReadStateText(StateText(other), again)) << line;
            ASSERT_EQ(StateText(again), StateText(other)) << line;
        } else {
            ASSERT_TRUE(StateText(other) == before) << "refused, but changed by " << line;
        }
        if (round % 50 == 0) other = state();
    }
    EXPECT_GT(followed, 100);
}

TEST_F(StoreTest, WhatIsNoLineIsRefused) {
    Trade();
    std::mt19937 random(7);
    Fact fact;
    for (const char* line :
         {"", "x", "[]", "{}", R"({"fact":"none"})", R"({"fact":"day_begun"})",
          R"({"fact":"day_begun","day":"x"})", R"({"fact":"day_begun","day":99999999999})"}) {
        EXPECT_FALSE(ReadFactLine(line, fact)) << line;
    }
    for (const Fact& good : journal) {
        std::string line = FactLine(good);
        for (int change = 0; change < 20; ++change) {
            line[random() % line.size()] = static_cast<char>(random());
            State other = state();
            if (ReadFactLine(line, fact)) Apply(other, fact);
        }
    }
}

TEST_F(StoreTest, TheSameStateComesOutOfTheFile) {
    Trade();
    {
        const std::unique_ptr<Store> store = Open();
        Loaded(*store);
        KeepAll(*store);
    }
    const std::unique_ptr<Store> store = Open();
    EXPECT_EQ(StateText(Loaded(*store)), StateText(state()));
    std::size_t lines = 0;
    EXPECT_EQ(store->Export([&](std::string_view) { ++lines; }), "");
    EXPECT_EQ(lines, journal.size()) << "a snapshot takes nothing out of the journal";
    const std::unique_ptr<Store> memory = MemoryStore();
    KeepAll(*memory);
    EXPECT_EQ(StateText(Loaded(*memory)), StateText(state()));
}

}  // namespace
}  // namespace papercore_tests
