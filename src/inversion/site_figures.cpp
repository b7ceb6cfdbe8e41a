// site_figures.cpp - see site_figures.h.
#include "inversion/site_figures.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string_view>

#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr double kDeviations = 2.0;
constexpr double kRounding = 1e-9;  // relative: depths that were converted from feet

bool AboveZero(double x) {
  return std::isfinite(x) && x > 0.0;
}

/// Part of each layer above a depth, m.
std::vector<double> CutAt(const SiteProfile& profile, double depth) {
  std::vector<double> parts;
  double top = 0.0;
  for (std::size_t i = 0; i < profile.layers.size(); ++i) {
    const bool halfSpace = i + 1 == profile.layers.size();
    const double h = profile.layers[i].thickness * profile.lengthUnit;
    const double left = std::max(depth - top, 0.0);
    parts.push_back(halfSpace ? left : std::min(h, left));
    top += h;
  }
  return parts;
}

std::optional<SiteProfile> AtEnd(const SiteProfile& profile, std::optional<double> FigureLayer::*end) {
  SiteProfile moved = profile;
  for (FigureLayer& layer : moved.layers) {
    const std::optional<double> velocity = layer.*end;
    if (!velocity || !AboveZero(*velocity)) return std::nullopt;
    layer.vs = *velocity;
  }
  return moved;
}

SiteFigure FigureAt(const SiteProfile& profile, double depth, const char* name, FigureStatus status) {
  SiteFigure figure;
  figure.name = name;
  figure.depth = depth;
  figure.status = status;
  figure.value = AverageVelocity(profile, depth);
  const auto low = AtLowEnd(profile), high = AtHighEnd(profile);
  if (low && high) {
    figure.low = AverageVelocity(*low, depth);
    figure.high = AverageVelocity(*high, depth);
  }
  if (profile.covariance.empty()) return figure;
  const std::vector<double> g = AverageGradient(profile, depth);
  double variance = 0.0;
  for (std::size_t i = 0; i < g.size(); ++i)
    for (std::size_t j = 0; j < g.size(); ++j) variance += g[i] * profile.covariance[i * g.size() + j] * g[j];
  if (variance >= 0.0) figure.spread = kDeviations * std::sqrt(variance) * profile.lengthUnit;
  return figure;
}

/// Why the profile was not seen to 30 m, with both limits.
std::string SeenReason(const SeenDepth& seen) {
  if (!(seen.byWavelength > 0.0)) return "no curve tells how deep the ground was seen";
  std::string text = FormatText("the ground was seen to %.4g m: half the longest wavelength is %.4g m",
                                seen.depth, seen.byWavelength);
  if (!seen.byResolution) return text + ", and the resolution of the layers is not known";
  if (*seen.byResolution == 0.0)
    return text + FormatText(", and no layer has a resolution of %g", kLeastResolution);
  if (std::isfinite(*seen.byResolution))
    text += FormatText(", and layers have a resolution of %g down to %.4g m", kLeastResolution,
                       *seen.byResolution);
  return text;
}

}  // namespace

std::string ProfileFault(const SiteProfile& profile) {
  if (profile.layers.empty()) return "the profile has no layers";
  if (!AboveZero(profile.lengthUnit)) return "the profile has no unit of length";
  for (std::size_t i = 0; i < profile.layers.size(); ++i) {
    const FigureLayer& layer = profile.layers[i];
    if (!AboveZero(layer.vs)) return FormatText("layer %zu has a shear-wave velocity of %g", i + 1, layer.vs);
    if (i + 1 < profile.layers.size() && !AboveZero(layer.thickness))
      return FormatText("layer %zu has a thickness of %g", i + 1, layer.thickness);
  }
  const std::size_t n = profile.layers.size();
  if (!profile.covariance.empty() && profile.covariance.size() != n * n)
    return "the covariance does not belong to the layers";
  return {};
}

