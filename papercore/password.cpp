#include "papercore/password.h"

#include <openssl/evp.h>
#include <openssl/rand.h>

namespace papercore {
namespace {

constexpr std::uint64_t kCost = 1 << 14;
constexpr std::uint64_t kBlock = 8;
constexpr std::uint64_t kLanes = 1;
constexpr std::uint64_t kMostMemory = 64 << 20;
constexpr std::size_t kHashSize = 32;
constexpr std::size_t kSaltSize = 16;

unsigned char* Bytes(std::string& text) { return reinterpret_cast<unsigned char*>(text.data()); }

}  // namespace

std::string PasswordHash(std::string_view password, std::string_view salt) {
    std::string hash(kHashSize, '\0');
    const int made = EVP_PBE_scrypt(
        password.data(), password.size(), reinterpret_cast<const unsigned char*>(salt.data()),
        salt.size(), kCost, kBlock, kLanes, kMostMemory, Bytes(hash), hash.size());
    return made == 1 ? hash : std::string();
}

std::string NewSalt() {
    std::string salt(kSaltSize, '\0');
    return RAND_bytes(Bytes(salt), static_cast<int>(salt.size())) == 1 ? salt : std::string();
}

}  // namespace papercore
