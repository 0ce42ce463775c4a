#pragma once

// What the desk does and why, kept for good: it hears the news, numbers acts and causes, and hands facts on
// to the writer. It never waits for the file, and nothing of the desk waits for it. The bridge owns the one;
// docs/ledger.md tells what the file holds.

#include "base/News.h"
#include "bridge/ledger/DeskLists.h"
#include "bridge/ledger/FactQueue.h"
#include "bridge/ledger/LastLines.h"
#include "bridge/ledger/Requests.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace halyard {

class Platform;

class Ledger : public News {
  public:
    /// Both outlive it. It is to be the listener of the desk's news from before Start on.
    Ledger(Platform& platform, Options& options);
    /// Writes what waits, and that the run ended.
    ~Ledger() override;
    Ledger(const Ledger&) = delete;
    Ledger& operator=(const Ledger&) = delete;

    /// What the operator should know: once when writing fails, once when it works again.
    std::function<void(const std::string&)> onTell;
    /// The same, for alarms: whether it works.
    std::function<void(bool works, const std::string&)> onHealth;
    /// Something was written.
    std::function<void()> onWritten;
    std::string network; ///< on which the bot signs on, as the operator names it

    /// Opens the file at `path`, Windows-1252, and begins a run of the program's `version`.
    void Start(const std::string& path, const std::string& version);
    /// Whether an act upon a person shows that person's last lines; on at the start.
    void KeepEvidence(bool on);
    /// Writes all that was told, also what waits to be told as one.
    void Flush() { queue.Flush(); }
    /// Reads what has been told up to now, and what stood in the file before; see Database::Read. While the
    /// file isn't open `done` is told so at once.
    void Read(Database::Job job, Database::Done done);
    /// Somebody is to be forgotten: what waits is written, and nothing said or known of persons stays in
    /// memory.
    void BeforeForgetting();
    /// What is told isn't written now.
    bool Fails() const { return queue.Fails(); }
    /// For reading and keeping; null while the file isn't open.
    Database* Records() { return queue.Records(); }

    /// An act of the bridge's own, with the innermost open cause.
    struct OwnAct {
        ActKind kind{};
        std::string person = {}, entry = {};
        ActOutcome outcome = ActOutcome::Done;
    };
    /// Its number in the file; 0 while the file isn't open.
    std::int64_t Tell(const OwnAct& act);
    /// Of a person, by an author, who may be empty for the operator. An act as well, with its number.
    std::int64_t AddNote(NoteKind kind, const std::string& person, const std::string& author,
                         const std::string& text);
    /// What watch and guards keep, as it is.
    void Keep(Fact&& fact) { queue.Add(std::move(fact)); }
    /// What happens from here on takes back the act `takesBack` as a step of the undo act `undo`, until it
    /// ends with 0, 0.
    void TakeBack(std::int64_t undo, std::int64_t takesBack) { undoing = {undo, takesBack}; }

    // News.
    void CauseEnded(const CauseScope& scope) override;
    void SignOnStage(const std::string& text) override { Connected(0, StageKind::SignOn, text); }
    void SignOnRefused(int code, const std::string& text) override;
    void SignedOn(const std::string& name) override;
    void SignedOff() override;
    void SignedOffElsewhere(int reason, const std::string& page) override;
    void SocketFailed(int socket, int number, const std::string& words) override;
    void ConnectionEnded(int socket, const std::string& text) override;
    void RoomEntered(std::int16_t room, const std::string& name, std::int16_t exchange) override;
    void RoomLeft(std::int16_t room, const std::string& name, const std::string& reason) override;
    void RoomRefused(int code, const std::string& family, const std::string& text) override;
    void LineHeard(std::int16_t room, const std::string& name, const std::string& line) override;
    void RateTold(std::int16_t room, int code, int classId) override;
    void BanWanted(std::int16_t room, std::int32_t id, BanKind kind, const std::string& name,
                   const std::string&) override;
    void BanDropped(std::int16_t room, std::int32_t id, BanKind kind, const std::string& name,
                    const std::string&, DropReason why) override;
    void BanAsked(std::int16_t room, std::int32_t id, BanRequestKind kind, const std::string& name) override;
    void BanAnswered(std::int16_t room, std::int32_t id, BanVerdict verdict, int word) override;
    void ListAdded(const ListId& list, const std::string& entry) override;
    void ListRemoved(const ListId& list, const std::string& entry) override;
    void ListCleared(const ListId& list) override;

  private:
    struct ListKey {
        ListName list{};
        std::string room; ///< normalised
        std::int16_t exchange = 0;
        friend bool operator==(const ListKey&, const ListKey&) = default;
        friend bool operator<(const ListKey& one, const ListKey& other) {
            return std::tie(one.list, one.room, one.exchange) <
                   std::tie(other.list, other.room, other.exchange);
        }
    };
    struct HeldOption {
        CauseFact cause;
        OptionWatch::Difference change;
        std::int64_t at = 0;
    };

    // LedgerActs.cpp
    std::int64_t CauseNumber(CauseScope* scope);
    CauseFact FactOf(const CauseScope& scope);
    const Request* AskedBy(const CauseScope* scope);
    ActFact NewAct(ActKind kind, std::int64_t cause);
    void AddAct(ActFact&& act);
    void Step(StepFact::Step step, std::int32_t wire, const Request& request, ActOutcome outcome = {},
              int code = 0);
    void AddEvidence(std::int64_t act, const std::string& name, std::string_view caused);
    void StillWaits();
    void EndRequests(std::int16_t room);
    void Connected(int socket, StageKind stage, const std::string& text, const std::string& account = {});
    NamedRoom RoomAt(std::int16_t room);

    // LedgerLists.cpp
    void Changed(const ListId& list, ChangeOp op, const std::string& entry);
    bool TakenAsLoaded(const ListKey& key);
    NamedRoom Mention(const ListKey& key, const ListId& list);
    void EndLoad();
    void OptionsChanged(const CauseScope& scope);
    void TellHeld();
    void AddWhole(ListName list, const NamedRoom& room, bool begins);
    void AddWholes(bool begins);

    Platform& platform;
    Options& options;
    FactQueue queue;
    std::int64_t acts = 0; ///< numbers given out in this run, as the next
    std::int64_t causes = 0;
    Requests requests;
    std::int32_t justWanted = 0; ///< may go out at once, or wait
    std::pair<std::int64_t, std::int64_t> undoing;
    std::map<std::int16_t, NamedRoom> rooms; ///< by socket slot
    std::map<ListKey, NamedRoom> mentioned;  ///< every list of this run
    OptionWatch watch;
    struct {
        std::int64_t cause = 0; ///< 0: none was read
        std::vector<ListKey> lists;
        std::string path;
    } load;
    std::vector<HeldOption> held; ///< what the operator is still typing
    std::int64_t heldCause = 0;   ///< 0: written when they are told
    std::unique_ptr<Timer> holdTimer;
    std::int64_t wholesAt = 0;
    bool wholesDue = false; ///< once nothing is half done any more
    bool evidence = false;
    bool linesCame = false;
    std::int64_t lineTime = 0; ///< to the second: a line must cost next to nothing
    LastLines lastLines;
    std::unique_ptr<Timer> lineTimer;
};

} // namespace halyard
