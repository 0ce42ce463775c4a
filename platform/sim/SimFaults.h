#pragma once

// What the simulated network does to its connections, drawn from the world's random source. All off at first.

namespace halyard {

struct SimFaults {
    /// Milliseconds that a connect and every send take, one way.
    int latencyMin = 1;
    int latencyMax = 1;
    /// Streams arrive split and joined at random bytes.
    bool cutBytes = false;

    /// Probabilities, 0 to 1, for every connect: to be refused; never to be answered.
    double refuse = 0;
    double silent = 0;
    /// Probabilities, 0 to 1, for every send: the connection is reset; its peer is gone without a word;
    /// the connection stands still for up to `stallMax` milliseconds.
    double drop = 0;
    double halfOpen = 0;
    double stall = 0;
    int stallMax = 5000;
};

} // namespace halyard
