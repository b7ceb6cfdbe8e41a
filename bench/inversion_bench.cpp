// inversion_bench.cpp - where the time of an inversion is spent: the share of the forward solver.
//
// Two default runs of five iterations on ten layers with free Vs: array curves of two pairs with 40 points
// each by the point-load solver (analysis 3), and a global curve of 50 points by plane waves (analysis 2).
// It prints one sweep, one sensitivity matrix, the whole run, and the shares of the sweeps and of the result
// files in the run: the same sweeps are repeated on the same models, without anything else, and the same
// files are written again. Processor time; the best of alternating repeats, since disturbances only increase
// the time.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <string>
#include <vector>

#include "forward/plane_wave.h"
#include "inversion/sensitivity.h"
#include "panels/entry_lists.h"
#include "panels/forward_run.h"
#include "panels/inversion.h"
#include "panels/run_boxes.h"
#include "records/inv_records.h"
#include "records/model_records.h"
#include "records/session.h"
#include "run/observations.h"
#include "run/result_files.h"
#include "run/result_statistics.h"
#include "run/run_sizes.h"
#include "run/run_state.h"
#include "run/sweep.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/inversion.h"

namespace {

using namespace sondera;

constexpr int kLayers = 10, kIterations = 5;
constexpr double kStartVs = 200.0;

/// Seconds of processor time, which other programs on the machine hardly change.
double ProcessorTime() {
  timespec t{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
  return static_cast<double>(t.tv_sec) + 1e-9 * static_cast<double>(t.tv_nsec);
}

double Best(const std::vector<double>& x) {
  return *std::min_element(x.begin(), x.end());
}

template <class Work>
double Seconds(Work work) {
  const double start = ProcessorTime();
  work();
  return ProcessorTime() - start;
}

/// Stiffness growing with depth over 20 m.
std::vector<double> TrueVs() {
  std::vector<double> Vs;
  for (int l = 0; l < kLayers; ++l) Vs.push_back(140.0 + 22.0 * l);
  return Vs;
}

void SetLayers(const std::vector<double>& Vs) {
  for (ModelRecord* m : {&FModelParam, &TheoDispInfo}) {
    m->nLayers = kLayers;
    for (std::size_t l = 0; l < kLayers; ++l) {
      m->thickness[l] = 1.0 + 0.25 * static_cast<double>(l);
      m->Vp[l] = 0.0;
      m->Vs[l] = Vs[l];
      m->density[l] = 1800.0;
      m->nu[l] = 0.3333333;
      m->damping[l] = 0.02;
    }
  }
}

/// Plane-wave velocity of the true ground.
double PlaneWave(double L) {
  const std::vector<double> Vs = TrueVs();
  const ModelRecord& m = FModelParam;
  const int n = kLayers, one = 1;
  const double wave[2] = {0.0, L};
  double c[2] = {0.0, 0.0};
  FS_SASW2D(&n, m.thickness.data() - 1, Vs.data() - 1, nullptr, nullptr, m.density.data() - 1, nullptr,
            m.nu.data() - 1, &one, wave, c);
  return c[1];
}

/// 50 wavelengths from 1 to 40.
void SetGlobalCurve() {
  constexpr std::size_t n = 50;
  for (ModelRecord* m : {&FModelParam, &TheoDispInfo}) {
    m->analysis = 2;
    m->dispCurvType = 1;
    m->DispCurvInfo = 2;
    m->nDispPointsG = n;
    for (auto column : kGlobalColumns) (m->*column).assign(200, 0.0);
    for (std::size_t i = 0; i < n; ++i) {
      const double L = std::pow(40.0, static_cast<double>(i) / (n - 1.0));
      m->globalWlen[i] = L;
      m->globalVel[i] = PlaneWave(L);
      m->globalFreq[i] = m->globalVel[i] / L;
    }
  }
}

/// 40 frequencies from 6 to 80 Hz, receivers at 5, 10 and 20 from the source, the plane-wave velocities as
/// data.
void SetArrayCurves() {
  constexpr std::size_t points = 40, curves = 2;
  for (ModelRecord* m : {&FModelParam, &TheoDispInfo}) {
    m->analysis = 3;
    m->dispCurvType = 2;
    m->DispCurvInfo = 2;
    m->nDispPoints = points;
    m->nDispCurves = curves;
    m->nReceivers = 3;
    m->recLoc = {5.0, 10.0, 20.0};
    m->pairRec1 = {1, 2};
    m->pairRec2 = {2, 3};
    m->pairMin = m->pairMax = {0.0, 0.0};
    m->freq.assign(200, 0.0);
    m->vel.assign(4000, 0.0);
    m->wlen = m->vel;
    for (std::size_t p = 0; p < points; ++p) {
      const double f = m->freq[p] = 6.0 * std::pow(80.0 / 6.0, static_cast<double>(p) / (points - 1.0));
      double c = 180.0;  // where frequency and wavelength meet on the curve
      for (int k = 0; k < 60; ++k) c = 0.5 * (c + PlaneWave(c / f));
      m->vel[p * curves] = m->vel[p * curves + 1] = c;
    }
  }
}

void StartRecords(const std::string& folder) {
  InitializeFModel();
  InitializeTheoDispInfo();
  InitializeInvAnal();
  ResetRunState();
  session.resultFolder = folder;
  SetCtrlVal(hmsetup::PROJID, "bench");
  run.switches.cdMode = 1;
  run.switches.ufVph = 0.05;
  InvParam.ufVs = 0.2;
  InvParam.nEntries = kIterations;
  SetLayers(std::vector<double>(kLayers, kStartVs));
}

Listener nobody;

bool RunOnce() {
  ClearEntryLists();
  return FS_AllocMemoryBlocks() == 0 && FS_RunIAnal() == 0;
}

/// The sweeps of a run on the models that it stored: those of the matrix on the model before each iteration,
/// and one after each.
void SweepAgain(const InvRecord& results) {
  OffsetVector<double> vel, amp;
  for (int k = 0; k <= kIterations; ++k) {
    for (int l = 1; l <= kLayers; ++l) run.ground.layerVs[l] = results.Vs(k, l - 1);
    (void)FS_rWave3D(PartsOfSweep(run), nobody, vel, amp);
    for (int l = 1; l <= kLayers && k < kIterations; ++l) {
      const double Vs = run.ground.layerVs[l];
      for (const double step : {run.switches.dVs, -run.switches.dVs}) {
        run.ground.layerVs[l] = Vs * (1.0 + step);
        (void)FS_rWave3D(PartsOfSweep(run), nobody, vel, amp);
      }
      run.ground.layerVs[l] = Vs;
    }
  }
}

/// The result files of a run.
void WriteAgain(const OffsetVector<double>& vel, const OffsetVector<double>& amp) {
  for (int k = 0; k <= kIterations; ++k) {
    const double rms = InvParam.rms[k];
    FS_SaveDspCurve(run, k, vel, amp, rms, 0.0, nobody);
    FS_SaveModelPar(run, k, rms, 0.0, nobody);
    FS_SaveProfile(run, k, rms, 0.0, nobody);
    if (k == 0) continue;
    FS_SaveGaussParam(run, run.update.GActive, vel, nobody);
    FS_SavePostMPar(run, k, rms, nobody);
    FS_SaveSMPfile(run, k, rms, 0.0, nobody);
  }
}

bool Report(const char* name, int repeats) {
  std::vector<double> whole, sweeps, files, matrix, one;
  OffsetVector<double> vel, amp;
  for (int i = 0; i < repeats; ++i) {
    bool good = true;
    whole.push_back(Seconds([&] { good = RunOnce(); }));
    if (!good) return false;
    sweeps.push_back(Seconds([] { SweepAgain(InvParam); }));
    one.push_back(Seconds([&] { (void)FS_rWave3D(PartsOfSweep(run), nobody, vel, amp); }));
    files.push_back(Seconds([&] { WriteAgain(vel, amp); }));
    RunBoxes boxes;
    matrix.push_back(Seconds([&boxes] { (void)FS_Gmatrix(run, SettingsOfInversion(), boxes); }));
  }
  const int count = 1 + kIterations * (2 * run.parameters.nModelParm + 1);
  std::printf("%-34s %3d rows, %d parameters, %d sweeps\n", name, run.observations.nObsRows,
              run.parameters.nModelParm, count);
  const double all = Best(whole);
  std::printf("  one sweep           %10.3f ms\n", 1e3 * Best(one));
  std::printf("  sensitivity matrix  %10.3f ms, %.2f sweeps\n", 1e3 * Best(matrix), Best(matrix) / Best(one));
  std::printf("  whole run           %10.3f ms, rms %.3g to %.3g\n", 1e3 * all, InvParam.rms[0],
              InvParam.rms[kIterations]);
  std::printf("  its sweeps alone    %10.3f ms, %6.2f %%\n", 1e3 * Best(sweeps), 100.0 * Best(sweeps) / all);
  std::printf("  its result files    %10.3f ms, %6.2f %%\n", 1e3 * Best(files), 100.0 * Best(files) / all);
  std::printf("  outside the solver  %10.2f %% (aim: below 2 %%)\n", 100.0 * (1.0 - Best(sweeps) / all));
  return true;
}

}  // namespace

int main() {
  const std::string folder = (std::filesystem::temp_directory_path() / "sondera_inversion_bench").string();
  std::filesystem::create_directories(folder);
  StartRecords(folder);
  SetGlobalCurve();
  const bool plane = Report("plane waves, global curve", 41);
  StartRecords(folder);
  SetArrayCurves();
  const bool point = Report("point load, two pairs", 3);
  std::filesystem::remove_all(folder);
  if (!plane || !point) std::printf("a run failed\n");
  return plane && point ? 0 : 1;
}
