// waveform_text.cpp - see waveform_text.h.
#include "forward/waveform_text.h"

#include "runtime/text_format.h"

namespace sondera {
namespace {

const char* MotionName(WaveformMotion motion) {
  if (motion == WaveformMotion::kVelocity) return "velocity";
  return motion == WaveformMotion::kDisplacement ? "displacement" : "acceleration";
}

std::string ReceiverColumns(const WaveformSetup& setup, const char* format) {
  std::string text;
  for (double x : setup.site.receivers) text += FormatText(format, x);
  return text + '\n';
}

}  // namespace

std::string MotionUnitText(WaveformMotion motion, const std::string& lengthUnit) {
  if (motion == WaveformMotion::kVelocity) return lengthUnit + "/s";
  return motion == WaveformMotion::kDisplacement ? lengthUnit : lengthUnit + "/s^2";
}

std::string TimText(const WaveformRecord& record, std::size_t receiver) {
  std::string text;
  const std::vector<double>& trace = record.trace[receiver];
  for (std::size_t i = 0; i < trace.size(); ++i)
    text += FormatText("%.10g %.10g\n", static_cast<double>(i) * record.deltaT, trace[i]);
  return text;
}

std::string WaveformHead(const WaveformSetup& setup, const std::string& lengthUnit) {
  const PulseRecord& p = setup.pulse;
  const char* const unit = lengthUnit.c_str();
  std::string text = FormatText(
      "# Computed record: vertical %s of the surface under a vertical blow at 0, positive downward\n",
      MotionName(setup.motion));
  text += FormatText("# Units: %s, s, Hz; motion in %s for forces in density * velocity^2 * %s^2\n", unit,
                     MotionUnitText(setup.motion, lengthUnit).c_str(), unit);
  if (p.shape == kPulseFile)
    text += "# Force: from file " + p.fileName + '\n';
  else
    text += FormatText("# Force: %s, centre frequency %.10g Hz\n",
                       p.shape == kPulseHammer ? "hammer blow" : "Ricker wavelet", p.centerFreq);
  text += "# Layers: thickness, Vs, density, Poisson's ratio, damping ratio\n";
  for (const WaveformLayer& l : setup.site.layers) {
    const bool last = &l == &setup.site.layers.back();
    text += last ? "# half-space" : FormatText("# %.10g", l.thickness);
    text += FormatText(" %.10g %.10g %.10g %.10g\n", l.Vs, l.density, l.nu, l.damping);
  }
  return text;
}

std::string PlsText(const WaveformSetup& setup, const WaveformRecord& record, const std::string& lengthUnit) {
  std::string text =
      WaveformHead(setup, lengthUnit) + "# Columns: time" + ReceiverColumns(setup, ", receiver at %.10g");
  const std::size_t n = record.trace.empty() ? 0 : record.trace[0].size();
  for (std::size_t i = 0; i < n; ++i) {
    text += FormatText("%.10g", static_cast<double>(i) * record.deltaT);
    for (const auto& trace : record.trace) text += FormatText(" %.10g", trace[i]);
    text += '\n';
  }
  return text;
}

std::string SpcText(const WaveformSetup& setup, const WaveformResult& result, const std::string& lengthUnit) {
  std::string text = WaveformHead(setup, lengthUnit) + "# Columns: frequency, force (re, im)" +
                     ReceiverColumns(setup, ", displacement at %.10g for a force of 1 (re, im)");
  for (std::size_t k = 0; k < result.force.size(); ++k) {
    text += FormatText("%.10g %.10g %.10g", static_cast<double>(k) * result.lines.deltaF,
                       result.force[k].real(), result.force[k].imag());
    for (const auto& u : result.lines.u) text += FormatText(" %.10g %.10g", u[k].real(), u[k].imag());
    text += '\n';
  }
  return text;
}

}  // namespace sondera
