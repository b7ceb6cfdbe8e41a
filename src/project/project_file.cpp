// project_file.cpp - see project_file.h.
#include "project/project_file.h"

#include "forward/model_records.h"
#include "forward/parameters.h"
#include "inversion/inv_records.h"
#include "project/analysis_section.h"
#include "project/load_check.h"
#include "project/measdb.h"
#include "project/modeling_section.h"
#include "project/raw_section.h"
#include "project/session.h"
#include "project/setup_section.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"
#include "runtime/files.h"
#include "runtime/graphs.h"
#include "runtime/panels/meassetup.h"
#include "runtime/panels/sasw.h"
#include "runtime/redraw.h"

namespace sondera {

namespace {

constexpr char kFilter[] = "*.da";
constexpr char kRemoveAll[] = "All the measurements will be removed. Do you want to proceed ?";

/// Makes afresh what the modelling section did not give. The panel follows, since a run takes the panel's
/// layers: it must not keep those of the former project.
void MendModels(int status) {
  if (status == -1) {
    FinalizeFModel();
    InitializeFModel();
  }
  if (status == -1 || status == -2) InitializeTheoDispInfo();
  if (status == -1 || status == -2 || status == -3) InitializeInvAnal();
  if (status != 0) SetFModelParam();
}

/// Measurements whose geometry a damaged file does not give stand at 0. Without any geometry the lists would
/// not count as filled, and the next project would be read into this one.
void CompleteGeometry() {
  for (const IDInfo& id : MeasDB.idList)
    if (MeasDB.measSetupList.findKey(id.key) < 0) SetupMSetupArrays(id.key);
}

/// Reads session.projectFileName. The end state is the same for a file that cannot be opened: an empty
/// project.
int LoadProject() {
  const std::string path = session.projectFileName;
  ProcessSystemEvents();
  session.fileKeyList.clear();
  session.backupHeld = false;
  session.readInPart = true;  // until the end of the load has been reached
  SectionReader file;
  std::string reason;
  const bool opened = file.Open(path, &reason);
  SetWaitCursor(true);
  ReadProjectSections(file);
  file.Close();
  session.readInPart = opened && !file.Trouble().empty();
  SetWaitCursor(false);
  ShowFileTitle(path);
  DoPlotting(0);
  DoPlotting(1);
  if (!opened) {
    MessagePopup(session.appTitle,
                 FileExists(path) || DirectoryExists(path) ? reason + "." : "File does not exist.");
    return -1;
  }
  return TellOutcome(NotReadWhole(path, file), file);
}

/// Copies the present file to "<name>.bkup". True when there is nothing to copy.
bool BackUp(const std::string& path, std::string& reason) {
  return !FileExists(path) || CopyFileAtomic(path, path + ".bkup", reason);
}

/// Steps common to both saves, once the name is settled and may be written. Over a file that was read in part
/// the first save needs its copy, and later ones leave that copy alone: it holds what could not be read.
int SaveProject(bool backUp) {
  const std::string path = session.projectFileName;
  std::string noBackup, reason;
  SetWaitCursor(true);
  const bool backedUp = !backUp || session.backupHeld || BackUp(path, noBackup);
  if (!backedUp && session.readInPart) reason = noBackup;
  const bool saved = reason.empty() && WriteProjectFile(path, reason);
  if (saved) session.backupHeld = session.readInPart;
  SetWaitCursor(false);
  if (!saved) {
    MessagePopup(session.appTitle, "The project could not be saved. " + reason + ".");
    return -1;
  }
  ShowFileTitle(path);
  if (!backedUp)
    MessagePopup(session.appTitle,
                 "The project is saved, but its former state could not be kept. " + noBackup + ".");
  return 0;
}

FileChoice AskForName(const char* title) {
  return FileSelectPopup({ProjectDirectory(), kFilter, title, true});
}

bool MayOverwrite(const FileChoice& choice) {
  return choice.answer != FileAnswer::Exists ||
         ConfirmPopup(session.appTitle, "The file exists. Do you want to overwrite it?");
}

void DeleteAllPlots(Panel panel) {
  for (ControlId control : ControlsOf(panel))
    if (control->kind == ControlKind::Graph) DeleteGraphPlot(static_cast<const GraphControl&>(*control));
}

}  // namespace

int OpenFileProc(const std::string& path) {
  EmptyProjectLists();
  if (!path.empty()) {
    session.projectFileName = path;
    return LoadProject();
  }
  const FileChoice choice = FileSelectPopup({ProjectDirectory(), kFilter, "File Open", false});
  session.projectFileName =
      choice.path;  // none after a cancel: the empty project must not go into the old file
  if (choice.answer == FileAnswer::Exists) return LoadProject();
  if (choice.answer == FileAnswer::IsNew) MessagePopup(session.appTitle, "File does not exist.");
  return -1;
}

int SaveRawData() {
  if (!session.projectFileName.empty()) return SaveProject(true);
  const FileChoice choice = AskForName("File Save");
  if (choice.answer == FileAnswer::Cancelled || !MayOverwrite(choice)) return -1;
  session.projectFileName = choice.path;
  session.readInPart = session.backupHeld = false;
  return SaveProject(choice.answer == FileAnswer::Exists);
}

int SaveAsRawData() {
  const FileChoice choice = AskForName("File Save As");
  if (choice.answer == FileAnswer::Cancelled) return -1;
  session.projectFileName = choice.path;  // Kept: also when the next answer is no
  session.readInPart = session.backupHeld = false;
  if (!MayOverwrite(choice)) return -1;
  return SaveProject(choice.answer == FileAnswer::Exists);
}

bool WriteProjectFile(const std::string& path, std::string& reason) {
  AtomicWriter file(path);
  StoreMHWSetup(file);
  StoreRawData(file);
  StoreAnalysis(file);
  StoreModeling(file);
  const bool written = file.Commit();
  if (!written) reason = file.Reason();
  return written;
}

void ReadProjectSections(SectionReader& file) {
  file.BeginSection("setup");
  ReadMHWSetup(file);
  file.EndSection();
  file.BeginSection("raw data");
  ReadRawData(file);
  file.EndSection();
  file.BeginSection("analysis", true);
  ReadAnalysis(file);
  file.EndSection();
  file.BeginSection("modelling", true);
  MendModels(ReadModeling(file));
  file.EndSection();
  if (!file.Ended() && file.Remaining() > 0)
    file.Note(FormatText("It has %lld bytes that belong to none of its records.",
                         static_cast<long long>(file.Remaining())));
  DropLinesWithoutData(file);
  if (!file.Trouble().empty()) CompleteGeometry();
}

void ShowFileTitle(const std::string& path) {
  SetPanelTitle(Panel::PANEL, session.appTitle + " - " + path);
}

int Load_RawDataCallback(Panel, ControlId, Event, long) {
  return OpenFileProc();
}
int Save_RawDataCallback(Panel, ControlId, Event, long) {
  return SaveRawData();
}
int SaveAs_RawDataCallback(Panel, ControlId, Event, long) {
  return SaveAsRawData();
}
int RecallCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? OpenFileProc() : 0;
}
int SaveRawDataCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? SaveRawData() : 0;
}
int SaveAsRawDataCallback(Panel, ControlId, Event event, long) {
  return event == Event::Commit ? SaveAsRawData() : 0;
}

int NewMeasurementCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  if (!MeasDB.measSetupList.empty()) {
    if (!ConfirmPopup(session.appTitle, kRemoveAll)) return -1;
    EmptyProjectLists();
  }
  ConfirmPopup(session.appTitle, kRemoveAll);  // Kept: asked again, whatever the answer
  for (const RingControl* ring :
       {&sasw::DISPACHNL, &sasw::DISPA_REFCHNL, &sasw::DISPBCHNL, &sasw::DISPB_REFCHNL, &sasw::DISPAID,
        &sasw::DISPBID, &meassetup::NCHANNELS3})
    ClearListCtrl(*ring);
  ClearListCtrl(meassetup::RECLOCLIST);
  for (Panel panel : {Panel::SASW, Panel::DISPCURV, Panel::EXDTHD}) DeleteAllPlots(panel);
  SetActiveTabPage(Panel::PANEL, 0);
  DisplayPanel(Panel::MEASPANEL);
  session.projectFileName.clear();
  session.readInPart = session.backupHeld = false;
  SetPanelTitle(Panel::PANEL, session.appTitle);
  return 0;
}

}  // namespace sondera
