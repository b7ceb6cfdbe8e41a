// sweep_solvers.cpp - see sweep_solvers.h.
#include "run/sweep_solvers.h"

#include <algorithm>
#include <cmath>

#include "records/kinds.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

PointLoadInput InputOf(const SweepParts& parts, int nPoints) {
  PointLoadInput in;
  in.layers = ColumnsOf(parts.ground);
  in.mesh = {parts.switches.nSubLayers, parts.switches.fDispBulb, parts.switches.iMeshGraded};
  in.wlTolerance = parts.switches.wlTolerance;
  in.nRecSetups = parts.receivers.nRecSetups;
  in.rec1Loc = parts.receivers.rec1Loc.shifted();
  in.rec2Loc = parts.receivers.rec2Loc.shifted();
  in.nPoints = nPoints;
  in.nRecCfgPerPoint = parts.receivers.nRecCfgPerPoint.shifted();
  in.recCfgOfPoint = parts.receivers.recCfgOfPoint.shifted();
  return in;
}

/// Required depth of the mesh in wavelengths. With less, the velocity is too high: by 1 % at 0.9 wavelengths,
/// by 4 % at 0.7.
constexpr double kMeshDepthNeeded = 1.0;

}  // namespace

SweepSolvers::SweepSolvers(const SweepParts& parts, int nPoints, Listener& listener)
    : ground_(parts.ground), doubts_(parts.doubts), listener_(listener), input_(InputOf(parts, nPoints)) {
  doubts_ = SweepState{};
  if (!IsPlaneWaves(parts.switches.iAnalysis)) usable_ = CheckPointLoadInput(input_, &doubts_.refusal);
}

bool SweepSolvers::PlaneWave(double wavelength, double& velocity) {
  velocity = PlaneWaveVelocity(ground_, wavelength);
  return !listener_.Poll();
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
    doubts_.noResult.push_back(question.name);
  } else if (work_.status == PointLoadStatus::kSeedKept) {
    doubts_.seedKept.push_back(question.name);
  } else if (work_.mesh.depth <
             std::min(kMeshDepthNeeded, input_.mesh.fDispBulb) * (1.0 - 1e-6) * answer.vel / question.freq) {
    doubts_.shallowMesh.push_back(question.name);
  }
  answer.halted = listener_.Poll();
  return answer;
}

std::string GlobalProgress(int iPoint, double freq, double wavelength, double vel) {
  return FormatText("F. Modeling: [%3d]   Freq=%-12.4lf WaveL=%-12.4lf Vel=%-12.4lf", iPoint, freq,
                    wavelength, vel);
}

std::string ArrayProgress(bool withData, int iFreq, int iPair, double freq, double wavelength, double vel) {
  return withData ? FormatText("F. Modeling: [F,D]=[%d,%d]   Freq=%-12.4lf WaveL=%-12.4lf Vel=%-12.4lf",
                               iFreq, iPair, freq, wavelength, vel)
                  : FormatText("F. Modeling: [F,D]=(%3d,%2d)   Freq=%-12.4lf WaveL=%-12.4lf Vel=%-12.4lf",
                               iFreq, iPair, freq, wavelength, vel);
}

std::string SlotProgress(int iPoint, int iSlot, double freq, double wavelength, double vel) {
  return FormatText("F. Modeling: [F,V]=[%3d,%2d]   Freq=%-12.4lf WaveL=%-12.4lf Vel=%-12.4lf", iPoint, iSlot,
                    freq, wavelength, vel);
}

}  // namespace sondera
