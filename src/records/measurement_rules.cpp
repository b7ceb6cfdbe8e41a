// measurement_rules.cpp - see measurement_rules.h.
#include "records/measurement_rules.h"

#include <algorithm>
#include <cmath>

#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr double kTolerance = 0.01;   // of spans and intervals that determine each other
constexpr double kLargestUnit = 1e6;  // metres

bool AboveZero(double x) {
  return std::isfinite(x) && x > 0.0;
}

bool IsPlace(double x) {
  return std::fabs(x) <= kFarthestPlace;  // not a NaN
}

/// a between b and c, or near one of them.
bool Near(double a, double b, double c) {
  return a >= b * (1.0 - kTolerance) && a <= c * (1.0 + kTolerance);
}

std::string BandFault(const HWSetup& hw) {
  const double end = hw.nLines * hw.deltaF * (1.0 + kTolerance);
  if (!(hw.startFreq >= 0.0) || !(hw.stopFreq > hw.startFreq) || !(hw.stopFreq <= end))
    return FormatText("has a band from %g to %g Hz on lines from 0 to %g Hz", hw.startFreq, hw.stopFreq,
                      (hw.nLines - 1) * hw.deltaF);
  return {};
}

}  // namespace

std::string SamplingFault(const HWSetup& hw) {
  const double span = std::fabs(hw.freqSpan);
  if (hw.nLines < 2) return hw.nLines < 1 ? "has no lines" : "has one line only";
  if (!AboveZero(hw.deltaF)) return FormatText("has a line spacing of %g Hz", hw.deltaF);
  if (!AboveZero(hw.deltaT)) return FormatText("has a sample interval of %g s", hw.deltaT);
  if (!AboveZero(span)) return FormatText("has a span of %g Hz", hw.freqSpan);
  if (!Near(span, (hw.nLines - 1) * hw.deltaF, hw.nLines * hw.deltaF))
    return FormatText("has %d lines of %g Hz on a span of %g Hz", hw.nLines, hw.deltaF, span);
  if (!Near(hw.deltaT, 0.5 / span, 0.5 / span))
    return FormatText("has a sample interval of %g s with a span of %g Hz", hw.deltaT, span);
  return hw.freqSpan < 0.0 ? BandFault(hw) : std::string();
}

std::string PlacesFault(const MeasSetup& setup) {
  if (!IsPlace(setup.srcLoc)) return FormatText("has its source at %g", setup.srcLoc);
  for (std::size_t c = 0; c < setup.recLoc.size(); ++c)
    if (!IsPlace(setup.recLoc[c])) return FormatText("has receiver %zu at %g", c + 1, setup.recLoc[c]);
  if (!AboveZero(setup.lengthUnit) || setup.lengthUnit > kLargestUnit)
    return FormatText("has a unit of length of %g m", setup.lengthUnit);
  return {};
}

std::string ReceiversFault(const MeasSetup& setup) {
  const auto& x = setup.recLoc;
  for (std::size_t b = 1; b < x.size(); ++b)
    for (std::size_t a = 0; a < b; ++a)
      if (x[a] == x[b])
        return FormatText("has the receivers %zu and %zu at the same place, %g", a + 1, b + 1, x[a]);
  return {};
}

std::string MeasurementFault(int key) {
  const HWSetup* hw = MeasDB.hwSetupList.at(MeasDB.hwSetupList.findKey(key));
  const MeasSetup* setup = MeasDB.measSetupList.at(MeasDB.measSetupList.findKey(key));
  const std::string fault = hw ? SamplingFault(*hw) : std::string();
  return fault.empty() && setup ? PlacesFault(*setup) : fault;
}

bool CurveIsFinite(const PMeasInfo& pair) {
  const std::size_t n = static_cast<std::size_t>(std::max(pair.nDispPoints, 0));
  for (const std::vector<double>* column : {&pair.dispVel, &pair.dispFreq, &pair.dispWlen})
    for (std::size_t i = 0; i < std::min(n, column->size()); ++i)
      if (!std::isfinite((*column)[i])) return false;
  return true;
}

bool HasUsableCurve(const PMeasInfo& pair) {
  const HWSetup* hw = MeasDB.hwSetupList.at(MeasDB.hwSetupList.findKey(pair.key));
  if (!hw || MeasDB.idList.findKey(pair.key) < 0) return true;
  const bool inside =
      std::min(pair.refChan, pair.dspChan) >= 0 && std::max(pair.refChan, pair.dspChan) < hw->nChannels;
  return inside && MeasurementFault(pair.key).empty();
}

int CheckifIncluded(int key, int refChan, int dspChan, PMeasInfo*& pair) {
  PMeasInfo* found = FindPair(key, refChan, dspChan);
  if (!found || found->included != 1 || !HasUsableCurve(*found)) return 0;
  pair = found;
  return 1;
}

}  // namespace sondera
