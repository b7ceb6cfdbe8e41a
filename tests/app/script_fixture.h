// script_fixture.h - runs scripts of the second dialect in the session of a test and captures their output.
#pragma once

#include <sstream>
#include <string>

#include "app/script/run.h"
#include "runtime/events.h"
#include "support/app_fixture.h"

namespace sondera::testing {

class ScriptTest : public AppTest {
 protected:
  /// Runs lines after the header, which is line 1. The session stays as it is at the end of the script.
  int Run(const std::string& lines) {
    const std::string text = "*sondera 2\n" + lines;
    script::Source source = script::Source::OfText(text);
    ResetEvents();
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    const int status = script::Run("job", {}).run(source);
    out = ::testing::internal::GetCapturedStdout();
    TakeErrors(::testing::internal::GetCapturedStderr());
    return status;
  }
  int Check(const std::string& lines) {
    const std::string text = "*sondera 2\n" + lines;
    script::Source source = script::Source::OfText(text);
    ::testing::internal::CaptureStderr();
    const int status = script::CheckScript(source, "job");
    err = ::testing::internal::GetCapturedStderr();
    return status;
  }
  std::string Read(const std::string& name) {
    std::ifstream in(folder.File(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  std::string out, err;  ///< err: messages about lines of the script
  std::string report;    ///< report at the end of the run

 private:
  void TakeErrors(const std::string& text) {
    err.clear();
    report.clear();
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
      (line.starts_with("job:") || line.starts_with("sondera:") ? err : report) += line + "\n";
  }
};

}  // namespace sondera::testing
