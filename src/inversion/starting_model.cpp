// starting_model.cpp - see starting_model.h.
#include "inversion/starting_model.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "numeric/scale_arithmetic.h"
#include "records/measurement_rules.h"
#include "records/result_capacity.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr int kGroups = 100, kLayersPerGroup = 4;
constexpr double kDepthOfWavelength = 0.5;  // of the longest one
constexpr double kFirstOfDepth = 0.3;       // the first layer is no thicker than that
constexpr double kHalfSpaceOfDepth = 1000.0;
constexpr double kNoMisfit = -1.0;  // same value as in a run without a velocity
constexpr double kSearchFrom = 1e30;

constexpr LayerDefaults kLayerDefaults[] = {
    {0.5, 150.0, 1800.0}, {50.0, 15000.0, 0.0018}, {2.0, 450.0, 112.5}, {24.0, 1143.0, 0.0651}};

bool HasGlobalCurve(const ModelRecord& m) {
  const int n = std::clamp(m.nDispPointsG, 0, static_cast<int>(m.globalVel.size()));
  return std::any_of(m.globalVel.begin(), m.globalVel.begin() + n, [](double v) { return v > 0.0; });
}

Refusal CheckEvaluation(const RatioSettings& ratios, const ModelRecord& settings) {
  if (!HasGlobalCurve(settings)) return "Please calculate the global rep. dispersion curve, first.";
  const int count = ratios.ALPHA_POINT;
  if (count < 0 || count > kMostRatios)
    return FormatText("The number of Depth-to-WaveL Ratios is %d. It must be from 1 to %d.", count,
                      kMostRatios);
  return {};
}

/// Allocates the slots; none of them has a misfit.
Refusal PrepareSlots(const RatioSettings& ratios, InvRecord& profiles) {
  const int formerCount = profiles.nEntries;
  profiles.nEntries = ratios.ALPHA_POINT;
  if (Refusal refusal = UpdateEntryTables(profiles)) {
    profiles.nEntries = formerCount;
    return refusal;
  }
  profiles.alphaFrom = ratios.ALPHA_FROM;
  profiles.alphaTo = ratios.ALPHA_TO;
  std::fill(profiles.rms.begin(), profiles.rms.end(), kNoMisfit);
  return {};
}

}  // namespace

const LayerDefaults& DefaultsOfUnit(int index) {
  return kLayerDefaults[std::clamp(index, 0, 3)];
}

std::vector<double> DoublingThicknesses(double t, double depth, double& sum) {
  std::vector<double> layers;
  sum = 0.0;
  for (int group = 0; group < kGroups; ++group) {
    if (group > 0) t *= 2.0;
    for (int k = 0; k < kLayersPerGroup; ++k) {
      layers.push_back(t);
      sum += t;
      if (sum > depth) return layers;
    }
  }
  return layers;
}

double DepthOfCurves(const RecordList<DispInfo>& curves) {
  double longest = 0.0;
  for (const DispInfo& curve : curves) {
    PMeasInfo* pair = nullptr;
    if (CheckifIncluded(curve.key, curve.refChan, curve.dspChan, pair) != 1) continue;
    for (int i = 1; i <= std::min(curve.nPoints, curve.wlen.hi()); ++i)
      if (std::isfinite(curve.wlen[i])) longest = std::max(longest, curve.wlen[i]);
  }
  return kDepthOfWavelength * longest;
}

double FirstThickness(double t, double depth) {
  return kFirstOfDepth * depth < t ? NiceNumber(kFirstOfDepth * depth, 1) : t;
}

Layering LayersForDepth(double t, double depth, bool halfSpace) {
  Layering layers;
  layers.thickness = DoublingThicknesses(t, depth, layers.depth);
  if (halfSpace) layers.thickness.push_back(kHalfSpaceOfDepth * layers.depth);
  return layers;
}

double RatioOf(const RatioSettings& ratios, int k) {
  const double from = ratios.ALPHA_FROM, to = ratios.ALPHA_TO;
  return ratios.ALPHA_POINT == 1 ? from : from + (k - 1) * (to - from) / (ratios.ALPHA_POINT - 1);
}

EvaluationEnd EvaluateRatios(const RatioSettings& ratios, const ModelRecord& settings, InvRecord& profiles,
                             const EvaluationSteps& steps, Listener& listener) {
  if (Refusal refusal = CheckEvaluation(ratios, settings)) return {refusal};
  if (Refusal refusal = PrepareSlots(ratios, profiles)) return {refusal};
  steps.begun();
  for (int k = 1; k <= ratios.ALPHA_POINT; ++k) {
    const double ratio = RatioOf(ratios, k);
    listener.Status(FormatText("Starting Model P. %d : alpha=%lg", k, ratio));
    listener.Process(FormatText("Calculating %dth profile (Depth/waveL = %lf)", k, ratio));
    if (steps.run(k, ratio) < 0) {
      if (k <= profiles.rms.hi()) profiles.rms[k] = kNoMisfit;
      return {{}, true, false};
    }
    if (!steps.done(k)) return {{}, true, false};
  }
  return {{}, true, true};
}

int BestProfile(const InvRecord& profiles, int count) {
  if (profiles.nLayers < 1) return 0;  // tables without a profile are zero, their misfits too
  double smallest = kSearchFrom;
  int best = 0;
  for (int k = 1; k <= std::min(count, profiles.rms.hi()); ++k) {
    const double misfit = profiles.rms[k];
    if (!(misfit >= 0.0 && misfit < smallest)) continue;
    smallest = misfit;
    best = k;
  }
  return best;
}

}  // namespace sondera
