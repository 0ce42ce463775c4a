#pragma once

// Time bans outlive the program: each that runs stands in the file with the moment of its end, and goes on
// from there at the next start. One that was lifted stays until the service has answered. BanGuards owns the
// one.

#include "base/News.h"
#include "bridge/guards/bans/GuardsFile.h"

#include <cstdint>
#include <map>
#include <string>

namespace halyard {

class TillerSock;

class TimeBanKeeper : public News {
  public:
    /// All outlive it.
    TimeBanKeeper(Platform& platform, TillerSock& control, GuardsFile& file)
        : platform(platform), control(control), file(file) {}

    /// What stood in the file: these go on, or where the guard is off are forgotten.
    void Restore(const GuardsFile::Rows& rows);
    /// The guard may have been switched: all that run are kept from now on, or none.
    void SwitchesChanged();

    void TimeBanTold(TimeBanStep step, const std::string& record) override;
    void BanWanted(std::int16_t room, std::int32_t id, BanKind kind, const std::string& name,
                   const std::string& other) override;
    void BanAnswered(std::int16_t room, std::int32_t id, BanVerdict verdict, int word) override;

  private:
    bool IsOn() const;
    void Keep(const std::string& record);
    void Drop(const std::string& key);
    bool IsLifted(const std::string& key) const;

    Platform& platform;
    TillerSock& control;
    GuardsFile& file;
    std::map<std::string, std::string> kept;        ///< by key, what the file has
    std::map<std::int32_t, std::string> liftedById; ///< keys, by the request that lifts
};

} // namespace halyard
