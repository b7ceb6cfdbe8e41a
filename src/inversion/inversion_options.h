// inversion_options.h - what an inversion does beyond the plain iteration. All of it is off at first and
// belongs to the panel of the inversion; a project file does not hold it.
#pragma once

namespace sondera {

struct InversionOptions {
  bool stepControl = false;        ///< see step_control.h
  bool deviationFromData = false;  ///< see data_deviation.h
  bool huberWeights = false;       ///< see huber_weights.h
  bool severalStarts = false;      ///< see several_starts.h
};

/// As the panel has them.
InversionOptions ChosenOptions();

}  // namespace sondera
