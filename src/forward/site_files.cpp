#include "forward/site_files.h"

#include <cmath>

#include "numeric/analysis.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

using Complex = std::complex<double>;

std::vector<Complex> HalfSpectrum(const std::vector<double>& samples) {
  const auto n = samples.size();
  std::vector<double> re(n), im(n);
  RealFFT(samples.data(), re.data(), im.data(), static_cast<int>(n));
  std::vector<Complex> lines(n / 2 + 1);
  for (std::size_t i = 0; i < lines.size(); ++i) lines[i] = {re[i], im[i]};
  return lines;
}

}  // namespace

SyntheticSite ExampleSite() {
  SyntheticSite site;
  site.noise = 0.002;
  site.lowNoise = 0.02;
  site.lowNoiseTo = 6.0;
  site.hum = 0.002;
  site.seed = 9;
  return site;
}

SiteRecording ExampleRecording() {
  SiteRecording recording;
  recording.receivers = {10.0, 14.0, 22.0, 30.0, 42.0, 54.0};
  recording.firstTime = -0.1;
  return recording;
}

std::vector<Complex> SiteSpectra::Transfer(std::size_t receiver) const {
  std::vector<Complex> h(cross[receiver].size());
  for (std::size_t i = 0; i < h.size(); ++i)
    h[i] = power[0][i] > 0.0 ? cross[receiver][i] / power[0][i] : Complex(0.0);
  return h;
}

std::vector<double> SiteSpectra::Coherence(std::size_t receiver) const {
  std::vector<double> coherence(cross[receiver].size());
  for (std::size_t i = 0; i < coherence.size(); ++i) {
    const double both = power[0][i] * power[receiver][i];
    coherence[i] = both > 0.0 ? std::norm(cross[receiver][i]) / both : 0.0;
  }
  return coherence;
}

SiteSpectra MeanSpectra(const SiteSimulator& site, const SiteRecording& recording, int nBlows) {
  if (nBlows < 1 || !site.Fault(recording).empty()) return {};
  const auto n = static_cast<double>(recording.nSamples);
  const std::size_t lines = static_cast<std::size_t>(recording.nSamples) / 2 + 1;
  const std::size_t channels = recording.receivers.size();
  SiteSpectra mean;
  mean.deltaF = 1.0 / (n * recording.deltaT);
  mean.power.assign(channels, std::vector<double>(lines, 0.0));
  mean.cross.assign(channels, std::vector<Complex>(lines));
  const double scale = 2.0 / (n * n * nBlows);
  for (int blow = 1; blow <= nBlows; ++blow) {
    const SiteRecord record = site.Record(recording, blow);
    std::vector<Complex> first;
    for (std::size_t c = 0; c < channels; ++c) {
      const std::vector<Complex> X = HalfSpectrum(record[c]);
      if (c == 0) first = X;
      for (std::size_t i = 0; i < lines; ++i) {
        mean.power[c][i] += scale * std::norm(X[i]);
        mean.cross[c][i] += scale * X[i] * std::conj(first[i]);
      }
    }
  }
  return mean;
}

SiteSpectra ExamplePair(const SiteSimulator& site) {
  SiteRecording recording = ExampleRecording();
  recording.receivers = {14.0, 30.0};
  return MeanSpectra(site, recording, 5);
}

std::string TimFileText(const SiteRecording& recording, const std::vector<double>& samples) {
  std::string text;
  for (std::size_t i = 0; i < samples.size(); ++i)
    text += FormatText("%.9g %.8e\n", recording.firstTime + static_cast<double>(i) * recording.deltaT,
                       samples[i]);
  return text;
}

std::string SpectrumFileText(double deltaF, const std::vector<Complex>& values, std::size_t lines) {
  std::string text;
  const std::size_t count = lines > 0 && lines < values.size() ? lines : values.size();
  for (std::size_t i = 0; i < count; ++i)
    text +=
        FormatText("%.9g %.8e %.8e\n", static_cast<double>(i) * deltaF, values[i].real(), values[i].imag());
  return text;
}

std::string TrueCurveText(const SiteSimulator& site, double from, double to, int points) {
  std::string text =
      "# fundamental mode of the ground: frequency (Hz), phase velocity (m/s), half width (none), wavelength "
      "(m)\n";
  for (int i = 0; i < points; ++i) {
    const double f = from * std::pow(to / from, points > 1 ? i / (points - 1.0) : 0.0);
    const double c = site.PhaseVelocity(f);
    text += FormatText("%.6g %.6g 0 %.6g\n", f, c, c / f);
  }
  return text;
}

std::string TrueLayersText(const SyntheticSite& site) {
  std::string text = "# the ground: depth of the top (m), thickness (m, 0: half-space), Vs (m/s)\n";
  double top = 0.0;
  for (std::size_t i = 0; i < site.layers.size(); ++i) {
    const bool last = i + 1 == site.layers.size();
    text += FormatText("%g %g %g\n", top, last ? 0.0 : site.layers[i].thickness, site.layers[i].Vs);
    top += site.layers[i].thickness;
  }
  return text;
}

}  // namespace sondera
