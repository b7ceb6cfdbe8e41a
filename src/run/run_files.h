// run_files.h - the result files of a run: written to temporary files, which replace the old ones at its end.
//
// FS_OpenFiles takes the lock of the set, checks every place and opens a temporary file beside it
// (`<name>.saving-...`, see runtime/atomic_writer.h). The blocks of the iterations are written there at once,
// so a long run can be followed while the files of the former run stay unchanged. FS_CloseFiles replaces them
// by the new ones. The former set stays when a run ends before its first block, throws, or cannot write one
// of its files completely; also when it is killed, and then the temporary files remain.
//
// Callers: FS_RetrieveSystemPM opens, the drivers of runs close, ReportFile adds blocks. Owned state: the
// files of the present run and their lock (run_state.h).
#pragma once

#include <string>
#include <string_view>

#include "run/system_state.h"
#include "runtime/listener.h"
#include "runtime/refusal.h"

namespace sondera {

/// Opens the files of a run: switches.baseName plus ".fdp", ".fmp", ".pfl", ".pcm"; in an inversion (kind 2) also
/// ".fsp", ".n", ".r"; in a waveform run (kind 3) ".pls" and ".spc"; and those whose report switch is on.
/// Drops files that are still open.
/// @return refused when another process works on these files, or when one of them cannot be written or is not
/// a regular file: nothing has changed then
Refusal FS_OpenFiles(int kind, const Switches& switches);

/// Replaces the old files, either all of them or, after a message, none; none without a message when nothing
/// was added. Those without a block become empty. Kept: the kind of run is not checked.
void FS_CloseFiles(int kind, Listener& listener);

/// Drops the open files; the former files stay. Throws nothing.
void FS_DropFiles();

/// Held by the driver of a run: at the end of its life, it drops files that FS_CloseFiles has not put in
/// place.
class RunFiles {
 public:
  RunFiles() = default;
  ~RunFiles() { FS_DropFiles(); }
  RunFiles(const RunFiles&) = delete;
  RunFiles& operator=(const RunFiles&) = delete;
};

/// Adds a block to the file of this extension; a file that FS_OpenFiles did not open is opened now. The first
/// failure of a run is reported; no block is written from then on.
void AddToRunFile(const std::string& baseName, const char* extension, std::string_view block,
                  Listener& listener);

/// "Error in opening file %s\n" and the reason, as a sentence.
std::string OpeningComplaint(const std::string& path, const std::string& reason);

}  // namespace sondera
