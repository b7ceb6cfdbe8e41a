// inversion.h - the panel of the inversion and the start of a run from it: settings between panel and
// record, the choice of the starting model, the run, and the viewing of what it left.
//
// Callers: the callback table. Work on InvParam, SMPParam, FModelParam, TheoDispInfo and `run`. Owned state:
// how far the last start came. Sources: inversion_settings.cpp (panel), inversion_entries.cpp (stored profiles),
// inversion_run.cpp (start), results_page.cpp (results page). Buttons, rings and lists act on a press; menu items on
// any event. A refusal has one message and the result -1.
#pragma once

#include "inversion/inversion_settings.h"
#include "runtime/controls.h"

namespace sondera {

// --- Settings -------------------------------------------------------------------------------------------

/// Records to panel. With nothing stored yet (nLayers 0) entry 0 first becomes the model of FModelParam:
/// RMSERROR is 0 then and the profile graph empty. The depth at which a plot of entry 0 ends is the top of
/// the half-space plus its thickness, or plus the thickness of the layer above where the half-space is more
/// than twice as thick as that. Kept: FS_RefreshModelPar takes half of the layer above. The uncertainty
/// factors go to the pair of controls that CM_COV makes live.
/// @return 0; -1 after a message when FModelParam has more layers than a record takes
int SetInvParams();

/// Panel to records: the ratios to SMPParam, the rest to InvParam, the factors from the live pair.
/// @return 0; -1 after a message when the record cannot have that many entries: then their number stays
int GetInvParams();

/// What a run takes from this panel and others beside the records.
InversionSettings SettingsOfInversion();
/// LENGTHUNIT of the measurement setup.
LengthUnit UnitOfLength();

/// Opens the panel, from the button and from the menu: SetInvParams; empties STATUSMSG and PROCESSMSG.
int RunInvAnalCallback(Panel panel, ControlId control, Event event, long data);
int InvAnalysisParamCallback(Panel panel, ControlId control, Event event, long data);
/// Takes the settings over and closes the panel. Entries that are listed stay within the number wanted, which
/// is also the number that a project file holds.
int InvAnalCloseCallback(Panel panel, ControlId control, Event event, long data);
/// Brings the results page to the front, in the face of the inversion.
int OpenInvAnalWincallback(Panel panel, ControlId control, Event event, long data);

/// CD_COV: the choice goes to run.switches.cdMode; UF_VPH is live for 1, dimmed for the others.
int DataCovMatCallback(Panel panel, ControlId control, Event event, long data);
/// CM_COV: 0 makes UF_H and UF_VS live and dims UF_H_REL, UF_VS_REL and UF_VPH; another value does the
/// reverse, and brings CD_COV and run.switches.cdMode to -1: every datum has a deviation of 1.
int MParmCovMatCallback(Panel panel, ControlId control, Event event, long data);

// --- Stored profiles ------------------------------------------------------------------------------------

/// Layers of the profile chosen in INV_SMP to FModelParam, which 0 leaves as it is; then FModelParam to the
/// panel. Kept: changes on the panel that nobody has taken to the record are lost. @return 0; -1 after a
/// message when that profile is not stored
int UpdateMParm();

/// Settings of FModelParam and the layers of profile InvParam.iSelected to TheoDispInfo: below 0 a starting
/// profile, 0 FModelParam, above 0 an iteration. @return as above
int UpdateTheoDispInfoForInvAnal();

/// COPYFROMPRF: the profile of COPYPRF to FModelParam and the panel. With UPDATERHONU 1 density and Poisson's
/// ratio follow Vs by RuleForVs, in the stored profile too.
int CopyFromGivenPRFCallback(Panel panel, ControlId control, Event event, long data);

// --- Run ------------------------------------------------------------------------------------------------

/// Empties ITERNO, INV_SMP and COPYPRF, and puts "Given Model P.", value 0, into INV_SMP. Kept: the argument
/// is not looked at.
void ClearIterBox(int which);

/// One inversion with the settings of the records: TheoDispInfo with layers (InvParam.iSelected) and measured
/// points, curve display, lists, vectors, FS_RunIAnal. FModelParam keeps the given model.
/// @return 0; -1 after a message, or when halted
int RunInvAnal();

/// The run itself, on the records as they stand and the vectors of FS_AllocMemoryBlocks, see RunInversion: of all
/// buttons only Halt answers meanwhile. @return 0; -1 after a message, among them that of a halt
int FS_RunIAnal();

/// Whether the last start, of whatever kind, came as far as an entry: that of the starting model at least.
bool LastStartHasEntries();

/// Start from the panel, PERFORMINV. NITER must be above 0. Kept: the start
/// makes UF_VPH live with CM_COV 0 and dims it otherwise, the reverse of MParmCovMatCallback.
int PerformInvAnalCallback(Panel panel, ControlId control, Event event, long data);
/// Start from the menu. Kept: it does not look at CD_COV, UF_VPH and CM_COV; run.switches.cdMode and run.switches.ufVph are
/// those of the last start from the panel (0 and 0 before), and the factors are UF_H and UF_VS. The
/// lists are emptied before the choice of INV_SMP is used; it is the one that stood there.
int Run_InvAnalCallback(Panel panel, ControlId control, Event event, long data);

// --- Results page ---------------------------------------------------------------------------------------

/// HALT: asks; run.course.iHaltRequest becomes 1 on Yes, 0 on No. Yes ends the whole press that the run belongs to
/// (NoteHalt), No takes back a halt that no run has seen yet.
int HaltProcessCallback(Panel panel, ControlId control, Event event, long data);

/// ITERNO: curves and model of the chosen entry to TheoDispInfo and on display, its misfit to RMSERROR (0 for
/// an entry that is not stored), the side graph by PLOT_INV, the table to the result box. PLOT_INV does the
/// same but for the table.
int InvAnalIterNoCallback(Panel panel, ControlId control, Event event, long data);
int PlotInvResultCallback(Panel panel, ControlId control, Event event, long data);

/// RESULTBOX: shows the tables, beginning with that of the model. SEL_RESULT: the chosen table. CLOSE.
int ResultBoxCallback(Panel panel, ControlId control, Event event, long data);
int ResultModelParamCallback(Panel panel, ControlId control, Event event, long data);
int ResultBoxCloseCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
