// observations.cpp - see observations.h.
#include "inversion/observations.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>

#include "forward/model_records.h"
#include "forward/run_limits.h"
#include "forward/system_model.h"
#include "inversion/point_grid.h"
#include "inversion/run_files.h"
#include "project/session.h"
#include "runtime/panels/hmsetup.h"
#include "runtime/paths.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr int kFixedPair = 4;  // GlobalRecType, and number of the first explicit set-up
constexpr double kDerivativeStep = 6e-6;
constexpr double kInversionAlpha = 0.53;

/// The record that the points of the run come from.
ModelRecord& SourceRecord() {
  return run.runKind == kInversionRun ? TheoDispInfo : FModelParam;
}

double At(const std::vector<double>& v, int i) {
  return v[static_cast<std::size_t>(i - 1)];
}

void SetSwitches(int kind, int prePrfType, const ModelRecord& r) {
  const bool inversion = kind == kInversionRun, waveform = kind == kWaveformRun;
  run.runKind = kind;
  run.iInvScheme = inversion ? 1 : 0;
  run.iHaveData = inversion || (kind == kForwardRun && r.DispCurvInfo != 0) ? 1 : 0;
  run.preliminaryProfileType = waveform ? 0 : prePrfType;
  run.iProfileShape = 1;
  run.nSubLayers = r.nSubLayers == 0 ? 16 : r.nSubLayers;
  run.fDispBulb = r.fDispBulb != 0.0 ? r.fDispBulb : waveform ? 1.7 : 4.0;
  run.iDispSource = r.dispCurvType;
  run.GlobalRecType = r.GlobalRecType;
  run.xDomain = run.iHaveData == 0 && r.dispCurvType == 2 ? 2 : r.xDomainType;
  run.epsConverge = 1e-5;
  run.iUseAmplitude = 0;
  run.wlTolerance = kind == kForwardRun ? 0.2 : 0.01;
  run.stackOn = waveform ? 1 : 0;
  if (inversion) {
    run.dThickness = run.dVs = run.dVp = run.dDensity = kDerivativeStep;
    run.alphaDepth = kInversionAlpha;
    run.iDumpMatrices = 0;
  }
}

/// Largest value of a measured point. No curve comes near it; the squares of larger ones are not finite.
constexpr double kLargestDatum = 1e100;

/// Whether anything can be computed with a number of the measured points.
bool IsUsable(double x) {
  return std::fabs(x) <= kLargestDatum;
}

/// Complaint about a number of the measured points that is not usable, or a point without a frequency.
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

/// First part of the names of the result files. A project file brings its id along, and must not choose the
/// folder they go to.
int NameResultFiles() {
  const std::string projID = GetCtrlVal(hmsetup::PROJID);
  if (!IsPlainFileName(projID))
    return Refuse(FormatText(
        "The project id \"%s\" cannot name the result files: it must not be empty, \".\" or \"..\", "
        "and must have no \"/\". Please change it in the hardware setup.",
        projID.c_str()));
  run.baseName = JoinPath(session.resultFolder, projID);
  return 0;
}

/// Range of all array curves together, Hz.
std::pair<double, double> ArrayRange(const ModelRecord& r) {
  const auto minEnd = r.pairMin.begin() + r.nDispCurves, maxEnd = r.pairMax.begin() + r.nDispCurves;
  return {*std::min_element(r.pairMin.begin(), minEnd), *std::max_element(r.pairMax.begin(), maxEnd)};
}

int RefuseGrid(double min, double max, double ratio) {
  return Refuse(
      FormatText("The range from %g to %g with the increment ratio %g gives no points to compute. Both ends "
                 "must be above 0.",
                 min, max, ratio));
}

void CopyColumn(const std::vector<double>& from, OffsetVector<double>& to, int n) {
  std::copy_n(from.begin(), n, to.begin());
}

