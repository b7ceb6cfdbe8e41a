// analytic_profile.cpp - see analytic_profile.h.
#include "run/analytic_profile.h"

#include <algorithm>
#include <cmath>

#include "forward/plane_wave.h"
#include "run/run_sizes.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr double kTwoPi = 6.28318;  // Kept: six figures, so the relative error of a frequency is -8e-7
constexpr double kAbove = 1.2, kBelow = 0.5;         // range of trial velocities, relative to the curve's own
constexpr double kStep = 0.1;                        // first step, relative to the first trial velocity
constexpr double kNarrow = 1e-5;                     // last step of a search, relative to the trial velocity
constexpr double kSameLow = 0.95, kSameHigh = 1.05;  // velocities that belong to one layer
constexpr double kDeepThickness = 1000000.0, kHalfSpaceThickness = 100.0;
constexpr double kClassWidth = 0.339;

/// State of the search along the curve.
class Strip {
 public:
  Strip(const Run& run, const std::vector<CurvePoint>& curve, double ratio, LayerStack& found)
      : run_(run), ratio_(ratio), found_(found), columns_(found.columns()) {
    const auto [low, high] = std::minmax_element(
        curve.begin(), curve.end(), [](const CurvePoint& a, const CurvePoint& b) { return a.c < b.c; });
    cMax_ = kAbove * high->c;
    cMin_ = kBelow * low->c;
    cRef_ = curve.front().c;
  }

  double cMax() const { return cMax_; }

  /// Whether the point only increases the thickness of the last layer.
  bool Extends(const CurvePoint& p) const {
    return found_.n > 0 && kSameLow * cRef_ < p.c && p.c < kSameHigh * cRef_;
  }
  void Extend(const CurvePoint& p) {
    found_.H[found_.n] += ratio_ * p.w - z_;
    z_ = ratio_ * p.w;
  }

  /// Searches the half-space under the stack; makes it the next layer when there is one.
  void Search(const CurvePoint& p, double v, double s) {
    if (!(ratio_ * p.w > z_)) return;  // a layer without thickness has no stiffness matrix
    LayerStiffness K{};
    dcomplex D{1.0, 0.0};
    const double omega = kTwoPi * p.f;
    double c = p.c;
    if (FS_strat(&K, omega, &c, found_.H.shifted(), columns_.Vs, columns_.nu, columns_.rho, found_.n, &D) !=
        0)
      return;
    const int L = found_.n + 1;
    const double thickness = ratio_ * p.w - z_, mid = thickness / 2.0 + z_;
    const auto R = [&](double Vs) {
      FS_PropLayer(run_, mid, L, Vs, columns_);
      columns_.Vs[L] = Vs;  // the trial, even where the layer's own Vp does not allow this one
      return FS_hspace(K, omega, p.c, L, columns_.Vs, columns_.nu, columns_.rho, D).re;
    };
    if (!FindRootByHalving(R, cMin_, cMax_, v, s)) return;
    FS_PropLayer(run_, mid, L, v, columns_);
    cRef_ = p.c;
    found_.H[L] = thickness;
    z_ += thickness;
    found_.n = L;
  }

  /// Adds the extra deep layer.
  void Finish() {
    const int L = found_.n;
    if (L == 0) return;
    const double deep = L == 1 ? found_.Vs[1] : 2.0 * found_.Vs[L] - found_.Vs[L - 1];
    found_.H[L + 1] = kDeepThickness * z_;
    FS_PropLayer(run_, z_ + found_.H[L + 1] / 2.0, L + 1, std::max(deep, 0.5 * found_.Vs[L]), columns_);
    found_.n = L + 1;
  }

 private:
  const Run& run_;
  double ratio_;
  LayerStack& found_;
  LayerColumns columns_;
  double cMax_ = 0.0, cMin_ = 0.0, cRef_ = 0.0;
  double z_ = 0.0;  // depth of the stack
};

/// Whether a mean velocity can be computed from a travel time: not if it underflows or overflows.
bool TakesTime(double time) {
  return time > 0.0 && std::isfinite(time);
}

