#pragma once

/// Takes the first field off a GBK text: copies what stands before the separator, or the whole text
/// when there is none, and answers what stands behind it, for the next call. A separator that is
/// the second byte of a character is none. A field that does not fit `out` with its end is skipped,
/// and `out` is empty then. An empty or null source empties `out` as well and answers null.
const char* GetField(const char* source, char* out, int capacity, char separator);
