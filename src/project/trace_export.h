// trace_export.h - what is on a trace of the masking page, as text for other programs.
//
// Callers: the menu (File, Export), the command line's and the script's `export`. Owns no state. Each file
// has a row per point: numbers in exponent form with tabs between, a newline at the end, no heading. One
// display type can make several files, which share the name and differ in the extension.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "numeric/analysis.h"
#include "records/measdb.h"
#include "runtime/controls.h"

namespace sondera {

/// Complex series beside those of namespace spectral (signal/spectra.h) and the Gabor map.
namespace export_type {
inline constexpr int kGabor = 10;
inline constexpr int kLinearComplex = 21;
inline constexpr int kTransferComplex = 22;
inline constexpr int kCrossComplex = 23;
}  // namespace export_type

/// One series: abscissa, value, and for complex ones (types 21 to 23) and the impulse response the imaginary
/// part. A Gabor map has time in x, frequency in y and the value in y2.
struct PlotSeries {
  std::vector<double> x, y, y2;
  std::string ext;  ///< extension of its file, without dot
};

/// Computes a series from the averages of a measurement.
/// @param[in] refChan, dspChan  channels from 0
/// @param[in] type      number of the display, or of namespace export_type
/// @param[in] records   a complete measurement. For types 22 and 23 its band limits are brought up to date
/// @param[in] unit      of the volt displays: spectra (2, 5) take it as it is; a cross spectrum (7) stays a
///                      power, so that of the unit only rms or peak counts
/// Points: 2 * FullTimeLines(nLines) for types 0 and 9, else nLines. x is i * deltaF, Hz; for type 0 (i -
/// trigger sample) * deltaT, s, for type 9 i * deltaT. Types 22 and 23 are 0 below the first line of imported
/// data. Returns 0; -1 for a type that does not exist, channels outside the measurement, data too short, or a
/// pair without a Gabor map; ext is set in all but the first case.
int GetPlotInfo(int refChan, int dspChan, int type, const MeasRecords& records, VoltUnit unit,
                PlotSeries& out);

/// Writes the file or files of a display type (0 to 10) for the measurement on a trace.
/// @param[in] refChan, dspChan  pair, channels from 0
/// @param[in] label  "A" or "B": the trace whose measurement it is
/// @param[in] name   name whose extension is replaced. Empty: a dialog asks for it, and files that exist are
///                   asked about; given, they are overwritten
/// 3 and 4 write TFp, TFa, hyxSM, hyx; 1 and 2 write Hp, Ha, H; 6 and 7 write Gp, Ga, gyx; the others one.
/// Types 3, 4, 9 and 10 write the arrays of the pair's record, which is made when there is none. Each file is
/// written whole or not at all; none when the measurement has no data of the kind (blocks that are zero
/// throughout: a coherence of imported spectra). Returns 0; -1 after a cancel or one message.
int SaveTraceData(int refChan, int dspChan, int type, std::string_view label, const std::string& name);

/// SaveTraceData for the selection of trace A (B) of the masking page.
int SaveTraceA(const std::string& name);
int SaveTraceB(const std::string& name);

// Menu items, with the dialog.
int Save_TraceACallback(Panel panel, ControlId control, Event event, long data);
int Save_TraceBCallback(Panel panel, ControlId control, Event event, long data);
int SaveAs_TraceACallback(Panel panel, ControlId control, Event event, long data);
int SaveAs_TraceBCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
