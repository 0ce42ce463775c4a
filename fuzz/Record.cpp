#include "fuzz/Record.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Called by libFuzzer before the first input.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
    if (const char* path = std::getenv("HALYARD_FUZZ_REPLAY"))
        for (const auto& input : halyard::fuzz::Record::Read(path))
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
    return 0;
}

namespace halyard::fuzz {

void Record::Begin() {
    file.close();
    if (const char* path = std::getenv("HALYARD_FUZZ_RECORD")) file.open(path, std::ios::binary);
}

void Record::Add(std::string_view input) {
    if (file.is_open()) file << input.size() << '\n' << input << std::flush;
}

std::vector<std::string> Record::Read(const char* path) {
    std::ifstream file(path, std::ios::binary);
    std::vector<std::string> inputs;
    for (std::size_t length = 0; file >> length && file.get() == '\n';) {
        std::string input(length, '\0');
        if (!file.read(input.data(), static_cast<std::streamsize>(length))) break;
        inputs.push_back(std::move(input));
    }
    return inputs;
}

} // namespace halyard::fuzz