/// Removes layers from the top of a stack, in parts where needed.
class TravelTime {
 public:
  explicit TravelTime(const LayerStack& stack) : stack_(stack), left_(stack.H[1]) {}

  /// Mean velocity of the next `thickness`; `before` where its travel time is zero.
  double Next(double thickness, double before) {
    double h = 0.0, time = 0.0;
    while (thickness > 0.0 && layer_ <= stack_.n) {
      const double part = std::min(thickness, left_);
      h += part;
      time += part / stack_.Vs[layer_];
      thickness -= part;
      left_ -= part;
      if (left_ > 0.0) break;
      if (++layer_ <= stack_.n) left_ = stack_.H[layer_];
    }
    return TakesTime(time) ? h / time : before;
  }

 private:
  const LayerStack& stack_;
  int layer_ = 1;
  double left_;
};

/// Class numbers of the measures of layers 1..n.
std::vector<long> Classes(const std::vector<double>& measure) {
  const double n = static_cast<double>(measure.size());
  double mean = 0.0, square = 0.0;
  for (double x : measure) mean += x / n;
  for (double x : measure) square += (x - mean) * (x - mean) / n;
  const double width = std::sqrt(square) / kClassWidth / std::cbrt(n);
  const double least = *std::min_element(measure.begin(), measure.end());
  std::vector<long> classes;
  for (double x : measure)
    classes.push_back(width > 0.0 ? static_cast<long>(std::floor((x - least) / width + 0.5)) : 0);
  return classes;
}

/// Makes the layers from..to of the stack layer L of another.
void MergeInto(const Run& run, LayerStack& merged, const LayerStack& found, int from, int to, double top) {
  double h = 0.0, time = 0.0;
  for (int l = from; l <= to; ++l) {
    h += found.H[l];
    time += found.H[l] / found.Vs[l];
  }
  const int L = ++merged.n;
  merged.H[L] = h;
  FS_PropLayer(run, top + h / 2.0, L, TakesTime(time) ? h / time : found.Vs[from], merged.columns());
}

bool IsFinite(const LayerStack& stack) {
  for (int l = 1; l <= stack.n; ++l)
    if (!std::isfinite(stack.H[l]) || !std::isfinite(stack.Vs[l]) || !(stack.Vs[l] > 0.0)) return false;
  return true;
}

/// Layers of the run from the layers found.
Refusal TakeShape(Run& run, const LayerStack& found) {
  if (run.switches.iProfileShape == kMergedByHVs || run.switches.iProfileShape == kMergedByHOverVs)
    return ReplaceRunLayers(run, MergedLayers(run, found, run.switches.iProfileShape));
  if (run.switches.iProfileShape != kOnGivenLayers) return ReplaceRunLayers(run, found);
  const LayerStack given = OnGivenLayering(run, found);
  double top = 0.0;
  for (int i = 1; i <= run.ground.nLayersCur; ++i) {
    FS_PropLayer(run, top + run.ground.layerH[i] / 2.0, i, given.Vs[i], RunLayerColumns(run.ground));
    top += run.ground.layerH[i];
  }
  return {};
}

Refusal MakeProfile(Run& run, const std::vector<CurvePoint>& curve, Listener& listener) {
  LayerStack found(static_cast<int>(curve.size()) + 1);
  if (Refusal halt = StripLayers(run, curve, run.switches.alphaDepth, found, listener)) return halt;
  if (found.n == 0 || !IsFinite(found))
    return FormatText(
        "The global dispersion curve gives no layer of a starting profile for the "
        "Depth-to-WaveL ratio %g.",
        run.switches.alphaDepth);
  return TakeShape(run, found);
}

/// How a search back over a change of sign ended.
struct Halved {
  double now;      ///< value at the last velocity
  double product;  ///< of the values before and now; not below 0 where the search stepped over the root again
  bool narrow = false;  ///< the step is small enough
};

