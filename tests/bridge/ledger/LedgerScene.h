#pragma once

// The ledger over an option model and a control that isn't signed on: what the desk would tell is told by the
// test. Its file is in memory, or in a folder where it outlives the ledger.

#include "bridge/ledger/Ledger.h"
#include "bridge/ledger/keeping/Keeping.h"
#include "bridge/ledger/keeping/Verify.h"
#include "platform/Hand.h"
#include "platform/sqlite/InlineDatabase.h"
#include "tests/platform_sqlite/TestFolder.h"
#include "tests/state/Desk.h"

#include <optional>

namespace halyard {

/// A database that can't be written for a while.
class ShakyDatabase : public InlineDatabase {
  public:
    ShakyDatabase(DatabaseFault& fault, const std::string& vfs) : fault(fault), vfs(vfs) {}
    void Open(const DatabaseSpec& spec, Opened done) override {
        auto own = spec;
        own.vfs = vfs;
        InlineDatabase::Open(own, std::move(done));
    }
    void Write(Job job, Done done) override {
        if (fault == DatabaseFault::None) return InlineDatabase::Write(std::move(job), std::move(done));
        done({fault, "The disk says no."});
    }

  private:
    DatabaseFault& fault;
    const std::string vfs;
};

struct LedgerScene : EventLog {
    explicit LedgerScene(const std::string& path = {}, const std::string& vfs = {}) : path(path) {
        options.StartUp();
        for (auto* list : options.Lists()) list->Tell(control.Tell());
        machine.databases = [this, vfs] { return std::make_unique<ShakyDatabase>(fault, vfs); };
        Begin();
    }
    /// A run of the bot.
    void Begin() {
        ledger.emplace(machine, options);
        control.SetNews(&*ledger);
        ledger->onTell = [this](const std::string& words) { told.push_back(words); };
        ledger->Start(path, "2.0");
        ledger->RoomEntered(2, "The Lobby", 4);
    }
    void End() {
        control.SetNews(nullptr);
        ledger.reset();
    }
    ~LedgerScene() { End(); }

    void Wait(int ms = 300) { world.RunFor(ms); }
    void Ban(std::int32_t id, const std::string& name, BanKind kind = BanKind::Ban) {
        ledger->BanWanted(2, id, kind, name, "");
        ledger->BanAsked(2, id, BanRequestKind::Ban, name);
    }
    /// The service's yes, and what the desk then does.
    void Yes(std::int32_t id, const std::string& name) {
        ledger->BanAnswered(2, id, BanVerdict::Accepted, 0);
        const CauseScope reply(control.Tell(), {.kind = CauseKind::Reply, .room = 2, .request = id});
        Ejects().AddEject(name);
    }
    void OpBans(std::int32_t id, const std::string& name, const std::string& reason = "was rude") {
        const auto line = "<b>ban " + name + "/" + reason + "</b>";
        const CauseScope said(
            control.Tell(),
            {.kind = CauseKind::OpLine, .room = 2, .who = "Room Boss", .line = line, .reason = reason});
        Ban(id, name);
    }
    EjectList& Ejects() {
        if (control.EjectLists.Count() == 0) {
            auto list = std::make_shared<EjectList>(&control.Tell());
            list->ChatName = "The Lobby";
            list->Exchange = 4;
            control.EjectLists.Add(list);
        }
        return *control.EjectLists.Item(1);
    }
    void Work(const Database::Job& job) {
        ledger->Flush();
        ledger->Records()->Write(
            job, [](const DatabaseResult& result) { EXPECT_TRUE(result.Ok()) << result.words; });
    }
    /// The columns of each row, "|" between them.
    Lines Rows(const std::string& sql) {
        Lines lines;
        Work([&](Connection& file) {
            auto& rows = file.Prepare(sql);
            while (rows.Step()) {
                std::string line;
                for (int column = 0; column < 12; ++column) line += (column ? "|" : "") + rows.Text(column);
                lines.push_back(line.substr(0, line.find_last_not_of('|') + 1));
            }
            rows.Reset();
        });
        return lines;
    }
    Lines Acts(const std::string& where = "1") {
        return Rows("SELECT a.id, a.kind, coalesce(p.key, ''), a.outcome, coalesce(a.code, ''), c.kind, "
                    "coalesce(a.entry, '') FROM acts a JOIN causes c ON c.id = a.cause "
                    "LEFT JOIN persons p ON p.id = a.person WHERE " +
                    where + " ORDER BY a.id");
    }
    Lines Findings() {
        Lines found;
        ledger->Flush();
        ledger->Records()->Read([&](Connection& file) { found = Verify(file); }, {});
        return found;
    }
    Lines Told() { return std::exchange(told, {}); }

    std::string path;
    DatabaseFault fault = DatabaseFault::None;
    SimWorld world{1};
    SimPlatform machine{world};
    OscarSettings settings;
    TillerSock control{machine, settings, *this, *this};
    Options options{machine, control, settings};
    Lines told;
    std::optional<Ledger> ledger;
};

} // namespace halyard
