// kriging.cpp - see kriging.h. The matrix is factorised as U'U, eight rows at a time, so an element of the
// rest is loaded and stored once for eight products.
#include "signal/kriging.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace sondera {
namespace {

constexpr double kSamePlaceShare = 1e-9;  // of the diagonal of the limits
constexpr std::size_t kRows = 8;          // rows of a panel
constexpr double kProductsPerPoll = 3e7;  // some hundredths of a second

/// Correlation at lag h: 1 - (variogram - c0) / c.
template <int kModel>
double Correlation(double h2, double a) {
  if constexpr (kModel == kExponential) return std::exp(-3.0 / a * std::sqrt(h2));
  if constexpr (kModel == kGaussian) return std::exp(-3.0 / (a * a) * h2);
  const double r = std::sqrt(h2) / a;
  return r < 1.0 ? 1.0 - r * (1.5 - 0.5 * r * r) : 0.0;
}

/// Calls `work` with the correlation of a model; false for another model.
template <class Work>
bool WithModel(int model, Work work) {
  switch (model) {
    case kSpherical:
      work([](double h2, double a) { return Correlation<kSpherical>(h2, a); });
      return true;
    case kExponential:
      work([](double h2, double a) { return Correlation<kExponential>(h2, a); });
      return true;
    case kGaussian:
      work([](double h2, double a) { return Correlation<kGaussian>(h2, a); });
      return true;
    default:
      return false;
  }
}

/// Subtracts from rows i and i + 1 of the rest the products of the panel's rows, from column `from` on.
void SubtractPanel(const double* panel, std::size_t ld, std::size_t rows, std::size_t i, std::size_t from,
                   std::size_t n, double* row0, double* row1) {
  if (rows == kRows) {
    double f[kRows], g[kRows];
    for (std::size_t p = 0; p < kRows; ++p) {
      f[p] = panel[p * ld + i];
      g[p] = panel[p * ld + i + 1];
    }
    for (std::size_t j = from; j < n; ++j) {
      double s = row0[j], t = row1[j];
      for (std::size_t p = 0; p < kRows; ++p) {
        const double u = panel[p * ld + j];
        s -= f[p] * u;
        t -= g[p] * u;
      }
      row0[j] = s;
      row1[j] = t;
    }
    return;
  }
  for (std::size_t p = 0; p < rows; ++p) {
    const double f = panel[p * ld + i], g = panel[p * ld + i + 1];
    for (std::size_t j = from; j < n; ++j) {
      row0[j] -= f * panel[p * ld + j];
      row1[j] -= g * panel[p * ld + j];
    }
  }
}

}  // namespace

double Variogram(int model, double h, double c0, double c, double a) {
  double rho = std::numeric_limits<double>::quiet_NaN();
  WithModel(model, [&](auto correlation) { rho = correlation(h * h, a); });
  return c0 + c * (1.0 - rho);
}

double SamePlaceDistance(const double* limits) {
  const double dx = limits[1] - limits[0], dy = limits[3] - limits[2];
  return kSamePlaceShare * std::sqrt(dx * dx + dy * dy);
}

double RangeOfPlace(double a) {
  const double whole = std::trunc(a);
  return whole > 0.0 ? whole : a;
}

// Upper triangle of the correlations, row after row, with one extra row and column, so that rows can always
// be processed in pairs.
KrigingResult KrigingSolver::Fill(int model, int n, const double* x, const double* y, double a,
                                  double samePlace) {
  const auto count = static_cast<std::size_t>(n);
  ld_ = count + 1;
  if (matrix_.size() < ld_ * ld_) matrix_.resize(ld_ * ld_);
  const double same2 = samePlace * samePlace;
  double nearest = HUGE_VAL;
  const bool known = WithModel(model, [&](auto correlation) {
    for (std::size_t i = 0; i < count; ++i) {
      double* row = matrix_.data() + i * ld_;
      row[i] = 1.0;
      row[count] = 0.0;
      for (std::size_t j = i + 1; j < count; ++j) {
        const double dx = x[j] - x[i], dy = y[j] - y[i], h2 = dx * dx + dy * dy;
        if (h2 < nearest) {
          nearest = h2;
          first_ = static_cast<int>(i);
          second_ = static_cast<int>(j);
        }
        row[j] = correlation(h2, a);
      }
    }
    std::fill_n(matrix_.data() + count * ld_, ld_, 0.0);
  });
  if (!known) return KrigingResult::kSingular;
  return nearest <= same2 ? KrigingResult::kSamePlace : KrigingResult::kDone;
}

