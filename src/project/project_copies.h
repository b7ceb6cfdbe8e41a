// project_copies.h - the copies beside a project file, each made before something takes the file's place:
//
//   <name>.bkup      the project before the latest save; one generation
//   <name>.former    the project whose name an unattended run took for a new one; the latest that held
//                    something else than the new one
//   <name>.damaged   a project that could not be opened or not read whole, before it is saved over; never
//                    overwritten: the next goes to <name>.damaged2
//
// Callers: saves and the command line. State: session.damagedFile. All copies are whole or not there, and
// have mode, owner, group and time of the original. Functions return false with the reason, a sentence
// without its full stop.
#pragma once

#include <functional>
#include <string>

#include "runtime/atomic_writer.h"

namespace sondera {

/// Remembers a file as damaged, for KeepDamagedProject. From then on it has no ".bkup" copies in this
/// session: the one that is there may be the last good state.
void RememberDamagedProject(const std::string& path);
void ForgetDamagedProject();
/// Whether this is the file that was remembered, by whatever path.
bool IsDamagedProject(const std::string& path);

/// Before anything is written to `path`: makes the ".damaged" copy if that is the damaged file and nothing
/// has been written over it yet. A copy of the same content that is there already will do.
bool KeepDamagedProject(const std::string& path, std::string& reason);

/// Copies the present file to "<name>.bkup". True without a copy when there is nothing to copy, and for the
/// damaged file.
bool BackUpProject(const std::string& path, std::string& reason);

/// Copies the present file to "<name>.former" when it differs from what `store` writes, which is going to
/// take its place. `kept` becomes the name of the copy, or "" when none was needed.
bool KeepFormerProject(const std::string& path, const std::function<void(AtomicWriter&)>& store,
                       std::string& kept, std::string& reason);

}  // namespace sondera
