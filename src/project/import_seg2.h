// import_seg2.h - a SEG-2 file as a shot: keys become the numbers that a plan needs, with a word on whatever
// the recorder left out.
//
// Volts are count * DESCALING_FACTOR / STACK / 1000: recorders sum the blows that STACK counts. Without a
// factor the counts stay as they are. A channel of another TRACE_TYPE than SEISMIC_DATA, a dead or a clipped
// one comes in set aside.
#pragma once

#include <string>
#include <string_view>

#include "project/shot.h"

namespace sondera {

/// The shot of a file that is in memory. Empty, or why not (without the name of the file).
/// @param[in] path  for the findings, which begin with it
std::string ShotOfSeg2(const std::string& path, std::string_view bytes, Shot& shot);

/// The same from a file; a ReadShot.
std::string ReadSeg2Shot(const std::string& path, Shot& shot);

/// Metres per unit of UNITS: METERS, FEET, INCHES, CENTIMETERS; 0 for another text.
double LengthUnitOf(std::string_view units);

}  // namespace sondera
