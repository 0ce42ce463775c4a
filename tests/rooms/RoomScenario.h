#pragma once

// Rooms on virtual time with an owner that writes down what they ask for, each line with its second.

#include "base/Latin1.h"
#include "base/Text.h"
#include "platform/sim/SimPlatform.h"
#include "rooms/ChatSends.h"
#include "rooms/Chats.h"
#include "rooms/EjectList.h"
#include "rooms/RoomHost.h"
#include "rooms/TimerPool.h"

#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace halyard {

using Lines = std::vector<std::string>;

class RecordingHost : public RoomHost {
  public:
    using Text = const std::string&;
    using Int = std::int16_t;
    explicit RecordingHost(SimWorld& world) : world(world) { DefaultChatSendTexts(texts); }

    Lines transcript;
    std::int64_t zero = 0; ///< the moment from which the transcript counts
    std::function<void()> onSay;
    Collection<std::shared_ptr<EjectList>> lists;
    Collection<std::string> texts;

    void Note(const std::string& text) {
        transcript.push_back(NumberText(static_cast<double>(world.Now() - zero) / 1000) + " " + text);
    }
    Telling telling;
    std::set<Departure> guards; ///< that are on
    Telling& Tell() override { return telling; }
    bool Guarded(Departure guard, Int, Text) override { return guards.contains(guard); }
    std::int64_t Now() override { return world.Now(); }
    void Say(std::int16_t, const std::string& line) override {
        Note(ToUtf8(line));
        if (onSay) onSay();
    }
    void SendBanRequest(Int room, Text id, Text user) override {
        Note("ban " + std::to_string(room) + " " + id + " " + user);
    }
    void StoreRequest(Text id, Text record) override { Note("store " + id + " " + record); }
    void BanDropped(Text record, DropReason why) override {
        if (why == DropReason::Lost) return;
        Note((why == DropReason::Rated ? "rate drops " : "cleared ") + record);
    }
    void LiftBan(Text user, Int room) override { Note("lift " + std::to_string(room) + " " + user); }
    const Collection<std::shared_ptr<EjectList>>& AllEjectLists() const override { return lists; }
    std::string ChatSendText(int number) const override { return texts.Item(number); }
    void RoomRated(int type, Text name) override { Note("rated " + std::to_string(type) + " " + name); }
    void RoomUnrated(int type, Text name, Int room) override {
        Note("unrated " + std::to_string(type) + " " + name + " " + std::to_string(room));
    }

  private:
    SimWorld& world;
};

class RoomScenario : public ::testing::Test {
  protected:
    SimWorld world;
    SimPlatform platform{world};
    RecordingHost host{world};
    Collection<std::shared_ptr<Chats>> rooms;
    TimerPool pool{platform, rooms};

    Chats& OpenRoom(const std::string& name, std::int16_t intChatIndex, float sngBanPause = 2) {
        auto room = std::make_shared<Chats>(host, sngBanPause);
        room->ChatName = name;
        room->ChatIndex = intChatIndex;
        rooms.Add(room);
        for (const char* tag : {"ban", "msg", "msg1", "msg2", "msg3", "firstjoin", "ping", "unrate"})
            pool.CreateTimer(tag);
        return *room;
    }
    void CloseRoom(int position) {
        pool.UnloadChatTimers(position);
        rooms.Remove(position);
    }
    void Send(Chats& room, const std::string& key, const std::string& text, std::string name,
              const std::string& other = "", const std::string& msgType = "msg2") {
        std::string message = text;
        room.PrepareChatSend(name, "%p", message, other, key, msgType);
    }
    const Lines& Transcript() const { return host.transcript; }
    double Second() const { return static_cast<double>(world.Now()) / 1000; }
    void RunTo(double second) { world.RunFor(std::llround(second * 1000) - world.Now()); }
    /// By that second this, and nothing else, was said.
    void Heard(double second, const std::string& lines) {
        RunTo(second);
        EXPECT_EQ(Transcript(), Split(lines, "; "));
    }
};

} // namespace halyard
