#pragma once

#include <random>

namespace repvolta {

class RandomNumbers {
 public:
  virtual ~RandomNumbers() = default;

  /// Begins a new sequence, chosen by the system timer.
  virtual void Seed() = 0;

  /// The next number, uniform in [0, 1).
  virtual double Next() = 0;
};

// NOLINTNEXTLINE(cert-msc32-c,cert-msc51-cpp): Seed() begins each sequence.
class TimerSeededNumbers : public RandomNumbers {
 public:
  void Seed() override;
  double Next() override;

 private:
  std::mt19937_64 engine_;
};

}  // namespace repvolta
