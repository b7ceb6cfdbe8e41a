// project_fuzz.cpp - any bytes as a project file: it loads without harm, and what was loaded can be saved and
// loaded again, whole and with the same bytes.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "memory_file_driver.h"
#include "project/measdb.h"
#include "project/project_file.h"
#include "project/session.h"
#include "runtime/controls.h"

using namespace sondera;

namespace {

void Demand(bool holds) {
  if (!holds) std::abort();
}

/// Reads bytes into an empty database; what was wrong.
std::string Load(const void* bytes, std::size_t size) {
  SetupGlobalArrays();
  session.fileKeyList.clear();
  SectionReader file;
  file.OpenMemory(bytes, size);
  ReadProjectSections(file);
  return file.Trouble();
}

std::string Save() {
  std::string reason;
  Demand(WriteProjectFile("/nowhere/x.da", reason));
  return fuzz::writtenBytes;
}

/// Project texts that a save changes: bars of their own end them, long ones are cut.
bool HasUnsteadyTexts() {
  for (const IDInfo& id : MeasDB.idList)
    if (id.ProjID.find('|') != std::string::npos || id.ProjID.size() > 240) return true;
  return false;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  ResetSession();
  ResetControls();
  InstallFileDriver(&fuzz::memoryFileDriver);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Load(data, size);
  const bool steady = !HasUnsteadyTexts();
  const std::string first = Save();
  if (!steady) return 0;
  Demand(Load(first.data(), first.size()).empty());
  Demand(Save() == first);
  return 0;
}
