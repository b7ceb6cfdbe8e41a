// mainmenu_project.h - menu File and the buttons of the measurement page: opening, saving and creating a
// project.
//
// Callers: menu and buttons, the command line, the script, automatic saves. Owns no state. One message
// reports a failure; project/project_file.h handles the files themselves.
#pragma once

#include <string>

#include "project/section_io.h"
#include "project/setup_section.h"
#include "runtime/controls.h"

namespace sondera {

enum class OpenFor { Work, Reading };

/// Loads a project and selects its first measurement. With an empty path it asks for one, after the lists of
/// the present project have been emptied. Kept: a cancelled dialog therefore leaves an empty database, and
/// the masks of the former project stay. One message at the end describes missing or wrong contents of the
/// file; all data that could be read are there. If a file exists but cannot be opened, the empty project gets
/// no name, so it cannot replace that file. The file is locked while it is open; a file that another process
/// has locked is refused; with a path, nothing has changed then. Returns 0; -1 when no file was chosen, it
/// does not exist, is in use, or was not read completely.
int OpenFileProc(const std::string& path = {}, OpenFor purpose = OpenFor::Work);

/// Saves under session.projectFileName, or asks for a name. 0; -1 when nothing was saved.
int SaveRawData();
/// Asks for a name, then saves. Kept: the name stays chosen even if the person then decides not to overwrite.
int SaveAsRawData();

/// The project in memory, with the lists of results as the panels show them (project/project_file.h).
void StoreProject(AtomicWriter& file);
bool WriteProjectFile(const std::string& path, std::string& reason);

/// The present state of the project counts as saved: after a load, a save, and the start of a session or a
/// project.
void TakeProjectAsSaved();
/// Whether a save would write other bytes than at that time. Compares digests (session.savedDigest).
bool ProjectDiffersFromSaved();

/// All four sections from an open reader into the database, and onto the panels: the first measurement, the
/// lists of results, the settings of the forward model. Shows no box except the questions about existing ids.
/// file.Trouble() describes problems.
void ReadProjectSections(SectionReader& file);
/// Only the first and the fourth section. @return 0; otherwise the section was not read completely: -1, for
/// the fourth where it ended (project/modeling_section.h)
int ReadMHWSetup(SectionReader& file);
int ReadModeling(SectionReader& file);
void StoreModeling(AtomicWriter& file);

/// Ends a load with at most one message: `notWhole` when the reading had problems, and the doubts about its
/// numbers, which are also added to the findings. @return 0, or -1 for a file that was not read completely
int TellOutcome(const std::string& notWhole, const SectionReader& file);

/// Questions of a load: overwrite a measurement that is in the list, or another id for it.
LoadQuestions AskDuringLoad();
/// Shows the selection after a load of setups, and the length unit.
void ShowSetups(const SetupsRead& setups);

/// "<app> - <file>" on the main window.
void ShowFileTitle(const std::string& path);

// Menu items.
int Load_RawDataCallback(Panel panel, ControlId control, Event event, long data);
int Save_RawDataCallback(Panel panel, ControlId control, Event event, long data);
int SaveAs_RawDataCallback(Panel panel, ControlId control, Event event, long data);
// Buttons of the measurement page; they act on a press only.
int RecallCallback(Panel panel, ControlId control, Event event, long data);
int SaveRawDataCallback(Panel panel, ControlId control, Event event, long data);
int SaveAsRawDataCallback(Panel panel, ControlId control, Event event, long data);
/// Menu item "New": empties the database after a question. Kept: the question is asked twice, and the second
/// answer has no effect.
int NewMeasurementCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
