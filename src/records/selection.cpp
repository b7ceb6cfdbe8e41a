// selection.cpp - see selection.h.
#include "records/selection.h"

namespace sondera {

std::string LengthUnitName(double lengthUnit) {
  if (lengthUnit == 1.0) return "meter";
  if (lengthUnit == 0.01) return "cm";
  if (lengthUnit == 0.3048) return "ft";
  return "in";
}

std::string LengthUnitText(double lengthUnit) {
  const std::string name = LengthUnitName(lengthUnit);
  return name == "meter" ? "m" : name;
}

}  // namespace sondera
