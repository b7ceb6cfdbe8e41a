// averages_fixture.h - compares the averages of a measuring run with the plain formula.
#pragma once

#include <algorithm>
#include <cmath>
#include <complex>
#include <limits>
#include <utility>
#include <vector>

#include "app/measuring_fixture.h"
#include "numeric/pi.h"

namespace sondera::testing {

/// Noise that depends only on its place.
inline double Noise(int r, int c, int i) {
  std::uint64_t x = static_cast<std::uint64_t>(r) * 1000003u + static_cast<std::uint64_t>(c) * 10007u +
                    static_cast<std::uint64_t>(i) + 1u;
  x ^= x >> 33;
  x *= 0xff51afd7ed558ccdULL;
  x ^= x >> 33;
  x *= 0xc4ceb9fe1a85ec53ULL;
  x ^= x >> 33;
  return static_cast<double>(x >> 11) / 9007199254740992.0 - 0.5;
}

/// Mean of the spectra of chosen records by the plain formula, in long double.
struct PlainSpectra {
  std::vector<double> linRe, linIm, power, crossRe, crossIm;
};
inline PlainSpectra PlainMean(const std::vector<int>& records, int channels, int n, int decimation = 1) {
  using Complex = std::complex<long double>;
  const std::size_t size = static_cast<std::size_t>(channels) * static_cast<std::size_t>(n);
  std::vector<Complex> turn(static_cast<std::size_t>(n));
  for (int i = 0; i < n; ++i)
    turn[static_cast<std::size_t>(i)] =
        std::polar(1.0L, -2.0L * static_cast<long double>(kPi) * static_cast<long double>(i) / n);
  std::vector<long double> sums[5];
  for (auto& s : sums) s.assign(size, 0.0L);
  for (const int r : records) {
    std::vector<Complex> x(size);
    for (int c = 0; c < channels; ++c)
      for (int k = 0; k < n; ++k) {
        Complex sum = 0;
        for (int i = 0; i < n; ++i)
          sum += static_cast<long double>(testBoard.volts(r, c, i * decimation)) *
                 turn[static_cast<std::size_t>(i * k % n)];
        x[static_cast<std::size_t>(c * n + k)] = sum;
      }
    for (std::size_t j = 0; j < size; ++j) {
      const Complex ref = x[j % static_cast<std::size_t>(n)];
      const Complex cross = x[j] * std::conj(ref);
      const long double n2 = static_cast<long double>(n) * n;
      sums[0][j] += x[j].real() / n * std::sqrt(2.0L);
      sums[1][j] += x[j].imag() / n * std::sqrt(2.0L);
      sums[2][j] += std::norm(x[j]) * 2 / n2;
      sums[3][j] += cross.real() * 2 / n2;
      sums[4][j] += cross.imag() * 2 / n2;
    }
  }
  PlainSpectra mean;
  std::vector<double>* out[] = {&mean.linRe, &mean.linIm, &mean.power, &mean.crossRe, &mean.crossIm};
  for (int k = 0; k < 5; ++k)
    for (const long double s : sums[k])
      out[k]->push_back(static_cast<double>(s / static_cast<long double>(records.size())));
  return mean;
}

/// Largest difference as a share of the largest value.
inline double Misfit(const std::vector<double>& a, const std::vector<double>& b) {
  if (a.size() != b.size()) return std::numeric_limits<double>::infinity();
  double difference = 0.0, largest = 0.0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    difference = std::max(difference, std::fabs(a[i] - b[i]));
    largest = std::max(largest, std::fabs(b[i]));
  }
  return difference / largest;
}

class AveragesTest : public MeasuringTest {
 protected:
  void ExpectMeanOf(const std::vector<int>& records, double within = 1e-12) {
    const PlainSpectra mean = PlainMean(records, Hw().nChannels, 2 * Hw().nLines, Hw().decimation);
    EXPECT_LT(Misfit(Raw().linSpecRe, mean.linRe), within);
    EXPECT_LT(Misfit(Raw().linSpecIm, mean.linIm), within);
    EXPECT_LT(Misfit(Raw().powerSpec, mean.power), within);
    EXPECT_LT(Misfit(Raw().crossSpecRe, mean.crossRe), within);
    EXPECT_LT(Misfit(Raw().crossSpecIm, mean.crossIm), within);
  }
  void ExpectTimesOf(int record) {
    const int n = 2 * Hw().nLines;
    for (int c = 0; c < Hw().nChannels; ++c)
      for (int i = 0; i < n; ++i)
        ASSERT_EQ(Raw().timeHist[static_cast<std::size_t>(c * n + i)],
                  testBoard.volts(record, c, i * Hw().decimation));
  }
  /// Does something once, at the n-th poll of a run.
  void AtPoll(int n, std::function<void()> action) {
    frontEnd.onProcessEvents = [this, n, action = std::move(action)] {
      if (++polls_ == n) action();
    };
  }
  int polls_ = 0;
};

}  // namespace sondera::testing
