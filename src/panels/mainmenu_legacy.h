// mainmenu_legacy.h - menu File: setup and raw data files of earlier versions, ".sms" and ".srd".
#pragma once

#include <string>

#include "project/section_io.h"
#include "runtime/controls.h"

namespace sondera {

/// Reads a ".sms" (project/legacy_files.h) and shows its first measurement, or its second when it has more than one.
/// Returns 0; -1 after one message when the file was not read completely.
int LoadMHWSetup(const std::string& path);
/// The same from an open reader, without a message. file.Trouble() describes problems.
void ReadLegacySetups(SectionReader& file);

/// Writes all setups; a measID that is not empty replaces the ids of all of them. -1 after one message.
int SaveMHWSetup(const std::string& path, const std::string& measID);
/// Writes the ".sms" of the same name, then the ".srd". -1 after one message.
int Save_RawData(const std::string& path, const std::string& measID);

// Menu items.
/// Kept: the lists are emptied after the question and before the dialog, so a cancel leaves an empty
/// database. The project then has no name any more: a save must not replace the old one.
int Load_MHWSetupCallback(Panel panel, ControlId control, Event event, long data);
int Save_MHWSetupCallback(Panel panel, ControlId control, Event event, long data);
int Load_PrevRawDataCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
