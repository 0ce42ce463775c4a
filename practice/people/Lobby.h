#pragma once

#include <string_view>

namespace halyard {

/// The script that plays when none is given: a lobby of people who come, go, talk and misbehave, over and
/// over.
std::string_view LobbyScript();

} // namespace halyard
