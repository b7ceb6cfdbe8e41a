// observations.cpp - see observations.h.
#include "run/observations.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>

#include "records/mesh_depth.h"
#include "records/model_records.h"
#include "records/run_limits.h"
#include "records/session.h"
#include "run/point_grid.h"
#include "run/run_files.h"
#include "run/run_sizes.h"
#include "runtime/paths.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr int kFixedPair = 4;  // GlobalRecType, and number of the first explicit set-up
constexpr double kDerivativeStep = 6e-6;
constexpr double kInversionAlpha = 0.53;

/// The record that supplies the points of the run.
ModelRecord& SourceRecord() {
  return run.switches.runKind == kInversionRun ? TheoDispInfo : FModelParam;
}

double At(const std::vector<double>& v, int i) {
  return v[static_cast<std::size_t>(i - 1)];
}

void SetSwitches(int kind, int prePrfType, const ModelRecord& r) {
  const bool inversion = kind == kInversionRun, waveform = kind == kWaveformRun;
  run.switches.runKind = kind;
  run.switches.iInvScheme = inversion ? 1 : 0;
  run.switches.iHaveData = inversion || (kind == kForwardRun && r.DispCurvInfo != 0) ? 1 : 0;
  run.switches.preliminaryProfileType = waveform ? 0 : prePrfType;
  run.switches.iProfileShape = 1;
  run.switches.nSubLayers = r.nSubLayers == 0 ? 16 : r.nSubLayers;
  const double depthOfZero = waveform ? kMeshDepthOfZeroInWaveforms : kMeshDepthOfZero;
  run.switches.fDispBulb = r.fDispBulb != 0.0 ? r.fDispBulb : depthOfZero;
  run.switches.iDispSource = r.dispCurvType;
  run.switches.GlobalRecType = r.GlobalRecType;
  run.switches.xDomain = run.switches.iHaveData == 0 && r.dispCurvType == 2 ? 2 : r.xDomainType;
  run.switches.epsConverge = 1e-5;
  run.switches.iUseAmplitude = 0;
  run.switches.wlTolerance = kind == kForwardRun ? 0.2 : 0.01;
  run.switches.stackOn = waveform ? 1 : 0;
  if (inversion) {
    run.switches.dThickness = run.switches.dVs = run.switches.dVp = run.switches.dDensity = kDerivativeStep;
    run.switches.alphaDepth = kInversionAlpha;
    run.switches.iDumpMatrices = 0;
  }
}

/// Largest value of a measured point. Real curves are far below; the squares of larger ones are not finite.
constexpr double kLargestDatum = 1e100;

/// Whether a number of the measured points can be used in a computation.
bool IsUsable(double x) {
  return std::fabs(x) <= kLargestDatum;
}

/// Message for a number of the measured points that cannot be used, or for a point without a frequency.
std::string CheckArrayData(const ModelRecord& r) {
  for (int p = 1; p <= r.nDispPoints; ++p) {
    for (int c = 1; c <= r.nDispCurves; ++c) {
      const double v = At(r.vel, (p - 1) * r.nDispCurves + c), f = At(r.freq, p);
      if (v == 0.0) continue;
      if (!IsUsable(v))
        return FormatText(
            "The velocity of array curve %d at point %d is %g. It must be a number below 1e100.", c, p, v);
      if (!(IsUsable(f) && f > 0.0))
        return FormatText(
            "The frequency of the array curves at point %d is %g. It must be above 0 and below 1e100.", p, f);
      if (!IsUsable(v / f))
        return FormatText(
            "Array curve %d has the velocity %g at %g Hz, point %d. No wavelength is that long.", c, v, f, p);
    }
  }
  return {};
}

std::string CheckGlobalData(const ModelRecord& r) {
  for (auto column : kGlobalColumns) {
    for (int p = 1; p <= r.nDispPointsG; ++p) {
      const double x = At(r.*column, p);
      if (!IsUsable(x))
        return FormatText("Point %d of the global curve has the value %g. It must be a number below 1e100.",
                          p, x);
    }
  }
  return {};
}

/// First part of the names of the result files. The id may come from a project file, and must not choose the
/// folder of the results.
Refusal NameResultFiles(const std::string& PROJID) {
  if (!IsPlainFileName(PROJID))
    return FormatText(
        "The project id \"%s\" cannot name the result files: it must not be empty, \".\" or \"..\", "
        "and must have no \"/\". Please change it in the hardware setup.",
        PROJID.c_str());
  run.switches.baseName = JoinPath(session.resultFolder, PROJID);
  return {};
}

/// Range of all array curves together, Hz.
std::pair<double, double> ArrayRange(const ModelRecord& r) {
  const auto minEnd = r.pairMin.begin() + r.nDispCurves, maxEnd = r.pairMax.begin() + r.nDispCurves;
  return {*std::min_element(r.pairMin.begin(), minEnd), *std::max_element(r.pairMax.begin(), maxEnd)};
}

