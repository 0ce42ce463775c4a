// What goes over BOS and has nothing to do with rooms: instant messages (family 0004), user information,
// profile and capabilities (0002), privacy (0013).

#include "oscar/TillerSock.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "oscar/wire/SnacFrame.h"
#include "oscar/wire/TlvWalk.h"

namespace halyard {

namespace {

constexpr const char* NotThere = "0004"; // the error code of a person who isn't on line
constexpr int UserInfoChatSend = 97;

/// Cuts a length byte and the text it measures off the front of `rest`.
std::string TakeName(std::string& rest) {
    std::size_t length = rest.empty() ? 0 : static_cast<unsigned char>(rest[0]);
    auto name = Mid(rest, 2, length);
    rest = Mid(rest, length + 2);
    return name;
}

/// Cuts a 2-byte count and that many TLVs off the front of `rest`, and adds the TLVs to `list`.
void TakeCountedTLVs(std::string& rest, Collection<std::string>& list) {
    auto count = StrToWord(rest).value_or(0);
    rest = Mid(rest, 3);
    ParseTLVCount(rest, count, list);
}

} // namespace

void TillerSock::SendIM(const std::string& strScreenname, const std::string& strMessage) {
    if (platform.Milliseconds() < signOn.MessagesRatedUntil) return;
    SendPacket(indices.BOSIndex, 2,
               HexToStr("0004000600000000000400000000000000010001") + MakeTLV("", 1, strScreenname) +
                   MakeTLV("0002", 2,
                           MakeTLV("0501", 2, HexToStr("010102")) +
                               MakeTLV("0101", 2, HexToStr("00000000") + strMessage)));
}

void TillerSock::GetUserInfo(const std::string& strScreenname, std::int32_t TheType) {
    SendPacket(indices.BOSIndex, 2,
               HexToStr("00020015000000000015") + LongToStr(TheType) + MakeTLV("", 1, strScreenname));
}

void TillerSock::SetProfile(const std::string& strProfile) {
    SendPacket(indices.BOSIndex, 2,
               HexToStr("00020004000000000004") + MakeTLV("0001", 2, "text/x-aolrtf; charset=\"us-ascii\"") +
                   MakeTLV("0002", 2, strProfile));
}

void TillerSock::SetCapabilities(const Collection<std::string>& UUIDs) {
    SendPacket(indices.BOSIndex, 2,
               HexToStr("00020004000000000004") + MakeTLV("0005", 2, CapabilityBlock(1, UUIDs)));
}

void TillerSock::SetPrivacy(std::int16_t intPrivacyLevel, std::int32_t lngAllowUserClassOnly) {
    auto classes = lngAllowUserClassOnly != 0 ? HexToStr("0000") + WordToStr(lngAllowUserClassOnly)
                                              : HexToStr("FFFFFFFF");
    SendPacket(
        indices.BOSIndex, 2,
        HexToStr("0013000900000000000900000000") + WordToStr(presence.PrivacyItemID) + HexToStr("0004") +
            MakeTLV("", 2, MakeTLV("00CA", 2, ByteToStr(intPrivacyLevel)) + MakeTLV("00CB", 2, classes)));
}

void TillerSock::HandleInstantMessage(const std::string& strPacket) {
    auto rest = Mid(strPacket, 26); // behind the SNAC, 8 bytes of cookie, the high byte of the channel
    if (Left(rest, 1) != ByteToStr(1)) return;
    rest.erase(0, 1);
    auto sender = TakeName(rest);
    rest = Mid(rest, 3); // behind the warning level
    ClearTLVData();
    TakeCountedTLVs(rest, TLVData); // the sender's user information, which is not used
    ClearTLVData();
    ParseTLVs(rest, TLVData);
    std::string block;
    WalkTLVs(TLVData, [&block](const std::string& type, const std::string& value) {
        if (type != "0002") return true;
        block = value;
        return false; // a second one isn't looked at
    });
    ClearTLVData();
    std::string message;
    ParseTLVs(block, TLVData);
    WalkTLVs(TLVData, [&message](const std::string& type, const std::string& value) {
        if (type == "0101") message = StripHTML(Mid(value, 5)); // behind 4 bytes of charset
        return true;
    });
    events.InstantMessage(sender, message, 1);
}

void TillerSock::HandleUserInfo(const std::string& strPacket) {
    std::int16_t warning = 0;
    std::int32_t idle = 0;
    std::int32_t online = 0;
    std::string userClass;
    std::string encoding;
    std::string profile;

    auto rest = Mid(strPacket, BodyAt);
    auto name = TakeName(rest);
    if (auto word = StrToWord(rest)) warning = RoundToInt16(*word / 10.0).value_or(0);
    rest = Mid(rest, 3);
    ClearTLVData();
    TakeCountedTLVs(rest, TLVData);
    WalkTLVs(TLVData, [&](const std::string& type, const std::string& value) {
        if (type == "0001")
            if (auto word = StrToWord(value)) userClass = std::to_string(*word);
        // Minutes out of the server's on-line time, whatever the event's parameter is called.
        if (type == "000F")
            if (auto number = StrToLong(value)) idle = RoundToInt32(*number / 60).value_or(0);
        if (type == "0003")
            if (auto number = StrToLong(value)) online = RoundToInt32(*number).value_or(0);
        return true;
    });
    ClearTLVData();
    ParseTLVs(rest, TLVData);
    WalkTLVs(TLVData, [&](const std::string& type, const std::string& value) {
        if (type == "0001") encoding = value;
        if (type == "0002") profile = value;
        return true;
    });
    events.IncomingUserInfo(name, warning, idle, online, userClass, encoding, profile);
}

void TillerSock::HandleLocationError(const std::string& strPacket) {
    if (StrToHex(Mid(strPacket, BodyAt, 2)) != NotThere) return;
    StopLoginTimer();
    GettingUserInfo = false;
    PrepareSends(strUserInfo, "%p", ChatSends.Item(UserInfoChatSend), "Buddy info not available", "uinfo",
                 "msg3", strUserInfoIndex);
    strUserInfo.clear();
    strUserInfoIndex = 1;
    events.Error("User not available", 4, 0, "0002");
}

void TillerSock::HandleICBMError(const std::string& strPacket) {
    if (StrToHex(Mid(strPacket, BodyAt, 2)) == NotThere) events.Error("User not available", 4, 0, "0004");
}

} // namespace halyard
