// known_ground.h - data of a site from elsewhere (a borehole, a computed site), for comparison with the
// results: a curve and layers, read from small texts. Owned state: none.
#pragma once

#include <string>
#include <vector>

namespace sondera {

struct GroundPoint {
  double frequency = 0.0, wavelength = 0.0, velocity = 0.0;
};
struct KnownLayer {
  double top = 0.0, thickness = 0.0, vs = 0.0;
};
struct KnownGround {
  std::vector<GroundPoint> curve;  ///< empty: not known
  std::vector<KnownLayer> layers;  ///< the last one has no lower boundary; empty: not known
};

/// A curve: lines of frequency, velocity, any third number, wavelength (the form of .gcd). Layers: lines of
/// the top's depth, thickness, Vs. Lines that begin with "#" are skipped. Empty names mean no file. Empty, or
/// the reason.
std::string ReadKnownGround(const std::string& curveFile, const std::string& layerFile, KnownGround& ground);

/// Median velocity of the points within 12 % of a wavelength, 0 without one.
double VelocityNear(const std::vector<GroundPoint>& curve, double wavelength);
/// Median of the ratio of a curve to a known one, over the points that the latter covers; 0 without one.
double MedianRatio(const std::vector<GroundPoint>& curve, const std::vector<GroundPoint>& known);
/// Mean Vs of known layers between two depths, by the travel time.
double MeanVs(const std::vector<KnownLayer>& layers, double top, double bottom);

}  // namespace sondera
