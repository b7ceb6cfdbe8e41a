// curve_report.h - what the example programs print of a dispersion curve.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "records/measdb.h"

namespace sondera::example {

struct CurvePoint {
  double frequency, wavelength, velocity;
};

/// Points of a pair's curve; of a curve in a file (frequency, velocity, half width, wavelength, ...).
inline std::vector<CurvePoint> PointsOf(const PMeasInfo& pair) {
  std::vector<CurvePoint> points;
  for (std::size_t i = 0; i < static_cast<std::size_t>(pair.nDispPoints); ++i)
    points.push_back({pair.dispFreq[i], pair.dispWlen[i], pair.dispVel[i]});
  return points;
}
inline std::vector<CurvePoint> ReadCurve(const std::string& path) {
  std::vector<CurvePoint> points;
  std::ifstream in(path);
  for (std::string line; std::getline(in, line);) {
    std::istringstream row(line);
    double frequency, velocity, halfWidth, wavelength;
    if (row >> frequency >> velocity >> halfWidth >> wavelength)
      points.push_back({frequency, wavelength, velocity});
  }
  return points;
}

inline double Median(std::vector<double> values) {
  if (values.empty()) return 0.0;
  std::sort(values.begin(), values.end());
  const std::size_t half = values.size() / 2;
  return values.size() % 2 ? values[half] : 0.5 * (values[half - 1] + values[half]);
}

/// Median velocity of the points within 12 % of a wavelength, 0 without one.
inline double VelocityAt(const std::vector<CurvePoint>& curve, double wavelength) {
  std::vector<double> near;
  for (const CurvePoint& p : curve)
    if (std::fabs(p.wavelength / wavelength - 1.0) <= 0.12) near.push_back(p.velocity);
  return Median(near);
}

/// Velocity of a known curve at a wavelength, by linear interpolation; 0 outside it.
inline double Interpolate(const std::vector<CurvePoint>& curve, double wavelength) {
  for (std::size_t i = 1; i < curve.size(); ++i) {
    const CurvePoint &a = curve[i - 1], &b = curve[i];
    if ((a.wavelength - wavelength) * (b.wavelength - wavelength) > 0.0) continue;
    const double t = (wavelength - a.wavelength) / (b.wavelength - a.wavelength);
    return a.velocity + t * (b.velocity - a.velocity);
  }
  return 0.0;
}

/// Median of the ratio of a curve to a known one (frequency ascending) over the lines that the latter
/// covers.
inline double MedianRatio(const std::vector<CurvePoint>& curve, const std::vector<CurvePoint>& known) {
  std::vector<double> ratios;
  for (const CurvePoint& p : curve) {
    if (p.frequency < known.front().frequency || p.frequency > known.back().frequency) continue;
    const double v = Interpolate(known, p.wavelength);
    if (v > 0.0) ratios.push_back(p.velocity / v);
  }
  return Median(ratios);
}

inline constexpr double kTableWavelengths[] = {3, 4, 5, 6, 8, 10, 12, 15, 20, 25, 30, 40};

inline void PrintTableHead() {
  std::printf("%-22s %6s ", "velocity, m/s, at", "points");
  for (double w : kTableWavelengths) std::printf(" %4.0f m", w);
  std::printf("  ratio\n");
}

/// One row: velocity at the wavelengths of the head, then the median ratio to a known curve when there is
/// one.
inline void PrintTableRow(const std::string& label, const std::vector<CurvePoint>& curve,
                          const std::vector<CurvePoint>& known) {
  std::printf("%-22s %6zu ", label.c_str(), curve.size());
  for (double w : kTableWavelengths) {
    const double v = VelocityAt(curve, w);
    if (v > 0.0)
      std::printf(" %6.1f", v);
    else
      std::printf("      -");
  }
  if (!known.empty() && &known != &curve) std::printf("  %5.3f", MedianRatio(curve, known));
  std::printf("\n");
}

/// "measurement[reference:display]", channels counted from 1.
inline std::string PairLabel(const PMeasInfo& pair) {
  std::string projID, measID;
  GetIDfromKey(pair.key, projID, measID);
  return measID + "[" + std::to_string(pair.refChan + 1) + ":" + std::to_string(pair.dspChan + 1) + "]";
}

}  // namespace sondera::example
