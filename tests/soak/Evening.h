#pragma once

// An evening of the whole bot in which anything may fail: it signs on, joins a room, bans for an op, saves,
// loses its connection, comes back and loads. An operator sits by who tries again what did not come about.

#include "state/SettingsWriter.h"
#include "tests/surface/DeskScene.h"

#include <algorithm>

namespace halyard {

inline constexpr const char* settingsFile = "/program/evening.hys";
inline constexpr const char* bansFile = "/program/evening.txt";
inline constexpr const char* oldSettings = "old settings\r\n";
inline constexpr const char* oldBans = "Halyard File: Eject Lists\r\n\r\nlobby:4:0:olden\r\n";

/// Seconds. A lost sign-on is tried again 15 s after the attempt before, a room 8 s after the one before; a
/// failed sign-on that nothing else ends is given up after 15 s.
inline constexpr int wayBack = 1 + 15 + 15 + 1 + 8 + 8;

/// For how long at most something was shown that was not so, in ms.
class Untruth {
  public:
    void See(bool untrue, std::int64_t now) {
        if (!untrue || since < 0) since = untrue ? now : -1;
        if (untrue) longest = std::max(longest, now - since);
    }
    std::int64_t Longest() const { return longest; }

  private:
    std::int64_t since = -1, longest = 0;
};

class Evening : public Desk {
  public:
    Evening() {
        for (auto* box : {&boxes.chkAutoLogin, &boxes.chkRejoinKick, &boxes.chkRejoinError}) Set(*box, true);
        machine.disk.Put(settingsFile, oldSettings);
        machine.disk.Put(bansFile, oldBans);
        for (const auto* name : {"opal", "bob", "rowdy"}) people.Enter("lobby", name);
        MakeOp("opal");
        boxes.txtChat.SetText("lobby");
        world.afterEvent = [this] { Watch(); };
    }

    void Run() {
        Step("signing on", &Evening::OnLine, [this] { window.connection.cmdSignOn.Press(); });
        Step("joining", &Evening::Inside, [this] { window.chats.cmdJoinChat.Press(); });
        Wait(3);
        Step("banning", &Evening::BobBanned, [this] { people.Say("lobby", "opal", "ban bob"); });
        Wait(9);
        Step("time ban", &Evening::RowdyBanned, [this] { people.Say("lobby", "opal", "tban rowdy,1"); });
        Wait(9);
        Files();
        // The loss is noticed at once, and shown from the first attempt to come back on.
        Step("coming back", &Evening::Inside, [this] { people.Drop("harbourbot"), Wait(1.5); });
        Wait(180); // the time ban is lifted
        Lines held;
        for (const auto& name : control.GetEjectList("lobby", 0)) held.push_back(name);
        apart = held != network.Bans("lobby");
        Load();
        Wait(5);
    }
    bool OnLine() const {
        return control.LoggedOn() && window.connection.lblConnectionInfo.Caption() == "Online!";
    }
    bool Inside() const { return OnLine() && network.IsInRoom("lobby", "harbourbot"); }
    bool BobBanned() const { return network.IsBanned("lobby", "bob"); }
    bool RowdyBanned() const { return network.IsBanned("lobby", "rowdy"); }

    /// Where the operator had to step in, with what the window said.
    Lines steppedIn;
    std::string savedSettings, savedBans, broken;
    bool apart = false; ///< the eject list does not hold what the service does
    Untruth online, inside;
    /// The connect of this number finds no answer.
    void MakeSilent(std::uint64_t nth) {
        silentAt = world.network.Operations(SimNetwork::Operation::Connect) + nth;
        Silence();
    }

  private:
    std::uint64_t silentAt = 0;

    /// Does it, again when it has not come about in time.
    template <typename Act>
    void Step(const std::string& what, bool (Evening::*reached)() const, Act act) {
        for (int tries = 0; tries < 3; ++tries) {
            act();
            if (world.RunUntil([&] { return (this->*reached)(); }, wayBack * 1000)) return;
            steppedIn.push_back(what + ": " + window.connection.lblConnectionInfo.Caption() + " | " +
                                window.chats.lblChatStatus.Caption() + " | " + LastAction());
        }
        broken += what + " never worked; ";
    }
    void Files() {
        savedSettings = SettingsText(window.options);
        machine.dialogs.AnswerText(settingsFile);
        window.other.cmdSaveSettings.Press();
        savedBans = "Halyard File: Eject Lists\r\n\r\n";
        for (const auto& name : control.GetEjectList("lobby", 0)) savedBans += "lobby:4:0:" + name + "\r\n";
        machine.dialogs.AnswerText(bansFile);
        window.ejects.cmdSaveEjects.Press();
    }
    void Load() {
        machine.dialogs.AnswerText(bansFile);
        window.ejects.cmdLoadEjects.Press();
        machine.dialogs.AnswerText(settingsFile);
        window.other.cmdLoadSettings.Press();
    }
    /// After every event: how long what the window shows has not been so.
    void Watch() {
        const auto& listed = window.chats.lstChats;
        online.See(window.connection.lblConnectionInfo.Caption() == "Online!" &&
                       !network.IsOnLine("harbourbot"),
                   world.Now());
        inside.See(listed.ListCount() > 0 && !network.IsInRoom("lobby", "harbourbot"), world.Now());
        if (window.connection.cmdSignOn.Enabled() == window.connection.cmdSignOff.Enabled())
            broken += "both buttons alike; ";
        Silence();
    }
    void Silence() {
        if (silentAt == 0 || world.network.Operations(SimNetwork::Operation::Connect) + 1 != silentAt) return;
        world.network.SilentConnects(1);
        silentAt = 0;
    }
};

} // namespace halyard
