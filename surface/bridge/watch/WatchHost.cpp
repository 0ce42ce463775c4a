#include "surface/bridge/watch/WatchHost.h"

#include "bridge/NewsFan.h"
#include "commands/CommandContext.h"
#include "surface/frmMain.h"

namespace halyard {

WatchHost::WatchHost(frmMain& main, NewsFan& heard)
    : truth(main.Context().platform, main.Control().Tell()), main(main), heard(heard) {
    heard.Add(truth);
    main.Control().Tell().frames = &truth;
}

WatchHost::~WatchHost() {
    heard.Remove(truth);
    if (main.Control().Tell().frames == &truth) main.Control().Tell().frames = nullptr;
}

} // namespace halyard
