// inversion.h - the panel of the inversion and the start of a run from it: settings between panel and record,
// the choice of the starting model, the run, and the display of its results.
//
// Callers: the callback table. Work on InvParam, SMPParam, FModelParam, TheoDispInfo and `run`. Owned state:
// how far the last start came. Sources: inversion_settings.cpp (panel), inversion_entries.cpp (stored
// profiles),
// inversion_run.cpp (start), results_page.cpp (results page). Buttons, rings and lists act on a press; menu items on
// any event. A refusal has one message and the result -1.
#pragma once

#include "inversion/inversion_settings.h"
#include "runtime/controls.h"

namespace sondera {

// --- Settings -------------------------------------------------------------------------------------------

/// Records to panel. With nothing stored yet (nLayers 0) entry 0 first becomes the model of FModelParam: then
/// RMSERROR is 0 and the profile graph empty. A plot of entry 0 ends at the top of the half-space plus its
/// thickness, or plus the thickness of the layer above if the half-space is more than twice as thick as that.
/// Kept: FS_RefreshModelPar uses half of the layer above. The uncertainty factors are shown in the pair of
/// controls that CM_COV enables.
/// @return 0; -1 after a message when FModelParam has more layers than a record takes
int SetInvParams();

/// Panel to records: the ratios to SMPParam, the rest to InvParam, the factors from the enabled pair.
/// @return 0; -1 after a message when the record cannot have that many entries: then their number stays
int GetInvParams();

/// Settings of a run from this panel and others, beside the records.
InversionSettings SettingsOfInversion();
/// LENGTHUNIT of the measurement setup.
LengthUnit UnitOfLength();

/// Opens the panel, from the button and from the menu: SetInvParams; empties STATUSMSG and PROCESSMSG.
int RunInvAnalCallback(Panel panel, ControlId control, Event event, long data);
int InvAnalysisParamCallback(Panel panel, ControlId control, Event event, long data);
/// Stores the settings and closes the panel. Listed entries stay within the wanted number, which is also the
/// number in a project file.
int InvAnalCloseCallback(Panel panel, ControlId control, Event event, long data);
/// Brings the results page to the front, with the buttons of the inversion.
int OpenInvAnalWincallback(Panel panel, ControlId control, Event event, long data);

/// CD_COV: the choice goes to run.switches.cdMode; UF_VPH is enabled for 1, dimmed for the others.
int DataCovMatCallback(Panel panel, ControlId control, Event event, long data);
/// CM_COV: 0 enables UF_H and UF_VS and dims UF_H_REL, UF_VS_REL and UF_VPH; another value does the reverse,
/// and sets CD_COV and run.switches.cdMode to -1: every datum has a deviation of 1.
int MParmCovMatCallback(Panel panel, ControlId control, Event event, long data);

// --- Stored profiles ------------------------------------------------------------------------------------

/// Copies the layers of the profile chosen in INV_SMP to FModelParam, which 0 leaves unchanged; then
/// FModelParam to the panel. Kept: changes on the panel that are not in the record are lost. @return 0; -1
/// after a message when that profile is not stored
int UpdateMParm();

/// Settings of FModelParam and the layers of profile InvParam.iSelected to TheoDispInfo: below 0 a starting
/// profile, 0 FModelParam, above 0 an iteration. @return as above
int UpdateTheoDispInfoForInvAnal();

/// COPYFROMPRF: the profile of COPYPRF to FModelParam and the panel. With UPDATERHONU 1 density and Poisson's
/// ratio follow Vs by RuleForVs, in the stored profile too.
int CopyFromGivenPRFCallback(Panel panel, ControlId control, Event event, long data);

// --- Run ------------------------------------------------------------------------------------------------

/// Empties ITERNO, INV_SMP and COPYPRF, and puts "Given Model P.", value 0, into INV_SMP. Kept: the argument
/// has no effect.
void ClearIterBox(int which);

/// One inversion with the settings of the records: TheoDispInfo with layers (InvParam.iSelected) and measured
/// points, curve display, lists, vectors, FS_RunIAnal. FModelParam keeps the given model.
/// @return 0; -1 after a message, or when halted
int RunInvAnal();

/// The run itself, on the present records and the vectors of FS_AllocMemoryBlocks, see RunInversion:
/// meanwhile only the button Halt works. @return 0; -1 after a message, for example that of a halt
int FS_RunIAnal();

/// Whether the last start, of any kind, made at least one entry: that of the starting model.
bool LastStartHasEntries();

/// Start from the panel, PERFORMINV. NITER must be above 0. Kept: the start enables UF_VPH with CM_COV 0 and
/// dims it otherwise, the reverse of MParmCovMatCallback.
int PerformInvAnalCallback(Panel panel, ControlId control, Event event, long data);
/// Start from the menu. Kept: it does not read CD_COV, UF_VPH and CM_COV; run.switches.cdMode and
/// run.switches.ufVph are those of the last start from the panel (initially 0 and 0), and the factors are
/// UF_H and UF_VS. The lists are emptied before the choice of INV_SMP is used; it is the earlier one.
int Run_InvAnalCallback(Panel panel, ControlId control, Event event, long data);

// --- Results page ---------------------------------------------------------------------------------------

/// HALT: asks; run.course.iHaltRequest becomes 1 on Yes, 0 on No. Yes ends the whole press that the run
/// belongs to (NoteHalt); No cancels a halt that no run has noticed yet.
int HaltProcessCallback(Panel panel, ControlId control, Event event, long data);

/// ITERNO: copies curves and model of the chosen entry to TheoDispInfo and shows them, its misfit in RMSERROR
/// (0 for an entry that is not stored), the side graph by PLOT_INV, the table in the result box. PLOT_INV
/// does the same except for the table.
int InvAnalIterNoCallback(Panel panel, ControlId control, Event event, long data);
int PlotInvResultCallback(Panel panel, ControlId control, Event event, long data);

/// Empties the graphs of the page, its two text boxes and RMSERROR.
void EmptyResultsPage();
/// After a load: nothing of the former project stays. If the file has a run, the side graph and RMSERROR show
/// the entry of ITERNO; FModelParam and TheoDispInfo stay as they were read.
void ShowStoredResults();

/// RESULTBOX: shows the tables, the model first. SEL_RESULT: the chosen table. CLOSE.
int ResultBoxCallback(Panel panel, ControlId control, Event event, long data);
int ResultModelParamCallback(Panel panel, ControlId control, Event event, long data);
int ResultBoxCloseCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
