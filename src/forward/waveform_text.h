// waveform_text.h - computed records as text for files.
//
// Numbers in the C locale with ten digits. Callers write the texts to files.
#pragma once

#include <string>

#include "forward/waveform.h"

namespace sondera {

/// Unit of a motion, "m/s" for a velocity.
/// @param lengthUnit  "m" or "ft"
std::string MotionUnitText(WaveformMotion motion, const std::string& lengthUnit);

/// Time record of one receiver (from 0), as the import reads it (.tim): time and value, no head.
std::string TimText(const WaveformRecord& record, std::size_t receiver);

/// Head of the tables: lines that start with "#" and describe layers, force, motion and units.
/// @param lengthUnit  "m" or "ft"
std::string WaveformHead(const WaveformSetup& setup, const std::string& lengthUnit);

/// All traces in one table (.pls): the head, then time and a column for each receiver.
std::string PlsText(const WaveformSetup& setup, const WaveformRecord& record, const std::string& lengthUnit);

/// The spectra (.spc): the head, then frequency, the force, and the displacement of each receiver for a force
/// of 1, each with real and imaginary part. Lines 0..nPoints / 2 - 1.
std::string SpcText(const WaveformSetup& setup, const WaveformResult& result, const std::string& lengthUnit);

}  // namespace sondera
