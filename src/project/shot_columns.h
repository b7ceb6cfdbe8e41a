// shot_columns.h - a text of columns, one for each channel, as a shot. The first column may be the time; such
// a text never contains places, so they must be given.
#pragma once

#include <string>
#include <string_view>

#include "project/shot.h"

namespace sondera {

/// @param[in] interval  s; 0: the first column is the time. With an interval, a first column whose name says
///                      that it is a time is left out, and the first sample is at that time, else at 0 Empty,
///                      or why not (without the name of the file): a text that is not a table, a first column
///                      without even time steps.
std::string ShotOfColumns(const std::string& path, std::string_view text, double interval, Shot& shot);

/// The same from a file: a ReadShot for an interval.
ReadShot ColumnReader(double interval);

}  // namespace sondera
