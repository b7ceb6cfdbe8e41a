// unit_labels.h - the units beside the number fields of a form.
#pragma once

#include <string>

#include "runtime/control.h"

namespace sondera {

/// Unit of a number as a form shows it: "Hz", "%"; for lengths and velocities in the unit of its own panel, where that
/// has one (the import), else in that of the project. Empty without a unit.
std::string UnitText(const Control& c);

/// Whether a change of this control changes the unit of lengths.
bool IsUnitOfLength(const Control& c);

}  // namespace sondera
