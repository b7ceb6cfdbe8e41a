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

/// A table with commas: names of columns in the first line, then a line a site; values with commas in quotation marks.
/// The column `site` has to be there, each of its values a safe name for a folder, none of them twice.
/// @return empty, or what is wrong with which line
std::string ReadSites(const std::string& path, std::vector<Site>& sites);

/// The script with each ${column} replaced by the site's value and ${dir} by the folder of the list.
/// @return empty, or what is wrong with which line
std::string ScriptOfSite(const std::string& script, const Site& site, const std::string& folderOfList,
                         std::string& made);

/// Check sum of a row, as 8 digits: of names and values.
std::string SumOfRow(const Site& site);

}  // namespace sondera::batch
