// settings_capacity.cpp - see settings_capacity.h.
#include "records/settings_capacity.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "records/run_limits.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr std::int64_t kLargestInt = std::numeric_limits<int>::max();

void RaiseCapacity(int& capacity, std::int64_t wanted) {
  if (wanted <= capacity) return;
  const std::int64_t doubled = 2 * static_cast<std::int64_t>(capacity);
  capacity = static_cast<int>(std::min(std::max(doubled, wanted), kLargestInt));
}

/// A capacity from a damaged file counts only up to twice the need.
template <class T>
void AtLeast(std::vector<T>& v, int capacity, std::int64_t wanted) {
  const std::int64_t room = std::max<std::int64_t>(std::min<std::int64_t>(capacity, 2 * wanted), wanted);
  if (static_cast<std::int64_t>(v.size()) < room) v.resize(static_cast<std::size_t>(room));
}

std::string OutOfRange(const char* what, int value, int high) {
  if (value >= 0 && value <= high) return "";
  return FormatText("%s is %d. It must be from 0 to %d.", what, value, high);
}

}  // namespace

void ReserveLayers(ModelRecord& m, int layers) {
  RaiseCapacity(m.capLayers, layers);
  for (auto column : kLayerColumns) AtLeast(m.*column, m.capLayers, layers);
}

void ReserveReceivers(ModelRecord& m, int receivers) {
  RaiseCapacity(m.capRec, receivers);
  AtLeast(m.recLoc, m.capRec, receivers);
}

void ReservePairs(ModelRecord& m, int pairs) {
  RaiseCapacity(m.capPairs, pairs);
  for (auto column : {&ModelRecord::pairRec1, &ModelRecord::pairRec2}) {
    const int offset = column == &ModelRecord::pairRec1 ? 1 : 2;
    std::vector<int>& numbers = m.*column;
    const std::size_t former = numbers.size();
    AtLeast(numbers, m.capPairs, pairs);
    for (std::size_t i = former; i < numbers.size(); ++i) numbers[i] = static_cast<int>(i) + offset;
  }
  AtLeast(m.pairMin, m.capPairs, pairs);
  AtLeast(m.pairMax, m.capPairs, pairs);
}

void ReservePoints(ModelRecord& m, int points) {
  RaiseCapacity(m.capPoints, points);
  for (auto column : kGlobalColumns) AtLeast(m.*column, m.capPoints, points);
  AtLeast(m.freq, m.capPoints, points);
}

void ReserveCurves(ModelRecord& m, int points, int curves) {
  const std::int64_t cells = std::int64_t{std::max(points, 0)} * std::max(curves, 0);
  RaiseCapacity(m.capCurve, cells);
  AtLeast(m.vel, m.capCurve, cells);
  AtLeast(m.wlen, m.capCurve, cells);
}

std::string CheckArrayCounts(int points, int curves, int receivers) {
  std::string text = OutOfRange("The number of points of the array curves", points, kMaxRunPoints);
  if (text.empty()) text = OutOfRange("The number of array curves", curves, kMaxRunCurves);
  if (text.empty()) text = OutOfRange("The number of receivers", receivers, kMaxRunCurves);
  return text;
}

int ToInt(double value) {
  if (!(value > -2147483648.0)) return value <= -2147483648.0 ? std::numeric_limits<int>::min() : 0;
  if (value >= 2147483647.0) return std::numeric_limits<int>::max();
  return static_cast<int>(value);
}

}  // namespace sondera
