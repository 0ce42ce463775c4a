#include "bridge/ledger/Ledger.h"

#include "base/Text.h"
#include "bridge/ledger/Texts.h"
#include "oscar/TillerSock.h"
#include "platform/Platform.h"
#include "state/Options.h"

namespace halyard {

namespace {

constexpr int LineSecond = 1000; ///< ms
constexpr int HoldPause = 2000;  ///< ms in which keystrokes at one control are one change

} // namespace

Ledger::Ledger(Platform& platform, Options& options)
    : platform(platform), options(options), queue(platform), watch(options), holdTimer(platform.NewTimer()),
      lineTimer(platform.NewTimer()) {
    queue.onHealth = [this](bool works, const std::string& words) {
        if (onHealth) onHealth(works, words);
    };
    queue.onTell = [this](const std::string& words) {
        if (onTell) onTell(words);
    };
    queue.onWritten = [this] {
        if (onWritten) onWritten();
    };
    queue.onBatch = [this] { StillWaits(); };
    queue.onGapEnd = [this] { AddWholes(true); };
    holdTimer->SetInterval(HoldPause);
    holdTimer->onTick = [this] { TellHeld(); };
    lineTimer->SetInterval(LineSecond);
    lineTimer->onTick = [this] {
        lineTime = this->platform.CalendarMilliseconds();
        if (!std::exchange(linesCame, false)) lineTimer->SetEnabled(false);
    };
    KeepEvidence(true);
}

Ledger::~Ledger() {
    KeepEvidence(false);
    StillWaits();
    TellHeld();
    EndRequests(0);
    AddWholes(false);
    queue.Add(RunEndFact{platform.CalendarMilliseconds()});
    queue.Close();
}

void Ledger::Start(const std::string& path, const std::string& version) {
    AddWholes(true);
    queue.Open(path, version);
}

void Ledger::Read(Database::Job job, Database::Done done) {
    auto* records = Records();
    if (!records) return done({DatabaseFault::Failed, "the ledger isn't open"});
    Flush();
    // Behind what was handed in before it.
    records->Write([](Connection&) {},
                   [records, job = std::move(job), done = std::move(done)](const DatabaseResult&) mutable {
                       records->Read(std::move(job), std::move(done));
                   });
}

void Ledger::KeepEvidence(bool on) {
    auto& told = options.Control().Tell().lines;
    if (on)
        told = this;
    else if (told == this)
        told = nullptr;
    if (!on) lastLines.Clear();
    evidence = on;
}

void Ledger::BeforeForgetting() {
    lastLines.Clear();
    queue.Flush();
    queue.ForgetRows();
}

std::int64_t Ledger::Tell(const OwnAct& own) {
    if (!queue.ActsBefore()) return 0;
    auto act = NewAct(own.kind, CauseNumber(options.Control().Tell().cause));
    act.person = own.person;
    act.entry = own.entry;
    act.outcome = own.outcome;
    AddAct(std::move(act));
    return *queue.ActsBefore() + acts;
}

std::int64_t Ledger::AddNote(NoteKind kind, const std::string& person, const std::string& author,
                             const std::string& text) {
    const auto number =
        Tell({.kind = kind == NoteKind::Note ? ActKind::Note : ActKind::Appeal, .person = person});
    if (number != 0)
        queue.Add(NoteFact{platform.CalendarMilliseconds(), kind, person, author, Left(text, LongestText)});
    return number;
}

void Ledger::Connected(int socket, StageKind stage, const std::string& text, const std::string& account) {
    StillWaits();
    queue.Add(ConnectionFact{platform.CalendarMilliseconds(), socket, stage, text, network, account});
}

void Ledger::SignOnRefused(int code, const std::string& text) {
    Connected(0, StageKind::Refused, std::to_string(code) + " " + text);
}

void Ledger::SignedOn(const std::string& name) { Connected(0, StageKind::SignedOn, name, name); }

void Ledger::SignedOff() {
    EndRequests(0);
    rooms.clear();
    Connected(0, StageKind::SignedOff, {});
}

void Ledger::SignedOffElsewhere(int reason, const std::string& page) {
    Connected(0, StageKind::Elsewhere, std::to_string(reason) + " " + page);
}

void Ledger::SocketFailed(int socket, int number, const std::string& words) {
    Connected(socket, StageKind::SocketFailed, std::to_string(number) + " " + words);
}

void Ledger::ConnectionEnded(int socket, const std::string& text) {
    Connected(socket, StageKind::Ended, text);
    if (socket != 0) EndRequests(static_cast<std::int16_t>(socket));
}

void Ledger::RoomEntered(std::int16_t room, const std::string& name, std::int16_t exchange) {
    rooms[room] = std::make_shared<const RoomName>(RoomName{name, exchange});
    Connected(room, StageKind::RoomEntered, name);
}

void Ledger::RoomLeft(std::int16_t room, const std::string& name, const std::string& reason) {
    EndRequests(room);
    Connected(room, StageKind::RoomLeft, reason + " " + name);
}

void Ledger::RoomRefused(int code, const std::string& family, const std::string& text) {
    Connected(0, StageKind::RoomRefused, std::to_string(code) + " " + family + " " + text);
}

void Ledger::RateTold(std::int16_t room, int code, int classId) {
    Connected(room, StageKind::Rate, std::to_string(code) + " " + std::to_string(classId));
}

void Ledger::LineHeard(std::int16_t room, const std::string& name, const std::string& line) {
    if (!linesCame) {
        linesCame = true;
        if (!lineTimer->Enabled()) {
            lineTime = platform.CalendarMilliseconds();
            lineTimer->SetEnabled(true);
        }
    }
    lastLines.Add(lineTime, room, name, line);
}

} // namespace halyard
