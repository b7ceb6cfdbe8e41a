// run_advice.cpp - see run_advice.h.
#include "inversion/run_advice.h"

#include <algorithm>
#include <vector>

#include "records/inv_records.h"
#include "records/kinds.h"
#include "run/run_history.h"
#include "runtime/findings.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

/// With this value the wavelength loop rarely alternates between two meshes: the changing part lies deep.
constexpr double kSafeDispBulb = 2.5;
constexpr double kHighChi = 2.0, kLowResolution = 0.3;

/// Present run; null without one.
const InversionHistory* History() {
  if (InversionHistories().empty() || InversionHistories().back().iterations.empty()) return nullptr;
  return &InversionHistories().back();
}
/// Its last iteration; null when there is only the starting model.
const IterationFit* LastIteration() {
  const InversionHistory* history = History();
  return history != nullptr && history->iterations.back().iteration > 0 ? &history->iterations.back()
                                                                        : nullptr;
}

std::string AboutLostPoints(const Switches& switches, int all, const IterationFit& last) {
  const int lost = all - last.rows;
  if (lost <= 0) return {};
  std::string text = FormatText("%d of %d points ended without a result and %s not in the fit", lost, all,
                                lost == 1 ? "is" : "are");
  if (!IsPlaneWaves(switches.iAnalysis) && switches.fDispBulb < kSafeDispBulb)
    text += FormatText(": set the displacement bulb, now %g, to %g (1.8 times the time)", switches.fDispBulb,
                       kSafeDispBulb);
  return text;
}

std::string AboutChi(const IterationFit& last) {
  if (!(last.chi > kHighChi)) return {};
  return FormatText(
      "chi ends at %.2f, above %g: the data are further off than their deviations allow; try a deviation of "
      "0.15 (uf of Vph, with the data covariance uf x Vph) and one layer fewer",
      last.chi, kHighChi);
}

std::string AboutResolution(const Run& run, int iteration) {
  if (iteration > InvParam.resolution.rowHi()) return {};
  std::string layers;
  int count = 0;
  for (int l = 1; l <= std::min(run.ground.nLayersCur, InvParam.resolution.colHi() + 1); ++l) {
    const bool isFree = run.parameters.MapEntry(kQuantityVs, l) != 0;
    if (isFree && InvParam.resolution(iteration, l - 1) < kLowResolution)
      layers += (count++ > 0 ? ", " : "") + std::to_string(l);
  }
  if (count == 0) return {};
  return FormatText(
      count == 1 ? "layer %s has a resolution below %g" : "layers %s have a resolution below %g",
      layers.c_str(), kLowResolution);
}

}  // namespace

std::string FitOfRun() {
  const InversionHistory* history = History();
  if (history == nullptr) return {};
  const IterationFit& last = history->iterations.back();
  if (last.chi < 0.0) return FormatText("no point of %d in the fit", history->rowsOfData);
  const auto rank = [](const IterationFit& fit) { return fit.chi < 0.0 ? 1e300 : fit.chi; };
  const IterationFit& best =
      *std::min_element(history->iterations.begin(), history->iterations.end(),
                        [&](const IterationFit& a, const IterationFit& b) { return rank(a) < rank(b); });
  return FormatText("RMS %.2f, chi %.2f on %d of %d points (lowest chi %.2f in iteration %d)", last.rms,
                    last.chi, last.rows, history->rowsOfData, best.chi, best.iteration);
}

std::string RunAdvice(const Run& run) {
  const IterationFit* last = LastIteration();
  if (last == nullptr) return {};
  std::string advice;
  for (const std::string& part : {AboutLostPoints(run.switches, History()->rowsOfData, *last),
                                  AboutChi(*last), AboutResolution(run, last->iteration)})
    if (!part.empty()) advice += (advice.empty() ? "" : "; ") + part;
  return advice;
}

std::string ReportRunAdvice(const Run& run) {
  const IterationFit* last = LastIteration();
  if (last != nullptr && last->chi > kHighChi) AddNote(AboutChi(*last));
  return RunAdvice(run);
}

}  // namespace sondera
