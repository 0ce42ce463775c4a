#include "bridge/watch/alarms/AlarmTerms.h"

namespace halyard {

AlarmBounds BoundsOf(AlarmKind kind) {
    switch (kind) {
    case AlarmKind::OffLine:
    case AlarmKind::RoomLost:
    case AlarmKind::Silent: return {.minutes = true};
    case AlarmKind::Rated:
    case AlarmKind::LinesDropped:
    case AlarmKind::BansRefused:
    case AlarmKind::Raid:
    case AlarmKind::Fuse: return {.limit = true, .minutes = true};
    default: return {};
    }
}

AlarmTerm DefaultTerm(AlarmKind kind) {
    switch (kind) {
    case AlarmKind::OffLine: return {.minutes = 5, .rest = 30};
    case AlarmKind::RoomLost: return {.minutes = 3, .rest = 30};
    case AlarmKind::Silent: return {.minutes = 180, .rest = 360};
    case AlarmKind::Rated: return {.limit = 5, .minutes = 60};
    case AlarmKind::LinesDropped: return {.limit = 30, .minutes = 60};
    case AlarmKind::BansRefused: return {.limit = 2, .minutes = 60};
    case AlarmKind::Raid: return {.limit = 8, .minutes = 5};
    case AlarmKind::Fuse: return {.limit = 10, .minutes = 10};
    default: return {};
    }
}

AlarmTerms::AlarmTerms() {
    for (std::size_t index = 0; index < AlarmKindCount; ++index)
        kinds[index] = DefaultTerm(static_cast<AlarmKind>(index));
}

} // namespace halyard
