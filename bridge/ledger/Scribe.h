#pragma once

// Turns facts into rows. It lives on the writer: the queue hands it to each of its jobs and doesn't touch it
// itself.

#include "bridge/ledger/Facts.h"
#include "bridge/ledger/RowIds.h"
#include "platform/Database.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace halyard {

class Scribe {
  public:
    struct Began {
        std::int64_t run = 0;
        std::int64_t acts = 0; ///< how many numbers are taken, as for causes
        std::int64_t causes = 0;
    };
    /// Begins a run: acts that the one before left open are lost.
    Began Begin(Connection& file, std::int64_t at, const std::string& version);
    /// With `fresh`, what was written last didn't stay: ids are looked up anew.
    void Write(Connection& file, const std::vector<Fact>& facts, bool fresh);

  private:
    /// The op who spoke and the rule that met, of a cause or of the scopes around it.
    struct Origin {
        std::int64_t op = 0;
        std::int64_t rule = 0;
    };

    void Put(Connection& file, const CauseFact& fact);
    void Put(Connection& file, const ActFact& fact);
    void Put(Connection& file, const StepFact& fact);
    void Put(Connection& file, const UndoneFact& fact);
    void Put(Connection& file, const ChangeFact& fact);
    void Put(Connection& file, const WholeFact& fact);
    void Put(Connection& file, const ConnectionFact& fact);
    void Put(Connection& file, const EvidenceFact& fact);
    void Put(Connection& file, const NoteFact& fact);
    void Put(Connection& file, const GapFact& fact);
    void Put(Connection& file, const RunEndFact& fact);
    void Put(Connection& file, const SampleFact& fact);
    void Put(Connection& file, const AlarmFact& fact);
    void Put(Connection& file, const GuardFact& fact);
    void PutRequest(Connection& file, const StepFact& fact, std::int64_t act);
    void AnswerRequest(Connection& file, const StepFact& fact, std::int64_t act);
    Origin OriginOf(Connection& file, std::int64_t cause);
    std::int64_t Act(std::int64_t number) const { return number == 0 ? 0 : number + began.acts; }
    std::int64_t Cause(std::int64_t number) const { return number == 0 ? 0 : number + began.causes; }

    Began began;
    RowIds ids;
    std::unordered_map<std::int64_t, Origin> origins;
    std::unordered_map<std::int64_t, std::int64_t> requests; ///< row by act, of those without an answer
};

} // namespace halyard
