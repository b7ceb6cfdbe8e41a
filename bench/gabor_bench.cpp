// Gabor maps compared with their transforms: ratio of a whole map to its inverse transforms only, one per
// row; and ratio of the plain form of the envelope, with two transforms and all magnitudes, to a map. Aim: a
// map within 1.5 times its transforms.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <vector>

#include "best_time.h"
#include "numeric/analysis.h"
#include "panels/sasw_pair.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/controls.h"
#include "runtime/text_format.h"
#include "signal/gabor.h"
#include "signal/plain_envelope.h"

namespace {

using namespace sondera;

double BestMicroseconds(const std::function<void()>& call) {
  return bench::BestMicroseconds(call, 6e5);
}

/// A pair on display, 10 m apart, 1 ms sampling, with two arrivals.
PMeasInfo& MakePair(int nLines) {
  ResetSession();
  SetupGlobalArrays();
  ResetControls();
  const int key = InsertNewIDInfo("ProjID", "measID");
  HWSetup* hw = SetupHWSetupArrays(key, 2);
  hw->nLines = nLines;
  hw->deltaT = 0.001;
  hw->freqSpan = hw->stopFreq = 500.0;
  hw->deltaF = 500.0 / nLines;
  MeasSetup* setup = SetupMSetupArrays(key);
  setup->recLoc = {10.0, 20.0};
  SetCtrlVal(hmsetup::PROJID, "ProjID");
  InsertListItem(sasw::DISPAID, -1, "measID", 0);
  for (int c = 0; c < 2; ++c) {
    InsertListItem(sasw::DISPA_REFCHNL, -1, FormatText("%3d", c + 1), c);
    InsertListItem(sasw::DISPACHNL, -1, FormatText("%3d", c + 1), c);
  }
  SetCtrlVal(sasw::DISPACHNL, 1);
  PMeasInfo* pair = MeasDB.pMeasList.append();
  SetupPairMeasArrays(*pair, nLines);
  pair->key = key;
  pair->dspChan = 1;
  pair->band = 0.5;
  pair->beta = 3.0;
  for (int i = 0; i < nLines; ++i) {
    const double a = -0.05 * i * hw->deltaF * 6.2831853, b = -0.08 * i * hw->deltaF * 6.2831853;
    pair->hRe[static_cast<std::size_t>(i)] = std::cos(a) + 0.5 * std::cos(b);
    pair->hIm[static_cast<std::size_t>(i)] = std::sin(a) + 0.5 * std::sin(b);
  }
  return *pair;
}

/// As many inverse transforms as a map has rows, each of another band of lines.
double TransformsAlone(int N, int rows) {
  EnvelopeWork work(N);
  for (int i = N / 2 + 1; i < N; ++i)
    work.spectrum[static_cast<std::size_t>(i)] = {std::sin(0.1 * i), std::cos(1.7 * i)};
  return BestMicroseconds([&] {
    for (int r = 0; r < rows; ++r) CxInvFFTEx(work.spectrum.data(), work.signal.data(), work.table);
  });
}

double PlainForm(const PMeasInfo& pair, int N) {
  plain::EnvelopeArrays work(N);
  std::vector<double> filter(static_cast<std::size_t>(N));
  std::vector<double> levels(kGaborDivisions);
  return BestMicroseconds([&] {
    for (int r = 0; r < pair.freqDiv; ++r) {
      GaussFilter(r * pair.finalFreq / (pair.freqDiv - 1), pair.band, pair.beta, 0.0, pair.finalFreq, 0.001,
                  N, filter.data(), 0);
      plain::CalcEnvelope(filter, pair.hRe.data(), pair.hIm.data(), N, work);
      for (std::size_t c = 0; c < levels.size(); ++c)
        levels[c] = 20.0 * std::log10(work.env[c * static_cast<std::size_t>(N) / 256]);
    }
  });
}

}  // namespace

int main() {
  std::printf("%8s %8s %12s %16s %14s %16s\n", "lines", "points", "map, us", "transforms, us", "two-form, us",
              "map/transforms");
  for (int nLines : {512, 1024, 2048, 8192, 32768}) {
    PMeasInfo& pair = MakePair(nLines);
    const double map = BestMicroseconds([] { CalcGabor(Panel::SASW); });
    const int N = FullTimeLines(2 * nLines);
    const double alone = TransformsAlone(N, pair.freqDiv), two = PlainForm(pair, N);
    std::printf("%8d %8d %12.1f %16.1f %14.1f %16.2f   two-form/map %.2f\n", nLines, N, map, alone, two,
                map / alone, two / map);
  }
  return 0;
}
