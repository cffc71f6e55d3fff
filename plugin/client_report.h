#pragma once

#include <string>
#include <string_view>

/// The report that a server asks for from time to time, 88 characters: in base-64 the digest over
/// the challenge and what the host has to say to it (HOST_GET_REPORT_DATA). A host with less than
/// 64 bytes to say is no fault: the first 64 bytes of its buffer, zeros behind its own, go out
/// then.
std::string BuildClientReport(const std::string& challenge);

/// Digests `textLen` bytes of `text` and `*len` bytes of `buffer`, with the salts that this build
/// shares with its server, and writes the 64 bytes of the digest to `buffer`.
///
/// Answers 64, 0 with no buffer or `*len` below 64 (the buffer stays as it is), -1 if there is no
/// memory or no cipher library. `*len` is 64 afterwards in every case.
int DigestReport(const char* text, int textLen, unsigned char* buffer, int* len);

/// The bytes in base-64 with padding, no line breaks; whole groups of four characters, as many as a
/// buffer of `capacity` characters takes.
std::string EncodeReport(std::string_view bytes, std::size_t capacity);
