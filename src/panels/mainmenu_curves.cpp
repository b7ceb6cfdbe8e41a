// mainmenu_curves.cpp - see mainmenu_curves.h. Owns no state.
#include "panels/mainmenu_curves.h"

#include "panels/loadtxdata_import.h"
#include "panels/sasw_pair.h"
#include "project/exd_files.h"
#include "project/text_helpers.h"
#include "records/session.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/meassetup.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"
#include "runtime/redraw.h"

namespace sondera {
namespace {

constexpr int kIdLength = 80;
constexpr int kDispersionTab = 2;

}  // namespace

std::string ReadExdCurves(TextReader& text, const std::string& fname) {
  ExdQuestions questions;
  questions.projID = GetCtrlVal(hmsetup::PROJID);
  questions.mayOverwrite = AskToOverwrite;
  questions.newMeasID = [] {
    return PromptPopup(session.appTitle, "Please enter a new measurement ID.", kIdLength);
  };
  questions.made = ShowMeasurement;
  questions.makePair = [](const std::string& measID, const HWSetup& hw) {
    PMeasInfo* pair = nullptr;
    SetupPMeasDataNode(session.curProjID, measID, 0, 1, hw, pair);
    return pair;
  };
  const ExdOutcome outcome = ReadExdCurves(text, fname, questions);
  if (outcome.lengthUnit) SetCtrlVal(meassetup::LENGTHUNIT, *outcome.lengthUnit);
  return outcome.trouble;
}

int LoadExdData(const std::string& path, const std::string& fname) {
  TextReader text;
  if (!text.Open(path)) return Refuse("Error in reading the file.");
  SetWaitCursor(true);
  const std::string trouble = ReadExdCurves(text, fname);
  SetWaitCursor(false);
  DispCurvPlot(1);
  return trouble.empty() ? 0 : Refuse("The file " + path + " was not read whole. " + trouble);
}

int ExportExdData(const std::string& path) {
  return ShowRefusal(WriteExdCurves(path));
}

int LoadExdFileMenuCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const FileChoice choice =
      FileSelectPopup({ProjectDirectory(), "*.exd", "Load EXD file from Sondera Ver 1.", false});
  if (choice.answer == FileAnswer::IsNew) return Refuse("File does not exist.");
  if (choice.answer != FileAnswer::Exists) return -1;
  const int result = LoadExdData(choice.path, ExtractFName(choice.path));
  SetActiveTabPage(Panel::PANEL, kDispersionTab);
  DisplayPanel(Panel::DISPCURV);
  DisplayPanel(Panel::MEASSETUP);
  return result;
}

int Export_ExdDataCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const FileChoice choice =
      FileSelectPopup({ProjectDirectory(), "*.exd", "Export Experimental Dispersion Curve.", true});
  if (choice.answer == FileAnswer::Cancelled) return -1;
  if (choice.answer == FileAnswer::Exists &&
      !ConfirmPopup(session.appTitle, "File already exists. Do you want to overwrite it ?"))
    return -1;
  return ExportExdData(choice.path);
}

}  // namespace sondera
