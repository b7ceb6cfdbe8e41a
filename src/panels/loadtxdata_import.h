// loadtxdata_import.h - imports from the panels: reads the project from the setup dialog, asks before it
// overwrites, and shows the result.
//
// Callers: the dialog of the import, the readers of other files, tests. The Load... functions return 0, or -1 after one
// message; no message when the question about overwriting was answered no. Owns no state.
#pragma once

#include "project/import_record.h"
#include "project/shot_import.h"
#include "project/uff58.h"

namespace sondera {

/// The files of project/import_time.h, import_spectra.h and import_uff58.h.
int LoadTimeData(ImportRequest request);
int LoadHyxData(ImportRequest request);
int LoadGyxData(ImportRequest request);
int LoadHyx58Data(ImportRequest request, int functionType = uff58_function::kFrequencyResponse);
int LoadGyx58Data(ImportRequest request, int functionType = uff58_function::kCrossSpectrum);

/// ImportShots for the project of the setup dialog; each measurement is shown. @return empty, or the reason
std::string LoadShots(ShotRequest request, const ShotPlan& plan, std::vector<std::string>* ids = nullptr);

/// "The same measurement ID is in the list. Overwrite it ?"
bool AskToOverwrite();

/// Shows a measurement of the current project: set-up dialogs, both traces, graphs.
void ShowMeasurement(const std::string& measID);

/// Removes a measurement after a failed import: data, setups, pairs, identity. Refills the lists, selects the
/// measurement before it (if it was the first: the new first one; if it was the only one: nothing) and
/// updates the title.
void TrimDataBase(const std::string& projID, const std::string& measID);

}  // namespace sondera
