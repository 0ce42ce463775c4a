#pragma once

// What halyardctl tells the shell, for every one of its commands.

namespace halyard {

enum class ExitStatus {
    Done = 0,
    No = 1,           ///< done, and the answer is no: nothing found, verify failed
    OffLine = 2,      ///< the bot is off line
    Misuse = 64,      ///< the arguments are wrong
    NobodyThere = 69, ///< no bot, or no file
    InOut = 74,       ///< something could not be read or written
};

} // namespace halyard
