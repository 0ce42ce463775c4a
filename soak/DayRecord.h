#pragma once

// What a run did, as one number: everything that the network and the operator could see, in order. Two builds
// that do the same have the same digest; where they don't, their traces show the first difference.

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace halyard {

class frmMain;
class SimFiles;

class DayRecord {
  public:
    /// Hears of everything that goes into the digest: what it is, such as "sends" or "chkAWOn", and its
    /// bytes.
    std::function<void(std::string_view kind, std::string_view bytes)> onNote;

    void Note(std::string_view kind, std::string_view bytes);
    /// Every control that the main window shows, with its text, lines, value and state.
    void NoteWindow(frmMain& window);
    /// Every file of the desk's and its bytes.
    void NoteFiles(const SimFiles& disk);
    /// FNV-1a, 64 bits, as sixteen hex digits.
    std::string Digest() const;

  private:
    void Absorb(std::string_view bytes);

    std::uint64_t digest = 0xCBF29CE484222325;
};

} // namespace halyard