/// Halves the step, and steps back by it while the sign differs from that of `before`.
Halved HalveBack(const std::function<double(double)>& R, double before, double& v, double& s) {
  Halved end{R(v), 0.0};
  end.product = before * end.now;
  while (end.product < 0.0) {
    s *= 0.5;
    if (std::fabs(s) < kNarrow * v) {
      end.narrow = true;
      break;
    }
    v -= s;
    end.now = R(v);
    end.product = before * end.now;
  }
  return end;
}

}  // namespace

bool FindRootByHalving(const std::function<double(double)>& R, double cMin, double cMax, double& v,
                       double s) {
  double before = R(v);
  for (;;) {
    v += s;
    if (v > cMax || v < cMin) return false;
    const Halved end = HalveBack(R, before, v, s);
    if (end.narrow || end.product == 0.0) break;
    before = end.now;
  }
  v -= 2.0 * s;
  return true;
}

Refusal StripLayers(const Run& run, const std::vector<CurvePoint>& curve, double ratio, LayerStack& found,
                    Listener& listener) {
  found.n = 0;
  if (curve.size() < 2) return {};
  Strip strip(run, curve, ratio, found);
  strip.Search(curve.front(), curve.front().c, kStep * curve.front().c);
  for (std::size_t p = 1; p + 1 < curve.size(); ++p) {
    if (strip.Extends(curve[p])) {
      strip.Extend(curve[p]);
      continue;
    }
    if (listener.Poll()) return Refusal::WithoutReason();
    strip.Search(curve[p], strip.cMax(), -kStep * strip.cMax());
  }
  strip.Finish();
  return {};
}

LayerStack OnGivenLayering(const Run& run, const LayerStack& found) {
  const int n = run.ground.nLayersCur;
  LayerStack given(n + 1);
  given.n = n + 1;
  TravelTime ground(found);
  double top = 0.0;
  for (int i = 1; i <= n; ++i) {
    given.H[i] = run.ground.layerH[i];
    FS_PropLayer(run, top + given.H[i] / 2.0, i,
                 ground.Next(given.H[i], i > 1 ? given.Vs[i - 1] : found.Vs[1]), given.columns());
    top += given.H[i];
  }
  given.H[n + 1] = kHalfSpaceThickness * found.Depth(found.n - 1);
  FS_PropLayer(run, top + given.H[n + 1] / 2.0, n + 1, found.Vs[found.n], given.columns());
  return given;
}

LayerStack MergedLayers(const Run& run, const LayerStack& found, int shape) {
  const int n = found.n - 1;  // without the extra deep layer
  std::vector<double> measure;
  for (int l = 1; l <= n; ++l)
    measure.push_back(shape == kMergedByHVs ? found.H[l] * found.Vs[l] : found.H[l] / found.Vs[l]);
  const std::vector<long> classes = Classes(measure);
  LayerStack merged(found.n);
  double top = 0.0;
  for (int from = 1, l = 1; l <= n; ++l) {
    if (l < n && classes[static_cast<std::size_t>(l)] == classes[static_cast<std::size_t>(l - 1)]) continue;
    MergeInto(run, merged, found, from, l, top);
    top += merged.H[merged.n];
    from = l + 1;
  }
  MergeInto(run, merged, found, found.n, found.n, top);
  return merged;
}

Refusal FS_AnalPrePrf(Run& run, Listener& listener) {
  if (!(run.switches.alphaDepth > 0.0) || !std::isfinite(run.switches.alphaDepth))
    return FormatText("The Depth-to-WaveL ratio is %g. It must be above 0.", run.switches.alphaDepth);
  const std::vector<CurvePoint> curve = ObservedCurve(run.observations);
  if (curve.size() < 2) return "A starting profile needs a global dispersion curve of two points or more.";
  if (!IsOneGround(curve))
    return "The velocities of the global dispersion curve are too far apart for one ground.";
  const bool replaces = run.switches.iProfileShape != kOnGivenLayers;
  if (replaces) KeepGivenLayersAsStrata(run.ground, run.strata);
  Refusal result = MakeProfile(run, curve, listener);
  if (replaces) FS_DeAllocateStrataPropLayer(run.strata);
  return result;
}

}  // namespace sondera
