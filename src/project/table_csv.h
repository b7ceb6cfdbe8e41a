// table_csv.h - the tables of a project as CSV: UTF-8, LF, commas, decimal points, one line of names with
// units in brackets, an empty cell for no value, the shortest digits that restore the number. Owned state:
// none.
#pragma once

#include <string>
#include <vector>

#include "project/export_tables.h"

namespace sondera {

/// Names of the tables, as `only` and the files have them.
inline constexpr const char* kCsvTables[] = {"curves", "profile", "spectra", "masks", "figures"};

/// Text of a table; empty for an unknown name.
std::string CsvText(const ProjectTables& tables, const std::string& name);

/// A cell of text: in quotation marks if needed.
std::string CsvCell(const std::string& text);

}  // namespace sondera
