#pragma once

namespace halyard {

inline constexpr const char* SitePage = "https://halyard.home.arpa/";
inline constexpr const char* HelpFile = "Halyard_Help.htm";
inline constexpr const char* HelpPage = "https://halyard.home.arpa/Halyard_Help.htm";
inline constexpr const char* ColorPage = "https://halyard.home.arpa/colors.htm";

} // namespace halyard
