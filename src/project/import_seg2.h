// import_seg2.h - a SEG-2 file as a shot: converts keys to the numbers of a plan, with a remark on missing
// information.
//
// Volts are count * DESCALING_FACTOR / STACK / 1000: recorders sum the number of blows given by STACK.
// Without a factor the counts stay. A channel with another TRACE_TYPE than SEISMIC_DATA, a dead or a clipped
// one is imported as unused.
#pragma once

#include <string>
#include <string_view>

#include "project/shot.h"

namespace sondera {

/// The shot of a file that is in memory. Empty, or why it cannot be read (without the name of the file).
/// @param[in] path  for the findings, which begin with it
std::string ShotOfSeg2(const std::string& path, std::string_view bytes, Shot& shot);

/// The same from a file; a ReadShot.
std::string ReadSeg2Shot(const std::string& path, Shot& shot);

/// Metres per unit of UNITS: METERS, FEET, INCHES, CENTIMETERS; 0 for another text.
double LengthUnitOf(std::string_view units);

}  // namespace sondera
