// waveform_plot.cpp - see waveform_plot.h. Owns no state.
#include "plot/waveform_plot.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>
#include <utility>
#include <vector>

#include "numeric/analysis.h"
#include "plot/trace_plot.h"
#include "signal/spectra.h"

namespace sondera {
namespace {

using Complex = std::complex<double>;

constexpr int kColor = 0x0000FF;
constexpr double kShareOfRoom = 0.9;  // of a trace, of the distance to the next receiver
constexpr double kDegrees = 180.0 / std::numbers::pi;

/// Spectrum of a trace: rms amplitudes, lines 0..n / 2 - 1.
std::vector<Complex> LinesOf(const std::vector<double>& trace) {
  const std::size_t n = trace.size();
  std::vector<double> re(n), im(n);
  RealFFT(trace.data(), re.data(), im.data(), static_cast<int>(n));
  std::vector<Complex> lines(n / 2);
  const double scale = std::sqrt(2.0) / static_cast<double>(n);
  for (std::size_t k = 0; k < lines.size(); ++k) lines[k] = scale * Complex(re[k], im[k]);
  return lines;
}

/// Ratio of the channel to channel 0, 0 where the record has no line.
std::vector<Complex> TransferOf(const WaveformView& view) {
  const auto& first = view.result.lines.u[0];
  const auto& shown = view.result.lines.u[view.channel];
  std::vector<Complex> H(first.size());
  for (std::size_t k = 0; k < H.size(); ++k)
    if (first[k] != 0.0) H[k] = shown[k] / first[k];
  return H;
}

std::vector<double> ImpulseOf(const std::vector<Complex>& H) {
  const std::size_t n = 2 * H.size();
  std::vector<double> re(n), im(n);
  for (std::size_t k = 1; k < H.size(); ++k) {
    re[k] = re[n - k] = H[k].real();
    im[k] = H[k].imag();
    im[n - k] = -H[k].imag();
  }
  InvFFT(re.data(), im.data(), static_cast<int>(n));
  return re;
}

double PhaseOf(Complex z) {
  return std::arg(z) * kDegrees;
}

std::vector<double> OrdinatesOf(const WaveformView& view) {
  const WaveformRecord& record = view.result.record;
  const std::vector<double>& trace = record.trace[view.channel];
  if (view.type == DisplayType::TimeTrace) return trace;
  if (view.type == DisplayType::ImpulseResponse) return ImpulseOf(TransferOf(view));
  if (view.type == DisplayType::GaborSpectrum) return {};
  const bool cross = view.type == DisplayType::CrossPhase || view.type == DisplayType::CrossAmplitude;
  std::vector<Complex> lines = IsOfPair(view.type) ? TransferOf(view) : LinesOf(trace);
  if (cross) {
    const std::vector<Complex> first = LinesOf(record.trace[0]);
    for (std::size_t k = 0; k < lines.size(); ++k) lines[k] *= std::conj(first[k]);
  }
  std::vector<double> y(lines.size());
  for (std::size_t k = 0; k < y.size(); ++k) {
    if (IsOfPhase(view.type))
      y[k] = PhaseOf(lines[k]);
    else if (view.type == DisplayType::Coherence)
      y[k] = 1.0;
    else
      y[k] = view.type == DisplayType::PowerSpectrum ? std::norm(lines[k]) : std::abs(lines[k]);
    const bool gap = view.result.lines.u[view.channel][k] == 0.0;
    if (gap && (IsOfPhase(view.type) || IsOfPair(view.type) || view.type == DisplayType::Coherence))
      y[k] = NAN;
  }
  return y;
}

}  // namespace

void PlotWaveform(const WaveformView& view) {
  const WaveformRecord& record = view.result.record;
  TraceView axes{view.graph, view.type, view.typeLabel};
  axes.autoScaleX = view.settings.autoScaleX != 0;
  axes.autoScaleY = view.settings.autoScaleY != 0;
  axes.limits = &view.settings.limits[static_cast<std::size_t>(FamilyOf(view.type))];
  axes.unit = static_cast<VoltUnit>(std::clamp(view.settings.voltUnit, 0, static_cast<int>(VoltUnit::Vpk2)));
  axes.logarithmic = view.settings.logLinear != 0;

  std::vector<double> y = OrdinatesOf(view);
  const bool time = IsOverTime(view.type);
  const double step = time ? record.deltaT : view.result.lines.deltaF;
  std::string unit;
  if (!time) unit = ConvertVolts(view.type, axes.unit, step, y);
  std::vector<double> x(y.size());
  for (std::size_t i = 0; i < x.size(); ++i) x[i] = static_cast<double>(i) * step;
  if (axes.logarithmic && TakesLogOrdinate(view.type)) {
    for (double& v : y)
      if (!(v > 0.0)) v = NAN;
  }
  if (!y.empty()) PlotXY(view.graph, std::move(x), std::move(y), {.color = kColor});
  ScaleTraceAxes(axes);
  if (view.type == DisplayType::TimeTrace) SetAxisLabel(view.graph, false, view.typeLabel, view.motionUnit);
  if (!unit.empty())
    SetAxisLabel(view.graph, false, view.typeLabel, "(" + view.motionUnit + ") " + unit.substr(1));
}

void PlotRecordSection(const GraphControl& graph, const WaveformRecord& record,
                       const std::string& lengthUnit) {
  const std::vector<double>& at = record.receivers;
  double highest = 0.0, lowest = HUGE_VAL;
  for (std::size_t r = 0; r < at.size(); ++r) {
    double room = r == 0 ? at[r] : at[r] - at[r - 1];
    if (r + 1 < at.size()) room = std::min(room, at[r + 1] - at[r]);
    double peak = 0.0;
    for (double v : record.trace[r]) peak = std::max(peak, std::fabs(v));
    const double scale = peak > 0.0 ? 0.5 * kShareOfRoom * room / peak : 0.0;
    const std::size_t samples = record.trace[r].size();
    std::vector<double> x(samples), y(samples);
    for (std::size_t i = 0; i < samples; ++i) {
      x[i] = static_cast<double>(i) * record.deltaT;
      y[i] = at[r] + scale * record.trace[r][i];
    }
    highest = std::max(highest, at[r] + 0.5 * room);
    lowest = std::min(lowest, at[r] - 0.5 * room);
    PlotXY(graph, std::move(x), std::move(y), {.color = kColor});
  }
  SetGraphTitle(graph, "All receivers, each to its own peak");
  SetAxisLabel(graph, true, "Time", "sec");
  SetAxisLabel(graph, false, "Distance", lengthUnit);
  SetAxisAuto(graph, true);
  SetAxisRange(graph, false, lowest, highest);
}

}  // namespace sondera
