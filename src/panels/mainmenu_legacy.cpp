// mainmenu_legacy.cpp - see mainmenu_legacy.h. Owns no state.
#include "panels/mainmenu_legacy.h"

#include "panels/mainmenu_project.h"
#include "panels/trace_selection.h"
#include "project/legacy_files.h"
#include "project/project_file.h"
#include "project/text_helpers.h"
#include "records/session.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"
#include "runtime/files.h"
#include "runtime/redraw.h"

namespace sondera {
namespace {

constexpr char kRemoveAll[] = "All the measurements will be removed. Do you want to proceed ?";
constexpr char kNotThere[] = "File does not exist.";

/// Opens a file, or says why not.
bool OpenOrTell(SectionReader& file, const std::string& path) {
  std::string reason;
  if (file.Open(path, &reason)) return true;
  Refuse(FileExists(path) || DirectoryExists(path) ? reason + "." : kNotThere);
  return false;
}

/// 0; or a message for a file with problems, and -1.
int Outcome(const std::string& path, const SectionReader& file) {
  return TellOutcome("The file " + path + " was not read whole. " + file.Trouble(), file);
}

FileChoice Ask(const char* title, const char* filter, bool forSaving) {
  return FileSelectPopup({ProjectDirectory(), filter, title, forSaving});
}

}  // namespace

void ReadLegacySetups(SectionReader& file) {
  session.curProjID = GetCtrlVal(hmsetup::PROJID);
  const GeometryRead geometry = ReadLegacySetups(file, AskDuringLoad());
  ShowSetups({geometry, geometry.whole, !session.fileKeyList.empty()});
}

int LoadMHWSetup(const std::string& path) {
  SectionReader file;
  if (!OpenOrTell(file, path)) return -1;
  ReadLegacySetups(file);
  return Outcome(path, file);
}

int SaveMHWSetup(const std::string& path, const std::string& measID) {
  return ShowRefusal(WriteLegacySetups(path, measID));
}

int Save_RawData(const std::string& path, const std::string& measID) {
  return ShowRefusal(WriteLegacyRawData(path, measID));
}

int Load_MHWSetupCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  if (!ConfirmPopup(session.appTitle, kRemoveAll)) return -1;
  EmptyProjectLists();
  LeaveProjectFile();
  const FileChoice choice = Ask("Load the Measurement and Hardware Setup", "*.sms", false);
  RefreshWindowTitle();
  if (choice.answer == FileAnswer::IsNew) return Refuse(kNotThere);
  return choice.answer == FileAnswer::Exists ? LoadMHWSetup(choice.path) : -1;
}

int Save_MHWSetupCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const FileChoice choice = Ask("Save the Measurement and Hardware Setup", "*.sms", true);
  if (choice.answer == FileAnswer::Cancelled) return -1;
  if (choice.answer == FileAnswer::Exists &&
      !ConfirmPopup(session.appTitle, "File already exists. Do you want to overwrite it ?"))
    return -1;
  return SaveMHWSetup(choice.path, {});
}

int Load_PrevRawDataCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const FileChoice choice = Ask("Open File", "*.srd", false);
  if (choice.answer == FileAnswer::IsNew) return Refuse(kNotThere);
  SectionReader file;
  if (choice.answer != FileAnswer::Exists || !OpenOrTell(file, choice.path)) return -1;
  // Without complete setups the shape of the data is unknown.
  if (LoadMHWSetup(PlaceFileExtName(choice.path, "sms")) < 0) return -1;
  SetWaitCursor(true);
  ReadLegacyRawData(file);
  SetWaitCursor(false);
  DoPlotting(kMaskingPage);
  return Outcome(choice.path, file);
}

}  // namespace sondera
