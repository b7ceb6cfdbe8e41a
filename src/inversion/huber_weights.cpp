// huber_weights.cpp - see huber_weights.h.
#include "inversion/huber_weights.h"

#include <cmath>

#include "run/active_rows.h"

namespace sondera {

DiagonalMatrix HuberCovariance(const Observations& observations, const Switches& switches,
                               const OffsetVector<double>& velocity) {
  DiagonalMatrix Cd = observations.Cd;
  for (const int i : ActiveRows(observations, switches)) {
    const double z = std::fabs(velocity[i] - observations.runVel[i]) / std::sqrt(Cd.diag(i));
    if (z > kHuberLimit) Cd.diag(i) *= z / kHuberLimit;
  }
  return Cd;
}

double HuberTerm(double z) {
  const double size = std::fabs(z);
  return size <= kHuberLimit ? z * z : 2.0 * kHuberLimit * size - kHuberLimit * kHuberLimit;
}

}  // namespace sondera
