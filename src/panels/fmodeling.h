// fmodeling.h - callbacks of the panel "Parameters for Forward Modeling Analysis" and of the menu items and
// buttons that open it.
//
// Owns no state. Buttons act on a press, menu items on any event. A refusal has one message and the result
// -1.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// Data of a press of inversion::AUTOSETUPSMP: layers for the depth in MAXDEPTH, not for the curves. The
/// function that makes the layers writes their depth to TOTALDEPTH.
inline constexpr long kDepthOfPanel = -1;

/// Record to panel; shows the panel. From the menu, and from the results page.
int FModelParamCallback(Panel panel, ControlId control, Event event, long data);
int OpenFModelParamCallback(Panel panel, ControlId control, Event event, long data);
int FModelParamCloseCallback(Panel panel, ControlId control, Event event, long data);

/// Number of layers, receivers or curves: the table gets that many rows. A number below 0 or above the limit
/// of a run is refused and replaced by the old one. Rows of pairs are filled from the record, whose pair
/// table grows.
int UpdateFModelNLayersCallback(Panel panel, ControlId control, Event event, long data);
int FM_nReceiversUpdateCallback(Panel panel, ControlId control, Event event, long data);
int FM_nDispCurvesCallback(Panel panel, ControlId control, Event event, long data);

/// Writes the kind of curves to the record, and shows the record's data of that kind on the panel.
int FM_GlobalArrayDispOption(Panel panel, ControlId control, Event event, long data);
/// Panel to record. The uncertainty factors of the inversion panel, UF_VS and UF_H, are set to suit the kind
/// of curves.
int FM_DispCurvUpdateCallback(Panel panel, ControlId control, Event event, long data);
/// Receivers of a global curve to the record; the two locations only with fixed receivers.
int GlobalRecTypeCallback(Panel panel, ControlId control, Event event, long data);
/// Domain and range of a global curve to the record; the labels of the range depend on the domain.
int SetFreqWaveLTextCallback(Panel panel, ControlId control, Event event, long data);

/// UPDATE_PROFILEk: copies the default of column k to all layers of the table.
int ApplyDefaultVal2ColCallback(Panel panel, ControlId control, Event event, long data);
/// Adds a zero row before row EDITLAYERNO; removes that row; zeroes all cells.
int InsertLayerCallback(Panel panel, ControlId control, Event event, long data);
int DeleteRowCallback(Panel panel, ControlId control, Event event, long data);
int ClearRowCallback(Panel panel, ControlId control, Event event, long data);
/// Layers by MAXDEPTH and AUTOLAYERTYPE. Presses inversion::AUTOSETUPSMP with kDepthOfPanel.
int SetupLayeringCallback(Panel panel, ControlId control, Event event, long data);

/// Resets the record, imports the curves in memory, and shows the result. -1 when there were none. The second
/// also determines which group of controls is shown.
int DispCurveInfoInCallback(Panel panel, ControlId control, Event event, long data);
int DispCurveLoadCallback(Panel panel, ControlId control, Event event, long data);

/// Parameter file, chosen in a file dialog. After reading, one message names a setting that no run accepts.
int SaveFModelParamCallback(Panel panel, ControlId control, Event event, long data);
int SaveFModelParamMenuCallback(Panel panel, ControlId control, Event event, long data);
int ReadFModelParamCallback(Panel panel, ControlId control, Event event, long data);
int ReadFModelParamMenuCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
