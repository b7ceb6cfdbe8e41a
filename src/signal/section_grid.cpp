// section_grid.cpp - see section_grid.h. Nodes with the same samples around them share one solved system.
#include "signal/section_grid.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>
#include <unordered_map>
#include <utility>

#include "runtime/text_format.h"
#include "signal/kriging.h"

namespace sondera {
namespace {

constexpr double kBoxShare = 0.15;    // of the extents
constexpr double kGrowthShare = 0.2;  // of the box, for each step
constexpr int kCountsPerRound = 2;  // all four quadrants are empty when the box grows, and each side has two
constexpr int kMostRounds = 17;     // 0.06 of the extents each: covers any box
constexpr std::chrono::milliseconds kPollEvery{30};
constexpr int kLeastSamples = 3;  // for an estimate
constexpr int kFillSamples = 6;
constexpr std::size_t kMostKept = 3'000'000;  // indices and weights of solved neighbourhoods

constexpr double kNoValue = std::numeric_limits<double>::quiet_NaN();

struct Box {
  double left, right, bottom, top;
  bool CoversAll(const std::array<double, 4>& r) const {
    return left <= r[0] && right >= r[1] && bottom <= r[2] && top >= r[3];
  }
};

Box BoxAround(const std::array<double, 4>& r, double x0, double y0, int counts) {
  const double hx = kBoxShare * (r[1] - r[0]), hy = kBoxShare * (r[3] - r[2]);
  const double reachX = 0.5 * hx + counts * kGrowthShare * hx, reachY = 0.5 * hy + counts * kGrowthShare * hy;
  return {std::max(x0 - reachX, r[0]), std::min(x0 + reachX, r[1]), std::max(y0 - reachY, r[2]),
          std::min(y0 + reachY, r[3])};
}

/// Collects the samples in the box.
void SamplesIn(const SectionSamples& s, const Box& box, double x0, double y0, Neighbourhood& found) {
  found.sample.clear();
  found.inQuadrant = {};
  // A node at the end of a range may lie beyond it by rounding; the left quadrants extend to the node.
  const auto from = std::lower_bound(s.x.begin(), s.x.end(), box.left);
  const auto to = std::upper_bound(from, s.x.end(), std::max(box.right, x0));
  for (auto k = static_cast<std::size_t>(from - s.x.begin()); k < static_cast<std::size_t>(to - s.x.begin());
       ++k) {
    const double y = s.y[k];
    const bool left = s.x[k] <= x0, low = y <= y0;
    if (low ? y < box.bottom : y > box.top) continue;
    found.sample.push_back(static_cast<int>(k));
    ++found.inQuadrant[left ? (low ? 2 : 1) : (low ? 3 : 0)];
  }
}

/// Whether there are enough samples.
bool Suffices(const SectionSamples& s, const Neighbourhood& found, bool fill) {
  if (!fill) return !found.sample.empty();
  if (found.sample.size() < kFillSamples) return false;
  return s.x[static_cast<std::size_t>(found.sample.front())] !=
         s.x[static_cast<std::size_t>(found.sample.back())];  // ascending in x
}

struct SampleHash {
  std::size_t operator()(const std::vector<int>& v) const {
    std::size_t h = v.size();
    for (int i : v) h = (h ^ static_cast<std::size_t>(i)) * 0x9e3779b97f4a7c15u;
    return h ^ (h >> 29);
  }
};

/// A solved neighbourhood. Without weights the value is `level` everywhere, NaN for none.
struct Solved {
  std::vector<double> dual;
  double level = kNoValue;
};

/// Estimates at nodes.
class Estimator {
 public:
  Estimator(const SectionSamples& samples, const GridSettings& settings, Listener& listener)
      : s_(samples), listener_(listener) {
    const std::array<double, 4> r = get_range(settings.limits);
    const double dX = r[1] - r[0], dY = r[3] - r[2];
    range_ = 0.5 * std::sqrt(dX * dX + dY * dY);
    rangeOfPlace_ = RangeOfPlace(range_);
    samePlace_ = SamePlaceDistance(r.data());
  }

