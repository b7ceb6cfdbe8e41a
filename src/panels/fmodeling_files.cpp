// fmodeling_files.cpp - see fmodeling_files.h.
#include "panels/fmodeling_files.h"

#include "project/curve_file.h"
#include "project/parameters_file.h"
#include "records/model_records.h"
#include "records/session.h"
#include "run/measured_curves.h"
#include "run/run_state.h"
#include "runtime/dialogs.h"
#include "runtime/text_format.h"

namespace sondera {

int RetrieveDispCurvInfoFromMemory() {
  int leftOut = 0;
  if (ShowRefusal(TakeCurvesInMemory(FModelParam, run.switches, leftOut)) < 0) return -1;
  if (leftOut > 0)
    MessagePopup(session.appTitle,
                 FormatText("%d points of the array curves are left out: the first curve has no point at "
                            "their frequencies.",
                            leftOut));
  return 0;
}

int RetrieveDispCurvInfoFromFile(const std::string& path) {
  return ShowRefusal(ReadCurves(path, FModelParam, run.switches));
}

void RetrieveDispCurvInfoFromTable() {}

int SaveFModelParam(const std::string& path) {
  return ShowRefusal(WriteParameters(FModelParam, path));
}

int ReadFModelParam(const std::string& path) {
  return ShowRefusal(ReadParameters(path, FModelParam));
}

}  // namespace sondera
