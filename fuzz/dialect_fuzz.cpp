// Checks any bytes as a script of the second dialect, after its header, as `sondera check` does: nothing is
// run. Each line that can be read is written as a log writes it, and read again: both have to be the same.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "app/script/fault.h"
#include "app/script/line.h"
#include "app/script/run.h"
#include "app/script/words.h"
#include "app/startup.h"
#include "demand.h"
#include "dialect_dictionary.h"
#include "runtime/dialogs.h"

namespace {

using namespace sondera;
using fuzz::Demand;

/// The line of a log; empty for a line without effect, no value for one that cannot be read.
std::optional<std::string> LogLineOf(const std::string& text) {
  try {
    script::Line line;
    script::SplitLine(text, line);
    return line.word.empty() ? "" : script::LineOf(script::Bind(line));
  } catch (const script::Fault&) {
    return std::nullopt;
  }
}

/// Whether the line can be read.
bool CheckLine(const std::string& text) {
  const auto logged = LogLineOf(text);
  if (!logged || logged->empty() || logged->size() > script::kLongestLine) return logged.has_value();
  const auto again = LogLineOf(*logged);
  Demand(again == logged, text + "\n" + *logged + "\n" + again.value_or("(a fault)"));
  return true;
}

/// Lines that cannot be read, the header left out.
int CountFaults(const std::string& text) {
  script::Source lines = script::Source::OfText(text);
  std::string line;
  int faults = 0;
  for (bool more = true; more;) {
    try {
      more = lines.Next(line);
      if (more && lines.Number() > 1 && !CheckLine(line)) ++faults;
    } catch (const script::Fault&) {  // a line that is too long
      ++faults;
    }
  }
  return faults;
}

/// A fault searches the catalogue for a similar name, which takes most of the time: once is enough for many.
constexpr int kFewFaults = 2;

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  InstallFrontEnd({});
  StartSession();
  return fuzz::UseDictionary(argc, argv);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string text = std::string(script::kHeader) + "\n";
  text.append(reinterpret_cast<const char*>(data), size);
  const int faults = CountFaults(text);
  if (faults > kFewFaults) return 0;
  script::Source checked = script::Source::OfText(text);
  Demand((script::CheckScript(checked, "job") == 0) == (faults == 0));
  return 0;
}
