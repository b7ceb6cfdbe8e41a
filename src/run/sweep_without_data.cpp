// sweep_without_data.cpp - sweeps of runs without data, in the wavelength and the frequency domain; see sweep.h.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>

#include "records/kinds.h"
#include "run/receiver_setups.h"
#include "run/sampled_curve.h"
#include "run/sweep.h"
#include "run/sweep_solvers.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr double kFreeDeviation = 0.01;  // of points without a measurement
constexpr double kNoMinimum = 1e+36, kNoMaximum = 0.0;

struct Range {
  double min, max;
};

/// Frequencies of the run, Hz: those of a global curve, or of all pairs together.
Range WantedFrequencies(const ModelRecord& m, bool ofPairs) {
  if (!ofPairs) return {m.xMinGlobal, m.xMaxGlobal};
  Range r{kNoMinimum, kNoMaximum};
  for (std::size_t c = 0; c < static_cast<std::size_t>(m.nDispCurves); ++c) {
    r.min = std::min(r.min, m.pairMin[c]);
    r.max = std::max(r.max, m.pairMax[c]);
  }
  return r;
}

class GridSweep {
 public:
  GridSweep(const SweepParts& parts, Listener& listener, OffsetVector<double>& vel, OffsetVector<double>& amp)
      : o_(parts.observations),
        receivers_(parts.receivers),
        switches_(parts.switches),
        doubts_(parts.doubts),
        listener_(listener),
        usesPointLoad_(!IsPlaneWaves(parts.switches.iAnalysis)),
        solvers_(parts, parts.observations.nDispPoints, listener),
        vel_(vel),
        amp_(amp) {}

  Refusal SweepByWavelength();
  Refusal SweepByFrequency(const ModelRecord& settings);

 private:
  void RecordGlobalPoint(int i, double vel, double freq, double wavelength);
  void RecordNoResult(int row, const std::string& name);
  bool SolveGlobalPairs(int i, bool byFrequency);
  bool FinishGlobalPoint(int i, bool byFrequency);
  bool SweepGlobalByFrequency(const SampledCurve& curve);
  void MakeArrayRows(ObsCurve& o, const SampledCurve& curve);
  bool FinishArrayRow(int row, int p, int k);
  bool SweepArrayByFrequency(int curveId, ObsCurve& o, const SampledCurve& curve);

  Observations& o_;
  Receivers& receivers_;
  const Switches& switches_;
  SweepState& doubts_;
  Listener& listener_;
  bool usesPointLoad_;
  SweepSolvers solvers_;
  OffsetVector<double>&vel_, &amp_;
};

/// Plane-wave values of a point of the global curve, used as its observation.
void GridSweep::RecordGlobalPoint(int i, double vel, double freq, double wavelength) {
  o_.runVel[i] = o_.globalVel[i] = vel;
  o_.runFreq[i] = o_.globalFreq[i] = freq;
  o_.runLambda[i] = o_.runLambda2[i] = o_.globalLambda[i] = wavelength;
}

void GridSweep::RecordNoResult(int row, const std::string& name) {
  o_.iNoVelocity[row] = 1;
  doubts_.noResult.push_back(name);
}

/// Point-load velocities of all set-ups of a point of the global curve. @return false when halted
bool GridSweep::SolveGlobalPairs(int i, bool byFrequency) {
  const int n = o_.nDispPoints;
  const double freq = o_.runFreq[i], seed = o_.runVel[i], wavelength = o_.runLambda[i];
  for (int k = 1; k <= receivers_.nRecCfgPerPoint[i]; ++k) {
    const PairAnswer a = solvers_.PointLoad({i, k, freq, seed, wavelength, FormatText("%d", i)});
    const int at = (k - 1) * n + i;
    vel_[at] = a.vel;
    amp_[at] = a.amp * kAmplitudeFactor;
    o_.runLambda2[at] = RatioOrZero(a.vel, freq);
    if (a.vel == 0.0) o_.iNoVelocity[i] = 1;
    if (switches_.iUseAmplitude == 1) {
      doubts_.recAmp[(2 * k - 2) * n + i] = a.recAmp[1];
      doubts_.recAmp[(2 * k - 1) * n + i] = a.recAmp[2];
    }
    if (byFrequency) {
      listener_.Status(SlotProgress(i, k, freq, o_.runLambda2[at], a.vel));
    } else {
      listener_.Status(GlobalProgress(i, freq, o_.runLambda2[at], a.vel));
    }
    if (a.halted) return false;
  }
  return true;
}

/// The result of a point after its plane-wave values have been recorded. @return false when halted
bool GridSweep::FinishGlobalPoint(int i, bool byFrequency) {
  if (usesPointLoad_) return SolveGlobalPairs(i, byFrequency);
  vel_[i] = o_.runVel[i];
  if (vel_[i] == 0.0) RecordNoResult(i, FormatText("%d", i));
  listener_.Status(GlobalProgress(i, o_.runFreq[i], o_.runLambda[i], vel_[i]));
  return true;
}

