#include "practice/Levers.h"

#include "base/Text.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "practice/World.h"
#include "practice/service/Messages.h"
#include "practice/service/RoomTraffic.h"
#include "practice/service/Services.h"

namespace halyard {

namespace {
constexpr int defaultExchange = 4;
}

Room* PracticeLevers::RoomOf(const std::string& name) {
    if (auto room = world.rooms.FindName(name)) return room;
    return world.rooms.FindOrCreate(defaultExchange, 0, name, world.options.maxPeople);
}

void PracticeLevers::WithBos(const std::string& name, const std::function<void(PracticeConnection&)>& act) {
    auto person = world.people.Find(name);
    if (person && person->bos) act(*person->bos);
}

void PracticeLevers::WithMember(const std::string& room, const std::string& name,
                                const std::function<void(PracticeConnection&)>& act) {
    auto found = world.rooms.FindName(room);
    auto member = found ? found->Find(name) : nullptr;
    if (member && member->connection) act(*member->connection);
}

void PracticeLevers::BringOnLine(const std::string& name) {
    if (!world.people.Find(name)) world.people.Enter(name, world.Now()).scripted = true;
}

bool PracticeLevers::Enter(const std::string& room, const std::string& name) {
    auto found = RoomOf(room);
    if (!found) return false;
    BringOnLine(name);
    auto word = RefusalOf(*found, name);
    if (word == 0) return EnterRoom(world, *found, name, nullptr), true;
    auto why = word == 0x004A ? "kept out" : word == 0x002E ? "in already" : "the room is full";
    world.Note(found->name, name, std::string("cannot come in: ") + why);
    return false;
}

void PracticeLevers::Leave(const std::string& room, const std::string& name) {
    auto found = world.rooms.FindName(room);
    auto member = found ? found->Find(name) : nullptr;
    if (member && !member->connection) LeaveRoom(world, *found, name);
}

void PracticeLevers::Say(const std::string& room, const std::string& name, const std::string& text) {
    auto found = world.rooms.FindName(room);
    if (!found || !found->Find(name)) return;
    world.Note(found->name, name, "says " + text);
    SayInRoom(world, *found, name, std::string(8, '\0'), TextBlock(world, text), nullptr, 0);
}

void PracticeLevers::Message(const std::string& from, const std::string& to, const std::string& text) {
    BringOnLine(from);
    DeliverText(world, from, to, text);
}

void PracticeLevers::Ban(const std::string& room, const std::string& by, const std::string& target) {
    auto found = world.rooms.FindName(room);
    if (found && BanRefusal(*found, by, target) == 0) BanFromRoom(world, *found, by, target);
}

void PracticeLevers::Unban(const std::string& room, const std::string& by, const std::string& target) {
    auto found = world.rooms.FindName(room);
    if (found && BanRefusal(*found, by, target) == 0) UnbanFromRoom(world, *found, by, target);
}

void PracticeLevers::SetMaxPeople(const std::string& room, int people) {
    if (auto found = RoomOf(room)) found->maxPeople = people;
}

void PracticeLevers::SetOwner(const std::string& room, const std::string& name) {
    if (auto found = RoomOf(room)) found->owner = name;
}

void PracticeLevers::Fill(const std::string& room) {
    auto found = RoomOf(room);
    for (int number = 1; found && !found->IsFull(); ++number) {
        auto name = "crowd" + std::to_string(number);
        if (RefusalOf(*found, name) == 0) Enter(room, name);
    }
}

void PracticeLevers::CloseRoom(const std::string& room) {
    if (auto found = world.rooms.FindName(room)) halyard::CloseRoom(world, *found, "the network");
}

void PracticeLevers::SetRate(const std::string& room, const std::string& name, int classId, RateCode code) {
    if (classId < 1 || classId > 5) return;
    WithMember(room, name, [&](PracticeConnection& connection) {
        connection.rates.Force(classId, code);
        SendRateNotice(world, connection, classId, code);
    });
}

void PracticeLevers::Pause(const std::string& name) {
    WithBos(name, [&](PracticeConnection& bos) {
        world.Note("", name, "is paused");
        bos.SendSnac(0x0001, 0x000B, 0, "");
    });
}

void PracticeLevers::Resume(const std::string& name) {
    WithBos(name, [&](PracticeConnection& bos) {
        world.Note("", name, "is resumed");
        bos.SendSnac(0x0001, 0x000D, 0, "");
    });
}

void PracticeLevers::Migrate(const std::string& name) {
    WithBos(name, [&](PracticeConnection& bos) {
        world.Note("", name, "is sent to migrate");
        bos.migrating = true;
        auto cookie = world.NewCookie({.name = bos.name, .service = Service::Bos, .migration = true});
        bos.SendSnac(0x0001, 0x0012, 0,
                     WordToStr(0) + Tlv(0x0005, world.RedirectAddress()) + Tlv(0x0006, cookie));
        if (!world.options.Has(Departure::OneServiceRequest)) return;
        bos.SendSnac(0x0001, 0x000D, 0,
                     ""); // to whom it may concern: it is over, and nobody waits to be left
        world.Dismiss(bos);
    });
}

void PracticeLevers::Drop(const std::string& name) {
    WithBos(name, [&](PracticeConnection& bos) { world.Forget(bos); });
}

void PracticeLevers::SignOff(const std::string& name) {
    WithBos(name, [&](PracticeConnection& bos) { world.Dismiss(bos); });
}

void PracticeLevers::SignOffElsewhere(const std::string& name, bool inFourBytes) {
    WithBos(name, [&](PracticeConnection& bos) {
        world.Note("", name, "has signed on elsewhere");
        world.Dismiss(bos, inFourBytes ? WordToStr(0x0009) + WordToStr(1) : ElsewhereBody());
    });
}

void PracticeLevers::Stop(int seconds) {
    world.closedUntil = world.Now() + seconds * 1000LL;
    world.EachConnection([this](PracticeConnection& connection) { world.Dismiss(connection); });
}

void PracticeLevers::DropFromRoom(const std::string& room, const std::string& name) {
    WithMember(room, name, [&](PracticeConnection& connection) { world.Forget(connection); });
}

void PracticeLevers::SignOffFromRoom(const std::string& room, const std::string& name) {
    WithMember(room, name, [&](PracticeConnection& connection) { world.Dismiss(connection); });
}

void PracticeLevers::FallSilent(const std::string& name) {
    world.Note("", name, "hears nothing more");
    world.EachConnection([&name](PracticeConnection& connection) {
        if (SameName(connection.name, name)) connection.silent = true;
    });
}

void PracticeLevers::EachSocket(const std::string& name, const std::function<void(const Socket&)>& visit) {
    world.EachConnection([&](PracticeConnection& connection) {
        if (SameName(connection.name, name)) visit(connection.Raw());
    });
}

void PracticeLevers::RefuseNextSignOn(int code) { world.refusals.signOn = code; }
void PracticeLevers::RefuseNextCreation(int word) { world.refusals.creation = word; }
void PracticeLevers::RefuseNextJoin(int word) { world.refusals.join = word; }

void PracticeLevers::SetManagementMood(ManagementMood mood) { world.mood = mood; }

void PracticeLevers::SetAddress(const std::string& name, const std::string& address) {
    world.addresses[NormalizeName(name)] = address;
}

bool PracticeLevers::IsSuspended(const std::string& name) const {
    return world.suspended.contains(NormalizeName(name));
}

} // namespace halyard
