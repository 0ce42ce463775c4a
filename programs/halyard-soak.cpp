// Runs the whole bot through virtual days and says whether all invariants held. The last line is the digest.

#include "oscar/wire/ModOscarFunctions.h"
#include "soak/SoakRun.h"

#include <iostream>

int main(int count, char** words) {
    using namespace halyard;
    auto plan = ReadPlan({words + 1, words + count});
    if (!plan) {
        std::cerr
            << "usage: halyard-soak --seed N --days D [--rooms R] [--people P] [--faults 0..9] [--lines L]"
               " [--network open-server [--management]]\n"
               "       [--journal 0..2] [--bridge | --ledger | --guards | --drill | --raids]\n"
               "or:    halyard-soak --day N [--journal 0..2] [--bridge | --ledger | --guards]\n"
               "L is the acts an hour in each room: 6 in one room, 1200 in each of several when not given.\n";
        return 2;
    }
    SoakRun run(*plan);
    if ((plan->ledger || plan->guards) && !run.HasLedger()) {
        std::cerr << "This one was built without the database, so there is no ledger, and no guard's file.\n";
        return 2;
    }
    if (plan->journal == 2)
        run.record.onNote = [](std::string_view kind, std::string_view bytes) {
            std::cout << kind << " " << (kind == "sends" ? StrToHex(bytes) : std::string(bytes)) << "\n";
        };
    if (plan->journal == 1)
        run.onEvent = [](const PracticeEvent& event) {
            std::cout << std::fixed << static_cast<double>(event.milliseconds) / 1000 << " " << event.room
                      << " " << event.who << " " << event.what << "\n";
        };
    const bool held = run.Run();
    std::cout << run.Events() << " events, " << run.FaultCount() << " faults, the operator stepped in "
              << run.StepsIn() << " times\n"
              << run.TimeBanWords() << "\n";
    for (const auto& [kind, times] : run.AlarmCounts())
        std::cout << "alarm " << TextOf(kind).name << " rang " << times << " times\n";
    if (!held) std::cout << "VIOLATION " << run.Violation() << "\nreplay: " << ReplayLine(*plan) << "\n";
    std::cout << run.Digest() << "\n";
    return held ? 0 : 1;
}
