// Random drawings: the marks that Ghostscript paints are those that were requested, each line once, each area
// once.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <set>

#include "ps_fixture.h"

namespace sondera::testing {
namespace {

/// A mark in tenths of a point: page, kind ('l' line, 'a' corner of an area, 't' text), ends.
using Mark = std::vector<int>;

int Rounded(double points) {
  return static_cast<int>(std::lround(points * 10.0));
}

/// The expected drawing, by the simplest model: an origin, a point, a list of marks. All in points, in
/// integer tenths, so that nothing is rounded in between.
struct Model {
  std::multiset<Mark> marks;
  double originX = 0.0, originY = 0.0, x = 0.0, y = 0.0;
  int page = 1;
  bool gap = false;

  void Add(char kind, double x1, double y1, double x2, double y2) {
    Mark one{Rounded(originX + x1), Rounded(originY + y1)},
        other{Rounded(originX + x2), Rounded(originY + y2)};
    if (kind == 'l' && one == other) return;
    if (other < one) std::swap(one, other);
    Mark mark{page, kind};
    mark.insert(mark.end(), one.begin(), one.end());
    mark.insert(mark.end(), other.begin(), other.end());
    marks.insert(mark);
  }
  void Go(double toX, double toY, bool draws) {
    if (std::isnan(toX)) {
      gap = true;
      return;
    }
    if (draws && !gap) Add('l', x, y, toX, toY);
    gap = false;
    x = toX;
    y = toY;
  }
};

class RandomDrawing {
 public:
  explicit RandomDrawing(unsigned seed) : random_(seed) {}

  /// Draws through the library and notes the expected marks.
  void Draw(int steps) {
    NewOrigin(28.3, 56.7);
    for (int i = 0; i < steps; ++i) Step();
  }
  Model model;

 private:
  int Pick(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }
  double Coordinate() { return Pick(40) == 0 ? static_cast<double>(kNan) : Pick(3000) / 10.0; }
  void NewOrigin(double dx, double dy) {
    model.originX += dx;
    model.originY += dy;
    model.x = model.y = 0.0;
    model.gap = false;
  }
  void Go(int code) {
    const double x = Coordinate(), y = Pick(3000) / 10.0;
    const bool relative = code >= relativeMove;
    p_depl(static_cast<float>(x), static_cast<float>(y), code);
    model.Go(relative ? model.x + x : x, relative ? model.y + y : y,
             code == absoluteDraw || code == relativeDraw);
    if (relative && model.x > 1000.0) Home();
  }
  void Home() {
    p_depl(0.0f, 0.0f, absoluteMove);
    model.Go(0.0, 0.0, false);
  }
  void Line() {
    float x[5], y[5];
    const int n = 1 + Pick(5);
    for (int i = 0; i < n; ++i) {
      x[i] = static_cast<float>(Coordinate());
      y[i] = static_cast<float>(Pick(3000) / 10.0);
    }
    const int kind = Pick(3);
    InPoints(x, y, n);
    if (kind == 0) {
      ps_polyline(xs_.data(), ys_.data(), n, 0, 0, 0.0f);
      model.Go(x[0], y[0], false);
      for (int i = 0; i < n; ++i) model.Go(x[i], y[i], true);
      return;
    }
    if (kind == 1)
      ps_closed_curve(xs_.data(), ys_.data(), n, 1, 0, 0.0f);
    else
      ps_filled_area(xs_.data(), ys_.data(), n);
    std::vector<int> good;
    for (int i = 0; i < n; ++i)
      if (!std::isnan(x[i])) good.push_back(i);
    if (good.empty()) return;
    model.Go(x[good[0]], y[good[0]], false);
    for (std::size_t k = 0; k < good.size(); ++k) {
      const int i = good[k], j = good[(k + 1) % good.size()];
      model.Add(kind == 1 ? 'l' : 'a', x[i], y[i], x[j], y[j]);
    }
  }
  /// Points as user units of one point each.
  void InPoints(const float* x, const float* y, int n) {
    ps_echel(1.0f / kPointsPerCm, 1.0f / kPointsPerCm, 0.0f, 0.0f, 1.0f, 0.0f);
    xs_.assign(x, x + n);
    ys_.assign(y, y + n);
  }
  void Step() {
    switch (Pick(12)) {
      case 0:
        ps_line_width(static_cast<float>(Pick(5)));
        break;
      case 1:
        ps_newpage();
        ++model.page;
        model.originX = model.originY = 0.0;
        NewOrigin(28.3, 56.7);
        break;
      case 2: {
        Home();
        p_puts("text");
        model.Add('t', 0.0, 0.0, 0.0, 0.0);
        Home();
        break;
      }
      case 3:
        ps_origin(1.0f, -2.0f, 0.0f, 0.0f);
        NewOrigin(28.3, -56.7);
        break;
      case 4:
      case 5:
        Line();
        break;
      default:
        Go(Pick(4));
    }
  }

  std::mt19937 random_;
  std::vector<float> xs_, ys_;
};

std::multiset<Mark> MarksOf(const test::Trace& trace) {
  std::multiset<Mark> marks;
  for (const test::TraceMark& mark : trace.marks) {
    Model one;
    one.page = mark.page;
    const char kind = mark.kind == test::TraceMark::text   ? 't'
                      : mark.kind == test::TraceMark::fill ? 'a'
                                                           : 'l';
    for (const auto& path : mark.paths) {
      if (kind == 't') one.Add(kind, path[0].x, path[0].y, path[0].x, path[0].y);
      // The library draws from the first point of an area to itself: the area has one corner more.
      for (std::size_t i = kind == 'a' ? 2 : 1; i < path.size(); ++i)
        one.Add(kind, path[i - 1].x, path[i - 1].y, path[i].x, path[i].y);
    }
    marks.insert(one.marks.begin(), one.marks.end());
  }
  return marks;
}

class TraceOfRandomDrawings : public PsTest {};

TEST_F(TraceOfRandomDrawings, HaveEachMarkOnce) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  for (unsigned seed = 1; seed <= 5; ++seed) {
    RandomDrawing drawing(seed);
    const test::Trace trace = Traced([&] {
      ps_size(0.3f);
      drawing.Draw(800);
    });
    const std::multiset<Mark> marks = MarksOf(trace);
    EXPECT_EQ(trace.pages, drawing.model.page);
    EXPECT_GT(marks.size(), 400u);
    std::vector<Mark> missing, unasked;
    std::set_difference(drawing.model.marks.begin(), drawing.model.marks.end(), marks.begin(), marks.end(),
                        std::back_inserter(missing));
    std::set_difference(marks.begin(), marks.end(), drawing.model.marks.begin(), drawing.model.marks.end(),
                        std::back_inserter(unasked));
    EXPECT_TRUE(missing.empty()) << "seed " << seed << ": " << ::testing::PrintToString(missing);
    EXPECT_TRUE(unasked.empty()) << "seed " << seed << ": " << ::testing::PrintToString(unasked);
  }
}

}  // namespace
}  // namespace sondera::testing
