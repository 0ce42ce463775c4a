#pragma once

// Saves the settings, and the eject lists if the operator wants that, every 30 minutes. The main window owns
// the one.

namespace halyard {

class Options;
class Platform;

class AutoSave {
  public:
    /// Binds the tick of tmrAutoSave, which comes once a minute. Both outlive this.
    AutoSave(Platform& platform, Options& options);

  private:
    void Tick();

    Platform& platform;
    Options& options;
};

} // namespace halyard
