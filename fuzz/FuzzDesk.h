#pragma once

// What all fuzz targets share: the whole bot without a window, signed on by hand-fed bytes, with ops,
// immunes, autobans and autowords, and in one room.

#include "fuzz/FedPlatform.h"
#include "fuzz/Input.h"
#include "surface/frmMain.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace halyard::fuzz {

std::string Flap(std::string_view body, int channel = 2);
/// `familyAndSubtype` in eight hex digits; flags and request id are 0.
std::string Snac(const char* familyAndSubtype, std::string_view body);

class FuzzDesk {
  public:
    SimWorld world{1};
    FedPlatform platform{world};
    frmMain window{platform};
    TillerSock& control = window.Control();

    FuzzDesk() { window.Form_Load(); }

    void Feed(int socket, std::string_view bytes);
    void Fail(int socket);
    /// Lets virtual time pass, but no more than two minutes for an input: more would only make it slow.
    void Wait(std::int64_t milliseconds);

    /// On line since two seconds and more in the room "lobby" on socket 1, as its owner, with Boss and a
    /// guest.
    void SignOnAndJoin();
    /// The same unless the bot is there already.
    void BeInLobby();
    /// Entries on every list, and every watch of the auto-moderation on.
    void FillLists();

  private:
    friend FuzzDesk& KeptDesk(const std::uint8_t* data, std::size_t size);

    void Enter(const std::string& name);

    std::int64_t waited = 0; // for this input
    bool filled = false;
};

/// The desk for this input. It serves 64 inputs, or HALYARD_FUZZ_INPUTS, one after the other, because making
/// one takes longer than most inputs do. So a finding may need those before it: all that a desk was given is
/// written to the file that HALYARD_FUZZ_RECORD names, and a target plays the file that HALYARD_FUZZ_REPLAY
/// names before it begins.
FuzzDesk& KeptDesk(const std::uint8_t* data, std::size_t size);

/// Adds to the file that HALYARD_FUZZ_RECORD names, begun anew with the first input of a desk. Without one
/// nothing is kept.
void KeepOnRecord(std::string_view input, bool first);

} // namespace halyard::fuzz
