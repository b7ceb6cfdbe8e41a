// curve_picture.cpp - draws the dispersion curves of a project's pairs as an SVG picture.
//   curve_picture <file.da> <picture.svg> <title> [<published curve>]
#include <algorithm>
#include <cstdio>

#include "app/console.h"
#include "app/startup.h"
#include "curve_report.h"
#include "project/project_file.h"
#include "svg_plot.h"

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
    std::fputs("curve_picture <file.da> <picture.svg> <title> [<published curve>]\n", stderr);
    return 1;
  }
  InstallConsole({});
  StartSession();
  OpenFileProc(argv[1]);

  SvgPlot plot(argv[3], {"Wavelength, m", 1.5, 40.0, 0.0, true}, {"Phase velocity, m/s", 80.0, 240.0, 20.0});
  std::size_t color = 0;
  for (const PMeasInfo& pair : MeasDB.pMeasList)
    if (pair.nDispPoints > 0)
      plot.add(Series(PairLabel(pair), kColors[color++ % std::size(kColors)], PointsOf(pair)));
  if (argc > 4) {
    SvgSeries published = Series("published site curve", "black", ReadPublished(argv[4]));
    published.line = true;
    plot.add(std::move(published));
  }
  if (!plot.write(argv[2])) {
    std::fprintf(stderr, "curve_picture: cannot write %s\n", argv[2]);
    return 1;
  }
  return 0;
}