Refusal GridSweep::SweepByWavelength() {
  FS_SetupReceivers(0, o_, receivers_);
  for (int i = 1; i <= o_.nDispPoints; ++i) {
    const double wavelength = o_.runLambda[i];
    double c = 0.0;
    if (!solvers_.PlaneWave(wavelength, c)) return Refusal::WithoutReason();
    RecordGlobalPoint(i, c, RatioOrZero(c, wavelength), wavelength);
    if (!FinishGlobalPoint(i, false)) return Refusal::WithoutReason();
  }
  return {};
}

bool GridSweep::SweepGlobalByFrequency(const SampledCurve& curve) {
  for (int i = 1; i <= o_.nDispPoints; ++i) {
    const double freq = o_.runFreq[i], c = VelocityAt(curve, freq);
    RecordGlobalPoint(i, c, freq, RatioOrZero(c, freq));
    if (!FinishGlobalPoint(i, true)) return false;
  }
  return true;
}

/// Makes the marked points of the array curves the rows of the run, with plane-wave velocities.
void GridSweep::MakeArrayRows(ObsCurve& o, const SampledCurve& curve) {
  o_.nObs = 0;
  for (int p = 1; p <= o.nFreq; ++p) {
    const double freq = o.freq[p], c = VelocityAt(curve, freq);
    for (int k = 1; k <= o.nCurves; ++k) {
      double& mark = o.vel[o.At(p, k)];
      if (mark == 0.0) continue;
      mark = c;
      const int row = o_.iArrayIndex(k, p) = ++o_.nObs;
      o_.runVel[row] = o_.arrayVel[row] = c;
      o_.runFreq[row] = o_.arrayFreq[row] = freq;
      o_.runLambda[row] = o_.runLambda2[row] = RatioOrZero(c, freq);
      o_.arrayDev[row] = kFreeDeviation;
      if (switches_.iUseAmplitude != 1) continue;
      o_.runAmp[row] = o_.arrayAmp[row] = 1.0;
      o_.arrayAmpDev[row] = kFreeDeviation;
    }
  }
  o_.nObsRows = o_.nObs;
  o_.ldObs = switches_.iUseAmplitude == 1 ? 2 * o_.nObs : o_.nObs;
}

/// Result of one array row. @return false when halted
bool GridSweep::FinishArrayRow(int row, int p, int k) {
  const std::string name = FormatText("(%d,%d)", p, k);
  const double freq = o_.runFreq[row], seed = o_.runVel[row];
  bool going = true;
  if (usesPointLoad_) {
    const PairAnswer a = solvers_.PointLoad({p, k, freq, seed, o_.runLambda[row], name});
    vel_[row] = a.vel;
    amp_[row] = a.amp * kAmplitudeFactor;
    if (a.vel == 0.0) o_.iNoVelocity[row] = 1;
    going = !a.halted;
  } else {
    vel_[row] = seed;
    if (seed == 0.0) RecordNoResult(row, name);
  }
  o_.runLambda2[row] = RatioOrZero(vel_[row], freq);
  if (switches_.iInvScheme == 0)
    listener_.Status(ArrayProgress(false, p, k, freq, o_.runLambda2[row], vel_[row]));
  return going;
}

bool GridSweep::SweepArrayByFrequency(int curveId, ObsCurve& o, const SampledCurve& curve) {
  MakeArrayRows(o, curve);
  FS_SetupReceivers(curveId, o_, receivers_);
  solvers_.SetStride(o.nFreq);
  for (int p = 1; p <= o.nFreq; ++p) {
    for (int k = 1; k <= o.nCurves; ++k) {
      const int row = o_.iArrayIndex(k, p);
      if (row > 0 && !FinishArrayRow(row, p, k)) return false;
    }
  }
  return true;
}

Refusal GridSweep::SweepByFrequency(const ModelRecord& settings) {
  FS_SetupReceivers(0, o_, receivers_);
  const bool ofPairs = switches_.iDispSource == kArrayCurves;
  const Range wanted = WantedFrequencies(settings, ofPairs);
  if (!(wanted.min > 0.0 && wanted.max > 0.0 && std::isfinite(wanted.max)))
    return FormatText("The frequencies from %g to %g Hz make no range. Both ends must be above 0.",
                      wanted.min, wanted.max);
  SampledCurve curve;
  if (!SampleCurve(solvers_, wanted.min, wanted.max, curve)) return Refusal::WithoutReason();
  bool going = true;
  if (ofPairs) {
    int curveId = 0;
    for (ObsCurve& item : o_.obsCurves)
      if (going) going = SweepArrayByFrequency(++curveId, item, curve);
  } else {
    going = SweepGlobalByFrequency(curve);
  }
  return going ? Refusal() : Refusal::WithoutReason();
}

}  // namespace

Refusal FS_rWave3D_F(const SweepParts& parts, const ModelRecord& settings, Listener& listener,
                     OffsetVector<double>& vel, OffsetVector<double>& amp) {
  DeriveLayerProperties(parts.ground, false);
  vel = amp = OffsetVector<double>(1, parts.observations.runVel.size());
  GridSweep sweep(parts, listener, vel, amp);
  if (parts.switches.iUseAmplitude == 1)
    parts.doubts.recAmp = OffsetVector<double>(1, 2 * parts.observations.runVel.size());
  return parts.switches.xDomain == kWavelengthDomain ? sweep.SweepByWavelength()
                                                     : sweep.SweepByFrequency(settings);
}

}  // namespace sondera
