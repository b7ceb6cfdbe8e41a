// scale_arithmetic.cpp - see scale_arithmetic.h.
#include "numeric/scale_arithmetic.h"

#include <cmath>
#include <limits>

namespace sondera {
namespace {

constexpr int kMostDecades = 100;

struct UnitPrefix {
  const char* text;
  double factor;
};

UnitPrefix PrefixOf(double size) {
  if (size > 1e6) return {"M", 1000000.0};
  if (size > 1000.0) return {"k", 1000.0};
  if (size >= 0.001 && size < 1.0) return {"m", 0.001};
  if (size > 0.0 && size < 0.001) return {"u", 1e-06};
  return {"", 1.0};
}

}  // namespace

int TruncToInt(double x) {
  constexpr double kLowest = std::numeric_limits<int>::min(), kHighest = std::numeric_limits<int>::max();
  if (std::isnan(x)) return 0;
  if (x <= kLowest) return std::numeric_limits<int>::min();
  if (x >= kHighest) return std::numeric_limits<int>::max();
  return static_cast<int>(x);
}

// The multiples are doubles: a range much narrower than its limits has more of them than an int can count.
void CalcNiceMinMax(double min, double max, int logFlag, double* outMin, double* outMax) {
  if (!(max - min >= 0.0)) return;
  const double step = std::pow(10.0, CalcPow(max - min));
  const double stepsToMax = std::trunc(std::fabs(max) / step);
  *outMax = max > 0.0 ? (stepsToMax + 1.0) * step : -stepsToMax * step;
  if (logFlag != 1) {
    const double stepsToMin = std::trunc(std::fabs(min) / step);
    *outMin = min > 0.0 ? stepsToMin * step : -(stepsToMin + 1.0) * step;
  } else if (min > 0.0) {
    const double decade = std::floor(std::log10(min));
    *outMin = std::trunc(min * std::pow(10.0, -decade)) * std::pow(10.0, decade);
  } else {
    *outMin = min;
  }
}

int CalcPow(double x) {
  if (x >= 1.0) {
    int k = 1;
    while (k <= kMostDecades && x / std::pow(10.0, k) >= 1.0) ++k;
    return k - 1;
  }
  int k = 1;
  while (k < kMostDecades && x * std::pow(10.0, k) <= 1.0) ++k;
  return -k;
}

void EstimateNoDiv(double min, double max, int logFlag, int* out) {
  if (logFlag == 1) {
    *out = min > 0.0 && max > 0.0 ? TruncToInt(std::log10(max)) - TruncToInt(std::log10(min)) + 1 : 1;
    return;
  }
  *out = 5;
  for (int n = 4; n <= 10; ++n) {
    if (std::trunc((max - min) / n) * n == max - min) {
      *out = n;
      return;
    }
  }
}

double NiceNumber(double x, int digits) {
  if (x == 0.0 || !std::isfinite(x)) return x;
  const double sign = x > 0.0 ? 1.0 : -1.0;
  const double scale = std::pow(10.0, digits - 1 - std::floor(std::log10(std::fabs(x))));
  const double rounded = sign * std::trunc(0.5 + std::fabs(x) * scale) / scale;
  return std::isfinite(rounded) ? rounded : x;  // the scale itself leaves the range for the smallest numbers
}

void GetUnitStr(double x, std::string* text, double* factor) {
  const UnitPrefix prefix = PrefixOf(std::fabs(x));
  *text = prefix.text;
  *factor = prefix.factor;
}

}  // namespace sondera
