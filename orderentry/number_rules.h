#pragma once

#include <cstddef>
#include <string_view>

// Numbers as edit controls and orders write them. Nothing here depends on a locale.

/// The decimal number that a text starts with, as `atof` reads it, but for "inf", "nan" and
/// hexadecimal digits, which are 0. What is too large becomes infinite. Null counts as empty.
double ReadNumber(const char* text);
/// As `atoi`; what does not fit becomes the nearest that does.
int ReadInteger(const char* text);

/// Towards zero; what does not fit becomes the nearest that does, NaN becomes 0.
int Truncated(double value);
int Saturated(long long value);

/// Decimal places that are printed when nobody knows better.
inline constexpr int kUsualDigits = 3;
/// The decimal places themselves, or the usual ones where there cannot be so many.
int UsableDigits(int digits);

/// Prints as "%.*f" does, with usable digits. False if it does not fit; the text is cut then.
bool FormatPrice(char* text, std::size_t size, double price, int digits);

template <std::size_t N>
bool FormatPrice(char (&text)[N], double price, int digits) {
    return FormatPrice(text, N, price, digits);
}

/// Room for any price with usable digits.
using PriceRoom = char[320];

/// The same whole, somewhere in the room.
std::string_view PriceText(PriceRoom& room, double price, int digits);
