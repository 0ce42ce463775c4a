#pragma once

// What the branches of the command engine work on, and the two things that nearly all of them do: answer, and
// look up whether a name is on a list. The engine owns the one context.

#include <cstdint>
#include <memory>
#include <string>

namespace halyard {

class Chats;
class CommandHost;
class Counters;
class Dialogs;
class ListWorkers;
class Options;
class RuleFuse;
class TillerSock;

struct CommandContext {
    Options& options;
    TillerSock& control;
    Counters& counters;
    CommandHost& host;
    Dialogs& boxes;
    ListWorkers& lists;
    RuleFuse* fuse = nullptr; ///< null: every rule acts
};

/// A command that was recognised: which one, who said it, where, and with which permissions.
struct CommandCall {
    int index = 0;       ///< of the ccom, 0 to 27
    std::string strUser; ///< normalised
    std::int16_t intChatIndex = 0;
    std::int16_t intChatColIndex = 0;
    std::string strPerms;
    std::string rest;            ///< the text behind the ccom
    std::shared_ptr<Chats> room; ///< never null
};

/// Says chatsend `number` in the room of the call: `strReplacement` for "%p", `strOther` for the key's second
/// mark.
void Reply(const CommandContext& context, const CommandCall& call, const std::string& strReplacement,
           int number, const std::string& strOther, const std::string& strType,
           const std::string& strMsgType);
/// The "invalidsize" answer with this chatsend.
void ReplyInvalid(const CommandContext& context, const CommandCall& call, const std::string& strReplacement,
                  int number);

/// True when the list has an entry under this name. An absent key counts as empty.
template <typename List>
bool CheckCollection(const std::string& strUser, const List& TheCollection) {
    return !TheCollection.Item(strUser).empty();
}

} // namespace halyard
