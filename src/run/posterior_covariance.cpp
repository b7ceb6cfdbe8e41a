// posterior_covariance.cpp - see posterior_covariance.h.
#include "run/posterior_covariance.h"

#include <cmath>
#include <cstddef>

#include "records/inv_records.h"
#include "run/model_numbers.h"
#include "run/result_entries.h"

namespace sondera {
namespace {

constexpr double kSameDeviation = 1e-6;  // relative

}  // namespace

std::vector<double> VelocityCovariance(const Run& run, int entry) {
  const int n = run.ground.nLayersCur;
  const ColumnMatrix& posterior = run.update.InvH;
  if (entry < 1 || entry > InvParam.rms.hi() || n != InvParam.nLayers || posterior.rows() < 1) return {};
  std::vector<int> parameter;
  bool any = false;
  for (int l = 1; l <= n; ++l) {
    const int p = run.parameters.MapEntry(kQuantityVs, l);
    parameter.push_back(p);
    if (p == 0) continue;
    if (p > posterior.rows()) return {};
    const double deviation = PosteriorDeviation(entry, l - 1), variance = posterior(p, p);
    if (!(variance > 0.0) || !(std::fabs(std::sqrt(variance) - deviation) <= kSameDeviation * deviation))
      return {};
    any = true;
  }
  if (!any) return {};
  std::vector<double> covariance;
  covariance.reserve(parameter.size() * parameter.size());
  for (const int row : parameter)
    for (const int column : parameter)
      covariance.push_back(row > 0 && column > 0 ? posterior(row, column) : 0.0);
  return covariance;
}

}  // namespace sondera
