#pragma once

// The alarms at this desk: what finds them, the book of them, and who rings. The bridge owns the one.

#include "bridge/ledger/answers/PacedMessages.h"
#include "bridge/watch/alarms/AlarmBook.h"
#include "bridge/watch/alarms/AlarmEars.h"
#include "bridge/watch/alarms/CommandRinger.h"
#include "bridge/watch/alarms/MessageRinger.h"

#include <functional>
#include <string>

namespace halyard {

class LedgerHost;
class NewsFan;
class frmMain;

class AlarmHost {
  public:
    /// All outlive it. From now on it hears what the desk tells, behind `truth`; `tell` is for the list.
    AlarmHost(frmMain& main, NewsFan& heard, const Truth& truth, LedgerHost& ledger,
              std::function<void(const std::string&)> tell);
    ~AlarmHost();
    AlarmHost(const AlarmHost&) = delete;
    AlarmHost& operator=(const AlarmHost&) = delete;

    AlarmBook book; ///< the bell that guards ring
    AlarmEars ears;

    /// By these terms from now on.
    void Take(const AlarmTerms& terms);
    /// One sentence: since when the bot is on line, what rang, what rings.
    std::string Health() const;

  private:
    void Bind();
    void Hear(const Ring& ring);
    void AskLedger(const RaidAlarms::Names& names, std::function<void(const RaidAlarms::Names&)> then);

    frmMain& main;
    LedgerHost& ledger;
    const Truth& truth;
    std::function<void(const std::string&)> tell;
    PacedMessages messages;
    CommandRinger command;
    MessageRinger byMessage;
};

} // namespace halyard
