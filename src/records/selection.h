// selection.h - what is selected: which measurement and receiver pair each trace shows, and the lists from which a
// person (or a script) selects. Reads and fills controls; owns no state besides the session's.
#pragma once

#include <string>

#include "records/measdb.h"
#include "runtime/controls.h"

namespace sondera {

/// Trace asked for: A, B, or the one that TRACE_ONOFF of the masking page names (0 A, 1 B, other A).
enum class Trace : int { A = 0, B = 1, Selected = 2 };

/// Measurement and pair of a trace, channels from 0. An empty measID: nothing is selected.
struct TraceSelection {
  std::string measID;
  int refChan = 0, dspChan = 0;
  bool empty() const { return measID.empty(); }
};

/// What is on a trace of the masking page. Takes curProjID from PROJID of HMSETUP. Trace::Selected stores the choice
/// it made in TRACE_ONOFF. Empty when the channel rings hold no item or nothing is selected in one of the three.
TraceSelection LookupID(Trace trace = Trace::Selected);

/// The pair that a routine works on, and its records. key is -1 when the measurement is unknown; pair is null when
/// it has none yet.
struct CurrentPair {
  int key = -1;
  int refChan = 0, dspChan = 0;
  MeasRecords records;
  PMeasInfo* pair = nullptr;
  bool complete() const {
    return key != -1 && records.hwPos > 0 && records.measPos > 0 && records.rawPos > 0;
  }
};
/// From the masking page (panel SASW): by LookupID, which also becomes the session's last selected pair. From another
/// panel: curProjID of the setup panel, curMeasID, and the channels last selected.
CurrentPair FindCurrentPair(Panel panel);

/// Refills the measurement lists of a page (DISPAID, DISPBID of SASW or MEASPANEL) and MEASIDLISTBOX with the
/// measurements of a project, value = position - 1. A list that had items before selects its last one: the selection
/// moves to the newest measurement.
void FillMeasIDListBox(Panel panel, const std::string& projID);

/// Refills the channel rings of one trace for a measurement (labels count from 1, values from 0): reference channel
/// from the setup, display channel 1, DISPAID or DISPBID on the measurement, trace settings from the display record.
void UpdateSASWwinASetup(const std::string& projID, const std::string& measID);
void UpdateSASWwinBSetup(const std::string& projID, const std::string& measID);
void UpdateMEASwinASetup(const std::string& projID, const std::string& measID);
void UpdateMEASwinBSetup(const std::string& projID, const std::string& measID);

/// Copies the settings of the trace that TRACE_ONOFF names from its display record to the controls of the page and
/// marks that record as active.
void TraceIDSetup(Panel panel);

/// "meter", "cm", "ft", otherwise "in", by metres per unit.
std::string LengthUnitName(double lengthUnit);

/// Window title from the session's names.
void RefreshWindowTitle();

}  // namespace sondera
