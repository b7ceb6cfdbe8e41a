// batch.h - one script for each site of a list: `sondera batch SITES.csv SCRIPT`.
//
// Each site is a separate process in its own folder, named after the site, below the current folder. There it
// writes script.txt (the script of the site), session.log (the log of the session), log.txt (its output) and
// status.json, which appears only at the end and complete. summary.csv is beside the folders and is written
// again after each site. No question waits: those without an answer are answered Yes, and files of the folder
// are overwritten.
#pragma once

#include <string>
#include <vector>

namespace sondera::batch {

struct Options {
  int jobs = 1;         ///< sites at a time, 1 to kMostJobs
  bool resume = false;  ///< skip sites that are finished and unchanged: program, script, row and files read
  bool keepGoing = false;         ///< start further sites after one that failed
  bool collect = false;           ///< run nothing, only write the summary from the folders
  std::vector<std::string> only;  ///< number of a row, from 1: run only this one, and write no summary
};
inline constexpr int kMostJobs = 256;

/// Runs the list. 0 when every site ended with 0, 3 when some ended with doubts, 1 when one failed or was not run.
int Run(const std::string& list, const std::string& script, const Options& options);

}  // namespace sondera::batch
