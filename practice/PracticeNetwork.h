#pragma once

// A small OSCAR service for one machine: any name and any password may sign on, chat, own rooms and ban. It
// runs on whatever platform it is given, real sockets or simulated ones, and serves other people's clients as
// well as the bot. Rooms have people of their own when a script is played.

#include "practice/Journal.h"
#include "practice/Options.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace halyard {

class Platform;
class PracticeLevers;
struct Script;

class PracticeNetwork {
  public:
    PracticeNetwork(Platform& platform, PracticeOptions options);
    ~PracticeNetwork();
    PracticeNetwork(const PracticeNetwork&) = delete;
    PracticeNetwork& operator=(const PracticeNetwork&) = delete;

    /// Everything that happens, as it happens.
    PracticeListener onEvent;

    /// Opens the port, and that of the management when there is to be one. False when that is not possible.
    bool Start();
    std::int32_t Port() const;
    /// 0 when there is none.
    std::int32_t ManagementPort() const;
    /// Fills the script's rooms with its people; their clocks run as the script says.
    void Play(const Script& script);
    /// What tests and demonstrations do to the network and its people.
    PracticeLevers& Levers();

    // Rooms are asked for by name, on any exchange; names are compared in lower case without blanks. An
    // unknown room has nobody in it.
    bool IsOnLine(const std::string& name) const;
    bool IsInRoom(const std::string& room, const std::string& name) const;
    bool IsBanned(const std::string& room, const std::string& name) const;
    std::string Owner(const std::string& room) const;
    std::vector<std::string> People(const std::string& room) const; ///< in order of entering
    std::vector<std::string> Bans(const std::string& room) const;   ///< in alphabetical order
    std::size_t Connections() const;

  private:
    struct Parts;
    std::unique_ptr<Parts> parts;
};

} // namespace halyard
