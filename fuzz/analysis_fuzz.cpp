// analysis_fuzz.cpp - any bytes as an interpretation file (".ia") beside a project of three measurements: it
// loads without harm, and its section can be saved and read again with the same bytes.
#include <cstdint>
#include <string>

#include "demand.h"
#include "memory_file_driver.h"
#include "panels/mainmenu_analysis.h"
#include "project/analysis_section.h"
#include "records/measdb.h"
#include "records/session.h"

using namespace sondera;
using fuzz::Demand;

namespace {

/// Measurements 1 to 3 of 2, 5 and no lines.
void MakeProject() {
  SetupGlobalArrays();
  const int lines[] = {2, 5, 0};
  for (int key = 1; key <= 3; ++key) {
    InsertNewIDInfo("p", std::to_string(key), key);
    SetupHWSetupArrays(key, 2)->nLines = lines[key - 1];
  }
}

std::string Save() {
  Demand(SaveAnalysis("/nowhere/x.ia") == 0);
  return fuzz::writtenBytes;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  ResetSession();
  InstallFileDriver(&fuzz::memoryFileDriver);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  MakeProject();
  SectionReader file;
  file.OpenMemory(data, size);
  LoadAnalysisFrom(file);
  for (const PMeasInfo& p : MeasDB.pMeasList) Demand(p.nDispPoints <= p.capacity());
  const std::string first = Save();

  MakeProject();
  file.OpenMemory(first.data(), first.size());
  file.BeginSection("analysis");
  ReadAnalysis(file);
  file.EndSection();
  Demand(file.Trouble().empty() && file.Remaining() == 0);
  Demand(Save() == first);
  return 0;
}
