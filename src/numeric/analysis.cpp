// analysis.cpp - see analysis.h. FFTW 3 does the transforms; the rest is plain arithmetic.
//
// Plans are made in estimate mode and do not depend on alignment, so the same numbers give the same bytes at
// any address. FFTW also ties a plan for separate real and imaginary arrays to the distance between the two
// in memory. For both reasons a transform runs in place on one interleaved work vector: a new plan costs as
// much as some hundred transforms, and copying in and out costs less than the interleaved form saves. This
// file owns the plan cache, which is process-wide.
#include "numeric/analysis.h"

#include <fftw3.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <map>
#include <new>
#include <numeric>
#include <utility>

namespace sondera {
namespace {

constexpr unsigned kPlanFlags = FFTW_ESTIMATE | FFTW_UNALIGNED;
constexpr std::size_t kMostPlans = 64;  // distinct lengths kept; a project uses a handful

using PlanPtr = std::shared_ptr<fftw_plan_s>;

/// The kept plans, by length, and the work vector of the transforms.
struct FFTPlanCache {
  std::map<int, PlanPtr> forward;  // forward transforms, in place, of interleaved numbers
  std::map<int, PlanPtr> real;     // forward transforms of real sequences into interleaved numbers
  std::vector<dcomplex> work;      // grows, does not shrink
};
FFTPlanCache fftPlanCache;  // empty at start; emptied by ReleaseFFTPlans

fftw_complex* AsFftw(dcomplex* x) {
  return reinterpret_cast<fftw_complex*>(x);
}
static_assert(sizeof(dcomplex) == sizeof(fftw_complex));

/// Work vector of at least n elements.
dcomplex* WorkVector(int n) {
  std::vector<dcomplex>& work = fftPlanCache.work;
  if (work.size() < static_cast<std::size_t>(n)) work.resize(static_cast<std::size_t>(n));
  return work.data();
}

const PlanPtr& ForwardPlan(int n) {
  auto& plans = fftPlanCache.forward;
  if (auto it = plans.find(n); it != plans.end()) return it->second;
  if (plans.size() >= kMostPlans) plans.clear();
  fftw_complex* work = AsFftw(WorkVector(n));  // contents not read: estimate mode only uses the shape
  PlanPtr plan(fftw_plan_dft_1d(n, work, work, FFTW_FORWARD, kPlanFlags), fftw_destroy_plan);
  if (!plan) throw std::bad_alloc();
  return plans[n] = std::move(plan);
}

const PlanPtr& RealPlan(int n) {
  auto& plans = fftPlanCache.real;
  if (auto it = plans.find(n); it != plans.end()) return it->second;
  if (plans.size() >= kMostPlans) plans.clear();
  dcomplex* out = WorkVector(n + 2);
  double* in = reinterpret_cast<double*>(out + n / 2 + 1);  // past the result; only its address matters here
  PlanPtr plan(fftw_plan_dft_r2c_1d(n, in, AsFftw(out), kPlanFlags | FFTW_PRESERVE_INPUT), fftw_destroy_plan);
  if (!plan) throw std::bad_alloc();
  return plans[n] = std::move(plan);
}

/// The bits are those of 0.0; -0.0 is another number here.
bool IsAllZero(const double* x, int n) {
  return std::all_of(x, x + n, [](double v) { return std::bit_cast<std::uint64_t>(v) == 0; });
}

/// Forward transform times a factor. The inverse exchanges real and imaginary parts before and after.
void Transform(double* re, double* im, int n, double factor) {
  // A new session begins with an empty measurement: no plan, which is a good part of the start, for zeros. With
  // other lengths the transform gives some zeros a sign.
  if (std::has_single_bit(static_cast<unsigned>(n)) && IsAllZero(re, n) && IsAllZero(im, n)) return;
  fftw_plan plan = ForwardPlan(n).get();
  dcomplex* w = WorkVector(n);
  for (int i = 0; i < n; ++i) w[i] = {re[i], im[i]};
  fftw_execute_dft(plan, AsFftw(w), AsFftw(w));
  for (int i = 0; i < n; ++i) {
    re[i] = w[i].re * factor;
    im[i] = w[i].im * factor;
  }
}

}  // namespace

void FFT(double* re, double* im, int n) {
  if (n > 0) Transform(re, im, n, 1.0);
}

void InvFFT(double* re, double* im, int n) {
  if (n > 0) Transform(im, re, n, 1.0 / n);
}

void RealFFT(const double* x, double* re, double* im, int n) {
  if (n <= 0) return;
  fftw_plan plan = RealPlan(n).get();
  dcomplex* w = WorkVector(n + 2);
  fftw_execute_dft_r2c(plan, const_cast<double*>(x), AsFftw(w));  // the plan preserves its input
  for (int k = 0; k <= n / 2; ++k) {
    re[k] = w[k].re;
    im[k] = w[k].im;
  }
  for (int k = n / 2 + 1; k < n; ++k) {
    re[k] = w[n - k].re;
    im[k] = -w[n - k].im;
  }
}

void ReleaseFFTPlans() {
  fftPlanCache = FFTPlanCache();
}

void CxMul(double ar, double ai, double br, double bi, double* cr, double* ci) {
  *cr = ar * br - ai * bi;
  *ci = ar * bi + ai * br;
}

void CxDiv(double ar, double ai, double br, double bi, double* cr, double* ci) {
  const double norm = br * br + bi * bi;
  *cr = (ar * br + ai * bi) / norm;
  *ci = (ai * br - ar * bi) / norm;
}

FFTTable CreateFFTTable(int n) {
  FFTTable table;
  if (n <= 0) return table;
  table.plan_ = ForwardPlan(n);
  table.n_ = n;
  return table;
}

// As in Transform, the inverse exchanges the parts before and after.
void CxInvFFTEx(const dcomplex* x, dcomplex* y, const FFTTable& table) {
  const int n = table.n_;
  if (n <= 0) return;
  for (int i = 0; i < n; ++i) y[i] = {x[i].im, x[i].re};
  fftw_execute_dft(table.plan_.get(), AsFftw(y), AsFftw(y));
  const double factor = 1.0 / n;
  for (int i = 0; i < n; ++i) y[i] = {y[i].im * factor, y[i].re * factor};
}

void DestroyFFTTable(FFTTable& table) {
  table = FFTTable();
}

void MaxMin1D(const double* array, int n, double* max, int* maxIndex, double* min, int* minIndex) {
  if (n <= 0) return;
  int first = 0;
  while (first < n && std::isnan(array[first])) ++first;
  if (first == n) first = 0;
  int iMax = first, iMin = first;
  for (int i = first + 1; i < n; ++i) {
    if (array[i] > array[iMax]) iMax = i;
    if (array[i] < array[iMin]) iMin = i;
  }
  *max = array[iMax];
  *maxIndex = iMax;
  *min = array[iMin];
  *minIndex = iMin;
}

namespace {

/// y(u) = level + slope u + bend u^2, u counted from the centre of the run.
struct Parabola {
  double level = 0.0, slope = 0.0, bend = 0.0;
  bool OpensDownward() const { return bend < 0.0; }
  double Vertex() const { return -slope / (2.0 * bend); }
  double Height() const { return level - slope * slope / (4.0 * bend); }
};

/// Least-squares parabolas over runs of one width. About the centre the odd moments vanish, which leaves the
/// slope alone and a 2 by 2 system for level and bend.
class ParabolaFit {
 public:
  explicit ParabolaFit(int width) : width_(width), half_(0.5 * (width - 1)) {
    for (int i = 0; i < width_; ++i) {
      const double u = i - half_;
      s2_ += u * u;
      s4_ += u * u * u * u;
    }
  }
  Parabola operator()(const double* y, double sign) const {
    double t0 = 0.0, t1 = 0.0, t2 = 0.0;
    for (int i = 0; i < width_; ++i) {
      const double u = i - half_, v = sign * y[i];
      t0 += v;
      t1 += u * v;
      t2 += u * u * v;
    }
    // As quotients of sums, so that integer samples meet a threshold exactly.
    const double determinant = width_ * s4_ - s2_ * s2_;
    Parabola fit;
    fit.slope = t1 / s2_;
    fit.bend = (width_ * t2 - s2_ * t0) / determinant;
    fit.level = (s4_ * t0 - s2_ * t2) / determinant;
    return fit;
  }
  double half() const { return half_; }

