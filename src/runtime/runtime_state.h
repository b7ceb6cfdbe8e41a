// runtime_state.h - the state of runtime/, and its reset at the start of a session.
//
// Each object is accessed through the functions of its header:
//   changes.cpp        state            the observers, and their pending changes
//   control_lock.cpp   locks            a lock exists as long as its AnalysisLock
//   controls.cpp       store
//   dialogs.cpp        state            the front end and the count of messages: of the process, not of the
//   session
//   events.cpp         state, interruptFlag, interruptTime
//   file_driver.cpp    fileDriver       of the process
//   findings.cpp       findings
//   graphs.cpp         state            the models, and the place of the present mouse event
//   lock_file.cpp      heldLocks, tellWait   a lock exists as long as its LockFile
//   project_hooks.cpp  hooks            installed at start-up
//   redraw.cpp         handlers         installed at start-up
//   session_watch.cpp  watcher          of the process: a log continues in a new session
//   written_files.cpp  files
#pragma once

namespace sondera {

/// Controls, graphs, events, findings and the list of written files as at the start of a session. The front end, the
/// file driver, the callbacks and the redraw handlers stay.
void ResetRuntimeState();

}  // namespace sondera
