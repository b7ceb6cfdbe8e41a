// loadtxdata.h - the dialog "Load Measurement Data (Text Format)": arranges its rows for the kind of data,
// checks the entries, and passes them to the reader of that kind.
//
// Callbacks act on the commit event and return 0, or -1 when they refused or failed; other events return 0.
#pragma once

#include "runtime/controls.h"

namespace sondera {

/// DATATYPE of the dialog.
enum class ImportKind : int {
  TimeHistory = 0,
  TransferFunction = 1,
  CrossSpectrum = 2,
  TransferFunction58 = 3,
  CrossSpectrum58 = 4,
};

/// Shows the dialog. The number of receivers becomes that of the measurement whose id is in MEASID, if there
/// is one.
int Load_TwoChnlDataCallback(Panel panel, ControlId control, Event event, long data);
/// Hides the dialog.
int LoadTxDataCancelCallback(Panel panel, ControlId control, Event event, long data);
/// Arrange the rows again.
int DataTypeCallback(Panel panel, ControlId control, Event event, long data);
int NoChannelsCallback(Panel panel, ControlId control, Event event, long data);
int SRCINSTRUMENTED(Panel panel, ControlId control, Event event, long data);
/// Asks for the file of the row whose button was pressed.
int FileOpenCallback(Panel panel, ControlId control, Event event, long data);

/// Checks the entries and imports: sets the session's length unit, wavelength criterion and velocities of the
/// site, makes or overwrites the measurement and shows it.
int LoadTextDataCallback(Panel panel, ControlId control, Event event, long data);

/// Shows the file rows that the kind of data needs for n receivers, with their labels, and the locations of
/// source and n receivers, which become 0. There are rows for ten files and nine locations.
void UpdateLoadTextData(int n);

/// Shows the session's length unit where it is displayed. Changes no data.
/// @param[in] oldUnit  metres per unit before
void UpdateMajorUnitRoutine(double oldUnit);

/// Shows the first lines of the first file that is named, and what the reader of this kind of data makes of it.
void ShowImportPreview();

}  // namespace sondera
