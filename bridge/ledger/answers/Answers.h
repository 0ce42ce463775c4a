#pragma once

// Ops ask the bridge by instant message and are answered by one (Asks.h says what). Nobody else gets an
// answer, and nothing is said in a room. The bridge owns the one, as a listener of the desk's news.

#include "base/News.h"
#include "bridge/ledger/answers/Asks.h"
#include "bridge/ledger/reading/Acts.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace halyard {

class Ledger;
class Options;
class PacedMessages;
class Platform;
class UndoRun;
struct UndoPlan;

class Answers : public News {
  public:
    static constexpr std::int64_t RefusalPause = 3'600'000; ///< ms between two words about a room's refusals

    /// All outlive it. Answers nobody until `on`.
    Answers(Platform& platform, Options& options, Ledger& ledger, UndoRun& undo, PacedMessages& messages);

    bool on = false;
    /// What "health" tells behind what the desk itself knows, one sentence; may be empty.
    std::function<std::string()> onHealth;

    // News.
    void MessagePassedOver(const std::string& name, const std::string& message) override;
    void BanWanted(std::int16_t room, std::int32_t id, BanKind kind, const std::string& name,
                   const std::string&) override;
    void BanAnswered(std::int16_t room, std::int32_t id, BanVerdict verdict, int word) override;
    void SignedOff() override;

  private:
    struct OpBan {
        std::int16_t room;
        std::string op, person;
    };

    void Answer(const std::string& name, const Ask& ask);
    void Why(const std::string& op, const std::string& person);
    void Last(const std::string& op, int count);
    void Undo(const std::string& op, const Ask& ask);
    void CarryOut(const std::string& op, const ActRow& act, UndoPlan plan);
    void Note(const std::string& op, const Ask& ask);
    std::string Health() const;
    bool MayUndo(const std::string& op, const ActRow& act) const;
    /// Runs `look` beside the loop and says what it returns, in UTF-8.
    void Look(const std::string& op, std::function<std::string(class Connection&)> look);
    void Say(const std::string& op, const std::string& text);

    Platform& platform;
    Options& options;
    Ledger& ledger;
    UndoRun& undo;
    PacedMessages& messages;
    std::map<std::int32_t, OpBan> opBans; ///< by request id, until the answer
    std::map<std::int16_t, std::int64_t> refusalTold;
    std::shared_ptr<int> life = std::make_shared<int>(); ///< answers of reads that come too late find it gone
};

} // namespace halyard
