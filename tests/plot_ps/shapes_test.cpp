// Lines, areas, curves, round shapes and symbols.
#include "plot_ps/shapes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "plot_ps/arcs.h"
#include "ps_fixture.h"

namespace sondera::testing {
namespace {

class Shapes : public PsTest {};

TEST_F(Shapes, PolylineDrawsThePointsFromTheFirst) {
  const float x[] = {1.0f, 2.0f, 3.0f}, y[] = {1.0f, 3.0f, 2.0f};
  EXPECT_EQ(Drawn([&] {
              ps_drawa(0.5f, 0.5f);
              ps_polyline(x, y, 3, 0, 0, 0.0f);
              ps_polyline(x, y, 0, 0, 0, 0.0f);
              ps_polyline(x, y, -1, 1, 0, 0.0f);
            }),
            "newpath\n0.0 0.0 M\n14.2 14.2 L\nGSG\n" + Cm(1, 1) + " M\nnewpath\n" + Cm(1, 1) + " M\n" +
                Cm(1, 1) + " L\n" + Cm(2, 3) + " L\n" + Cm(3, 2) + " L\nGSG\n");
}

TEST_F(Shapes, APolylineHasGapsWhereItIsNoNumber) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  const float x[] = {kNan, 1.0f, 2.0f, 3.0f, 4.0f, 5.0f, kNan, kInf},
              y[] = {1.0f, 1.0f, 1.0f, -kInf, 2.0f, 3.0f, 1.0f, 1.0f};
  const test::Trace trace = Traced([&] { ps_polyline(x, y, 8, 0, 0, 0.0f); });
  ASSERT_EQ(trace.marks.size(), 2u);
  EXPECT_EQ(trace.marks[0].paths.size(), 1u);
  EXPECT_NEAR(trace.marks[0].paths[0].back().x, 28.3 + 2 * kCm, 0.06);
  EXPECT_NEAR(trace.marks[1].paths[0].front().x, 28.3 + 4 * kCm, 0.06);
  EXPECT_EQ(Drawn([&] { ps_polyline(x, y, 1, 0, 0, 0.0f); }), "GSG\n");
}

TEST_F(Shapes, AMarkedPolylineHasASymbolAtEachPoint) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  const float x[] = {1.0f, 2.0f, 3.0f}, y[] = {1.0f, 3.0f, 2.0f};
  const test::Trace trace = Traced([&] { ps_polyline(x, y, 3, 1, 8, 0.2f); });
  int fills = 0;
  std::vector<std::pair<double, double>> ends;
  for (const test::TraceMark& mark : trace.marks) {
    if (mark.kind == test::TraceMark::fill) ++fills;
    if (mark.kind == test::TraceMark::stroke)
      ends.emplace_back(mark.paths[0].front().x, mark.paths[0].back().x);
  }
  EXPECT_EQ(fills, 3);
  ASSERT_EQ(ends.size(), 3u);  // the first one from point 0 to itself
  EXPECT_NEAR(ends[1].first, 28.3 + kCm, 0.06);
  EXPECT_NEAR(ends[1].second, 28.3 + 2 * kCm, 0.06);
  EXPECT_NEAR(ends[2].second, 28.3 + 3 * kCm, 0.06);
}

TEST_F(Shapes, ClosedCurves) {
  const float x[] = {1.0f, 2.0f, kNan, 2.0f}, y[] = {1.0f, 1.0f, 5.0f, 2.0f};
  const std::string outline = Cm(1, 1) + " M\nnewpath\n" + Cm(1, 1) + " M\n" + Cm(1, 1) + " L\n" + Cm(2, 1) +
                              " L\n" + Cm(2, 2) + " L\nclosepath\n",
                    back = Cm(1, 1) + " M\n";
  const std::string line = "gsave\nstroke\ngrestore\n";
  EXPECT_EQ(Drawn([&] { ps_closed_curve(x, y, 4, 1, 1, 0.25f); }),
            outline + line + "gsave 0.250000 setgray fill grestore\n" + back);
  EXPECT_EQ(Drawn([&] { ps_closed_curve(x, y, 4, 1, 0, 0.25f); }), outline + line + back);
  EXPECT_EQ(Drawn([&] { ps_closed_curve(x, y, 4, 0, 1, kNan); }),
            outline + "gsave 0.000000 setgray fill grestore\n" + back);
  EXPECT_EQ(Drawn([&] { ps_closed_curve(x, y, 4, 0, 0, 0.0f); }), outline + back);
  EXPECT_EQ(Drawn([&] { ps_filled_area(x, y, 4); }), outline + "gsave fill grestore\n" + back);
  EXPECT_EQ(Drawn([&] {
              ps_closed_curve(x + 2, y, 1, 1, 1, 0.0f);
              ps_filled_area(x, y, 0);
              ps_rectangle(kNan, 1.0f, 1.0f, 1.0f);
            }),
            "");
  float atX = 0.0f, atY = 0.0f;
  ps_closed_curve(x, y, 4, 1, 1, 0.25f);
  ps_where(&atX, &atY);
  EXPECT_EQ(atX, 1.0f);
  EXPECT_EQ(atY, 1.0f);
}

