// curve_import.h - measured curves as the points that a forward run computes.
//
// Callers: the buttons that load curves into the forward-model panel. Owns no state; fills FModelParam. Array
// curves go in from their last point to their first, so frequencies descend, as they do in the file of array
// curves. A pair keeps its column, whether or not it has a curve: entry point * nDispCurves + pair is 0 where
// there is none.
#pragma once

#include <string>
#include <string_view>

namespace sondera {

class TextReader;

/// Takes the global curve and the array curves of the project's included pairs, with their receivers, from
/// memory. The points then count as data (DispCurvInfo 1).
/// @return 0; -1 after a message without a global curve or with receivers that make no sense; -1 without one
///         when there is no array curve. The record keeps what had been taken by then.
/// Velocities are put at their frequency. A point at a frequency that the first curve does not have (curves
/// taken as they are, without a common grid) finds no row: one message says how many are left out, result 0.
[[nodiscard]] int RetrieveDispCurvInfoFromMemory();

/// Takes the same from the file "path.red". @return 0; -1 after one message, the record as it was
[[nodiscard]] int RetrieveDispCurvInfoFromFile(const std::string& path);
/// The same from an open text, without a message.
[[nodiscard]] int RetrieveDispCurvInfoFrom(TextReader& file);

/// Takes nothing: there is no table to take curves from.
void RetrieveDispCurvInfoFromTable();

/// Goes to the line behind the first one that begins with "*" and has the key as its first word (separators
/// comma, tabulator, line end and "*"; blanks belong to words). False when there is none; the text is then at
/// its end. Lines count as ended after 256 bytes.
bool FS_FilePointer(TextReader& file, std::string_view key);

}  // namespace sondera
