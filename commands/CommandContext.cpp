#include "commands/CommandContext.h"

#include "oscar/TillerSock.h"

namespace halyard {

void Reply(const CommandContext& context, const CommandCall& call, const std::string& strReplacement,
           int number, const std::string& strOther, const std::string& strType,
           const std::string& strMsgType) {
    context.control.PrepareSends(strReplacement, "%p", context.control.ChatSends.Item(number), strOther,
                                 strType, strMsgType, call.intChatColIndex);
}

void ReplyInvalid(const CommandContext& context, const CommandCall& call, const std::string& strReplacement,
                  int number) {
    Reply(context, call, strReplacement, number, "", "invalidsize", "msg3");
}

} // namespace halyard
