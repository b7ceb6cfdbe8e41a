// parameters_file.h - the settings of a forward run as a text file, by convention "*.fmd".
//
// Callers: panels/fmodeling_files. Owns no state. The file has a settings record but for its capacities: settings, layers, the global curve, the array curves, the receiver pairs. Lengths and
// velocities have four decimals at most, so what is read back equals what was written to those decimals only.
//
// Reading is as tolerant as reading by the same formats can be: white space between two items is any amount
// of any white space, but the words have to be there.
#pragma once

#include <string>

#include "records/model_records.h"
#include "runtime/refusal.h"

namespace sondera {

class TextReader;

/// Writes a record; an existing file is replaced whole. Refuses a record that is not whole or holds what is no
/// number, and a file that cannot be written.
Refusal WriteParameters(const ModelRecord& record, const std::string& path);

/// Reads a file into a record; wavelengths of array curves are made anew as velocity / frequency. Values are not
/// judged: that is the business of a run. Refuses a file that cannot be opened, ends early, has other words than it
/// should or a count below 0. The record is then as it was.
Refusal ReadParameters(const std::string& path, ModelRecord& record);

/// The same from an open text. @return false when refused
[[nodiscard]] bool ReadParametersFrom(TextReader& file, ModelRecord& record);

}  // namespace sondera
