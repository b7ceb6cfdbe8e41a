// run_doubts.cpp - see run_doubts.h. Owns no state.
#include "inversion/run_doubts.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>

#include "records/inv_records.h"
#include "records/kinds.h"
#include "records/model_records.h"
#include "records/selection.h"
#include "records/session.h"
#include "run/sweep_state.h"
#include "runtime/doubt_limits.h"
#include "runtime/findings.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr const DoubtLimits& kLimits = kDoubtLimits;
constexpr double kUsualFactorOfVs = 0.05;

double Percent(double share) {
  return 100.0 * share;
}

void DoubtPair(const PairFigures& f) {
  const char* label = f.label.c_str();
  if (f.windowShare >= 0.0 && f.windowShare < kLimits.windowShare)
    AddDoubt(FormatText(
        "%s: the filter window keeps %.0f %% of the energy of the impulse response, less than %.0f %%: "
        "set its times to where the response is strong, or cut the record to the band of the wave",
        label, Percent(f.windowShare), Percent(kLimits.windowShare)));
  if (f.lowCoherence < 0.0)
    AddNote(FormatText("%s: the coherence is unknown (a transfer function, or a single blow)", label));
  if (f.lowCoherence > kLimits.lowLines)
    AddDoubt(FormatText(
        "%s: the coherence is below %.2g on %.0f %% of the lines used: mask these lines, or average more "
        "blows",
        label, kLimits.coherence, Percent(f.lowCoherence)));
  if (f.far > kLimits.farPoints * f.points)
    AddDoubt(FormatText(
        "%s: %d of %d points have wavelengths beyond %.3g times the spacing or %.3g times the distance "
        "from the source to the first receiver: mask their lines, or take a pair further out",
        label, f.far, f.points, kLimits.farSpacings, kLimits.farSourceDistances));
  else if (f.noted > 0)
    AddNote(FormatText("%s: %d of %d points have wavelengths beyond %.3g times the spacing", label, f.noted,
                       f.points, kLimits.noteSpacings));
}

void DoubtAgreement(const PairAgreement& all) {
  if (all.beyond == 0) return;
  const Disagreement& worst = all.worst;
  AddDoubt(FormatText(
      "pairs disagree by up to %.0f %% at a wavelength of %.3g m (%s %.0f m/s, %s %.0f m/s; %ld of %ld "
      "couples beyond %.0f %%): look for a wrong count of cycles in one of them, and mask or exclude it",
      Percent(worst.share), worst.wavelength, worst.first.c_str(), worst.velocity1, worst.second.c_str(),
      worst.velocity2, all.beyond, all.couples, Percent(kLimits.disagreement)));
}

void DoubtMisfit(const std::vector<IterationFit>& fits) {
  std::string rises;
  for (std::size_t k = 1; k < fits.size(); ++k) {
    const IterationFit &before = fits[k - 1], &now = fits[k];
    if (before.chi < 0.0 || now.chi < 0.0 || now.chi <= before.chi * (1.0 + kLimits.misfitRise)) continue;
    rises += FormatText("%sin iteration %d from %.3g to %.3g", rises.empty() ? "" : ", ", now.iteration,
                        before.chi, now.chi);
  }
  if (!rises.empty())
    AddDoubt("the weighted misfit rose " + rises + ": take the iteration with the lowest, or smaller steps");
  if (fits.back().chi > kLimits.misfit)
    AddDoubt(FormatText(
        "the weighted misfit ends at %.3g, above %.3g: the model cannot follow the data; leave out pairs "
        "that disagree, choose other layers, or give the data larger deviations",
        fits.back().chi, kLimits.misfit));
}

void DoubtRows(const InversionHistory& history) {
  const int out = history.rowsOfData - history.iterations.back().rows;
  if (out <= 0) return;
  AddDoubt(FormatText(
      "%d of %d points left the fit: the solver found no velocity for them in one of the models, or they "
      "have no deviation; set the displacement bulb to 2.5, or mask them",
      out, history.rowsOfData));
}

/// A low resolution comes from data that say little, or from a factor that allows hardly any step.
std::string LowResolutionAdvice() {
  if (InvParam.ufVs > 0.0 && InvParam.ufVs < kLimits.factorOfVs)
    return FormatText("the uncertainty factor of Vs, %.3g, holds the model back: invert again with %.3g",
                      InvParam.ufVs, kUsualFactorOfVs);
  return "the data say little about it; merge it with its neighbour, or do not report it";
}

