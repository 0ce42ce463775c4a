// A statistics file of any bytes; what was read must come through the writer and the reader again.

#include "fuzz/FuzzDesk.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace halyard;
    auto& desk = fuzz::KeptDesk(data, size);
    auto& file = desk.window.stats.File;
    desk.window.counters.ClearStats();
    fuzz::Require(file.Write());
    for (const auto& path : desk.platform.disk.Paths()) // the only file there is
        desk.platform.disk.Put(path, std::string_view(reinterpret_cast<const char*>(data), size));
    if (!file.Load()) return 0; // of another version: emptied
    fuzz::Require(file.Write());
    auto& counters = desk.window.counters;
    const auto first = counters.Kept(Counters::FirstKept);
    fuzz::Require(file.Load());
    fuzz::Require(NumberText(counters.Kept(Counters::FirstKept)) == NumberText(first));
    counters.UpdateStat("all");
    return 0;
}
