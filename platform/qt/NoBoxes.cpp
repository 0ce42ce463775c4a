#include "platform/qt/NoBoxes.h"

#include "base/Latin1.h"
#include "platform/qt/QuitLater.h"

#include <iostream>

namespace halyard {

void NoBoxes::Note(const std::string& title, const std::string& text) {
    std::cerr << ToUtf8(title) << ": " << ToUtf8(text) << std::endl;
}

void NoDesktop::Quit() { QuitLater(); }

} // namespace halyard
