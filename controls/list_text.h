#pragma once

#include <cstddef>
#include <string_view>

// How the text of a cell is cut that does not fit.

/// How many characters a cell shows before the dots, given the width of a two-byte character. The
/// dots take the room of three.
int CharactersBeforeDots(int room, int glyph_width);

/// The first `characters` characters of the text and three dots, as far as the field holds them;
/// no character is split. Answers the length.
std::size_t CopyWithDots(char* field, std::size_t size, std::string_view text, int characters);
