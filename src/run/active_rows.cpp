// active_rows.cpp - see active_rows.h.
#include "run/active_rows.h"

#include <algorithm>

namespace sondera {

bool RowIsActive(const Observations& observations, int row) {
  return observations.iNoVelocity[row] == 0 && observations.Cd.diag(row) > 0.0;
}

std::vector<int> ActiveRows(const Observations& observations, const Switches& switches) {
  // Cd has the rows of the run; during an update nObsRows is the number of rows in use.
  const int n = std::min(observations.iNoVelocity.hi(),
                         switches.iUseAmplitude == 1 ? observations.Cd.size() / 2 : observations.Cd.size());
  std::vector<int> rows;
  for (int i = 1; i <= n; ++i)
    if (RowIsActive(observations, i)) rows.push_back(i);
  return rows;
}

OffsetVector<double> CurveOfActiveRows(const Observations& observations,
                                       const OffsetVector<double>& velocity) {
  OffsetVector<double> curve = velocity;
  for (int i = 1; i <= std::min(observations.nObsRows, curve.hi()); ++i)
    if (!RowIsActive(observations, i)) curve[i] = 0.0;
  return curve;
}

double WeightedMisfit(const Observations& observations, const Switches& switches,
                      const OffsetVector<double>& velocity) {
  const std::vector<int> rows = ActiveRows(observations, switches);
  if (rows.empty()) return -1.0;
  double sum = 0.0;
  for (const int i : rows) {
    const double off = velocity[i] - observations.runVel[i];
    sum += off * off / observations.Cd.diag(i);
  }
  return sum / static_cast<double>(rows.size());
}

}  // namespace sondera