 private:
  int width_;
  double half_;
  double s2_ = 0.0, s4_ = 0.0;
};

/// Which of two neighbouring parabolas counts: 0 or 1, -1 when neither opens downward.
int NearerVertex(const Parabola& a, const Parabola& b) {
  if (!a.OpensDownward()) return b.OpensDownward() ? 1 : -1;
  if (!b.OpensDownward()) return 0;
  return std::fabs(b.Vertex()) < std::fabs(a.Vertex()) ? 1 : 0;
}

/// Puts the peaks in order of location. They nearly always are, since each lies close to its own run.
void SortByLocation(Peaks& peaks) {
  if (std::is_sorted(peaks.locations.begin(), peaks.locations.end())) return;
  std::vector<int> order(peaks.locations.size());
  std::iota(order.begin(), order.end(), 0);
  std::stable_sort(order.begin(), order.end(),
                   [&](int i, int j) { return peaks.locations[i] < peaks.locations[j]; });
  Peaks sorted;
  for (int i : order) {
    sorted.locations.push_back(peaks.locations[i]);
    sorted.amplitudes.push_back(peaks.amplitudes[i]);
    sorted.secondDerivatives.push_back(peaks.secondDerivatives[i]);
  }
  peaks = std::move(sorted);
}

}  // namespace

Peaks PeakDetector(const double* array, int n, double threshold, int width, int polarity) {
  Peaks peaks;
  if (width < 3 || n <= width) return peaks;
  const double sign = polarity == 0 ? 1.0 : -1.0;  // valleys are the peaks of the mirrored sequence
  const ParabolaFit fit(width);
  const double firstAllowed = fit.half(), lastAllowed = n - 1 - fit.half();
  Parabola here = fit(array, sign);
  for (int run = 0; run + width < n; ++run) {
    const Parabola next = fit(array + run + 1, sign);
    if (here.slope > 0.0 && next.slope <= 0.0) {
      if (const int which = NearerVertex(here, next); which >= 0) {
        const Parabola& peak = which == 0 ? here : next;
        const double location = run + which + fit.half() + peak.Vertex();
        if (peak.Height() >= sign * threshold && location >= firstAllowed && location <= lastAllowed) {
          peaks.locations.push_back(location);
          peaks.amplitudes.push_back(sign * peak.Height());
          peaks.secondDerivatives.push_back(sign * 2.0 * peak.bend);
        }
      }
    }
    here = next;
  }
  SortByLocation(peaks);
  return peaks;
}

void Variance(const double* x, int n, double* mean, double* variance) {
  *mean = *variance = 0.0;
  if (n <= 0) return;
  double sum = 0.0;
  for (int i = 0; i < n; ++i) sum += x[i];
  const double m = sum / n;
  double squares = 0.0;
  for (int i = 0; i < n; ++i) squares += (x[i] - m) * (x[i] - m);
  *mean = m;
  *variance = squares / n;
}

// Gauss-Jordan in place: after step k, column k holds the corresponding column of the transformed identity.
// Row exchanges are undone as column exchanges, last first.
int GenInvMatrix(const double* a, int n, int /*type*/, double* inverse) {
  if (n <= 0) return 0;
  const std::size_t m = static_cast<std::size_t>(n);
  if (inverse != a) std::copy(a, a + m * m, inverse);
  std::vector<std::size_t> pivotRow(m);
  for (std::size_t k = 0; k < m; ++k) {
    std::size_t p = k;
    for (std::size_t i = k + 1; i < m; ++i)
      if (std::fabs(inverse[i * m + k]) > std::fabs(inverse[p * m + k])) p = i;
    const double pivot = inverse[p * m + k];
    if (pivot == 0.0 || !std::isfinite(pivot)) {
      std::fill(inverse, inverse + m * m, std::numeric_limits<double>::quiet_NaN());
      return -1;
    }
    pivotRow[k] = p;
    double* rowK = inverse + k * m;
    if (p != k) std::swap_ranges(rowK, rowK + m, inverse + p * m);
    rowK[k] = 1.0;
    for (std::size_t j = 0; j < m; ++j) rowK[j] /= pivot;
    for (std::size_t i = 0; i < m; ++i) {
      if (i == k) continue;
      double* rowI = inverse + i * m;
      const double factor = rowI[k];
      rowI[k] = 0.0;
      if (factor == 0.0) continue;
      for (std::size_t j = 0; j < m; ++j) rowI[j] -= factor * rowK[j];
    }
  }
  for (std::size_t k = m; k-- > 0;)
    if (pivotRow[k] != k)
      for (std::size_t i = 0; i < m; ++i) std::swap(inverse[i * m + k], inverse[i * m + pivotRow[k]]);
  return 0;
}

int ScaledWindow(double* /*x*/, int /*n*/, int windowType, WindowConst* constants) {
  if (windowType != 0) return -1;
  *constants = WindowConst{};
  return 0;
}

namespace {

struct UnitTraits {
  const char* text;
  bool squared, peak, density;
};

UnitTraits TraitsOf(VoltUnit unit) {
  switch (unit) {
    case VoltUnit::Vrms:
      return {"Vrms", false, false, false};
    case VoltUnit::Vpk:
      return {"Vpk", false, true, false};
    case VoltUnit::Vrms2:
      return {"Vrms^2", true, false, false};
    case VoltUnit::Vpk2:
      return {"Vpk^2", true, true, false};
    case VoltUnit::VrmsPerRootHz:
      return {"Vrms/sqrt(Hz)", false, false, true};
    case VoltUnit::VpkPerRootHz:
      return {"Vpk/sqrt(Hz)", false, true, true};
    case VoltUnit::Vrms2PerHz:
      return {"Vrms^2/Hz", true, false, true};
    case VoltUnit::Vpk2PerHz:
      return {"Vpk^2/Hz", true, true, true};
  }
  return {"", false, false, false};
}

}  // namespace

int SpectrumUnitConversion(const double* spectrum, int n, SpectrumKind kind, VoltUnit unit, double df,
                           const WindowConst& window, double* converted, std::string* unitText) {
  const UnitTraits traits = TraitsOf(unit);
  if (traits.density && !(df > 0.0)) return -1;
  double powerFactor = 1.0;
  if (traits.peak) powerFactor *= 2.0;  // the square of a sine's peak is twice its mean square
  if (traits.density) powerFactor /= window.enbw * df;
  const double amplitudeFactor = std::sqrt(powerFactor);
  for (int i = 0; i < n; ++i) {
    const double v = spectrum[i];
    if (traits.squared)
      converted[i] = (kind == SpectrumKind::PowerVrms2 ? v : v * v) * powerFactor;
    else
      converted[i] = (kind == SpectrumKind::PowerVrms2 ? std::sqrt(std::max(v, 0.0)) : v) * amplitudeFactor;
  }
  if (unitText) *unitText = traits.text;
  return 0;
}

int IsNotANumber(double x) {
  return std::isnan(x) ? 1 : 0;
}

}  // namespace sondera
