// parameters.cpp - see parameters.h. The bodies are to be filled in: until then a session runs without the dialogs
// being refreshed.
#include "acquisition/parameters.h"

namespace sondera {

void InitHWSetup(HWSetup&) {}
void InitMeasSetup(MeasSetup&) {}
void InitRawData(RawData&) {}
void UpdateHWSetup(const std::string&, const std::string&) {}
void UpdateMeasSetup(const std::string&, const std::string&, int) {}

}  // namespace sondera
