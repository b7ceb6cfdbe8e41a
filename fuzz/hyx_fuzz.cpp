// hyx_fuzz.cpp - any bytes as transfer functions in text.
#include "import_fuzz.h"
#include "panels/loadtxdata_import.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return sondera::fuzz::RunImport(
      [](const sondera::ImportRequest& request) { return sondera::LoadHyxData(request); }, data, size);
}
