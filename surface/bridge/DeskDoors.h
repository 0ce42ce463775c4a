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
    bool IsLocked(const std::string& name) const override;
    RuleKind WouldHit(const std::string& name, const std::string& line,
                      const std::string& without) const override;

  private:
    frmMain& main;
};

} // namespace halyard