/// Points of a run without data: over the range of the global curve, or of all array curves together.
int MakeGlobalGrid(ModelRecord& r) {
  const bool array = run.iDispSource == 2;
  const auto [min, max] = array ? ArrayRange(r) : std::pair{r.xMinGlobal, r.xMaxGlobal};
  const OffsetVector<double> x = PointGrid(min, max, r.incRatio, run.nDispPoints);
  if (!PointsAreUsable(x)) {
    if (array && std::abs(run.iAnalysis) != 2)
      return 0;  // not looked at; the array grid is judged for itself
    return RefuseGrid(min, max, r.incRatio);
  }
  std::copy(x.begin(), x.end(), (run.xDomain == 1 ? run.globalLambda : run.globalFreq).begin());
  if (array) return 0;  // the stored global curve stays: the record's array curves are what is shown
  std::copy(run.globalFreq.begin(), run.globalFreq.end(), r.globalFreq.begin());
  std::copy(run.globalLambda.begin(), run.globalLambda.end(), r.globalWlen.begin());
  return 0;
}

int FillGlobalCurve(ModelRecord& r) {
  const int n = run.nDispPoints = r.nDispPointsG;
  if (n > run.globalVel.size() || n > run.globalRecType.size())
    return Refuse(
        FormatText("The global curve has %d points, the run was set up for %d.", n, run.globalVel.size()));
  for (auto column :
       {&RunVectors::globalVel, &RunVectors::globalFreq, &RunVectors::globalLambda, &RunVectors::globalDev})
    run.*column = OffsetVector<double>(1, n);
  for (int i = 1; i <= n; ++i) {
    run.globalRecCount[i] = 1;
    run.globalRecType[i] = run.GlobalRecType;
  }
  const bool waveform = run.runKind == kWaveformRun && r.DispCurvInfo != 0;
  if (run.iHaveData != 1 && !waveform) return MakeGlobalGrid(r);
  const std::string complaint = CheckGlobalData(r);
  if (!complaint.empty()) return Refuse(complaint);
  if (run.iHaveData == 1) {
    CopyColumn(r.globalVel, run.globalVel, n);
    CopyColumn(r.globalFreq, run.globalFreq, n);
    CopyColumn(r.globalWlen, run.globalLambda, n);
  } else if (run.xDomain == 1) {
    CopyColumn(r.globalWlen, run.globalLambda, n);
  } else {
    CopyColumn(r.globalFreq, run.globalFreq, n);
  }
  return 0;
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
  if (run.iUseAmplitude == 1) o.amp = o.ampDev = o.vel;
  return o;
}

/// Frequencies of a run without data, and the marks of the points to compute.
int MakeArrayGrid(ModelRecord& r, ObsCurve& o) {
  const auto [min, max] = ArrayRange(r);
  o.freq = PointGrid(min, max, r.incRatio, o.nFreq);
  if (!PointsAreUsable(o.freq)) return RefuseGrid(min, max, r.incRatio);
  std::copy(o.freq.begin(), o.freq.end(), r.freq.begin());
  for (int p = 1; p <= o.nFreq; ++p) {
    for (int c = 1; c <= o.nCurves; ++c) {
      const double f = o.freq[p];
      const bool outside = (f - At(r.pairMin, c)) * (f - At(r.pairMax, c)) > 0.0;
      o.vel[o.At(p, c)] = outside ? 0.0 : 1.0;
    }
  }
  return 0;
}

/// Puts the points that count into the flat vectors.
void FlattenArrayCurves(const ObsCurve& o) {
  run.iArrayIndex.fill(0);
  run.nObs = 0;
  for (int p = 1; p <= o.nFreq; ++p) {
    for (int c = 1; c <= o.nCurves; ++c) {
      const int at = o.At(p, c);
      if (o.vel[at] == 0.0) continue;
      const int row = run.iArrayIndex(c, p) = ++run.nObs;
      run.arrayVel[row] = o.vel[at];
      run.arrayFreq[row] = o.freq[p];
      run.arrayDev[row] = o.dev[at];
      if (run.iUseAmplitude != 1) continue;
      run.arrayAmp[row] = o.amp[at];
      run.arrayAmpDev[row] = o.ampDev[at];
    }
  }
}

}  // namespace

