// batch.h - one script for each site of a list: `sondera batch SITES.csv SCRIPT`.
//
// Each site is a process of its own in a folder of its own, named after the site, below the current folder. There it
// leaves script.txt (what was run), session.log (the log of the session), log.txt (what it printed) and status.json,
// which is put in place whole at the end only. summary.csv stands beside the folders and is written anew after each
// site. No question waits: those without an answer are answered Yes, and files of the folder are written over.
#pragma once

#include <string>
#include <vector>

namespace sondera::batch {

struct Options {
  int jobs = 1;                   ///< sites at a time, 1 to kMostJobs
  bool resume = false;            ///< skip what is done and unchanged: program, script, row and files read
  bool keepGoing = false;         ///< start further sites after one that failed
  bool collect = false;           ///< run nothing, write the summary from the folders
  std::vector<std::string> only;  ///< one number of a row, from 1: run it alone, and write no summary
};
inline constexpr int kMostJobs = 256;

/// Runs the list. 0 when every site ended with 0, 3 when some ended with doubts, 1 when one failed or was not run.
int Run(const std::string& list, const std::string& script, const Options& options);

}  // namespace sondera::batch
