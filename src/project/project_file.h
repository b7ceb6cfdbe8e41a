// project_file.h - the project file as a whole (extension ".da"): its sections, its lock, and how it is written.
//
// A project file is four consecutive sections, without header, version or padding: setups, raw data,
// analysis, modelling (one file of this folder each). Files of earlier versions end after the second or the
// third.
//
// Callers: panels/mainmenu_project, the automatic save, the command line. Owns no state: the session knows
// the name of the file and holds its lock. A save writes a new file beside the old one, copies the old one
// (project_copies.h), and finally replaces it; if anything fails, the old file stays complete.
#pragma once

#include <functional>
#include <string>

#include "project/section_io.h"
#include "project/setup_section.h"
#include "records/inv_records.h"

namespace sondera {

/// Why a save that runs out of memory fails.
inline constexpr char kNoMemoryToWrite[] = "There is not enough memory to write it";

/// Takes the lock of a project for this session and releases the previous one. False with the reason when
/// another process has it; true without a lock where the file system has none.
bool LockProject(const std::string& path, std::string& reason);
/// The session has no project file any more: neither name nor lock.
void LeaveProjectFile();

/// All four sections.
/// @param[in] entries  the lists of results
/// @param[in] poll     called before each measurement and pair; may be empty
void StoreProject(AtomicWriter& file, const EntryNumbers& entries, const std::function<void()>& poll = {});
/// All four sections into a file: atomic, no backup copy (except for a damaged file). False with the reason,
/// for example that another process has the file open.
bool WriteProjectFile(const std::string& path, const EntryNumbers& entries, std::string& reason,
                      const std::function<void()>& poll = {});

struct ProjectRead {
  EntryNumbers entries;      ///< the lists of results
  bool modelsWhole = false;  ///< the modelling section was complete
};
/// All four sections from an open reader into the database; records of the model that are not in the file are
/// initialised. file.Trouble() describes problems.
/// @param[in] setupsRead  called when the setups are in the database, before the data follow; may be empty
ProjectRead ReadProject(SectionReader& file, const LoadQuestions& questions,
                        const std::function<void(const SetupsRead&)>& setupsRead);

}  // namespace sondera