void DoubtResolution(int entry) {
  std::string layers, values;
  const int n = std::min(InvParam.nLayers, InvParam.resolution.colHi() + 1);
  for (int l = 0; l < n; ++l) {
    const double resolution = InvParam.resolution(entry, l);
    if (resolution >= kLimits.resolution) continue;
    layers += FormatText("%s%d", layers.empty() ? "" : ", ", l + 1);
    // Rounded down, so that 0.298 does not read as the limit.
    values += FormatText("%s%.2f", values.empty() ? "" : ", ", std::floor(100.0 * resolution) / 100.0);
  }
  if (layers.empty()) return;
  AddDoubt("the resolution is below " + FormatText("%.2g", kLimits.resolution) + " in layer " + layers +
           " (" + values + "): " + LowResolutionAdvice());
}

void DoubtDepth(int entry) {
  const double depth = HalfSpaceDepth(entry), longest = LongestObservedWavelength();
  if (!(depth > kLimits.depthShare * longest) || longest <= 0.0) return;
  const char* unit = UnitSign(session.lengthUnit);
  AddDoubt(FormatText(
      "the profile reaches %.3g %s, deeper than %.2g of the longest wavelength of %.3g %s: take fewer or "
      "thinner layers, or do not report what lies deeper than %.3g %s",
      depth, unit, kLimits.depthShare, longest, unit, kLimits.depthShare * longest, unit));
}

}  // namespace

void DoubtPairs(const std::vector<PairFigures>& pairs, const PairAgreement& agreement) {
  for (const PairFigures& f : pairs) DoubtPair(f);
  DoubtAgreement(agreement);
}

void DoubtInversion(const InversionHistory& history) {
  if (history.iterations.empty()) return;
  DoubtMisfit(history.iterations);
  DoubtRows(history);
  const int entry = LastEntry(history);
  if (entry >= 0) DoubtEntry(entry);
}

void DoubtEntry(int entry) {
  if (entry > 0) DoubtResolution(entry);  // the starting model has none
  DoubtDepth(entry);
}

void DoubtSweep() {
  const std::string report = SweepReport();
  if (!report.empty()) AddDoubt("in the last analysis: " + report);
}

void DoubtResults() {
  DoubtPairs(FiguresOfIncludedPairs(), AgreementOfPairs());
  if (!InversionHistories().empty()) DoubtInversion(InversionHistories().back());
  DoubtSweep();
}

const char* UnitSign(double unit) {
  const std::string name = LengthUnitName(unit);
  return name == "meter" ? "m" : name == "cm" ? "cm" : name == "ft" ? "ft" : "in";
}

double LongestObservedWavelength() {
  const ModelRecord& m = FModelParam;
  double longest = 0.0;
  const auto take = [&longest](double w) {
    if (std::isfinite(w)) longest = std::max(longest, w);
  };
  if (m.dispCurvType == kGlobalCurve) {
    const std::size_t n = static_cast<std::size_t>(std::max(m.nDispPointsG, 0));
    for (std::size_t i = 0; i < std::min(n, m.globalWlen.size()); ++i) take(m.globalWlen[i]);
    return longest;
  }
  const std::size_t curves = static_cast<std::size_t>(std::max(m.nDispCurves, 0));
  const std::size_t points = std::min(static_cast<std::size_t>(std::max(m.nDispPoints, 0)), m.freq.size());
  for (std::size_t p = 0; p < points; ++p)
    for (std::size_t k = p * curves; k < std::min((p + 1) * curves, m.vel.size()); ++k)
      if (m.freq[p] > 0.0) take(m.vel[k] / m.freq[p]);
  return longest;
}

int LastEntry(const InversionHistory& history) {
  if (history.iterations.empty()) return -1;
  const int entry = history.iterations.back().iteration;
  return entry <= InvParam.rms.hi() && InvParam.nLayers > 0 ? entry : -1;
}

double HalfSpaceDepth(int entry) {
  double depth = 0.0;
  for (int l = 0; l < std::min(InvParam.nLayers, InvParam.H.colHi() + 1) - 1; ++l)
    depth += InvParam.H(entry, l);
  return depth;
}

}  // namespace sondera
