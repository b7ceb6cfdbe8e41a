// legacy_files.h - setup and raw data files of earlier versions: ".sms" and, beside it, ".srd".
//
// ".sms": the setup section of a project file (setup_section.h), with two differences: the ProjID field is
// the plain text, without bars and decimation, and nothing stands behind a negative freqSpan. ".srd": the raw
// data section (raw_section.h), then one real that has no use here and is carried along
// (session.rawFileReal). A
// ".srd" is read for the measurements of the ".sms" of the same name.
//
// Callers: the menu. Files are written whole or not at all; of a damaged file what is whole comes in, and one
// message says what was missing.
#pragma once

#include <string>

#include "project/section_io.h"
#include "runtime/controls.h"

namespace sondera {

/// Reads a ".sms" into the database, beside what is there; an id that is in the list is asked about. An
/// overwritten measurement keeps its key and what the file does not hold; when its size changes, data and
/// pairs of the former size go. session.fileKeyList gets the keys in file order. Kept: the measurement shown
/// afterwards is the first when the file has one, else the second.
/// Returns 0; -1 after one message when the file was not read whole.
int LoadMHWSetup(const std::string& path);
/// Writes all setups; a measID that is not empty stands for the ids of all of them. -1 after one message.
int SaveMHWSetup(const std::string& path, const std::string& measID);

/// Writes the ".sms" of the same name, then the ".srd". -1 after one message.
int Save_RawData(const std::string& path, const std::string& measID);

/// The two readers on an open file. What was wrong: file.Trouble().
void ReadLegacySetups(SectionReader& file);
void ReadLegacyRawData(SectionReader& file);

// Menu items.
/// Kept: the lists are emptied after the question and before the dialog, so that a cancel leaves an empty
/// database. The project then has no name any more: a save must not put it in the place of the old one.
int Load_MHWSetupCallback(Panel panel, ControlId control, Event event, long data);
int Save_MHWSetupCallback(Panel panel, ControlId control, Event event, long data);
int Load_PrevRawDataCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
