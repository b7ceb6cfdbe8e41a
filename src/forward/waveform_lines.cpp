// waveform_lines.cpp - see waveform_lines.h.
#include "forward/waveform_lines.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "forward/plane_wave_table.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

using Complex = std::complex<double>;

constexpr double kEndless = 1e+30;  // thickness of the half-space: the depth of the mesh limits it
constexpr double kRadiusOverWavelength = 1e-4;
constexpr double kRadiusOverDistance = 0.01;

/// "layer 2" or "layers 1, 3 and 4" of the layers for which `which` holds; "" for none.
template <class Which>
std::string NameLayers(const std::vector<WaveformLayer>& layers, Which which) {
  std::vector<int> found;
  for (std::size_t l = 0; l < layers.size(); ++l)
    if (which(layers[l])) found.push_back(static_cast<int>(l) + 1);
  std::string text;
  for (std::size_t i = 0; i < found.size(); ++i) {
    const char* before = i == 0 ? "" : i + 1 == found.size() ? " and " : ", ";
    text += FormatText("%s%d", before, found[i]);
  }
  if (found.empty()) return text;
  return (found.size() == 1 ? "layer " : "layers ") + text;
}

}  // namespace

LineSolver::LineSolver(const WaveformSite& site) {
  for (std::vector<double>* v : {&h_, &Vs_, &G_, &rho_, &nu_, &damp_}) v->push_back(0.0);
  for (const WaveformLayer& l : site.layers) {
    h_.push_back(&l == &site.layers.back() ? kEndless : l.thickness);
    Vs_.push_back(l.Vs);
    G_.push_back(l.density * l.Vs * l.Vs);
    rho_.push_back(l.density);
    nu_.push_back(l.nu);
    damp_.push_back(l.damping);
  }
  in_.layers = {static_cast<int>(site.layers.size()),
                h_.data(),
                Vs_.data(),
                G_.data(),
                rho_.data(),
                nu_.data(),
                damp_.data()};
  in_.mesh = {site.nSubLayers, std::max(site.fDispBulb, kLeastMeshDepth), true};
  nReceivers_ = static_cast<int>(site.receivers.size());
  if (nReceivers_ > 0) nearest_ = *std::min_element(site.receivers.begin(), site.receivers.end());
  work_.x.push_back(0.0);
  work_.x.insert(work_.x.end(), site.receivers.begin(), site.receivers.end());
  work_.nReportNodes = nReceivers_;
}

double LineSolver::LoadRadius(double wavelength) const {
  return std::min(kRadiusOverWavelength * wavelength, kRadiusOverDistance * nearest_);
}

bool LineSolver::Displacement(double frequency, double wavelength, std::vector<Complex>& u) {
  u.assign(static_cast<std::size_t>(nReceivers_), 0.0);
  if (FS_Chief(in_, work_, LoadRadius(wavelength), frequency, wavelength) != 1) return false;
  for (std::size_t i = 0; i < u.size(); ++i) {
    u[i] = {work_.u[i + 1].re, work_.u[i + 1].im};
    if (!std::isfinite(u[i].real()) || !std::isfinite(u[i].imag())) {
      std::fill(u.begin(), u.end(), 0.0);
      return false;
    }
  }
  return true;
}

Refusal CheckWaveformSite(const WaveformSite& site) {
  if (site.receivers.empty()) return "There is no receiver.";
  if (site.receivers.size() > kMostWaveformReceivers)
    return FormatText("There are %zu receivers; a record has up to %d.", site.receivers.size(),
                      kMostWaveformReceivers);
  double before = 0.0;
  for (std::size_t i = 0; i < site.receivers.size(); ++i) {
    const double x = site.receivers[i];
    if (!(x > before && x <= 1e9))
      return FormatText("Receiver %zu is at %g; distances from the source have to be above 0 and ascending.",
                        i + 1, x);
    before = x;
  }
  const LineSolver solver(site);
  std::string why;
  if (!CheckPointLoadInput(solver.Input(), &why)) return why;
  for (std::size_t l = 0; l + 1 < site.layers.size(); ++l)
    if (!(site.layers[l].thickness > 0.0))
      return FormatText("The thickness %g of layer %zu is not above 0.", site.layers[l].thickness, l + 1);
  return {};
}

std::vector<std::string> WaveformSiteNotes(const WaveformSite& site) {
  std::vector<std::string> notes;
  const std::string undamped =
      NameLayers(site.layers, [](const WaveformLayer& l) { return l.damping < kLeastWaveformDamping; });
  if (!undamped.empty())
    notes.push_back(FormatText("The damping ratio of %s is below %g: the record is computed with %g there.",
                               undamped.c_str(), kLeastWaveformDamping, kLeastWaveformDamping));
  const std::string stiff =
      NameLayers(site.layers, [](const WaveformLayer& l) { return l.nu > kSafeWaveformNu; });
  if (!stiff.empty())
    notes.push_back(FormatText("Poisson's ratio of %s is above %g: the record may be off by 3 to 13 %%.",
                               stiff.c_str(), kSafeWaveformNu));
  return notes;
}

Refusal ComputeWaveformLines(const WaveformSite& site, double deltaF, const std::vector<bool>& wanted,
                             Listener& listener, WaveformLines& lines) {
  if (Refusal refusal = CheckWaveformSite(site)) return refusal;
  WaveformSite damped = site;
  std::vector<PlaneWaveLayer> plane;
  for (WaveformLayer& l : damped.layers) {
    l.damping = std::max(l.damping, kLeastWaveformDamping);
    plane.push_back({l.thickness, l.Vs, l.density, l.nu});
  }
  const PlaneWaveTable table(plane);
  if (!(table.Velocity(1.0) > 0.0)) return "The layers have no Rayleigh wave at any wavelength.";

  LineSolver solver(damped);
  WaveformLines made;
  made.deltaF = deltaF;
  made.u.assign(site.receivers.size(), std::vector<Complex>(wanted.size(), 0.0));
  const auto total = static_cast<double>(std::count(wanted.begin(), wanted.end(), true));
  double done = 0.0;
  std::vector<Complex> u;
  for (std::size_t k = 1; k < wanted.size(); ++k) {
    if (!wanted[k]) continue;
    if (listener.Poll()) return Refusal::WithoutReason();
    listener.Done(done / total);
    const double f = static_cast<double>(k) * deltaF;
    if (!solver.Displacement(f, table.Velocity(f) / f, u)) made.withoutModes.push_back(static_cast<int>(k));
    for (std::size_t r = 0; r < u.size(); ++r) made.u[r][k] = u[r];
    ++done;
  }
  listener.Done(1.0);
  lines = std::move(made);
  return {};
}

int CyclesPassed(const WaveformLines& lines, std::size_t near, std::size_t far, std::size_t line) {
  double lag = 0.0;
  int cycles = 0;
  for (std::size_t k = 1; k <= line && k < lines.u[near].size(); ++k) {
    if (lines.u[near][k] == 0.0 || lines.u[far][k] == 0.0) continue;
    const double shown = -std::arg(lines.u[far][k] / lines.u[near][k]) / (2.0 * std::numbers::pi);
    cycles = static_cast<int>(std::lround(lag - shown));  // lines are a small part of a turn apart
    lag = shown + cycles;
  }
  return cycles;
}

}  // namespace sondera
