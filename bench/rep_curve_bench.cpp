// Representative curves: the time of condensing for each output point and input point, the share of the fits,
// and the time that the scan by blocks saves compared with a scan of every point.
//
// Columns: outputs, inputs, time of the call, time per output times input, share of the fits (the rest being
// a call without terms), and plain/fast: scans without any fit, every point against blocks.
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <random>
#include <vector>

#include "signal/rep_curve_fit.h"

namespace {

using Clock = std::chrono::steady_clock;

/// Points of curves one after the other, each over the whole range, from 1. Curves ascend, as stored ones do;
/// shuffled is an order in which blocks do not help.
struct Points {
  std::vector<double> x{0.0}, v{0.0};
};

Points Curves(int curves, int perCurve, bool shuffled) {
  std::mt19937 random(1);
  std::normal_distribution<double> scatter(0.0, 8.0);
  Points points;
  for (int c = 0; c < curves; ++c)
    for (int i = 0; i < perCurve; ++i) {
      points.x.push_back(5.0 + 95.0 * (i + 0.1 * c) / perCurve);
      points.v.push_back(150 + 1000 / (points.x.back() + 5) + scatter(random));
    }
  if (shuffled) std::shuffle(points.x.begin() + 1, points.x.end(), random);
  return points;
}

struct Outputs {
  explicit Outputs(int n) : x(n + 1), v(n + 1), sd(n + 1) {}
  std::vector<double> x, v, sd;
};

double Run(const Points& points, int nPts, int nSpan, int order, Outputs& out) {
  return sondera::CompactDsp_f(out.x.data(), out.v.data(), out.sd.data(), 5.0, 100.0, nPts, nSpan, order,
                               static_cast<int>(points.x.size()) - 1, points.x.data(), points.v.data(),
                               sondera::kCellsBySpacing, 1.0, nullptr);
}

/// Scan of all points for each output: cell sums, and the window's points with their logarithms.
double PlainScan(const Points& points, int nPts, int nSpan, std::vector<double>& logX,
                 std::vector<double>& v) {
  double total = 0.0;
  const double step = 95.0 / nPts, half = 95.0 / nSpan / 2;
  for (int k = 1; k <= nPts; ++k) {
    const double lo = 5.0 + (k - 1) * step, hi = 5.0 + k * step, from = (lo + hi) / 2 - half,
                 to = from + 2 * half;
    int nBin = 0;
    double s1 = 0.0, s2 = 0.0;
    std::size_t n = 0;
    for (std::size_t i = 1; i < points.x.size(); ++i) {
      if (!(points.v[i] >= 0.0)) continue;
      if (points.x[i] >= lo && points.x[i] < hi) {
        ++nBin;
        s1 += points.v[i];
        s2 += points.v[i] * points.v[i];
      }
      if (points.x[i] >= from && points.x[i] < to) {
        logX[n] = std::log10(points.x[i]);
        v[n++] = points.v[i];
      }
    }
    total += s1 + s2 + nBin + static_cast<double>(n);
  }
  return total;
}

volatile double sink;

/// Least of several timings, s per call.
template <class F>
double Time(F f) {
  double least = 1e9;
  for (int trial = 0; trial < 7; ++trial) {
    int calls = 0;
    const auto start = Clock::now();
    double seconds = 0.0;
    do {
      sink = f();
      ++calls;
      seconds = std::chrono::duration<double>(Clock::now() - start).count();
    } while (seconds < 0.03);
    least = std::min(least, seconds / calls);
  }
  return least;
}

void Measure(int nPts, int curves, int perCurve, int nSpan, bool shuffled) {
  const Points points = Curves(curves, perCurve, shuffled);
  const int nIn = curves * perCurve;
  Outputs out(nPts);
  std::vector<double> logX(points.x.size()), v(points.x.size());
  const double whole = Time([&] { return Run(points, nPts, nSpan, 4, out); });
  const double bare = Time([&] { return Run(points, nPts, nSpan, 0, out); });
  const double plain = Time([&] { return PlainScan(points, nPts, nSpan, logX, v); });
  std::printf("%7d %7d %6d  %9.3f ms %7.2f ns   %5.1f %%   %6.2f%s\n", nPts, nIn, nSpan, whole * 1e3,
              whole * 1e9 / (static_cast<double>(nPts) * nIn), 100.0 * (whole - bare) / whole, plain / bare,
              shuffled ? "   shuffled" : "");
}

}  // namespace

int main() {
  std::printf("outputs  inputs  nSpan          time  per o*i  fits      plain/fast scan\n");
  for (int nPts : {50, 200}) {
    Measure(nPts, 10, 50, 40, false);
    Measure(nPts, 10, 500, 40, false);
    Measure(nPts, 10, 5000, 40, false);
  }
  Measure(50, 10, 500, 10, false);
  Measure(50, 10, 500, 1, false);
  Measure(50, 10, 500, 40, true);
  Measure(5000, 10, 500, 1000, false);
  return 0;
}
