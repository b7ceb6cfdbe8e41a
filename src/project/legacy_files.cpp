// legacy_files.cpp - see legacy_files.h.
#include "project/legacy_files.h"

#include <algorithm>
#include <cmath>

#include "panels/hwsetup.h"
#include "panels/trace_selection.h"
#include "project/load_check.h"
#include "project/project_file.h"
#include "project/raw_section.h"
#include "project/setup_section.h"
#include "project/text_helpers.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"
#include "runtime/files.h"
#include "runtime/redraw.h"

namespace sondera {
namespace {

constexpr int kMaskingPage = 1;  // page of DoPlotting
constexpr int kBothTraces = 2;
constexpr char kRemoveAll[] = "All the measurements will be removed. Do you want to proceed ?";
constexpr char kNotThere[] = "File does not exist.";

/// Opens a file, or says why not.
bool OpenOrTell(SectionReader& file, const std::string& path) {
  std::string reason;
  if (file.Open(path, &reason)) return true;
  Refuse(FileExists(path) || DirectoryExists(path) ? reason + "." : kNotThere);
  return false;
}

/// 0, or the message of a file that met trouble and -1.
int Outcome(const std::string& path, const SectionReader& file) {
  return TellOutcome("The file " + path + " was not read whole. " + file.Trouble(), file);
}

/// Takes away what hangs on the former size of a measurement.
void RemovePairs(int key) {
  for (int i = MeasDB.pMeasList.count(); i >= 1; --i)
    if (MeasDB.pMeasList.at(i)->key == key) MeasDB.pMeasList.remove(i);
}

/// Fields that a ".sms" has no place for: those of the record that it replaces, as far as they go with it.
void KeepWhatTheFileLacks(const HWSetup* former, HWSetup& hw) {
  const bool sameBand = former && former->freqSpan == hw.freqSpan && former->nLines == hw.nLines;
  hw.stopFreq = std::fabs(hw.freqSpan);
  if (sameBand) {
    hw.startFreq = former->startFreq;
    hw.stopFreq = former->stopFreq;
    hw.spanKind = former->spanKind;
  }
  if (former) {
    hw.decimation = former->decimation;
    hw.sensorType = former->sensorType;
    hw.refChannel = former->refChannel < hw.nChannels ? former->refChannel : 0;
  }
  BringBandLimitsUpToDate(hw);
}

void TakeHardware(int key, HWSetup&& hw) {
  const HWSetup* former = MeasDB.hwSetupList.at(MeasDB.hwSetupList.findKey(key));
  KeepWhatTheFileLacks(former, hw);
  if (former && (former->nLines != hw.nLines || former->nChannels != hw.nChannels)) {
    RemovePairs(key);
    MeasDB.rawDataList.remove(MeasDB.rawDataList.findKey(key));
  }
  hw.key = key;
  *SetupHWSetupArrays(key, hw.nChannels) = std::move(hw);
}

void ReadHardware(SectionReader& file) {
  const int count = file.Count("measurements", kMostMeasurements);
  for (int i = 1; i <= count && !file.Ended(); ++i) {
    const int fileKey = file.Int32();
    const std::string projID = file.Text(), measID = file.Text();
    file.Int32();             // the key once more
    if (file.Ended()) break;  // without its names it is no measurement
    HWSetup hw;
    ReadHWSetupFields(file, hw, false, false);
    if (file.Ended()) break;  // half a setup would spoil whatever is measured or read with it
    const int key = ClaimFileKey(file, fileKey, projID, measID);
    if (key == -1) return;
    session.fileKeyList.push_back(key);
    TakeHardware(key, std::move(hw));
  }
}

/// The first measurement of a file of one, else the second.
void ShowLoaded() {
  const std::vector<int>& keys = session.fileKeyList;
  if (keys.empty()) return;
  MeasRecords shown;
  if (GetInfoFromKey(keys.size() == 1 ? keys[0] : keys[1], shown) == -1) return;
  session.curProjID = shown.projID;
  session.curMeasID = shown.measID;
  UpdateMeasSetup(session.curProjID, session.curMeasID, kBothTraces);
  UpdateHWSetup(session.curProjID, session.curMeasID);
}

FileChoice Ask(const char* title, const char* filter, bool forSaving) {
  return FileSelectPopup({ProjectDirectory(), filter, title, forSaving});
}

int CommitOrTell(AtomicWriter& file) {
  return file.Commit() ? 0 : Refuse("The file could not be saved. " + file.Reason() + ".");
}

}  // namespace

void ReadLegacySetups(SectionReader& file) {
  session.curProjID = GetCtrlVal(hmsetup::PROJID);
  session.fileKeyList.clear();
  file.BeginSection("setup");
  ReadHardware(file);
  if (!file.GivenUp()) ReadMeasSetups(file);
  file.EndSection();
  ShowLoaded();
}

void ReadLegacyRawData(SectionReader& file) {
  file.BeginSection("raw data");
  ReadRawData(file);
  const double last = file.Real();
  if (!file.Ended()) session.rawFileReal = last;
  file.EndSection();
  for (int key : session.fileKeyList) RemovePairs(key);  // results of other data
}

int LoadMHWSetup(const std::string& path) {
  SectionReader file;
  if (!OpenOrTell(file, path)) return -1;
  ReadLegacySetups(file);
  return Outcome(path, file);
}

int SaveMHWSetup(const std::string& path, const std::string& measID) {
  AtomicWriter file(path);
  file.Int32(MeasDB.idList.count());
  for (const IDInfo& id : MeasDB.idList) {
    const HWSetup none;
    const HWSetup* hw = MeasDB.hwSetupList.at(MeasDB.hwSetupList.findKey(id.key));
    file.Int32(id.key);
    file.Text(id.ProjID);
    file.Text(measID.empty() ? id.MeasID : measID);
    file.Int32(id.key);
    StoreHWSetupFields(file, hw ? *hw : none, false);
  }
  StoreMeasSetups(file);
  return CommitOrTell(file);
}

int Save_RawData(const std::string& path, const std::string& measID) {
  if (SaveMHWSetup(PlaceFileExtName(path, "sms"), measID) < 0) return -1;
  AtomicWriter file(path);
  StoreRawData(file);
  file.Real(session.rawFileReal);
  return CommitOrTell(file);
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
  // Without whole setups nobody knows the shape of the data.
  if (LoadMHWSetup(PlaceFileExtName(choice.path, "sms")) < 0) return -1;
  SetWaitCursor(true);
  ReadLegacyRawData(file);
  SetWaitCursor(false);
  DoPlotting(kMaskingPage);
  return Outcome(choice.path, file);
}

}  // namespace sondera
