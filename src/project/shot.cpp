// shot.cpp - see shot.h.
#include "project/shot.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "project/import_layout.h"
#include "runtime/byte_source.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr int kClippedRun = 4;      // consecutive samples at the largest or smallest value
constexpr double kLargest = 1e140;  // its square times the samples of a record stays finite
constexpr std::int64_t kMostBytes =
    32 * kMostBlockValues;  // the widest text of one number, and its separator

/// Smallest and largest sample, and whether all are finite. Plain loops without an exit run in vectors.
struct Range {
  double low = std::numeric_limits<double>::infinity(), high = -std::numeric_limits<double>::infinity();
  bool finite = true;
};
Range RangeOf(const std::vector<double>& samples) {
  Range r;
  int bad = 0;
  for (double v : samples) {
    r.low = v < r.low ? v : r.low;
    r.high = v > r.high ? v : r.high;
    bad += std::fabs(v) <= std::numeric_limits<double>::max() ? 0 : 1;
  }
  r.finite = bad == 0;
  return r;
}

/// Longest run of a value; 0 where it is too rare for a relevant run.
int RunAt(const std::vector<double>& samples, double value) {
  int count = 0;
  for (double v : samples) count += v == value ? 1 : 0;
  if (count < kClippedRun) return 0;
  int run = 0, longest = 0;
  for (double v : samples) longest = std::max(longest, run = v == value ? run + 1 : 0);
  return longest;
}

}  // namespace

std::string SampleFault(const std::vector<double>& samples) {
  if (samples.empty()) return "has no samples";
  const Range range = RangeOf(samples);
  if (!range.finite) return "holds a value that is not a finite number";
  if (range.low == 0.0 && range.high == 0.0) return "is dead: all samples are 0";
  if (range.low == range.high) return FormatText("is dead: all samples are %g", range.low);
  // The zeros before a wave of one sign are not a limit of the recorder.
  for (double extreme : {range.low, range.high})
    if (const int run = RunAt(samples, extreme); extreme != 0.0 && run >= kClippedRun)
      return FormatText("is clipped: %d samples in a row are at its limit, %g", run, extreme);
  return {};
}

bool SamplesAreUsable(const std::vector<double>& samples, double scale) {
  const Range range = RangeOf(samples);
  return range.finite && std::isfinite(scale) &&
         std::max(std::fabs(range.low), std::fabs(range.high)) * std::fabs(scale) <= kLargest;
}

std::string ReadShotBytes(const std::string& path, std::string& bytes) {
  ByteSource source;
  std::string reason;
  if (!source.Open(path, &reason)) return reason;
  if (source.Size() > kMostBytes) return "the file is larger than any record can be";
  bytes.resize(static_cast<std::size_t>(source.Size()));
  bytes.resize(source.Read(bytes.data(), bytes.size()));
  return source.Failed() ? "the file cannot be read" : std::string();
}

}  // namespace sondera
