#pragma once

// The option model on a simulated machine, with a control that isn't signed on and lists without their
// replies.

#include "base/Text.h"
#include "oscar/TillerSock.h"
#include "platform/sim/SimPlatform.h"
#include "state/Counters.h"
#include "state/ListWorkers.h"
#include "state/Options.h"
#include "state/SettingsReader.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace halyard {

/// The list acts without replies and locks.
class PlainLists : public ListWorkers {
  public:
    explicit PlainLists(Options& options) : options(options) {}

    void AddOp(const std::string& name, std::int16_t room, const std::string& strPerms) override {
        EXPECT_EQ(room, 0);
        if (!Put(options.Ops, options.Controls.lstOps, name)) return;
        options.Perms.Add(strPerms.empty() ? options.UniPerms : strPerms, NormalizeName(name));
    }
    void AddImm(const std::string& name, std::int16_t) override {
        Put(options.Immunes, options.Controls.lstImms, name);
    }
    void AddAB(const std::string& name, std::int16_t) override {
        Put(options.Autobans, options.Controls.lstABs, name);
    }
    void AddAW(const std::string& name, std::int16_t) override {
        Put(options.Autowords, options.Controls.lstAWs, name);
    }
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
    bool Put(IndexedList& list, ListBox& box, const std::string& name) {
        auto normal = NormalizeName(name);
        return list.Add(normal) && (box.AddItem(normal), true);
    }
    bool Put(Collection<std::string>& list, ListBox& box, const std::string& name) {
        auto normal = NormalizeName(name);
        return list.Add(normal, normal) && (box.AddItem(normal), true);
    }

    Options& options;
    ListBox noList{"none"};
};

class Desk : public ::testing::Test, public TillerEvents, public MainWindowLink {
  protected:
    using Box = ScriptedDialogs::Box;

    Desk() {
        options.StartUp();
        control.DefaultChatSends();
    }

    bool GetAutoUnrate() const override { return true; }
    std::int16_t GetUnratePause() const override { return 5; }
    void Rated(int, const std::string&) override {}
    void Unrated(int, const std::string&, std::int16_t) override {}

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
