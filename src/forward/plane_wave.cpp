// plane_wave.cpp - roots of the characteristic function of a layered half-space: scan, bisection, choice of a
// mode.
//
// The sweep driver and the starting model call it. Owns no state. The trial velocities, the midpoints and the
// stop of the bisection are fixed, since the derivatives of an inversion are differences of exactly these
// numbers. It is fast because it evaluates eight of them at once (plane_wave_lanes) and ends the scan at the
// first root where only that one is wanted.
// Odd on purpose: limits that were single-precision constants keep their value as doubles.
#include "forward/plane_wave.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "forward/plane_wave_lanes.h"
#include "numeric/pi.h"
#include "numeric/scratch.h"

namespace sondera {
namespace {

constexpr double kLowest = 0.800000011920929;      // Kept: single precision; of the smallest shear velocity
constexpr double kAboveRayleigh = 1.001;           // of the Rayleigh velocity of the stiffest layer
constexpr double kWindowLow = 0.6660000085830688;  // Kept: single precision; window against stray roots
constexpr double kWindowStart = 2.25, kWindowHigh = 1.5;
constexpr double kBisectionStop = 1e-07;
constexpr int kUsualLayers = 256;  // more than that are kept on the heap
constexpr int kTrials = 101;
constexpr int cModeLimit = 1;       // only the fundamental mode is returned
constexpr int kMaxHalvings = 2200;  // more halvings than any pair of doubles needs

static_assert(kLowest == static_cast<double>(0.8f) && kWindowLow == static_cast<double>(0.666f));

/// Velocity and value of the characteristic function there; only the sign of the value is the same in all
/// implementations.
struct Sample {
  double c, g;
};

/// The layers above 2 L at one wavelength, with their terms of the formulas.
class Stack {
 public:
  Stack(double L, int n, const double* h, const double* depth, const double* Vs, const double* nu,
        const double* rho)
      : half_(HalfSpaceLayer(L, n, depth)),
        h_(h),
        Vs_(Vs),
        nu_(nu),
        rho_(rho),
        table_(half_),
        lanes_{table_.pointer() + 1, half_},
        L_(L) {
    const double k = kTwoPi / L;
    for (int l = 1; l <= half_; ++l) {
      const double V2 = Vs[l] * Vs[l], iV2 = 1.0 / V2;
      const double ratio = (1.0 - 2.0 * nu[l]) / (2.0 * (1.0 - nu[l]));  // (Vs / Vp)^2
      const double iP2 = ratio >= 0.0 ? iV2 * ratio : std::numeric_limits<double>::quiet_NaN();
      table_[l] = {k * h[l], iV2, iP2, V2 * rho[l]};
    }
  }
  Stack(const Stack&) = delete;
  Stack& operator=(const Stack&) = delete;

  /// Values at c[0..used-1], used up to kLanes. A velocity equal to one of a layer is changed slightly in
  /// place.
  void Evaluate(double* c, double* g, int used, LayerStiffness* K) const {
    for (int i = used; i < kLanes; ++i) c[i] = c[0];
    const unsigned left = evaluate_(lanes_, c, g);
    if (left == 0) return;
    for (int i = 0; i < used; ++i) {
      if (left >> i & 1u) g[i] = EvaluateComplex(&c[i], K);
    }
  }

 private:
  /// The deepest layer whose top is above 2 L.
  static int HalfSpaceLayer(double L, int n, const double* depth) {
    while (n > 1 && !(depth[n] < 2.0 * L)) --n;
    return n;
  }

  double EvaluateComplex(double* c, LayerStiffness* K) const {
    const double omega = kTwoPi * (*c / L_);
    dcomplex D{1.0, 0.0}, F;
    int stopLayer = 0;
    *K = LayerStiffness{};
    if (half_ > 1) FS_strat_(K, omega, c, h_, Vs_, nu_, rho_, half_ - 1, &stopLayer, &D);
    FS_hspace_(*K, omega, *c, stopLayer != 0 ? stopLayer : half_, Vs_, nu_, rho_, &F, D);
    return F.re;
  }

  int half_;
  const double *h_, *Vs_, *nu_, *rho_;
  LaneFunction evaluate_ = BestLanes();
  Scratch<LaneLayer, kUsualLayers> table_;
  LaneStack lanes_;
  double L_;
};

/// -1, 0 or 1: the sign of the product of two values; 0 for NaNs too.
int SignOfProduct(double a, double b) {
  const int sa = (a > 0.0) - (a < 0.0), sb = (b > 0.0) - (b < 0.0);
  return sa * sb;
}

bool Wide(double cLow, double cHigh) {
  return std::fabs((cHigh - cLow) / cHigh) >= kBisectionStop;
}

/// Evaluates midpoints of a bisection ahead of time. Each midpoint depends on the sign at the one before; but
/// with an estimate of the root the next ones can be predicted and evaluated together. A wrong estimate costs
/// time, never a digit: the bisection uses the values in its own order and only at its own midpoints.
class LookAhead {
 public:
  void Add(Sample s) {
    if (count_ < kPool) pool_[count_++] = s;
  }