TEST_F(Shapes, RectangleGoesRoundFromItsUpperLeftCorner) {
  EXPECT_EQ(Drawn([] { ps_rectangle(1.0f, 2.0f, 3.0f, 4.0f); }),
            Cm(1, 6) + " M\nnewpath\n" + Cm(1, 6) + " M\n" + Cm(1, 6) + " L\n" + Cm(4, 6) + " L\n" +
                Cm(4, 2) + " L\n" + Cm(1, 2) + " L\nclosepath\ngsave fill grestore\n" + Cm(1, 6) + " M\n");
}

TEST_F(Shapes, FrameIsFourSteps) {
  EXPECT_EQ(Drawn([] { ps_frame(2.0f, 3.0f); }),
            "newpath\n0.0 0.0 M\n0.0 85.0 rL\n56.7 0.0 rL\n0.0 -85.0 rL\n-56.7 0.0 rL\n");
}

TEST_F(Shapes, BezierBeginsAtTheCurrentPoint) {
  const float x[] = {1.0f, 2.0f, 3.0f}, y[] = {2.0f, 2.0f, 0.0f};
  const std::string curve =
      Cm(1, 2) + " " + Cm(2, 2) + " " + Cm(3, 0) + " curveto\nGSG\n" + Cm(3, 0) + " M\n";
  EXPECT_EQ(Drawn([&] { ps_bezier(x, y, 0, 0, 0.0f); }), curve);
  EXPECT_EQ(Drawn([&] {
              ps_bezier(x, y, 0, 0, 0.0f);
              ps_bezier(x, y, 0, 0, 0.0f);
            }),
            curve + "newpath\n" + Cm(3, 0) + " M\n" + curve);
  const float bad[] = {1.0f, kNan, 3.0f};
  EXPECT_EQ(Drawn([&] { ps_bezier(bad, y, 1, 0, 0.0f); }), "");
  EXPECT_EQ(Drawn([&] {
              ps_movea(kNan, 1.0f);
              ps_bezier(x, y, 0, 0, 0.0f);
            }),
            Cm(3, 0) + " M\n");
  SKIP_WITHOUT_GHOSTSCRIPT();
  EXPECT_EQ(Traced([&] { ps_bezier(x, y, 1, 8, 0.1f); }).marks.size(), 4u);
}

TEST_F(Shapes, RoundShapesStandOnTheCurrentPoint) {
  EXPECT_EQ(Drawn([] {
              ps_movea(2.0f, 3.0f);
              ps_circle(0.5f);
              ps_disk(0.5f, -1.0f);
              ps_disk(0.5f, 0.4f);
              ps_disk(0.5f, 7.0f);
              ps_disk(0.5f, kNan);
              ps_arc(1.0f, 30.9f, -45.9f);
            }),
            "56.7 85.0 M\n"
            "newpath 56.7 85.0 14.2 0 360 arc stroke \n56.7 85.0 M\n"
            "newpath 56.7 85.0 14.2 0 360 arc fill stroke \n56.7 85.0 M\n"
            "newpath 56.7 85.0 14.2 0 360 arc 0.400000 setgray fill stroke \n56.7 85.0 M\n"
            "newpath 56.7 85.0 14.2 0 360 arc 1.000000 setgray fill stroke \n56.7 85.0 M\n"
            "newpath 56.7 85.0 14.2 0 360 arc 0.000000 setgray fill stroke \n56.7 85.0 M\n"
            "newpath\n56.7 85.0 28.3 30 -45 arc\nGSG\n56.7 85.0 M\n");
}

