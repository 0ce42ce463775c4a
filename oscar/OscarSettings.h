#pragma once

// Settings that the whole program shares with the protocol code: how to sign on, and the font of what is
// said.

#include <string>

namespace halyard {

struct OscarSettings {
    bool LoginMD5 = true;
    bool LoginFullCaps = true;
    bool LoginSecureIM = true;

    std::string FontBGColor;
    std::string FontColor;
    std::string FontType;
    std::string FontBold;      ///< the tag, or nothing
    std::string FontItalics;   ///< the tag, or nothing
    std::string FontUnderline; ///< the tag, or nothing
    std::string FontStrike;    ///< the tag, or nothing
    std::string FontHeader;    ///< the HTML before every chat line

    /// Stores the seven font strings and builds FontHeader from them.
    void BuildFontHeader(const std::string& bgColor, const std::string& color, const std::string& type,
                         const std::string& bold, const std::string& italics, const std::string& underline,
                         const std::string& strike);
};

} // namespace halyard
