#pragma once

// A small ledger in memory or in a file, filled row by row, for what reads it.

#include "base/Latin1.h"
#include "base/Text.h"
#include "bridge/ledger/ActWords.h"
#include "bridge/ledger/Lookalikes.h"
#include "bridge/ledger/reading/Acts.h"
#include "platform/sqlite/Opening.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <string_view>

namespace halyard {

class FilledLedger {
  public:
    /// `path` is that of the file; empty for one in memory. Begins its first run.
    explicit FilledLedger(const std::string& path = {})
        : opened(OpenConnection(LedgerSpec(path, 0), OpenMode::ReadWrite)) {
        EXPECT_TRUE(opened.connection) << opened.result.words;
        BeginRun();
    }
    ~FilledLedger() { EXPECT_TRUE(opened.result.Ok() && File().Result().Ok()) << File().Result().words; }

    Connection& File() { return *opened.connection; }

    void BeginRun() {
        File().Prepare("INSERT INTO runs(began, version) VALUES(?, 'test')").Bind(1, clock).Step();
        run = File().LastRow();
    }

    /// A name as the wire spells it.
    std::int64_t Person(std::string_view spelled) {
        const auto key = NormalizeName(spelled);
        if (const auto known = Find("SELECT id FROM persons WHERE key = ?", ToUtf8(key))) return *known;
        auto& row =
            File().Prepare("INSERT INTO persons(key, spelled, indexed, skeleton) VALUES(?1, ?2, ?2, ?3)");
        row.Bind(1, ToUtf8(key)).Bind(2, ToUtf8(spelled)).Bind(3, ToUtf8(Skeleton(key))).Step();
        return File().LastRow();
    }
    std::int64_t Room(std::string_view spelled, std::int16_t exchange = 4) {
        const auto key = ToUtf8(NormalizeName(spelled));
        auto& known = File().Prepare("SELECT id FROM rooms WHERE key = ? AND exchange = ?");
        if (known.Bind(1, key).Bind(2, exchange).Step()) return known.Integer(0);
        auto& row = File().Prepare("INSERT INTO rooms(key, exchange, spelled) VALUES(?, ?, ?)");
        row.Bind(1, key).Bind(2, exchange).Bind(3, ToUtf8(spelled)).Step();
        return File().LastRow();
    }
    std::int64_t Rule(RuleKind kind, std::string_view entry) {
        auto& known = File().Prepare("SELECT id FROM rules WHERE kind = ? AND entry = ?");
        if (known.Bind(1, static_cast<std::int64_t>(kind)).Bind(2, ToUtf8(entry)).Step())
            return known.Integer(0);
        auto& row = File().Prepare("INSERT INTO rules(kind, entry) VALUES(?, ?)");
        row.Bind(1, static_cast<std::int64_t>(kind)).Bind(2, ToUtf8(entry)).Step();
        return File().LastRow();
    }

    /// Why an act is done. Texts are Windows-1252.
    struct Why {
        CauseKind kind = CauseKind::Unknown;
        std::string who = {};
        std::string line = {};
        std::string reason = {};
        RuleKind rule = RuleKind::None;
        std::string entry = {};
    };
    static Why Op(const std::string& op, const std::string& line, const std::string& reason = {}) {
        return {CauseKind::OpLine, op, line, reason};
    }
    static Why By(RuleKind rule, const std::string& entry, const std::string& line = {}) {
        return {CauseKind::Rule, {}, line, {}, rule, entry};
    }
    static Why Hand(const std::string& control) {
        return {CauseKind::Hand, {}, {}, {}, RuleKind::None, control};
    }

