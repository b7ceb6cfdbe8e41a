// selection.h - which measurement and receiver pair a trace shows, as plain structures. panels/trace_selection.h fills
// them from the controls.
#pragma once

#include <string>

#include "records/measdb.h"

namespace sondera {

/// Requested trace: A, B, or the one that TRACE_ONOFF of the masking page names (0 A, 1 B, other A).
enum class Trace : int { A = 0, B = 1, Selected = 2 };

/// Measurement and pair of a trace, channels from 0. An empty measID: nothing is selected.
struct TraceSelection {
  std::string measID;
  int refChan = 0, dspChan = 0;
  bool empty() const { return measID.empty(); }
};

/// The pair that a routine works on, and its records. key is -1 when the measurement is unknown; pair is null
/// when the measurement has no such pair yet.
struct CurrentPair {
  int key = -1;
  int refChan = 0, dspChan = 0;
  MeasRecords records;
  PMeasInfo* pair = nullptr;
  bool complete() const {
    return key != -1 && records.hwPos > 0 && records.measPos > 0 && records.rawPos > 0;
  }
};

/// "meter", "cm", "ft", otherwise "in", by metres per unit.
std::string LengthUnitName(double lengthUnit);
/// The unit as an axis shows it: "m", "cm", "ft", otherwise "in".
std::string LengthUnitText(double lengthUnit);

}  // namespace sondera
