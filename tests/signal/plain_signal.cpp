#include "plain_signal.h"

#include <algorithm>
#include <cmath>

namespace sondera::plain {
namespace {

std::vector<Cx> Sums(const std::vector<Cx>& x, int direction) {
  const std::size_t n = x.size();
  std::vector<Cx> out(n);
  for (std::size_t k = 0; k < n; ++k) {
    std::complex<long double> sum = 0.0L;
    for (std::size_t i = 0; i < n; ++i) {
      const long double angle = 2.0L * std::acos(-1.0L) * static_cast<long double>((k * i) % n) / n;
      sum += std::complex<long double>(x[i].real(), x[i].imag()) *
             std::complex<long double>(std::cos(angle), direction * std::sin(angle));
    }
    out[k] = Cx(static_cast<double>(sum.real()), static_cast<double>(sum.imag()));
  }
  return out;
}

double WrappedOf(Cx x) {
  return x.real() == 0.0 ? 0.0 : std::atan2(x.imag(), x.real()) * 180.0 / M_PI;
}

}  // namespace

std::vector<Cx> Transform(const std::vector<Cx>& x) {
  return Sums(x, -1);
}

std::vector<Cx> InverseTransform(const std::vector<Cx>& x) {
  std::vector<Cx> out = Sums(x, 1);
  for (Cx& v : out) v /= static_cast<double>(x.size());
  return out;
}

Unwrapped UnWrap(double fStart, double deltaF, const std::vector<Cx>& spectrum,
                 const std::vector<Mask>& masks) {
  const int n = static_cast<int>(spectrum.size());
  Unwrapped u;
  u.wrapped.resize(n);
  u.unwrapped.resize(n);
  u.maskFlag.assign(n, 0);
  for (int i = 0; i < n; ++i) u.wrapped[i] = WrappedOf(spectrum[i]);
  if (std::fabs(u.wrapped[0]) > 150) u.wrapped[0] = 0;
  std::vector<int> table(36000, 0);
  for (const Mask& m : masks) {
    int lo = static_cast<int>((m.freqInit - fStart) / deltaF + 0.5);
    int hi = static_cast<int>((m.freqFinal - fStart) / deltaF + 0.5);
    lo = std::max(lo, 0);
    hi = std::min(hi, n - 1);
    for (int i = lo; i <= hi; ++i) {
      u.maskFlag[i] = 1;
      table[i] = m.jumpNo;
    }
  }
  int carry = 0;
  for (int i = 1; i < n; ++i) {
    if (u.maskFlag[i])
      std::swap(table[i], carry);
    else
      table[i] = carry;
  }
  int c = 0;
  u.unwrapped[0] = -u.wrapped[0];
  for (int i = 1; i < n; ++i) {
    if (u.maskFlag[i]) {
      c = table[i];
    } else {
      const double d = u.wrapped[i] - u.wrapped[i - 1];
      if (d > 300) c = c + 1;
      if (d < -300) c = c - 1;
    }
    u.unwrapped[i] = c * 360.0 - u.wrapped[i];
  }
  return u;
}

void AdjustCycles(std::vector<double>& unwrapped, const std::vector<double>& wrapped) {
  const int n = static_cast<int>(unwrapped.size());
  bool inStretch = false;
  int start = 0, k = 0;
  double prev = n > 1 ? unwrapped[1] / 360.0 : 0.0;
  for (int i = 2; i <= n - 1; ++i) {
    const double c = unwrapped[i] / 360.0;
    const double d = c - prev;
    if (std::fabs(d) > 0.8) {
      if (!inStretch && wrapped[i - 1] < -120.0) {
        k = static_cast<int>(d / 0.8);
        prev = c - k;
        inStretch = true;
        start = i;
      }
    } else {
      prev = c;
      if (inStretch) {
        inStretch = false;
        const int end = i - 1;
        const int from = k > 0 ? start - 1 : start;
        if (wrapped[end + 1] > 0 && wrapped[from] < 0 && wrapped[end + 1] - wrapped[from] > 240.0)
          for (int j = start; j <= end; ++j) unwrapped[j] -= 360.0 * k;
        start = 0;
      }
    }
  }
}

Unwrapped UnWrapBackBone(const std::vector<Cx>& spectrum) {
  const int n = static_cast<int>(spectrum.size());
  Unwrapped u;
  u.wrapped.resize(n);
  u.unwrapped.resize(n);
  for (int i = 0; i < n; ++i) u.wrapped[i] = WrappedOf(spectrum[i]);
  if (std::fabs(u.wrapped[0]) > 150) u.wrapped[0] = 0;
  u.unwrapped[0] = -u.wrapped[0];
  if (n == 1) return u;
  int c = 0;
  if (u.wrapped[1] - u.wrapped[0] > 150) c = c + 1;
  u.unwrapped[1] = c * 360.0 - u.wrapped[1];
  for (int i = 2; i < n; ++i) {
    if (u.wrapped[i] - u.wrapped[i - 1] > 300) c = c + 1;
    u.unwrapped[i] = c * 360.0 - u.wrapped[i];
  }
  AdjustCycles(u.unwrapped, u.wrapped);
  for (int i = 3; i < n; ++i) {
    const double d = u.unwrapped[i] - u.unwrapped[i - 1];
    if (std::fabs(d) > 300) {
      if (d >= 0)
        u.unwrapped[i] -= 360;
      else
        u.unwrapped[i] += 360;
    }
  }
  return u;
}

std::vector<double> Window(int mode, const int t[4], int count) {
  const double w1 = t[1] == t[0] ? 1.0 : t[1] - t[0], w2 = t[3] == t[2] ? 1.0 : t[3] - t[2];
  std::vector<double> w(count);
  for (int i = 0; i < count; ++i) {
    double bandPass;
    if (i < t[0])
      bandPass = 0.0;
    else if (i <= t[1])
      bandPass = 0.5 * (1.0 + std::cos(M_PI * (t[1] - i) / w1));
    else if (i < t[2])
      bandPass = 1.0;
    else if (i <= t[3])
      bandPass = 0.5 * (1.0 + std::cos(M_PI * (i - t[2]) / w2));
    else
      bandPass = 0.0;
    double lowPass;
    if (i < t[0])
      lowPass = 1.0;
    else if (i <= t[1])
      lowPass = 0.5 * (1.0 + std::cos(M_PI * (i - t[0]) / w1));
    else if (i < t[2])
      lowPass = 0.0;
    else if (i <= t[3])
      lowPass = 0.5 * (1.0 + std::cos(M_PI * (t[3] - i) / w2));
    else
      lowPass = 1.0;
    w[i] = mode == 0 ? bandPass : lowPass;
  }
  return w;
}

}  // namespace sondera::plain
