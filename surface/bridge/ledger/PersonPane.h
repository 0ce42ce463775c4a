#pragma once

// A person as the ledger knows them, and what may be done about them. The window Ledger owns the one.

#include "bridge/ledger/reading/Views.h"
#include "platform/Controls.h"
#include "surface/SurfaceContext.h"
#include "surface/bridge/ledger/LedgerHooks.h"

#include <string>

namespace halyard {

class PersonPane {
  public:
    /// Both outlive it.
    PersonPane(const SurfaceContext& context, LedgerHooks& hooks);

    Frame FramePerson{"FramePerson", "Person"};
    TextBox txtPerson{"txtPerson"}; ///< read only
    TextBox txtNote{"txtNote", "", 1000};
    Button cmdAddNote{"cmdAddNote", "Add Note"};
    Label lblRoom{"lblRoom", "Room"};
    ChoiceBox cmbRoom{"cmbRoom"};
    Button cmdBan{"cmdBan", "Ban"};
    Button cmdUnban{"cmdUnban", "Unban"};
    Button cmdImmune{"cmdImmune", "Immune"};
    Button cmdForget{"cmdForget", "Forget\x85"};

    /// Something has become of the person, or of a wish about them.
    std::function<void(const std::string& words)> onHappened;
    /// `row` of persons, or when that is 0 whoever has the name (UTF-8); nobody for an empty one.
    void Show(std::int64_t row, const std::string& name);
    /// The same person as they are now.
    void Refresh();

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(FramePerson), visit(txtPerson), visit(txtNote), visit(cmdAddNote), visit(lblRoom);
        visit(cmbRoom), visit(cmdBan), visit(cmdUnban), visit(cmdImmune), visit(cmdForget);
    }

  private:
    void Took(const std::optional<PersonPage>& found);
    void OfferRooms();
    void SwitchButtons();
    void InRoom(const std::function<std::string(std::int16_t, const std::string&)>& door,
                const std::string& did);
    std::string Name() const;
    void Did(const std::string& what, const std::string& whyNot);
    void AddNote();
    void Forget();

    const SurfaceContext& context;
    LedgerHooks& hooks;
    LedgerQuestion question;
    PersonPage page; ///< row 0 for nobody
    std::vector<std::pair<std::int16_t, std::string>> rooms;
};

} // namespace halyard
