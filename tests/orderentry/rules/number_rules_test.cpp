#include "orderentry/number_rules.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr int kMost = std::numeric_limits<int>::max();
constexpr int kLeast = std::numeric_limits<int>::min();

TEST(Numbers, AreReadAsFarAsTheyGo) {
    struct Case {
        const char* text;
        double value;
    };
    const Case cases[] = {
        {nullptr, 0},
        {"", 0},
        {"300.05", 300.05},
        {" \t300.05x", 300.05},
        {"+1.5", 1.5},
        {"-1.5", -1.5},
        {"--1", 0},
        {"+-1", 0},
        {".5", 0.5},
        {"5.", 5},
        {".", 0},
        {"-.", 0},
        {"1.2.3", 1.2},
        {"1,5", 1},
        {"1e3", 1000},
        {"1e", 1},
        {"1e+", 1},
        {"0x10", 0},
        {"inf", 0},
        {"nan", 0},
        {"-infinity", 0},
        {"abc", 0},
        {"- 1", 0},
        {"1e999", kInfinity},
        {"-1e999", -kInfinity},
        {"1e-999", 0},
        {"\xA3\xB1", 0},
    };
    for (const Case& expected : cases) {
        EXPECT_EQ(expected.value, ReadNumber(expected.text))
            << (expected.text ? expected.text : "");
    }
}

TEST(Numbers, AreReadAsTheLibraryReadsThem) {
    std::mt19937 random(1);
    constexpr char kBytes[] = "0123456789.0123456789.+-eE \xC1";
    for (int i = 0; i < 10000; ++i) {
        std::string text(random() % 24, '\0');
        for (char& byte : text) byte = kBytes[random() % (sizeof kBytes - 1)];
        ASSERT_EQ(std::atof(text.c_str()), ReadNumber(text.c_str())) << text;
    }
}

TEST(Numbers, SaturateInsteadOfWrapping) {
    EXPECT_EQ(0, ReadInteger(nullptr));
    EXPECT_EQ(0, ReadInteger("x1"));
    EXPECT_EQ(7, ReadInteger("007"));
    EXPECT_EQ(-12, ReadInteger(" -12.9"));
    EXPECT_EQ(kMost, ReadInteger("2147483647"));
    EXPECT_EQ(kMost, ReadInteger("2147483648"));
    EXPECT_EQ(kLeast, ReadInteger("-2147483648"));
    EXPECT_EQ(kMost, ReadInteger("4294967297"));
    EXPECT_EQ(kLeast, ReadInteger("-99999999999999999999999999"));

    EXPECT_EQ(2, Truncated(2.99));
    EXPECT_EQ(-2, Truncated(-2.99));
    EXPECT_EQ(kMost, Truncated(2147483646.9 + 1));
    EXPECT_EQ(kMost, Truncated(kInfinity));
    EXPECT_EQ(kLeast, Truncated(-1e300));
    EXPECT_EQ(0, Truncated(kNan));
}

std::string Printed(double price, int digits) {
    char text[64];
    FormatPrice(text, price, digits);
    return text;
}

std::string LibraryPrint(double price, int digits) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", digits, price);
    return text;
}

TEST(PrintedPrices, AreThoseOfTheLibraryOnHalvesAndBoundaries) {
    const double prices[] = {0,
                             -0.0,
                             1,
                             0.5,
                             1.5,
                             2.5,
                             1.125,
                             1.375,
                             2.0625,
                             99.995,
                             999.9995,
                             300.005,
                             300.015,
                             9.9999999,
                             0.9999999,
                             1e15 - 1,
                             1e15,
                             1e15 - 0.125,
                             1e300,
                             -1.005,
                             -300.02,
                             1 - 1e-16,
                             4503599627370496.5,
                             1e-300,
                             300.02 + 1e-8,
                             std::nextafter(1.0, 2.0),
                             std::nextafter(1e15, 0.0),
                             kInfinity,
                             -kInfinity,
                             kNan};
    for (const double price : prices) {
        for (int digits = 0; digits <= 8; ++digits) {
            EXPECT_EQ(LibraryPrint(price, digits).substr(0, 63), Printed(price, digits));
        }
    }
}

TEST(PrintedPrices, AreThoseOfTheLibraryOnAnyValue) {
    std::mt19937_64 random(2);
    std::uniform_real_distribution<double> price(0, 1e6);
    for (int i = 0; i < 100000; ++i) {
        const auto bits = random();
        double any = 0;
        std::memcpy(&any, &bits, sizeof any);
        const double small = static_cast<double>(bits % 4096) / 1024 + 1;  // has exact halves
        for (const double value : {price(random), std::round(price(random)) / 1000, small, any}) {
            const int digits = static_cast<int>(random() % 4);
            ASSERT_EQ(LibraryPrint(value, digits), Printed(value, digits));
        }
    }
}

TEST(PrintedPrices, TellWhetherTheyFit) {
    char text[7];
    EXPECT_TRUE(FormatPrice(text, 300.02, 2));
    EXPECT_STREQ("300.02", text);
    EXPECT_FALSE(FormatPrice(text, 3000.02, 2));
    EXPECT_STREQ("3000.0", text);
    EXPECT_FALSE(FormatPrice(text, 0, 3.0, 2));
    EXPECT_FALSE(FormatPrice(text, -1e300, 2));
    EXPECT_STREQ("-10000", text);
}

TEST(PrintedPrices, HaveThreePlacesIfNobodyKnowsBetter) {
    for (const int digits : {-1, 9, kMost, kLeast}) {
        EXPECT_EQ(3, UsableDigits(digits));
        EXPECT_EQ("300.020", Printed(300.02, digits));
    }
    EXPECT_EQ("300", Printed(300.02, 0));
    EXPECT_EQ("300.02000000", Printed(300.02, 8));
}

}  // namespace
