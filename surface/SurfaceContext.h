#pragma once

// What the panels and windows work on. The main window owns all of it and passes the one context to each.

namespace halyard {

class Banners;
class CommandEngine;
class Counters;
class Options;
class Platform;
class TillerSock;
class WindowHost;

struct SurfaceContext {
    Platform& platform;
    WindowHost& windows;
    Banners& banners;
    TillerSock& control;
    Options& options;
    Counters& counters;
    CommandEngine& engine;
};

/// Sends the profile: the banner, then the current user.
void SendProfile(const SurfaceContext& context);

} // namespace halyard
