// site_list.cpp - see site_list.h.
#include "app/batch/site_list.h"

#include <algorithm>
#include <cctype>
#include <set>

#include "runtime/crc32.h"
#include "runtime/files.h"
#include "runtime/terminal.h"

namespace sondera::batch {
namespace {

constexpr std::size_t kMostSites = 100000, kLongestRow = 65536, kLongestName = 100;
constexpr std::string_view kMark = "\xEF\xBB\xBF";
constexpr std::string_view kSiteColumn = "site", kFolder = "dir";

/// Cells of one line. Empty, or the fault.
std::string SplitRow(std::string_view line, std::vector<std::string>& cells) {
  cells.clear();
  for (;;) {
    std::string cell;
    if (line.starts_with('"')) {
      const std::size_t end = line.find('"', 1);
      if (end == std::string_view::npos) return "a quotation mark is not closed";
      cell = line.substr(1, end - 1);
      line.remove_prefix(end + 1);
      if (!line.empty() && line.front() != ',') return "a value cannot hold a quotation mark";
    } else {
      const std::size_t end = std::min(line.find(','), line.size());
      cell = line.substr(0, end);
      line.remove_prefix(end);
      if (cell.find('"') != std::string::npos) return "a value cannot hold a quotation mark";
    }
    if (cell.find('\0') != std::string::npos) return "a value holds a zero byte";
    cells.push_back(std::move(cell));
    if (line.empty()) return "";
    line.remove_prefix(1);
  }
}

bool IsColumnName(const std::string& name) {
  return !name.empty() && !std::isdigit(static_cast<unsigned char>(name[0])) &&
         std::all_of(name.begin(), name.end(),
                     [](char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; });
}

bool IsFolderName(const std::string& name) {
  return !name.empty() && name.size() <= kLongestName && name[0] != '.' && name[0] != '-' &&
         std::all_of(name.begin(), name.end(), [](char c) {
           return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '-' || c == '.';
         });
}

std::string Lower(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

std::string CheckColumns(const std::vector<std::string>& columns) {
  std::set<std::string> seen;
  for (const std::string& name : columns) {
    if (!IsColumnName(name))
      return "\"" + VisibleText(name) + "\" is not a column name: letters, digits and _";
    if (name == kFolder) return "the column \"dir\" has to go: ${dir} is the folder of the list";
    if (!seen.insert(name).second) return "the column \"" + name + "\" is there twice";
  }
  return seen.count(std::string(kSiteColumn)) ? "" : "there is no column \"site\"";
}

}  // namespace

std::string ReadSites(const std::string& path, std::vector<Site>& sites) {
  TextReader file;
  std::string reason, line;
  if (!file.Open(path, &reason)) return reason;
  std::vector<std::string> columns, cells;
  std::set<std::string> names;
  for (int number = 1; file.ReadPhysicalLine(line, kLongestRow); ++number) {
    const auto fault = [&](const std::string& what) {
      return FormatText("%s, line %d: ", path.c_str(), number) + what;
    };
    if (file.LineWasCut()) return fault("the line is too long");
    if (number == 1 && line.starts_with(kMark)) line.erase(0, kMark.size());
    if (line.empty()) continue;
    if (std::string what = SplitRow(line, cells); !what.empty()) return fault(what);
    if (columns.empty()) {
      if (std::string what = CheckColumns(cells); !what.empty()) return fault(what);
      columns = cells;
      continue;
    }
    if (cells.size() != columns.size())
      return fault(FormatText("%zu values for %zu columns", cells.size(), columns.size()));
    Site site;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      if (columns[i] == kSiteColumn) site.name = cells[i];
      site.values.emplace_back(columns[i], cells[i]);
    }
    if (!IsFolderName(site.name))
      return fault("\"" + VisibleText(site.name) +
                   "\" cannot name a folder: letters, digits, _ - and ., up to 100");
    if (!names.insert(Lower(site.name)).second) return fault("the site " + site.name + " is there twice");
    if (sites.size() == kMostSites) return fault(FormatText("a list has up to %zu sites", kMostSites));
    sites.push_back(std::move(site));
  }
  if (file.ReadFailed()) return path + " cannot be read to its end";
  return sites.empty() ? path + " holds no site" : "";
}

std::string ScriptOfSite(const std::string& script, const Site& site, const std::string& folderOfList,
                         std::string& made) {
  made.clear();
  int line = 1;
  for (std::size_t at = 0; at < script.size();) {
    const std::size_t mark = std::min(script.find("${", at), script.size());
    line += static_cast<int>(std::count(script.begin() + static_cast<std::ptrdiff_t>(at),
                                        script.begin() + static_cast<std::ptrdiff_t>(mark), '\n'));
    made.append(script, at, mark - at);
    if (mark == script.size()) break;
    const std::size_t end = script.find('}', mark);
    const std::string name = end == std::string::npos ? "" : script.substr(mark + 2, end - mark - 2);
    const auto value =
        std::find_if(site.values.begin(), site.values.end(), [&](const auto& v) { return v.first == name; });
    if (name != kFolder && value == site.values.end())
      return FormatText("line %d: ${%s} is not a column of the list", line,
                        VisibleText(name.substr(0, 60)).c_str());
    made += name == kFolder ? folderOfList : value->second;
    at = end + 1;
  }
  return "";
}

std::string SumOfRow(const Site& site) {
  std::string text;
  for (const auto& [name, value] : site.values) text += name + "\n" + value + "\n";
  return FormatText("%08x", Crc32(text));
}

}  // namespace sondera::batch
