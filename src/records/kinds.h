// kinds.h - the kinds of things that records, controls and files number.
//
// The values are those of the project file and of the items of the rings: they never change. Records keep
// such a number as an int, since a damaged file may hold any number; code compares it with these names.
#pragma once

namespace sondera {

/// ModelRecord::analysis, ANALYSISTYPE: the solver of a forward run. Switches::iAnalysis is negative in a run
/// that is not an inversion.
enum AnalysisKind : int {
  kPlaneWaves = 2,       ///< plane Rayleigh waves ("2-D")
  kPointLoad = 3,        ///< point load, evenly cut layers ("3-D")
  kPointLoadGraded = 4,  ///< point load on a graded mesh ("Enhanced 3-D")
};
constexpr bool IsPlaneWaves(int analysis) {
  return analysis == kPlaneWaves || analysis == -kPlaneWaves;
}

/// ModelRecord::dispCurvType, Switches::iDispSource, GLOBAL_ARRAY: the curves that a run computes.
enum CurveKind : int {
  kGlobalCurve = 1,  ///< one curve for the whole line
  kArrayCurves = 2,  ///< one curve for each receiver pair
};

/// ModelRecord::DispCurvInfo: the source of the points of a run. Any other number means stored curves too.
enum PointsOfRun : int {
  kPointsOfRange = 0,  ///< generated from the range of the settings
  kPointsOfData = 1,   ///< those of stored curves
};

/// ModelRecord::xDomainType, Switches::xDomain, XDOMAIN_TYPE: the abscissa of the points of a global curve.
enum XDomain : int { kWavelengthDomain = 1, kFrequencyDomain = 2 };

/// ModelRecord::GlobalRecType, GLOBAL_REC_TYPE: the receivers of a global curve.
enum GlobalReceivers : int {
  kReceiversByWavelength = 3,  ///< at 2 and 4 wavelengths
  kFixedReceivers = 4,         ///< at GlobalRec1Loc and GlobalRec2Loc
};

/// InvRecord::MODELPARM: the parameters that an inversion varies.
enum ModelParameters : int { kVaryVs = 1, kVaryH = 2, kVaryBoth = 3 };
constexpr bool VariesVs(int modelParm) {
  return modelParm == kVaryVs || modelParm == kVaryBoth;
}
constexpr bool VariesH(int modelParm) {
  return modelParm == kVaryH || modelParm == kVaryBoth;
}

/// PMeasInfo::phaseOption: which of the three unwrapped phases of a pair is in use.
enum PhaseOption : int { kOriginalPhase = 0, kEnhancedPhase = 1, kBackbonePhase = 2 };

/// DisplayRecord::type, DISPATYPE and DISPBTYPE: the quantity that a trace shows.
enum class DisplayType : int {
  TimeTrace = 0,
  LinearPhase = 1,
  LinearAmplitude = 2,
  TransferPhase = 3,
  TransferAmplitude = 4,
  PowerSpectrum = 5,
  CrossPhase = 6,
  CrossAmplitude = 7,
  Coherence = 8,
  ImpulseResponse = 9,
  GaborSpectrum = 10,
};

/// A display whose abscissa is time, not frequency.
constexpr bool IsOverTime(DisplayType type) {
  return type == DisplayType::TimeTrace || type == DisplayType::ImpulseResponse;
}

/// A display of the arrays of a pair's record.
constexpr bool IsOfPair(DisplayType type) {
  return type == DisplayType::TransferPhase || type == DisplayType::TransferAmplitude ||
         type == DisplayType::ImpulseResponse;
}
constexpr bool IsOfPhase(DisplayType type) {
  return type == DisplayType::LinearPhase || type == DisplayType::TransferPhase ||
         type == DisplayType::CrossPhase;
}

/// Displays whose axes share their limits: 0 over time, 1 over frequency.
constexpr int FamilyOf(DisplayType type) {
  return IsOverTime(type) ? 0 : 1;
}
/// A display in volts, or in their square.
constexpr bool IsOfVolts(DisplayType type) {
  return type == DisplayType::TimeTrace || type == DisplayType::LinearAmplitude ||
         type == DisplayType::PowerSpectrum || type == DisplayType::CrossAmplitude;
}
/// A display whose ordinate may be logarithmic.
constexpr bool TakesLogOrdinate(DisplayType type) {
  return type == DisplayType::LinearAmplitude || type == DisplayType::TransferAmplitude ||
         type == DisplayType::PowerSpectrum || type == DisplayType::CrossAmplitude;
}

/// AxisRecord::xType, yType: the quantity on an axis of a graph of curves.
enum class AxisQuantity : int { PhaseVelocity = 0, Frequency = 1, Wavelength = 2 };

/// Session::siteCategory: the pseudo velocities of the impulse response filter.
enum class SiteCategory : int { Geotechnical = 0, Concrete = 1, Pavement = 2 };

}  // namespace sondera
