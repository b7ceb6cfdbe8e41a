// project_file.h - opening, saving and beginning a project; the project file as a whole (extension ".da").
//
// A project file is four sections behind each other, without header, version or padding: setups, raw data,
// analysis, modelling (one file of this folder each). Files of earlier versions end behind the second or the
// third.
//
// Callers: menu and buttons, the command line, the script, automatic saves. Owns no state: the session knows
// the name of the file and holds its lock. A save writes a new file beside the old one and puts it in its
// place at the end, behind a copy of the old one (project_copies.h); whatever fails leaves the old file whole
// and is told in one message.
#pragma once

#include <string>

#include "project/section_io.h"
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

/// Takes the lock of a project for this session, in place of the one it had. False with the reason when
/// another process has it; true without a lock where there are none.
bool LockProject(const std::string& path, std::string& reason);
/// The session has no project file any more: neither name nor lock.
void LeaveProjectFile();

/// Saves under session.projectFileName, or asks for a name. 0; -1 when nothing was saved.
int SaveRawData();
/// Asks for a name, then saves. Kept: the name stays chosen when the person then decides not to overwrite.
int SaveAsRawData();

/// All four sections.
void StoreProject(AtomicWriter& file);
/// All four sections into a file: atomic, no backup copy (but the one of a damaged file), no question. False
/// with the reason; a file that another process has open is one.
bool WriteProjectFile(const std::string& path, std::string& reason);
/// All four sections from an open reader into the database, with model records made afresh where the file has
/// none. Shows nothing but the questions about names that are taken. What was wrong: file.Trouble().
void ReadProjectSections(SectionReader& file);

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
