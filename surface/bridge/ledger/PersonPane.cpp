#include "surface/bridge/ledger/PersonPane.h"

#include "base/Latin1.h"
#include "base/Text.h"
#include "platform/Platform.h"
#include "surface/bridge/ledger/ActText.h"
#include "surface/look/ControlArrays.h"

#include <algorithm>

namespace halyard {

PersonPane::PersonPane(const SurfaceContext& context, LedgerHooks& hooks)
    : context(context), hooks(hooks), question(hooks.read) {
    txtNote.KeyPress = [this](int key) {
        if (key == EnterKey) AddNote();
    };
    cmdAddNote.Click = [this] { AddNote(); };
    cmdBan.Click = [this] { InRoom(this->hooks.ban, "is to be banned"); };
    cmdUnban.Click = [this] { InRoom(this->hooks.unban, "is to be let in again"); };
    cmdImmune.Click = [this] { Did("is immune now", this->hooks.immune(Name())); };
    cmdForget.Click = [this] { Forget(); };
    cmbRoom.Click = [this](int) { SwitchButtons(); };
    SwitchButtons();
}

void PersonPane::Show(std::int64_t row, const std::string& name) {
    page = {};
    txtPerson.SetText(row == 0 && name.empty() ? "Type a name above." : "");
    SwitchButtons();
    if (row == 0 && name.empty()) return question.Drop();
    question.Ask(
        [row, name](Connection& connection) {
            return ReadPerson(connection, row != 0 ? row : FindPerson(connection, name));
        },
        [this](const DatabaseResult& result, const std::optional<PersonPage>& found) {
            if (result.Ok()) return Took(found);
            txtPerson.SetText(Readable(result.words));
        });
}

void PersonPane::Refresh() {
    if (page.person != 0) Show(page.person, {});
}

void PersonPane::Took(const std::optional<PersonPage>& found) {
    if (!found) return txtPerson.SetText("The ledger knows nobody of that name.");
    page = *found;
    txtPerson.SetText(PersonWords(page, hooks.roomsOf ? hooks.roomsOf(Name()) : std::vector<std::string>()));
    OfferRooms();
    SwitchButtons();
}

/// Those that are open; the one that was chosen stays it.
void PersonPane::OfferRooms() {
    const auto chosen = cmbRoom.Text();
    rooms.clear();
    if (hooks.rooms) rooms = hooks.rooms();
    std::vector<std::string> names;
    for (const auto& room : rooms) names.push_back(room.second);
    const auto at = std::find(names.begin(), names.end(), chosen);
    const auto index = at != names.end() ? static_cast<int>(at - names.begin()) : names.empty() ? -1 : 0;
    cmbRoom.SetItems(names, index);
}

void PersonPane::SwitchButtons() {
    const bool known = page.person != 0;
    const bool named = known && !page.key.empty();
    const bool inRoom = named && cmbRoom.Index() >= 0;
    cmdBan.SetEnabled(inRoom && hooks.ban);
    cmdUnban.SetEnabled(inRoom && hooks.unban);
    cmdImmune.SetEnabled(named && hooks.immune);
    cmdForget.SetEnabled(named && hooks.forget);
    cmdAddNote.SetEnabled(named && hooks.addNote);
}

/// The chosen room's slot may have gone to another room since it was offered.
void PersonPane::InRoom(const std::function<std::string(std::int16_t, const std::string&)>& door,
                        const std::string& did) {
    const auto room = rooms[static_cast<std::size_t>(cmbRoom.Index())];
    const auto open = hooks.rooms();
    const bool still = std::find(open.begin(), open.end(), room) != open.end();
    Did(did, still ? door(room.first, Name()) : room.second + " is no longer open.");
}

std::string PersonPane::Name() const { return FromUtf8(page.name); }

void PersonPane::Did(const std::string& what, const std::string& whyNot) {
    if (onHappened) onHappened(whyNot.empty() ? Readable(page.name) + " " + what + "." : whyNot);
    Refresh();
}

void PersonPane::AddNote() {
    const auto text = Trim(txtNote.Text());
    if (!cmdAddNote.Enabled() || text.empty()) return;
    hooks.addNote(page.person, text, [this](const std::string& words) {
        if (!words.empty() && onHappened) onHappened(words);
        Refresh();
    });
    txtNote.SetText("");
}

void PersonPane::Forget() {
    const auto name = Readable(page.name);
    const auto question = "Forget " + name +
                          "? Notes, lines and the name go from the ledger for good; the acts stay, under a "
                          "number. Generations, backups and exports still hold the name.";
    if (!context.platform.Boxes().YesNo("Forget", question)) return;
    hooks.forget(page.person, [this, name](const std::string& words) {
        if (onHappened) onHappened(words.empty() ? name + " is forgotten." : words);
        Refresh();
    });
}

} // namespace halyard