  /// False after a halt.
  bool Estimate(const std::vector<int>& sample, double x0, double y0, double* value) {
    auto known = solved_.find(sample);
    if (known == solved_.end()) {
      if (kept_ > kMostKept) {
        solved_.clear();
        kept_ = 0;
      }
      Solved made;
      if (!Solve(sample, made)) return false;
      kept_ += sample.size() + made.dual.size();
      known = solved_.emplace(sample, std::move(made)).first;
    }
    const Solved& solved = known->second;
    *value = solved.level;
    if (solved.dual.empty()) return true;
    Gather(sample);
    *value = DualValue(kExponential, static_cast<int>(sample.size()), x_.data(), y_.data(),
                       solved.dual.data(), solved.level, rangeOfPlace_, x0, y0);
    return true;
  }

  std::vector<std::array<int, 2>> TakeSameSamples() {
    std::sort(same_.begin(), same_.end());
    same_.erase(std::unique(same_.begin(), same_.end()), same_.end());
    return std::move(same_);
  }

 private:
  const SectionSamples& s_;
  Listener& listener_;
  double range_ = 0.0, rangeOfPlace_ = 0.0, samePlace_ = 0.0;
  KrigingSolver solver_;
  std::vector<double> x_, y_, z_;
  std::unordered_map<std::vector<int>, Solved, SampleHash> solved_;
  std::size_t kept_ = 0;
  std::vector<std::array<int, 2>> same_;

  void Gather(const std::vector<int>& sample) {
    x_.clear();
    y_.clear();
    for (int k : sample) {
      x_.push_back(s_.x[static_cast<std::size_t>(k)]);
      y_.push_back(s_.y[static_cast<std::size_t>(k)]);
    }
  }

