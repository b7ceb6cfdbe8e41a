// records_state.cpp - see records_state.h.
#include "records/records_state.h"

#include "records/inv_records.h"
#include "records/measdb.h"
#include "records/model_records.h"
#include "records/session.h"

namespace sondera {

void ResetRecordsState() {
  ResetSession();
  SetupGlobalArrays();
  InitializeFModel();
  InitializeTheoDispInfo();
  InitializeInvAnal();
}

}  // namespace sondera
