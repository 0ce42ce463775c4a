#pragma once

// A bot in one room or two, on virtual time, with the service played by the scene: it opens rooms, lets
// people come, go and speak, confirms every ban, and writes down what the bot says and asks for. What waits
// for a pause has gone out after 30 seconds, which is what `Answers` waits.

#include "commands/CommandEngine.h"
#include "commands/CommandHost.h"
#include "state/Counters.h"
#include "state/Options.h"
#include "tests/oscar/Wire.h"

namespace halyard {

class RoomScene : public Wire, public CommandHost {
  protected:
    /// Room "Lobby" at position 1, with "judge" (every permission) and "bob" in it, past its first-join time.
    RoomScene();

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
    /// What the bot does within the 30 seconds after a line, or after a join when `user` is empty.
    Lines Answers(const std::string& user, const std::string& text);
    /// Plays "line -> answer | answer # why", one a line or apart by "; ", as said by the user (or who joins,
    /// when `user` is empty). An answer that begins with a number is that chatsend, its marks filled in:
    /// "37 bob=1" is Send(37, "bob", "1").
    void Play(const std::string& user, const std::string& script);
    void Judge(const std::string& script) { Play("Judge", script); }
    /// What was written down since the last asking, 30 seconds having passed.
    Lines Taken();
    void MakeOp(const std::string& name, const std::string& strPerms = FullPerms);
    void Immune(const std::string& name) { options.Immunes.Add(name); }
    /// A chatsend with its marks filled in.
    std::string Send(int number, const std::string& p = "", const std::string& d = "",
                     const std::string& s = "");
    Chats& Room(int position = 1) { return *control.Chat.Item(position); }

  private:
    void Feed(int position, const std::string& snac, const std::string& body);
    void Arrived(Peer& peer) override;

    void ChatMessage(Int index, Text user, Text text) override { engine.ChatMessage(index, user, text); }
    void UserJoinedChat(std::int16_t index, Text user) override { engine.UserJoinedChat(index, user); }
    void UserLeftChat(std::int16_t index, Text user) override { engine.UserLeftChat(index, user); }
    void UpdatedStats(Text stat) override { counters.UpdateStat(stat, true); }
    void LeftChat(Text name, std::int16_t, std::int16_t, std::int16_t, Text type) override {
        transcript.push_back("left " + name + " " + type);
    }

    void ConsoleMessage(std::int16_t, Text user, Text text) override { told.push_back(user + ": " + text); }
    void AddConsoleUser(std::int16_t, Text user) override { told.push_back("+" + user); }
    void RemoveConsoleUser(std::int16_t, Text user) override { told.push_back("-" + user); }
    void IncomingIM(Text user, Text text) override { told.push_back("IM " + user + ": " + text); }
    void LockAdded(LockKind, Text name) override { told.push_back("lock " + name); }
    void LockRemoved(LockKind, Text name) override { told.push_back("unlock " + name); }
    void SetUserInfoTimer(bool enabled) override { told.push_back(enabled ? "timer on" : "timer off"); }
};

} // namespace halyard
