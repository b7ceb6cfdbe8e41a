// script_files.cpp - see script_files.h.
#include "app/script/script_files.h"

#include <cstdio>

#include "app/commands.h"
#include "app/run_report.h"
#include "app/script/fault.h"
#include "app/script/line.h"
#include "app/script/run.h"
#include "app/shutdown.h"
#include "runtime/paths.h"
#include "runtime/terminal.h"

namespace sondera::script {
namespace {

constexpr std::string_view kStandardInput = "-";

std::string PathOf(const std::string& name) {
  return JoinUnlessAbsolute(CurrentDirectory(), name);
}

Source SourceOf(const std::string& name) {
  return name == kStandardInput ? Source::OfStandardInput() : Source::OfFile(PathOf(name));
}

int Tell(const std::string& name, const Fault& fault) {
  PrintError("sondera: %s: %s\n", name.c_str(), fault.reason.c_str());
  return kNotAllDone;
}

}  // namespace

int RunFile(const std::string& name, const RunOptions& options) {
  if (name != kStandardInput && FileExists(PathOf(name)) && !FileHasHeader(PathOf(name)))
    return ProcessCommands(0, name) == 0 ? kAllDone : kNotAllDone;
  try {
    Source source = SourceOf(name);
    const int status = Run(name, options).run(source);
    QuitApp(status);
    return status;
  } catch (const Fault& fault) {
    QuitApp(kNotAllDone);
    return Tell(name, fault);
  }
}

int CheckFile(const std::string& name) {
  try {
    Source source = SourceOf(name);
    return CheckScript(source, name);
  } catch (const Fault& fault) {
    return Tell(name, fault);
  }
}

}  // namespace sondera::script
