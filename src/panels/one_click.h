// one_click.h - from representative curves to a profile in a few presses: the script commands calcVel,
// preInversion and inversion, and the buttons that do the same for a person.
//
// All of it writes settings and presses buttons, in a fixed order, and contains no analysis of its own.
#pragma once

#include <functional>
#include <vector>

#include "runtime/controls.h"

namespace sondera {

/// Presses a control. The caller finds out whether it was refused.
using Press = std::function<void(const Control& control, long data)>;

/// Largest wavelength over all points of the array curves of included pairs; -1e30 without one.
double LargestArrayWavelength();

/// Representative curves by the settings of their dialog, then the dispersion page, then a save.
void RunCalcVel(const Press& press);

/// Writes layers of these thicknesses, with the properties of a new layer, to the table of the model panel.
void WriteNewLayers(const std::vector<double>& thicknesses, const Press& press);

/// Layer table from thicknesses, array curves as data, starting profiles evaluated, the best copied to the
/// table, then a save.
void RunPreInversion(const std::vector<double>& thicknesses, const Press& press);

/// Inversion, save, result table, result file under the project's name without a dialog. An inversion that is
/// refused leaves a former result file, and without one a file that says "no iteration".
void RunInversionAndSave(const Press& press);

/// Button ONECLICK_RUN: starting profiles, then as RunInversionAndSave. PERFORMINVSAVE: without the first
/// step. A halt in one of the steps ends both: no further step starts, and nothing is saved.
int OneClickInversionCallback(Panel panel, ControlId control, Event event, long data);
int PerformInvInvSaveCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
