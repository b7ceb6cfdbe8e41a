// best_time.h - time of one call, for the benches that compare calls of microseconds.
#pragma once

#include <algorithm>
#include <chrono>
#include <functional>

namespace sondera::bench {

/// Best time of one call, microseconds, over as many calls as fit into a budget (microseconds); disturbances
/// only increase the time. The first call is not counted.
inline double BestMicroseconds(const std::function<void()>& call, double budget) {
  using Clock = std::chrono::steady_clock;
  call();
  double best = 1e300, spent = 0.0;
  while (spent < budget) {
    const auto start = Clock::now();
    call();
    const double t = std::chrono::duration<double, std::micro>(Clock::now() - start).count();
    best = std::min(best, t);
    spent += t;
  }
  return best;
}

}  // namespace sondera::bench
