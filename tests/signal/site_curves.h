// site_curves.h - dispersion curves of the two field sites (docs/published-records.md) as their surveyors
// published them.
#pragma once

#include <cstddef>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "support/field_data.h"

namespace sondera::testing {

struct SitePoint {
  double freq, vel;  // Hz, m/s
};
using SiteCurve = std::vector<SitePoint>;

/// Frequency and velocity of a table of the field data; empty where that is not there.
inline SiteCurve ReadSiteCurve(const std::string& name) {
  SiteCurve curve;
  std::ifstream in(test::FieldFile(name));
  for (std::string line; std::getline(in, line);) {
    std::istringstream row(line);
    SitePoint point{};
    if (row >> point.freq >> point.vel) curve.push_back(point);
  }
  return curve;
}

/// The curve of WGHS is eleven points of it, as expectations; that of Oysand is all of it, and needs the
/// field data.
inline const SiteCurve kWghsCurve = {{5.1, 251.8},  {7.9, 229.0},  {10.3, 209.0}, {14.4, 205.0},
                                     {17.0, 202.7}, {19.9, 199.0}, {23.4, 195.6}, {27.1, 190.0},
                                     {31.9, 187.0}, {37.5, 185.0}, {51.0, 176.0}};
inline const SiteCurve kOysandCurve = ReadSiteCurve("dispersion/oysand_curve.txt");

/// Site velocity at a frequency, straight between the points; 0 outside.
inline double SiteVelocity(const SiteCurve& curve, double freq) {
  for (std::size_t i = 1; i < curve.size(); ++i) {
    const SitePoint &a = curve[i - 1], &b = curve[i];
    if (a.freq <= freq && freq <= b.freq)
      return a.vel + (freq - a.freq) / (b.freq - a.freq) * (b.vel - a.vel);
  }
  return 0.0;
}

}  // namespace sondera::testing
