// parameters_file.h - the settings of a forward run as a text file, by convention "*.fmd".
//
// Callers: the callbacks of the forward-model panel. Owns no state. The file has FModelParam but for its
// capacities: settings, layers, the global curve, the array curves, the receiver pairs. Lengths and
// velocities have four decimals at most, so what is read back equals what was written to those decimals only.
//
// Reading is as tolerant as reading by the same formats can be: white space between two items is any amount
// of any white space, but the words have to be there.
#pragma once

#include <string>

namespace sondera {

class TextReader;

/// Writes FModelParam; an existing file is replaced whole. 0; -1 after one message.
[[nodiscard]] int SaveFModelParam(const std::string& path);

/// Reads a file into FModelParam; wavelengths of array curves are made anew as velocity / frequency. Values
/// are not judged: that is the business of a run. @return 0; -1 after one message when the file cannot be
/// opened, ends early, has other words than it should or a count below 0. The record is then as it was
[[nodiscard]] int ReadFModelParam(const std::string& path);

/// The same from an open text, without a message.
[[nodiscard]] int ReadFModelParamFrom(TextReader& file);

}  // namespace sondera
