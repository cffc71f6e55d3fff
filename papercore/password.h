#pragma once

#include <string>
#include <string_view>

namespace papercore {

/// Bytes of a password's hash (scrypt, 16 MiB, about 50 ms), 32 of them; empty without memory.
std::string PasswordHash(std::string_view password, std::string_view salt);

/// 16 random bytes; empty if the system has none.
std::string NewSalt();

}  // namespace papercore
