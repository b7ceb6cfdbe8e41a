// tool_run.h - other programs that check our files: pdfinfo, xmllint and similar.
#pragma once

#include <string>

namespace sondera::test {

/// Result of a run, and its output on both streams.
struct ToolRun {
  int status = -1;
  std::string output;
};

bool HaveTool(const std::string& program);
/// Runs a command of the shell.
ToolRun RunTool(const std::string& command);

}  // namespace sondera::test
