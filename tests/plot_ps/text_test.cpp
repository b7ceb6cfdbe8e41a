// Fonts and texts.
#include "plot_ps/text.h"

#include <gtest/gtest.h>

#include <limits>

#include "ps_fixture.h"

namespace sondera::testing {
namespace {

class Text : public PsTest {};

TEST_F(Text, HeightsGiveFontSizes) {
  EXPECT_EQ(Drawn([] {
              for (const float h : {0.15f, 0.2f, 0.25f, 0.3f, 0.4f, 0.5f, 0.001f}) ps_size(h);
            }),
            "/Courier findfont 6 scalefont setfont\n/Courier findfont 8 scalefont setfont\n"
            "/Courier findfont 9 scalefont setfont\n/Courier findfont 11 scalefont setfont\n"
            "/Courier findfont 15 scalefont setfont\n/Courier findfont 19 scalefont setfont\n"
            "/Courier findfont 1 scalefont setfont\n");
}

TEST_F(Text, FontKeepsTheHeightAtZero) {
  EXPECT_EQ(Drawn([] {
              EXPECT_EQ(ps_font("Helvetica", 0.0f), 1);  // no height yet
              EXPECT_EQ(ps_font("Helvetica", 0.4f), 1);
              EXPECT_EQ(ps_font("Courier-Bold", 0.0f), 1);
              ps_size(kNan);
              ps_size(-1.0f);
              ps_size(std::numeric_limits<float>::infinity());
            }),
            "/Helvetica findfont 15 scalefont setfont\n/Courier-Bold findfont 15 scalefont setfont\n");
}

TEST_F(Text, AFontNameMustBeAName) {
  std::string drawn;
  EXPECT_EQ(Said(
                [] {
                  EXPECT_EQ(ps_font("No Name", 0.3f), 0);
                  EXPECT_EQ(ps_font("", 0.3f), 0);
                  EXPECT_EQ(ps_font("a\nb", 0.3f), 0);
                },
                &drawn),
            "PLOT_PS: ps_font warning: no font name: No Name\nPLOT_PS: ps_font warning: no font name: \n"
            "PLOT_PS: ps_font warning: no font name: a\\x0Ab\n");
  EXPECT_EQ(drawn, "");
}

TEST_F(Text, Of199BytesIsWrittenOf200Refused) {
  const std::string longest(199, 'x'), tooLong(200, 'y');
  std::string drawn;
  EXPECT_EQ(Said(
                [&] {
                  EXPECT_EQ(p_puts(longest), 1);
                  EXPECT_EQ(p_puts(tooLong), 0);
                  EXPECT_EQ(ps_writea(1.0f, 1.0f, tooLong, 90.0f), 0);
                },
                &drawn),
            "\aPLOT_PS warning: String too long:\n " + tooLong +
                "\nIgnored\n\aPLOT_PS warning: String too long:\n " + tooLong + "\nIgnored\n");
  EXPECT_EQ(drawn, "(" + longest + ") S\n28.3 28.3 M\ngsave\n 90 rotate\ngrestore\n");
}

TEST_F(Text, IsWrittenAsItIs) {
  EXPECT_EQ(Drawn([] {
              p_puts("");
              p_puts("a \\(b\\) %d \\374");
            }),
            "() S\n(a \\(b\\) %d \\374) S\n");
}

TEST_F(Text, HeightIsWrittenWhenItChanges) {
  EXPECT_EQ(Drawn([] {
              EXPECT_EQ(ps_chara(1.0f, 2.0f, 0, "first", 0.3f, 0.0f), 1);
              EXPECT_EQ(ps_chara(1.0f, 2.0f, 2, "second", 0.3f, 0.9f), 1);
              EXPECT_EQ(ps_chara(1.0f, 2.0f, 0, "third", 0.0f, -45.5f), 1);
              EXPECT_EQ(ps_chara(1.0f, 2.0f, 0, "fourth", 0.4f, 90.0f), 1);
            }),
            "28.3 56.7 M\n/Courier findfont 11 scalefont setfont\n(first) S\n28.3 56.7 rM\n(second) S\n"
            "28.3 56.7 M\ngsave\n -45 rotate\n(third) S\ngrestore\n"
            "28.3 56.7 M\n/Courier findfont 15 scalefont setfont\ngsave\n 90 rotate\n(fourth) S\ngrestore\n");
}

TEST_F(Text, FormsOfTheMode) {
  EXPECT_EQ(Drawn([] {
              ps_size(0.3f);
              ps_echel(2.0f, 2.0f, 1.0f, 0.0f, 1.0f, 0.0f);
              ps_writea(1.0f, 1.0f, "a", 0.0f);
              ps_writer(1.0f, 1.0f, "r", 0.0f);
              ps_chars(0.0f, 0.0f, 0, "s", 0.0f, 0.0f);
              ps_chara(0.0f, 0.0f, 0, "c", 0.0f, 0.0f);
              ps_cms();
              ps_writeah(1.0f, 1.0f, "h", 0.3f);
              ps_writeav(1.0f, 1.0f, "v", 0.3f);
              ps_write("here");
            }),
            "/Courier findfont 11 scalefont setfont\n" + Cm(3, 2) + " M\n(a) S\n" + Cm(2, 2) +
                " rM\n(r) S\n" + Cm(1, 0) + " M\n(s) S\n0.0 0.0 M\n(c) S\n" + Cm(1, 1) + " M\n(h) S\n" +
                Cm(1, 1) + " M\ngsave\n 90 rotate\n(v) S\ngrestore\n(here) S\n");
}

TEST_F(Text, NumbersAndTheWayHome) {
  EXPECT_EQ(Drawn([] {
              ps_size(0.3f);
              ps_writefloatah(1.0f, 1.0f, 0.125f, 0.3f);
              ps_writeintah(1.0f, 1.0f, -17, 0.3f);
              ps_writefloatav(1.0f, 1.0f, 1e10f, 0.3f);
              ps_writeintav(1.0f, 1.0f, 3, 0.3f);
            }),
            "/Courier findfont 11 scalefont setfont\n28.3 28.3 M\n(0.125) S\n28.3 28.3 M\n(-17) S\n"
            "28.3 28.3 M\ngsave\n 90 rotate\n(1e+10) S\ngrestore\n0.0 0.0 M\n"
            "28.3 28.3 M\ngsave\n 90 rotate\n(3) S\ngrestore\n0.0 0.0 M\n");
}

TEST_F(Text, AtAPlaceThatIsNoNumberIsLeftOut) {
  EXPECT_EQ(Drawn([] {
              EXPECT_EQ(ps_writeah(kNan, 1.0f, "text", 0.3f), 1);
              EXPECT_EQ(ps_writeah(1.0f, 2e9f, "text", 0.3f), 1);
            }),
            "");
}

TEST_F(Text, AnotherCodeWritesNothing) {
  std::string drawn;
  EXPECT_EQ(Said(
                [] {
                  EXPECT_EQ(ps_chara(1.0f, 1.0f, 5, "text", 0.3f, 0.0f), 0);
                  EXPECT_EQ(ps_chars(1.0f, 1.0f, 5, "text", 0.3f, 0.0f), 0);
                },
                &drawn),
            "\aIllegal code 5 dans TRAA\n\aIllegal code 5 in TRAS\n");
  EXPECT_EQ(drawn, "");
}

TEST_F(Text, StandsWhereItBegins) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  const test::Trace trace = Traced([] {
    ps_font("Helvetica", 0.3f);
    ps_writeah(2.0f, 3.0f, "flat", 0.3f);
    ps_writeav(2.0f, 3.0f, "upright \\(m\\)", 0.4f);
  });
  ASSERT_EQ(trace.marks.size(), 2u);
  EXPECT_EQ(trace.marks[0].string, "flat");
  EXPECT_EQ(trace.marks[0].size, 11.0);
  EXPECT_EQ(trace.marks[1].string, "upright (m)");
  EXPECT_EQ(trace.marks[1].size, 15.0);
  for (const test::TraceMark& mark : trace.marks) {
    EXPECT_NEAR(mark.paths[0][0].x, 28.3 + 56.7, 0.01);
    EXPECT_NEAR(mark.paths[0][0].y, 56.7 + 85.0, 0.01);
  }
}

}  // namespace
}  // namespace sondera::testing
