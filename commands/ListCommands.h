#pragma once

// The workers behind the list commands and behind the same acts on the panels: four plain lists and three
// locks. A lock guards an entry of a plain list from removal. The command engine owns the one set. Every
// worker normalises its name and answers to the room at the given position, 0 being all rooms.

#include "state/ListWorkers.h"

namespace halyard {

class CommandHost;
class Counters;
class Options;
class TillerSock;

class ListCommands : public ListWorkers {
  public:
    ListCommands(Options& options, TillerSock& control, Counters& counters, CommandHost& host)
        : options(options), control(control), counters(counters), host(host) {}

    /// An op who comes back has the old permissions, since they outlive the removal.
    void AddOp(const std::string& name, std::int16_t intChatColIndex, const std::string& strPerms) override;
    void RemoveOp(const std::string& name, std::int16_t intChatColIndex) override;
    void AddImm(const std::string& strImm, std::int16_t intChatColIndex) override;
    void RemoveImm(const std::string& strImm, std::int16_t intChatColIndex) override;
    void AddAB(const std::string& name, std::int16_t intChatColIndex) override;
    void RemoveAB(const std::string& name, std::int16_t intChatColIndex) override;
    void AddAW(const std::string& name, std::int16_t intChatColIndex) override;
    void RemoveAW(const std::string& name, std::int16_t intChatColIndex) override;
    void AddLockOp(const std::string& strOp, std::int16_t intChatColIndex) override;
    void RemoveLockOp(const std::string& strOp, std::int16_t intChatColIndex) override;
    void AddLockImm(const std::string& strImm, std::int16_t intChatColIndex) override;
    void RemoveLockImm(const std::string& strImm, std::int16_t intChatColIndex) override;
    void AddLockBan(const std::string& strBan, std::int16_t intChatColIndex) override;
    void RemoveLockBan(const std::string& strBan, std::int16_t intChatColIndex) override;

  private:
    struct Answer {
        const char* key;
        int number;
    };
    /// How one worker counts and what it says.
    struct Answers {
        const char* stat;
        Answer refused; ///< already on the list, or not on it
        Answer done;
        Answer guarded; ///< locked, or not on the plain list
    };
    class Act;

    Options& options;
    TillerSock& control;
    Counters& counters;
    CommandHost& host;
};

} // namespace halyard
