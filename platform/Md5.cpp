#include "platform/Md5.h"

#include <openssl/evp.h>

namespace halyard {

std::string Md5(std::string_view bytes) {
    std::string digest(EVP_MAX_MD_SIZE, '\0');
    unsigned length = 0;
    auto out = reinterpret_cast<unsigned char*>(digest.data());
    if (EVP_Digest(bytes.data(), bytes.size(), out, &length, EVP_md5(), nullptr) != 1) length = 0;
    digest.resize(length);
    return digest;
}

} // namespace halyard
