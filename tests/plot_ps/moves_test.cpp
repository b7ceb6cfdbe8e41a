// The pen: codes, systems, origin, gaps.
#include "plot_ps/moves.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "ps_fixture.h"

namespace sondera::testing {
namespace {

class Moves : public PsTest {};

TEST_F(Moves, FourCodes) {
  EXPECT_EQ(Drawn([] {
              EXPECT_EQ(p_depl(1.0f, 2.0f, 0), 1);
              EXPECT_EQ(p_depl(3.5f, 4.0f, 1), 1);
              EXPECT_EQ(p_depl(5.0f, 6.0f, 1), 1);
              EXPECT_EQ(p_depl(1.0f, -1.0f, 3), 1);
              EXPECT_EQ(p_depl(2.0f, 2.0f, 2), 1);
              EXPECT_EQ(p_depl(1.0f, 1.0f, 3), 1);
              EXPECT_EQ(p_depl(7.0f, 8.0f, 0), 1);
            }),
            "1.0 2.0 M\n"
            "newpath\n1.0 2.0 M\n3.5 4.0 L\n"
            "5.0 6.0 L\n"
            "1.0 -1.0 rL\n"
            "2.0 2.0 rM\nGSG\n"
            "newpath\n8.0 7.0 M\n1.0 1.0 rL\n"
            "GSG\n7.0 8.0 M\n");
}

TEST_F(Moves, DrawWithoutAMoveBeginsAtTheLastPoint) {
  EXPECT_EQ(Drawn([] { p_depl(9.0f, 9.0f, 1); }), "newpath\n0.0 0.0 M\n9.0 9.0 L\n");
}

TEST_F(Moves, TwoMovesHaveNoStrokeBetweenThem) {
  EXPECT_EQ(Drawn([] {
              ps_movea(1.0f, 1.0f);
              ps_movea(2.0f, 2.0f);
              ps_mover(1.0f, 1.0f);
              ps_mover(1.0f, 0.0f);
            }),
            "28.3 28.3 M\n56.7 56.7 M\n28.3 28.3 rM\n28.3 0.0 rM\n");
}

TEST_F(Moves, OtherCodesWriteNothingAndAreTold) {
  std::string drawn;
  EXPECT_EQ(Said(
                [] {
                  EXPECT_EQ(p_depl(1.0f, 1.0f, 4), 0);
                  EXPECT_EQ(p_depl(1.0f, 1.0f, -1), 0);
                  EXPECT_EQ(traa(1.0f, 1.0f, 4), 0);
                  EXPECT_EQ(tras(1.0f, 1.0f, -7), 0);
                },
                &drawn),
            "\aIllegal code 4 dans TRAA\n\aIllegal code -7 in TRAS\n");
  EXPECT_EQ(drawn, "");
}

TEST_F(Moves, CentimetresAndUserUnits) {
  EXPECT_EQ(Drawn([] {
              // 2 cm by 0.5 cm per unit, zero at (3, 1) cm, turned by 90 degrees
              EXPECT_EQ(ps_echel(2.0f, 0.5f, 3.0f, 1.0f, 0.0f, 1.0f), 1);
              EXPECT_EQ(ps_is_cms(), 0);
              ps_movea(1.0f, 4.0f);   // X = 2 (-4) + 3 = -5, Y = 0.5 (1) + 1 = 1.5
              ps_drawr(2.0f, -1.0f);  // X = 2 (1) = 2, Y = 0.5 (2) = 1
              pmovba(1.0f, 1.0f);
              ps_cms();
              ps_drawa(2.0f, 2.0f);
              plinsa(0.0f, 0.0f);
              ps_home();
              ps_user();
              ps_home();
            }),
            Cm(-5, 1.5) + " M\nnewpath\n" + Cm(-5, 1.5) + " M\n" + Cm(2, 1) + " rL\nGSG\n" + Cm(1, 1) +
                " M\nnewpath\n" + Cm(1, 1) + " M\n" + Cm(2, 2) + " L\n" + Cm(3, 1) + " L\nGSG\n0.0 0.0 M\n" +
                Cm(3, 1) + " M\n");
}

TEST_F(Moves, FixedFormsHoldInEitherMode) {
  const auto draw = [] {
    pmovba(1.0f, 2.0f);
    pmovbr(1.0f, 2.0f);
    plinba(3.0f, 1.0f);
    plinbr(0.5f, 0.5f);
    pmovsa(1.0f, 2.0f);
    pmovsr(1.0f, 2.0f);
    plinsa(3.0f, 1.0f);
    plinsr(0.5f, 0.5f);
  };
  const std::string cm = Drawn([&] {
    ps_echel(2.0f, 3.0f, 0.0f, 0.0f, 1.0f, 0.0f);
    ps_benson();
    EXPECT_EQ(ps_is_cms(), 1);
    draw();
  });
  EXPECT_EQ(Drawn([&] {
              ps_echel(2.0f, 3.0f, 0.0f, 0.0f, 1.0f, 0.0f);
              draw();
            }),
            cm);
  EXPECT_EQ(cm, Cm(1, 2) + " M\n" + Cm(1, 2) + " rM\nnewpath\n" + Cm(2, 4) + " M\n" + Cm(3, 1) + " L\n" +
                    Cm(0.5, 0.5) + " rL\nGSG\n" + Cm(2, 6) + " M\n" + Cm(2, 6) + " rM\nnewpath\n" +
                    Cm(4, 12) + " M\n" + Cm(6, 3) + " L\n" + Cm(1, 1.5) + " rL\n");
}

TEST_F(Moves, AScaleOfZeroFallsBackToCentimetres) {
  ps_user();
  for (const auto& [sx, sy] : {std::pair(0.0f, 1.0f), {1.0f, 0.0f}, {kNan, 1.0f}, {1.0f, kInf}}) {
    ps_user();
    EXPECT_EQ(ps_echel(sx, sy, 0.0f, 0.0f, 1.0f, 0.0f), 0);
    EXPECT_EQ(ps_is_cms(), 1);
  }
  EXPECT_EQ(ps_echel(1.0f, 1.0f, kNan, 0.0f, 1.0f, 0.0f), 0);
  EXPECT_EQ(plotPs.scaleX, kPointsPerCm);
}

TEST_F(Moves, WhereTellsTheUnitsOfTheMode) {
  float x = 0.0f, y = 0.0f;
  ps_movea(2.5f, 3.5f);
  ps_drawr(0.25f, -1.0f);
  EXPECT_EQ(ps_where(&x, &y), 1);
  EXPECT_EQ(x, 2.75f);
  EXPECT_EQ(y, 2.5f);
  ps_echel(0.5f, 2.0f, 1.0f, -1.0f, 0.6f, 0.8f);
  // 2.75 cm = 0.5 (0.6 x - 0.8 y) + 1, 2.5 cm = 2 (0.8 x + 0.6 y) - 1
  EXPECT_EQ(ps_where(&x, &y), 0);
  EXPECT_NEAR(x, 0.6 * 3.5 + 0.8 * 1.75, 1e-5);
  EXPECT_NEAR(y, 0.6 * 1.75 - 0.8 * 3.5, 1e-5);
  ps_movea(7.125f, 8.0f);
  ps_mover(1.0f, 1.0f);
  EXPECT_EQ(ps_where(&x, &y), 0);
  EXPECT_EQ(x, 8.125f);
  EXPECT_EQ(y, 9.0f);
  pmovbr(0.5f, 0.0f);
  ps_where(&x, &y);
  EXPECT_NEAR(x, 8.125 + 0.6 * 1.0, 1e-5);
  EXPECT_NEAR(y, 9.0 - 0.8 * 1.0, 1e-5);
}

TEST_F(Moves, OriginIsTheNewZero) {
  EXPECT_EQ(Drawn([] {
              ps_movea(5.0f, 5.0f);
              ps_origin(2.0f, 7.5f, 3.0f, 4.0f);
              ps_drawa(1.0f, 0.0f);
              ps_user();
              ps_origin(-2.0f, -7.5f, 0.0f, 0.0f);
              EXPECT_EQ(plotPs.originX, 0.0f);
              float x = 9.0f, y = 9.0f;
              ps_cms();
              ps_where(&x, &y);
              EXPECT_EQ(x, 0.0f);
              EXPECT_EQ(y, 0.0f);
            }),
            "141.7 141.7 M\n56.7 212.6 M\n56.7 212.6 translate\nnewpath\n0.0 0.0 M\n28.3 0.0 L\n"
            "GSG\n-56.7 -212.6 M\n-56.7 -212.6 translate\n");
}

TEST_F(Moves, AnOriginTooFarAwayIsNotKept) {
  EXPECT_EQ(Said([] {
              ps_origin(0.0f, 0.0f, 40.0f, -40.0f);  // 1133.9 points
              EXPECT_EQ(plotPs.originX, 40.0f * kPointsPerCm);
              EXPECT_EQ(plotPs.originY, -40.0f * kPointsPerCm);
              ps_origin(0.0f, 0.0f, 40.8f, 5.0f);  // 1156.5 points
              EXPECT_EQ(plotPs.originX, 40.0f * kPointsPerCm);
              EXPECT_EQ(plotPs.originY, 5.0f * kPointsPerCm);
              ps_origin(0.0f, 0.0f, 1.0f, -40.8f);
              EXPECT_EQ(plotPs.originY, 5.0f * kPointsPerCm);
              ps_origin(0.0f, 0.0f, kNan, 0.0f);
              EXPECT_EQ(plotPs.originX, kPointsPerCm);
            }),
            "PLOT_PS: ps_origin warning: XA exceeding limits\n"
            "PLOT_PS: ps_origin warning: YA exceeding limits\n"
            "PLOT_PS: ps_origin warning: XA exceeding limits\n");
}

TEST_F(Moves, AnOriginThatIsNoNumberChangesNothing) {
  EXPECT_EQ(Drawn([] {
              ps_origin(kNan, 0.0f, 0.0f, 0.0f);
              ps_origin(0.0f, 1e30f, 0.0f, 0.0f);
            }),
            "");
}

TEST_F(Moves, CoordinatesThatAreNoNumbersMakeAGap) {
  for (const float bad : {kNan, kInf, -kInf, 1.1e6f, std::numeric_limits<float>::max()}) {
    EXPECT_EQ(Drawn([bad] {
                p_depl(1.0f, 1.0f, 0);
                p_depl(2.0f, 2.0f, 1);
                EXPECT_EQ(p_depl(bad, 3.0f, 1), 1);
                EXPECT_EQ(p_depl(4.0f, bad, 1), 1);
                p_depl(5.0f, 5.0f, 1);
                p_depl(6.0f, 6.0f, 1);
                p_depl(bad, bad, 3);
                p_depl(1.0f, 0.0f, 3);
                p_depl(1.0f, 1.0f, 3);
              }),
              "1.0 1.0 M\nnewpath\n1.0 1.0 M\n2.0 2.0 L\nGSG\n5.0 5.0 M\nnewpath\n5.0 5.0 M\n6.0 6.0 L\n"
              "1.0 0.0 rM\nGSG\nnewpath\n7.0 6.0 M\n1.0 1.0 rL\n")
        << bad;
    float x = 0.0f, y = 0.0f;
    ps_movea(1.0f, 2.0f);
    ps_movea(bad, 2.0f);
    ps_where(&x, &y);
    EXPECT_EQ(x, 1.0f);
  }
}

TEST_F(Moves, TheBoxHasOnlyPointsThatAreNumbers) {
  BytesOf([] {
    p_depl(kNan, 1.0f, 0);
    p_depl(1e9f, 1.0f, 0);
    p_depl(600.0f, 800.0f, 1);
  });
  EXPECT_EQ(plotPs.minX, 576.0f);
  EXPECT_EQ(plotPs.maxX, 600.0f);
  EXPECT_EQ(plotPs.maxY, 800.0f);
}

}  // namespace
}  // namespace sondera::testing
