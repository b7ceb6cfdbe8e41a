// pair_fixture.h - a pair of receivers with a transfer function given by a test, on display on trace A.
#pragma once

#include <complex>
#include <functional>

#include "records/kinds.h"
#include "records/measdb.h"
#include "records/selection.h"
#include "runtime/catalogue/sasw.h"
#include "signal/irf.h"
#include "signal/pair_data.h"
#include "support/session_fixture.h"

namespace sondera::testing {

class PairTest : public SessionTest {
 protected:
  /// Transfer function at a frequency in Hz.
  using Transfer = std::function<std::complex<double>(double freq)>;

  /// A measurement of two channels whose averages have this transfer function from channel 1 to channel 2,
  /// conjugate symmetric; the pair is on display and has no record yet.
  void LayTransfer(const Transfer& transfer, MeasurementPlan plan = {}) {
    m = AddMeasurement(plan);
    const int n = m.hw->nLines, count = 2 * n;
    for (int i = 0; i < count; ++i) {
      const bool upper = i > n;
      const std::complex<double> h = transfer((upper ? count - i : i) * m.hw->deltaF);
      const auto a = static_cast<std::size_t>(i), b = static_cast<std::size_t>(count + i);
      m.raw->crossSpecRe[a] = m.raw->powerSpec[a] = 1.0;
      m.raw->crossSpecRe[b] = h.real();
      m.raw->crossSpecIm[b] = i == 0 || i == n ? 0.0 : (upper ? -h.imag() : h.imag());
      m.raw->powerSpec[b] = std::norm(h);
    }
    SelectPair(m, 0, 1);
  }

  /// The same, with the record of the pair.
  PMeasInfo& MakePair(const Transfer& transfer, MeasurementPlan plan = {}) {
    LayTransfer(transfer, plan);
    MakePairRecord(m.projID, m.measID, 0, 1, *m.hw, kEnhancedPhase);
    const CurrentPair current = Current();
    EXPECT_NE(current.pair, nullptr);
    EXPECT_EQ(CalcIRF(0, current), 0);
    return *current.pair;
  }

  /// The pair with its records, as a page would find it.
  CurrentPair Current() const {
    CurrentPair current;
    current.key = m.key;
    current.dspChan = 1;
    GetInfoFromKey(m.key, current.records);
    current.pair = FindPair(m.key, 0, 1);
    return current;
  }

  TestMeasurement m;
};

inline std::complex<double> Delay(double freq, double seconds) {
  return std::polar(1.0, -2.0 * 3.14159265358979323846 * freq * seconds);
}

}  // namespace sondera::testing
