// table_forms.h - curves and layer tables in the text formats of other programs, for export and import.
//
//   swprepost   "#rayleigh 0,,", "#Frequency (Hz),Velocity (m/s),Velocity Standard Deviation (m/s)", three columns
//   dinver      tabs: Hz, slowness s/m, and a third column for the deviation. Geopsy 3: a factor on the slowness,
//               0.5 ((1 + c) + 1 / (1 - c)) with c = deviation / velocity; Geopsy 2.10: a slowness,
//               0.5 (1 / (v - s) - 1 / (v + s))
//   gpdc        "# Mode 0", then Hz and slowness
//   layers      number of layers, then "thickness Vp Vs density" in m, m/s, kg/m3; the last thickness is 0
//   disba       "thickness Vp Vs density" in km, km/s, g/cm3; the last thickness is 0
//
// A velocity of spectral analysis of surface waves is an apparent one of a receiver pair. Formats that name a
// mode get the global curve only. Everything here is in SI; writers and readers convert plain text, and give
// a reason when they refuse. Owned state: none.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "project/export_tables.h"

namespace sondera {

/// A curve by points, frequencies ascending. Hz, m/s; sd is NaN where it is not known.
struct CurvePoints {
  Column frequency, velocity, sd;
};

enum class DinverColumn { Geopsy3, Geopsy210 };

/// The global curve in m/s, points without a velocity left out. False where there is none.
bool GlobalCurveOf(const ProjectTables& tables, CurvePoints& curve);

std::string SwprepostText(const CurvePoints& curve);
/// Empty, or why not: a deviation as large as the velocity.
std::string DinverText(const CurvePoints& curve, DinverColumn column, std::string& text);
std::string GpdcText(const CurvePoints& curve);

/// Third column of a point, and back to c = deviation / velocity.
double Geopsy3Factor(double c);
double FromGeopsy3Factor(double factor);
double Geopsy210Slowness(double velocity, double sd);

enum class CurveForm { Named, Swprepost, Dinver, Gpdc };

/// Reason of ReadCurvePoints for a text whose columns have no names, so that a caller can ask for them.
inline constexpr std::string_view kColumnsNotNamed =
    "no columns of frequency and velocity are named; say what the columns are";

/// Reads a curve. Named: columns by their names (frequency, freq, f; velocity, phase velocity, c, v;
/// slowness; wavelength; sd, std), units in brackets after them; swprepost and gpdc are recognised by their
/// comments. columns: the names, separated by commas, for a text without names. Empty, or why not.
std::string ReadCurvePoints(std::string_view text, CurveForm form, const std::string& columns,
                            CurvePoints& curve);

/// A curve as text of the program's own format (.exd), for a measurement of that id. lengthUnit: metres per
/// unit.
std::string ExdText(const CurvePoints& curve, const std::string& id, double lengthUnit);

/// Layers in m, m/s, kg/m3; the thickness of the half-space is 0.
struct LayeredModel {
  Column thickness, vp, vs, density;
  std::size_t size() const { return thickness.size(); }
};

/// Layers of a profile. Empty, or why not: densities that are neither all in g/cm3 nor all in kg/m3.
std::string LayeredModelOf(const ProfileTable& profile, double lengthUnit, LayeredModel& model);

std::string LayersText(const LayeredModel& model);
std::string DisbaText(const LayeredModel& model);
/// Empty, or why not: other counts than stated, impossible numbers, more than one layer without thickness.
std::string ReadLayers(std::string_view text, LayeredModel& model);
std::string ReadDisba(std::string_view text, LayeredModel& model);

}  // namespace sondera
