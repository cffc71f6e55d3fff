#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// What soft keyboards do to texts, without a window.
namespace orderentry {

/// The longest text that a soft keyboard reads, in bytes.
inline constexpr std::size_t kSoftKeyTextMax = 127;

/// `text` with the character behind it; a text of the full length stays as it is.
std::string WithKey(const std::string& text, char character);
/// `text` without its last byte.
std::string WithoutLastKey(const std::string& text);

/// Puts the characters from `first` on in a random order into `out`; the same seed gives the same
/// order.
void ShuffleKeys(char first, int count, std::uint32_t& seed, char* out);

}  // namespace orderentry
