// fmodeling_records.h - copies the settings of a forward run between the panel "Parameters for Forward
// Modeling Analysis" and the record FModelParam.
//
// Callers: forward runs and inversions (before they start), the project file (after a load), the callbacks of
// the panel. Owns no state. When the panel is refused, there is one message and the result -1; the record
// then keeps the values read before. Rows of tables count from 1, entries of the record from 0.
#pragma once

#include <string_view>

#include "records/model_records.h"
#include "runtime/controls.h"

namespace sondera {

/// Panel to record: kind of analysis, mesh, layers. The rows of the soil table are the layers, whatever
/// NLAYERS shows. The run gets its own copy of fDispBulb and dispCurvType.
/// @return 0; -1 after a message when a thickness is 0, when a layer has no usable pair of Vp, Vs and
///         Poisson's ratio (fewer than two of the three non-zero), or when a density is 0; in this order
[[nodiscard]] int GetFModelParam_AS();

/// Its parts: only kind of analysis and mesh; and the checks of a record's layers. @return as above
void GetAnalysisAndMesh();
[[nodiscard]] int CheckLayerTable(const ModelRecord& record);

/// Panel to record: the receivers alone. @return 0; -1 after a message for a number that no record holds
[[nodiscard]] int GetFModelParam_R();

/// Panel to record: kind of curves, their points, receivers and pairs. Stored velocities stay with their
/// point and their curve when the number of curves changes.
/// @return 0; -1 after a message when a count is outside the limits of a run, or when stored curves are
/// wanted (DispCurvInfo above 1) and none has a velocity. Kept: with DispCurvInfo 1 this is not checked
[[nodiscard]] int GetFModelParam_RD();

/// Record to panel, completely: layers, receivers, dispersion points. A ring without an item for the record's
/// value keeps its selection.
void SetFModelParam();
void SetFModelParam_AS();
void SetFModelParam_R();
void SetFModelParam_D();

/// Adds zero rows, or removes rows, at the end of a table until there are n, and labels all rows with prefix
/// and number.
void AdjustTableSize(const TableControl& table, int n, std::string_view prefix);

/// dispCurvType from GLOBAL_ARRAY; shows the controls of a global curve and hides those of array curves, or
/// the reverse.
void SetDispCurveType();

/// Labels of XMIN and XMAX for a domain: frequencies for 2, otherwise wavelengths.
void ShowDomainLabels(int xDomainType);

/// Writes the pairs of the record to the existing rows of the pair table.
void ShowPairs();

/// First values for the record, with eight receivers at doubling distances from 0.5, array curves with 50
/// points, and no stored curves. A record with receivers is reset completely; TheoDispInfo and the records of
/// the inversion are then reset too, and the lists of their entries are emptied.
void ResetFModel_D();

}  // namespace sondera
