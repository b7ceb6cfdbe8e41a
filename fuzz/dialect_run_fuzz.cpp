// Runs any bytes as a script of the second dialect, after its header, in a folder with one small record. Runs
// are halted after some polls, so that many iterations do not take long. See dialect_fuzz for the reading alone,
// which is much quicker.
#include <cstddef>
#include <cstdint>
#include <string>

#include "app/script/line.h"
#include "app/script/run.h"
#include "app/startup.h"
#include "dialect_dictionary.h"
#include "one_folder.h"
#include "records/session.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"

namespace {

using namespace sondera;

constexpr int kMostPolls = 20;
int polls = 0;

void CountPoll() {
  if (++polls > kMostPolls && !InterruptRequested()) RequestInterrupt();
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  return fuzz::UseDictionary(argc, argv);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (fuzz::folder.empty()) fuzz::EnterFolder();
  FrontEnd none;
  none.processEvents = CountPoll;
  InstallFrontEnd(none);
  StartSession();
  session.projectFileName = fuzz::folder + "/fuzzed.da";
  polls = 0;
  std::string text = std::string(script::kHeader) + "\n";
  text.append(reinterpret_cast<const char*>(data), size);
  script::Source source = script::Source::OfText(text);
  script::Run("job", {}).run(source);
  return 0;
}
