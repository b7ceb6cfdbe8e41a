// curve_file.h - global curve and array curves as a text file, by convention "*.red", read as the points of a run.
//
// Callers: panels/fmodeling_files. Owns no state.
#pragma once

#include <string>
#include <string_view>

#include "records/model_records.h"
#include "run/system_state.h"
#include "runtime/refusal.h"

namespace sondera {

class TextReader;

/// Reads both kinds of curves, with their receivers, from the file "path.red"; they then count as data. When
/// refused, the record is unchanged.
Refusal ReadCurves(const std::string& path, ModelRecord& record, Switches& switches);

/// The same from an open text. @return false when refused
[[nodiscard]] bool ReadCurvesFrom(TextReader& file, ModelRecord& record, Switches& switches);

/// Goes to the line after the first one that begins with "*" and has the key as its first word (separators
/// comma, tabulator, line end and "*"; blanks belong to words). False when there is none; the text is then at
/// its end. A line ends after 256 bytes at most.
bool FS_FilePointer(TextReader& file, std::string_view key);

}  // namespace sondera
