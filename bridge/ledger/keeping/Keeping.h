#pragma once

// What the ledger keeps for how long, a person who is to be forgotten, and copies of the whole file. All work
// on an open file, in a job of the bot's or of a program on a terminal.

#include "platform/Database.h"

#include <cstdint>
#include <string>

namespace halyard {

struct KeepDays {
    int texts = 180;                   ///< lines, reasons, evidence and appeals; 0 for ever
    int acts = 0;                      ///< whole acts, with all that hangs on them; 0 for ever
    static constexpr int Samples = 30; ///< what the watch kept of each minute
    static constexpr int Alarms = 400; ///< what rang, and the guards' counts
};

/// One going over the file, in steps that are transactions of their own.
class Pruning {
  public:
    static constexpr int StepRows = 200;

    /// `now` in ms UTC.
    Pruning(const KeepDays& days, std::int64_t now);
    /// Does the next. False when there is none.
    bool Step(Connection& file);
    std::int64_t Rows() const { return rows; } ///< gone so far

  private:
    enum class Part { Causes, Evidence, Appeals, Cut, Acts, Others, Watch, Done };

    void Begin(Connection& file);
    bool PruneTexts(Connection& file);
    bool PruneRows(Connection& file, const char* sql, std::int64_t bound);
    void WriteCut(Connection& file);
    bool PruneActs(Connection& file);
    bool PruneOthers(Connection& file);
    bool PruneWatch(Connection& file);

    std::int64_t textsBefore, actsBefore;     ///< moments; 0: none goes
    std::int64_t samplesBefore, alarmsBefore; ///< moments
    Part part = Part::Causes;
    bool begun = false;
    std::int64_t firstText = 0; ///< cause whose texts stay
    std::int64_t lastCause = 0; ///< looked at
    std::int64_t firstAct = 0;  ///< that stays
    std::int64_t cutChange = 0; ///< the last that goes
    std::int64_t rows = 0;
};

enum class ForgetOutcome { Forgotten, Unknown, OnEjectList };
/// Notes, evidence, texts of causes and the name go, acts stay. Refused while an eject list holds the person.
/// In one transaction; MergeWords and ClearLog are to follow it. `name` is Windows-1252, in whatever
/// spelling.
ForgetOutcome Forget(Connection& file, const std::string& name);
/// The index lets go of what was taken out of it only when its parts are merged. One step, the first of a
/// merge when `begin`; false when there is nothing left to merge.
bool MergeWords(Connection& file, bool begin);
/// Takes from the disk what a transaction has deleted. Outside of a transaction.
void ClearLog(Connection& file);

/// One whole file at `path` (Windows-1252), where nothing or an empty file stands; the connection fails
/// otherwise. Outside of a transaction.
void BackUp(Connection& file, const std::string& path);

} // namespace halyard
