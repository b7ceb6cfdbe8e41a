// tool_run.cpp - see tool_run.h.
#include "support/tool_run.h"

#include <array>
#include <cstdio>

namespace sondera::test {

ToolRun RunTool(const std::string& command) {
  ToolRun run;
  std::FILE* pipe = popen(("{ " + command + "; } 2>&1").c_str(), "r");
  if (!pipe) return run;
  std::array<char, 4096> room;
  for (std::size_t n = 0; (n = std::fread(room.data(), 1, room.size(), pipe)) > 0;)
    run.output.append(room.data(), n);
  run.status = pclose(pipe);
  return run;
}

bool HaveTool(const std::string& program) {
  return RunTool("command -v " + program).status == 0;
}

}  // namespace sondera::test