  /// Writes the expected midpoints between lo and hi, at most kLanes, to c; returns their number, at least 1.
  int Plan(const Sample& lo, const Sample& hi, double* c) {
    return lastGain_ < 3 ? PlanTree(lo.c, hi.c, c) : PlanPath(lo.c, hi.c, Guess(lo, hi), c);
  }

  void SetGain(int halvings) { lastGain_ = halvings; }

 private:
  static constexpr int kPool = 16;
  static constexpr int kNearest = 4;

  static int PlanPath(double lo, double hi, double root, double* c) {
    int n = 0;
    while (n < kLanes && (n == 0 || Wide(lo, hi))) {
      const double mid = (lo + hi) / 2.0;
      c[n++] = mid;
      ((root > mid) == (hi > lo) ? lo : hi) = mid;
    }
    return n;
  }

  /// Both halves at each of three halvings: for functions without a good estimate, for example near a pole.
  static int PlanTree(double lo, double hi, double* c) {
    const double mid = (lo + hi) / 2.0, left = (lo + mid) / 2.0, right = (mid + hi) / 2.0;
    const double all[] = {
        mid, left, right, (lo + left) / 2.0, (left + mid) / 2.0, (mid + right) / 2.0, (right + hi) / 2.0};
    std::copy(std::begin(all), std::end(all), c);
    return static_cast<int>(std::size(all));
  }

  /// Inverse interpolation through the nearest samples; the secant of the ends if that leaves the bracket.
  double Guess(const Sample& lo, const Sample& hi) {
    KeepNearest((lo.c + hi.c) / 2.0);
    const double root = InverseInterpolation(), a = std::min(lo.c, hi.c), b = std::max(lo.c, hi.c);
    if (root > a && root < b) return root;
    return lo.c - lo.g * ((hi.c - lo.c) / (hi.g - lo.g));
  }

  /// Velocity at which the polynomial c(g) through the samples of the pool has g = 0, by Lagrange.
  double InverseInterpolation() const {
    double weight[kNearest], root = 0.0;
    for (int i = 0; i < count_; ++i) weight[i] = pool_[i].c;
    for (int i = 0; i < count_; ++i) {
      for (int j = 0; j < i; ++j) {
        const double inverse = 1.0 / (pool_[j].g - pool_[i].g);
        weight[i] *= pool_[j].g * inverse;
        weight[j] *= -pool_[i].g * inverse;
      }
    }
    for (int i = 0; i < count_; ++i) root += weight[i];
    return root;
  }

  void KeepNearest(double c) {
    const int n = std::min(count_, kNearest);
    std::partial_sort(pool_, pool_ + n, pool_ + count_, [c](const Sample& a, const Sample& b) {
      return std::fabs(a.c - c) < std::fabs(b.c - c);
    });
    count_ = n;
  }

  Sample pool_[kPool];
  int count_ = 0;
  int lastGain_ = kLanes;
};

/// Bisection; lo and hi return the last bracket. Returns the last velocity evaluated.
double Bisect(const Stack& stack, Sample* lo, Sample* hi, LookAhead* ahead, LayerStiffness* K) {
  double last = hi->c;
  int halvings = 0;
  while (Wide(lo->c, hi->c) && halvings < kMaxHalvings) {
    double mid[kLanes], c[kLanes], g[kLanes];
    const int n = ahead->Plan(*lo, *hi, mid);
    std::copy(mid, mid + n, c);
    stack.Evaluate(c, g, n, K);
    int gain = 0;
    do {
      const double* at = std::find(mid, mid + n, (lo->c + hi->c) / 2.0);
      if (at == mid + n) break;
      const auto i = at - mid;
      last = c[i];
      const int p = SignOfProduct(hi->g, g[i]);
      if (p == 0) return last;
      *(p < 0 ? lo : hi) = {c[i], g[i]};
      ++gain;
    } while (Wide(lo->c, hi->c));
    if (gain == 0) return last;  // ends that have no midpoint: NaNs
    halvings += gain;
    ahead->SetGain(gain);
    for (int i = 0; i < n; ++i) ahead->Add({c[i], g[i]});
  }
  return last;
}

/// All trials so far, and the root between the last two of different sign.
class Scan {
 public:
  Scan(const Stack& stack, double cLow, double cHigh)
      : stack_(stack), cLow_(cLow), dc_((cHigh - cLow) / (kTrials - 1)), last_{cLow - dc_, 0.0} {}

