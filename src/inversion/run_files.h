// run_files.h - the result files of a run, made empty at its start.
//
// Callers: FS_RetrieveSystemPM. The writers of results open a file for appending and close it at once, so
// that the iterations of a run stand one after the other; nothing is kept open between them.
#pragma once

namespace sondera {

/// Empties the files of a run: run.baseName plus ".fdp", ".fmp", ".pfl", ".pcm"; in an inversion (kind 2)
/// also
/// ".fsp", ".n", ".r"; in a waveform run (kind 3) ".pls" and ".spc"; and those whose report switch is on.
/// @return 0; -1 after a message when ".pls", ".spc" or ".fsp" cannot be opened, the others staying
/// untouched. Kept: any other file that cannot be opened ends the process with status 1, after a line on
/// stderr.
[[nodiscard]] int FS_OpenFiles(int kind);

/// Marks the end of a run's files. Nothing is open, so it has nothing to do.
void FS_CloseFiles(int kind);

}  // namespace sondera
