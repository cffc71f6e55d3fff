#pragma once

#include <cstdio>

namespace text {

// Streams that read and write a file as Windows does in text mode. Both take the binary file over:
// it is closed with the stream, or at once when no stream can be had (null, `errno` set).

std::FILE* OpenTextReader(std::FILE* binary);
std::FILE* OpenTextWriter(std::FILE* binary);

}  // namespace text
