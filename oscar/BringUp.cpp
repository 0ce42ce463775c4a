// From the cookie on BOS to "Login Completed!" (families 0001, 0002, 0004, 0009, 0013), and what keeps BOS
// alive: pause and migration. Request ids are whatever the literals say.

#include "oscar/TillerSock.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "oscar/wire/SnacFrame.h"
#include "oscar/wire/TlvWalk.h"

#include <array>

namespace halyard {

namespace {

constexpr const char* BOSVersions =
    "0001000400130003000200010003000100040001000600010008000100090001000A0001000B0001";

// The group of family 0008 runs into that of 0009: this is literally what goes out.
constexpr const char* BOSClientReady =
    "00010004011008E500130003011008E500020001011008E500030001011008E500040001011008E500060001011008E5"
    "000800010104000100090001011008E5000A0001011008E5000B0001011008E5";

constexpr std::array<const char*, 8> BringUpRequests{
    "0001000800000000000800010002000300040005", // rate classes 1 to 5, acknowledged without reading them
    "0001000E00000000000E",
    "00130002000000000002",
    "0013000400000000000D",
    "000200020000000000FE",
    "000300020000000000FF",
    "00040004000000000004",
    "00090002000000000009",
};

// The first UUID stands at each end.
constexpr std::array<const char*, 17> FullCapabilities{
    "094601054C7F11D18222444553540000", "0946134A4C7F11D18222444553540000",
    "0946134B4C7F11D18222444553540000", "0946134D4C7F11D18222444553540000",
    "094613414C7F11D18222444553540000", "094600004C7F11D18222444553540000",
    "094613434C7F11D18222444553540000", "094613FF4C7F11D18222444553540000",
    "094601FF4C7F11D18222444553540000", "094601014C7F11D18222444553540000",
    "094613454C7F11D18222444553540000", "094601024C7F11D18222444553540000",
    "094613464C7F11D18222444553540000", "094613474C7F11D18222444553540000",
    "748F2420628711D18222444553540000", "094613484C7F11D18222444553540000",
    "094601054C7F11D18222444553540000",
};
constexpr const char* SecureIMCapability = "094600014C7F11D18222444553540000";

constexpr const char* FirstProfile =
    "<body bgcolor=\"black\"><font color=\"white\"><b>TillerSock 0.3 Alpha<br><br>";

/// More than a client-ready frame has room for at eight bytes for two of them: what a service repeats beyond
/// that is never seen, and not kept.
constexpr std::size_t MostServiceVersions = 16384;

} // namespace

void TillerSock::HandleFamilies(const std::string& strPacket) {
    auto& versions = service.ServiceVersions; // added to, since a room's own list may be on its way
    for (std::size_t at = BodyAt; at + 1 <= strPacket.size() && versions.Count() < MostServiceVersions;
         at += 2)
        versions.Add(StrToHex(Mid(strPacket, at, 2)));
    TellStage("Requesting Supported Services Versions...");
    SendPacket(0, 2, HexToStr("00010017000000000001") + HexToStr(BOSVersions));
}

void TillerSock::HandleVersions() {
    TellStage("Requesting Rate Limit Information...");
    SendPacket(0, 2, HexToStr("00010006000000000001"));
}

void TillerSock::HandleRates(const std::string& strPacket) {
    if (telling.news) telling.news->RateClasses(0, Mid(strPacket, BodyAt));
    if (Departs(Departure::RateClassesAsTold)) rateTables[0] = RateTable::Read(Mid(strPacket, BodyAt));
    TellStage("Sending Service Requests...");
    for (const char* literal : BringUpRequests) SendPacket(0, 2, HexToStr(literal));
}

void TillerSock::HandleICBMParameters(const std::string& strPacket) {
    auto body = Mid(strPacket, BodyAt);
    // The first two fields overlap by two bytes, and go back that way.
    signOn.ICBMParameters = {Mid(body, 1, 4),  Mid(body, 3, 4),  Mid(body, 7, 2), Mid(body, 9, 2),
                             Mid(body, 11, 2), Mid(body, 13, 2), Mid(body, 15, 2)};
}

void TillerSock::FinishBringUp() {
    TellStage("Login Completed!");
    SendPacket(0, 2, HexToStr("00130007000000000007"));
    SendPacket(0, 2,
               HexToStr("00020004000000000004") + MakeTLV("0005", 2, CapabilityBlock(0)) +
                   MakeTLV("0002", 2, FirstProfile) + MakeTLV("0006", 2, HexToStr("000400020002")));
    std::string parameters;
    for (const auto& field : signOn.ICBMParameters) parameters += field;
    SendPacket(0, 2, HexToStr("00040002000000000002") + parameters);
    SendPacket(0, 2, HexToStr("00010002000000000001") + HexToStr(BOSClientReady));
    if (signOn.LoggedOn) { // back from a migration
        signOn.ServerPaused = false;
        ClearService();
        StartNextRequest();
        return;
    }
    StopLoginTimer();
    signOn.LoggedOn = true;
    if (telling.news) telling.news->SignedOn(signOn.strLoginName);
    events.LoggedIn(signOn.strLoginName, signOn.strLoginEmail, service.strServiceHost);
    ClearService();
}

std::string TillerSock::CapabilityBlock(int mode, const Collection<std::string>& UUIDs) const {
    std::string digits;
    if (mode == 0) {
        if (Settings.LoginFullCaps)
            for (const char* uuid : FullCapabilities) digits += uuid;
        if (Settings.LoginSecureIM) digits += SecureIMCapability;
    }
    if (mode == 1)
        for (const auto& uuid : UUIDs) digits += uuid;
    return HexToStr(digits);
}

void TillerSock::HandlePause() {
    signOn.ServerPaused = true;
    SendPacket(indices.BOSIndex, 2, HexToStr("0001000C00000000000C00010013000200030004000600080009000A000B"));
}

void TillerSock::HandleMigration(const std::string& strPacket) {
    auto rest = Mid(strPacket, IsFlagged(strPacket) ? BodyAt + 8 : BodyAt);
    if (Left(rest, 2) == std::string(2, '\0')) rest.erase(0, 2);
    ClearTLVData();
    ParseTLVs(rest, TLVData);
    WalkTLVs(TLVData, [this](const std::string& type, const std::string& value) {
        if (type == "0005") {
            service.lngServicePort = DefaultPort;
            TakeAddress(value);
        }
        if (type == "0006") service.strServiceCookie = value;
        return true;
    });
    if (Departs(Departure::OneServiceRequest)) signOn.ServerPaused = true; // until it is back
    Sock.Close(indices.BOSIndex);
    ConnectService(indices.BOSIndex);
}

} // namespace halyard
