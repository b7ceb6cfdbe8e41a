// Passes any bytes to the command script. The session starts again each time, in a folder with one small
// record; a file driver prevents writing anywhere else.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "app/commands.h"
#include "app/startup.h"
#include "one_folder.h"
#include "records/session.h"

using namespace sondera;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (fuzz::folder.empty()) fuzz::EnterFolder();
  StartSession();
  session.projectFileName = "fuzzed.da";
  ProcessScriptText({reinterpret_cast<const char*>(data), size});
  return 0;
}
