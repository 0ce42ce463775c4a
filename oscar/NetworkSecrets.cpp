#include "oscar/NetworkSecrets.h"

#include "platform/Md5.h"

namespace halyard {

std::string NetworkSecrets::Roast(std::string_view strPassword) const {
    std::string roasted(strPassword);
    for (std::size_t at = 0; at < roasted.size(); ++at)
        roasted[at] =
            static_cast<char>(static_cast<std::uint8_t>(roasted[at]) ^ roasting[at % roasting.size()]);
    return roasted;
}

std::string NetworkSecrets::Hash(std::string_view authKey, std::string_view strPassword) const {
    return Md5(std::string(authKey) + Md5(strPassword) + salt);
}

NetworkSecrets DefaultSecrets() {
    return {"ZQX Harbour Wireline (QQ)7",
            {0xF3, 0x26, 0x81, 0xC4, 0x39, 0x86, 0xDB, 0x92, 0x71, 0xA3, 0xB9, 0xE6, 0x53, 0x7A, 0x95, 0x7C}};
}

} // namespace halyard
