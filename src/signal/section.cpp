// section.cpp - see section.h.
#include "signal/section.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

#include "numeric/sort.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr double kShareOfLine = 0.15;  // largest offset of the stack
constexpr int kFewCurves = 10;         // below this, the share above
constexpr double kSpacings = 1.5;      // from there on, largest offset in mean spacings
constexpr int kDefaultNx = 20, kDefaultNy = 10;

/// Number of points: arrays of a damaged file may differ in length.
std::size_t PointCount(const SectionStation& s) {
  return std::min(s.wlen.size(), s.vel.size());
}

bool HasPlace(const SectionStation& s) {
  return s.valid && PointCount(s) > 0 && std::isfinite(s.location);
}

/// Calls work(wavelength, velocity) for each point that counts.
template <class Work>
void ForPoints(const SectionStation& s, Work work) {
  for (std::size_t i = 0; i < PointCount(s); ++i)
    if (PointCounts(s.wlen[i], s.vel[i])) work(s.wlen[i], s.vel[i]);
}

void Widen(double v, double& min, double& max) {
  min = std::min(min, v);
  max = std::max(max, v);
}

std::string CsvText(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (char c : text) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + '"';
}

int Blend(int a, int b, double share) {
  int color = 0;
  for (int shift : {16, 8, 0}) {
    const int from = a >> shift & 0xFF, to = b >> shift & 0xFF;
    color |= static_cast<int>(std::floor(from + share * (to - from) + 0.5)) << shift;
  }
  return color;
}

}  // namespace

bool PointCounts(double wlen, double vel) {
  return std::isfinite(wlen) && std::isfinite(vel) && wlen > 0.0;
}

SectionRanges FindSectionRanges(const std::vector<SectionStation>& stations, const SectionRanges& former) {
  SectionRanges r;
  r.wlMin = former.wlMin;
  r.wlMax = former.wlMax;
  for (const SectionStation& s : stations) {
    if (!HasPlace(s)) continue;
    bool any = false;
    ForPoints(s, [&](double wlen, double vel) {
      any = true;
      Widen(wlen, r.wlMin, r.wlMax);
      Widen(vel, r.vMin, r.vMax);
    });
    if (any) Widen(s.location, r.dMin, r.dMax);
  }
  return r;
}

SectionSamples CollectSamples(const std::vector<SectionStation>& stations, std::vector<int>* station) {
  struct Sample {
    double x, y, z;
    int station;
  };
  std::vector<Sample> all;
  for (std::size_t k = 0; k < stations.size(); ++k) {
    if (!HasPlace(stations[k])) continue;
    ForPoints(stations[k], [&](double wlen, double vel) {
      all.push_back({stations[k].location, wlen, vel, static_cast<int>(k)});
    });
  }
  std::stable_sort(all.begin(), all.end(), [](const Sample& a, const Sample& b) {
    return std::tuple(a.x, a.station, a.y) < std::tuple(b.x, b.station, b.y);
  });
  SectionSamples samples;
  if (station) station->clear();
  for (const Sample& s : all) {
    samples.x.push_back(s.x);
    samples.y.push_back(s.y);
    samples.z.push_back(s.z);
    if (station) station->push_back(s.station);
  }
  return samples;
}

std::string SectionDataFault(const std::vector<SectionStation>& stations) {
  int noPlace = 0, points = 0, curves = 0;
  const SectionStation* first = nullptr;
  for (const SectionStation& s : stations) {
    if (!s.valid || PointCount(s) == 0) continue;
    int bad = 0;
    if (!std::isfinite(s.location)) {
      ++noPlace;
    } else {
      bad = static_cast<int>(PointCount(s));
      ForPoints(s, [&](double, double) { --bad; });
      points += bad;
      curves += bad > 0;
    }
    if (!first && (bad > 0 || !std::isfinite(s.location))) first = &s;
  }
  if (!first) return "";
  std::string text = "Left out of the section:";
  if (noPlace > 0) text += FormatText(" %d curves without a location", noPlace);
  if (points > 0)
    text += FormatText("%s %d points of %d curves without a wavelength or velocity", noPlace > 0 ? "," : "",
                       points, curves);
  return text + FormatText(" (the first is %s).", first->label.c_str());
}

std::string SettleGridSize(int& tmgNx, int& tmgNy) {
  const int nx = tmgNx, ny = tmgNy;
  const auto settle = [](int& n, int standard) {
    const bool bad = n < 0 || n > kMostIntervals;
    if (bad || n == 0) n = standard;
    return bad;
  };
  const bool badX = settle(tmgNx, kDefaultNx), badY = settle(tmgNy, kDefaultNy);
  if (!badX && !badY) return "";
  const auto [bad, name] = badX ? std::pair(nx, "NX") : std::pair(ny, "NY");
  return FormatText("%s is %d. A section has 1 to %d intervals each way; the defaults are taken.", name, bad,
                    kMostIntervals);
}

