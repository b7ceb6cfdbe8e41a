// sweep_state.cpp - see sweep_state.h.
#include "run/sweep_state.h"

#include <algorithm>
#include <cstddef>

#include "runtime/text_format.h"

namespace sondera {

SweepState sweepState;

namespace {

constexpr std::size_t kMostNamed = 8;

std::string Named(const std::vector<std::string>& points, const char* what) {
  std::string text = FormatText("%zu %s %s: ", points.size(), points.size() == 1 ? "point" : "points", what);
  for (std::size_t i = 0; i < std::min(points.size(), kMostNamed); ++i) text += (i ? ", " : "") + points[i];
  return points.size() > kMostNamed ? text + ", ..." : text;
}

}  // namespace

std::string SweepReport() {
  std::string text;
  const auto add = [&text](const std::string& part) { text += (text.empty() ? "" : "; ") + part; };
  if (!sweepState.noResult.empty()) add(Named(sweepState.noResult, "without a result"));
  if (!sweepState.seedKept.empty()) add(Named(sweepState.seedKept, "kept at the seed (incomplete modes)"));
  if (!sweepState.shallowMesh.empty())
    add(Named(sweepState.shallowMesh,
              "over a table that ends less than a wavelength down (make its last layer thicker)"));
  if (!sweepState.note.empty()) add(sweepState.note);
  return text;
}

}  // namespace sondera
