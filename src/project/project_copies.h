// project_copies.h - the copies beside a project file, each made before the file is replaced:
//
//   <name>.bkup      the project before the latest save; one generation
//   <name>.former    the project whose name an unattended run used for a new one; the latest with other
//                    contents than the new one
//   <name>.damaged   a project that could not be opened or not read completely, before a save replaces it;
//                    never overwritten: the next one is <name>.damaged2
//
// Callers: saves and the command line. State: session.damagedFile. All copies are complete or do not exist,
// and have mode, owner, group and time of the original. Functions return false with the reason, a sentence
// without its full stop.
#pragma once

#include <functional>
#include <string>

#include "runtime/atomic_writer.h"

namespace sondera {

/// Marks a file as damaged, for KeepDamagedProject. From then on it gets no ".bkup" copies in this session:
/// the existing one may be the last good state.
void RememberDamagedProject(const std::string& path);
void ForgetDamagedProject();
/// Whether this is the marked file, under any path.
bool IsDamagedProject(const std::string& path);

/// Before anything is written to `path`: makes the ".damaged" copy if that is the damaged file and it was not
/// written since. An existing copy with the same contents is enough.
bool KeepDamagedProject(const std::string& path, std::string& reason);

/// Copies the present file to "<name>.bkup". True without a copy when there is nothing to copy, and for the
/// damaged file.
bool BackUpProject(const std::string& path, std::string& reason);

/// Copies the present file to "<name>.former" when it differs from the output of `store`, which will replace
/// it. `kept` becomes the name of the copy, or "" when none was needed.
bool KeepFormerProject(const std::string& path, const std::function<void(AtomicWriter&)>& store,
                       std::string& kept, std::string& reason);

}  // namespace sondera
