// asavedlg.cpp - see asavedlg.h.
#include "panels/asavedlg.h"

#include <string>

#include "panels/mainmenu_project.h"
#include "project/project_file.h"
#include "project/text_helpers.h"
#include "records/session.h"
#include "runtime/catalogue/asavedlg.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"
#include "runtime/files.h"

namespace sondera {

void AutoSaveDlg() {
  SetCtrlVal(asavedlg::PATHNAME, ProjectDirectory());
  const std::string last = GetCtrlVal(asavedlg::AUTOFILE);
  Tokenizer parts(last, "_");
  const std::string base(parts.Next().value_or(std::string_view()));
  const long long number = ParseInt(parts.Next().value_or(std::string_view()));
  const std::string next = FormatText("%s_%lld", base.c_str(), number + 1);
  SetCtrlVal(asavedlg::FILENAME, next);
  SetCtrlVal(asavedlg::AUTOFILE, next);
  DisplayPanel(Panel::ASAVEDLG);
}

int AutoSaveMeasurements() {
  const std::string path =
      WithClosingSeparator(GetCtrlVal(asavedlg::PATHNAME)) + GetCtrlVal(asavedlg::AUTOFILE) + ".da";
  std::string reason;
  SetWaitCursor(true);
  const bool saved = WriteProjectFile(path, reason);
  SetWaitCursor(false);
  if (!saved) {
    MessagePopup(session.appTitle, "The project could not be saved. " + reason + ".");
    return -1;
  }
  ShowFileTitle(path);
  return 0;
}

int AutoSaveDlgCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit) AutoSaveDlg();
  return 0;
}

int AutoSaveCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? AutoSaveMeasurements() : 0;
}

int ChangePathCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const FileChoice choice = FileSelectPopup({GetCtrlVal(asavedlg::PATHNAME), "*.da", "AutoSave ...", true});
  if (choice.answer == FileAnswer::Cancelled) return -1;
  std::string dir, name;
  ExtractPathFName(choice.path, dir, name);
  SetCtrlVal(asavedlg::PATHNAME, dir);
  SetCtrlVal(asavedlg::FILENAME, name);
  SetCtrlVal(asavedlg::AUTOFILE, name);
  return 0;
}

int AutoSaveCloseCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit) HidePanel(Panel::ASAVEDLG);
  return 0;
}

}  // namespace sondera
