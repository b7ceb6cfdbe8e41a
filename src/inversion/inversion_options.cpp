// inversion_options.cpp - see inversion_options.h.
#include "inversion/inversion_options.h"

#include "runtime/catalogue/inversion.h"

namespace sondera {

InversionOptions ChosenOptions() {
  const auto isOn = [](const ToggleControl& control) { return GetCtrlVal(control) == 1; };
  return {isOn(inversion::STEPCONTROL), isOn(inversion::DATADEVIATION), isOn(inversion::HUBERWEIGHTS),
          isOn(inversion::SEVERALSTARTS)};
}

}  // namespace sondera
