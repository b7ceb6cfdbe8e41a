// parameters_file.h - the settings of a forward run as a text file, by convention "*.fmd".
//
// Callers: panels/fmodeling_files. Owns no state. The file contains a settings record without its capacities:
// settings, layers, the global curve, the array curves, the receiver pairs. Lengths and velocities have four
// decimals at most, so values that are read back agree to those decimals only.
//
// Reading is as tolerant as the formats allow: any amount and kind of white space between two items, but the
// words must be there.
#pragma once

#include <string>

#include "records/model_records.h"
#include "runtime/refusal.h"

namespace sondera {

class TextReader;

/// Writes a record; an existing file is replaced completely. Refuses an incomplete record, values that are
/// not finite, and a file that cannot be written.
Refusal WriteParameters(const ModelRecord& record, const std::string& path);

/// Reads a file into a record; wavelengths of array curves are computed again as velocity / frequency. Values
/// are not checked: a run does that. Refuses a file that cannot be opened, ends early, has other words than
/// expected or a count below 0. The record is then unchanged.
Refusal ReadParameters(const std::string& path, ModelRecord& record);

/// The same from an open text. @return false when refused
[[nodiscard]] bool ReadParametersFrom(TextReader& file, ModelRecord& record);

}  // namespace sondera
