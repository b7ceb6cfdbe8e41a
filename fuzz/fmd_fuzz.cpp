// fmd_fuzz.cpp - any bytes as a parameter file of a forward run (".fmd"): it is read or refused without harm;
// the result can be saved, and the saved file is read again.
#include <cstdint>
#include <string>

#include "demand.h"
#include "memory_file_driver.h"
#include "project/parameters_file.h"
#include "records/model_records.h"
#include "records/run_limits.h"
#include "records/session.h"
#include "runtime/text_reader.h"

using namespace sondera;
using fuzz::Demand;

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  ResetSession();
  InstallFileDriver(&fuzz::memoryFileDriver);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  InitializeFModel();
  const std::string text(reinterpret_cast<const char*>(data), size);
  TextReader file;
  file.OpenMemory(text);
  if (!ReadParametersFrom(file, FModelParam)) {
    Demand(FModelParam.nLayers == 10 && FModelParam.capLayers == 50 && FModelParam.vel.size() == 4000);
    return 0;
  }
  CheckRunSettings(FModelParam);
  const int layers = FModelParam.nLayers, curves = FModelParam.nDispCurves;
  Demand(!WriteParameters(FModelParam, "/nowhere/x.fmd"));
  const std::string saved = fuzz::writtenBytes;
  file.OpenMemory(saved);
  Demand(ReadParametersFrom(file, FModelParam));
  Demand(FModelParam.nLayers == layers && FModelParam.nDispCurves == curves);
  return 0;
}
