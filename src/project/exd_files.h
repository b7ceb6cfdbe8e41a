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
// Callers: panels/mainmenu_curves. A curve that comes in gets a measurement of its own, of two channels and without
// data, so that the pair (0, 1) can carry it. Kept: the id of a curve ends at its first "_", and its channels are
// not used; so pairs of one measurement come in under one id, with a question for each but the first.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "records/measdb.h"
#include "runtime/refusal.h"
#include "runtime/text_reader.h"

namespace sondera {

/// What the reader asks, and whom it tells. Empty functions: no, no id, nobody.
struct ExdQuestions {
  std::string projID;                                     ///< project text of the measurements
  std::function<bool()> mayOverwrite;                     ///< the id is in the list already
  std::function<std::optional<std::string>()> newMeasID;  ///< another id for it
  std::function<void(const std::string& measID)> made;    ///< a measurement was made
  /// Makes the record of its pair (0, 1), which carries the curve; null where it cannot.
  std::function<PMeasInfo*(const std::string& measID, const HWSetup& hw)> makePair;
};

struct ExdOutcome {
  std::string trouble;               ///< sentences on what was wrong; "" for nothing
  std::optional<double> lengthUnit;  ///< metres per unit, as the file says; the session has it
};

/// Reads the curves of an open text; their ids are "<id>@<fname>". An id that is in the list is asked about:
/// overwrite, or a new id; with neither the curve stays out. A curve without points is skipped. A curve
/// that does not hold the points that it claims, or numbers that are none, is left out; the curves before and
/// after it come in.
ExdOutcome ReadExdCurves(TextReader& text, const std::string& fname, const ExdQuestions& questions);

/// Writes the curve of every included pair, with the amplitude of the phase in use.
Refusal WriteExdCurves(const std::string& path);

}  // namespace sondera
