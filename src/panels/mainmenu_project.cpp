// mainmenu_project.cpp - see mainmenu_project.h.
#include "panels/mainmenu_project.h"

#include <algorithm>
#include <functional>
#include <new>
#include <optional>
#include <utility>

#include "panels/dispcurv_page.h"
#include "panels/entry_lists.h"
#include "panels/fmodeling_records.h"
#include "panels/forward_run.h"
#include "panels/hwsetup.h"
#include "panels/inversion.h"
#include "panels/loadtxdata_import.h"
#include "panels/meassetup.h"
#include "panels/panels_state.h"
#include "panels/tmgrafpnl.h"
#include "panels/trace_selection.h"
#include "panels/undo.h"
#include "project/load_check.h"
#include "project/modeling_section.h"
#include "project/project_copies.h"
#include "project/project_file.h"
#include "records/measdb.h"
#include "records/model_records.h"
#include "records/session.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/meassetup.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"
#include "runtime/files.h"
#include "runtime/graphs.h"
#include "runtime/redraw.h"

namespace sondera {
namespace {

constexpr int kBothTraces = 2;
constexpr char kFilter[] = "*.da";
constexpr char kRemoveAll[] = "All the measurements will be removed. Do you want to proceed ?";

/// Updates the lists of results, the curve lists and the panel of the forward model from the records. A run
/// reads the panel's layers: they must not be those of the former project.
void ShowModels(const EntryNumbers& entries, bool whole) {
  ShowEntryLists(entries);
  if (whole) {
    // Every run prepares TheoDispInfo itself, which empties its curves. Here only the lists are needed: the
    // curves of the last run are in the file to be seen again, and the next save must write the same bytes.
    ModelRecord read = TheoDispInfo;
    static_cast<void>(ResetTheoDispInfo());
    TheoDispInfo = std::move(read);
  }
  SetFModelParam();
}

void DeleteAllPlots(Panel panel) {
  for (ControlId control : ControlsOf(panel))
    if (control->kind == ControlKind::Graph) DeleteGraphPlot(static_cast<const GraphControl&>(*control));
}

/// Panels that hold values of a pair or a run of the former project: "Apply" or "Run" would take them into the new one.
void HidePanelsOfData() {
  for (const Panel panel :
       {Panel::IRFSETPNL, Panel::GABORPNL, Panel::CDISPPNL, Panel::INVERSION, Panel::ANALRESULT})
    if (IsPanelShown(panel)) HidePanel(panel);
}

/// No list names, and no graph shows, data that no longer exist.
void ShowEmptyPages() {
  ForgetUndo();
  ForgetSection();
  HidePanelsOfData();
  for (const RingControl* ring :
       {&sasw::DISPACHNL, &sasw::DISPA_REFCHNL, &sasw::DISPBCHNL, &sasw::DISPB_REFCHNL, &sasw::DISPAID,
        &sasw::DISPBID, &measpanel::DISPACHNL, &measpanel::DISPA_REFCHNL, &measpanel::DISPBCHNL,
        &measpanel::DISPB_REFCHNL, &measpanel::DISPAID, &measpanel::DISPBID, &meassetup::NCHANNELS3})
    ClearListCtrl(*ring);
  ClearListCtrl(meassetup::RECLOCLIST);
  for (const Panel panel : {Panel::SASW, Panel::MEASPANEL}) FillMeasIDListBox(panel, session.curProjID);
  for (const Panel panel : {Panel::MEASPANEL, Panel::SASW, Panel::DISPCURV}) DeleteAllPlots(panel);
  EmptyResultsPage();
  FillCurveLists();
}

bool HasData(const MeasRecords& r) {
  if (r.rawPos < 0) return false;
  for (const auto* block : {&r.rawData->timeHist, &r.rawData->crossSpecRe, &r.rawData->powerSpec})
    if (std::any_of(block->begin(), block->end(), [](double v) { return v != 0.0; })) return true;
  return false;
}

bool HasPlaces(const MeasRecords& r) {
  return r.measPos > 0 &&
         (r.measSetup->srcLoc != 0.0 || std::any_of(r.measSetup->recLoc.begin(), r.measSetup->recLoc.end(),
                                                    [](double v) { return v != 0.0; }));
}

/// The first measurement of a file is shown; if it is empty, the first one with data.
void ShowMeasurementWithData() {
  MeasRecords shown;
  if (GetInfoFromKey(GetKeyFromID(session.curProjID, session.curMeasID), shown) == -1) return;
  if (HasData(shown) || HasPlaces(shown)) return;
  for (const MeasSetup& setup : MeasDB.measSetupList) {
    MeasRecords r;
    if (GetInfoFromKey(setup.key, r) == -1 || r.hwPos < 0 || !HasData(r)) continue;
    UpdateMeasSetup(r.projID, r.measID, kBothTraces);
    UpdateHWSetup(r.projID, r.measID);
    return;
  }
}

/// The last two pages: they show nothing of the former project. Their curves are drawn when a page comes to the front,
/// or now where it is there.
void ShowCurvesAndResults() {
  constexpr int kDispersionPage = 2, kResultsPage = 3;
  DeleteAllPlots(Panel::DISPCURV);
  ShowStoredResults();
  const int front = GetActiveTabPage(Panel::PANEL);
  if (front == kDispersionPage) DispCurvPlot(1);
  if (front == kResultsPage) ExdThdCurvPlot();
}

/// What is in memory now must not be kept as a project of its own.
class WhileLoading {
 public:
  WhileLoading() { panelsState.loading = true; }
  ~WhileLoading() { panelsState.loading = false; }
  WhileLoading(const WhileLoading&) = delete;
  WhileLoading& operator=(const WhileLoading&) = delete;
};

/// Of the bytes that a save would write.
std::uint64_t DigestOfProject(const std::function<void()>& poll = {}) {
  AtomicWriter digest{AtomicWriter::DigestOnly{}};
  StoreProject(digest, ReadEntryLists(), poll);
  return digest.Digest();
}

/// Reads session.projectFileName. A file that cannot be opened leaves an empty project; if the file exists,
/// that project has no name.
int LoadProject() {
  const std::string path = session.projectFileName;
  std::optional<WhileLoading> loading(std::in_place);
  ForgetUndo();
  ForgetSection();
  HidePanelsOfData();
  ProcessSystemEvents();
  session.fileKeyList.clear();
  // Until the end of the load, the file contains more than the memory.
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
  if (MeasDB.measSetupList.empty())
    ShowEmptyPages();
  else
    ShowMeasurementWithData();
  DoPlotting(kMeasurementPage);
  DoPlotting(kMaskingPage);
  ShowCurvesAndResults();
  RenewSectionPanel();
  session.savedDigest = DigestOfProject(ProcessSystemEvents);
  loading.reset();
  if (!opened) return Refuse(outOfReach ? reason + "." : "File does not exist.");
  return TellOutcome(NotReadWhole(path, file), file);
}

/// A save that runs out of memory fails like any other.
template <class Save>
bool WithMemory(std::string& reason, Save save) try {
  return save();
} catch (const std::bad_alloc&) {
  reason = kNoMemoryToWrite;
  return false;
}

/// Common steps of both saves, once the name is chosen and may be written.
int SaveProject(bool backUp) {
  const std::string path = session.projectFileName;
  std::string noBackup, reason;
  SetWaitCursor(true);
  bool backedUp = true;
  const bool saved = WithMemory(reason, [&] {
    if (!LockProject(path, reason)) return false;
    backedUp = !backUp || BackUpProject(path, noBackup);
    return WriteProjectFile(path, ReadEntryLists(), reason, ProcessSystemEvents);
  });
  if (saved) session.savedDigest = DigestOfProject(ProcessSystemEvents);
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

}  // namespace

LoadQuestions AskDuringLoad() {
  return {AskToOverwrite,
          [] {
            return PromptPopup(session.appTitle, "Enter a new measurement ID.",
                               static_cast<int>(kLongestFileText));
          },
          ProcessSystemEvents};
}

void ShowSetups(const SetupsRead& setups) {
  if (setups.geometry.any) SetCtrlVal(meassetup::LENGTHUNIT, session.lengthUnit);
  if (!setups.selected) return;
  UpdateMeasSetup(session.curProjID, session.curMeasID, kBothTraces);
  UpdateHWSetup(session.curProjID, session.curMeasID);
}

void ReadProjectSections(SectionReader& file) {
  session.curProjID = GetCtrlVal(hmsetup::PROJID);
  const ProjectRead read = ReadProject(file, AskDuringLoad(), ShowSetups);
  ShowModels(read.entries, read.modelsWhole);
}

int ReadMHWSetup(SectionReader& file) {
  session.curProjID = GetCtrlVal(hmsetup::PROJID);
  const SetupsRead setups = ReadMHWSetup(file, AskDuringLoad());
  ShowSetups(setups);
  return setups.whole ? 0 : -1;
}

int ReadModeling(SectionReader& file) {
  EntryNumbers entries;
  const int status = ReadModeling(file, entries);
  if (status == 0)
    ShowModels(entries, true);
  else
    ShowEntryLists(entries);
  return status;
}

void StoreModeling(AtomicWriter& file) {
  StoreModeling(file, ReadEntryLists());
}

int TellOutcome(const std::string& notWhole, const SectionReader& file) {
  const LoadOutcome outcome = OutcomeOf(notWhole, file);
  if (!outcome.message.empty()) MessagePopup(session.appTitle, outcome.message);
  return outcome.whole ? 0 : -1;
}

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
  LeaveProjectFile();  // after a cancel the empty project must not replace the old file
  if (choice.answer == FileAnswer::Exists && !mayOpen(choice.path)) return Refuse(reason + ".");
  session.projectFileName = choice.path;
  if (choice.answer == FileAnswer::Exists) return LoadProject();
  ShowEmptyPages();
  if (choice.answer == FileAnswer::IsNew) MessagePopup(session.appTitle, "File does not exist.");
  return -1;
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
  StoreProject(file, ReadEntryLists());
}

bool WriteProjectFile(const std::string& path, std::string& reason) {
  return WriteProjectFile(path, ReadEntryLists(), reason);
}

void TakeProjectAsSaved() {
  session.savedDigest = DigestOfProject();
}

bool ProjectDiffersFromSaved() {
  return DigestOfProject() != session.savedDigest;
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
  ConfirmPopup(session.appTitle, kRemoveAll);  // Kept: asked again, after every answer
  ShowEmptyPages();
  SetActiveTabPage(Panel::PANEL, 0);
  DisplayPanel(Panel::MEASPANEL);
  LeaveProjectFile();
  session.readInPart = false;
  ForgetDamagedProject();
  SetPanelTitle(Panel::PANEL, session.appTitle);
  TakeProjectAsSaved();
  return 0;
}

}  // namespace sondera
