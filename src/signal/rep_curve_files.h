// rep_curve_files.h - the representative curves as text: *.gcd (global), *.icd (array), *.red (both).
//
// Written for the forward model and the inversion, which read them back, and for other programs. Numbers have
// the form %12.7lf, rows end in a blank before the line feed. Numbers are written with a decimal point
// whatever the locale, and a file is written whole or not at all. panels/cdisppnl_files.h has the buttons. No state.
#pragma once

#include <string>

#include "runtime/atomic_writer.h"
#include "runtime/refusal.h"

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

/// Refused where the array curves have receivers that a file cannot name, which would be read back with wrong
/// distances: a pair with the source between its receivers.
Refusal CheckArrayCurves();

/// What a file of representative curves holds.
enum class RepCurveFile {
  Global,  ///< *.gcd: SaveGCD
  Array,   ///< *.icd: SaveICD
  Both,    ///< *.red: both, after "*GCD" and "*ICD"
};
/// Writes a file. Refused, with the name in the reason, when it cannot be written.
Refusal WriteRepCurveFile(const std::string& path, RepCurveFile content);

}  // namespace sondera
