// table_export.h - writes the tables of the open project in the format of another program: for the command
// line's `export --format=` and the word `write` of a script.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "project/export_tables.h"

namespace sondera {

/// The formats, between bars.
inline constexpr std::string_view kTableForms = "csv|json|swprepost|dinver|gpdc|layers|disba";

struct TableExport {
  std::string form;               ///< one of kTableForms
  std::string out;                ///< file; of csv the beginning of its files' names
  std::vector<std::string> only;  ///< of csv: names of tables; empty: all
  bool extend = false;            ///< Vs30 from a profile that was not seen to 30 m
  bool geopsy210 = false;         ///< of dinver: the third column of Geopsy 2.10
};

/// Tables of the open project, with the entries that its lists show.
ProjectTables OpenProjectTables(bool extend);

/// The files of an export. Empty for a format or a table that does not exist.
std::vector<std::string> FilesOf(const TableExport& what);

/// Writes them, each completely or not at all. Empty, or why not.
/// @param[out] remark  a sentence for users of the file; empty for none
std::string WriteTables(const TableExport& what, std::string& remark);

}  // namespace sondera
