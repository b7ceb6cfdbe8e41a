// tool_run.h - other programs that look at our files: pdfinfo, xmllint and the like.
#pragma once

#include <string>

namespace sondera::test {

/// How a run ended, and all that it said on both streams.
struct ToolRun {
  int status = -1;
  std::string output;
};

bool HaveTool(const std::string& program);
/// Runs a command of the shell.
ToolRun RunTool(const std::string& command);

}  // namespace sondera::test
