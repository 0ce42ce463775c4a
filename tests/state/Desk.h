#pragma once

// The option model on a simulated machine, with a control that isn't signed on and lists without their
// replies.

#include "state/Counters.h"
#include "state/ListWorkers.h"
#include "state/Options.h"
#include "state/SettingsReader.h"
#include "tests/oscar/Wire.h"

namespace halyard {

/// The list acts without replies and locks.
class PlainLists : public ListWorkers {
  public:
    explicit PlainLists(Options& options) : options(options) {}

    void AddOp(const std::string& name, std::int16_t room, const std::string& strPerms) override {
        EXPECT_EQ(room, 0);
        if (!Put(options.Ops, box.lstOps, name)) return;
        options.Perms.Add(strPerms.empty() ? options.UniPerms : strPerms, NormalizeName(name));
    }
    void AddImm(const std::string& name, std::int16_t) override { Put(options.Immunes, box.lstImms, name); }
    void AddAB(const std::string& name, std::int16_t) override { Put(options.Autobans, box.lstABs, name); }
    void AddAW(const std::string& name, std::int16_t) override { Put(options.Autowords, box.lstAWs, name); }
    void AddLockOp(const std::string& name, std::int16_t) override { Put(options.LockOps, noList, name); }
    void AddLockImm(const std::string& name, std::int16_t) override { Put(options.LockImms, noList, name); }
    void AddLockBan(const std::string& name, std::int16_t) override { Put(options.LockBans, noList, name); }
    void RemoveOp(const std::string&, std::int16_t) override {}
    void RemoveImm(const std::string&, std::int16_t) override {}
    void RemoveAB(const std::string&, std::int16_t) override {}
    void RemoveAW(const std::string&, std::int16_t) override {}
    void RemoveLockOp(const std::string&, std::int16_t) override {}
    void RemoveLockImm(const std::string&, std::int16_t) override {}
    void RemoveLockBan(const std::string&, std::int16_t) override {}

  private:
    static bool Put(IndexedList& list, ListBox& shown, const std::string& name) {
        auto normal = NormalizeName(name);
        return list.Add(normal) && (shown.AddItem(normal), true);
    }

    Options& options;
    OptionControls& box = options.Controls;
    ListBox noList{"none"};
};

class Desk : public ::testing::Test, public EventLog {
  protected:
    using Box = ScriptedDialogs::Box;

    Desk() {
        options.StartUp();
        control.DefaultChatSends();
    }

    /// A room at the end of Chat, as a join would leave it.
    Chats& OpenRoom(const std::string& name, std::int16_t exchange, std::int16_t slot) {
        auto room = std::make_shared<Chats>(control, control.sngBanPause);
        room->ChatName = name;
        room->Exchange = exchange;
        room->ChatIndex = slot;
        control.Chat.Add(room);
        control.CreateTimer("ban");
        return *room;
    }

    /// The boxes since the last asking.
    std::vector<Box> Boxes() { return std::exchange(platform.dialogs.shown, {}); }
    static std::vector<Box> One(ScriptedDialogs::Kind kind, const std::string& title,
                                const std::string& text) {
        return {Box{kind, title, text, ""}};
    }

    SimWorld world;
    SimPlatform platform{world};
    OscarSettings settings;
    TillerSock control{platform, settings, *this, *this};
    Options options{platform, control, settings};
    OptionControls& controls = options.Controls;
    Counters counters{options, control};
    PlainLists lists{options};
    int menusOpened = 0;
    SettingsTarget target{platform, options, lists, [this] { ++menusOpened; }};
};

} // namespace halyard
