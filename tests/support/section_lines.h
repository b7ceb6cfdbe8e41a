// section_lines.h - lines of stations for the tests of the section.
#pragma once

#include <cmath>
#include <string>

#include "signal/section.h"

namespace sondera::test {

/// Velocity of a smooth ground at a place of the section.
inline double SmoothVelocity(double x, double wlen) {
  return 150.0 + 1.5 * x + 60.0 * std::log(wlen) + 0.05 * x * std::sin(wlen / 5.0);
}

/// Stations evenly over a line, each with `points` wavelengths from 1 to 30.
template <class Velocity>
std::vector<SectionStation> MakeLine(int stations, int points, bool logSpaced, Velocity velocity,
                                     double length = 40.0) {
  std::vector<SectionStation> line;
  for (int k = 0; k < stations; ++k) {
    SectionStation s;
    s.label = "S" + std::to_string(k + 1);
    s.location = stations > 1 ? length * k / (stations - 1) : 0.0;
    for (int i = 0; i < points; ++i) {
      const double share = i / (points - 1.0);
      s.wlen.push_back(logSpaced ? std::pow(30.0, share) : 1.0 + 29.0 * share);
      s.vel.push_back(velocity(s.location, s.wlen.back()));
    }
    line.push_back(s);
  }
  return line;
}

/// The settings that the ranges of the line give.
inline GridSettings SettingsOf(const std::vector<SectionStation>& line, int nx = 20, int ny = 10) {
  const SectionRanges r = FindSectionRanges(line, {});
  return {{r.dMin, r.dMax, r.wlMin, r.wlMax}, nx, ny, false};
}

}  // namespace sondera::test
