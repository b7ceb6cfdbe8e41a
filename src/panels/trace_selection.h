// trace_selection.h - selection of the traces on the masking and the measurement page: reads the choice of
// measurement and receiver pair, and fills the lists from which a person (or a script) chooses.
//
// Callers: the other panels, start-up and the script. Owns no state besides the session's.
#pragma once

#include <string>

#include "records/selection.h"
#include "runtime/controls.h"

namespace sondera {

/// Contents of a trace of the masking page. Sets curProjID from PROJID of HMSETUP. Trace::Selected stores its
/// choice in TRACE_ONOFF. Empty when the channel rings have no item or nothing is selected in one of the
/// three.
TraceSelection LookupID(Trace trace = Trace::Selected);

/// The pair to work on. From the masking page (panel SASW): by LookupID, which also becomes the session's last
/// selected pair. From another panel: curProjID of the setup panel, curMeasID, and the channels last selected.
CurrentPair FindCurrentPair(Panel panel);

/// Refills the measurement lists of a page (DISPAID, DISPBID of SASW or MEASPANEL) and MEASIDLISTBOX with the
/// measurements of a project, value = position - 1. If a list had items before, its last one is selected: the
/// newest measurement.
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

/// Window title from the session's names.
void RefreshWindowTitle();

}  // namespace sondera
