// table_export.h - writes the tables of the open project in the form of another program: behind the command line's
// `export --format=` and the word `write` of a script.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "project/export_tables.h"

namespace sondera {

/// The forms, between bars.
inline constexpr std::string_view kTableForms = "csv|json|swprepost|dinver|gpdc|layers|disba";

struct TableExport {
  std::string form;               ///< one of kTableForms
  std::string out;                ///< file; of csv the begin of its files' names
  std::vector<std::string> only;  ///< of csv: names of tables; empty: all
  bool extend = false;            ///< Vs30 from a profile that was not seen to 30 m
  bool geopsy210 = false;         ///< of dinver: the third column of Geopsy 2.10
};

/// Tables of the open project, with the entries that its lists show.
ProjectTables OpenProjectTables(bool extend);

/// The files that an export makes. Empty for a form or a table that does not exist.
std::vector<std::string> FilesOf(const TableExport& what);

/// Writes them, each whole or not at all. Empty, or why not.
/// @param[out] remark  a sentence that whoever takes the file should know; empty for none
std::string WriteTables(const TableExport& what, std::string& remark);

}  // namespace sondera
