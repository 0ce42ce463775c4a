// A bridge.toml of any bytes. Whatever it holds, the operator's part stays byte for byte when a choice is
// written, and what was written is read back the same; so are choices made of the input.

#include "base/Latin1.h"
#include "bridge/networks/BridgeFile.h"
#include "bridge/networks/BridgeHalves.h"
#include "fuzz/FedPlatform.h"
#include "platform/sim/SimFiles.h"

namespace {

using namespace halyard;

constexpr const char* path = "/config/bridge.toml";

/// What is kept of a line of the input, as far as anybody can ask for it.
void Keep(BridgeFile& file, SimFiles& disk, std::string_view line) {
    const auto before = disk.Contents(path);
    const auto middle = line.size() / 2;
    const std::string name(line.substr(0, middle)), other(line.substr(middle));
    const bool kept[] = {file.Choose(name, other, name), file.AllowRoasting(name, other),
                         file.SetManagement(name, {.header = other, .suspend = true})};
    const auto bytes = disk.Contents(path);
    fuzz::Require(HalvesOf(bytes).operators.starts_with(HalvesOf(before).operators));
    BridgeFile again(disk);
    again.Load();
    fuzz::Require(!kept[0] || again.ChosenFor(other, name) == name);
    fuzz::Require(!kept[1] || again.MayRoast(name, other));
    fuzz::Require(!kept[2] || again.Management(name).header == other);
    fuzz::Require(again.Networks().size() == file.Networks().size());
    const bool any = kept[0] || kept[1] || kept[2];
    fuzz::Require(any || bytes == before);
    // The last name that was written is a name, so to keep it again changes the bytes no more.
    if (any && again.Choose(again.ChosenFor({}, {}), {}, {})) {
        const auto first = disk.Contents(path);
        fuzz::Require(again.Choose(again.ChosenFor({}, {}), {}, {}) && disk.Contents(path) == first);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    SimFiles disk;
    disk.Put(path, bytes);
    BridgeFile file(disk);
    file.Load();
    for (const auto& problem : file.Problems()) fuzz::Require(problem.find('\n') == std::string::npos);
    fuzz::Require(file.Networks().size() == 3 || file.Problems().empty() || !HalvesOf(bytes).own.empty());
    Keep(file, disk, "OpenServer/some/file");
    Keep(file, disk, bytes.substr(0, bytes.find('\n')));
    Keep(file, disk, FromUtf8(bytes.substr(0, 600)));
    return 0;
}
