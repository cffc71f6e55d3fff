#pragma once

#include <array>
#include <string_view>

namespace digest {

using Sha512Digest = std::array<unsigned char, 64>;

/// The SHA-512 digest (FIPS 180-4) of the bytes. False where the system's cipher library refuses
/// to work; `result` is then as it was.
bool Sha512(std::string_view bytes, Sha512Digest& result);

}  // namespace digest