Refusal NoGrid(double min, double max, double ratio) {
  return FormatText(
      "The range from %g to %g with the increment ratio %g gives no points to compute. Both ends "
      "must be above 0.",
      min, max, ratio);
}

void CopyColumn(const std::vector<double>& from, OffsetVector<double>& to, int n) {
  std::copy_n(from.begin(), n, to.begin());
}

/// Points of a run without data: over the range of the global curve, or of all array curves together.
Refusal MakeGlobalGrid(ModelRecord& r) {
  const bool array = run.switches.iDispSource == 2;
  const auto [min, max] = array ? ArrayRange(r) : std::pair{r.xMinGlobal, r.xMaxGlobal};
  const OffsetVector<double> x = PointGrid(min, max, r.incRatio, run.observations.nDispPoints);
  if (!PointsAreUsable(x)) {
    if (array && std::abs(run.switches.iAnalysis) != 2)
      return {};  // not checked: the array grid is checked separately
    return NoGrid(min, max, r.incRatio);
  }
  std::copy(
      x.begin(), x.end(),
      (run.switches.xDomain == 1 ? run.observations.globalLambda : run.observations.globalFreq).begin());
  if (array) return {};  // the stored global curve stays: the record's array curves are displayed
  std::copy(run.observations.globalFreq.begin(), run.observations.globalFreq.end(), r.globalFreq.begin());
  std::copy(run.observations.globalLambda.begin(), run.observations.globalLambda.end(), r.globalWlen.begin());
  return {};
}

Refusal FillGlobalCurve(ModelRecord& r) {
  const int n = run.observations.nDispPoints = r.nDispPointsG;
  if (n > run.observations.globalVel.size() || n > run.observations.globalRecType.size())
    return FormatText("The global curve has %d points, the run was set up for %d.", n,
                      run.observations.globalVel.size());
  for (auto column : {&Observations::globalVel, &Observations::globalFreq, &Observations::globalLambda,
                      &Observations::globalDev})
    run.observations.*column = OffsetVector<double>(1, n);
  for (int i = 1; i <= n; ++i) {
    run.observations.globalRecCount[i] = 1;
    run.observations.globalRecType[i] = run.switches.GlobalRecType;
  }
  const bool waveform = run.switches.runKind == kWaveformRun && r.DispCurvInfo != 0;
  if (run.switches.iHaveData != 1 && !waveform) return MakeGlobalGrid(r);
  const std::string complaint = CheckGlobalData(r);
  if (!complaint.empty()) return complaint;
  if (run.switches.iHaveData == 1) {
    CopyColumn(r.globalVel, run.observations.globalVel, n);
    CopyColumn(r.globalFreq, run.observations.globalFreq, n);
    CopyColumn(r.globalWlen, run.observations.globalLambda, n);
  } else if (run.switches.xDomain == 1) {
    CopyColumn(r.globalWlen, run.observations.globalLambda, n);
  } else {
    CopyColumn(r.globalFreq, run.observations.globalFreq, n);
  }
  return {};
}

/// Receivers, pairs and empty tables of the item of array curves.
ObsCurve MakeObsCurve(const ModelRecord& r) {
  ObsCurve o;
  o.nFreq = r.nDispPoints;
  o.nCurves = r.nDispCurves;
  o.nReceivers = r.nReceivers;
  o.rec1 = o.rec2 = OffsetVector<int>(1, o.nCurves);
  std::copy_n(r.pairRec1.begin(), o.nCurves, o.rec1.begin());
  std::copy_n(r.pairRec2.begin(), o.nCurves, o.rec2.begin());
  o.recLoc = OffsetVector<double>(1, o.nReceivers);
  CopyColumn(r.recLoc, o.recLoc, o.nReceivers);
  o.freq = OffsetVector<double>(1, o.nFreq);
  o.vel = o.dev = OffsetVector<double>(1, o.nFreq * o.nCurves);
  if (run.switches.iUseAmplitude == 1) o.amp = o.ampDev = o.vel;
  return o;
}

/// Frequencies of a run without data, and the marks of the points to compute.
Refusal MakeArrayGrid(ModelRecord& r, ObsCurve& o) {
  const auto [min, max] = ArrayRange(r);
  o.freq = PointGrid(min, max, r.incRatio, o.nFreq);
  if (!PointsAreUsable(o.freq)) return NoGrid(min, max, r.incRatio);
  std::copy(o.freq.begin(), o.freq.end(), r.freq.begin());
  for (int p = 1; p <= o.nFreq; ++p) {
    for (int c = 1; c <= o.nCurves; ++c) {
      const double f = o.freq[p];
      const bool outside = (f - At(r.pairMin, c)) * (f - At(r.pairMax, c)) > 0.0;
      o.vel[o.At(p, c)] = outside ? 0.0 : 1.0;
    }
  }
  return {};
}

