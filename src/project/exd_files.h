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
// Callers: panels/mainmenu_curves. Each imported curve gets its own measurement with two channels and no
// data, and the pair (0, 1) holds it. Kept: the id of a curve ends at its first "_", and its channels are not
// used; so pairs of one measurement have the same id, with a question for each but the first.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "records/measdb.h"
#include "runtime/refusal.h"
#include "runtime/text_reader.h"

namespace sondera {

/// Questions and reports of the reader. Empty functions: no, no id, no report.
struct ExdQuestions {
  std::string projID;                                     ///< project text of the measurements
  std::function<bool()> mayOverwrite;                     ///< the id is in the list already
  std::function<std::optional<std::string>()> newMeasID;  ///< another id for it
  std::function<void(const std::string& measID)> made;    ///< a measurement was made
  /// Makes the record of its pair (0, 1), which holds the curve; null where that is not possible.
  std::function<PMeasInfo*(const std::string& measID, const HWSetup& hw)> makePair;
};

struct ExdOutcome {
  std::string trouble;               ///< sentences about problems; "" for none
  std::optional<double> lengthUnit;  ///< metres per unit, from the file; the session has it
};

/// Reads the curves of an open text; their ids are "<id>@<fname>". For an id that is in the list it asks:
/// overwrite, or a new id; with neither, the curve is left out. A curve without points is skipped. A curve
/// with fewer points than stated, or with invalid numbers, is left out; the curves before and after it are
/// imported.
ExdOutcome ReadExdCurves(TextReader& text, const std::string& fname, const ExdQuestions& questions);

/// Writes the curve of every included pair, with the amplitude of the phase in use.
Refusal WriteExdCurves(const std::string& path);

}  // namespace sondera
