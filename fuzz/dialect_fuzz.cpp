// Passes any bytes to a script of the second dialect, after its header. The dictionary is made from the words
// and the catalogue when the target starts. Runs are halted after some polls, so that many iterations do not
// take long.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "app/script/line.h"
#include "app/script/names.h"
#include "app/script/run.h"
#include "app/script/words.h"
#include "app/startup.h"
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

void WriteDictionary(const std::string& path) {
  std::FILE* file = std::fopen(path.c_str(), "w");
  if (!file) abort();
  const auto put = [&](const std::string& text) { std::fprintf(file, "\"%s\"\n", text.c_str()); };
  for (const script::WordForm& form : script::AllForms()) {
    put(std::string(form.word) + " ");
    for (const script::ArgumentSpec& spec : form.named) put(" " + std::string(spec.name) + "=");
    for (const script::ArgumentSpec& spec : form.fixed)
      if (spec.kind == script::Kind::Choice) put(std::string(spec.shown.substr(0, spec.shown.find('|'))));
  }
  for (int p = 0; p < kPanelCount; ++p)
    for (ControlId c : ControlsOf(static_cast<Panel>(p))) put(script::NameOf(*c));
  std::fclose(file);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  const std::string dictionary = FormatText("/tmp/dialect_fuzz_%d.dict", static_cast<int>(getpid()));
  WriteDictionary(dictionary);
  static std::string option = "-dict=" + dictionary;
  static std::vector<char*> arguments(*argv, *argv + *argc);
  arguments.insert(arguments.begin() + 1, option.data());
  arguments.push_back(nullptr);
  *argc += 1;
  *argv = arguments.data();
  return 0;
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
  script::Source checked = script::Source::OfText(text);
  script::CheckScript(checked, "job");
  script::Source source = script::Source::OfText(text);
  script::Run("job", {}).run(source);
  return 0;
}
