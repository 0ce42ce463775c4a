#include "platform/Hmac.h"

#include <openssl/evp.h>
#include <openssl/hmac.h>

namespace halyard {

std::string HmacSha256(std::string_view key, std::string_view bytes) {
    std::string digest(EVP_MAX_MD_SIZE, '\0');
    unsigned length = 0;
    auto out = reinterpret_cast<unsigned char*>(digest.data());
    auto in = reinterpret_cast<const unsigned char*>(bytes.data());
    if (!HMAC(EVP_sha256(), key.data(), static_cast<int>(key.size()), in, bytes.size(), out, &length))
        length = 0;
    digest.resize(length);
    return digest;
}

} // namespace halyard
