// inversion_result.cpp - what an inversion found, from the text files that it left: RMS by iteration, profile
// with its band, and on request two pictures. Where the ground is known, it stands beside what was found.
//   inversion_result <base name of the files> [<picture base name> <title> [<folder with the truth>]]
// The folder holds true_layers.txt and true_curve.txt, as make_records writes them.
#include <algorithm>
#include <cmath>
#include <cstdio>

#include "curve_plot.h"
#include "result_files.h"

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

/// Mean Vs of the known ground between two depths, by the travel time; the half-space goes on for ever.
double TrueVs(const std::vector<LayerLine>& truth, double top, double bottom) {
  double time = 0.0;
  for (std::size_t i = 0; i < truth.size(); ++i) {
    const double end = i + 1 < truth.size() ? truth[i].depth + truth[i].thickness : bottom;
    const double part = std::min(end, bottom) - std::max(truth[i].depth, top);
    if (part > 0.0) time += part / truth[i].Vs;
  }
  return (bottom - top) / time;
}

void PrintProfile(const IterationBlock& last, const std::vector<LayerLine>& truth) {
  std::printf("  %-16s %8s   %-16s %s%s\n", "depth, m", "Vs, m/s", "95 % band", "resolution",
              truth.empty() ? "" : "   true Vs");
  for (std::size_t i = 0; i < last.layers.size(); ++i) {
    const LayerLine& l = last.layers[i];
    char depth[32], band[32];
    if (i + 1 < last.layers.size()) {
      std::snprintf(depth, sizeof depth, "%.1f to %.1f", l.depth, l.depth + l.thickness);
    } else {
      std::snprintf(depth, sizeof depth, "below %.1f", l.depth);
    }
    std::snprintf(band, sizeof band, "%.0f to %.0f", l.lower, l.upper);
    std::printf("  %-16s %8.1f   %-16s %-10.2f", depth, l.Vs, band, l.resolution);
    const double bottom = i + 1 < last.layers.size() ? l.depth + l.thickness : l.depth + 1.0;
    if (!truth.empty()) std::printf("   %.0f", TrueVs(truth, l.depth, bottom));
    std::printf("\n");
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

bool DrawProfilePicture(const std::string& path, const std::string& title,
                        const std::vector<IterationBlock>& blocks, const std::vector<LayerLine>& truth) {
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
  if (!truth.empty()) plot.add(Stairs("the ground", "black", false, truth, &LayerLine::Vs, end));
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
                      const std::vector<IterationBlock>& blocks, const std::vector<CurvePoint>& truth) {
  const IterationBlock& last = blocks.back();
  std::vector<CurvePoint> all = last.observed;
  all.insert(all.end(), last.computed.begin(), last.computed.end());
  SvgPlot plot = CurvePlot(title, all);
  plot.add(Dots("measured", "#ff7f0e", last.observed));
  plot.add(Dots("computed", "#1f77b4", last.computed));
  if (!truth.empty()) plot.add(KnownCurve("the ground's own", truth, all));
  return plot.write(path);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2 && argc != 4 && argc != 5) {
    std::fputs("inversion_result <base name> [<picture base name> <title> [<folder with the truth>]]\n",
               stderr);
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
  std::vector<LayerLine> truth;
  std::vector<CurvePoint> trueCurve;
  if (argc == 5) {
    truth = ReadLayers(std::string(argv[4]) + "/true_layers.txt");
    trueCurve = ReadCurve(std::string(argv[4]) + "/true_curve.txt");
    if (truth.empty() || trueCurve.empty()) {
      std::fprintf(stderr, "inversion_result: there is no truth about the ground in %s\n", argv[4]);
      return 1;
    }
  }
  PrintRms(blocks);
  PrintProfile(blocks.back(), truth);
  if (argc == 2) return 0;
  const std::string base = argv[2], title = argv[3];
  if (!DrawProfilePicture(base + "_profile.svg", title + ": profile", blocks, truth) ||
      (!blocks.back().observed.empty() &&
       !DrawCurvePicture(base + "_fit.svg", title + ": measured and computed curve", blocks, trueCurve))) {
    std::fprintf(stderr, "inversion_result: cannot write the pictures %s_*.svg\n", argv[2]);
    return 1;
  }
  return 0;
}
