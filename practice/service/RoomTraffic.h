#pragma once

// Family 000E: what happens in a room, for clients and for the people of the script alike.

#include "practice/Wire.h"
#include "practice/World.h"

#include <string>
#include <string_view>

namespace halyard {

/// Why a person cannot come in, as the word of TLV 0008: 004A kept out, 002E in already, 0018 full; 0 for
/// welcome.
int RefusalOf(const Room& room, const std::string& name);
/// Tells the journal that a person was not let in, where `word` says kept out or full.
void NoteRefusal(World& world, const Room& room, const std::string& name, int word);
/// Where a second session takes the place of the first: puts out the client of this name, if it is in.
void ReplaceMember(World& world, Room& room, const std::string& name);
/// The room block: exchange, cookie, instance, detail level 2, and the TLVs that describe the room.
std::string RoomBlock(const World& world, const Room& room);
/// 0001 0002 came on a chat connection: its person is in.
void ConnectionReady(World& world, ClientConnection& connection);
/// Family 000E on a chat connection.
bool HandleRoom(World& world, ClientConnection& connection, const Snac& snac);

/// Someone enters who is welcome; `connection` is null for a person of the script.
void EnterRoom(World& world, Room& room, const std::string& name, ClientConnection* connection);
/// Takes a person out and tells the others. Without effect for one who is not in.
void LeaveRoom(World& world, Room& room, const std::string& name);
/// A line is said. `block` is the message block (TLV 0005); `reflectTo` also gets it, unless null.
void SayInRoom(World& world, Room& room, const std::string& name, std::string_view cookie,
               std::string_view block, ClientConnection* reflectTo, std::uint32_t id);
/// A plain text as a message block.
std::string TextBlock(const World& world, std::string_view text);
/// The word that refuses a ban or unban by `by`: 0048 for one who is not the owner, 0049 for the owner as the
/// target.
int BanRefusal(const Room& room, const std::string& by, const std::string& target);
/// Keeps a person out, and puts out who is in.
void BanFromRoom(World& world, Room& room, const std::string& by, const std::string& target);
void UnbanFromRoom(World& world, Room& room, const std::string& by, const std::string& target);
/// Puts everyone out.
void CloseRoom(World& world, Room& room, const std::string& by);

} // namespace halyard
