// table_import.h - curves and layer tables in the text formats of other programs, into the open project: for the items of
// File, Import and for the words `curves read` and `layers`.
//
// Owned state: none. The formats themselves: project/table_forms.h.
#pragma once

#include <string>
#include <vector>

#include "panels/one_click.h"
#include "project/table_forms.h"
#include "runtime/controls.h"

namespace sondera {

/// ID of the measurement of a curve when nobody gives one.
inline constexpr const char* kCurveID = "curve";

/// Reads the curve of a file into a measurement of two channels, ID@NAME, where NAME is that of the file without its
/// extension. columns: see ReadCurvePoints. @return empty, or why not
std::string LoadCurveTable(const std::string& path, CurveForm form, const std::string& columns,
                           const std::string& id, std::string& made);

enum class LayerForm { Layers, Disba };

/// Reads a layer table, m, m/s and kg/m3. The half-space may have no thickness. @return empty, or why not
std::string ReadLayerTable(const std::string& path, LayerForm form, LayeredModel& model);
/// Rows of the program's layer table: thickness, Vp, Vs in its unit of length, density, and Poisson's ratio 0, which
/// follows from Vp and Vs. The last layer needs a thickness.
std::vector<std::vector<double>> LayerRows(const LayeredModel& model);
/// Makes rows of 1 to 6 numbers the layer table of the model; columns that they leave out are those of a new layer.
void PutLayerRows(const std::vector<std::vector<double>>& rows, const Press& press);

/// Menu items. A text whose columns have no names, and a half-space without thickness, are asked about.
/// @return 0; -1 after a message, or when a question was cancelled; nothing has changed then
int LoadCurveTableCallback(Panel panel, ControlId item, Event event, long data);
int LoadLayerTableCallback(Panel panel, ControlId item, Event event, long data);

}  // namespace sondera
