#pragma once

// The control tells its news to one listener; this one passes each fact on to several, in the order in which
// they were added; frames and lines, which are many, are told past it to the one who wants them. What holds
// the bridge together owns the one.

#include "base/News.h"

#include <cstddef>
#include <vector>

namespace halyard {

class NewsFan : public News {
  public:
    /// `listener` outlives the fan, or is taken out before it goes. It hears from the next fact on.
    void Add(News& listener);
    /// One who hears each fact before the others, who may act upon it; null for none.
    void SetFirst(News* listener) { first = listener; }
    void Remove(News& listener);

    void SignOnStage(const std::string& text) override { Pass(&News::SignOnStage, text); }
    void SignOnRefused(int code, const std::string& text) override { Pass(&News::SignOnRefused, code, text); }
    void SignedOn(const std::string& name) override { Pass(&News::SignedOn, name); }
    void SignedOff() override { Pass(&News::SignedOff); }
    void SignedOffElsewhere(int reason, const std::string& page) override {
        Pass(&News::SignedOffElsewhere, reason, page);
    }
    void ConnectionEnded(int socket, const std::string& text) override {
        Pass(&News::ConnectionEnded, socket, text);
    }
    void SocketFailed(int socket, int number, const std::string& words) override {
        Pass(&News::SocketFailed, socket, number, words);
    }
    void CauseEnded(const CauseScope& scope) override { Pass(&News::CauseEnded, scope); }
    void RoomEntered(std::int16_t room, const std::string& name, std::int16_t exchange) override {
        Pass(&News::RoomEntered, room, name, exchange);
    }
    void RoomLeft(std::int16_t room, const std::string& name, const std::string& reason) override {
        Pass(&News::RoomLeft, room, name, reason);
    }
    void RoomRefused(int code, const std::string& family, const std::string& text) override {
        Pass(&News::RoomRefused, code, family, text);
    }
    void PersonCame(std::int16_t room, const std::string& name) override {
        Pass(&News::PersonCame, room, name);
    }
    void PersonWent(std::int16_t room, const std::string& name) override {
        Pass(&News::PersonWent, room, name);
    }
    void MessagePassedOver(const std::string& name, const std::string& message) override {
        Pass(&News::MessagePassedOver, name, message);
    }
    void RateClasses(int socket, const std::string& body) override { Pass(&News::RateClasses, socket, body); }
    void RateTold(std::int16_t room, int code, int classId) override {
        Pass(&News::RateTold, room, code, classId);
    }
    void ConnectionsReset() override { Pass(&News::ConnectionsReset); }
    void SignOnBegun(const std::string& name) override { Pass(&News::SignOnBegun, name); }
    void ComebackPlanned(int milliseconds) override { Pass(&News::ComebackPlanned, milliseconds); }
    void RoomsAwaited(const Collection<std::string>& entries) override { Pass(&News::RoomsAwaited, entries); }
    void SocketTagged(int socket, const std::string& tag) override { Pass(&News::SocketTagged, socket, tag); }
    void RoomAsked(const std::string& name, std::int16_t exchange) override {
        Pass(&News::RoomAsked, name, exchange);
    }
    void RoomOpened(std::int16_t room, const std::string& name, std::int16_t exchange) override {
        Pass(&News::RoomOpened, room, name, exchange);
    }
    void OwnerTold(std::int16_t room, const std::string& name, bool own) override {
        Pass(&News::OwnerTold, room, name, own);
    }
    void LineQueued(std::int16_t room, const Msgs& line) override { Pass(&News::LineQueued, room, line); }
    void LineSaid(std::int16_t room, const Msgs& send, const std::string& line,
                  const std::vector<std::int64_t>& numbers) override {
        Pass(&News::LineSaid, room, send, line, numbers);
    }
    void LineDropped(std::int16_t room, const Msgs& line, LineDrop why) override {
        Pass(&News::LineDropped, room, line, why);
    }
    void PauseBegan(std::int16_t room, Pause pause, int milliseconds) override {
        Pass(&News::PauseBegan, room, pause, milliseconds);
    }
    void PauseEnded(std::int16_t room, Pause pause) override { Pass(&News::PauseEnded, room, pause); }
    void RateLevel(std::int16_t room, int classId, bool rated, int milliseconds) override {
        Pass(&News::RateLevel, room, classId, rated, milliseconds);
    }
    void TimeBanTold(TimeBanStep step, const std::string& record) override {
        Pass(&News::TimeBanTold, step, record);
    }
    void FileWritten(const std::string& path, bool done) override { Pass(&News::FileWritten, path, done); }
    void GuardAsked(Departure guard, bool acts, std::int16_t room, const std::string& who) override {
        Pass(&News::GuardAsked, guard, acts, room, who);
    }
    void PartHitNobody(std::int16_t room, const std::string& op, const std::string& part,
                       const std::vector<std::string>& fits) override {
        Pass(&News::PartHitNobody, room, op, part, fits);
    }
    void SomethingHeard(int socket, bool ownInfo) override { Pass(&News::SomethingHeard, socket, ownInfo); }
    void RoomWanted(const std::string& name, std::int16_t exchange) override {
        Pass(&News::RoomWanted, name, exchange);
    }
    void RoomCloseAsked(std::int16_t room) override { Pass(&News::RoomCloseAsked, room); }
    void BanWanted(std::int16_t room, std::int32_t id, BanKind kind, const std::string& name,
                   const std::string& other) override {
        Pass(&News::BanWanted, room, id, kind, name, other);
    }
    void BanDropped(std::int16_t room, std::int32_t id, BanKind kind, const std::string& name,
                    const std::string& other, DropReason why) override {
        Pass(&News::BanDropped, room, id, kind, name, other, why);
    }
    void BanAsked(std::int16_t room, std::int32_t id, BanRequestKind kind, const std::string& name) override {
        Pass(&News::BanAsked, room, id, kind, name);
    }
    void BanAnswered(std::int16_t room, std::int32_t id, BanVerdict verdict, int word) override {
        Pass(&News::BanAnswered, room, id, verdict, word);
    }
    void ListAdded(const ListId& list, const std::string& entry) override {
        Pass(&News::ListAdded, list, entry);
    }
    void ListRemoved(const ListId& list, const std::string& entry) override {
        Pass(&News::ListRemoved, list, entry);
    }
    void ListCleared(const ListId& list) override { Pass(&News::ListCleared, list); }

  private:
    template <typename... Parameters, typename... Values>
    void Pass(void (News::*fact)(Parameters...), const Values&... values) {
        if (first) (first->*fact)(values...);
        ++passing;
        for (std::size_t index = 0, count = listeners.size(); index < count; ++index)
            if (auto* listener = listeners[index]) (listener->*fact)(values...);
        if (--passing == 0) DropRemoved();
    }
    void DropRemoved();

    News* first = nullptr;
    std::vector<News*> listeners; ///< null for one that went while a fact was passed on
    int passing = 0;
};

} // namespace halyard
