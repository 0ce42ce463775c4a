#pragma once

// The doors of the desk, as its panels and its console have them. The bridge owns the one.

#include "bridge/Doors.h"

namespace halyard {

class frmMain;

class DeskDoors : public Doors {
  public:
    /// `main` outlives it.
    explicit DeskDoors(frmMain& main) : main(main) {}

    bool AddEntry(ListName list, const std::string& entry) override;
    bool RemoveEntry(ListName list, const std::string& entry) override;
    bool SetOption(const std::string& key, const std::string& value) override;
    BanOutcome Ban(std::int16_t room, const std::string& name) override;
    BanOutcome Unban(std::int16_t room, const std::string& name) override;

  private:
    bool SetPerms(const std::string& op, const std::string& perms);
    bool SetCcom(int index, const std::string& word);
    bool SetChatSend(int index, const std::string& text);

    frmMain& main;
};

} // namespace halyard
