// rep_curve_files.h - the representative curves as text: *.gcd (global), *.icd (array), *.red (both).
//
// The forward model, the inversion and other programs read them. Numbers have the form %12.7lf with a decimal
// point in every locale; rows end with a blank before the line feed. A file is written completely or not at
// all. panels/cdisppnl_files.h has the buttons. No state.
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
/// velocity of the first curve and then the section's quantity of each later curve, 0 beyond the end of a
/// shorter one. Kept: the second column is the velocity of the first curve in all sections, so the first
/// curve's own deviation and amplitude are not written. Without any ADisp nothing is written.
void SaveICD(TextWriter& file);

/// Refused for a pair with the source between its receivers: the file cannot describe such receivers, and
/// reading it would give wrong distances.
Refusal CheckArrayCurves();

/// Contents of a file of representative curves.
enum class RepCurveFile {
  Global,  ///< *.gcd: SaveGCD
  Array,   ///< *.icd: SaveICD
  Both,    ///< *.red: both, after "*GCD" and "*ICD"
};
/// Writes a file. Refused, with the name in the reason, when it cannot be written.
Refusal WriteRepCurveFile(const std::string& path, RepCurveFile content);

}  // namespace sondera
