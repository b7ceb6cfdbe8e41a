// written_files.h - which files the session has written, for the summary of an unattended run.
//
// AtomicWriter, behind all writers, reports here when a file is in place. The list belongs to the session:
// StartSession() empties it.
#pragma once

#include <string>
#include <vector>

namespace sondera {

/// Reports a file by the path that it was written under. The same path is kept once, at its first place.
void NoteWrittenFile(const std::string& path);
const std::vector<std::string>& WrittenFiles();
void ClearWrittenFiles();

}  // namespace sondera
