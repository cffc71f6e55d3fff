#pragma once

#include "platform/types.h"

/// Reads the colour that a text carries as a tag: "<COLOR#" and nine digits ">", red, green and
/// blue as three decimals each, taken modulo 256. The last tag counts. A text with a line end (CR
/// or LF) has none, nor has null; then `color` stays as it is and the answer is false.
bool ParseColorTag(const char* text, COLORREF& color);
