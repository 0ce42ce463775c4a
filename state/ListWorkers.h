#pragma once

// The acts on the lists that commands, panels and file readers share. The command engine carries them out;
// what stands below it calls them through this. `intChatColIndex` is the position in Chat of the room to
// reply to; 0 is all rooms.

#include <cstdint>
#include <string>

namespace halyard {

class ListWorkers {
  public:
    virtual ~ListWorkers() = default;

    /// `strPerms` empty gives the universal permissions.
    virtual void AddOp(const std::string& name, std::int16_t intChatColIndex,
                       const std::string& strPerms) = 0;
    virtual void RemoveOp(const std::string& name, std::int16_t intChatColIndex) = 0;
    virtual void AddImm(const std::string& strImm, std::int16_t intChatColIndex) = 0;
    virtual void RemoveImm(const std::string& strImm, std::int16_t intChatColIndex) = 0;
    virtual void AddAB(const std::string& name, std::int16_t intChatColIndex) = 0;
    virtual void RemoveAB(const std::string& name, std::int16_t intChatColIndex) = 0;
    virtual void AddAW(const std::string& name, std::int16_t intChatColIndex) = 0;
    virtual void RemoveAW(const std::string& name, std::int16_t intChatColIndex) = 0;
    virtual void AddLockOp(const std::string& strOp, std::int16_t intChatColIndex) = 0;
    virtual void RemoveLockOp(const std::string& strOp, std::int16_t intChatColIndex) = 0;
    virtual void AddLockImm(const std::string& strImm, std::int16_t intChatColIndex) = 0;
    virtual void RemoveLockImm(const std::string& strImm, std::int16_t intChatColIndex) = 0;
    virtual void AddLockBan(const std::string& strBan, std::int16_t intChatColIndex) = 0;
    virtual void RemoveLockBan(const std::string& strBan, std::int16_t intChatColIndex) = 0;
};

} // namespace halyard
