// mainmenu_analysis.h - menu File: masks, pair records and representative curves in a separate file (".ia").
#pragma once

#include <string>

#include "runtime/controls.h"

namespace sondera {

/// Writes the ".ia" file (project/analysis_section.h). 0, or -1 after a message.
int SaveAnalysis(const std::string& path);
/// Reads an ".ia" file; one message at the end describes problems. 0; -1 when it could not be read, or not
/// completely.
int LoadAnalysis(const std::string& path);

/// Menu items: dialog, question about an existing file, save or load.
int Save_Analysis(Panel panel, ControlId control, Event event, long data);
int Load_Analysis(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