SeenDepth SeenDepthOf(const SiteProfile& profile) {
  SeenDepth seen;
  if (AboveZero(profile.longestWavelength))
    seen.byWavelength = kSeenShare * profile.longestWavelength * profile.lengthUnit;
  double bottom = 0.0;
  for (std::size_t i = 0; i < profile.layers.size(); ++i) {
    const FigureLayer& layer = profile.layers[i];
    bottom += layer.thickness * profile.lengthUnit;
    if (i + 1 == profile.layers.size()) bottom = std::numeric_limits<double>::infinity();
    if (!layer.resolution) continue;
    if (!seen.byResolution) seen.byResolution = 0.0;
    if (*layer.resolution >= kLeastResolution) seen.byResolution = bottom;
  }
  seen.depth = seen.byResolution ? std::min(seen.byWavelength, *seen.byResolution) : seen.byWavelength;
  return seen;
}

double AverageVelocity(const SiteProfile& profile, double depth) {
  const std::vector<double> parts = CutAt(profile, depth);
  double time = 0.0, slowest = std::numeric_limits<double>::infinity(), fastest = 0.0;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (!(parts[i] > 0.0)) continue;
    const double v = profile.layers[i].vs * profile.lengthUnit;
    time += parts[i] / v;
    slowest = std::min(slowest, v);
    fastest = std::max(fastest, v);
  }
  // Uniform ground has exactly its own velocity, to the last bit: it may be the limit of a class.
  return slowest == fastest ? slowest : depth / time;
}

std::vector<double> AverageGradient(const SiteProfile& profile, double depth) {
  const double average = AverageVelocity(profile, depth);
  std::vector<double> g = CutAt(profile, depth);
  for (std::size_t i = 0; i < g.size(); ++i) {
    const double v = profile.layers[i].vs * profile.lengthUnit;
    g[i] *= average * average / (depth * v * v);
  }
  return g;
}

std::string FiguresOf(const SiteProfile& profile, bool extend, SiteFigures& figures) {
  figures = {};
  if (std::string fault = ProfileFault(profile); !fault.empty()) return fault;
  figures.seen = SeenDepthOf(profile);
  const double seen = figures.seen.depth;
  if (seen >= kVs30Depth * (1.0 - kRounding)) {
    figures.figures.push_back(FigureAt(profile, kVs30Depth, "vs30", FigureStatus::Measured));
    figures.figures.push_back(FigureAt(profile, kHundredFeet, "vsz", FigureStatus::Measured));
    return {};
  }
  const std::string reason = SeenReason(figures.seen);
  if (extend) {
    for (const auto& [depth, name] : {std::pair{kVs30Depth, "vs30"}, std::pair{kHundredFeet, "vsz"}}) {
      figures.figures.push_back(FigureAt(profile, depth, name, FigureStatus::Extended));
      figures.figures.back().reason =
          reason + "; the lowest velocity is used below, which generally gives too low an average";
    }
  } else {
    SiteFigure none;
    none.name = "vs30";
    none.depth = kVs30Depth;
    none.reason = reason;
    figures.figures.push_back(none);
  }
  if (seen > 0.0) figures.figures.push_back(FigureAt(profile, seen, "vsz", FigureStatus::Measured));
  return {};
}

std::optional<SiteProfile> AtLowEnd(const SiteProfile& profile) {
  return AtEnd(profile, &FigureLayer::low);
}
std::optional<SiteProfile> AtHighEnd(const SiteProfile& profile) {
  return AtEnd(profile, &FigureLayer::high);
}

double RoundedFigure(double value) {
  return std::round(value * 1e4) / 1e4;
}

std::string FigureDigits(double value) {
  std::string text = FormatText("%.4f", value);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.ends_with('.')) text.pop_back();
  return text;
}

std::string_view StatusName(FigureStatus status) {
  switch (status) {
    case FigureStatus::Measured:
      return "measured";
    case FigureStatus::Extended:
      return "extended";
    case FigureStatus::NotAvailable:
      break;
  }
  return "not-available";
}

}  // namespace sondera
