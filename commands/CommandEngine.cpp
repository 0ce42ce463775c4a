#include "commands/CommandEngine.h"

#include "commands/ListCommands.h"

namespace halyard {

CommandEngine::CommandEngine(Options& options, TillerSock& control, Counters& counters, CommandHost& host,
                             Dialogs& boxes)
    : lists(std::make_unique<ListCommands>(options, control, counters, host)), context{options,  control,
                                                                                       counters, host,
                                                                                       boxes,    *lists} {}

CommandEngine::~CommandEngine() = default;

} // namespace halyard
