#include "platform/digest/sha512.h"

#ifdef _WIN32

// The second needs what the first defines.
// clang-format off
#include <windows.h>
#include <bcrypt.h>
// clang-format on

#include <limits>

namespace digest {
namespace {

bool Worked(NTSTATUS status) { return status >= 0; }

bool DigestWith(BCRYPT_ALG_HANDLE algorithm, std::string_view bytes, Sha512Digest& result) {
    BCRYPT_HASH_HANDLE hash = nullptr;
    if (!Worked(BCryptCreateHash(algorithm, &hash, nullptr, 0, nullptr, 0, 0))) return false;
    auto* const data = reinterpret_cast<UCHAR*>(const_cast<char*>(bytes.data()));
    Sha512Digest made = {};
    const bool done = Worked(BCryptHashData(hash, data, static_cast<ULONG>(bytes.size()), 0)) &&
                      Worked(BCryptFinishHash(hash, made.data(), ULONG{made.size()}, 0));
    BCryptDestroyHash(hash);
    if (done) result = made;
    return done;
}

}  // namespace

bool Sha512(std::string_view bytes, Sha512Digest& result) {
    if (bytes.size() > std::numeric_limits<ULONG>::max()) return false;
    BCRYPT_ALG_HANDLE algorithm = nullptr;
    if (!Worked(BCryptOpenAlgorithmProvider(&algorithm, BCRYPT_SHA512_ALGORITHM, nullptr, 0))) {
        return false;
    }
    const bool done = DigestWith(algorithm, bytes, result);
    BCryptCloseAlgorithmProvider(algorithm, 0);
    return done;
}

}  // namespace digest

#else

#include <openssl/evp.h>

namespace digest {

bool Sha512(std::string_view bytes, Sha512Digest& result) {
    Sha512Digest made = {};
    if (EVP_Digest(bytes.data(), bytes.size(), made.data(), nullptr, EVP_sha512(), nullptr) != 1) {
        return false;
    }
    result = made;
    return true;
}

}  // namespace digest

#endif
