// project_copies.cpp - see project_copies.h.
#include "project/project_copies.h"

#include <filesystem>
#include <system_error>

#include "records/session.h"
#include "runtime/files.h"

namespace sondera {
namespace {

constexpr int kMostDamaged = 1000;  // copies of damaged states of one project

/// One form for all paths of a file; the file need not exist.
std::string Canonical(const std::string& path) {
  std::error_code error;
  const std::filesystem::path canonical = std::filesystem::weakly_canonical(path, error);
  return error ? path : canonical.string();
}

/// Whether a file of this name exists, a broken link included. If that cannot be determined, the name counts
/// as used.
bool NameTaken(const std::string& path) {
  std::error_code error;
  const auto status = std::filesystem::symlink_status(path, error);
  return status.type() != std::filesystem::file_type::not_found;
}

}  // namespace

void RememberDamagedProject(const std::string& path) {
  session.damagedFile = Canonical(path);
  session.damagedKept = false;
}

void ForgetDamagedProject() {
  session.damagedFile.clear();
  session.damagedKept = false;
}

bool IsDamagedProject(const std::string& path) {
  return !session.damagedFile.empty() && Canonical(path) == session.damagedFile;
}

bool KeepDamagedProject(const std::string& path, std::string& reason) {
  if (!IsDamagedProject(path) || session.damagedKept) return true;
  for (int k = 1; k <= kMostDamaged; ++k) {
    const std::string copy = path + ".damaged" + (k == 1 ? std::string() : FormatText("%d", k));
    if (NameTaken(copy)) {
      session.damagedKept = SameContent(path, copy);
    } else {
      if (!CopyFileAtomic(path, copy, reason)) return false;
      session.damagedKept = true;
    }
    if (session.damagedKept) return true;
  }
  reason = "There are too many copies " + path + ".damaged";
  return false;
}

bool BackUpProject(const std::string& path, std::string& reason) {
  if (IsDamagedProject(path) || !FileExists(path)) return true;
  return CopyFileAtomic(path, path + ".bkup", reason);
}

bool KeepFormerProject(const std::string& path, const std::function<void(AtomicWriter&)>& store,
                       std::string& kept, std::string& reason) {
  kept.clear();
  if (!MayExist(path)) return true;
  AtomicWriter next(path);
  store(next);
  const bool same = next.SameAsTarget();
  if (!next.Ok()) {
    reason = next.Reason();
    return false;
  }
  if (same) return true;
  if (!CopyFileAtomic(path, path + ".former", reason)) return false;
  kept = path + ".former";
  return true;
}

}  // namespace sondera
