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
ModelRecord& SourceRecord(const Switches& switches) {
  return switches.runKind == kInversionRun ? TheoDispInfo : FModelParam;
}

double At(const std::vector<double>& v, int i) {
  return v[static_cast<std::size_t>(i - 1)];
}

void SetSwitches(int kind, int prePrfType, const ModelRecord& r, Switches& switches) {
  const bool inversion = kind == kInversionRun, waveform = kind == kWaveformRun;
  switches.runKind = kind;
  switches.iInvScheme = inversion ? 1 : 0;
  switches.iHaveData = inversion || (kind == kForwardRun && r.DispCurvInfo != 0) ? 1 : 0;
  switches.preliminaryProfileType = waveform ? 0 : prePrfType;
  switches.iProfileShape = 1;
  switches.nSubLayers = r.nSubLayers == 0 ? 16 : r.nSubLayers;
  const double depthOfZero = waveform ? kMeshDepthOfZeroInWaveforms : kMeshDepthOfZero;
  switches.fDispBulb = r.fDispBulb != 0.0 ? r.fDispBulb : depthOfZero;
  switches.iDispSource = r.dispCurvType;
  switches.GlobalRecType = r.GlobalRecType;
  switches.xDomain = switches.iHaveData == 0 && r.dispCurvType == 2 ? 2 : r.xDomainType;
  switches.epsConverge = 1e-5;
  switches.iUseAmplitude = 0;
  switches.wlTolerance = kind == kForwardRun ? 0.2 : 0.01;
  switches.stackOn = waveform ? 1 : 0;
  if (inversion) {
    switches.dThickness = switches.dVs = switches.dVp = switches.dDensity = kDerivativeStep;
    switches.alphaDepth = kInversionAlpha;
    switches.iDumpMatrices = 0;
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
Refusal NameResultFiles(const std::string& PROJID, std::string& baseName) {
  if (!IsPlainFileName(PROJID))
    return FormatText(
        "The project id \"%s\" cannot name the result files: it must not be empty, \".\" or \"..\", "
        "and must have no \"/\". Please change it in the hardware setup.",
        PROJID.c_str());
  baseName = JoinPath(session.resultFolder, PROJID);
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
Refusal MakeGlobalGrid(ModelRecord& r, const Switches& switches, Observations& observations) {
  const bool array = switches.iDispSource == 2;
  const auto [min, max] = array ? ArrayRange(r) : std::pair{r.xMinGlobal, r.xMaxGlobal};
  const OffsetVector<double> x = PointGrid(min, max, r.incRatio, observations.nDispPoints);
  if (!PointsAreUsable(x)) {
    if (array && std::abs(switches.iAnalysis) != 2)
      return {};  // not looked at; the array grid is judged for itself
    return NoGrid(min, max, r.incRatio);
  }
  std::copy(x.begin(), x.end(),
            (switches.xDomain == 1 ? observations.globalLambda : observations.globalFreq).begin());
  if (array) return {};  // the stored global curve stays: the record's array curves are what is shown
  std::copy(observations.globalFreq.begin(), observations.globalFreq.end(), r.globalFreq.begin());
  std::copy(observations.globalLambda.begin(), observations.globalLambda.end(), r.globalWlen.begin());
  return {};
}

Refusal FillGlobalCurve(ModelRecord& r, const Switches& switches, Observations& observations) {
  const int n = observations.nDispPoints = r.nDispPointsG;
  if (n > observations.globalVel.size() || n > observations.globalRecType.size())
    return FormatText("The global curve has %d points, the run was set up for %d.", n,
                      observations.globalVel.size());
  for (auto column : {&Observations::globalVel, &Observations::globalFreq, &Observations::globalLambda,
                      &Observations::globalDev})
    observations.*column = OffsetVector<double>(1, n);
  for (int i = 1; i <= n; ++i) {
    observations.globalRecCount[i] = 1;
    observations.globalRecType[i] = switches.GlobalRecType;
  }
  const bool waveform = switches.runKind == kWaveformRun && r.DispCurvInfo != 0;
  if (switches.iHaveData != 1 && !waveform) return MakeGlobalGrid(r, switches, observations);
  const std::string complaint = CheckGlobalData(r);
  if (!complaint.empty()) return complaint;
  if (switches.iHaveData == 1) {
    CopyColumn(r.globalVel, observations.globalVel, n);
    CopyColumn(r.globalFreq, observations.globalFreq, n);
    CopyColumn(r.globalWlen, observations.globalLambda, n);
  } else if (switches.xDomain == 1) {
    CopyColumn(r.globalWlen, observations.globalLambda, n);
  } else {
    CopyColumn(r.globalFreq, observations.globalFreq, n);
  }
  return {};
}

/// Receivers, pairs and empty tables of the item of array curves.
ObsCurve MakeObsCurve(const ModelRecord& r, bool withAmplitude) {
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
  if (withAmplitude) o.amp = o.ampDev = o.vel;
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
void FlattenArrayCurves(const ObsCurve& o, bool withAmplitude, Observations& observations) {
  observations.iArrayIndex.fill(0);
  observations.nObs = 0;
  for (int p = 1; p <= o.nFreq; ++p) {
    for (int c = 1; c <= o.nCurves; ++c) {
      const int at = o.At(p, c);
      if (o.vel[at] == 0.0) continue;
      const int row = observations.iArrayIndex(c, p) = ++observations.nObs;
      observations.arrayVel[row] = o.vel[at];
      observations.arrayFreq[row] = o.freq[p];
      observations.arrayDev[row] = o.dev[at];
      if (!withAmplitude) continue;
      observations.arrayAmp[row] = o.amp[at];
      observations.arrayAmpDev[row] = o.ampDev[at];
    }
  }
}

}  // namespace

std::string RunTitle(int analysis, bool inversion) {
  if (analysis == 2) return inversion ? "2-D Inversion" : "2-D";
  if (analysis == 3) return inversion ? "3-D Inversion" : "3-D";
  return inversion ? "Enhanced3-D Inversion" : "Enhanced 3-D";
}

Refusal FS_RetrieveSystemPM(Run& run, int kind, int prePrfType, const std::string& PROJID) {
  if (kind < kForwardRun || kind > kWaveformRun) return Refusal::WithoutReason();
  run.switches.runKind = kind;
  const ModelRecord& r = SourceRecord(run.switches);
  const std::string complaint = CheckRunSettings(r);
  if (!complaint.empty()) return complaint;
  SetSwitches(kind, prePrfType, r, run.switches);
  run.switches.iAnalysis = run.switches.iInvScheme == 0 ? -FModelParam.analysis : FModelParam.analysis;
  run.switches.iMeshGraded = FModelParam.analysis == 4;
  run.course.runTitle = RunTitle(FModelParam.analysis, kind == kInversionRun);
  if (Refusal refusal = NameResultFiles(PROJID, run.switches.baseName)) return refusal;
  if (Refusal refusal = FS_OpenFiles(kind, run.switches)) return refusal;
  FS_ReadReceiverSetup(run.switches, run.receivers);
  return {};
}

void FS_ReadReceiverSetup(const Switches& switches, Receivers& receivers) {
  const ModelRecord& r = SourceRecord(switches);
  std::fill(receivers.rec1Loc.begin(), receivers.rec1Loc.end(), 0.0);
  std::fill(receivers.rec2Loc.begin(), receivers.rec2Loc.end(), 0.0);
  if (switches.iDispSource == 1) {
    const bool fixedPair = switches.GlobalRecType == kFixedPair;
    FS_AllocateRecSetup(receivers, fixedPair ? 1 : 0);
    if (fixedPair && receivers.nRecSetups >= kFixedPair) {
      receivers.rec1Loc[kFixedPair] = r.GlobalRec1Loc;
      receivers.rec2Loc[kFixedPair] = r.GlobalRec2Loc;
    }
    return;
  }
  FS_AllocateRecSetup(receivers, r.nDispCurves);
  for (int s = kFixedPair; s <= receivers.nRecSetups; ++s) {
    const std::size_t c = static_cast<std::size_t>(s - kFixedPair);
    receivers.rec1Loc[s] = At(r.recLoc, r.pairRec1[c]);
    receivers.rec2Loc[s] = At(r.recLoc, r.pairRec2[c]);
  }
}

Refusal FS_ReadCompDispCurve(const Switches& switches, Observations& observations) {
  ModelRecord& r = SourceRecord(switches);
  const double cells = static_cast<double>(r.nDispPoints) * r.nDispCurves;
  if (r.nDispCurves > observations.iArrayIndex.rowHi() || r.nDispPoints > observations.iArrayIndex.colHi() ||
      cells > observations.arrayVel.size())
    return FormatText("The run was not set up for %d array curves of %d points.", r.nDispCurves,
                      r.nDispPoints);
  const bool withAmplitude = switches.iUseAmplitude == 1;
  ObsCurve o = MakeObsCurve(r, withAmplitude);
  if (switches.iHaveData == 1) {
    const std::string complaint = CheckArrayData(r);
    if (!complaint.empty()) return complaint;
    CopyColumn(r.freq, o.freq, o.nFreq);
    CopyColumn(r.vel, o.vel, o.vel.size());
  } else if (Refusal refusal = MakeArrayGrid(r, o)) {
    return refusal;
  }
  FlattenArrayCurves(o, withAmplitude, observations);
  observations.obsCurves = LList<ObsCurve>();
  PtrEnlist(observations.obsCurves, std::make_unique<ObsCurve>(std::move(o)));
  return {};
}

Refusal FS_GetStartMP(Run& run, const ConstrainedLayers& fixed, Listener& listener) {
  ModelRecord& r = SourceRecord(run.switches);
  const std::string complaint = CheckRunSettings(r);
  if (!complaint.empty()) return complaint;
  if (Refusal refusal = FillGlobalCurve(r, run.switches, run.observations)) return refusal;
  run.observations.nObs = 0;
  run.observations.obsCurves = LList<ObsCurve>();
  if (run.switches.iDispSource == 2)
    if (Refusal refusal = FS_ReadCompDispCurve(run.switches, run.observations)) return refusal;
  return FS_PrelimAnal(run, fixed, listener);
}

}  // namespace sondera
