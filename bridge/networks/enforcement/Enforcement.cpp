#include "bridge/networks/enforcement/Enforcement.h"

#include "base/Text.h"
#include "bridge/networks/enforcement/AddressWatch.h"
#include "bridge/networks/enforcement/ManagementWords.h"
#include "bridge/networks/enforcement/PutOutCount.h"
#include "bridge/networks/enforcement/Suspensions.h"
#include "oscar/TillerSock.h"

#include <deque>
#include <map>
#include <set>
#include <utility>

namespace halyard {

namespace {

constexpr int SweepPause = 5000;            // ms
constexpr std::int64_t FramesAreDue = 3000; // ms in which the rooms hear that somebody is gone
constexpr std::int64_t LongWait = 60000;    // ms until what had no effect is tried again
constexpr std::size_t MostNames = 1000;

using RoomRef = std::weak_ptr<Chats>;

/// The service's word that the session is over.
bool IsYes(const HttpAnswer& answer) { return answer.IsGood() || answer.status == 404; }

} // namespace

struct Enforcement::Parts {
    Parts(Platform& platform, TillerSock& control, Hands given);

    std::string WhySpared(const std::string& name) const;
    std::shared_ptr<Chats> Open(const RoomRef& ref) const;
    bool IsListed(const RoomRef& ref, const std::string& name) const;
    void TakeTerms(const ManagementTerms& taken);
    void DropAll(const std::string& why);

    void EndSession(const RoomRef& room, std::int32_t id, const std::string& name);
    void SessionEnded(const RoomRef& room, std::int32_t id, const std::string& name,
                      const HttpAnswer& answer);
    void RefuseSoon(std::int32_t id, const std::string& text);
    void RefuseWaiting();

    void PutOut(const RoomRef& room, const std::string& name, bool cameIn);
    void WasPutOut(const std::string& name, bool cameIn, const HttpAnswer& answer);
    void Sweep();
    void SweepRoom(const std::shared_ptr<Chats>& room);
    void Hold(const std::string& name, const HttpAnswer& answer);

    Platform& platform;
    TillerSock& control;
    Hands hands;
    ManagementTerms terms;
    ManagementLine line;
    EnforcementRecord record;
    Suspensions suspensions;
    AddressWatch watch;
    std::function<void(std::int16_t, const std::string&, const std::string&)> sameAddress;

    std::deque<std::pair<std::int32_t, std::string>> refused; // id, and what is told of it
    std::unique_ptr<Timer> soon;
    std::unique_ptr<Timer> sweeper;

