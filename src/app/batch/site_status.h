// site_status.h - result of a site's run: status.json in its folder, and its row of summary.csv. Owned state:
// none.
#pragma once

#include <string>
#include <vector>

#include "app/batch/site_list.h"

namespace sondera::batch {

struct ReadFile {
  std::string name, sum;  ///< relative to the folder of the site; "bytes N crc32 X"
  bool operator==(const ReadFile&) const = default;
};

struct SiteStatus {
  int status = -1;  ///< -1: not run
  std::string reason;
  double seconds = 0.0;
  std::string version, scriptSum, rowSum;
  std::vector<ReadFile> inputs;
  std::string figures;  ///< JSON of run_figures.h, empty without
};

/// Writes status.json into a folder, completely or not at all. Empty, or the reason.
std::string WriteStatus(const std::string& folder, const SiteStatus& status);
/// Reads it. False when it does not exist, or cannot be understood.
bool ReadStatus(const std::string& folder, SiteStatus& status);

/// Files that a session has read, from its log.
std::vector<ReadFile> InputsOfLog(const std::string& log);
/// Whether all files that a run has read are unchanged.
bool InputsAreUnchanged(const std::string& folder, const std::vector<ReadFile>& inputs);

/// The first line and one line for a site, without line ends.
std::string SummaryHead();
std::string SummaryRow(const Site& site, const SiteStatus& status);

}  // namespace sondera::batch
