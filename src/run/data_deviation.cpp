// data_deviation.cpp - see data_deviation.h.
#include "run/data_deviation.h"

#include <algorithm>
#include <cmath>

#include "run/system_state.h"

namespace sondera {

double RelativeMisfit(const OffsetVector<double>& velocity) {
  double sum = 0.0;
  int n = 0;
  for (int i = 1; i <= std::min(run.observations.nObsRows, velocity.hi()); ++i) {
    if (velocity[i] == 0.0 || run.observations.runVel[i] == 0.0) continue;
    const double off = (velocity[i] - run.observations.runVel[i]) / run.observations.runVel[i];
    sum += off * off;
    ++n;
  }
  return n > 0 ? std::max(std::sqrt(sum / n), kLeastDeviation) : kLeastDeviation;
}

void SetRelativeDeviation(double part) {
  for (int i = 1; i <= run.observations.nObsRows; ++i) {
    const double deviation = part * run.observations.runVel[i];
    run.observations.Cd.diag(i) = deviation * deviation;
  }
}

}  // namespace sondera
