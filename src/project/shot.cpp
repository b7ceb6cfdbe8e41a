// shot.cpp - see shot.h.
#include "project/shot.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "project/import_layout.h"
#include "runtime/byte_source.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr int kClippedRun = 4;      // samples in a row at the largest or smallest value
constexpr double kLargest = 1e140;  // its square times the samples of a record stays finite
constexpr std::int64_t kMostBytes =
    32 * kMostBlockValues;  // the widest text of one number, and its separator

/// Longest run of the extreme value.
int RunAt(const std::vector<double>& samples, double extreme) {
  int run = 0, longest = 0;
  for (double v : samples) longest = std::max(longest, run = v == extreme ? run + 1 : 0);
  return longest;
}

}  // namespace

std::string SampleFault(const std::vector<double>& samples) {
  if (samples.empty()) return "has no samples";
  if (!std::all_of(samples.begin(), samples.end(), [](double v) { return std::isfinite(v); }))
    return "holds a value that is no finite number";
  const auto [low, high] = std::minmax_element(samples.begin(), samples.end());
  if (*low == 0.0 && *high == 0.0) return "is dead: all samples are 0";
  if (*low == *high) return FormatText("is dead: all samples are %g", *low);
  // The zeros before a wave of one sign are no limit of the recorder.
  for (double extreme : {*low, *high})
    if (const int run = RunAt(samples, extreme); extreme != 0.0 && run >= kClippedRun)
      return FormatText("is clipped: %d samples in a row are at its limit, %g", run, extreme);
  return {};
}

bool SamplesAreUsable(const std::vector<double>& samples, double scale) {
  return std::isfinite(scale) && std::all_of(samples.begin(), samples.end(),
                                             [&](double v) { return std::fabs(v * scale) <= kLargest; });
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
