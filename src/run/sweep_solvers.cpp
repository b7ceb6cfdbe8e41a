// sweep_solvers.cpp - see sweep_solvers.h.
#include "run/sweep_solvers.h"

#include <algorithm>
#include <cmath>

#include "forward/plane_wave.h"
#include "run/run_progress.h"
#include "run/sweep_state.h"
#include "run/system_state.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

PointLoadInput InputOfRun(int nPoints) {
  PointLoadInput in;
  in.layers = {run.ground.nLayersCur,         run.ground.layerH.shifted(),   run.ground.layerVs.shifted(),
               run.ground.layerG.shifted(),   run.ground.layerRho.shifted(), run.ground.layerNu.shifted(),
               run.ground.layerDamp.shifted()};
  in.mesh = {run.switches.nSubLayers, run.switches.fDispBulb, run.switches.iMeshGraded};
  in.wlTolerance = run.switches.wlTolerance;
  in.nRecSetups = run.receivers.nRecSetups;
  in.rec1Loc = run.receivers.rec1Loc.shifted();
  in.rec2Loc = run.receivers.rec2Loc.shifted();
  in.nPoints = nPoints;
  in.nRecCfgPerPoint = run.receivers.nRecCfgPerPoint.shifted();
  in.recCfgOfPoint = run.receivers.recCfgOfPoint.shifted();
  return in;
}

/// Down to this part of a wavelength the mesh has to reach, or the velocity comes out too high: by 1 % where
/// it ends at 0.9 wavelengths, by 4 % at 0.7.
constexpr double kMeshDepthNeeded = 1.0;

bool UsesPointLoad() {
  return std::abs(run.switches.iAnalysis) != 2;
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
  FS_SASW2D(&run.ground.nLayersCur, run.ground.layerH.shifted(), run.ground.layerVs.shifted(),
            run.ground.layerVp.shifted(), run.ground.layerG.shifted(), run.ground.layerRho.shifted(),
            run.ground.layerE.shifted(), run.ground.layerNu.shifted(), &one, L, c);
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
             std::min(kMeshDepthNeeded, run.switches.fDispBulb) * (1.0 - 1e-6) * answer.vel / question.freq) {
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
  return run.ground.layerVs.empty() ? 0.0
                                    : *std::min_element(run.ground.layerVs.begin(), run.ground.layerVs.end());
}

double LargestVs() {
  return run.ground.layerVs.empty() ? 0.0
                                    : *std::max_element(run.ground.layerVs.begin(), run.ground.layerVs.end());
}

}  // namespace sondera
