// known_ground.cpp - see known_ground.h.
#include "app/known_ground.h"

#include <algorithm>
#include <cmath>

#include "app/script/values.h"
#include "runtime/files.h"

namespace sondera {
namespace {

constexpr double kNear = 0.12;  // share of a wavelength
constexpr std::size_t kMostRows = 100000;

/// Rows of numbers with at least so many columns; the reason for a line that has none.
std::string ReadRows(const std::string& name, std::size_t columns, std::vector<std::vector<double>>& rows) {
  TextReader file;
  std::string reason, line;
  if (!file.Open(JoinUnlessAbsolute(CurrentDirectory(), name), &reason)) return reason;
  for (int number = 1; file.ReadPhysicalLine(line); ++number) {
    if (line.starts_with('#')) continue;
    std::vector<double> row;
    Tokenizer tokens(line, " ,\t");
    while (const auto token = tokens.Next()) {
      const auto value = script::NumberOf(*token);
      if (!value) break;
      row.push_back(*value);
    }
    if (row.empty() && line.find_first_not_of(" \t") == std::string::npos) continue;
    if (row.size() < columns || rows.size() == kMostRows)
      return FormatText("%s, line %d: %zu numbers are wanted", name.c_str(), number, columns);
    rows.push_back(std::move(row));
  }
  return rows.empty() ? name + " holds no line of numbers" : "";
}

double Median(std::vector<double> values) {
  if (values.empty()) return 0.0;
  std::sort(values.begin(), values.end());
  const std::size_t half = values.size() / 2;
  return values.size() % 2 ? values[half] : 0.5 * (values[half - 1] + values[half]);
}

/// Velocity of a known curve at a wavelength, linear between its points; 0 outside it.
double VelocityAt(const std::vector<GroundPoint>& curve, double wavelength) {
  for (std::size_t i = 1; i < curve.size(); ++i) {
    const GroundPoint &a = curve[i - 1], &b = curve[i];
    if ((a.wavelength - wavelength) * (b.wavelength - wavelength) > 0.0 || a.wavelength == b.wavelength)
      continue;
    const double t = (wavelength - a.wavelength) / (b.wavelength - a.wavelength);
    return a.velocity + t * (b.velocity - a.velocity);
  }
  return 0.0;
}

}  // namespace

std::string ReadKnownGround(const std::string& curveFile, const std::string& layerFile, KnownGround& ground) {
  std::vector<std::vector<double>> rows;
  if (!curveFile.empty()) {
    if (std::string reason = ReadRows(curveFile, 4, rows); !reason.empty()) return reason;
    for (const auto& row : rows) ground.curve.push_back({row[0], row[3], row[1]});
  }
  rows.clear();
  if (!layerFile.empty()) {
    if (std::string reason = ReadRows(layerFile, 3, rows); !reason.empty()) return reason;
    for (const auto& row : rows) ground.layers.push_back({row[0], row[1], row[2]});
  }
  return "";
}

double VelocityNear(const std::vector<GroundPoint>& curve, double wavelength) {
  std::vector<double> near;
  for (const GroundPoint& p : curve)
    if (std::fabs(p.wavelength / wavelength - 1.0) <= kNear) near.push_back(p.velocity);
  return Median(near);
}

double MedianRatio(const std::vector<GroundPoint>& curve, const std::vector<GroundPoint>& known) {
  std::vector<double> ratios;
  for (const GroundPoint& p : curve)
    if (const double v = VelocityAt(known, p.wavelength); v > 0.0) ratios.push_back(p.velocity / v);
  return Median(ratios);
}

double MeanVs(const std::vector<KnownLayer>& layers, double top, double bottom) {
  double time = 0.0;
  for (std::size_t i = 0; i < layers.size(); ++i) {
    const double end = i + 1 < layers.size() ? layers[i].top + layers[i].thickness : bottom;
    const double part = std::min(end, bottom) - std::max(layers[i].top, top);
    if (part > 0.0 && layers[i].vs > 0.0) time += part / layers[i].vs;
  }
  return time > 0.0 ? (bottom - top) / time : 0.0;
}

}  // namespace sondera
