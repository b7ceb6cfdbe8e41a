// rep_curve_files.h - the representative curves as text: *.gcd (global), *.icd (array), *.red (both).
//
// Written for the forward model and the inversion, which read them back, and for other programs. Numbers have
// the form %12.7lf, rows end in a blank before the line feed. Numbers are written with a decimal point
// whatever the locale, and a file is written whole or not at all. No state.
#pragma once

#include "runtime/atomic_writer.h"
#include "runtime/controls.h"

namespace sondera {

/// Each GDisp: a heading with the texts of its key (key 0: the label as project, no measurement), the number
/// of points, and the rows velocity, frequency, wavelength, deviation of velocity, 1, 3, in the stored order,
/// which is that of the wavelengths.
void SaveGCD(TextWriter& file);

/// The array curves of all included pairs, in the order of the list of pairs: receiver lines, number of
/// points of the first curve, and four sections of rows in descending frequency. A row has frequency and
/// velocity of the first curve and then the quantity of the section of each further one, 0 where that is
/// shorter. Kept: the second column is the velocity of the first curve in all sections, so that the first
/// curve's own deviation and amplitude are nowhere written. Without any ADisp nothing is written.
void SaveICD(TextWriter& file);

/// Button SAVEGCD: asks for a file and writes the global curve. -1 when an existing file is not to be
/// overwritten, or (with a message) when it cannot be written. Kept: a cancelled dialog goes on with the name
/// that it left, usually none, which is such a failure.
int SaveGCDCallback(Panel panel, ControlId control, Event event, long data);
/// Button SAVEICD: the same for the array curves. -1 with a message, before a file is asked for, for a pair
/// with the source between its receivers; SAVERED the same.
int SaveICDCallback(Panel panel, ControlId control, Event event, long data);
/// Button SAVERED: both in one file, after "*GCD" and "*ICD". Nothing happens after Cancel. Kept: an existing
/// file is overwritten without a question (the dialog has its own).
int SaveREDCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
