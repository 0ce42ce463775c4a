#include "platform/sim/SimCommands.h"

#include <algorithm>
#include <utility>

namespace halyard {

SimCommands::~SimCommands() {
    if (end) clock.Cancel(*end);
}

bool SimCommands::Run(const CommandLine& command, Done done) {
    if (end || command.arguments.empty()) return false;
    if (!programs.missing) programs.started.push_back(command);
    CommandEnd ended;
    if (programs.missing)
        ended.problem = "there is no such program";
    else if (programs.take > command.timeout)
        ended.problem = "it took too long";
    else
        ended.status = 0;
    const auto time = programs.missing ? 0 : std::min<std::int64_t>(programs.take, command.timeout);
    end = clock.In(time, [this, ended, done = std::move(done)] {
        end.reset();
        done(ended);
    });
    return true;
}

} // namespace halyard
