// export_tables.h - contents of a project as plain tables for other programs: measurements with spectra and
// masks, curves, profiles, figures. The writers (table_csv.h, table_json.h, table_forms.h) use only these.
//
// Lengths and velocities are in the unit of the tables, metres per unit in `lengthUnit`; those of
// measurements in another unit are converted to it. Channels count from 1. A missing value is NaN, and
// writers leave its cell empty. Owned state: none.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "inversion/site_classes.h"
#include "inversion/site_figures.h"
#include "records/inv_records.h"

namespace sondera {

struct Run;

using Column = std::vector<double>;

struct SpectrumTable {
  int reference = 1, channel = 2;
  Column frequency, powerReference, power, crossRe, crossIm, coherence, transferRe, transferIm;
  Column wrapped, unwrapped;  ///< degrees
  std::vector<bool> masked;
};

struct MaskRow {
  int reference = 1, channel = 2;
  double from = 0.0, to = 0.0;  ///< Hz
  int jumps = 0;
};

struct MeasurementTable {
  std::string id;
  std::string origin;  ///< "measured", "time", "transfer", "cross", "curve"
  double source = 0.0;
  Column receivers;
  int averages = 0;                    ///< 0: not known
  double lengthUnit = 1.0;             ///< of the measurement itself
  std::vector<SpectrumTable> spectra;  ///< of the pairs with a record
  std::vector<MaskRow> masks;
};

struct CurveTable {
  std::string kind;                ///< "pair", "global", "array", "computed"
  std::string measurement;         ///< empty for global and computed ones
  int reference = 0, channel = 0;  ///< 0: none
  std::string phase;               ///< "original", "enhanced", "backbone" of a pair, else empty
  bool isIncluded = true;
  bool hasPlaces = false;  ///< source and receivers are valid
  double source = 0.0, receivers[2] = {0.0, 0.0};
  Column frequency, velocity, wavelength, velocitySd, amplitude;
  std::vector<std::string> state;  ///< "ok", "none", "plane", "base"
};

struct ProfileLayer {
  double top = 0.0, thickness = 0.0;  ///< NaN for the half-space
  double vs = 0.0, low = 0.0, high = 0.0, sd = 0.0, resolution = 0.0;
  double vp = 0.0, poisson = 0.0, density = 0.0, damping = 0.0;  ///< density as entered
  bool isFixed = false;
};

struct ProfileTable {
  std::string kind;    ///< "given", "starting", "inverted"
  int iteration = -1;  ///< -1: none
  double rms = 0.0;    ///< NaN where there is none
  int analysis = 0;    ///< 2, 3, 4; 0: not known
  std::vector<ProfileLayer> layers;
  SiteFigures figures;  ///< of the last inverted profile
  std::vector<SiteClass> classes;
};

struct ProjectTables {
  std::string name, id;
  double lengthUnit = 1.0;
  std::vector<MeasurementTable> measurements;
  std::vector<CurveTable> curves;
  std::vector<ProfileTable> profiles;  ///< iterations in their order; the given one only where there are none
};

struct TableChoices {
  std::vector<int> iterations;   ///< stored entries, as the results page lists them
  std::vector<int> fixedLayers;  ///< from 1: kept by the inversion
  bool extend = false;           ///< Vs30 from a profile that was not seen to 30 m
  const Run* run = nullptr;      ///< the run in memory, for the spread of the figures; null: without spread
};

/// Tables of the open project.
ProjectTables CollectTables(const TableChoices& choices);

/// The profile of a stored iteration with its figures and classes; no layers where there is no such entry. Figures are
/// made of inverted profiles alone.
ProfileTable ProfileOfEntry(int entry, const TableChoices& choices);

/// Longest wavelength of the curves for the fit of a model, in the unit of the project; 0 for none.
double LongestWavelength();

/// A profile as the figures need it. longestWavelength in the unit of the tables.
SiteProfile SiteProfileOf(const ProfileTable& profile, double lengthUnit, double longestWavelength);

/// The profile for formats with one profile: the last inverted one, else the starting one, else the given
/// one; null without any.
const ProfileTable* FinalProfile(const ProjectTables& tables);

/// Shortest digits that restore the number; empty for NaN and infinities.
std::string ShortestText(double value);

/// "m", "cm", "ft", "in".
std::string UnitSymbol(double lengthUnit);

}  // namespace sondera
