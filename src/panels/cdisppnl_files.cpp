// cdisppnl_files.cpp - see cdisppnl_files.h. Owns no state.
#include "panels/cdisppnl_files.h"

#include "records/session.h"
#include "runtime/dialogs.h"
#include "signal/rep_curve_files.h"

namespace sondera {
namespace {

FileChoice AskForFile(const char* filter, const char* title) {
  return FileSelectPopup({ProjectDirectory(), filter, title, true});
}

bool MayOverwrite(const FileChoice& choice) {
  return choice.answer != FileAnswer::Exists ||
         ConfirmPopup(session.appTitle, "File already exists. Do you want to overwrite it ?");
}

}  // namespace

int SaveGCDCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const FileChoice choice = AskForFile("*.gcd", "Save a Global Rep. Dispersion Curve.");
  if (!MayOverwrite(choice)) return -1;
  return ShowRefusal(WriteRepCurveFile(choice.path, RepCurveFile::Global));
}

int SaveICDCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  if (ShowRefusal(CheckArrayCurves()) < 0) return -1;
  const FileChoice choice = AskForFile("*.icd", "Save an Array Rep. Dispersion Curve.");
  if (!MayOverwrite(choice)) return -1;
  return ShowRefusal(WriteRepCurveFile(choice.path, RepCurveFile::Array));
}

int SaveREDCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  if (ShowRefusal(CheckArrayCurves()) < 0) return -1;
  const FileChoice choice = AskForFile("*.red", "Save a Global and Array Rep. Dispersion Curve.");
  if (choice.answer == FileAnswer::Cancelled) return 0;
  return ShowRefusal(WriteRepCurveFile(choice.path, RepCurveFile::Both));
}

}  // namespace sondera