std::string SameSampleText(const SectionGrid& grid, const std::vector<SectionStation>& stations,
                           const SectionSamples& samples, const std::vector<int>& station) {
  constexpr std::size_t kMostNamed = 3;
  std::string text;
  std::vector<std::array<int, 2>> named;
  for (const std::array<int, 2>& pair : grid.sameSamples) {
    const auto [i, j] = std::pair(static_cast<std::size_t>(pair[0]), static_cast<std::size_t>(pair[1]));
    std::array<int, 2> owners = {station[i], station[j]};
    if (owners[0] > owners[1]) std::swap(owners[0], owners[1]);
    if (std::find(named.begin(), named.end(), owners) != named.end()) continue;
    named.push_back(owners);
    if (named.size() > kMostNamed) continue;
    const auto label = [&](int k) {
      return stations[static_cast<std::size_t>(owners[static_cast<std::size_t>(k)])].label.c_str();
    };
    if (!text.empty()) text += ' ';
    text += owners[0] == owners[1] ? FormatText("Curve %s has two points", label(0))
                                   : FormatText("Curves %s and %s both have a point", label(0), label(1));
    text += FormatText(" at distance %g, wavelength %g; the nodes around have no value.", samples.x[i],
                       samples.y[i]);
  }
  if (named.size() > kMostNamed)
    text += FormatText(" So have %d more pairs of curves.", static_cast<int>(named.size() - kMostNamed));
  return text;
}

std::string EmptyNodeText(const SectionGrid& grid) {
  if (grid.nEmpty == 0) return "";
  return FormatText("%d of %d nodes have no value.", grid.nEmpty, static_cast<int>(grid.value.size()));
}

StackedSection StackCurves(const std::vector<SectionStation>& stations) {
  StackedSection stack;
  const SectionRanges r = FindSectionRanges(stations, {});
  int count = 0;
  double dMin = HUGE_VAL, dMax = -HUGE_VAL;
  for (const SectionStation& s : stations) {
    bool any = false;
    if (HasPlace(s)) ForPoints(s, [&](double, double) { any = true; });
    if (!any) continue;
    ++count;
    Widen(s.location, dMin, dMax);
  }
  if (count == 0) return stack;
  stack.dMin = dMin;
  stack.dMax = dMax;
  stack.vMin = r.vMin;
  stack.vMax = r.vMax;
  const double line = dMax - dMin;
  const double s = count < kFewCurves ? line * kShareOfLine : line / count * kSpacings;
  stack.factor = r.vMax > r.vMin ? s / (r.vMax - r.vMin) : 0.0;

  for (std::size_t k = 0; k < stations.size(); ++k) {
    if (!HasPlace(stations[k])) continue;
    StackedCurve curve;
    curve.station = static_cast<int>(k);
    const double location = stations[k].location;
    ForPoints(stations[k], [&](double wlen, double vel) {
      if (vel < 0.0) return;
      curve.x.push_back(location + stack.factor * (vel - stack.vMin));
      curve.y.push_back(wlen);
    });
    if (curve.x.empty()) continue;
    sort3(static_cast<int>(curve.y.size()), curve.y.data(), curve.x.data(), nullptr, nullptr, 0);
    curve.baseX = {curve.x.front(), location, location, curve.x.back()};
    curve.baseY = {curve.y.front(), curve.y.front(), curve.y.back(), curve.y.back()};
    stack.curves.push_back(std::move(curve));
  }
  return stack;
}

std::array<SectionColor, 4> MakeTMGColorMap(double low, double high, const SectionColors& colors) {
  std::array<SectionColor, 4> map;
  const bool span = high > low && std::isfinite(low) && std::isfinite(high);
  for (std::size_t i = 0; i < map.size(); ++i) {
    if (span)
      map[i] = {low + static_cast<double>(i) * (high - low) / 3.0, colors[i]};
    else
      map[i] = {low, colors[0]};
  }
  if (span) map[3].level = high;
  return map;
}

int ColorOfVelocity(const std::array<SectionColor, 4>& map, double velocity) {
  if (std::isnan(velocity)) return -1;
  if (!(map[3].level > map[0].level) || velocity <= map[0].level) return map[0].color;
  if (velocity > map[3].level) return kAboveSectionColor;
  std::size_t i = 1;
  while (i < 3 && velocity > map[i].level) ++i;
  return Blend(map[i - 1].color, map[i].color,
               (velocity - map[i - 1].level) / (map[i].level - map[i - 1].level));
}

std::string ColorLevelText(double level) {
  return FormatText("%.1f", level);
}

std::string GridCsv(const SectionGrid& grid) {
  std::string text = "distance,wavelength,velocity\n";
  for (std::size_t j = 0; j < grid.gridY.size(); ++j) {
    for (std::size_t i = 0; i < grid.gridX.size(); ++i) {
      const double v = grid.value[j * grid.gridX.size() + i];
      text += FormatText("%.10g,%.10g,", grid.gridX[i], grid.gridY[j]);
      if (!std::isnan(v)) text += FormatText("%.10g", v);
      text += '\n';
    }
  }
  return text;
}

std::string PointsCsv(const std::vector<SectionStation>& stations) {
  std::string text = "station,distance,wavelength,velocity\n";
  for (const SectionStation& s : stations) {
    if (!HasPlace(s)) continue;
    ForPoints(s, [&](double wlen, double vel) {
      text += CsvText(s.label) + FormatText(",%.10g,%.10g,%.10g\n", s.location, wlen, vel);
    });
  }
  return text;
}

}  // namespace sondera
