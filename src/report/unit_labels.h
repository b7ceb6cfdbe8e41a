// unit_labels.h - the labels of the axes with a unit of length.
#pragma once

namespace sondera {

struct UnitLabels {
  const char* wavelength;
  const char* phaseVelocity;
  const char* sWaveVelocity;
  const char* pWaveVelocity;
  const char* depth;
};

/// Labels for a unit of length, metres per unit: m (1), cm (0.01), ft (0.3048), otherwise in.
const UnitLabels& LabelsOfUnit(double unitFactor);

/// Unit of the project: that of the first measurement set-up, without one that of the session; metres per unit.
double ProjectUnit();

}  // namespace sondera
