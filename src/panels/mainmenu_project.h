// mainmenu_project.h - menu File and the buttons of the measurement page: opening, saving and beginning a project.
//
// Callers: menu and buttons, the command line, the script, automatic saves. Owns no state. What fails is told in one
// message; the files themselves are the business of project/project_file.h.
#pragma once

#include <string>

#include "project/section_io.h"
#include "project/setup_section.h"
#include "runtime/controls.h"

namespace sondera {

enum class OpenFor { Work, Reading };

/// Loads a project and selects its first measurement. With an empty path it asks for one, after the lists of
/// the present project have been emptied. Kept: a cancelled dialog therefore leaves an empty database, and
/// the masks of the former project stay. What is missing or wrong in the file is said in one message at the
/// end; what could be read is there. A file that is there but cannot be opened gives no name: the empty
/// project must not take its place. For work the file is locked; one that another process has is refused,
/// with a path before anything has changed. Returns 0; -1 when no file was chosen, it does not exist, is in
/// use, or was not read whole.
int OpenFileProc(const std::string& path = {}, OpenFor purpose = OpenFor::Work);

/// Saves under session.projectFileName, or asks for a name. 0; -1 when nothing was saved.
int SaveRawData();
/// Asks for a name, then saves. Kept: the name stays chosen when the person then decides not to overwrite.
int SaveAsRawData();

/// The project in memory, with the lists of results as the panels show them (project/project_file.h).
void StoreProject(AtomicWriter& file);
bool WriteProjectFile(const std::string& path, std::string& reason);

/// The project is taken as saved as it stands: after a load, a save, and the beginning of a session or a project.
void TakeProjectAsSaved();
/// A save would write other bytes than it would have written then. Compares digests (session.savedDigest).
bool ProjectDiffersFromSaved();

/// All four sections from an open reader into the database, and onto the panels: the first measurement, the lists of
/// results, the settings of the forward model. Shows no box but the questions about ids that are taken. What was
/// wrong: file.Trouble().
void ReadProjectSections(SectionReader& file);
/// The first and the fourth section alone. @return 0; otherwise the section was not read whole: -1, for the fourth
/// where it ended (project/modeling_section.h)
int ReadMHWSetup(SectionReader& file);
int ReadModeling(SectionReader& file);
void StoreModeling(AtomicWriter& file);

/// Ends a load with at most one message: `notWhole` where the reading met trouble, and the doubts about its numbers,
/// which go to the findings too. @return 0, or -1 for a file that was not read whole
int TellOutcome(const std::string& notWhole, const SectionReader& file);

/// What a load asks: overwrite a measurement that is in the list, or another id for it.
LoadQuestions AskDuringLoad();
/// Shows what a load of setups has selected, and the length unit.
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
/// Menu item "New": empties the database after a question. Kept: the question is put twice, and the second
/// answer does not matter.
int NewMeasurementCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
