// empirical_profile.cpp - see empirical_profile.h.
#include "run/empirical_profile.h"

#include <cmath>
#include <cstddef>
#include <limits>

#include "run/run_sizes.h"

namespace sondera {
namespace {

/// Completes the layers of given thicknesses. The mid-depth of the last one is computed with the thickness of
/// the layer above.
void FillLayers(const Run& run, const std::vector<CurvePoint>& curve, const double* H, int n,
                const LayerColumns& out) {
  double top = 0.0;
  for (int i = 1; i <= n; ++i) {
    const bool last = i == n;
    const double thickness = last && n > 1 ? H[i - 1] : H[i];
    const double bottom = last ? std::numeric_limits<double>::infinity() : top + H[i];
    FS_PropLayer(run, top + thickness - thickness / 2.0, i, MeanShearVelocity(curve, top, bottom), out);
    top += H[i];
  }
}

Refusal FillBounds(Run& run, const std::vector<CurvePoint>& curve) {
  const std::vector<double> H =
      BoundsFromCurve(curve, run.ground.nLayersCur, run.ground.layerH[run.ground.nLayersCur]);
  LayerStack stack(static_cast<int>(H.size()));
  stack.n = static_cast<int>(H.size());
  for (int i = 1; i <= stack.n; ++i) stack.H[i] = H[static_cast<std::size_t>(i - 1)];
  KeepGivenLayersAsStrata(run.ground, run.strata);
  FillLayers(run, curve, stack.H.shifted(), stack.n, stack.columns());
  Refusal result = ReplaceRunLayers(run, stack);
  FS_DeAllocateStrataPropLayer(run.strata);
  return result;
}

}  // namespace

double MeanShearVelocity(const std::vector<CurvePoint>& curve, double top, double bottom) {
  double sum = 0.0;
  int n = 0;
  for (const CurvePoint& p : curve) {
    const double depth = p.w / kDepthOfWavelength;
    if (depth < top || depth > bottom) continue;
    sum += p.c;
    ++n;
  }
  return kShearOverPhase * (sum / n);
}

std::vector<double> BoundsFromCurve(const std::vector<CurvePoint>& curve, int most, double halfSpace) {
  const auto halfSum = [&](std::size_t p) {
    return 0.5 * (std::fabs(curve[p].c - curve.front().c) + std::fabs(curve[p - 1].c - curve.front().c));
  };
  double total = 0.0;
  for (std::size_t p = 1; p < curve.size(); ++p) total += halfSum(p);
  const double perLayer = total / most;
  std::vector<double> H;
  double sum = 0.0, top = 0.0;
  for (std::size_t p = 1; p < curve.size(); ++p) {
    sum += halfSum(p);
    const double depth = curve[p].w / kDepthOfWavelength;
    if (!(sum > perLayer) || !(depth > top) || static_cast<int>(H.size()) + 1 >= most) continue;
    H.push_back(depth - top);
    top = depth;
    sum = 0.0;
  }
  H.push_back(halfSpace);
  return H;
}

Refusal FS_EmpPrePrf(Run& run) {
  const std::vector<CurvePoint> curve = ObservedCurve(run.observations);
  if (curve.empty()) return "A starting profile needs a global dispersion curve.";
  if (run.switches.iProfileShape == kBoundsFromCurve) return FillBounds(run, curve);
  FillLayers(run, curve, run.ground.layerH.shifted(), run.ground.nLayersCur, RunLayerColumns(run.ground));
  return {};
}

}  // namespace sondera
