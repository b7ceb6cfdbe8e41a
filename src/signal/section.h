// section.h - a section of a line of stations: distance along the line against wavelength.
//
// Each station has a global dispersion curve and a place on the line. A section is drawn as an image
// (section_grid.h) or as a stack of curves; this file has the rest: which points count, the ranges of the
// data, the settings and their defaults, the offsets of the stack, the colours, and the tables for export.
// The panel of the section and scripts call it with plain values and show the sentences that it returns.
// Distances and wavelengths are in one unit of length, velocities in that unit per second. Owns no state.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "signal/section_grid.h"

namespace sondera {

/// A global curve of the line.
struct SectionStation {
  std::string label;
  double location = 0.0;          ///< wlenMax of the curve's record
  std::vector<double> wlen, vel;  ///< points of the curve, of one length
  bool valid = true;              ///< included in the section
};

/// Extremes of the included data. Without data the first values remain.
struct SectionRanges {
  double dMin = 100000.0, dMax = 0.0;    ///< distance
  double wlMin = 100000.0, wlMax = 0.0;  ///< wavelength
  double vMin = 100000.0, vMax = 0.0;    ///< velocity
};

/// Whether a point counts: wavelength and velocity are finite, the wavelength above 0. A velocity of 0 or
/// below counts.
bool PointCounts(double wlen, double vel);

/// Ranges of the included stations with points. Distance and velocity start anew; the wavelength range only
/// extends `former`. A station with a location that is not finite does not count.
SectionRanges FindSectionRanges(const std::vector<SectionStation>& stations, const SectionRanges& former);

/// The points of the included stations in order of distance; at one distance station by station, and each
/// curve in order of wavelength. station (if not null) gets the position in `stations` of each sample.
SectionSamples CollectSamples(const std::vector<SectionStation>& stations,
                              std::vector<int>* station = nullptr);

/// Message about stations that don't count, and stations of which only some points count. "" when all do;
/// else one sentence.
std::string SectionDataFault(const std::vector<SectionStation>& stations);

/// Replaces 0 by the defaults 20 and 10. A number below 0 or above kMostIntervals also becomes the default,
/// and a sentence is returned; otherwise "".
std::string SettleGridSize(int& tmgNx, int& tmgNy);

/// One sentence for each pair of stations with a point at one place, as DoKriging found them; "" without any.
std::string SameSampleText(const SectionGrid& grid, const std::vector<SectionStation>& stations,
                           const SectionSamples& samples, const std::vector<int>& station);

/// "94 of 231 nodes have no value." ; "" where all have one.
std::string EmptyNodeText(const SectionGrid& grid);

// --- Stack of curves ---

/// A curve of the stack, moved to its place on the line.
struct StackedCurve {
  int station = 0;              ///< position in the list of stations
  std::vector<double> x, y;     ///< distance shifted by velocity; wavelength, ascending
  std::array<double, 4> baseX;  ///< the grey line beside it: first point, down the station's location, last
  std::array<double, 4> baseY;
};

struct StackedSection {
  std::vector<StackedCurve> curves;
  double dMin = 0.0, dMax = 0.0;  ///< locations of the included stations
  double factor = 0.0;            ///< length for one unit of velocity above vMin
  double vMin = 0.0, vMax = 0.0;
};

/// Stack of the included stations. The slowest point of the line is at its station's location; the fastest is
/// shifted by 0.15 of the line, from 10 curves on by 1.5 of the line over their number. Equal velocities and
/// a line without length give straight lines. Points of velocity below 0 are left out, and so are curves with
/// no other points.
StackedSection StackCurves(const std::vector<SectionStation>& stations);

// --- Colours ---

/// Colour 0xRRGGBB from a level upward.
struct SectionColor {
  double level = 0.0;
  int color = 0;
};
/// tmgColorLo, tmgColorInt1, tmgColorInt2, tmgColorHi.
using SectionColors = std::array<int, 4>;
inline constexpr SectionColors kSectionColors = {0, 0xFF, 0xFF0000, 0xFFFF00};
inline constexpr int kAboveSectionColor = 0xFFFF00;  ///< above the highest level, for all colours

/// Levels low, low + d/3, low + 2d/3 and high. Without a span (high at or below low, or not finite) all
/// levels are `low` and all colours the first.
std::array<SectionColor, 4> MakeTMGColorMap(double low, double high, const SectionColors& colors);

/// Colour of a velocity: each channel interpolated between two levels, halves up; the first colour below the
/// lowest level, kAboveSectionColor above the highest. -1 for NaN: nothing is drawn.
int ColorOfVelocity(const std::array<SectionColor, 4>& map, double velocity);

/// The level with one decimal, as the panel shows the two in the middle.
std::string ColorLevelText(double level);

// --- Tables ---

/// "distance,wavelength,velocity" and a line for each node, wavelength by wavelength, ten digits. A node
/// without a value has an empty last field.
std::string GridCsv(const SectionGrid& grid);

/// "station,distance,wavelength,velocity" and a line for each point that counts, station by station, in the
/// order of the curve. Labels with a comma or a quote are quoted.
std::string PointsCsv(const std::vector<SectionStation>& stations);

}  // namespace sondera
