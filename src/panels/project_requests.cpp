// project_requests.cpp - see project_requests.h. Owns no state.
#include "panels/project_requests.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "panels/mainmenu_project.h"
#include "panels/panels_state.h"
#include "project/project_file.h"
#include "records/session.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/controls.h"
#include "runtime/dialogs.h"
#include "runtime/paths.h"

namespace sondera {

namespace fs = std::filesystem;

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

std::string RescueProjectFile() {
  if (panelsState.loading || !ProjectDiffersFromSaved()) return {};
  const fs::path project = session.projectFileName;
  const std::string stem = project.empty() ? std::string("unsaved") : project.stem().string();
  const char* const home = std::getenv("HOME");
  const fs::path folders[] = {project.empty() ? fs::path(CurrentDirectory()) : project.parent_path(),
                              fs::path(home ? home : ""), fs::path("/tmp")};
  constexpr int kMostRescued = 100;
  for (const fs::path& folder : folders) {
    for (int k = 1; k <= kMostRescued; ++k) {
      const fs::path path =
          folder / (stem + ".rescued" + (k == 1 ? std::string() : std::to_string(k)) + ".da");
      std::error_code error;
      if (fs::symlink_status(path, error).type() != fs::file_type::not_found) continue;
      std::string reason;
      if (WriteProjectFile(path.string(), reason)) return path.string();
      break;  // another name does not help in this folder
    }
  }
  return {};
}

}  // namespace sondera