  /// For a function that changes its sign at most once: skips the trials before the change, which all have
  /// the sign of the first. A value of 0 or NaN leaves the scan unchanged.
  void SkipToOnlyChange() {
    constexpr int kStep = (kTrials - 1) / (kLanes - 1);
    double c[kLanes], g[kLanes];
    EvaluateTrials(0, kStep, kLanes, c, g);
    int same = 0;
    while (same < kLanes && SignOfProduct(g[0], g[same]) > 0) ++same;
    if (same == 0 || (same < kLanes && SignOfProduct(g[0], g[same]) == 0)) return;
    last_ = trial_[(same - 1) * kStep] = {c[same - 1], g[same - 1]};
    first_ = (same - 1) * kStep;
    next_ = known_ = first_ + 1;
  }

  /// Next root in *root; false when no trials are left.
  bool Next(double* root) {
    for (; next_ < kTrials; ++next_) {
      if (next_ == known_) EvaluateMore();
      const Sample now = trial_[next_];
      if (next_ == 0) last_.g = now.g;
      if (std::isnan(last_.g) || std::isnan(now.g)) continue;  // a NaN changes nothing
      const Sample before = last_;
      last_ = now;
      const int p = SignOfProduct(before.g, now.g);
      if (p > 0 || before.g == 0.0) continue;
      *root = p < 0 ? RootBetween(before, now) : now.c;
      ++next_;
      return true;
    }
    return false;
  }

 private:
  /// Velocities and values of n trials from `first` on, `step` apart.
  void EvaluateTrials(int first, int step, int n, double* c, double* g) {
    for (int i = 0; i < n; ++i) c[i] = (first + i * step) * dc_ + cLow_;
    stack_.Evaluate(c, g, n, &K_);
  }

  void EvaluateMore() {
    double c[kLanes], g[kLanes];
    const int used = std::min(kLanes, kTrials - known_);
    EvaluateTrials(known_, 1, used, c, g);
    for (int i = 0; i < used; ++i) trial_[known_ + i] = {c[i], g[i]};
    known_ += used;
  }

  double RootBetween(Sample lo, Sample hi) {
    LookAhead ahead;
    for (int i = std::max(first_, next_ - 3); i < std::min(known_, next_ + 3); ++i) ahead.Add(trial_[i]);
    return Bisect(stack_, &lo, &hi, &ahead, &K_);
  }

  const Stack& stack_;
  double cLow_, dc_;
  Sample last_;
  int first_ = 0, next_ = 0, known_ = 0;  // known are trials first_ to known_ - 1
  LayerStiffness K_;
  Sample trial_[kTrials];
};

/// Upper end of the scan; false when the stiffest layer has no Rayleigh velocity. That velocity is the root
/// of a uniform half-space, with the same trials as any other.
bool FastestVelocity(double VsMax, double nu, double rho, double* cMax) {
  const double none[] = {0.0, 0.0}, V[] = {0.0, VsMax}, nus[] = {0.0, nu}, rhos[] = {0.0, rho};
  const Stack stack(1.0, 1, none, none, V, nus, rhos);
  Scan scan(stack, kLowest * VsMax, VsMax);
  scan.SkipToOnlyChange();  // Rayleigh's equation has one root below Vs for every physical Poisson's ratio
  double root = 0.0;
  if (!scan.Next(&root)) return false;
  *cMax = root * kAboveRayleigh;
  return true;
}

/// Whether a layer is physically possible; false for NaNs.
bool IsGround(double h, double Vs, double rho, double nu) {
  return h >= 0.0 && Vs > 0.0 && rho > 0.0 && nu > -1.0 && nu <= 0.5;
}

/// The roots of wavelength i that remain after one direction of the sweep against stray roots.
struct Window {
  double low, high;

