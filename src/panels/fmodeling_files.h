// fmodeling_files.h - curves and settings of the forward-model panel from memory and files, into FModelParam and `run`.
//
// Callers: the callbacks of the panel. Owns no state.
#pragma once

#include <string>

namespace sondera {

/// Curves in memory, see run/measured_curves.h. One message says how many points were left out, result 0.
/// @return 0; -1 after a message; -1 without one when there is no array curve
[[nodiscard]] int RetrieveDispCurvInfoFromMemory();

/// The same from the file "path.red" (project/curve_file.h). @return 0; -1 after one message, with the record
/// unchanged
[[nodiscard]] int RetrieveDispCurvInfoFromFile(const std::string& path);

/// Does nothing: there is no table of curves.
void RetrieveDispCurvInfoFromTable();

/// FModelParam to and from a parameter file (project/parameters_file.h). @return 0; -1 after one message
[[nodiscard]] int SaveFModelParam(const std::string& path);
[[nodiscard]] int ReadFModelParam(const std::string& path);

}  // namespace sondera
