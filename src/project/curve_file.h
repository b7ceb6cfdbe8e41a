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

/// Takes both kinds of curves, with their receivers, from the file "path.red"; they count as data then.
/// Refused, the record is as it was.
Refusal ReadCurves(const std::string& path, ModelRecord& record, Switches& switches);

/// The same from an open text. @return false when refused
[[nodiscard]] bool ReadCurvesFrom(TextReader& file, ModelRecord& record, Switches& switches);

/// Goes to the line behind the first one that begins with "*" and has the key as its first word (separators
/// comma, tabulator, line end and "*"; blanks belong to words). False when there is none; the text is then at
/// its end. Lines count as ended after 256 bytes.
bool FS_FilePointer(TextReader& file, std::string_view key);

}  // namespace sondera
