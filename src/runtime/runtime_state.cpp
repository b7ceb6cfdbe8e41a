// runtime_state.cpp - see runtime_state.h.
#include "runtime/runtime_state.h"

#include "runtime/controls.h"
#include "runtime/events.h"
#include "runtime/findings.h"
#include "runtime/graphs.h"
#include "runtime/written_files.h"

namespace sondera {

void ResetRuntimeState() {
  ResetEvents();
  ClearFindings();
  ClearWrittenFiles();
  ResetControls();
  ResetGraphs();
}

}  // namespace sondera
