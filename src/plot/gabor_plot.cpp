// gabor_plot.cpp - see gabor_plot.h. Owns no state.
#include "plot/gabor_plot.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "records/kinds.h"
#include "records/session.h"
#include "signal/gabor.h"

namespace sondera {
namespace {

constexpr double kTopLevel = 100.0;

}  // namespace

std::vector<ColorLevel> MakeGaborColorMap(double threshold) {
  const ColorScale& colors = session.gaborColor;
  const double third = (kTopLevel - threshold) / 3.0;
  return {{threshold, colors.lo},
          {threshold + third, colors.int1},
          {threshold + 2.0 * third, colors.int2},
          {kTopLevel, colors.hi}};
}

// A column of the image is a frequency and therefore a row of the map.
IntensityModel GaborImage(const PMeasInfo& pair) {
  IntensityModel image;
  image.columns = std::clamp(pair.freqDiv, 0, kGaborDivisions);
  image.rows = std::clamp(pair.timeDiv, 0, kGaborDivisions);
  image.xMin = pair.initFreq;
  image.xMax = pair.finalFreq;
  image.yMin = pair.initTime;
  image.yMax = pair.finalTime;
  image.colorMap = MakeGaborColorMap(pair.cntThreshold);
  const bool filtered = pair.phaseOption == kEnhancedPhase || pair.phaseOption == kBackbonePhase;
  const int option = filtered ? pair.phaseOption : kOriginalPhase;
  for (int r = 0; r < image.columns; ++r) {
    for (int c = 0; c < image.rows; ++c) {
      const auto cell = static_cast<std::size_t>(r * kGaborDivisions + c);
      image.z.push_back(pair.gabor ? (*pair.gabor)[static_cast<std::size_t>(option)][cell] : 0.0);
    }
  }
  ScalezArray(image.z.data(), image.columns, image.rows, pair.cntThreshold);
  return image;
}

void PlotGaborMap(const GraphControl& graph, const PMeasInfo& pair) {
  IntensityModel image = GaborImage(pair);
  for (const bool xAxis : {true, false}) {
    SetAxisLogarithmic(graph, xAxis, false);
    SetAxisPrefix(graph, xAxis, "", 1.0);
    SetAxisDivisions(graph, xAxis, 0);
  }
  SetAxisRange(graph, true, image.xMin, image.xMax);
  SetAxisRange(graph, false, image.yMin, image.yMax);
  SetAxisLabel(graph, true, "Frequency", "Hz");
  SetAxisLabel(graph, false, "Time", "sec");
  PlotIntensity(graph, std::move(image));
}

void PlotNoGaborMap(const GraphControl& graph, const HWSetup& hw) {
  const auto n = static_cast<std::size_t>(std::max(hw.nLines, 0));
  std::vector<double> x(n);
  for (std::size_t i = 0; i < n; ++i) x[i] = static_cast<double>(i) * hw.deltaF;
  PlotXY(graph, std::move(x), std::vector<double>(n, 0.0));
}

}  // namespace sondera
