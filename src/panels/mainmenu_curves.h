// mainmenu_curves.h - menu File: experimental dispersion curves as text (".exd").
#pragma once

#include <string>

#include "runtime/controls.h"
#include "runtime/text_reader.h"

namespace sondera {

/// Loads the curves of a file (project/exd_files.h). Returns 0; -1 after one message ("Error in reading the file."
/// when it cannot be opened).
int LoadExdData(const std::string& path, const std::string& fname);
/// The same from an open text; returns sentences about problems, "" for none.
std::string ReadExdCurves(TextReader& text, const std::string& fname);

/// Writes the curve of every included pair. -1 after one message.
int ExportExdData(const std::string& path);

// Menu items.
int LoadExdFileMenuCallback(Panel panel, ControlId control, Event event, long data);
int Export_ExdDataCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
