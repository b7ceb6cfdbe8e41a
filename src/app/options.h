// options.h - a command line split into options and arguments.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/batch/batch.h"
#include "app/run_report.h"

namespace sondera {

/// What `show` and `plot` show, and the known ground for comparison.
struct LookOptions {
  std::vector<std::string> parts;  ///< "curves", "profile", "masks"; empty: all
  std::string what;                ///< of plot; empty: curves
  std::string knownCurve, knownLayers;
};

struct CommandLine {
  bool help = false, version = false;
  bool batch = false;            ///< never open a window
  bool assumeYes = false;        ///< answer questions with Yes
  bool overwrite = false;        ///< of run: files that exist are written over
  bool finishIteration = false;  ///< of run: an interrupt ends an inversion after its iteration
  RunReportOptions report;
  std::optional<std::string> log;         ///< file for the log of the session
  std::optional<std::string> reportFile;  ///< file for the whole report of the project
  bool wait = false;                      ///< wait for a project that another process has open
  std::optional<std::string> board;       ///< board to take records from; without it there is none
  std::string format;                     ///< of --format=: `export` writes tables in this format
  std::vector<std::string> tables;        ///< of --only=
  bool extend = false;                    ///< --extend: Vs30 also where 30 m were not seen
  LookOptions look;
  batch::Options batchRun;
  std::string unknownOption;
  /// Program name and the arguments, options taken off: their number chooses the form.
  std::vector<std::string> arguments;
};

}  // namespace sondera
