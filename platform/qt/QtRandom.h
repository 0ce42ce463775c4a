#pragma once

// Random numbers seeded from the machine's entropy.

#include "platform/Random.h"

#include <QRandomGenerator>

namespace halyard {

class QtRandom : public Random {
  public:
    void Reseed() override { generator = QRandomGenerator::securelySeeded(); }
    double Fraction() override { return generator.generateDouble(); }
    std::string Secret(std::size_t count) override {
        std::string bytes;
        for (std::size_t at = 0; at < count; ++at)
            bytes += static_cast<char>(QRandomGenerator::system()->bounded(256));
        return bytes;
    }

  private:
    QRandomGenerator generator = QRandomGenerator::securelySeeded();
};

} // namespace halyard
