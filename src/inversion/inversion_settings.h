// inversion_settings.h - settings of an inversion from the panels, beside the records, named like their
// controls.
//
// The options are initially off and belong to the panel of the inversion; a project file does not contain
// them.
#pragma once

#include <string>

#include "run/model_numbers.h"

namespace sondera {

/// Unit of length of the project.
struct LengthUnit {
  double LENGTHUNIT = 1.0;  ///< metres per unit of length
  int index = 0;            ///< its place in the ring: 0 m, 1 cm, 2 ft, 3 in
};

struct InversionSettings {
  std::string PROJID;          ///< first part of the names of the result files
  ConstrainedLayers fixed;     ///< layers without a free Vs or H
  bool UPDATERHONU = false;    ///< density and Poisson's ratio follow Vs, see rho_nu_rule.h
  LengthUnit unit;             ///< for that rule
  bool STEPCONTROL = false;    ///< see step_control.h
  bool DATADEVIATION = false;  ///< see data_deviation.h
  bool HUBERWEIGHTS = false;   ///< see huber_weights.h
  bool SEVERALSTARTS = false;  ///< see several_starts.h
};

}  // namespace sondera