TEST_F(Shapes, RoundShapesKeepAPendingLineAndLeaveNone) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  const auto shapes = {+[] { ps_circle(0.5f); }, +[] { ps_disk(0.5f, 0.5f); },
                       +[] { ps_arc(0.5f, 0.0f, 90.0f); }, +[] { ps_ellipse(1.0f, 2.0f); },
                       +[] { ps_ellip_disk(1.0f, 2.0f, -1.0f); }};
  const test::Trace trace = Traced([&] {  // a page for each
    for (const auto& shape : shapes) {
      ps_drawa(3.0f, 3.0f);
      shape();
      ps_line_width(2.0f);
      shape();
      ps_line_width(3.0f);
      ps_newpage();
    }
  });
  for (int page = 1; page <= static_cast<int>(shapes.size()); ++page) {
    int lines = 0, marks = 0;
    for (const test::TraceMark& mark : trace.marks) {
      if (mark.page != page) continue;
      ++marks;
      if (mark.kind == test::TraceMark::stroke && mark.paths[0].size() == 2 && mark.paths[0][0].x < 28.4)
        ++lines;
    }
    EXPECT_EQ(lines, 1) << page;
    EXPECT_EQ(marks, 3) << page;
  }
}

TEST_F(Shapes, AnArcHasNoSpoke) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  const test::Trace trace = Traced([] {
    ps_movea(5.0f, 5.0f);
    ps_arc(1.0f, 0.0f, 90.0f);
  });
  ASSERT_EQ(trace.marks.size(), 1u);
  const auto& path = trace.marks[0].paths.at(0);
  EXPECT_NEAR(path.front().x, 28.3 + 6 * kCm, 0.11);
  EXPECT_NEAR(path.back().y, 56.7 + 6 * kCm, 0.11);
  for (const test::TracePoint& p : path)
    EXPECT_NEAR(std::hypot(p.x - 28.3 - 5 * kCm, p.y - 56.7 - 5 * kCm), kCm, 0.2);
}

TEST_F(Shapes, EllipseHasItsHalfAxesAndItsCentre) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  const double a = 3.0, b = 2.0;
  const test::Trace trace = Traced([&] {
    ps_movea(5.0f, 7.0f);
    ps_ellipse(3.0f, 2.0f);
    ps_drawa(6.0f, 7.0f);
  });
  ASSERT_EQ(trace.marks.size(), 2u);
  double lowX = 1e9, highX = -1e9, lowY = 1e9, highY = -1e9;
  for (const test::TracePoint& p : trace.marks[0].paths.at(0)) {
    lowX = std::min(lowX, p.x);
    highX = std::max(highX, p.x);
    lowY = std::min(lowY, p.y);
    highY = std::max(highY, p.y);
  }
  EXPECT_NEAR((highX - lowX) / 2, a / 2 * kCm, 0.1);
  EXPECT_NEAR((highY - lowY) / 2, a * a / (2 * b) * kCm, 0.1);
  EXPECT_NEAR((highX + lowX) / 2, 28.3 + 5 * kCm, 0.1);
  EXPECT_NEAR((highY + lowY) / 2, 56.7 + 7 * kCm, 0.1);
  EXPECT_NEAR(trace.marks[1].paths.at(0).front().y, 56.7 + 7 * kCm, 0.1);  // the scale is back
}

TEST_F(Shapes, EllipseBytes) {
  EXPECT_EQ(Drawn([] {
              ps_movea(2.0f, 4.0f);
              ps_ellipse(1.0f, 2.0f);
              ps_ellip_disk(2.0f, 1.0f, 0.5f);
            }),
            "56.7 113.4 M\n1 0.500000 scale\nnewpath 56.7 226.8 14.2 0 360 arc stroke \n1 2.000000 scale\n"
            "56.7 113.4 M\n1 2.000000 scale\nnewpath 56.7 56.7 28.3 0 360 arc 0.500000 setgray fill stroke \n"
            "1 0.500000 scale\n56.7 113.4 M\n");
}

