// legacy_fuzz.cpp - any bytes as a setup file and a raw data file of earlier versions. The first two bytes
// are the length of the setup file; the raw data follow it. The result can be saved and read again without
// problems.
#include <algorithm>
#include <cstdint>
#include <string>

#include "demand.h"
#include "memory_file_driver.h"
#include "panels/mainmenu_legacy.h"
#include "project/legacy_files.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/controls.h"
#include "runtime/dialogs.h"

using namespace sondera;
using fuzz::Demand;

namespace {

std::string LoadSetups(const void* bytes, std::size_t size) {
  SectionReader file;
  file.OpenMemory(bytes, size);
  ReadLegacySetups(file);
  return file.Trouble();
}

std::string SaveSetups() {
  Demand(SaveMHWSetup("/nowhere/x.sms", "") == 0, "the setups cannot be saved");
  return fuzz::writtenBytes;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  ResetSession();
  ResetControls();
  InstallFileDriver(&fuzz::memoryFileDriver);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const std::size_t setups = std::min<std::size_t>(data[0] + 256u * data[1], size - 2);
  SetupGlobalArrays();
  LoadSetups(data + 2, setups);
  SectionReader raw;
  raw.OpenMemory(data + 2 + setups, size - 2 - setups);
  ReadLegacyRawData(raw);
  Demand(MeasDB.idList.count() == MeasDB.hwSetupList.count(), "a measurement without hardware");
  const std::string first = SaveSetups();
  SetupGlobalArrays();
  const std::string trouble = LoadSetups(first.data(), first.size());
  Demand(trouble.empty(), "saved and loaded: " + trouble);
  Demand(SaveSetups() == first, "the second save differs");
  return 0;
}
