// project_file.cpp - see project_file.h.
#include "project/project_file.h"

#include <new>
#include <utility>

#include "panels/entry_lists.h"
#include "panels/fmodeling_records.h"
#include "project/analysis_section.h"
#include "project/load_check.h"
#include "project/modeling_section.h"
#include "project/project_copies.h"
#include "project/raw_section.h"
#include "project/setup_section.h"
#include "records/inv_records.h"
#include "records/measdb.h"
#include "records/model_records.h"
#include "records/session.h"
#include "runtime/catalogue/meassetup.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"
#include "runtime/files.h"
#include "runtime/graphs.h"
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
    ClearEntryLists();
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

/// Reads session.projectFileName. A file that cannot be opened leaves an empty project; when it is there all
/// the same, that project has no name.
int LoadProject() {
  const std::string path = session.projectFileName;
  ProcessSystemEvents();
  session.fileKeyList.clear();
  // Until the end of the load has been reached, there is more in the file than in memory.
  session.readInPart = MayExist(path);
  ForgetDamagedProject();
  if (session.readInPart) RememberDamagedProject(path);
  SectionReader file;
  std::string reason;
  const bool opened = file.Open(path, &reason);
  SetWaitCursor(true);
  ReadProjectSections(file);
  file.Close();
  session.readInPart = opened && !file.Trouble().empty();
  if (opened && !session.readInPart) ForgetDamagedProject();
  SetWaitCursor(false);
  const bool outOfReach = !opened && MayExist(path);
  if (outOfReach) {
    LeaveProjectFile();
    SetPanelTitle(Panel::PANEL, session.appTitle);
  } else {
    ShowFileTitle(path);
  }
  DoPlotting(0);
  DoPlotting(1);
  if (!opened) return Refuse(outOfReach ? reason + "." : "File does not exist.");
  return TellOutcome(NotReadWhole(path, file), file);
}

/// A save that runs out of memory has failed like any other.
template <class Save>
bool WithMemory(std::string& reason, Save save) try {
  return save();
} catch (const std::bad_alloc&) {
  reason = "There is not enough memory to write it";
  return false;
}

/// Steps common to both saves, once the name is settled and may be written.
int SaveProject(bool backUp) {
  const std::string path = session.projectFileName;
  std::string noBackup, reason;
  SetWaitCursor(true);
  bool backedUp = true;
  const bool saved = WithMemory(reason, [&] {
    if (!LockProject(path, reason)) return false;
    backedUp = !backUp || BackUpProject(path, noBackup);
    return WriteProjectFile(path, reason);
  });
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

int OpenFileProc(const std::string& path, OpenFor purpose) {
  std::string reason;
  const auto mayOpen = [&](const std::string& file) {
    if (purpose == OpenFor::Work && FileExists(file)) return LockProject(file, reason);
    session.projectLock.Release();
    return true;
  };
  if (!path.empty()) {
    if (!mayOpen(path)) return Refuse(reason + ".");
    EmptyProjectLists();
    session.projectFileName = path;
    return LoadProject();
  }
  EmptyProjectLists();
  const FileChoice choice = FileSelectPopup({ProjectDirectory(), kFilter, "File Open", false});
  LeaveProjectFile();  // after a cancel the empty project must not go into the old file
  if (choice.answer == FileAnswer::Exists && !mayOpen(choice.path)) return Refuse(reason + ".");
  session.projectFileName = choice.path;
  if (choice.answer == FileAnswer::Exists) return LoadProject();
  if (choice.answer == FileAnswer::IsNew) MessagePopup(session.appTitle, "File does not exist.");
  return -1;
}

bool LockProject(const std::string& path, std::string& reason) {
  if (session.projectLock.Held() && session.projectLock.Target() == path) return true;
  LockFile lock;
  const bool mayGoOn = LockFile::MayGoOn(lock.Acquire(path));
  if (!mayGoOn) reason = lock.Reason();
  if (mayGoOn) session.projectLock = std::move(lock);
  return mayGoOn;
}

void LeaveProjectFile() {
  session.projectFileName.clear();
  session.projectLock.Release();
}

int SaveRawData() {
  if (!session.projectFileName.empty()) return SaveProject(true);
  const FileChoice choice = AskForName("File Save");
  if (choice.answer == FileAnswer::Cancelled || !MayOverwrite(choice)) return -1;
  session.projectFileName = choice.path;
  session.readInPart = false;
  return SaveProject(choice.answer == FileAnswer::Exists);
}

int SaveAsRawData() {
  const FileChoice choice = AskForName("File Save As");
  if (choice.answer == FileAnswer::Cancelled) return -1;
  session.projectFileName = choice.path;  // Kept: also when the next answer is no
  session.readInPart = false;
  if (!MayOverwrite(choice)) return -1;
  return SaveProject(choice.answer == FileAnswer::Exists);
}

void StoreProject(AtomicWriter& file) {
  StoreMHWSetup(file);
  StoreRawData(file);
  StoreAnalysis(file);
  StoreModeling(file);
}

bool WriteProjectFile(const std::string& path, std::string& reason) {
  return WithMemory(reason, [&] {
    LockFile lock;  // the session's own, when this is its project
    if (!LockFile::MayGoOn(lock.Acquire(path))) {
      reason = lock.Reason();
      return false;
    }
    if (!KeepDamagedProject(path, reason)) return false;
    AtomicWriter file(path);
    StoreProject(file);
    const bool written = file.Commit();
    if (!written) reason = file.Reason();
    return written;
  });
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
  LeaveProjectFile();
  session.readInPart = false;
  ForgetDamagedProject();
  SetPanelTitle(Panel::PANEL, session.appTitle);
  return 0;
}

}  // namespace sondera