    /// An act upon a person in a room, or (without a person) on a list. One second later than the one before.
    std::int64_t Act(ActKind kind, const std::string& person, const std::string& room, const Why& why,
                     ActOutcome outcome = ActOutcome::Accepted, ListName list = ListName::None,
                     const std::string& entry = {}) {
        const auto personRow = person.empty() ? 0 : Person(person);
        const auto roomRow = room.empty() ? 0 : Room(room);
        const auto who = why.who.empty() ? 0 : Person(why.who);
        const auto op = why.kind == CauseKind::OpLine || why.kind == CauseKind::OpIM ? who : 0;
        const auto rule = why.rule == RuleKind::None ? 0 : Rule(why.rule, why.entry);
        clock += 1000;
        Insert("INSERT INTO causes(kind, who, room, rule, entry, line, reason) VALUES(?, ?, ?, ?, ?, ?, ?)",
               {static_cast<std::int64_t>(why.kind), who, roomRow, rule}, {why.entry, why.line, why.reason});
        const auto cause = File().LastRow();
        Insert("INSERT INTO acts(run, at, kind, outcome, cause, person, room, op, rule, list, entry)"
               " VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
               {run, clock, static_cast<std::int64_t>(kind), static_cast<std::int64_t>(outcome), cause,
                personRow, roomRow, op, rule, static_cast<std::int64_t>(list)},
               {entry});
        const auto act = File().LastRow();
        PutInWords(File(), act);
        return act;
    }
    std::int64_t Change(std::int64_t act, ListName list, ChangeOp op, const std::string& entry,
                        const std::string& room = {}, const std::string& before = {},
                        const std::string& after = {}) {
        Insert("INSERT INTO changes(run, at, op, cause, list, act, room, entry, before, after)"
               " VALUES(?, ?, ?, 1, ?, ?, ?, ?, ?, ?)",
               {run, clock, static_cast<std::int64_t>(op), static_cast<std::int64_t>(list), act,
                room.empty() ? 0 : Room(room)},
               {entry, before, after});
        return File().LastRow();
    }
    /// A ban that was accepted, and what it did to the room's eject list.
    std::int64_t Ban(const std::string& person, const std::string& room, const Why& why) {
        const auto act = Act(ActKind::Ban, person, room, why);
        Change(act, ListName::Ejects, ChangeOp::Added, NormalizeName(person), room);
        return act;
    }
    /// An entry comes onto one of the seven lists, or goes from it.
    std::int64_t Enter(ListName list, const std::string& entry, const Why& why,
                       ChangeOp op = ChangeOp::Added) {
        const auto kind = op == ChangeOp::Added     ? ActKind::ListAdd
                          : op == ChangeOp::Removed ? ActKind::ListRemove
                                                    : ActKind::ListClear;
        const auto act = Act(kind, {}, {}, why, ActOutcome::Done, list, entry);
        Change(act, list, op, entry);
        return act;
    }
    /// A list's whole content as it stands now, entries with line breaks between.
    void Whole(ListName list, const std::string& room, const std::string& entries) {
        File()
            .Prepare("INSERT INTO contents(digest, entries) VALUES(?1, ?1) ON CONFLICT DO NOTHING")
            .BindBlob(1, entries)
            .Step();
        auto& row = File().Prepare(
            "INSERT INTO wholes(run, at, after_change, list, room, content, begins) VALUES(?1, ?2,"
            " coalesce((SELECT max(id) FROM changes), 0), ?3, nullif(?4, 0),"
            " (SELECT id FROM contents WHERE entries = ?5), 1)");
        row.Bind(1, run).Bind(2, clock).Bind(3, static_cast<std::int64_t>(list));
        row.Bind(4, room.empty() ? 0 : Room(room)).BindBlob(5, entries).Step();
    }

    std::int64_t clock = 1'764'000'000'000; ///< ms UTC
    std::int64_t run = 0;

  private:
    /// Zeros and empty texts become null. Texts are Windows-1252.
    void Insert(std::string_view sql, const std::vector<std::int64_t>& numbers,
                const std::vector<std::string>& texts) {
        auto& row = File().Prepare(sql);
        int position = 0;
        for (const auto number : numbers) {
            const bool isNull = number == 0 && position > 3;
            isNull ? row.BindNull(++position) : row.Bind(++position, number);
        }
        for (const auto& text : texts)
            text.empty() ? row.BindNull(++position) : row.Bind(++position, ToUtf8(text));
        row.Step();
    }
    std::optional<std::int64_t> Find(std::string_view sql, const std::string& text) {
        auto& row = File().Prepare(sql);
        if (!row.Bind(1, text).Step()) return std::nullopt;
        return row.Integer(0);
    }

    OpenedConnection opened;
};

} // namespace halyard
