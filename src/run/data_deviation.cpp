// data_deviation.cpp - see data_deviation.h.
#include "run/data_deviation.h"

#include <algorithm>
#include <cmath>

namespace sondera {

double RelativeMisfit(const Observations& observations, const OffsetVector<double>& velocity) {
  double sum = 0.0;
  int n = 0;
  for (int i = 1; i <= std::min(observations.nObsRows, velocity.hi()); ++i) {
    if (velocity[i] == 0.0 || observations.runVel[i] == 0.0) continue;
    const double off = (velocity[i] - observations.runVel[i]) / observations.runVel[i];
    sum += off * off;
    ++n;
  }
  return n > 0 ? std::max(std::sqrt(sum / n), kLeastDeviation) : kLeastDeviation;
}

void SetRelativeDeviation(Observations& observations, double part) {
  for (int i = 1; i <= observations.nObsRows; ++i) {
    const double deviation = part * observations.runVel[i];
    observations.Cd.diag(i) = deviation * deviation;
  }
}

}  // namespace sondera
