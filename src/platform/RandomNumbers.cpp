#include "platform/RandomNumbers.h"

#include <chrono>

namespace repvolta {

void TimerSeededNumbers::Seed() {
  engine_.seed(static_cast<std::mt19937_64::result_type>(
      std::chrono::steady_clock::now().time_since_epoch().count()));
}

double TimerSeededNumbers::Next() { return std::uniform_real_distribution<double>(0, 1)(engine_); }

}  // namespace repvolta
