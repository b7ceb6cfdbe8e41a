// Perspective compared with the formula, and with a camera written with vectors.
#include "plot_ps/perspective.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <set>

#include "ps_fixture.h"

namespace sondera::testing {
namespace {

class Perspective : public PsTest {};

void UnitCube(float a, float b, float D, float E) {
  ps_3Dsetup(1.0f, 1.0f, 1.0f, 0.0f, 1.0f, 0.0f, 1.0f, 0.0f, 1.0f, a, b, D, E);
}

TEST_F(Perspective, UnitCubeAgainstTheFormula) {
  const double a = 0.6, b = 1.1, D = 5.0, E = 7.0;
  UnitCube(0.6f, 1.1f, 5.0f, 7.0f);
  for (int corner = 0; corner < 8; ++corner) {
    const double X = corner & 1, Y = corner >> 1 & 1, Z = corner >> 2 & 1;
    const double W = D - std::cos(b) * Y - std::cos(a) * Z * std::sin(b) - std::sin(a) * X * std::sin(b);
    float u = 0.0f, v = 0.0f;
    EXPECT_EQ(ps_3Dcalcul(static_cast<float>(X), static_cast<float>(Y), static_cast<float>(Z), &u, &v), 1);
    EXPECT_NEAR(u, E * (std::cos(a) * X - std::sin(a) * Z) / W, 1e-5);
    EXPECT_NEAR(v, E * (std::sin(b) * Y - std::cos(b) * std::cos(a) * Z - std::sin(a) * std::cos(b) * X) / W,
                1e-5);
  }
}

/// A pinhole camera at D times the view direction, its picture at the distance E.
TEST_F(Perspective, IsACameraOnASphere) {
  std::mt19937 random(3);
  const auto draw = [&](double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
  };
  for (int run = 0; run < 200; ++run) {
    const double a = draw(-3, 3), b = draw(0.1, 3), D = draw(20, 40), E = draw(5, 50);
    const double lx = draw(1, 8), ly = draw(1, 8), lz = draw(1, 8);
    ps_3Dsetup(static_cast<float>(lx), static_cast<float>(ly), static_cast<float>(lz), -2.0f, 6.0f, 10.0f,
               5.0f, 0.0f, 100.0f, static_cast<float>(a + 6.2831853 * 3), static_cast<float>(b),
               static_cast<float>(D), static_cast<float>(E));
    const double x = draw(-2, 6), y = draw(5, 10), z = draw(0, 100);
    const double P[3] = {lx * (x + 2) / 8, ly * (10 - y) / 5, lz * z / 100};
    const double view[3] = {std::sin(a) * std::sin(b), std::cos(b), std::cos(a) * std::sin(b)};
    const double right[3] = {std::cos(a), 0, -std::sin(a)};
    const double up[3] = {view[1] * right[2] - view[2] * right[1], view[2] * right[0] - view[0] * right[2],
                          view[0] * right[1] - view[1] * right[0]};
    double depth = 0, sideways = 0, upwards = 0;
    for (int i = 0; i < 3; ++i) {
      const double toPoint = P[i] - D * view[i];
      depth -= toPoint * view[i];
      sideways += toPoint * right[i];
      upwards += toPoint * up[i];
    }
    float u = 0.0f, v = 0.0f;
    ASSERT_EQ(ps_3Dcalcul(static_cast<float>(x), static_cast<float>(y), static_cast<float>(z), &u, &v), 1);
    EXPECT_NEAR(u, E * sideways / depth, 2e-4);
    EXPECT_NEAR(v, E * upwards / depth, 2e-4);
  }
}

TEST_F(Perspective, AtAndBehindTheEyeNothingIsDrawn) {
  float u = 1.0f, v = 1.0f;
  UnitCube(0.0f, 0.0f, 1.0f, 1.0f);  // from above, the eye in the upper face
  EXPECT_EQ(ps_3Dcalcul(0.0f, 1.0f, 0.0f, &u, &v), 0);
  EXPECT_EQ(u, 0.0f);
  EXPECT_EQ(v, 0.0f);
  EXPECT_EQ(ps_3Dcalcul(0.0f, 0.5f, 0.0f, &u, &v), 1);
  EXPECT_EQ(ps_3Dcalcul(0.0f, std::numeric_limits<float>::quiet_NaN(), 0.0f, &u, &v), 0);
  UnitCube(0.5f, 0.5f, 0.0f, 1.0f);
  EXPECT_EQ(Drawn([] {
              UnitCube(0.5f, 0.5f, 0.1f, 1.0f);
              ps_3Dbox(0.2f, 1.0f, 0.2f, 1.0f, 0.2f, 1.0f, 0.5f);
            }),
            "");
  ps_3Dsetup(1.0f, 1.0f, 1.0f, 0.0f, 0.0f, 0.0f, 1.0f, 0.0f, 1.0f, 0.5f, 0.5f, 9.0f, 1.0f);
  EXPECT_EQ(ps_3Dcalcul(0.5f, 0.5f, 0.5f, &u, &v), 0);  // a range of no length
}

TEST_F(Perspective, WithoutASetupNothingIsDrawn) {
  EXPECT_EQ(Drawn([] {
              ps_3Daxes();
              ps_3Dframe();
              ps_3Dclosebox();
              ps_3Dbar(0.0f, 1.0f, 1.0f, 0.0f, 1.0f, 0.5f);
            }),
            "");
}

/// Lines of a drawing as pairs of ends, in the order of the ends.
std::multiset<std::vector<int>> Segments(const test::Trace& trace) {
  std::multiset<std::vector<int>> segments;
  for (const test::TraceMark& mark : trace.marks) {
    if (mark.kind != test::TraceMark::stroke) continue;
    for (const auto& path : mark.paths)
      for (std::size_t i = 1; i < path.size(); ++i) {
        std::vector<int> one{static_cast<int>(std::lround(path[i - 1].x * 10)),
                             static_cast<int>(std::lround(path[i - 1].y * 10))};
        std::vector<int> other{static_cast<int>(std::lround(path[i].x * 10)),
                               static_cast<int>(std::lround(path[i].y * 10))};
        if (one == other) continue;
        if (other < one) std::swap(one, other);
        one.insert(one.end(), other.begin(), other.end());
        segments.insert(one);
      }
  }
  return segments;
}

TEST_F(Perspective, FrameAndRestAreTheTwelveEdges) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  const auto setup = [] {
    ps_3Dsetup(6.0f, 4.0f, 5.0f, 0.0f, 1.0f, 0.0f, 1.0f, 0.0f, 1.0f, 0.6f, 1.1f, 30.0f, 30.0f);
  };
  const auto frame = Segments(Traced([&] {
    setup();
    ps_3Dframe();
  }));
  const auto rest = Segments(Traced([&] {
    setup();
    ps_3Dclosebox();
  }));
  const auto axes = Segments(Traced([&] {
    setup();
    ps_3Daxes();
  }));
  EXPECT_EQ(frame.size(), 9u);
  EXPECT_EQ(rest.size(), 3u);
  EXPECT_EQ(axes.size(), 3u);
  for (const auto& edge : rest) EXPECT_EQ(frame.count(edge), 0u);
  for (const auto& edge : axes) EXPECT_EQ(frame.count(edge), 1u);  // the zero corner is the far one
  std::set<std::vector<int>> all(frame.begin(), frame.end());
  all.insert(rest.begin(), rest.end());
  EXPECT_EQ(all.size(), 12u);
}

TEST_F(Perspective, ABarShowsItsThreeNearFaces) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  const test::Trace trace = Traced([] {
    ps_3Dsetup(6.0f, 4.0f, 5.0f, 0.0f, 10.0f, 2.0f, 10.0f, 0.0f, 10.0f, 0.6f, 1.1f, 30.0f, 30.0f);
    ps_3Dbar(2.0f, 4.0f, 7.0f, 1.0f, 3.0f, 0.9f);
  });
  std::multiset<int> greys;
  for (const test::TraceMark& mark : trace.marks)
    if (mark.kind == test::TraceMark::fill) greys.insert(static_cast<int>(std::lround(mark.gray * 100)));
  EXPECT_EQ(greys, (std::multiset<int>{54, 72, 90}));
  const std::string bar = Drawn([] {
    ps_3Dsetup(6.0f, 4.0f, 5.0f, 0.0f, 10.0f, 2.0f, 10.0f, 0.0f, 10.0f, 0.6f, 1.1f, 30.0f, 30.0f);
    ps_3Dbar(2.0f, 4.0f, 7.0f, 1.0f, 3.0f, 0.9f);
  });
  EXPECT_EQ(bar, Drawn([] {
              ps_3Dsetup(6.0f, 4.0f, 5.0f, 0.0f, 10.0f, 2.0f, 10.0f, 0.0f, 10.0f, 0.6f, 1.1f, 30.0f, 30.0f);
              ps_3Dbox(4.0f, 2.0f, 2.0f, 7.0f, 3.0f, 1.0f, 0.9f);
            }));
}

}  // namespace
}  // namespace sondera::testing
