// plain_rep_curve.cpp - see plain_rep_curve.h.
#include "signal/plain_rep_curve.h"

#include <algorithm>
#include <cmath>

#include "numeric/fit.h"

namespace sondera::test {
namespace {

using Long = long double;

struct PlainCell {
  double lo = 0, hi = 0, c = 0, a = 0, b = 0;
};

void Clamp(PlainCell& q, double width, double least, double most) {
  q.a = q.c - width / 2.0;
  q.b = q.c + width / 2.0;
  if (q.a < least) q.b += least - q.a;
  if (q.b > most) q.a -= q.b - most;
}

PlainCell MakeCell(const PlainInput& in, bool wavelength, int k) {
  PlainCell q;
  const double R = in.xMax - in.xMin;
  if (in.mode == 2 && !wavelength) {
    q.c = in.grid[k];
    q.lo = k == 1 ? in.xMin : (in.grid[k - 1] + in.grid[k]) / 2.0;
    q.hi = k == in.nPts ? in.xMax : (in.grid[k] + in.grid[k + 1]) / 2.0;
    Clamp(q, R / in.nSpan, in.xMin, in.xMax);
  } else if (in.incRatio == 1.0) {
    const double step = R / in.nPts;
    q.lo = in.xMin + (k - 1) * step;
    q.hi = in.xMin + k * step;
    q.c = (q.lo + q.hi) / 2.0;
    Clamp(q, R / in.nSpan, in.xMin, in.xMax);
  } else if (in.incRatio == -1.0) {
    const double step = std::log10(R) / in.nPts;
    q.lo = std::log10(in.xMin) + (k - 1) * step;
    q.hi = std::log10(in.xMin) + k * step;
    q.c = (q.lo + q.hi) / 2.0;
    Clamp(q, (std::log10(in.xMax) - std::log10(in.xMin)) / in.nSpan, std::log10(in.xMin),
          std::log10(in.xMax));
    q = {std::pow(10.0, q.lo), std::pow(10.0, q.hi), std::pow(10.0, q.c), std::pow(10.0, q.a),
         std::pow(10.0, q.b)};
  } else {
    const double r = in.incRatio;
    const double d = (r - 1.0) * R / (std::pow(r, in.nPts) - 1.0);
    q.lo = in.xMin + d * (std::pow(r, k - 1) - 1.0) / (r - 1.0);
    q.hi = in.xMin + d * (std::pow(r, k) - 1.0) / (r - 1.0);
    q.c = (q.lo + q.hi) / 2.0;
    Clamp(q, R / in.nSpan, in.xMin, in.xMax);
  }
  return q;
}

double PolynomialValue(const std::vector<double>& logX, const std::vector<double>& v, int order, double lx) {
  const int n = static_cast<int>(v.size());
  const int terms = std::min(n, order);
  if (terms < 1) return 0.0;
  const std::vector<double> ones(n, 1.0);
  std::vector<double> a(terms), u(n * terms), vm(terms * terms), w(terms), p(terms);
  double chisq = 0;
  svdfit(logX.data() - 1, v.data() - 1, ones.data() - 1, n, a.data() - 1, terms, u.data() - 1, vm.data() - 1,
         w.data() - 1, &chisq, nullptr);
  double power = 1.0, value = 0.0;
  for (int j = 0; j < terms; ++j) {
    value += a[j] * power;
    power = lx * power;
  }
  return value;
}

}  // namespace

PlainResult PlainCompact(const PlainInput& in, bool wavelength, double fill) {
  PlainResult out;
  const std::size_t size = static_cast<std::size_t>(std::max(in.nPts, 0)) + 1;
  out.x.assign(size, fill);
  out.v.assign(size, fill);
  out.sd.assign(size, fill);
  out.windowLogX.resize(size);
  out.windowV.resize(size);
  out.fitted.assign(size, false);
  for (int k = 1; k <= in.nPts; ++k) {
    const PlainCell q = MakeCell(in, wavelength, k);
    out.x[k] = q.c;
    int nBin = 0;
    double s1 = 0, s2 = 0;
    std::vector<double>& logX = out.windowLogX[k];
    std::vector<double>& v = out.windowV[k];
    for (std::size_t i = 1; i < in.x.size(); ++i) {
      if (!(in.v[i] >= 0.0)) continue;
      if (in.x[i] >= q.lo && in.x[i] < q.hi) {
        ++nBin;
        s1 += in.v[i];
        s2 += in.v[i] * in.v[i];
      }
      if (in.x[i] >= q.a && in.x[i] < q.b) {
        logX.push_back(std::log10(in.x[i]));
        v.push_back(in.v[i]);
      }
    }
    if (v.empty()) {
      if (!wavelength) ++out.counted;
      continue;
    }
    if (v.size() == 1 && !wavelength) {
      out.v[k] = v[0];
      out.sd[k] = 0.0;
      ++out.counted;
      continue;
    }
    const double lx = std::log10(q.c);
    double least = INFINITY, most = -INFINITY;
    for (double value : logX) {
      if (value < least) least = value;
      if (value > most) most = value;
    }
    if (nBin < 1 || lx < least || lx >= most) {
      out.v[k] = 0.0;
      continue;
    }
    out.v[k] = PolynomialValue(logX, v, in.polyOrder, lx);
    out.fitted[k] = true;
    const double mean = s1 / nBin;
    out.sd[k] = std::sqrt(std::fabs(s2 / nBin - mean * mean));
    if (out.sd[k] < 0.05 * mean) out.sd[k] = 0.05 * mean;
    ++out.counted;
  }
  return out;
}

double QrValue(const std::vector<double>& xs, const std::vector<double>& ys, int terms, double at) {
  const int m = static_cast<int>(xs.size()), n = terms;
  std::vector<std::vector<Long>> a(m, std::vector<Long>(n));
  std::vector<Long> b(ys.begin(), ys.end());
  for (int i = 0; i < m; ++i) {
    Long power = 1;
    for (int j = 0; j < n; ++j, power *= xs[i]) a[i][j] = power;
  }
  for (int j = 0; j < n; ++j) {
    Long norm = 0;
    for (int i = j; i < m; ++i) norm += a[i][j] * a[i][j];
    norm = std::sqrt(norm);
    if (norm == 0) continue;
    const Long alpha = a[j][j] > 0 ? -norm : norm;
    std::vector<Long> h(m, 0);
    for (int i = j; i < m; ++i) h[i] = a[i][j];
    h[j] -= alpha;
    Long hh = 0;
    for (int i = j; i < m; ++i) hh += h[i] * h[i];
    if (hh == 0) continue;
    for (int c = j; c < n; ++c) {
      Long dot = 0;
      for (int i = j; i < m; ++i) dot += h[i] * a[i][c];
      for (int i = j; i < m; ++i) a[i][c] -= 2 * dot / hh * h[i];
    }
    Long dot = 0;
    for (int i = j; i < m; ++i) dot += h[i] * b[i];
    for (int i = j; i < m; ++i) b[i] -= 2 * dot / hh * h[i];
  }
  std::vector<Long> coef(n);
  for (int j = n - 1; j >= 0; --j) {
    Long rest = b[j];
    for (int c = j + 1; c < n; ++c) rest -= a[j][c] * coef[c];
    coef[j] = rest / a[j][j];
  }
  Long value = 0;
  for (int j = n - 1; j >= 0; --j) value = value * at + coef[j];
  return static_cast<double>(value);
}

SuppressedFit EigenValue(const std::vector<double>& xs, const std::vector<double>& ys, int terms, double at) {
  const int n = terms;
  std::vector<std::vector<Long>> s(n, std::vector<Long>(n, 0)), e(n, std::vector<Long>(n, 0));
  std::vector<Long> right(n, 0);
  for (std::size_t i = 0; i < xs.size(); ++i) {
    std::vector<Long> p(n, 1);
    for (int j = 1; j < n; ++j) p[j] = p[j - 1] * xs[i];
    for (int j = 0; j < n; ++j) {
      right[j] += p[j] * ys[i];
      for (int k = 0; k < n; ++k) s[j][k] += p[j] * p[k];
    }
  }
  for (int j = 0; j < n; ++j) e[j][j] = 1;
  // Cyclic Jacobi rotations.
  for (int sweep = 0; sweep < 60; ++sweep) {
    for (int p = 0; p < n; ++p) {
      for (int q = p + 1; q < n; ++q) {
        if (s[p][q] == 0) continue;
        const Long theta = (s[q][q] - s[p][p]) / (2 * s[p][q]);
        const Long t = (theta >= 0 ? 1 : -1) / (std::fabs(theta) + std::sqrt(theta * theta + 1));
        const Long c = 1 / std::sqrt(t * t + 1), sn = t * c;
        for (int k = 0; k < n; ++k) {
          const Long kp = s[k][p], kq = s[k][q];
          s[k][p] = c * kp - sn * kq;
          s[k][q] = sn * kp + c * kq;
        }
        for (int k = 0; k < n; ++k) {
          const Long pk = s[p][k], qk = s[q][k];
          s[p][k] = c * pk - sn * qk;
          s[q][k] = sn * pk + c * qk;
        }
        for (int k = 0; k < n; ++k) {
          const Long kp = e[k][p], kq = e[k][q];
          e[k][p] = c * kp - sn * kq;
          e[k][q] = sn * kp + c * kq;
        }
      }
    }
  }
  Long greatest = 0;
  for (int j = 0; j < n; ++j) greatest = std::max(greatest, s[j][j]);
  const Long limit = 1e-5L * std::sqrt(greatest);
  SuppressedFit fit;
  fit.margin = 1e9;
  std::vector<Long> coef(n, 0);
  for (int j = 0; j < n; ++j) {
    const Long singular = s[j][j] > 0 ? std::sqrt(s[j][j]) : 0;
    fit.margin = std::min(fit.margin, static_cast<double>(std::fabs(singular - limit) / limit));
    if (singular < limit) {
      ++fit.dropped;
      continue;
    }
    Long along = 0;
    for (int k = 0; k < n; ++k) along += e[k][j] * right[k];
    for (int k = 0; k < n; ++k) coef[k] += e[k][j] * along / s[j][j];
  }
  Long value = 0, power = 1, steep = 0;
  for (int j = 0; j < n; ++j, power *= at) {
    value += coef[j] * power;
    steep += std::fabs(coef[j] * power);
  }
  fit.value = static_cast<double>(value);
  fit.steepness = static_cast<double>(steep);
  return fit;
}

}  // namespace sondera::test
