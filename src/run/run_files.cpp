// run_files.cpp - see run_files.h.
#include "run/run_files.h"

#include <cstddef>
#include <memory>
#include <vector>

#include "runtime/atomic_writer.h"
#include "runtime/lock_file.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

struct RunFile {
  std::string extension, path;
  AtomicWriter writer;

  RunFile(const std::string& baseName, const char* ext)
      : extension(ext), path(baseName + ext), writer(path) {}
};

struct OpenSet {
  LockFile lock;
  std::vector<std::unique_ptr<RunFile>> files;
  bool begun = false;  ///< a block was added
  bool lost = false;   ///< a file is incomplete
};
OpenSet open;

/// The file of an extension, opened if needed; null with a message when it cannot be opened.
RunFile* FileOf(const std::string& baseName, const char* extension, std::string& complaint) {
  for (const auto& file : open.files)
    if (file->extension == extension) return file.get();
  auto file = std::make_unique<RunFile>(baseName, extension);
  if (!file->writer.Ok()) {
    complaint = OpeningComplaint(file->path, file->writer.Reason());
    return nullptr;
  }
  open.files.push_back(std::move(file));
  return open.files.back().get();
}

/// The set can no longer be complete.
void Lose(const std::string& complaint, Listener& listener) {
  open.lost = true;
  listener.Tell(complaint + "\nThe result files of this run are not written. Those of the former run stay.");
}

std::vector<const char*> ExtensionsOf(int kind, const Switches& switches) {
  std::vector<const char*> found;
  const auto add = [&found](std::initializer_list<const char*> list) {
    found.insert(found.end(), list.begin(), list.end());
  };
  if (kind == 3) add({".pls", ".spc"});
  if (kind == 2) add({".fsp"});
  add({".fdp", ".fmp", ".pfl", ".pcm"});
  if (kind == 2) add({".n", ".r"});
  for (std::size_t i = 0; i < kReportExtensions.size(); ++i)
    if (switches.reportSwitch[i]) add({kReportExtensions[i]});
  return found;
}

/// Before the first file replaces an old one, all files are written to the end, so that a full disk leaves
/// the complete former set.
bool WriteToTheEnd(Listener& listener) {
  for (const auto& file : open.files) {
    if (file->writer.Finish(false)) continue;
    Lose(file->writer.Reason() + ".", listener);
    return false;
  }
  return true;
}

}  // namespace

std::string OpeningComplaint(const std::string& path, const std::string& reason) {
  return FormatText("Error in opening file %s\n%s.", path.c_str(), reason.c_str());
}

Refusal FS_OpenFiles(int kind, const Switches& switches) {
  FS_DropFiles();
  if (!LockFile::MayGoOn(open.lock.Acquire(switches.baseName))) return open.lock.Reason() + ".";
  for (const char* extension : ExtensionsOf(kind, switches)) {
    if (open.lock.Held()) RemoveRemains(switches.baseName + extension);
    std::string complaint;
    if (FileOf(switches.baseName, extension, complaint)) continue;
    FS_DropFiles();
    return complaint;
  }
  return {};
}

void AddToRunFile(const std::string& baseName, const char* extension, std::string_view block,
                  Listener& listener) {
  if (open.lost) return;
  std::string complaint;
  RunFile* file = FileOf(baseName, extension, complaint);
  if (!file) return Lose(complaint, listener);
  open.begun = true;
  file->writer.Put(block);
  file->writer.WriteOut();
  if (!file->writer.Ok()) Lose(file->writer.Reason() + ".", listener);
}

void FS_CloseFiles(int, Listener& listener) {
  if (open.begun && !open.lost && WriteToTheEnd(listener)) {
    for (const auto& file : open.files)
      if (!file->writer.Commit(false))
        listener.Tell(file->writer.Reason() + ".\nIt is still the file of the former run.");
  }
  FS_DropFiles();
}

void FS_DropFiles() {
  open.files.clear();
  open.begun = open.lost = false;
  open.lock.Release();
}

}  // namespace sondera
