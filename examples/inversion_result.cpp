// inversion_result.cpp - what an inversion found, from the text files that it left: RMS by iteration, profile
// with its band, and on request two pictures.
//   inversion_result <base name of the files> [<picture base name> <title>]
#include <algorithm>
#include <cmath>
#include <cstdio>

#include "result_files.h"
#include "svg_plot.h"

namespace {

using namespace sondera::example;

void PrintRms(const std::vector<IterationBlock>& blocks) {
  std::printf("  RMS, m/s, from the starting model on:");
  for (const IterationBlock& b : blocks) std::printf(" %.2f", b.rms);
  std::printf("\n");
  const auto best = std::min_element(blocks.begin(), blocks.end(),
                                     [](const auto& a, const auto& b) { return a.rms < b.rms; });
  if (best->number != blocks.back().number)
    std::printf("  The smallest is that of iteration %d. The profile is that of the last one.\n",
                best->number);
}

void PrintProfile(const IterationBlock& last) {
  std::printf("  %-16s %8s   %-16s %s\n", "depth, m", "Vs, m/s", "95 % band", "resolution");
  for (std::size_t i = 0; i < last.layers.size(); ++i) {
    const LayerLine& l = last.layers[i];
    char depth[32], band[32];
    if (i + 1 < last.layers.size()) {
      std::snprintf(depth, sizeof depth, "%.1f to %.1f", l.depth, l.depth + l.thickness);
    } else {
      std::snprintf(depth, sizeof depth, "below %.1f", l.depth);
    }
    std::snprintf(band, sizeof band, "%.0f to %.0f", l.lower, l.upper);
    std::printf("  %-16s %8.1f   %-16s %.2f\n", depth, l.Vs, band, l.resolution);
  }
}

/// Stairs of one column of a profile, the half-space drawn down to an end.
SvgSeries Stairs(const std::string& label, const std::string& color, bool dashed,
                 const std::vector<LayerLine>& layers, double LayerLine::*value, double end) {
  SvgSeries s{label, color, {}, {}, true, dashed};
  for (std::size_t i = 0; i < layers.size(); ++i) {
    const double bottom = i + 1 < layers.size() ? layers[i].depth + layers[i].thickness : end;
    s.x.insert(s.x.end(), {layers[i].*value, layers[i].*value});
    s.y.insert(s.y.end(), {layers[i].depth, bottom});
  }
  return s;
}

double RoundUp(double value, double step) {
  return step * std::ceil(value / step);
}

bool DrawProfilePicture(const std::string& path, const std::string& title,
                        const std::vector<IterationBlock>& blocks) {
  const IterationBlock& last = blocks.back();
  const double end = std::max(1.0, 1.25 * last.layers.back().depth);
  double most = 0.0;
  for (const LayerLine& l : last.layers) most = std::max({most, l.Vs, l.upper});
  SvgPlot plot(title, {"Shear-wave velocity, m/s", 0.0, RoundUp(1.35 * most, 50.0), 50.0},
               {"Depth, m", 0.0, end, end > 12.0 ? 5.0 : 2.0, false, true});
  plot.add(Stairs("starting model", "#999999", true, blocks.front().layers, &LayerLine::Vs, end));
  plot.add(Stairs("95 % band", "#1f77b4", true, last.layers, &LayerLine::lower, end));
  plot.add(Stairs("", "#1f77b4", true, last.layers, &LayerLine::upper, end));
  plot.add(Stairs("last iteration", "#1f77b4", false, last.layers, &LayerLine::Vs, end));
  return plot.write(path);
}

SvgSeries Dots(const std::string& label, const std::string& color, const std::vector<CurvePoint>& points) {
  SvgSeries s{label, color, {}, {}, false, false};
  for (const CurvePoint& p : points) {
    s.x.push_back(p.wavelength);
    s.y.push_back(p.velocity);
  }
  return s;
}

bool DrawCurvePicture(const std::string& path, const std::string& title,
                      const std::vector<IterationBlock>& blocks) {
  const IterationBlock& last = blocks.back();
  double shortest = 1e30, longest = 0.0, least = 1e30, most = 0.0;
  for (const auto* points : {&last.observed, &last.computed}) {
    for (const CurvePoint& p : *points) {
      shortest = std::min(shortest, p.wavelength);
      longest = std::max(longest, p.wavelength);
      least = std::min(least, p.velocity);
      most = std::max(most, p.velocity);
    }
  }
  SvgPlot plot(title, {"Wavelength, m", 0.9 * shortest, 1.1 * longest, 0.0, true},
               {"Phase velocity, m/s", std::max(0.0, RoundUp(0.9 * least - 20.0, 20.0)),
                RoundUp(1.15 * most, 20.0), 20.0});
  plot.add(Dots("measured", "#ff7f0e", last.observed));
  plot.add(Dots("computed", "#1f77b4", last.computed));
  return plot.write(path);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2 && argc != 4) {
    std::fputs("inversion_result <base name> [<picture base name> <title>]\n", stderr);
    return 1;
  }
  const std::vector<IterationBlock> blocks = ReadRun(argv[1]);
  if (blocks.empty() || blocks.back().layers.empty()) {
    std::fprintf(stderr, "inversion_result: there is no inversion in %s.fmp\n", argv[1]);
    return 1;
  }
  if (blocks.back().number < 1 || blocks.back().rms < 0.0) {
    std::fprintf(stderr, "inversion_result: no iteration was finished in %s.fmp\n", argv[1]);
    return 1;
  }
  PrintRms(blocks);
  PrintProfile(blocks.back());
  if (argc == 2) return 0;
  const std::string base = argv[2], title = argv[3];
  if (!DrawProfilePicture(base + "_profile.svg", title + ": profile", blocks) ||
      (!blocks.back().observed.empty() &&
       !DrawCurvePicture(base + "_fit.svg", title + ": measured and computed curve", blocks))) {
    std::fprintf(stderr, "inversion_result: cannot write the pictures %s_*.svg\n", argv[2]);
    return 1;
  }
  return 0;
}
