#include "bridge/NewsFan.h"

#include <algorithm>

namespace halyard {

void NewsFan::Add(News& listener) { listeners.push_back(&listener); }

void NewsFan::Remove(News& listener) {
    std::replace(listeners.begin(), listeners.end(), &listener, static_cast<News*>(nullptr));
    if (passing == 0) DropRemoved();
}

void NewsFan::DropRemoved() {
    listeners.erase(std::remove(listeners.begin(), listeners.end(), nullptr), listeners.end());
}

} // namespace halyard
