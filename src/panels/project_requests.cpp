// project_requests.cpp - see project_requests.h. Owns no state.
#include "panels/project_requests.h"

#include "panels/mainmenu_project.h"
#include "project/project_file.h"
#include "project/section_io.h"
#include "records/session.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/controls.h"
#include "runtime/dialogs.h"
#include "runtime/paths.h"

namespace sondera {

int OpenProjectFile(const std::string& path) {
  if (!FileExists(path)) return Refuse("File does not exist.");
  std::string reason;
  if (!LockProject(path, reason)) return Refuse(reason + ".");
  OneShotAnswers answers;
  answers.File({FileAnswer::Exists, path});
  return Commit(mainmenu::LOAD_RAW_DATA);
}

int AskAndOpenProjectFile() {
  const FileChoice choice = FileSelectPopup({ProjectDirectory(), "*.da", "File Open", false});
  return choice.answer == FileAnswer::Cancelled ? -1 : OpenProjectFile(choice.path);
}

int SaveProjectFile() {
  return Commit(measpanel::F6);
}

}  // namespace sondera