std::string RunTitle(int analysis, bool inversion) {
  if (analysis == 2) return inversion ? "2-D Inversion" : "2-D";
  if (analysis == 3) return inversion ? "3-D Inversion" : "3-D";
  return inversion ? "Enhanced3-D Inversion" : "Enhanced 3-D";
}

int FS_RetrieveSystemPM(int kind, int prePrfType) {
  if (kind < kForwardRun || kind > kWaveformRun) return -1;
  run.runKind = kind;
  const ModelRecord& r = SourceRecord();
  const std::string complaint = CheckRunSettings(r);
  if (!complaint.empty()) return Refuse(complaint);
  SetSwitches(kind, prePrfType, r);
  run.iAnalysis = run.iInvScheme == 0 ? -FModelParam.analysis : FModelParam.analysis;
  run.iMeshGraded = FModelParam.analysis == 4;
  run.runTitle = RunTitle(FModelParam.analysis, kind == kInversionRun);
  if (NameResultFiles() < 0 || FS_OpenFiles(kind) < 0) return -1;
  FS_ReadReceiverSetup();
  return 0;
}

void FS_ReadReceiverSetup() {
  const ModelRecord& r = SourceRecord();
  std::fill(run.rec1Loc.begin(), run.rec1Loc.end(), 0.0);
  std::fill(run.rec2Loc.begin(), run.rec2Loc.end(), 0.0);
  if (run.iDispSource == 1) {
    const bool fixedPair = run.GlobalRecType == kFixedPair;
    FS_AllocateRecSetup(fixedPair ? 1 : 0);
    if (fixedPair && run.nRecSetups >= kFixedPair) {
      run.rec1Loc[kFixedPair] = r.GlobalRec1Loc;
      run.rec2Loc[kFixedPair] = r.GlobalRec2Loc;
    }
    return;
  }
  FS_AllocateRecSetup(r.nDispCurves);
  for (int s = kFixedPair; s <= run.nRecSetups; ++s) {
    const std::size_t c = static_cast<std::size_t>(s - kFixedPair);
    run.rec1Loc[s] = At(r.recLoc, r.pairRec1[c]);
    run.rec2Loc[s] = At(r.recLoc, r.pairRec2[c]);
  }
}

int FS_ReadCompDispCurve() {
  ModelRecord& r = SourceRecord();
  const double cells = static_cast<double>(r.nDispPoints) * r.nDispCurves;
  if (r.nDispCurves > run.iArrayIndex.rowHi() || r.nDispPoints > run.iArrayIndex.colHi() ||
      cells > run.arrayVel.size())
    return Refuse(
        FormatText("The run was not set up for %d array curves of %d points.", r.nDispCurves, r.nDispPoints));
  ObsCurve o = MakeObsCurve(r);
  if (run.iHaveData == 1) {
    const std::string complaint = CheckArrayData(r);
    if (!complaint.empty()) return Refuse(complaint);
    CopyColumn(r.freq, o.freq, o.nFreq);
    CopyColumn(r.vel, o.vel, o.vel.size());
  } else if (MakeArrayGrid(r, o) < 0) {
    return -1;
  }
  FlattenArrayCurves(o);
  run.obsCurves = LList<ObsCurve>();
  PtrEnlist(run.obsCurves, std::make_unique<ObsCurve>(std::move(o)));
  return 0;
}

int FS_GetStartMP() {
  ModelRecord& r = SourceRecord();
  const std::string complaint = CheckRunSettings(r);
  if (!complaint.empty()) return Refuse(complaint);
  if (FillGlobalCurve(r) < 0) return -1;
  run.nObs = 0;
  run.obsCurves = LList<ObsCurve>();
  if (run.iDispSource == 2 && FS_ReadCompDispCurve() < 0) return -1;
  return FS_PrelimAnal();
}

}  // namespace sondera
