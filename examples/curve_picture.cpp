// curve_picture.cpp - draws the dispersion curves of a project's pairs as an SVG picture.
//   curve_picture <file.da> <picture.svg> <title> [<known curve>]
#include <algorithm>
#include <cstdio>

#include "app/console.h"
#include "app/startup.h"
#include "curve_plot.h"
#include "curve_report.h"
#include "panels/mainmenu_project.h"
#include "project/project_file.h"

namespace {

using namespace sondera;
using namespace sondera::example;

constexpr const char* kColors[] = {"#1f77b4", "#ff7f0e", "#2ca02c", "#9467bd",
                                   "#8c564b", "#e377c2", "#17becf"};

SvgSeries Series(const std::string& label, const std::string& color, const std::vector<CurvePoint>& points) {
  SvgSeries s{label, color, {}, {}, false, false};
  for (const CurvePoint& p : points) {
    s.x.push_back(p.wavelength);
    s.y.push_back(p.velocity);
  }
  return s;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) {
    std::fputs("curve_picture <file.da> <picture.svg> <title> [<known curve>]\n", stderr);
    return 1;
  }
  InstallConsole({});
  StartSession();
  OpenFileProc(argv[1]);

  std::vector<SvgSeries> pairs;
  std::vector<CurvePoint> all;
  for (const PMeasInfo& pair : MeasDB.pMeasList) {
    if (pair.nDispPoints <= 0) continue;
    const std::vector<CurvePoint> points = PointsOf(pair);
    all.insert(all.end(), points.begin(), points.end());
    pairs.push_back(Series(PairLabel(pair), kColors[pairs.size() % std::size(kColors)], points));
  }
  SvgPlot plot = CurvePlot(argv[3], all);
  for (SvgSeries& s : pairs) plot.add(std::move(s));
  if (argc > 4) plot.add(KnownCurve("known curve", ReadCurve(argv[4]), all));
  if (!plot.write(argv[2])) {
    std::fprintf(stderr, "curve_picture: cannot write %s\n", argv[2]);
    return 1;
  }
  return 0;
}