  bool Solve(const std::vector<int>& sample, Solved& made) {
    Gather(sample);
    z_.clear();
    for (int k : sample) z_.push_back(s_.z[static_cast<std::size_t>(k)]);
    const auto [low, high] = std::minmax_element(z_.begin(), z_.end());
    if (*low == *high) {  // no variance, no variogram
      made.level = std::max(*low, 0.0);
      return true;
    }
    made.dual.resize(sample.size());
    const KrigingResult result =
        solver_.Solve(kExponential, static_cast<int>(sample.size()), x_.data(), y_.data(), z_.data(), range_,
                      samePlace_, listener_, made.dual.data(), &made.level);
    if (result == KrigingResult::kDone) return true;
    if (result == KrigingResult::kSamePlace) {
      same_.push_back({sample[static_cast<std::size_t>(solver_.first())],
                       sample[static_cast<std::size_t>(solver_.second())]});
    }
    made = {};
    return result != KrigingResult::kHalted;
  }
};

/// Whether a grid can be made.
Refusal CheckGrid(const SectionSamples& samples, const GridSettings& settings) {
  const std::array<double, 4> r = get_range(settings.limits);
  const double dX = r[1] - r[0], dY = r[3] - r[2];
  for (double v : r)
    if (!std::isfinite(v)) return "A limit of the section is not a finite number.";
  if (dX < 0.0) return FormatText("The distance range of the section, %g to %g, is empty.", r[0], r[1]);
  if (dY < 0.0) return FormatText("The wavelength range of the section, %g to %g, is empty.", r[2], r[3]);
  if (!std::isfinite(dX * dX + dY * dY))
    return FormatText("The ranges of the section, %g to %g and %g to %g, are too large.", r[0], r[1], r[2],
                      r[3]);
  for (int n : {settings.tmgNx, settings.tmgNy})
    if (n < 1 || n > kMostIntervals)
      return FormatText("A section has 1 to %d intervals each way, not %d.", kMostIntervals, n);
  if (samples.x.empty()) return "No curve is included.";
  return {};
}

std::vector<double> Axis(double from, double to, int n) {
  std::vector<double> axis;
  for (int i = 0; i <= n; ++i) axis.push_back(from + i * (to - from) / n);
  return axis;
}

}  // namespace

std::array<double, 4> get_range(const SectionLimits& limits) {
  return {limits.tmgDMin, limits.tmgDMax, limits.tmgWlMin, limits.tmgWlMax};
}

int GetSamples(const SectionSamples& samples, const GridSettings& settings, double x0, double y0,
               Neighbourhood& found) {
  const std::array<double, 4> r = get_range(settings.limits);
  Neighbourhood now;
  for (int round = 0; round <= kMostRounds; ++round) {
    const Box box = BoxAround(r, x0, y0, round * kCountsPerRound);
    SamplesIn(samples, box, x0, y0, now);
    if (Suffices(samples, now, settings.fill)) break;
    if (box.CoversAll(r)) break;
  }
  if (now.sample.empty()) return -1;
  found = std::move(now);
  return 0;
}

Refusal DoKriging(const SectionSamples& samples, const GridSettings& settings, Listener& listener,
                  SectionGrid& grid) {
  if (Refusal refusal = CheckGrid(samples, settings)) return refusal;
  const SectionLimits& l = settings.limits;
  SectionGrid made;
  made.gridX = Axis(l.tmgDMin, l.tmgDMax, settings.tmgNx);
  made.gridY = Axis(l.tmgWlMin, l.tmgWlMax, settings.tmgNy);
  made.value.reserve(made.gridX.size() * made.gridY.size());

  Estimator estimator(samples, settings, listener);
  auto lastPoll = std::chrono::steady_clock::now();
  Neighbourhood around;  // Kept: where no sample is found, the samples of the node before are used
  for (double y : made.gridY) {
    listener.Done(static_cast<double>(made.value.size()) /
                  static_cast<double>(made.gridX.size() * made.gridY.size()));
    for (double x : made.gridX) {
      if (const auto now = std::chrono::steady_clock::now(); now - lastPoll > kPollEvery) {
        if (listener.Poll()) return Refusal::WithoutReason();
        lastPoll = now;
      }
      GetSamples(samples, settings, x, y, around);
      double value = kNoValue;
      const auto count = static_cast<int>(around.sample.size());
      if (count > kMostKrigingSamples) {
        return FormatText(
            "%d points lie around distance %g and wavelength %g; a section takes up to %d. Narrow "
            "the ranges, or thin the curves.",
            count, x, y, kMostKrigingSamples);
      }
      if (count >= kLeastSamples && !estimator.Estimate(around.sample, x, y, &value))
        return Refusal::WithoutReason();
      if (std::isnan(value)) ++made.nEmpty;
      made.value.push_back(value);
    }
  }
  made.sameSamples = estimator.TakeSameSamples();
  listener.Done(1.0);
  grid = std::move(made);
  return {};
}

double GridVelocity(const SectionGrid& grid, double distance, double wavelength) {
  if (grid.Empty()) return kNoValue;
  struct Side {
    int at;
    double share;  // of the next node
  };
  const auto place = [](const std::vector<double>& axis, double v) -> Side {
    if (!(v >= axis.front() && v <= axis.back())) return {-1, 0.0};
    const auto above = std::upper_bound(axis.begin(), axis.end(), v);
    if (above == axis.end()) return {static_cast<int>(axis.size()) - 1, 0.0};
    const auto i = above - axis.begin();
    return {static_cast<int>(i) - 1, (v - above[-1]) / (above[0] - above[-1])};
  };
  const Side x = place(grid.gridX, distance), y = place(grid.gridY, wavelength);
  if (x.at < 0 || y.at < 0) return kNoValue;
  double sum = 0.0;
  for (int q = 0; q < 4; ++q) {
    const double weight = (q & 1 ? x.share : 1.0 - x.share) * (q & 2 ? y.share : 1.0 - y.share);
    if (weight > 0.0) sum += weight * grid.At(x.at + (q & 1), y.at + (q >> 1));
  }
  return sum;
}

}  // namespace sondera
