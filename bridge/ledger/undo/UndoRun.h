#pragma once

// Carries out an undo that was looked at: entries, lists and options first, by the desk's doors, then whom to
// let in again, one request at a time. Nobody is let in when an entry that would hit again could not be taken
// off. The bridge owns the one, as a listener of the desk's news.

#include "base/News.h"
#include "bridge/ledger/reading/UndoPlan.h"
#include "platform/Timer.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace halyard {

class Chats;
class Doors;
class Ledger;
class PacedMessages;
class Platform;
class TillerSock;

/// One thing to be done. Texts are Windows-1252.
struct UndoTask {
    enum class What { Readmit, RemoveEntry, AddEntry, SetOption };
    What what = What::Readmit;
    std::int64_t act = 0; ///< that it takes back, 0 for none
    std::string name;     ///< the person, or the list's entry, or the option's key
    std::string value;    ///< of an option
    ListName list = ListName::None;
    std::string room;          ///< of a Readmit: the room's name
    std::int16_t exchange = 0; ///< and its exchange
};

enum class UndoOutcome { Waiting, Done, Failed, Stopped };

struct UndoneTask {
    UndoTask step;
    UndoOutcome outcome = UndoOutcome::Waiting;
    std::string why; ///< of one that failed, in words
};

/// What is ticked of the plan, in the plan's order.
std::vector<UndoTask> TasksOf(const UndoPlan& plan);

class UndoRun : public News {
  public:
    static constexpr std::int64_t ReplyLimit = 30'000; ///< ms
    static constexpr std::int64_t BanLimit = 60'000; ///< ms for which a ban that has no answer is waited for
    static constexpr std::int64_t ShortestPause = 2000; ///< ms between two requests

    /// All outlive it.
    UndoRun(Platform& platform, TillerSock& control, Doors& doors, Ledger& ledger, PacedMessages& messages);

    /// All tasks are over, or the run was stopped.
    using Done = std::function<void(const std::vector<UndoneTask>&)>;
    /// `act` is the number of the undo itself, which is the cause of all that it does. False while a run is
    /// under way.
    bool Start(std::int64_t act, std::vector<UndoTask> steps, Done done);
    /// Whether those who are let in again are told so, by one instant message each. Off at each start.
    void TellPersons(bool on) { tells = on; }
    /// What is not yet asked for is left as it is.
    void Stop();
    bool Running() const { return running; }
    const std::vector<UndoneTask>& Steps() const { return steps; }
    std::size_t Finished() const { return at; }
    /// Milliseconds until the run is likely to be over, if nothing holds it up.
    std::int64_t Left() const;
    /// Why the next request waits, in words; empty when nothing holds it up.
    const std::string& HeldUpBy() const { return heldUpBy; }
    /// Something of the above has changed.
    std::function<void()> onChange;

    // News.
    void BanWanted(std::int16_t room, std::int32_t id, BanKind kind, const std::string& name,
                   const std::string&) override;
    void BanAnswered(std::int16_t room, std::int32_t id, BanVerdict verdict, int word) override;

  private:
    void Go();
    void ByDoor(UndoneTask& step);
    void Readmit(UndoneTask& step);
    std::string Obstacle(const Chats* room, const UndoTask& step) const;
    std::int64_t Pause() const;
    void Finish(UndoOutcome outcome, const std::string& why = {});
    void End();

    Platform& platform;
    TillerSock& control;
    Doors& doors;
    Ledger& ledger;
    PacedMessages& messages;
    Done done;
    bool tells = false;
    std::unique_ptr<Timer> timer;
    std::vector<UndoneTask> steps;
    std::size_t at = 0;
    bool running = false;
    bool entryStands = false;   ///< an entry could not be taken off
    std::int64_t stepSince = 0; ///< when the step at `at` began to wait, ms
    std::int64_t undo = 0;
    std::string number;       ///< of the undo's act, the entry of its cause
    std::int64_t askedAt = 0; ///< the last request, ms
    std::int32_t asking = 0;  ///< its id, 0 while none is open
    std::int16_t askingIn = 0;
    bool listening = false; ///< while UnbanUser runs
    std::string heldUpBy;
};

} // namespace halyard
