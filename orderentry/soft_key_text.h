#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/types.h"

/// What soft keyboards do to texts.
namespace orderentry {

/// The longest text that a soft keyboard reads, in bytes.
inline constexpr std::size_t kSoftKeyTextMax = 127;

/// `text` with the character behind it; a text of the full length stays as it is.
std::string WithKey(const std::string& text, char character);
/// `text` without its last byte.
std::string WithoutLastKey(const std::string& text);
/// `text` without its last character, of one byte or two.
std::string WithoutLastCharacter(const std::string& text);

/// Puts the characters from `first` on in a random order into `out`; the same seed gives the same
/// order.
void ShuffleKeys(char first, int count, std::uint32_t& seed, char* out);

/// Gives an edit a text as if it had been typed: the caret stands behind it, where the next key of
/// the real keyboard goes.
void SetSoftKeyText(HWND edit, const std::string& text);

}  // namespace orderentry
