// site_figures.h - figures of a shear-wave velocity profile for reports: the average velocity down to a depth
// (Vs30, VsZ), the depth to which the ground was seen, and the range from the band of the profile.
//
// The average is that of the travel time: VsZ = Z / sum(h / Vs) over the layers down to Z. Callers pass a
// plain profile and get figures in m and m/s, or a reason. Owned state: none.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace sondera {

inline constexpr double kVs30Depth = 30.0;     ///< m
inline constexpr double kHundredFeet = 30.48;  ///< m, the depth of the American average
/// Depth that the measurement sees, in wavelengths; the usual rule.
inline constexpr double kSeenShare = 0.5;
/// A layer with less resolution than this counts as not seen.
inline constexpr double kLeastResolution = 0.3;

/// One layer, lengths in the profile's unit. The last layer of a profile is the half-space.
struct FigureLayer {
  double thickness = 0.0;            ///< above 0; for the half-space without effect
  double vs = 0.0;                   ///< length/s, above 0
  std::optional<double> low, high;   ///< band of 2 standard deviations
  std::optional<double> resolution;  ///< 0 to 1
};

struct SiteProfile {
  std::vector<FigureLayer> layers;
  double lengthUnit = 1.0;         ///< metres per unit
  double longestWavelength = 0.0;  ///< of the curves that were used, in the unit; 0: none
  /// Posterior covariance of the velocities, (length/s)^2, row by row, layers x layers; empty: not known.
  std::vector<double> covariance;
};

enum class FigureStatus { Measured, Extended, NotAvailable };

/// One average. Lengths and velocities in m and m/s.
struct SiteFigure {
  std::string name;  ///< "vs30", or "vsz" for another depth
  double depth = 0.0;
  std::optional<double> value;
  std::optional<double> low, high;  ///< all layers at their low end, all at their high end
  /// 2 standard deviations by the covariance of the layers, where that is known.
  std::optional<double> spread;
  FigureStatus status = FigureStatus::NotAvailable;
  std::string reason;  ///< why there is no value, or a note on an extended one
};

struct SeenDepth {
  double depth = 0.0;         ///< m
  double byWavelength = 0.0;  ///< half the longest wavelength, m
  /// Bottom of the deepest resolved layer, m; no value where resolution is not known, infinity where the
  /// half-space is resolved.
  std::optional<double> byResolution;
};

struct SiteFigures {
  SeenDepth seen;
  /// Vs30 first; then the average over 100 ft, or, where the profile was not seen to 30 m, VsZ down to the
  /// depth seen.
  std::vector<SiteFigure> figures;
};

/// Why a profile allows no figures; empty if it does. No layers, a thickness or velocity that is not above 0,
/// an invalid unit, a covariance of another size.
std::string ProfileFault(const SiteProfile& profile);

/// Depth to which the ground was seen.
SeenDepth SeenDepthOf(const SiteProfile& profile);

/// Average velocity down to a depth. m/s; depth in m, above 0. A depth below the layers is in the half-space.
double AverageVelocity(const SiteProfile& profile, double depth);

/// Derivative of the average by the velocity of each layer, V^2 h / (Z v^2).
std::vector<double> AverageGradient(const SiteProfile& profile, double depth);

/// Figures of a profile. extend: where the profile was not seen to 30 m, it is continued with its lowest
/// velocity to 30 m; status Extended. Generally that gives too low a Vs30 (Boore 2004, BSSA 94, 591-597).
/// Empty, or the reason.
std::string FiguresOf(const SiteProfile& profile, bool extend, SiteFigures& figures);

/// The same profile with all velocities at one end of their band; no value where a layer has no band or its
/// end is not above 0.
std::optional<SiteProfile> AtLowEnd(const SiteProfile& profile);
std::optional<SiteProfile> AtHighEnd(const SiteProfile& profile);

/// "measured", "extended", "not-available"
std::string_view StatusName(FigureStatus status);

/// A velocity of a figure as every output gives it: to 1e-4 m/s. The digits of texts, tables and reports agree so.
double RoundedFigure(double value);
/// Its digits, without zeros at the end: "270.6767", "200".
std::string FigureDigits(double value);

/// Text that explains the range, for printing.
inline constexpr const char* kRangeLabel = "range that the band of the last step gives";

}  // namespace sondera
