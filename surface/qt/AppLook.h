#pragma once

class QApplication;

namespace halyard {

/// The program's name, its icon, and a style whose system colours go with the theme's fixed ones.
void SetLook(QApplication& application);

} // namespace halyard
