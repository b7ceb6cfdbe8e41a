// exd_files.h - experimental dispersion curves as text (".exd").
//
// Layout: an optional line of the unit of length ("unit = 0": feet), then per curve
//   ID : <id>_[<reference channel>:<display channel>]      channels from 0
//   No. of Points in Dispersion Curve : <n>
//   markerType: 0
//   markerLine: 0
//   colorType: <colour>
//        Vel         Freq       waveL       TRFamp
//   n lines: velocity (length/s), frequency (Hz), wavelength, amplitude of the transfer function
//
// Callers: the menu. A curve that comes in gets a measurement of its own, of two channels and without data,
// so that the pair (0, 1) can carry it. Kept: the id of a curve ends at its first "_", and its channels are
// not used; so pairs of one measurement come in under one id, with a question for each but the first.
#pragma once

#include <string>

#include "runtime/controls.h"
#include "runtime/text_reader.h"

namespace sondera {

/// Loads the curves of a file; their ids are "<id>@<fname>". An id that is in the list is asked about:
/// overwrite, or a new id; with neither the curve stays out. A curve without points is passed over. A curve
/// that does not hold the points that it claims, or numbers that are none, is left out, the curves before and
/// behind it come in. Returns 0; -1 after one message ("Error in reading the file." when it cannot be
/// opened).
int LoadExdData(const std::string& path, const std::string& fname);
/// The same from an open text; what was wrong comes back as sentences, "" for nothing.
std::string ReadExdCurves(TextReader& text, const std::string& fname);

/// Writes the curve of every pair that is included, with the amplitude of the phase in use. -1 after one
/// message.
int ExportExdData(const std::string& path);

// Menu items.
int LoadExdFileMenuCallback(Panel panel, ControlId control, Event event, long data);
int Export_ExdDataCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
