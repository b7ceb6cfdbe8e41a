// pair_figures.cpp - see pair_figures.h. Owns no state.
#include "signal/pair_figures.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "records/curve_labels.h"
#include "records/kinds.h"
#include "runtime/doubt_limits.h"
#include "signal/rep_curves.h"
#include "signal/spectra.h"

namespace sondera {
namespace {

constexpr double kSameAsOne = 1e-9;  // coherence of a single blow, except for rounding

/// Energy of the first `count` samples.
double Energy(const std::vector<double>& samples, std::size_t count) {
  double sum = 0.0;
  for (std::size_t i = 0; i < std::min(count, samples.size()); ++i) sum += samples[i] * samples[i];
  return sum;
}

double WindowShare(const PMeasInfo& pair, int nLines) {
  if (pair.phaseOption == kOriginalPhase) return -1.0;
  const std::size_t count = 2 * static_cast<std::size_t>(std::max(nLines, 0));
  const double whole = Energy(pair.irRe, count);
  if (!(whole > 0.0)) return -1.0;
  return Energy(pair.phaseOption == kBackbonePhase ? pair.bbIrRe : pair.enIrRe, count) / whole;
}

/// Whether both channels have an auto spectrum at all: an imported transfer function has none.
bool HasPower(const RawData& raw, const HWSetup& hw, int channel) {
  const std::size_t row = 2 * static_cast<std::size_t>(hw.nLines),
                    at = row * static_cast<std::size_t>(channel);
  if (hw.nLines <= 0 || channel < 0 || raw.powerSpec.size() < at + row) return false;
  const auto first = raw.powerSpec.begin() + static_cast<std::ptrdiff_t>(at);
  return std::any_of(first, first + hw.nLines, [](double v) { return v != 0.0; });
}

double LowCoherence(const PMeasInfo& pair, const MeasRecords& r, int points) {
  if (r.hwPos < 0 || r.rawPos < 0 || !(r.hwSetup->deltaF > 0.0)) return -1.0;
  if (!HasPower(*r.rawData, *r.hwSetup, pair.refChan) || !HasPower(*r.rawData, *r.hwSetup, pair.dspChan))
    return -1.0;
  const int n = r.hwSetup->nLines;
  std::vector<double> coherence(static_cast<std::size_t>(n));
  if (CalcSpectralData(spectral::kCoherence, r.projID, r.measID, pair.refChan, pair.dspChan, coherence.data(),
                       nullptr) < 0)
    return -1.0;
  int low = 0, lines = 0;
  bool single = true;
  for (int k = 0; k < points; ++k) {
    const double line = std::round(pair.dispFreq[static_cast<std::size_t>(k)] / r.hwSetup->deltaF);
    if (!(line >= 0.0 && line < n)) continue;
    const double value = coherence[static_cast<std::size_t>(line)];
    ++lines;
    low += !(value >= kDoubtLimits.coherence);
    single = single && std::fabs(value - 1.0) < kSameAsOne;
  }
  return lines == 0 || single ? -1.0 : static_cast<double>(low) / lines;
}

/// Distances of the pair; 0 where a location is not known.
void TakeDistances(const PMeasInfo& pair, const MeasRecords& r, PairFigures& f) {
  if (r.measPos < 0) return;
  const MeasSetup& setup = *r.measSetup;
  if (setup.lengthUnit > 0.0) f.unit = setup.lengthUnit;
  const int known = static_cast<int>(setup.recLoc.size());
  if (std::min(pair.refChan, pair.dspChan) < 0 || std::max(pair.refChan, pair.dspChan) >= known) return;
  const double ref = setup.recLoc[static_cast<std::size_t>(pair.refChan)];
  const double dsp = setup.recLoc[static_cast<std::size_t>(pair.dspChan)];
  f.spacing = std::fabs(dsp - ref);
  f.srcToR1 = std::min(std::fabs(ref - setup.srcLoc), std::fabs(dsp - setup.srcLoc));
}

void TakeCurve(const PMeasInfo& pair, PairFigures& f) {
  const auto [from, to] = std::minmax_element(pair.dispFreq.begin(), pair.dispFreq.begin() + f.points);
  f.freqFrom = *from;
  f.freqTo = *to;
  for (int k = 0; k < f.points; ++k) {
    const double w = pair.dispWlen[static_cast<std::size_t>(k)];
    f.longest = std::max(f.longest, w);
    f.noted += f.spacing > 0.0 && w > kDoubtLimits.noteSpacings * f.spacing;
    f.far += (f.spacing > 0.0 && w > kDoubtLimits.farSpacings * f.spacing) ||
             (f.srcToR1 > 0.0 && w > kDoubtLimits.farSourceDistances * f.srcToR1);
  }
}

}  // namespace

std::vector<PairFigures> FiguresOfIncludedPairs() {
  std::vector<PairFigures> figures;
  for (const PMeasInfo& pair : MeasDB.pMeasList) {
    MeasRecords r;
    PairFigures f;
    f.points = IncludedPoints(pair);
    if (f.points == 0 || GetInfoFromKey(pair.key, r) == -1) continue;
    f.measID = r.measID;
    f.label = RepCurveLabel(pair.key, pair.refChan, pair.dspChan, 1);
    f.refChan = pair.refChan;
    f.dspChan = pair.dspChan;
    TakeDistances(pair, r, f);
    TakeCurve(pair, f);
    if (r.hwPos >= 0) f.windowShare = WindowShare(pair, r.hwSetup->nLines);
    f.lowCoherence = LowCoherence(pair, r, f.points);
    figures.push_back(std::move(f));
  }
  return figures;
}

}  // namespace sondera
