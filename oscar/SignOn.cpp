// From Login to the connection with BOS: the hashed dialogue (family 0017) and the roasted one (channels 1
// and 4).

#include "oscar/TillerSock.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "oscar/wire/TlvWalk.h"

#include <algorithm>
#include <array>
#include <utility>

namespace halyard {

namespace {

/// What the client says it is, the same in both dialogues.
std::string IdentityTLVs() {
    return MakeTLV("0003", 2, "AOL Instant Messenger, version 5.5.3599/WIN32") +
           MakeTLV("0016", 2, WordToStr(265)) + MakeTLV("0017", 2, WordToStr(5)) +
           MakeTLV("0018", 2, WordToStr(5)) + MakeTLV("0019", 2, WordToStr(0)) +
           MakeTLV("001A", 2, WordToStr(3599)) + MakeTLV("0014", 2, LongToStr(266)) +
           MakeTLV("000F", 2, "en") + MakeTLV("000E", 2, "us");
}

std::string LoginErrorText(int code) {
    static constexpr std::array<std::pair<int, const char*>, 8> texts{{
        {1, "Unregistered screenname."},
        {4, "Invalid screenname."},
        {5, "The password you entered is not valid."},
        {8, "Account deleted."},
        {17, "Sign on blocked."},
        {24, "Rate limit exceeded. Please try again later"},
        {29, "You are attempting to sign on again too soon."},
        {42, "Unknown login error."},
    }};
    auto found =
        std::find_if(texts.begin(), texts.end(), [code](const auto& entry) { return entry.first == code; });
    return found == texts.end() ? "Unknown Error." : found->second;
}

} // namespace

void TillerSock::Login(const std::string& strUser, const std::string& strPassword, std::int32_t lngPort,
                       bool blnMD5Login, bool blnInvisible, const std::string& strAuthServer) {
    // The caller's texts may be the control's own, which the reset empties.
    auto user = strUser;
    auto password = strPassword;
    auto host = NormalizeName(strAuthServer);
    ResetAll();
    if (telling.news) telling.news->SignOnBegun(user);
    signOn.strLoginName = user;
    signOn.strLoginPassword = password;
    signOn.strAuthHost = host;
    service.lngServicePort = lngPort;
    signOn.UseMD5Reply = blnMD5Login;
    signOn.LoginInvisible = blnInvisible;
    signOn.OnAuthServer = true;
    Sock.SetTag(0, "[Auth]connecting");
    TellStage("Connecting to Auth server...");
    tmrTimeout->SetEnabled(true);
    if (Departs(Departure::OneServiceRequest)) ownService[0] = service;
    if (Departs(Departure::Tls)) signOn.tls = TlsTerms{BareHost(host), strPin};
    Sock.Connect(0, signOn.strAuthHost, service.lngServicePort, signOn.tls);
}

void TillerSock::HandleHello(int Index) {
    if (signOn.OnAuthServer) signOn.strPeer = Sock.RemoteAddress(Index);
    if (!signOn.OnAuthServer) {
        if (!signOn.LoggedOn) TellStage("Sending Ack and Cookie to BOS Server...");
        SendCookie(Index);
        return;
    }
    if (Settings.LoginMD5) {
        TellStage("Sending Ack to Auth Server...");
        SendPacket(Index, 1, HexToStr("00000001"));
        TellStage("Requesting Auth Key...");
        SendPacket(Index, 2, HexToStr("001700060000000000010001") + MakeTLV("", 2, signOn.strLoginName));
        return;
    }
    TellStage("Sending roasted login...");
    // The roasted password goes out under type 0025 too, as laid down.
    const auto* type = Departs(Departure::RoastedPasswordType) ? "0002" : "0025";
    SendPacket(Index, 1,
               HexToStr("00000001") + MakeTLV("0001", 2, signOn.strLoginName) +
                   MakeTLV(type, 2, Secrets.Roast(signOn.strLoginPassword)) + IdentityTLVs());
}

void TillerSock::SendCookie(int Index) {
    SendPacket(Index, 1, HexToStr("00000001") + MakeTLV("0006", 2, service.strServiceCookie));
}

void TillerSock::HandleAuthKey(const std::string& strPacket) {
    auto length = static_cast<unsigned char>(strPacket.size() >= 18 ? strPacket[17] : 0);
    auto hash = Secrets.Hash(Mid(strPacket, 19, length), signOn.strLoginPassword);
    TellStage("Sending Login Information...");
    SendPacket(0, 2,
               HexToStr("00170002000000000001") + MakeTLV("0001", 2, signOn.strLoginName) +
                   MakeTLV("0025", 2, hash) + MakeTLV("004C", 2, "") + IdentityTLVs() +
                   MakeTLV("004A", 2, ByteToStr(1)));
}

void TillerSock::HandleAuthReply(std::string strTLVs, bool blnMD5) {
    std::string error;
    bool failed = false;
    ClearTLVData();
    ParseTLVs(strTLVs, TLVData);
    WalkTLVs(TLVData, [&](const std::string& type, const std::string& value) {
        if (type == "0001") signOn.strLoginName = value;
        if (type == "0005") TakeAddress(value);
        if (type == "0006") service.strServiceCookie = value;
        if (type == "0011") signOn.strLoginEmail = value;
        if (type == "0008") {
            failed = true;
            error = Mid(value, 2, 1);
        }
        return !failed;
    });
    if (failed) {
        int code = error.empty() ? 0 : static_cast<unsigned char>(error[0]);
        if (blnMD5) StopLoginTimer(); // the roasted reply leaves it running
        TellLoginError(LoginErrorText(code), code);
        ClearTLVData();
        ResetAll();
        return;
    }
    ClearTLVData();
    if (StopAtAuthAnswer) return LogOff();
    Sock.Close(0);
    signOn.OnAuthServer = false;
    Sock.SetTag(0, "[BOS]connecting");
    TellStage("Connecting to BOS Server...");
    ConnectService(0);
}

} // namespace halyard
