// written_files.h - the files that the session has written, for the summary of an unattended run.
//
// AtomicWriter, which all writers use, reports each completed file here. The list belongs to the session:
// StartSession() empties it.
#pragma once

#include <string>
#include <vector>

namespace sondera {

/// Reports a file by the path that it was written under. A path is kept once, at its first place.
void NoteWrittenFile(const std::string& path);
const std::vector<std::string>& WrittenFiles();
void ClearWrittenFiles();

}  // namespace sondera
