#pragma once

// An open file of the machine, closed at the end of its scope.

#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace halyard {

class Descriptor {
  public:
    /// Opens `path`, bytes as the machine takes them; never waits for the other end of a pipe or for a
    /// device.
    Descriptor(const std::string& path, int flags, mode_t mode = 0)
        : number(open(path.c_str(), flags | O_NONBLOCK | O_CLOEXEC | O_NOCTTY, mode)) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    Descriptor(Descriptor&& other) noexcept : number(std::exchange(other.number, -1)) {}
    Descriptor& operator=(Descriptor&&) = delete;
    ~Descriptor() { Close(); }

    bool IsOpen() const { return number >= 0; }
    int Number() const { return number; }
    /// False when it was not open or the machine reports an error.
    bool Close() { return IsOpen() && close(std::exchange(number, -1)) == 0; }
    /// True for a plain file: not a folder, not a pipe, not a device.
    bool IsPlainFile() const {
        struct stat about {};
        return IsOpen() && fstat(number, &about) == 0 && S_ISREG(about.st_mode);
    }

  private:
    int number;
};

} // namespace halyard
