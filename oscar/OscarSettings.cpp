#include "oscar/OscarSettings.h"

namespace halyard {

void OscarSettings::BuildFontHeader(const std::string& bgColor, const std::string& color,
                                    const std::string& type, const std::string& bold,
                                    const std::string& italics, const std::string& underline,
                                    const std::string& strike) {
    FontBGColor = bgColor;
    FontColor = color;
    FontType = type;
    FontBold = bold;
    FontItalics = italics;
    FontUnderline = underline;
    FontStrike = strike;
    FontHeader = "<HTML><BODY BGCOLOR=\"" + bgColor + "\"><FONT COLOR=\"" + color + "\" FACE=\"" + type +
                 "\" LANG=\"0\">" + bold + italics + underline + strike;
}

} // namespace halyard