    struct Pause {
        std::int64_t until = 0;
        bool ghost = false; // the management knew of no session
    };
    // By normalised name.
    std::map<std::string, Pause> pauses; // whom the sweep leaves alone for a while
    std::set<std::string> leaving;       // whose being put out waits or is under way
    std::set<std::string> stayed;        // of whom it was told that they can't be put out
    PutOutCount counted;
    bool dropping = false;
    int dropped = 0;
};

Enforcement::Parts::Parts(Platform& platform, TillerSock& control, Hands given)
    : platform(platform), control(control), hands(std::move(given)), line(platform),
      record(platform, hands.folder, [this](const std::string& text) { hands.tell(text); }),
      suspensions(line, record, [this](const std::string& text) { hands.tell(text); }),
      watch(line, record,
            {[this](const RoomRef& room, const std::string& name) { return IsListed(room, name); },
             [this](const RoomRef& ref, const std::string& name, const std::string& other) {
                 if (auto room = Open(ref); room && sameAddress) sameAddress(room->ChatIndex, name, other);
             },
             [this](const std::string& text) { hands.tell(text); }}),
      soon(platform.NewTimer()), sweeper(platform.NewTimer()) {
    if (!hands.tell) hands.tell = [](const std::string&) {};
    soon->SetInterval(1);
    soon->onTick = [this] { RefuseWaiting(); };
    sweeper->SetInterval(SweepPause);
    sweeper->onTick = [this] { Sweep(); };
}

/// Why nothing is done to somebody, in words; empty when it may be.
std::string Enforcement::Parts::WhySpared(const std::string& name) const {
    if (SameName(name, control.SignOnName())) return "that is the bot itself";
    if (hands.spared && hands.spared(name)) return "ops and immunes are never signed off";
    if (!CanBeManaged(name)) return "no server knows such a name";
    return {};
}

/// The room, as long as it is still the one that it was.
std::shared_ptr<Chats> Enforcement::Parts::Open(const RoomRef& ref) const {
    auto room = ref.lock();
    return room && control.Room(room->ChatIndex) == room ? room : nullptr;
}

bool Enforcement::Parts::IsListed(const RoomRef& ref, const std::string& name) const {
    const auto room = Open(ref);
    if (!room) return false;
    for (const auto& list : control.EjectLists)
        if (list->IsOf(room->ChatName, room->Exchange))
            return !list->GetEjects().Item(NormalizeName(name)).empty();
    return false;
}

void Enforcement::Parts::TakeTerms(const ManagementTerms& taken) {
    const auto before = std::exchange(terms, taken);
    auto same = before;
    same.suspend = terms.suspend; // changes nothing that waits
    if (same == terms) return;
    DropAll("other terms hold by now");
    const bool active = terms.enforce || terms.watchAddresses;
    control.ConfirmElsewhere(terms.enforce);
    sweeper->SetEnabled(active);
    if (!active) return void(record.Flush());
    record.Load();
    if (!line.SetPlace(terms.address, terms.header))
        hands.tell("the address of the management or its header makes no sense: nothing is enforced");
    const auto base = ManagementBase(terms.address).value_or("");
    suspensions.SetPlace(base);
    watch.SetPlace(base);
}

/// Told in one sentence, since there may be many.
void Enforcement::Parts::DropAll(const std::string& why) {
    dropping = true;
    dropped = 0;
    line.Drop(why);
    dropping = false;
    leaving.clear();
    if (dropped > 0) hands.tell(std::to_string(dropped) + " bans were not enforced: " + why);
}

void Enforcement::Parts::EndSession(const RoomRef& room, std::int32_t id, const std::string& name) {
    const auto may = [this, id, name] {
        const auto why = WhySpared(name);
        if (!why.empty()) RefuseSoon(id, name + " was not signed off: " + why);
        return why.empty();
    };
    if (!may()) return;
    ManagementCall call{.method = "DELETE", .path = SessionPath(name), .wanted = may};
    call.done = [this, room, id, name](const HttpAnswer& answer) { SessionEnded(room, id, name, answer); };
    if (!line.Add(std::move(call)))
        RefuseSoon(id, name + " was not signed off: there is no management, or too many wait for it");
}

void Enforcement::Parts::SessionEnded(const RoomRef& ref, std::int32_t id, const std::string& name,
                                      const HttpAnswer& answer) {
    if (IsYes(answer) && Open(ref)) {
        Hold(name, answer);
        return control.RequestConfirmed(id);
    }
    control.RequestRefused(id);
    if (dropping) return void(++dropped);
    hands.tell(IsYes(answer) ? name + " was signed off, and is on no list: the room is no longer open"
                             : name + " was not signed off: " + WordsOf(answer));
}

/// Whoever asked goes on first with what follows from asking.
void Enforcement::Parts::RefuseSoon(std::int32_t id, const std::string& text) {
    refused.emplace_back(id, text);
    soon->SetEnabled(true);
}

void Enforcement::Parts::RefuseWaiting() {
    soon->SetEnabled(false);
    for (const auto& [id, text] : std::exchange(refused, {})) {
        control.RequestRefused(id);
        hands.tell(text);
    }
}

/// `cameIn` is false for one who is found in the room later.
void Enforcement::Parts::PutOut(const RoomRef& room, const std::string& name, bool cameIn) {
    const auto key = NormalizeName(name);
    if (!WhySpared(name).empty() || !leaving.insert(key).second) return;
    ManagementCall call{.method = "DELETE", .path = SessionPath(name)};
    call.wanted = [this, room, name, key] {
        const bool still = IsListed(room, name) && WhySpared(name).empty();
        if (!still) leaving.erase(key);
        return still;
    };
    call.done = [this, name, key, cameIn](const HttpAnswer& answer) {
        leaving.erase(key);
        if (!dropping) WasPutOut(name, cameIn, answer);
    };
    if (line.Add(std::move(call))) return;
    leaving.erase(key);
    WasPutOut(name, cameIn, {0, {}, "there is no management, or too many wait for it"});
}

void Enforcement::Parts::WasPutOut(const std::string& name, bool cameIn, const HttpAnswer& answer) {
    const auto key = NormalizeName(name);
    Hold(name, answer);
    if (!IsYes(answer)) {
        if (stayed.size() >= MostNames) stayed.clear();
        if (stayed.insert(key).second)
            hands.tell(name + " is banned, came back and was not signed off: " + WordsOf(answer));
        return;
    }
    stayed.erase(key);
    if (!cameIn || !counted.Add(key, platform.Milliseconds())) return;
    hands.tell(name + " came back and was signed off five times within ten minutes");
    if (terms.suspend) suspensions.Suspend(name);
}

/// Finds those of a list that was loaded, who slipped in while their ban was under way, and whom a failing
/// management left in.
void Enforcement::Parts::Sweep() {
    record.Flush();
    std::erase_if(pauses, [now = platform.Milliseconds()](const auto& each) {
        return each.second.until < now - LongWait;
    });
    if (!terms.enforce || !control.LoggedOn()) return;
    for (const auto& room : control.Chat) SweepRoom(room);
}

void Enforcement::Parts::SweepRoom(const std::shared_ptr<Chats>& room) {
    for (const auto& list : control.EjectLists) {
        if (!list->IsOf(room->ChatName, room->Exchange)) continue;
        if (list->GetEjects().Count() == 0) return;
        for (const auto& person : room->PeopleHere) {
            if (list->GetEjects().Item(person).empty()) continue;
            const auto pause = pauses.find(person);
            if (pause == pauses.end() || pause->second.until <= platform.Milliseconds())
                PutOut(room, person, false);
        }
        return;
    }
}

void Enforcement::Parts::Hold(const std::string& name, const HttpAnswer& answer) {
    if (pauses.size() >= MostNames) pauses.clear();
    auto& pause = pauses[NormalizeName(name)];
    const bool ghost = answer.status == 404;
    const bool idle = !IsYes(answer) || (ghost && pause.ghost);
    pause = {platform.Milliseconds() + (idle ? LongWait : FramesAreDue), ghost};
}

Enforcement::Enforcement(Platform& platform, TillerSock& control, Hands hands)
    : parts(std::make_unique<Parts>(platform, control, std::move(hands))) {
    parts->sameAddress = [this](std::int16_t room, const std::string& name, const std::string& other) {
        if (onSameAddress) onSameAddress(room, name, other);
    };
}

Enforcement::~Enforcement() { parts->record.Flush(); }

void Enforcement::SetTerms(const ManagementTerms& terms) { parts->TakeTerms(terms); }

const ManagementTerms& Enforcement::Terms() const { return parts->terms; }

bool Enforcement::BanByHand(std::int16_t room, const std::string& name) {
    if (const auto why = parts->WhySpared(name); !why.empty()) {
        parts->hands.tell(name + " was not banned: " + why);
        return false;
    }
    return parts->control.BanUser(name, BanKind::Ban, room) != BanOutcome::Dropped;
}

std::size_t Enforcement::Waiting() const { return parts->line.Waiting(); }

void Enforcement::SignedOff() { parts->DropAll("the bot has signed off"); }

void Enforcement::PersonCame(std::int16_t room, const std::string& name) {
    const auto& terms = parts->terms;
    if (!terms.enforce && !terms.watchAddresses) return;
    const RoomRef ref = parts->control.Room(room);
    if (terms.enforce && parts->IsListed(ref, name)) parts->PutOut(ref, name, true);
    if (terms.watchAddresses && parts->WhySpared(name).empty()) parts->watch.Look(ref, name);
}

void Enforcement::BanAsked(std::int16_t room, std::int32_t id, BanRequestKind kind, const std::string& name) {
    if (!parts->terms.enforce) return;
    if (kind == BanRequestKind::Ban)
        parts->EndSession(parts->control.Room(room), id, name);
    else
        parts->suspensions.Lift(name);
}

} // namespace halyard
