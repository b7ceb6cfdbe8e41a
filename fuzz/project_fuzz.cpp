// project_fuzz.cpp - any bytes as a project file: it loads without harm, and the result can be saved and
// loaded again, completely and with the same bytes.
#include <cstdint>
#include <string>

#include "demand.h"
#include "memory_file_driver.h"
#include "panels/mainmenu_project.h"
#include "project/analysis_section.h"
#include "project/modeling_section.h"
#include "project/project_file.h"
#include "project/raw_section.h"
#include "project/setup_section.h"
#include "records/inv_records.h"
#include "records/measdb.h"
#include "records/model_records.h"
#include "records/session.h"
#include "runtime/controls.h"

using namespace sondera;
using fuzz::Demand;

namespace {

/// Reads bytes into an empty database; returns the problems. Records that are not in the file stay empty
/// here: their first values are megabytes of zeros, which would cost most of the time.
std::string Load(const void* bytes, std::size_t size) {
  SetupGlobalArrays();
  session.fileKeyList.clear();
  SectionReader file;
  file.OpenMemory(bytes, size);
  file.BeginSection("setup");
  ReadMHWSetup(file);
  file.EndSection();
  ReadRawData(file);
  file.EndSection();
  file.BeginSection("analysis", true);
  ReadAnalysis(file);
  file.EndSection();
  file.BeginSection("modelling", true);
  const int status = ReadModeling(file);
  file.EndSection();
  if (status == -1) FinalizeFModel();
  if (status == -1 || status == -2) FinalizeTheoDispInfo();
  if (status < 0 && status > -5) FinalizeInvAnal();
  return file.Trouble();
}

std::string Save() {
  std::string reason;
  Demand(WriteProjectFile("/nowhere/x.da", reason), reason);
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
  const std::string trouble = Load(first.data(), first.size());
  Demand(trouble.empty(), "saved and loaded: " + trouble);
  Demand(Save() == first, "the second save differs");
  return 0;
}
