#pragma once

// A bot in one room or two, on virtual time, with the service played by the scene: it opens rooms, lets
// people come, go and speak, confirms every ban, and writes down what the bot says and asks for. What waits
// for a pause has gone out after 30 seconds, which is what `Answers` waits.

#include "commands/CommandEngine.h"
#include "commands/CommandHost.h"
#include "oscar/TillerSock.h"
#include "platform/sim/SimPlatform.h"
#include "state/Counters.h"
#include "state/Options.h"

#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace halyard {

using Lines = std::vector<std::string>;

class RoomScene : public ::testing::Test, public TillerEvents, public MainWindowLink, public CommandHost {
  protected:
    /// Room "Lobby" at position 1, with "judge" (every permission) and "bob" in it, past its first-join time.
    RoomScene();

    SimWorld world;
    SimPlatform bot{world};
    SimPlatform service{world};
    OscarSettings settings;
    TillerSock control{bot, settings, *this, *this};
    Options options{bot, control, settings};
    Counters counters{options, control};
    CommandEngine engine{options, control, counters, *this, bot.dialogs};

    /// What the bot said ("« ... »"), asked for ("ban bob", "unban bob"), and what its host was told.
    Lines transcript;
    Lines told;
    bool confirmBans = true;

    /// Opens a room and lets its first-join time pass unless told otherwise; its socket slot.
    std::int16_t OpenRoom(const std::string& name, bool wait = true);
    void Joins(const std::string& user, int position = 1);
    void Leaves(const std::string& user, int position = 1);
    void Says(const std::string& user, const std::string& text, int position = 1);
    /// What the bot does within the 30 seconds after a line.
    Lines Answers(const std::string& user, const std::string& text);
    /// What was written down since the last asking, 30 seconds having passed.
    Lines Taken();
    void MakeOp(const std::string& name, const std::string& strPerms = FullPerms);
    /// A chatsend with its marks filled in.
    std::string Send(int number, const std::string& p = "", const std::string& d = "",
                     const std::string& s = "");
    std::int16_t SlotAt(int position = 1) { return control.Chat.Item(position)->ChatIndex; }
    Chats& Room(int position = 1) { return *control.Chat.Item(position); }
    /// Number 10 of the counters.
    double TotalCommands() { return counters.Kept(10); }

  private:
    void Feed(int position, const std::string& snac, const std::string& body);
    void Receive(std::size_t connection);
    void Note(std::size_t connection, const std::string& frame);

    void ChatMessage(std::int16_t index, Text user, Text text) override {
        engine.ChatMessage(index, user, text);
    }
    void UserJoinedChat(std::int16_t index, Text user) override { engine.UserJoinedChat(index, user); }
    void UserLeftChat(std::int16_t index, Text user) override { engine.UserLeftChat(index, user); }
    void UpdatedStats(Text stat) override { counters.UpdateStat(stat, true); }
    void LeftChat(Text name, std::int16_t, std::int16_t, std::int16_t, Text type) override {
        transcript.push_back("left " + name + " " + type);
    }
    bool GetAutoUnrate() const override { return true; }
    std::int16_t GetUnratePause() const override { return 5; }
    void Rated(int, Text) override {}
    void Unrated(int, Text, std::int16_t) override {}

    void ConsoleMessage(std::int16_t, Text user, Text text) override { told.push_back(user + ": " + text); }
    void AddConsoleUser(std::int16_t, Text user) override { told.push_back("+" + user); }
    void RemoveConsoleUser(std::int16_t, Text user) override { told.push_back("-" + user); }
    void IncomingIM(Text user, Text text) override { told.push_back("IM " + user + ": " + text); }
    void LockAdded(LockKind, Text name) override { told.push_back("lock " + name); }
    void LockRemoved(LockKind, Text name) override { told.push_back("unlock " + name); }
    void SetUserInfoTimer(bool enabled) override { told.push_back(enabled ? "timer on" : "timer off"); }

    std::unique_ptr<SocketServer> server;
    std::vector<std::unique_ptr<Socket>> connections;
    std::vector<std::string> buffers;
};

} // namespace halyard
