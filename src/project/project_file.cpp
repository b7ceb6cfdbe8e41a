// project_file.cpp - see project_file.h.
#include "project/project_file.h"

#include <new>
#include <utility>

#include "project/analysis_section.h"
#include "project/load_check.h"
#include "project/modeling_section.h"
#include "project/project_copies.h"
#include "project/raw_section.h"
#include "records/measdb.h"
#include "records/model_records.h"
#include "records/session.h"
#include "runtime/files.h"

namespace sondera {

namespace {

/// Initialises the records that the modelling section did not give.
void MendModels(int status) {
  if (status == -1) {
    FinalizeFModel();
    InitializeFModel();
  }
  if (status == -1 || status == -2) InitializeTheoDispInfo();
  if (status == -1 || status == -2 || status == -3) InitializeInvAnal();
}

/// Measurements without a geometry in a damaged file are at 0. Without any geometry the lists would not count
/// as filled, and the next project would be added to this one.
void CompleteGeometry() {
  for (const IDInfo& id : MeasDB.idList)
    if (MeasDB.measSetupList.findKey(id.key) < 0) SetupMSetupArrays(id.key);
}

}  // namespace

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

void StoreProject(AtomicWriter& file, const EntryNumbers& entries, const std::function<void()>& poll) {
  StoreMHWSetup(file);
  StoreRawData(file, poll);
  StoreAnalysis(file, poll);
  StoreModeling(file, entries);
}

bool WriteProjectFile(const std::string& path, const EntryNumbers& entries, std::string& reason,
                      const std::function<void()>& poll) try {
  LockFile lock;  // the session's own, when this is its project
  if (!LockFile::MayGoOn(lock.Acquire(path))) {
    reason = lock.Reason();
    return false;
  }
  if (!KeepDamagedProject(path, reason)) return false;
  AtomicWriter file(path);
  StoreProject(file, entries, poll);
  const bool written = file.Commit();
  if (!written) reason = file.Reason();
  return written;
} catch (const std::bad_alloc&) {
  reason = kNoMemoryToWrite;
  return false;
}

ProjectRead ReadProject(SectionReader& file, const LoadQuestions& questions,
                        const std::function<void(const SetupsRead&)>& setupsRead) {
  ProjectRead read;
  file.BeginSection("setup");
  const SetupsRead setups = ReadMHWSetup(file, questions);
  if (setupsRead) setupsRead(setups);
  file.EndSection();
  file.BeginSection("raw data");
  ReadRawData(file, questions.poll);
  file.EndSection();
  file.BeginSection("analysis", true);
  ReadAnalysis(file, questions.poll);
  file.EndSection();
  file.BeginSection("modelling", true);
  const int status = ReadModeling(file, read.entries);
  MendModels(status);
  read.modelsWhole = status == 0;
  file.EndSection();
  if (!file.Ended() && file.Remaining() > 0)
    file.Note(FormatText("It has %lld bytes that belong to none of its records.",
                         static_cast<long long>(file.Remaining())));
  DropLinesWithoutData(file);
  if (!file.Trouble().empty()) CompleteGeometry();
  return read;
}

}  // namespace sondera
