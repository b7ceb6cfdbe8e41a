// trace_export.cpp - see trace_export.h.
#include "project/trace_export.h"

#include <algorithm>
#include <cmath>

#include "project/text_helpers.h"
#include "runtime/files.h"
#include "signal/spectra.h"

namespace sondera {
namespace {

using namespace export_type;
using namespace spectral;

/// Extension of a series; null for a type that does not exist.
const char* ExtensionOf(int type) {
  static constexpr const char* kByDisplay[] = {"tim", "Hp", "Ha",  "TFp", "TFa", "Gxx",
                                               "Gp",  "Ga", "coh", "ir",  "gab"};
  if (type >= 0 && type <= kGabor) return kByDisplay[type];
  return type == kLinearComplex     ? "H"
         : type == kTransferComplex ? "hyx"
         : type == kCrossComplex    ? "gyx"
                                    : nullptr;
}

bool IsTime(int type) {
  return type == kTimeTrace || type == kImpulseResponse;
}

std::size_t PointsOf(int type, const HWSetup& hw) {
  return static_cast<std::size_t>(IsTime(type) ? 2 * FullTimeLines(hw.nLines) : std::max(hw.nLines, 0));
}

/// First line with imported data; 0 for measured ones.
std::size_t FirstLine(const HWSetup& hw) {
  const double line = hw.freqSpan < 0 ? std::round(hw.startFreq / hw.deltaF) : 0.0;
  return line > 0.0 ? static_cast<std::size_t>(std::min(line, static_cast<double>(hw.nLines))) : 0;
}

std::vector<double> Abscissas(int type, const HWSetup& hw) {
  std::vector<double> x(PointsOf(type, hw));
  const double step = IsTime(type) ? hw.deltaT : hw.deltaF;
  const double trigger =
      type == kTimeTrace ? std::round(static_cast<double>(x.size()) * hw.triggerDelay / 100.0) : 0.0;
  for (std::size_t i = 0; i < x.size(); ++i) x[i] = (static_cast<double>(i) - trigger) * step;
  return x;
}

/// Rows of the display channel in the averages, as in CalcSpectralData.
const double* RowOf(const std::vector<double>& block, const HWSetup& hw, int channel) {
  const std::size_t row = 2 * static_cast<std::size_t>(hw.nLines);
  const std::size_t at = row * static_cast<std::size_t>(channel);
  return block.size() >= at + row ? block.data() + at : nullptr;
}

bool CopyRow(const std::vector<double>& block, const HWSetup& hw, int channel, std::vector<double>& out) {
  const double* row = RowOf(block, hw, channel);
  if (row) std::copy_n(row, out.size(), out.begin());
  return row != nullptr;
}

/// Cross power of the pair through channel 0; 0 where that has no power.
bool FillCrossPower(const MeasRecords& r, int refChan, int dspChan, PlotSeries& out) {
  const HWSetup& hw = *r.hwSetup;
  const RawData& raw = *r.rawData;
  const double *aRe = RowOf(raw.crossSpecRe, hw, refChan), *aIm = RowOf(raw.crossSpecIm, hw, refChan);
  const double *bRe = RowOf(raw.crossSpecRe, hw, dspChan), *bIm = RowOf(raw.crossSpecIm, hw, dspChan);
  const double* power = RowOf(raw.powerSpec, hw, 0);
  if (!aRe || !aIm || !bRe || !bIm || !power) return false;
  for (std::size_t i = 0; i < out.x.size(); ++i) {
    if (power[i] == 0.0) continue;
    CxMul(bRe[i], bIm[i], aRe[i], -aIm[i], &out.y[i], &out.y2[i]);
    out.y[i] /= power[i];
    out.y2[i] /= power[i];
  }
  return true;
}

/// Real and imaginary part of a complex spectrum.
bool FillComplex(int type, const MeasRecords& r, int refChan, int dspChan, PlotSeries& out) {
  const HWSetup& hw = *r.hwSetup;
  if (type == kLinearComplex)
    return CopyRow(r.rawData->linSpecRe, hw, dspChan, out.y) &&
           CopyRow(r.rawData->linSpecIm, hw, dspChan, out.y2);
  BringBandLimitsUpToDate(*r.hwSetup);
  if (type == kCrossComplex ? !FillCrossPower(r, refChan, dspChan, out)
                            : CalcSpectralData(kTransferFunction, r.projID, r.measID, refChan, dspChan,
                                               out.y.data(), out.y2.data()) < 0)
    return false;
  const std::size_t first = FirstLine(hw);
  std::fill_n(out.y.begin(), first, 0.0);
  std::fill_n(out.y2.begin(), first, 0.0);
  return true;
}

/// A Gabor map with a row for each cell, frequency by frequency.
bool FillGabor(PMeasInfo* pair, PlotSeries& out) {
  if (!pair || !pair->gabor) return false;
  const GaborMap& map = pair->gaborMap(std::clamp(pair->phaseOption, 0, 2));
  if (std::all_of(map.begin(), map.end(), [](double v) { return v == 0.0; })) return false;
  const int rows = std::clamp(pair->freqDiv, 0, kGaborDivisions);
  const int columns = std::clamp(pair->timeDiv, 0, kGaborDivisions);
  const double df = rows > 1 ? (pair->finalFreq - pair->initFreq) / (rows - 1) : 0.0;
  const double dt = columns > 1 ? (pair->finalTime - pair->initTime) / (columns - 1) : 0.0;
  for (int j = 0; j < rows; ++j) {
    for (int i = 0; i < columns; ++i) {
      out.x.push_back(pair->initTime + i * dt);
      out.y.push_back(pair->initFreq + j * df);
      out.y2.push_back(map[static_cast<std::size_t>(j * kGaborDivisions + i)]);
    }
  }
  return !out.x.empty();
}

// --- files ---
double At(const std::vector<double>& column, std::size_t i) {
  return i < column.size() ? column[i] : 0.0;
}

bool WriteColumns(const std::string& path, const ExportFile& file, std::string& reason) {
  TextWriter text(path);
  const CNumberScope decimalPoint;
  const std::size_t rows = file.columns.front()->size();
  for (std::size_t i = 0; i < rows && text.Ok(); ++i) {
    for (std::size_t c = 0; c < file.columns.size(); ++c)
      text.Printf(c == 0 ? "%le" : "\t%le", c > 0 && i < file.zeroRows ? 0.0 : At(*file.columns[c], i));
    text.Put("\n");
  }
  const bool written = text.Close();
  if (!written) reason = text.Reason();
  return written;
}

/// Files of the displays of the pair's record.
void AddPairFiles(int type, const PMeasInfo& p, const HWSetup& hw, TraceExport& out) {
  out.series.emplace_back().x = Abscissas(type, hw);
  const std::vector<double>* x = &out.series.back().x;
  if (type == kImpulseResponse) {
    out.files.push_back({"ir", {x, &p.irRe, &p.irIm, &p.enIrRe, &p.enIrIm}});
    return;
  }
  const std::size_t first = FirstLine(hw);
  out.files.push_back({"TFp", {x, &p.hPhase, &p.phaseOrig, &p.enPhase, &p.phaseEn}, first});
  out.files.push_back({"TFa", {x, &p.hAmp, &p.enAmp}, first});
  out.files.push_back({"hyxSM", {x, &p.enRe, &p.enIm}, first});
  out.files.push_back({"hyx", {x, &p.hRe, &p.hIm}, first});
}

/// Series for the files of the other displays.
std::vector<int> SeriesOf(int type) {
  if (type == kLinearPhase || type == kLinearAmplitude)
    return {kLinearPhase, kLinearAmplitude, kLinearComplex};
  if (type == kCrossPhase || type == kCrossAmplitude) return {kCrossPhase, kCrossAmplitude, kCrossComplex};
  return {type};
}

bool AddSeriesFiles(int type, int refChan, int dspChan, const MeasRecords& r, VoltUnit unit,
                    TraceExport& out) {
  const std::vector<int> wanted = SeriesOf(type);
  out.series.reserve(wanted.size());
  for (int t : wanted) {
    PlotSeries& s = out.series.emplace_back();
    if (GetPlotInfo(refChan, dspChan, t, r, unit, s) < 0) return false;
    ExportColumns columns{&s.x, &s.y};
    if (t == kGabor || t > kGabor) columns.push_back(&s.y2);
    out.files.push_back({s.ext, columns});
  }
  return true;
}

bool HasValues(const std::vector<double>& block) {
  return std::any_of(block.begin(), block.end(), [](double v) { return v != 0.0; });
}

/// Data that a display needs and the measurement does not have: a block that no record ever filled contains
/// only zeros. Empty when all are there.
std::string_view NeverMeasured(int type, const RawData& raw) {
  const bool crossSpectra = HasValues(raw.crossSpecRe) || HasValues(raw.crossSpecIm);
  switch (type) {
    case kTimeTrace:
      return HasValues(raw.timeHist) ? "" : "time records";
    case kLinearPhase:
    case kLinearAmplitude:
      return HasValues(raw.linSpecRe) || HasValues(raw.linSpecIm) ? "" : "linear spectra";
    case kPowerSpectrum:
      return HasValues(raw.powerSpec) ? "" : "power spectra";
    case kCrossPhase:
    case kCrossAmplitude:
    case kCoherence:
      return !HasValues(raw.powerSpec) ? "power spectra" : crossSpectra ? "" : "cross power spectra";
    case kTransferPhase:
    case kTransferAmplitude:
    case kImpulseResponse:
      return crossSpectra ? "" : "cross power spectra";
    default:
      return "";  // a separate check handles a missing Gabor map
  }
}

std::size_t CountNotFinite(const std::vector<double>& values, std::size_t from = 0) {
  const auto first = values.begin() + static_cast<std::ptrdiff_t>(std::min(from, values.size()));
  return static_cast<std::size_t>(
      std::count_if(first, values.end(), [](double v) { return !std::isfinite(v); }));
}

/// Values of the averages, and of the result, that are infinite or NaN.
std::size_t CountNotFinite(const RawData& raw, const std::vector<ExportFile>& files) {
  std::size_t count = 0;
  for (auto block : kRawBlocks) count += CountNotFinite(raw.*block);
  if (count > 0) return count;
  for (const ExportFile& file : files)
    for (std::size_t c = 0; c < file.columns.size(); ++c)
      count += CountNotFinite(*file.columns[c], c > 0 ? file.zeroRows : 0);
  return count;
}

}  // namespace

int GetPlotInfo(int refChan, int dspChan, int type, const MeasRecords& records, VoltUnit unit,
                PlotSeries& out) {
  out = {};
  if (!ExtensionOf(type)) return -1;
  out.ext = ExtensionOf(type);
  if (records.hwPos < 0 || records.rawPos < 0) return -1;
  const HWSetup& hw = *records.hwSetup;
  if (std::min(refChan, dspChan) < 0 || std::max(refChan, dspChan) >= hw.nChannels) return -1;
  if (type == kGabor) return FillGabor(FindPair(hw.key, refChan, dspChan), out) ? 0 : -1;
  out.x = Abscissas(type, hw);
  out.y.assign(out.x.size(), 0.0);
  out.y2 = out.y;
  if (type > kGabor) return FillComplex(type, records, refChan, dspChan, out) ? 0 : -1;
  // The power spectrum has its own row here: CalcSpectralData is right for the first channel only.
  const bool filled = type == kPowerSpectrum ? CopyRow(records.rawData->powerSpec, hw, dspChan, out.y)
                                             : CalcSpectralData(type, records.projID, records.measID, refChan,
                                                                dspChan, out.y.data(), out.y2.data()) == 0;
  // A time trace is written as it was measured.
  if (filled && type != kTimeTrace) ConvertVolts(static_cast<DisplayType>(type), unit, hw.deltaF, out.y);
  return filled ? 0 : -1;
}

Refusal MakeTraceExport(const TraceExportRequest& request, TraceExport& out) {
  const std::string& display = request.display;
  const MeasRecords& r = request.records;
  const int refChan = request.refChan, dspChan = request.dspChan, type = request.type;
  const std::string noData = "There are no data on display " + display + ".";
  if (r.hwPos < 0 || r.rawPos < 0 || r.hwSetup->nLines <= 0) return noData;
  if (std::min(refChan, dspChan) < 0 || std::max(refChan, dspChan) >= r.hwSetup->nChannels)
    return FormatText("The measurement %s has channels 1 to %d.", r.measID.c_str(), r.hwSetup->nChannels);
  if (type < 0 || type > kGabor) return FormatText("There is no display type %d.", type);
  if (const std::string_view missing = NeverMeasured(type, *r.rawData); !missing.empty())
    return "The measurement " + r.measID + " has no " + std::string(missing) +
           ": there is nothing to write for this display.";

  if (type == kTransferPhase || type == kTransferAmplitude || type == kImpulseResponse) {
    const PMeasInfo* pair = request.pair();
    if (!pair) return noData;
    AddPairFiles(type, *pair, *r.hwSetup, out);
  } else if (!AddSeriesFiles(type, refChan, dspChan, r, request.unit, out)) {
    return type == kGabor ? std::string("Calcualte Gabor spectrum, first.") : noData;
  }
  if (const std::size_t count = CountNotFinite(*r.rawData, out.files))
    return FormatText("The data on display %s are not saved: %zu of their values are infinite or NaN.",
                      display.c_str(), count);
  return {};
}

bool AnyFileExists(const std::string& name, const TraceExport& exported) {
  return std::any_of(exported.files.begin(), exported.files.end(),
                     [&](const ExportFile& f) { return FileExists(PlaceFileExtName(name, f.ext)); });
}

Refusal WriteTraceExport(const std::string& name, const TraceExport& exported) {
  std::string reason;
  for (const ExportFile& f : exported.files) {
    std::string why;
    if (!WriteColumns(PlaceFileExtName(name, f.ext), f, why) && reason.empty()) reason = why;
  }
  if (reason.empty()) return {};
  return "The data could not be saved. " + reason + ".";
}

}  // namespace sondera
