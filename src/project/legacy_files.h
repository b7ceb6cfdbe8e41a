// legacy_files.h - setup and raw data files of earlier versions: ".sms" and, beside it, ".srd".
//
// ".sms": the setup section of a project file (setup_section.h), with two differences: the ProjID field is
// the plain text, without bars and decimation, and no fields follow a negative freqSpan. ".srd": the raw data
// section (raw_section.h), then one real that is not used but kept (session.rawFileReal). A ".srd" is read
// for the measurements of the ".sms" of the same name.
//
// Callers: panels/mainmenu_legacy. Files are written completely or not at all; of a damaged file the complete
// parts are read.
#pragma once

#include <string>

#include "project/setup_section.h"
#include "runtime/refusal.h"

namespace sondera {

/// Reads a ".sms" from an open file into the database, in addition to its contents; for an id that is in the
/// list it asks. An overwritten measurement keeps its key and the data that are not in the file; when its
/// size changes, data and pairs of the former size are removed. session.fileKeyList gets the keys in file
/// order. Kept: the measurement selected afterwards is the first when the file has one, else the second.
/// file.Trouble() describes problems.
GeometryRead ReadLegacySetups(SectionReader& file, const LoadQuestions& questions);
/// Reads a ".srd" for the measurements of session.fileKeyList.
void ReadLegacyRawData(SectionReader& file);

/// Writes all setups; a measID that is not empty replaces the ids of all of them.
Refusal WriteLegacySetups(const std::string& path, const std::string& measID);
/// Writes the ".sms" of the same name, then the ".srd".
Refusal WriteLegacyRawData(const std::string& path, const std::string& measID);

}  // namespace sondera
