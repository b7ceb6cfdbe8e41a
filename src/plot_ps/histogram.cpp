// histogram.cpp - see histogram.h.
#include "plot_ps/histogram.h"

#include <algorithm>
#include <cmath>

#include "plot_ps/ink.h"
#include "plot_ps/page_text.h"
#include "plot_ps/path.h"
#include "plot_ps/state.h"
#include "plot_ps/statement.h"

namespace sondera {
namespace {

constexpr double kDeviations = 1.96;  // 95 of 100 of a normal distribution
constexpr float kMeanGray = 0.3f, kLimitGray = 0.7f;
constexpr float kUprightLength = 6.0f;  // cm
constexpr float kTextHeight = 0.3f;     // cm, in a document without a height

double Count(int value) {
  return std::max(value, 0);
}

/// Lines at a mean and its limits, in cm from the base. place(mean, end) gives both ends of a line.
template <class Place>
void DrawMean(double mean, double deviation, Place place) {
  const auto line = [&](double position, float gray) {
    ps_gray(gray);
    MoveTo(place(position, false));
    DrawTo(place(position, true));
    StrokePending();
  };
  line(mean, kMeanGray);
  WriteAt(place(mean, true), "Mean", plotPs.charHeight > 0.0f ? plotPs.charHeight : kTextHeight, 0.0f);
  line(mean - kDeviations * deviation, kLimitGray);
  line(mean + kDeviations * deviation, kLimitGray);
  ps_pen(0);
}

}  // namespace

HistogramStatistics stat_histo(const int* data, int n) {
  double total = 0.0, classSum = 0.0;
  for (int i = 0; i < n; ++i) {
    total += Count(data[i]);
    classSum += (i + 1) * Count(data[i]);
  }
  HistogramStatistics result;
  if (total <= 0.0) return result;
  result.classMean = classSum / total;
  result.valueMean = total / n;
  double classSquares = 0.0, valueSquares = 0.0;
  for (int i = 0; i < n; ++i) {
    const double d = i + 1 - result.classMean, v = Count(data[i]) - result.valueMean;
    classSquares += d * d * Count(data[i]);
    valueSquares += v * v;
  }
  result.classDeviation = std::sqrt(classSquares / total);
  result.valueDeviation = std::sqrt(valueSquares / n);
  return result;
}

void ps_histo(const int* data, float w, float h, float width, int n, int stat) {
  if (n <= 0) {
    Complain("\aPLOT_PS: ps_histo: Class number = 0\n");
    return;
  }
  if (plotPs.gap) return;
  if (!(width > 0.0f)) width = w / static_cast<float>(n);
  const double tallest = Count(*std::max_element(data, data + n));
  const double cmPerCount = tallest > 0.0 ? h / tallest : 0.0;
  const PagePoint base = {plotPs.curX, plotPs.curY};
  const auto at = [&](double x, double y) {
    return PagePoint{static_cast<float>(base.x + x * kPointsPerCm),
                     static_cast<float>(base.y + y * kPointsPerCm)};
  };
  MoveTo(base);
  for (int i = 0; i < n; ++i) {
    const double top = Count(data[i]) * cmPerCount;
    DrawTo(at(static_cast<double>(width) * i, top));
    DrawTo(at(static_cast<double>(width) * (i + 1), top));
  }
  DrawTo(at(static_cast<double>(width) * n, 0.0));
  DrawTo(base);
  StrokePending();
  const HistogramStatistics s = stat_histo(data, n);
  if (stat == 1 || stat == 3) {
    constexpr double kMiddle = 0.5;  // class 1 lies between 0 and one width
    DrawMean(s.classMean, s.classDeviation, [&](double position, bool end) {
      return at(width * (position - kMiddle), end ? kUprightLength : 0.0f);
    });
  }
  if (stat == 2 || stat == 3) {
    DrawMean(s.valueMean, s.valueDeviation,
             [&](double position, bool end) { return at(end ? w : 0.0f, position * cmPerCount); });
  }
  MoveTo(base);
}

}  // namespace sondera
