// The inputs that one desk was given, in a file that is there after any kind of end: the length in decimal, a
// line feed and the input, again and again.

#include "fuzz/FuzzDesk.h"

#include <fstream>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Called by libFuzzer before the first input. Of a record that was cut off it plays the whole ones.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
    const char* path = std::getenv("HALYARD_FUZZ_REPLAY");
    std::ifstream file(path ? path : "", std::ios::binary);
    std::vector<std::string> inputs; // read first: what is played is recorded again
    for (std::size_t length = 0; file >> length && file.get() == '\n';) {
        std::string input(length, '\0');
        if (!file.read(input.data(), static_cast<std::streamsize>(length))) break;
        inputs.push_back(std::move(input));
    }
    for (const auto& input : inputs)
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
    return 0;
}

void halyard::fuzz::KeepOnRecord(std::string_view input, bool first) {
    static std::ofstream file;
    if (const char* path = std::getenv("HALYARD_FUZZ_RECORD"); path && first) {
        file.close();
        file.open(path, std::ios::binary);
    }
    if (file.is_open()) file << input.size() << '\n' << input << std::flush;
}
