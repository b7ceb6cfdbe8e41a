// signal_fixture.h - passes records to the averaging of the measuring loop, and reads quantities.
#pragma once

#include <complex>
#include <string>
#include <vector>

#include "panels/measpanel_preview.h"
#include "records/session.h"
#include "signal/spectra.h"
#include "support/session_fixture.h"

namespace sondera::testing {

/// Puts the record into the buffer of the running measurement; samples[c] is channel c.
inline void FillBuffer(const std::vector<std::vector<double>>& samples) {
  session.measBuffer.clear();
  for (const auto& channel : samples)
    session.measBuffer.insert(session.measBuffer.end(), channel.begin(), channel.end());
}

/// Adds one record to the averages as record number `before` + 1.
inline int Fold(const std::vector<std::vector<double>>& samples, int before = 0) {
  FillBuffer(samples);
  session.avgCount = before;
  return CalcSpectralFns();
}

/// One quantity of a pair, real part; `points` values.
inline std::vector<double> Quantity(const TestMeasurement& m, int type, int chanA, int chanB, int points) {
  std::vector<double> re(points, -1.0), im(points, -1.0);
  EXPECT_EQ(CalcSpectralData(type, m.projID, m.measID, chanA, chanB, re.data(), im.data()), 0);
  return re;
}

/// Time and value columns of a text file; the lines end at the first without a number.
std::vector<std::vector<double>> ReadColumns(const std::string& path);

}  // namespace sondera::testing
