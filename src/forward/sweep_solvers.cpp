// sweep_solvers.cpp - see sweep_solvers.h.
#include "forward/sweep_solvers.h"

#include <algorithm>
#include <cmath>

#include "forward/plane_wave.h"
#include "forward/run_progress.h"
#include "forward/sweep_state.h"
#include "forward/system_state.h"
#include "runtime/panels/exdthd.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

PointLoadInput InputOfRun(int nPoints) {
  PointLoadInput in;
  in.layers = {run.nLayersCur,         run.layerH.shifted(),  run.layerVs.shifted(),  run.layerG.shifted(),
               run.layerRho.shifted(), run.layerNu.shifted(), run.layerDamp.shifted()};
  in.mesh = {run.nSubLayers, run.fDispBulb, run.iMeshGraded};
  in.wlTolerance = run.wlTolerance;
  in.nRecSetups = run.nRecSetups;
  in.rec1Loc = run.rec1Loc.shifted();
  in.rec2Loc = run.rec2Loc.shifted();
  in.nPoints = nPoints;
  in.nRecCfgPerPoint = run.nRecCfgPerPoint.shifted();
  in.recCfgOfPoint = run.recCfgOfPoint.shifted();
  return in;
}

/// Down to this part of a wavelength the mesh has to reach, or the velocity comes out too high: by 1 % where
/// it ends at 0.9 wavelengths, by 4 % at 0.7.
constexpr double kMeshDepthNeeded = 1.0;

bool UsesPointLoad() {
  return std::abs(run.iAnalysis) != 2;
}

bool HaltAfterSolve() {
  CountSolve();
  return HaltAsked();
}

void Show(const std::string& line) {
  SetCtrlVal(exdthd::STATUSMSG, line);
}

}  // namespace

SweepSolvers::SweepSolvers(int nPoints) : input_(InputOfRun(nPoints)) {
  sweepState = SweepState{};
  if (UsesPointLoad()) usable_ = CheckPointLoadInput(input_, &sweepState.refusal);
}

bool SweepSolvers::PlaneWave(double wavelength, double& velocity) {
  const int one = 1;
  const double L[2] = {0.0, wavelength};
  double c[2] = {0.0, 0.0};
  FS_SASW2D(&run.nLayersCur, run.layerH.shifted(), run.layerVs.shifted(), run.layerVp.shifted(),
            run.layerG.shifted(), run.layerRho.shifted(), run.layerE.shifted(), run.layerNu.shifted(), &one,
            L, c);
  velocity = std::isfinite(c[1]) ? c[1] : 0.0;
  return !HaltAfterSolve();
}

PairAnswer SweepSolvers::PointLoad(const PairQuestion& question) {
  PairAnswer answer;
  const double freq[2] = {0.0, question.freq}, wavelength[2] = {0.0, question.wavelength};
  double vel[2] = {0.0, question.vel}, amp[2] = {0.0, 0.0};
  if (usable_ && question.vel > 0.0 && question.freq > 0.0) {
    FS_SASW3D(input_, work_, freq, vel, amp, wavelength, -question.iPoint, question.iSlot, nullptr,
              answer.recAmp);
  } else {
    vel[1] = 0.0;
    work_.status = PointLoadStatus::kBadInput;
  }
  if (std::isfinite(vel[1])) answer.vel = vel[1];
  if (std::isfinite(amp[1])) answer.amp = amp[1];
  if (answer.vel == 0.0) {
    sweepState.noResult.push_back(question.name);
  } else if (work_.status == PointLoadStatus::kSeedKept) {
    sweepState.seedKept.push_back(question.name);
  } else if (work_.mesh.depth <
             std::min(kMeshDepthNeeded, run.fDispBulb) * (1.0 - 1e-6) * answer.vel / question.freq) {
    sweepState.shallowMesh.push_back(question.name);
  }
  answer.halted = HaltAfterSolve();
  return answer;
}

void ShowGlobalProgress(int iPoint, double freq, double wavelength, double vel) {
  Show(FormatText("F. Modeling: [%3d]   Freq=%-12.4lf WaveL=%-12.4lf Vel=%-12.4lf", iPoint, freq, wavelength,
                  vel));
}

void ShowArrayProgress(bool withData, int iFreq, int iPair, double freq, double wavelength, double vel) {
  Show(withData ? FormatText("F. Modeling: [F,D]=[%d,%d]   Freq=%-12.4lf WaveL=%-12.4lf Vel=%-12.4lf", iFreq,
                             iPair, freq, wavelength, vel)
                : FormatText("F. Modeling: [F,D]=(%3d,%2d)   Freq=%-12.4lf WaveL=%-12.4lf Vel=%-12.4lf",
                             iFreq, iPair, freq, wavelength, vel));
}

void ShowSlotProgress(int iPoint, int iSlot, double freq, double wavelength, double vel) {
  Show(FormatText("F. Modeling: [F,V]=[%3d,%2d]   Freq=%-12.4lf WaveL=%-12.4lf Vel=%-12.4lf", iPoint, iSlot,
                  freq, wavelength, vel));
}

double SmallestVs() {
  return run.layerVs.empty() ? 0.0 : *std::min_element(run.layerVs.begin(), run.layerVs.end());
}

double LargestVs() {
  return run.layerVs.empty() ? 0.0 : *std::max_element(run.layerVs.begin(), run.layerVs.end());
}

}  // namespace sondera
