#pragma once

// The inputs that one desk was given, in a file that is there after any kind of end: the length in decimal, a
// line feed and the input, again and again.

#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace halyard::fuzz {

class Record {
  public:
    /// Empties the file that the environment's HALYARD_FUZZ_RECORD names; without one nothing is kept.
    void Begin();
    void Add(std::string_view input);
    /// All inputs of such a file; of one that was cut off, the whole ones.
    static std::vector<std::string> Read(const char* path);

  private:
    std::ofstream file;
};

} // namespace halyard::fuzz
