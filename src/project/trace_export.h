// trace_export.h - writes a trace of the masking page as text for other programs.
//
// Callers: panels/mainmenu_export. Owns no state. Each file has a row per point: numbers in exponent form
// with tabs between, a newline at the end, no heading. One display type can make several files, which share
// the name and differ in the extension.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "numeric/analysis.h"
#include "records/measdb.h"
#include "runtime/refusal.h"

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
/// @param[in] records   a complete measurement. For types 22 and 23 its band limits are updated
/// @param[in] unit      of the volt displays: spectra (2, 5) use it directly; a cross spectrum (7) stays a
///                      power, so only rms or peak of the unit counts
/// Points: 2 * FullTimeLines(nLines) for types 0 and 9, else nLines. x is i * deltaF, Hz; for type 0 (i -
/// trigger sample) * deltaT, s, for type 9 i * deltaT. Types 22 and 23 are 0 below the first line of imported
/// data. Returns 0; -1 for a type that does not exist, channels outside the measurement, data too short, or a
/// pair without a Gabor map; ext is set in all but the first case.
int GetPlotInfo(int refChan, int dspChan, int type, const MeasRecords& records, VoltUnit unit,
                PlotSeries& out);

using ExportColumns = std::vector<const std::vector<double>*>;

struct ExportFile {
  std::string ext;
  ExportColumns columns;     ///< of a series below, or of the pair's record
  std::size_t zeroRows = 0;  ///< rows before it without data: 0 after the abscissa
};

/// Output of one display type: its files, and the series that are not arrays of a record. Not to be copied:
/// the files point into the series.
struct TraceExport {
  std::vector<PlotSeries> series;
  std::vector<ExportFile> files;

  TraceExport() = default;
  TraceExport(const TraceExport&) = delete;
  TraceExport& operator=(const TraceExport&) = delete;
};

/// Settings of an export.
struct TraceExportRequest {
  std::string display;  ///< "A" or "B", for the refusals
  MeasRecords records;
  int refChan = 0, dspChan = 0;  ///< pair, channels from 0
  int type = 0;                  ///< display type, 0 to 10
  VoltUnit unit = VoltUnit::Vrms;
  std::function<const PMeasInfo*()> pair;  ///< the pair's record, created when there is none; null: no data
};

/// Computes the columns of all files of a display type: 3 and 4 give TFp, TFa, hyxSM, hyx; 1 and 2 give Hp,
/// Ha, H; 6 and 7 give Gp, Ga, gyx; the others one. Types 3, 4, 9 and 10 give the arrays of the pair's
/// record. Refuses a measurement without data of the kind (blocks of only zeros: a coherence of imported
/// spectra), and values that are not finite.
Refusal MakeTraceExport(const TraceExportRequest& request, TraceExport& out);

/// Whether one of the files to write exists. The extension of the name is replaced.
bool AnyFileExists(const std::string& name, const TraceExport& exported);
/// Each file is written completely or not at all.
Refusal WriteTraceExport(const std::string& name, const TraceExport& exported);

}  // namespace sondera
