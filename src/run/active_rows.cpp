// active_rows.cpp - see active_rows.h.
#include "run/active_rows.h"

#include <algorithm>

#include "run/system_state.h"

namespace sondera {

bool RowIsActive(int row) {
  return run.observations.iNoVelocity[row] == 0 && run.observations.Cd.diag(row) > 0.0;
}

std::vector<int> ActiveRows() {
  // Cd has the rows of the run; nObsRows counts those in use while an update is made.
  const int n =
      std::min(run.observations.iNoVelocity.hi(),
               run.switches.iUseAmplitude == 1 ? run.observations.Cd.size() / 2 : run.observations.Cd.size());
  std::vector<int> rows;
  for (int i = 1; i <= n; ++i)
    if (RowIsActive(i)) rows.push_back(i);
  return rows;
}

OffsetVector<double> CurveOfActiveRows(const OffsetVector<double>& velocity) {
  OffsetVector<double> curve = velocity;
  for (int i = 1; i <= std::min(run.observations.nObsRows, curve.hi()); ++i)
    if (!RowIsActive(i)) curve[i] = 0.0;
  return curve;
}

double WeightedMisfit(const OffsetVector<double>& velocity) {
  const std::vector<int> rows = ActiveRows();
  if (rows.empty()) return -1.0;
  double sum = 0.0;
  for (const int i : rows) {
    const double off = velocity[i] - run.observations.runVel[i];
    sum += off * off / run.observations.Cd.diag(i);
  }
  return sum / static_cast<double>(rows.size());
}

}  // namespace sondera
