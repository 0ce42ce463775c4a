#include "surface/bridge/LedgerHost.h"

#include "bridge/NewsFan.h"
#include "commands/CommandContext.h"
#include "platform/Platform.h"
#include "surface/frmMain.h"

#include <utility>

namespace halyard {

LedgerHost::Parts::Parts(frmMain& main, Doors& doors)
    : ledger(main.Context().platform, main.options), keeper(main.Context().platform, ledger),
      messages(main.Context().platform, main.Control()),
      undo(main.Context().platform, main.Control(), doors, ledger, messages),
      answers(main.Context().platform, main.options, ledger, undo, messages),
      appeals(main.Context().platform, main.Control(), ledger, messages) {}

LedgerHost::LedgerHost(frmMain& main, NewsFan& heard, std::function<void(const std::string&)> tell)
    : main(main), heard(heard), tell(std::move(tell)), doors(main) {}

LedgerHost::~LedgerHost() { End(); }

std::string LedgerHost::Path() const {
    auto& files = main.Context().platform.FileSystem();
    const auto place = files.BridgeFolder();
    return place.empty() ? "" : place + files.Separator() + "ledger.db";
}

void LedgerHost::Take(const LedgerTerms& terms) {
    if (!terms.keep)
        End();
    else if (!parts)
        Begin();
    if (!parts) return;
    parts->ledger.KeepEvidence(terms.evidence);
    parts->keeper.days = {terms.textDays, terms.actDays};
    parts->answers.on = terms.answers;
    parts->appeals.terms = terms;
}

void LedgerHost::Begin() {
    auto& files = main.Context().platform.FileSystem();
    const auto place = files.BridgeFolder();
    if (place.empty()) return tell("No ledger is kept: there is no folder for it.");
    files.MakeFolder(place);
    files.MakePrivate(place);
    folder = files.Hold(place + files.Separator() + "halyard.lock", "Halyard's window\n");
    if (!folder)
        return tell("No ledger is kept here: another window has " + place + ", or it can't be written.");
    parts = std::make_unique<Parts>(main, doors);
    auto& [ledger, keeper, messages, undo, answers, appeals] = *parts;
    ledger.network = network;
    ledger.onTell = tell;
    ledger.onHealth = [this](bool works, const std::string& words) {
        if (onHealth) onHealth(works, words);
    };
    appeals.onAppeal = [this](std::size_t count, const std::string& name) {
        tell(name + " appeals (appeal " + std::to_string(count) + " since the start): see the ledger.");
    };
    answers.onHealth = [this] { return Health(); };
    heard.Add(appeals);
    heard.Add(answers);
    heard.Add(undo);
    heard.SetFirst(&ledger);
    ledger.Start(Path(), HALYARD_VERSION);
    keeper.Start();
}

void LedgerHost::End() {
    if (!parts) return;
    heard.SetFirst(nullptr);
    heard.Remove(parts->undo);
    heard.Remove(parts->answers);
    heard.Remove(parts->appeals);
    parts.reset();
    folder.reset();
    if (onHealth) onHealth(true, "None is kept.");
}

void LedgerHost::SetNetwork(const std::string& name) {
    network = name;
    if (parts) parts->ledger.network = name;
}

std::string LedgerHost::Health() const {
    if (!parts->ledger.Records()) return "The ledger isn't open.";
    const auto appeals = parts->appeals.Count();
    return "The ledger is kept" + (appeals == 0 ? "." : ", " + std::to_string(appeals) + " appeals came.");
}

} // namespace halyard
