// run_files.h - the result files of a run: written aside, put in their places when the run is at its end.
//
// FS_OpenFiles takes the lock of the set, looks at every place and opens a temporary file beside it
// (`<name>.saving-...`, see runtime/atomic_writer.h). The blocks of the iterations go there as they come, so
// that a long run can be followed, while the files of the former run stay as they are. FS_CloseFiles puts the
// new ones in their places. A run that ends before its first block, that throws, or one of whose files cannot
// be written whole leaves the former set; a killed one leaves it too, beside its temporary files.
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
/// @return refused when another process works on these files, or when one of them cannot be written or is no plain
///         file: nothing has changed then
Refusal FS_OpenFiles(int kind, const Switches& switches);

/// Puts the files in place, all of them or, after a message, none; none without a message when nothing was
/// added. Those without a block become empty. Kept: the kind of run is not looked at.
void FS_CloseFiles(int kind, Listener& listener);

/// Drops what is open; the former files stay. Throws nothing.
void FS_DropFiles();

/// Held by the driver of a run: what FS_CloseFiles has not put in place is dropped at the end of its life.
class RunFiles {
 public:
  RunFiles() = default;
  ~RunFiles() { FS_DropFiles(); }
  RunFiles(const RunFiles&) = delete;
  RunFiles& operator=(const RunFiles&) = delete;
};

/// Adds a block to the file of this extension; a file that FS_OpenFiles did not open is opened now. The first
/// failure of a run is told; no block is written from then on.
void AddToRunFile(const std::string& baseName, const char* extension, std::string_view block,
                  Listener& listener);

/// "Error in opening file %s\n" and the reason, as a sentence.
std::string OpeningComplaint(const std::string& path, const std::string& reason);

}  // namespace sondera