  void Apply(int i, const FlatMatrix& F, const double* L, int* modeCount) {
    int m = modeCount[i];
    while (m > 0 && F(i, m) * L[i] >= high) --m;
    if (m > 1) {
      int first = 1;
      while (first <= m && !(F(i, first) * L[i] > low)) ++first;
      for (int k = first; k <= m; ++k) F(i, k - first + 1) = F(i, k);
      m -= first - 1;
    }
    modeCount[i] = m;
    if (m == 0) return;
    low = F(i, 1) * L[i] * kWindowLow;
    high = F(i, m) * L[i] * kWindowHigh;
  }
};

Window WindowAt(int i, const FlatMatrix& F, const double* L) {
  const double low = F(i, 1) * L[i] * kWindowLow;
  return {low, low * kWindowStart};
}

}  // namespace

void FS_sub_(double* cLow, double* cHigh, dcomplex* fLow, dcomplex* fHigh, double L, int n, LayerStiffness* K,
             const double* Vs, const double* nu, const double* rho, const double* h, const double* depth,
             int) {
  if (n < 1) return;
  const Stack stack(L, n, h, depth, Vs, nu, rho);
  Sample lo{*cLow, fLow->re}, hi{*cHigh, fHigh->re};
  LookAhead ahead;
  ahead.Add(lo);
  ahead.Add(hi);
  const double root = Bisect(stack, &lo, &hi, &ahead, K);
  *cLow = lo.c;
  *cHigh = root;
  *fLow = {lo.g, 0.0};
  *fHigh = {hi.g, 0.0};
}

void FS_search_(double L, double cLow, double cHigh, const double* h, const double* depth, const double* Vs,
                const double* nu, const double* rho, int n, int* modeCount, double* cRoots, double* fRoots,
                int) {
  const int limit = *modeCount == 1 ? 1 : kPlaneWaveMaxRoots;
  *modeCount = 0;
  if (n < 1 || !(L > 0.0) || !std::isfinite(L) || !std::isfinite(cHigh / L)) return;
  const Stack stack(L, n, h, depth, Vs, nu, rho);
  Scan scan(stack, cLow, cHigh);
  double root = 0.0;
  while (*modeCount < limit && scan.Next(&root)) {
    const int k = ++*modeCount;
    cRoots[k] = root;
    fRoots[k] = root / L;
  }
}

void FS_clean_(int nWave, const FlatMatrix& F, const double* L, int* modeCount) {
  if (nWave <= 2) return;
  Window down = WindowAt(1, F, L), up = WindowAt(nWave, F, L);
  for (int i = 2; i <= nWave; ++i) {
    down.Apply(i, F, L, modeCount);
    up.Apply(nWave - i + 1, F, L, modeCount);
  }
}

void FS_intp_(int nWave, const FlatMatrix& F, const double* L, double* c, const int* modeCount, int modeSel) {
  int before = 0;  // last wavelength with a root
  for (int i = 1; i <= nWave; ++i) {
    if (modeCount[i] <= 0) continue;
    F(i, 1) = F(i, modeSel == 1 ? 1 : modeCount[i]);
    c[i] = L[i] * F(i, 1);
    for (int j = before + 1; before > 0 && j < i; ++j) {
      const double share = (L[j] - L[before]) / (L[i] - L[before]);
      const double v = c[before] + (c[i] - c[before]) * share;
      if (!(L[j] > 0.0) || !std::isfinite(v / L[j])) continue;
      F(j, 1) = v / L[j];
      c[j] = L[j] * F(j, 1);
    }
    before = i;
  }
}

void FS_SASW2D(const int* n, const double* h, const double* Vs, const double*, const double*,
               const double* rho, const double*, const double* nu, const int* nWave, const double* L,
               double* c) {
  const int layers = *n, waves = *nWave;
  if (layers < 1 || waves < 1) return;
  for (int l = 1; l <= layers; ++l) {
    if (!IsGround(l < layers ? h[l] : 0.0, Vs[l], rho[l], nu[l])) return;
  }
  double VsMax = Vs[1], VsMin = Vs[1];
  for (int l = 2; l <= layers; ++l) {
    if (Vs[l] >= VsMax) VsMax = Vs[l];
    if (Vs[l] < VsMin) VsMin = Vs[l];
  }
  double cMax = 0.0;
  if (!FastestVelocity(VsMax, nu[1], rho[1], &cMax)) return;

  Scratch<double, kUsualLayers> depths(layers);
  double* depth = depths.pointer();
  depth[1] = 0.0;
  for (int l = 1; l < layers; ++l) depth[l + 1] = depth[l] + h[l];
  const int kept = waves > 2 ? kPlaneWaveMaxRoots : 1;  // only a longer curve is cleaned with all its roots
  Scratch<double> roots(waves * kept);
  Scratch<int> counts(waves);
  const FlatMatrix F{roots.pointer(), waves};
  int* modeCount = counts.pointer();
  for (int i = 1; i <= waves; ++i) {
    double cRoots[kPlaneWaveMaxRoots + 1], fRoots[kPlaneWaveMaxRoots + 1];
    modeCount[i] = kept == 1 ? 1 : 0;
    FS_search_(L[i], VsMin * kLowest, cMax, h, depth, Vs, nu, rho, layers, &modeCount[i], cRoots, fRoots, 0);
    for (int k = 1; k <= kept; ++k) F(i, k) = k <= modeCount[i] ? fRoots[k] : 0.0;
  }
  FS_clean_(waves, F, L, modeCount);
  FS_intp_(waves, F, L, c, modeCount, cModeLimit);
}

}  // namespace sondera
