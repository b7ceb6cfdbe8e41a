// unit_labels.cpp - see unit_labels.h.
#include "report/unit_labels.h"

#include <cmath>

#include "records/measdb.h"
#include "records/session.h"

namespace sondera {
namespace {

constexpr double kSameUnit = 1e-9;

constexpr UnitLabels kMeters = {"Wavelength, m", "Phase Velocity, m/sec", "S-Wave Vel., m/sec",
                                "P-Wave Vel., m/sec", "Depth, m"};
constexpr UnitLabels kCentimeters = {"Wavelength, cm", "Phase Velocity, cm/sec", "S-Wave Vel., cm/sec",
                                     "P-Wave Vel., cm/sec", "Depth, cm"};
constexpr UnitLabels kFeet = {"Wavelength, ft", "Phase Velocity, ft/sec", "S-Wave Vel., ft/sec",
                              "P-Wave Vel., ft/sec", "Depth, ft"};
// Kept: the S-wave label has no full stop after "Vel".
constexpr UnitLabels kInches = {"Wavelength, in", "Phase Velocity, in/sec", "S-Wave Vel, in/sec",
                                "P-Wave Vel., in/sec", "Depth, in"};

}  // namespace

const UnitLabels& LabelsOfUnit(double unitFactor) {
  const auto is = [unitFactor](double unit) { return std::fabs(unitFactor - unit) <= kSameUnit; };
  if (is(1.0)) return kMeters;
  if (is(0.01)) return kCentimeters;
  return is(0.3048) ? kFeet : kInches;
}

double ProjectUnit() {
  const MeasSetup* setup = MeasDB.measSetupList.at(1);
  return setup ? setup->lengthUnit : session.lengthUnit;
}

}  // namespace sondera