TEST_F(Shapes, RoundShapesThatAreNoNumbersDrawNothing) {
  EXPECT_EQ(Drawn([] {
              for (const float bad : {kNan, kInf, 1e6f}) {
                ps_circle(bad);
                ps_disk(bad, 0.5f);
                ps_arc(bad, 0.0f, 90.0f);
                ps_ellipse(bad, 1.0f);
              }
              ps_ellipse(0.0f, 1.0f);
              ps_ellipse(1.0f, 0.0f);
              ps_ellipse(0.0f, 0.0f);
              ps_ellipse(1.0f, kNan);
              ps_ellip_disk(1.0f, 1e9f, 0.0f);
              ps_movea(kNan, 0.0f);
              ps_circle(1.0f);
              ps_point(1, 0.2f);
            }),
            "");
}

TEST_F(Shapes, SymbolsAreAsWideAsTheirSizeAndKeepThePoint) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  constexpr int kFirst = -1, kLast = 18;
  const test::Trace trace = Traced([] {  // a page for each
    for (int code = kFirst; code <= kLast; ++code) {
      ps_movea(5.0f, 5.0f);
      ps_point(code, 0.4f);
      EXPECT_NEAR(plotPs.curX, 5.0f * kPointsPerCm, 1e-3);
      EXPECT_NEAR(plotPs.curY, 5.0f * kPointsPerCm, 1e-3);
      ps_newpage();
    }
  });
  for (int code = kFirst; code <= kLast; ++code) {
    double lowX = 1e9, highX = -1e9;
    for (const test::TraceMark& mark : trace.marks) {
      if (mark.page != code - kFirst + 1) continue;
      for (const test::TracePoint& p : mark.paths.at(0)) {
        lowX = std::min(lowX, p.x);
        highX = std::max(highX, p.x);
      }
    }
    const double width = code == 16 ? 0.3 * 0.4 : 0.4;
    EXPECT_NEAR(highX - lowX, width * kCm, 0.2) << code;
    EXPECT_NEAR((highX + lowX) / 2, 28.3 + 5 * kCm, 0.2) << code;
  }
}

TEST_F(Shapes, UnknownSymbolsAreTheSameSquareAndSizeZeroIsTwoMillimetres) {
  const std::string square = Drawn([] { ps_point(0, 0.2f); });
  EXPECT_EQ(square,
            "-2.8 -2.8 M\nnewpath\n-2.8 -2.8 M\n-2.8 -2.8 L\n-2.8 2.8 L\n2.8 2.8 L\n2.8 -2.8 L\nclosepath\n"
            "gsave\nstroke\ngrestore\n0.0 0.0 M\n");
  for (const int code : {-5, 17, 99, std::numeric_limits<int>::max()})
    EXPECT_EQ(Drawn([code] { ps_point(code, 0.0f); }), square);
  std::vector<std::string> shapes{square};
  for (int code = 1; code <= 16; ++code) {
    shapes.push_back(Drawn([code] { ps_point(code, 0.2f); }));
    EXPECT_EQ(std::count(shapes.begin(), shapes.end(), shapes.back()), 1) << code;
  }
}

TEST_F(Shapes, PolydotsSkipWhatIsNoNumber) {
  const float x[] = {1.0f, kNan, 2.0f}, y[] = {1.0f, 1.0f, 2.0f};
  EXPECT_EQ(Drawn([&] { ps_polydots(x, y, 3, 7, 0.2f); }),
            Cm(1, 1) + " M\nnewpath " + Cm(1, 1) + " 2.8 0 360 arc stroke \n" + Cm(1, 1) + " M\n" + Cm(2, 2) +
                " M\nnewpath " + Cm(2, 2) + " 2.8 0 360 arc stroke \n" + Cm(2, 2) + " M\n");
}

TEST_F(Shapes, AMillionPointsAreDrawn) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  constexpr int kPoints = 1000000;
  std::vector<float> x(kPoints), y(kPoints);
  for (int i = 0; i < kPoints; ++i) {
    x[static_cast<std::size_t>(i)] = 15.0f * static_cast<float>(i) / kPoints;
    y[static_cast<std::size_t>(i)] = 5.0f + 4.0f * std::sin(0.37f * static_cast<float>(i));
  }
  const std::string name = folder.File("many.ps");
  ps_iniplot(name);
  ps_polyline(x.data(), y.data(), kPoints, 0, 0, 0.0f);
  ASSERT_EQ(ps_endplot("", 'f'), 1);
  const test::GhostscriptRun run = test::RunGhostscript(name);
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output, "");
}

}  // namespace
}  // namespace sondera::testing