KrigingResult KrigingSolver::Factorise(int n, Listener& listener) {
  const auto count = static_cast<std::size_t>(n);
  double* const a = matrix_.data();
  double products = 0.0;
  for (std::size_t k = 0; k < count; k += kRows) {
    const std::size_t rows = std::min(kRows, count - k), rest = k + rows;
    double* const panel = a + k * ld_;
    for (std::size_t p = 0; p < rows; ++p) {
      double* const row = panel + p * ld_;
      const double pivot = row[k + p];
      if (!(pivot > 0.0 && pivot < HUGE_VAL)) return KrigingResult::kSingular;
      const double scale = 1.0 / std::sqrt(pivot);
      for (std::size_t j = k + p; j < count; ++j) row[j] *= scale;
      for (std::size_t q = p + 1; q < rows; ++q) {
        const double f = row[k + q];
        double* const next = panel + q * ld_;
        for (std::size_t j = k + q; j < count; ++j) next[j] -= f * row[j];
      }
    }
    for (std::size_t i = rest; i < count; i += 2)
      SubtractPanel(panel, ld_, rows, i, i, count, a + i * ld_, a + (i + 1) * ld_);
    products += 4.0 * static_cast<double>(count - rest) * static_cast<double>(count - rest);
    if (products > kProductsPerPoll) {
      if (listener.Poll()) return KrigingResult::kHalted;
      products = 0.0;
    }
  }
  return KrigingResult::kDone;
}

/// Solves U'U b = b.
void KrigingSolver::SolveFor(int n, double* b) const {
  const auto count = static_cast<std::size_t>(n);
  for (std::size_t k = 0; k < count; ++k) {
    const double* row = matrix_.data() + k * ld_;
    b[k] /= row[k];
    for (std::size_t j = k + 1; j < count; ++j) b[j] -= row[j] * b[k];
  }
  for (std::size_t k = count; k-- > 0;) {
    const double* row = matrix_.data() + k * ld_;
    double sum = b[k];
    for (std::size_t j = k + 1; j < count; ++j) sum -= row[j] * b[j];
    b[k] = sum / row[k];
  }
}

KrigingResult KrigingSolver::Solve(int model, int n, const double* x, const double* y, const double* z,
                                   double a, double samePlace, Listener& listener, double* dual,
                                   double* level) {
  KrigingResult result = Fill(model, n, x, y, a, samePlace);
  if (result == KrigingResult::kDone) result = Factorise(n, listener);
  if (result != KrigingResult::kDone) return result;

  // Values are relative to the first one: their differences keep all digits, equal values stay equal.
  const auto count = static_cast<std::size_t>(n);
  ones_.assign(count, 1.0);
  SolveFor(n, ones_.data());
  double sum = 0.0, weighted = 0.0;
  for (std::size_t i = 0; i < count; ++i) {
    sum += ones_[i];
    weighted += ones_[i] * (z[i] - z[0]);
  }
  const double mean = weighted / sum;
  for (std::size_t i = 0; i < count; ++i) dual[i] = z[i] - z[0] - mean;
  SolveFor(n, dual);
  *level = z[0] + mean;
  return KrigingResult::kDone;
}

double DualValue(int model, int n, const double* x, const double* y, const double* dual, double level,
                 double a, double x0, double y0) {
  double value = level;
  WithModel(model, [&](auto correlation) {
    for (int i = 0; i < n; ++i) {
      const double dx = x[i] - x0, dy = y[i] - y0;
      value += dual[i] * correlation(dx * dx + dy * dy, a);
    }
  });
  if (!std::isfinite(value)) return std::numeric_limits<double>::quiet_NaN();
  return std::max(value, 0.0);
}

int kriging(int model, int ns, const double* zs, const double* limits, const double* xs, const double* ys,
            double, double c, double a, double x0, double y0, double* value) {
  if (ns < 1 || ns > kMostKrigingSamples) return -1;
  if (c == 0.0) {
    *value = std::max(zs[0], 0.0);
    return 0;
  }
  KrigingSolver solver;
  Listener nobody;
  std::vector<double> dual(static_cast<std::size_t>(ns));
  double level = 0.0;
  if (solver.Solve(model, ns, xs, ys, zs, a, SamePlaceDistance(limits), nobody, dual.data(), &level) !=
      KrigingResult::kDone) {
    return -1;
  }
  const double v = DualValue(model, ns, xs, ys, dual.data(), level, RangeOfPlace(a), x0, y0);
  if (!std::isfinite(v)) return -1;
  *value = v;
  return 0;
}

}  // namespace sondera
