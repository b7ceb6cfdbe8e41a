// site_list.h - the list of the sites of a batch, and the script of one of them. Owned state: none.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace sondera::batch {

struct Site {
  std::string name;                                         ///< of its folder
  std::vector<std::pair<std::string, std::string>> values;  ///< by columns
};

/// A table with commas: names of columns in the first line, then a line for each site; values with commas in
/// quotation marks. The column `site` must exist, and each of its values must be a unique and safe folder
/// name.
/// @return empty, or the fault and its line
std::string ReadSites(const std::string& path, std::vector<Site>& sites);

/// The script with each ${column} replaced by the site's value and ${dir} by the folder of the list.
/// @return empty, or the fault and its line
std::string ScriptOfSite(const std::string& script, const Site& site, const std::string& folderOfList,
                         std::string& made);

/// Check sum of a row, as 8 digits: of names and values.
std::string SumOfRow(const Site& site);

}  // namespace sondera::batch
