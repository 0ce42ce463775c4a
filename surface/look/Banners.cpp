#include "surface/look/Banners.h"

#include "base/Letters.h"
#include "oscar/TillerSock.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "state/Options.h"
#include "surface/SurfaceContext.h"

namespace halyard {

Banners::Banners() {
    title = StrToHex(FromLetters({'H', 'a', 'l', 'y', 'a', 'r', 'd', ' ', 'C', 'o',
                                  'n', 't', 'r', 'o', 'l', ' ', 'D', 'e', 's', 'k'}));
    creator = StrToHex(FromLetters({'M', 'a', 'd', 'e', ' ', 'b', 'y', ' ', 'T', 'i', 'l', 'l', 'e', 'r'}));
    edition = StrToHex(FromLetters({'H', 'a', 'l', 'y', 'a', 'r', 'd', ' ', '2', '.', '0',
                                    ' ', '(', 'B', 'e', 't', 'a', ' ', '1', '.', '0', ')'}));
    availability = StrToHex(FromLetters({'G', 'e', 't', ' ', 'i', 't', ' ', 'a', 't', ' ', 'h', 'a', 'l', 'y',
                                         'a', 'r', 'd', '.', 'h', 'o', 'm', 'e', '.', 'a', 'r', 'p', 'a'}));
    advert = StrToHex(
        FromLetters({'H', 'a', 'l', 'y', 'a', 'r', 'd', ' ', 'u', 'n', 'd', 'e', 'r', ' ', 'w', 'a', 'y'}));
    profilePrefix =
        StrToHex("<HTML><BODY BGCOLOR=\"000000\"><FONT COLOR=\"00bfff\">" + Title() + "<BR><BR>" + Creator() +
                 "<BR>" + Availability() + "<BR><BR>" + Edition() + "<HR>User: <font color=\"red\">");
}

std::string Banners::Title() const { return HexToStr(title); }
std::string Banners::Creator() const { return HexToStr(creator); }
std::string Banners::Edition() const { return HexToStr(edition); }
std::string Banners::Availability() const { return HexToStr(availability); }
std::string Banners::ProfilePrefix() const { return HexToStr(profilePrefix); }
std::string Banners::Advert() const { return HexToStr(advert); }

void SendProfile(const SurfaceContext& context) {
    context.control.SetProfile(context.banners.ProfilePrefix() + context.options.strCurrentUser);
}

} // namespace halyard
