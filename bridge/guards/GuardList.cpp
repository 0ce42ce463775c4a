#include "bridge/guards/GuardList.h"

#include <algorithm>

namespace halyard {

namespace {

using Guard = Departure;
using Fear = GuardGroup;

constexpr std::array<GuardRow, DepartureCount> guardRows{{
    {Guard::MainSignOffs, Fear::Back, "Signed off means signed off", true},
    {Guard::StopsAreStops, Fear::Back, "A stop is a stop", true},
    {Guard::SilenceIsAskedAbout, Fear::Back, "Silence is asked about", false},
    {Guard::RoomsAreAskedForAgain, Fear::Back, "Rooms are asked for again", false},
    {Guard::TimeBansAreKept, Fear::Bans, "Time bans are kept", false},
    {Guard::ListsStayWithRooms, Fear::Bans, "Lists stay with their room", true},
    {Guard::KicksEndAsKicks, Fear::Bans, "A kick ends as a kick", true},
    {Guard::BansOutliveRates, Fear::Bans, "Bans outlive a rate", true},
    {Guard::RequestIdsHaveOneOwner, Fear::Bans, "A request id has one owner", true},
    {Guard::NamesMeanPersons, Fear::Names, "Names mean persons", true},
    {Guard::OwnLinesAreNotHeard, Fear::Names, "Own lines are not heard", true},
    {Guard::DiceAreNotGhosts, Fear::Names, "Dice are not ghosts", true},
    {Guard::RunawayFuse, Fear::Names, "Runaway fuse", true},
    {Guard::NothingSaidIsLost, Fear::Speech, "Nothing said empty or lost", true},
    {Guard::NamesAreNoCommands, Fear::Speech, "Internal is internal", true},
    {Guard::NothingTypedIsLost, Fear::Truth, "Nothing typed is lost", true},
    {Guard::ShownIsSo, Fear::Truth, "What is shown is so", false},
    {Guard::NavigationAnswers, Fear::Ways, "Answers of the navigation service alone", false},
    {Guard::BareJoinRefusals, Fear::Ways, "Bare refusals of a room are told", false},
    {Guard::UnenforcedBans, Fear::Ways, "Bans that nobody enforces are told", false},
    {Guard::WholeMessageBlocks, Fear::Ways, "Lines are read as a whole", false},
    {Guard::RoastedPasswordType, Fear::Ways, "The roasted password under its other number", false},
    {Guard::RateClassesAsTold, Fear::Ways, "Rate classes as the service tells them", false},
    {Guard::OneServiceRequest, Fear::Ways, "One request for a room at a time", false},
    {Guard::RefusedSecondJoins, Fear::Ways, "A room is joined once", false},
    {Guard::ReachableRedirects, Fear::Ways, "Redirects that can be reached", false},
    {Guard::Tls, Fear::Ways, "Connections go over TLS", false},
}};

constexpr std::array<const char*, GuardGroupCount> groupTitles{
    "That the bot is gone and doesn't come back", "That a ban goes wrong",       "That it hits the wrong one",
    "That it says what it shouldn't, or nothing", "That what is shown isn't so", "What only a network needs",
};

} // namespace

const std::array<GuardRow, DepartureCount>& GuardList() { return guardRows; }

const GuardRow& RowOf(Departure departure) {
    return *std::find_if(guardRows.begin(), guardRows.end(),
                         [departure](const GuardRow& row) { return row.departure == departure; });
}

const char* TitleOf(GuardGroup group) { return groupTitles[static_cast<std::size_t>(group)]; }

} // namespace halyard
