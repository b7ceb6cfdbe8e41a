// loadshots.h - the panel "Load Shots of a Line": files and settings, a preview that follows them, the import.
//
// The preview is made anew with each commit of a setting. It asks for what neither file nor settings tell; Import
// refuses with that question. Owned state: none; a tick of the pair table is kept as long as its pair is planned.
#pragma once

#include <string>

#include "project/shot_import.h"
#include "runtime/controls.h"

namespace sondera {

/// Menu item: shows the panel.
int LoadShotsCallback(Panel panel, ControlId control, Event event, long data);
/// ADDFILE: chooses a file, appends it to FILES, and previews.
int AddShotFileCallback(Panel panel, ControlId control, Event event, long data);
/// Any setting: previews. Fills PREVIEW and PAIRTABLE.
int PreviewShotsCallback(Panel panel, ControlId control, Event event, long data);
/// LOAD: imports the pairs that are ticked, hides the panel. @return 0; -1 after a message, nothing changed then
int ImportShotsCallback(Panel panel, ControlId control, Event event, long data);
/// What the panel says, for the import. Empty, or the sentence that refuses a field.
std::string ReadShotsPanel(ShotRequest& request);
/// Whether the table has a pair that will not be imported.
bool AnyPairTickedOff();
/// CLOSE
int CloseShotsCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
