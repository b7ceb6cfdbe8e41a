// uff58_fuzz.cpp - any bytes as universal files. One more bit of the first byte chooses the kind.
#include "import_fuzz.h"
#include "panels/loadtxdata_import.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using sondera::ImportRequest;
  const bool cross = size > 0 && (data[0] & 16) != 0;
  return sondera::fuzz::RunImport(
      cross ? [](const ImportRequest& request) { return sondera::LoadGyx58Data(request); }
            : [](const ImportRequest& request) { return sondera::LoadHyx58Data(request); },
      data, size);
}
