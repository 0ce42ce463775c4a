#pragma once

// The lines by which the program names itself. Each is composed from single letters at run time and held as
// hex digits, so that nobody finds or changes it by editing the program's file. The main window owns the one
// set.

#include <string>

namespace halyard {

class Banners {
  public:
    Banners();

    std::string Title() const;
    std::string Creator() const;
    std::string Edition() const;
    std::string Availability() const; ///< where the program can be had
    /// The HTML of the profile up to the place of the current user.
    std::string ProfilePrefix() const;
    /// What the bot says of itself when it enters a room.
    std::string Advert() const;

  private:
    std::string title, creator, edition, availability, profilePrefix, advert; // hex digits
};

} // namespace halyard
