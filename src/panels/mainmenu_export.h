// mainmenu_export.h - menu File, Export: writes a trace of the masking page as text for other programs.
//
// Callers: the menu, the command line's and the script's `export`. Owns no state.
#pragma once

#include <string>
#include <string_view>

#include "runtime/controls.h"

namespace sondera {

/// Writes the file or files of a display type (0 to 10) for the measurement on a trace (project/trace_export.h).
/// @param[in] refChan, dspChan  pair, channels from 0
/// @param[in] label  "A" or "B": the trace of the measurement
/// @param[in] name   name whose extension is replaced. Empty: a dialog asks for it, and before existing files
///                   are overwritten; given, they are overwritten
/// Returns 0; -1 after a cancel or one message.
int SaveTraceData(int refChan, int dspChan, int type, std::string_view label, const std::string& name);

/// SaveTraceData for the selection of trace A (B) of the masking page.
int SaveTraceA(const std::string& name);
int SaveTraceB(const std::string& name);

// Menu items, with the dialog.
int Save_TraceACallback(Panel panel, ControlId control, Event event, long data);
int Save_TraceBCallback(Panel panel, ControlId control, Event event, long data);
int SaveAs_TraceACallback(Panel panel, ControlId control, Event event, long data);
int SaveAs_TraceBCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