/// Copies the points that count to the flat vectors.
void FlattenArrayCurves(const ObsCurve& o) {
  run.observations.iArrayIndex.fill(0);
  run.observations.nObs = 0;
  for (int p = 1; p <= o.nFreq; ++p) {
    for (int c = 1; c <= o.nCurves; ++c) {
      const int at = o.At(p, c);
      if (o.vel[at] == 0.0) continue;
      const int row = run.observations.iArrayIndex(c, p) = ++run.observations.nObs;
      run.observations.arrayVel[row] = o.vel[at];
      run.observations.arrayFreq[row] = o.freq[p];
      run.observations.arrayDev[row] = o.dev[at];
      if (run.switches.iUseAmplitude != 1) continue;
      run.observations.arrayAmp[row] = o.amp[at];
      run.observations.arrayAmpDev[row] = o.ampDev[at];
    }
  }
}

}  // namespace

std::string RunTitle(int analysis, bool inversion) {
  if (analysis == 2) return inversion ? "2-D Inversion" : "2-D";
  if (analysis == 3) return inversion ? "3-D Inversion" : "3-D";
  return inversion ? "Enhanced3-D Inversion" : "Enhanced 3-D";
}

Refusal FS_RetrieveSystemPM(int kind, int prePrfType, const std::string& PROJID) {
  if (kind < kForwardRun || kind > kWaveformRun) return Refusal::WithoutReason();
  run.switches.runKind = kind;
  const ModelRecord& r = SourceRecord();
  const std::string complaint = CheckRunSettings(r);
  if (!complaint.empty()) return complaint;
  SetSwitches(kind, prePrfType, r);
  run.switches.iAnalysis = run.switches.iInvScheme == 0 ? -FModelParam.analysis : FModelParam.analysis;
  run.switches.iMeshGraded = FModelParam.analysis == 4;
  run.course.runTitle = RunTitle(FModelParam.analysis, kind == kInversionRun);
  if (Refusal refusal = NameResultFiles(PROJID)) return refusal;
  if (Refusal refusal = FS_OpenFiles(kind, run.switches)) return refusal;
  FS_ReadReceiverSetup();
  return {};
}

void FS_ReadReceiverSetup() {
  const ModelRecord& r = SourceRecord();
  std::fill(run.receivers.rec1Loc.begin(), run.receivers.rec1Loc.end(), 0.0);
  std::fill(run.receivers.rec2Loc.begin(), run.receivers.rec2Loc.end(), 0.0);
  if (run.switches.iDispSource == 1) {
    const bool fixedPair = run.switches.GlobalRecType == kFixedPair;
    FS_AllocateRecSetup(fixedPair ? 1 : 0);
    if (fixedPair && run.receivers.nRecSetups >= kFixedPair) {
      run.receivers.rec1Loc[kFixedPair] = r.GlobalRec1Loc;
      run.receivers.rec2Loc[kFixedPair] = r.GlobalRec2Loc;
    }
    return;
  }
  FS_AllocateRecSetup(r.nDispCurves);
  for (int s = kFixedPair; s <= run.receivers.nRecSetups; ++s) {
    const std::size_t c = static_cast<std::size_t>(s - kFixedPair);
    run.receivers.rec1Loc[s] = At(r.recLoc, r.pairRec1[c]);
    run.receivers.rec2Loc[s] = At(r.recLoc, r.pairRec2[c]);
  }
}

Refusal FS_ReadCompDispCurve() {
  ModelRecord& r = SourceRecord();
  const double cells = static_cast<double>(r.nDispPoints) * r.nDispCurves;
  if (r.nDispCurves > run.observations.iArrayIndex.rowHi() ||
      r.nDispPoints > run.observations.iArrayIndex.colHi() || cells > run.observations.arrayVel.size())
    return FormatText("The run was not set up for %d array curves of %d points.", r.nDispCurves,
                      r.nDispPoints);
  ObsCurve o = MakeObsCurve(r);
  if (run.switches.iHaveData == 1) {
    const std::string complaint = CheckArrayData(r);
    if (!complaint.empty()) return complaint;
    CopyColumn(r.freq, o.freq, o.nFreq);
    CopyColumn(r.vel, o.vel, o.vel.size());
  } else if (Refusal refusal = MakeArrayGrid(r, o)) {
    return refusal;
  }
  FlattenArrayCurves(o);
  run.observations.obsCurves = LList<ObsCurve>();
  PtrEnlist(run.observations.obsCurves, std::make_unique<ObsCurve>(std::move(o)));
  return {};
}

Refusal FS_GetStartMP(const ConstrainedLayers& fixed, Listener& listener) {
  ModelRecord& r = SourceRecord();
  const std::string complaint = CheckRunSettings(r);
  if (!complaint.empty()) return complaint;
  if (Refusal refusal = FillGlobalCurve(r)) return refusal;
  run.observations.nObs = 0;
  run.observations.obsCurves = LList<ObsCurve>();
  if (run.switches.iDispSource == 2)
    if (Refusal refusal = FS_ReadCompDispCurve()) return refusal;
  return FS_PrelimAnal(fixed, listener);
}

}  // namespace sondera
