// mainmenu_analysis.cpp - see mainmenu_analysis.h. Owns no state.
#include "panels/mainmenu_analysis.h"

#include "panels/mainmenu_project.h"
#include "panels/undo.h"
#include "project/analysis_section.h"
#include "records/session.h"
#include "runtime/dialogs.h"

namespace sondera {

int SaveAnalysis(const std::string& path) {
  return ShowRefusal(WriteAnalysis(path));
}

int LoadAnalysis(const std::string& path) {
  SectionReader file;
  std::string reason;
  if (!file.Open(path, &reason)) {
    MessagePopup(session.appTitle, reason + ".");
    return -1;
  }
  ForgetUndo();
  LoadAnalysisFrom(file);
  return TellOutcome(NotReadWhole(path, file), file);
}

int Save_Analysis(Panel, ControlId, Event, long) {
  const FileChoice choice =
      FileSelectPopup({ProjectDirectory(), "*.ia", "Save Interpretation and Analysis", true});
  if (choice.answer == FileAnswer::Cancelled) return 0;
  if (choice.answer == FileAnswer::Exists &&
      !ConfirmPopup(session.appTitle, "File already exists. Do you want to overwrite it ?"))
    return 0;
  return SaveAnalysis(choice.path);
}

int Load_Analysis(Panel, ControlId, Event, long) {
  const FileChoice choice =
      FileSelectPopup({ProjectDirectory(), "*.ia", "Load Interpretation and Analysis", false});
  if (choice.answer == FileAnswer::Cancelled) return 0;
  if (choice.answer == FileAnswer::Exists) return LoadAnalysis(choice.path);
  MessagePopup(session.appTitle, "File does not exist.");
  return -1;
}

}  // namespace sondera
