#pragma once

// Bans on a server of one's own whose rooms know none: each request that BanUser sends ends that person's
// session through the server's management interface, which signs the person off the whole network, not one
// room. Listens to the desk's news and acts on the desk through RequestConfirmed and RequestRefused alone.
// Does nothing until terms say so. The window that holds the desk owns it.

#include "base/News.h"
#include "bridge/networks/ManagementTerms.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace halyard {

class Platform;
class TillerSock;

class Enforcement : public News {
  public:
    struct Hands {
        /// True for ops and immunes of the desk, whom nothing here touches. Asked with the name as it came.
        std::function<bool(const std::string& name)> spared;
        /// What the operator is told: one sentence without a line's end.
        std::function<void(const std::string& text)> tell;
        /// The bridge's data folder, in which enforcement.json and its key are kept; without one nothing is
        /// kept, no account suspended and no address watched.
        std::string folder;
    };

    /// `platform` and `control` outlive it.
    Enforcement(Platform& platform, TillerSock& control, Hands hands);
    ~Enforcement() override;
    Enforcement(const Enforcement&) = delete;
    Enforcement& operator=(const Enforcement&) = delete;

    /// From now on. What waits for other terms than these is dropped and told. Call it with the terms of the
    /// network that is signed on to, before signing on, and with ManagementTerms{} for none.
    void SetTerms(const ManagementTerms& terms);
    const ManagementTerms& Terms() const;

    /// By the operator's click, for one who "entered from where NAME was banned": the desk's own request to
    /// ban, as an op's "ban" makes it. False when the room isn't open, limited, or the person is spared.
    bool BanByHand(std::int16_t room, const std::string& name);

    /// Somebody entered from the address of one who is on the room's list; `other` is that one. What is told
    /// in words as well; for a row with a button.
    std::function<void(std::int16_t room, const std::string& name, const std::string& other)> onSameAddress;

    /// How many requests wait for their turn or an answer.
    std::size_t Waiting() const;

    // News.
    void SignedOff() override;
    void PersonCame(std::int16_t room, const std::string& name) override;
    void BanAsked(std::int16_t room, std::int32_t id, BanRequestKind kind, const std::string& name) override;

  private:
    struct Parts;
    std::unique_ptr<Parts> parts;
};

} // namespace halyard
