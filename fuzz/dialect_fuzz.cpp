// Checks any bytes as a script of the second dialect, after its header, as `sondera check` does: nothing is
// run. Each line that can be read is written as a log writes it, and read again: both have to be the same.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "app/script/fault.h"
#include "app/script/line.h"
#include "app/script/run.h"
#include "app/script/words.h"
#include "app/startup.h"
#include "dialect_dictionary.h"
#include "runtime/dialogs.h"

namespace {

using namespace sondera;

/// The line of a log; empty for a line without effect, or that cannot be read.
std::string LogLineOf(const std::string& text) {
  try {
    script::Line line;
    script::SplitLine(text, line);
    return line.word.empty() ? "" : script::LineOf(script::Bind(line));
  } catch (const script::Fault&) {
    return "";
  }
}

void CheckLogLine(const std::string& text) {
  const std::string logged = LogLineOf(text);
  if (logged.empty() || logged.size() > script::kLongestLine) return;
  if (LogLineOf(logged) == logged) return;
  std::printf("%s\n%s\n%s\n", text.c_str(), logged.c_str(), LogLineOf(logged).c_str());
  abort();
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  InstallFrontEnd({});
  StartSession();
  return fuzz::UseDictionary(argc, argv);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string text = std::string(script::kHeader) + "\n";
  text.append(reinterpret_cast<const char*>(data), size);
  script::Source checked = script::Source::OfText(text);
  script::CheckScript(checked, "job");
  script::Source lines = script::Source::OfText(text);
  std::string line;
  for (bool more = true; more;) {
    try {
      more = lines.Next(line);
      if (more) CheckLogLine(line);
    } catch (const script::Fault&) {  // a line that is too long
    }
  }
  return 0;
}
