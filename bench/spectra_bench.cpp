// Running averages and impulse response filtration against the transforms in them: ratio of the whole routine
// to its calls of FFT alone, on the same lengths. CalcSpectralFns transforms each channel once, CalcIRF its
// two windows.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "best_time.h"
#include "numeric/analysis.h"
#include "panels/measpanel_preview.h"
#include "panels/sasw_pair.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/controls.h"
#include "signal/irf.h"
#include "signal/spectra.h"

namespace {

using namespace sondera;

double BestMicroseconds(const std::function<void()>& call) {
  return bench::BestMicroseconds(call, 3e5);
}

/// A measurement of noise behind a decaying pulse, receivers 10 m apart, 1 ms sampling.
HWSetup* MakeMeasurement(int frame, int nChannels) {
  ResetSession();
  SetupGlobalArrays();
  ResetControls();
  const int key = InsertNewIDInfo("ProjID", "measID");
  HWSetup* hw = SetupHWSetupArrays(key, nChannels);
  hw->nLines = frame / 2;
  hw->deltaT = 0.001;
  hw->freqSpan = hw->stopFreq = 500.0;
  hw->deltaF = 500.0 / hw->nLines;
  MeasSetup* setup = SetupMSetupArrays(key);
  for (int c = 0; c < nChannels; ++c) setup->recLoc[c] = 10.0 * (c + 1);
  SetupRawDataArrays(key);
  session.measBuffer.resize(static_cast<std::size_t>(frame) * nChannels);
  std::mt19937 random(frame + nChannels);
  std::normal_distribution<double> noise(0.0, 0.01);
  for (int c = 0; c < nChannels; ++c) {
    for (int i = 0; i < frame; ++i) {
      const double t = (i - 100 - 50 * c) * 0.001;
      session.measBuffer[static_cast<std::size_t>(c) * frame + i] =
          noise(random) + (t > 0 ? std::exp(-20 * t) * std::sin(200 * t) : 0.0);
    }
  }
  InsertListItem(sasw::DISPAID, -1, "measID", 0);
  for (int c = 0; c < nChannels; ++c) {
    InsertListItem(sasw::DISPA_REFCHNL, -1, std::to_string(c + 1), c);
    InsertListItem(sasw::DISPACHNL, -1, std::to_string(c + 1), c);
  }
  SetCtrlVal(sasw::DISPACHNL, 2);
  return hw;
}

/// Cost of count transforms of real data of length n: by FFT, which wants a zero imaginary part, and by
/// RealFFT.
struct TransformCost {
  double general, real;
};
TransformCost TransformsAlone(int n, int count) {
  std::vector<double> samples(n), re(n), im(n);
  for (int i = 0; i < n; ++i) samples[i] = std::sin(0.1 * i) + 0.1 * std::cos(1.7 * i);
  TransformCost cost;
  cost.general = BestMicroseconds([&] {
    for (int c = 0; c < count; ++c) {
      std::copy(samples.begin(), samples.end(), re.begin());
      std::fill(im.begin(), im.end(), 0.0);
      FFT(re.data(), im.data(), n);
    }
  });
  cost.real = BestMicroseconds([&] {
    for (int c = 0; c < count; ++c) RealFFT(samples.data(), re.data(), im.data(), n);
  });
  return cost;
}

void Print(const std::string& routine, int points, int nChannels, double whole, const TransformCost& alone) {
  std::printf("%-26s %7d %9d %11.1f %11.1f %7.2f %11.1f %7.2f\n", routine.c_str(), points, nChannels, whole,
              alone.general, whole / alone.general, alone.real, whole / alone.real);
}

}  // namespace

int main() {
  std::printf("%-26s %7s %9s %11s %11s %7s %11s %7s\n", "routine", "points", "channels", "whole, us",
              "FFT, us", "ratio", "RealFFT, us", "ratio");
  for (int frame : {1024, 4096, 32768}) {
    for (int nChannels : {4, 8}) {
      const HWSetup* hw = MakeMeasurement(frame, nChannels);
      const TransformCost channels = TransformsAlone(frame, nChannels), windows = TransformsAlone(frame, 2);
      for (int k : {0, 4}) {
        session.avgCount = k;
        const double whole = BestMicroseconds([] { CalcSpectralFns(); });
        Print("CalcSpectralFns, record " + std::to_string(k + 1), frame, nChannels, whole, channels);
      }
      PMeasInfo* pair = nullptr;
      SetupPMeasDataNode("ProjID", "measID", 0, 2, *hw, pair);
      Print("CalcIRF", frame, nChannels, BestMicroseconds([] { CalcIRF(0, Panel::SASW); }), windows);
    }
  }
  return 0;
}
