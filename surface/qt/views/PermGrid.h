#pragma once

// The check boxes of permissions, as the op panel and the window of universal permissions show them.

#include "platform/Controls.h"

#include <deque>

class QLayout;

namespace halyard {

QLayout* PermGrid(std::deque<CheckBox>& chkPerm);

} // namespace halyard
