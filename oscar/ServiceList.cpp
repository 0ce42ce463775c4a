// The account's list on the service (0013 0006): what it says of privacy and presence, and the items that are
// made when it says nothing (0013 0008).

#include "oscar/TillerSock.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "oscar/wire/TlvWalk.h"

namespace halyard {

namespace {

constexpr std::int32_t PrivacyItem = 4;
constexpr std::int32_t PresenceItem = 5;

struct SSIItem {
    std::int32_t id = 0;
    std::int32_t type = 0;
    std::string block;
};

std::int32_t WordAt(const std::string& list, std::size_t at) {
    return at < list.size() ? StrToWord(std::string_view(list).substr(at)).value_or(0) : 0;
}

/// The item that begins at `at` (from 0), which moves behind it: name, group id, item id, type, block.
SSIItem ParseSSIItem(const std::string& list, std::size_t& at) {
    at += 2 + static_cast<std::size_t>(WordAt(list, at)) + 2; // an empty name is its two zero bytes alone
    SSIItem item{WordAt(list, at), WordAt(list, at + 2), {}};
    auto length = static_cast<std::size_t>(WordAt(list, at + 4));
    item.block = Mid(list, at + 7, length);
    at += 6 + length;
    return item;
}

void ReadPrivacy(PresenceState& presence, const std::string& type, const std::string& value) {
    if (type == "00CA" && !value.empty()) presence.PrivacyLevel = static_cast<unsigned char>(value[0]);
    if (type == "00CC" && value == std::string(4, '\0')) presence.AllowMobile = true;
}

void ReadPresence(PresenceState& presence, const std::string& type, const std::string& value) {
    if (type != "00C9") return;
    if (Mid(value, 3, 1) == ByteToStr(231)) presence.AllowIdle = true;
    if (Mid(value, 2, 1) == ByteToStr(99)) presence.AllowTyping = true;
}

} // namespace

void TillerSock::HandleSSIList(const std::string& strPacket) {
    constexpr std::size_t ItemsStart = 19; // behind a version byte and the count
    constexpr std::size_t SmallestItem = 5;
    for (std::size_t at = ItemsStart; at + SmallestItem <= strPacket.size();) {
        auto item = ParseSSIItem(strPacket, at);
        if (item.type != PrivacyItem && item.type != PresenceItem) continue;
        AssignInt16(item.type == PrivacyItem ? presence.PrivacyItemID : presence.PresenceItemID, item.id);
        ClearTLVData();
        ParseTLVs(item.block, TLVData);
        WalkTLVs(TLVData, [&](const std::string& type, const std::string& value) {
            item.type == PrivacyItem ? ReadPrivacy(presence, type, value)
                                     : ReadPresence(presence, type, value);
            return true;
        });
    }
    CreatePresenceItems();
    events.PrivacySettings(presence.PrivacyLevel, presence.AllowIdle, presence.AllowTyping,
                           presence.AllowMobile);
}

void TillerSock::CreatePresenceItems() {
    // A drawn id above 32767 does not fit its field, which then stays 0 and goes out as 0.
    auto create = [this](std::int16_t& id, const char* type, const std::string& block) {
        AssignInt16(id, static_cast<long long>(RandomInRange(platform.RandomSource(), 65535, 1)));
        SendPacket(indices.BOSIndex, 2,
                   HexToStr("0013000800000000000800000000") + WordToStr(id) + HexToStr(type) +
                       MakeTLV("", 2, block));
    };
    if (presence.PrivacyItemID == 0) {
        create(presence.PrivacyItemID, "0004",
               MakeTLV("00CC", 2, HexToStr("00000002")) + MakeTLV("00CB", 2, HexToStr("FFFFFFFF")) +
                   MakeTLV("00CA", 2, ByteToStr(1)));
        presence.PrivacyLevel = 1;
        presence.AllowMobile = false;
    }
    if (presence.PresenceItemID == 0) {
        create(presence.PresenceItemID, "0005", MakeTLV("00C9", 2, HexToStr("FF63E7FF")));
        presence.AllowIdle = true;
        presence.AllowTyping = true;
    }
}

} // namespace halyard
