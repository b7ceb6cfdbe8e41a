// Grey, width, dash, colour, and that no line is stroked twice.
#include "plot_ps/ink.h"

#include <gtest/gtest.h>

#include "ps_fixture.h"

namespace sondera::testing {
namespace {

class Ink : public PsTest {};

TEST_F(Ink, PensAndGreys) {
  EXPECT_EQ(Drawn([] {
              EXPECT_EQ(ps_pen(0), 1);
              EXPECT_EQ(ps_pen(1), 1);
              EXPECT_EQ(ps_pen(2), 1);
              EXPECT_EQ(ps_pen(3), 0);
              EXPECT_EQ(ps_pen(-1), 0);
              for (const float g : {0.8f, -1.0f, 2.0f, kNan, kInf, -kInf}) ps_gray(g);
            }),
            "0.0 setgray\n0.3 setgray\n0.7 setgray\n0.800000 setgray\n0.000000 setgray\n1.000000 setgray\n"
            "0.000000 setgray\n1.000000 setgray\n0.000000 setgray\n");
}

TEST_F(Ink, WidthsInPointsDashesInCentimetres) {
  EXPECT_EQ(Drawn([] {
              ps_line_width(0.5f);
              ps_line_width(kNan);
              ps_line_width(-1.0f);
              ps_line_width(kInf);
              ps_dashed_line(0.3f, 0.1f, 0.0f);
              ps_dashed_line(0.1f, 0.1f, 0.05f);
              ps_dashed_line(1.0f, 1.0f, 0.0f);
              ps_solid_line();
              ps_dashed_line(0.0f, 0.0f, 0.0f);
              ps_dashed_line(0.0001f, -1.0f, 0.0f);
              ps_dashed_line(kNan, kInf, 0.0f);
              ps_dashed_line(kNan, 0.1f, kNan);
            }),
            "GSG\n0.50 setlinewidth\nGSG\n0.00 setlinewidth\nGSG\n0.00 setlinewidth\nGSG\n0.00 setlinewidth\n"
            "[8.50 2.83] 0.00 setdash\n[2.83 2.83] 1.42 setdash\n[28.35 28.35] 0.00 setdash\n"
            "[] 0 setdash\n[] 0 setdash\n[] 0 setdash\n[] 0 setdash\n[0.00 2.83] 0.00 setdash\n");
}

TEST_F(Ink, ScaleAndRotation) {
  std::string drawn;
  EXPECT_EQ(Said(
                [] {
                  ps_scale(2.0f, -0.5f);
                  ps_scale(0.04f, 1.0f);
                  ps_scale(1.0f, kNan);
                  ps_rotate(45.9f);
                  ps_rotate(-45.9f);
                  ps_rotate(kNan);
                  ps_rotate(360e6f);
                },
                &drawn),
            "PLOT_PS: ps_scale warning: no scale of 0.04 1\nPLOT_PS: ps_scale warning: no scale of 1 nan\n");
  EXPECT_EQ(drawn, "2.0 -0.5 scale\n45 rotate\n-45 rotate\n0 rotate\n0 rotate\n");
}

TEST_F(Ink, Colours) {
  EXPECT_EQ(Drawn([] {
              ps_set_rgb_color(0.1f, 0.25f, 2.0f);
              ps_set_hsb_color(kNan, 0.5f, -1.0f);
              ps_set_cmyk_color(0.1f, 0.2f, 0.3f, 0.4f);
              ps_set_cmyk_color(1.0f, 1.0f, 1.0f, 1.0f);
            }),
            "0.100 0.250 1.000 setrgbcolor\n0.000 0.500 0.000 sethsbcolor\n"
            "%% PLOT_PS beginning of ps_code inclusion\n/setcymkcolor { setcmykcolor } bind def\n"
            "%% PLOT_PS end of ps_code inclusion\n"
            "0.100 0.200 0.300 0.400 setcymkcolor\n1.000 1.000 1.000 1.000 setcymkcolor\n");
}

TEST_F(Ink, APathThatHasItsInkIsLeftBehind) {
  EXPECT_EQ(Drawn([] {
              p_depl(5.0f, 5.0f, absoluteDraw);
              ps_line_width(1.0f);  // pending: stroked now
              ps_line_width(2.0f);  // done: replaced
              ps_line_width(3.0f);  // nothing there
              p_depl(6.0f, 6.0f, absoluteDraw);
              p_depl(7.0f, 7.0f, absoluteMove);
              ps_line_width(4.0f);  // done by the move
            }),
            "newpath\n0.0 0.0 M\n5.0 5.0 L\nGSG\n1.00 setlinewidth\n"
            "newpath\n5.0 5.0 M\nGSG\n2.00 setlinewidth\n"
            "GSG\n3.00 setlinewidth\n"
            "newpath\n5.0 5.0 M\n6.0 6.0 L\nGSG\n7.0 7.0 M\n"
            "newpath\n7.0 7.0 M\nGSG\n4.00 setlinewidth\n");
}

TEST_F(Ink, TheEndStrokesOnce) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  for (const bool pending : {true, false}) {
    const test::Trace trace = Traced([pending] {
      ps_drawa(5.0f, 5.0f);
      if (!pending) ps_movea(1.0f, 1.0f);
    });
    EXPECT_EQ(trace.marks.size(), 1u) << pending;
  }
}

TEST_F(Ink, ADashedPathIsOnlyDashed) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  const test::Trace trace = Traced([] {
    ps_dashed_line(0.1f, 0.1f, 0.0f);
    ps_movea(1.0f, 1.0f);
    ps_drawa(5.0f, 1.0f);
    ps_line_width(0.5f);
    ps_line_width(1.5f);
    ps_solid_line();
    ps_line_width(2.5f);
    ps_drawa(5.0f, 3.0f);
  });
  ASSERT_EQ(trace.marks.size(), 2u);
  EXPECT_EQ(trace.marks[0].dashes, 2);
  EXPECT_EQ(trace.marks[0].width, 1.0);
  EXPECT_EQ(trace.marks[1].dashes, 0);
  EXPECT_EQ(trace.marks[1].width, 2.5);
}

TEST_F(Ink, AMaskBoxHasNoRim) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  const test::Trace trace = Traced([] {
    const float x[] = {1.0f, 2.0f, 2.0f, 1.0f}, y[] = {1.0f, 1.0f, 4.0f, 4.0f};
    ps_closed_curve(x, y, 4, 0, 1, 0.8f);
    ps_line_width(0.5f);
    ps_gray(0.0f);
    ps_rectangle(5.0f, 5.0f, 1.0f, 1.0f);
    ps_line_width(0.1f);
  });
  ASSERT_EQ(trace.marks.size(), 2u);
  EXPECT_EQ(trace.marks[0].kind, test::TraceMark::fill);
  EXPECT_NEAR(trace.marks[0].gray, 0.8, 1e-6);
  EXPECT_EQ(trace.marks[1].kind, test::TraceMark::fill);
}

}  // namespace
}  // namespace sondera::testing
