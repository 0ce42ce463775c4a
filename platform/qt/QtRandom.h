#pragma once

// Random numbers seeded from the machine's entropy.

#include "platform/Random.h"

#include <QRandomGenerator>

namespace halyard {

class QtRandom : public Random {
  public:
    void Reseed() override { generator = QRandomGenerator::securelySeeded(); }
    double Fraction() override { return generator.generateDouble(); }

  private:
    QRandomGenerator generator = QRandomGenerator::securelySeeded();
};

} // namespace halyard
