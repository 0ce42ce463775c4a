#include "surface/bridge/LedgerDesk.h"

#include "bridge/NewsFan.h"
#include "commands/CommandContext.h"
#include "platform/Platform.h"
#include "surface/frmMain.h"

#include <utility>

namespace halyard {

LedgerDesk::Parts::Parts(frmMain& main, Doors& doors)
    : ledger(main.Context().platform, main.options),
      messages(main.Context().platform, main.Control()),
      undo(main.Context().platform, main.Control(), doors, ledger, messages),
      answers(main.Context().platform, main.options, ledger, undo, messages),
      appeals(main.Context().platform, main.Control(), ledger, messages) {}

LedgerDesk::LedgerDesk(frmMain& main, NewsFan& heard, std::function<void(const std::string&)> tell)
    : main(main), heard(heard), tell(std::move(tell)), doors(main) {}

LedgerDesk::~LedgerDesk() { End(); }

std::string LedgerDesk::Path() const {
    auto& files = main.Context().platform.FileSystem();
    const auto place = files.BridgeFolder();
    return place.empty() ? "" : place + files.Separator() + "ledger.db";
}

void LedgerDesk::Take(const LedgerTerms& terms) {
    if (!terms.keep)
        End();
    else if (!parts)
        Begin();
    if (!parts) return;
    parts->ledger.KeepEvidence(terms.evidence);
    parts->answers.on = terms.answers;
    parts->appeals.terms = terms;
}

void LedgerDesk::Begin() {
    auto& files = main.Context().platform.FileSystem();
    const auto place = files.BridgeFolder();
    if (place.empty()) return tell("No ledger is kept: there is no folder for it.");
    files.MakeFolder(place);
    files.MakePrivate(place);
    folder = files.Hold(place + files.Separator() + "halyard.lock", "Halyard's window\n");
    if (!folder)
        return tell("No ledger is kept here: another window has " + place + ", or it can't be written.");
    parts = std::make_unique<Parts>(main, doors);
    auto& [ledger, messages, undo, answers, appeals] = *parts;
    ledger.network = network;
    ledger.onTell = tell;
    appeals.onAppeal = [this](std::size_t count, const std::string& name) {
        tell(name + " appeals (appeal " + std::to_string(count) + " since the start): see the ledger.");
    };
    answers.onHealth = [this] { return Health(); };
    heard.Add(appeals);
    heard.Add(answers);
    heard.Add(undo);
    heard.SetFirst(&ledger);
    ledger.Start(Path(), HALYARD_VERSION);
}

void LedgerDesk::End() {
    if (!parts) return;
    heard.SetFirst(nullptr);
    heard.Remove(parts->undo);
    heard.Remove(parts->answers);
    heard.Remove(parts->appeals);
    parts.reset();
    folder.reset();
}

void LedgerDesk::SetNetwork(const std::string& name) {
    network = name;
    if (parts) parts->ledger.network = name;
}

std::string LedgerDesk::Health() const {
    if (!parts->ledger.Records()) return "The ledger isn't open.";
    const auto appeals = parts->appeals.Count();
    return "The ledger is kept" + (appeals == 0 ? "." : ", " + std::to_string(appeals) + " appeals came.");
}

} // namespace halyard
