// The file: prolog, pages, end, failures, spooler.
#include "plot_ps/document.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>

#include "ps_fixture.h"
#include "runtime/written_files.h"
#include "support/comma_locale.h"
#include "support/failing_file_driver.h"
#include "support/ps_grammar.h"

namespace sondera::testing {
namespace {

using test::ReadWhole;
using test::WriteWhole;

class Document : public PsTest {};

std::string Prolog(const std::string& name) {
  return "%!PS-Adobe-2.0 EPSF-1.2\n"
         "%PLOT_PS V1.0\n"
         "%%Creator: MS/DOS\n"
         "%%Title: " +
         name +
         "\n"
         "%%CreationDate: now...\n"
         "%%Pages: (atend)\n"
         "%%EndComments\n"
         "save\n"
         "/M { moveto } bind def\n"
         "/rM { rmoveto } bind def\n"
         "/L { lineto } bind def\n"
         "/rL { rlineto } bind def\n"
         "/S { show } bind def\n"
         "/GSG { gsave stroke grestore } bind def\n";
}

TEST_F(Document, EmptyDocumentByteForByte) {
  const std::string name = folder.File("empty.ps");
  ps_iniplot(name);
  EXPECT_EQ(ps_endplot("", 'f'), 1);
  EXPECT_EQ(ReadWhole(name), Prolog(name) +
                                 "28.3 56.7 M\n28.3 56.7 translate\n"
                                 "GSG\nshowpage\nrestore\n"
                                 "%%BoundingBox: 576.0 756.0 15.0 72.0\n"
                                 "%%Pages: 1\n"
                                 "%%End of File " +
                                 name + "\n");
}

TEST_F(Document, StartsAnewEachTime) {
  const std::string first = BytesOf([] {
    ps_user();
    ps_echel(2.0f, 3.0f, 1.0f, 1.0f, 0.0f, 1.0f);
    ps_font("Helvetica", 0.4f);
    ps_newpage();
    ps_drawa(1.0f, 1.0f);
    ps_set_cmyk_color(0.0f, 0.0f, 0.0f, 1.0f);
  });
  const std::string empty = BytesOf([] {});
  EXPECT_EQ(BytesOf([] {}), empty);
  EXPECT_EQ(ps_is_cms(), 1);
  EXPECT_NE(first, empty);
  EXPECT_NE(empty.find("%%Pages: 1\n"), std::string::npos);
}

TEST_F(Document, TwoRunsGiveEqualBytesAlsoWithADecimalComma) {
  const auto draw = [] {
    ps_movea(1.25f, 2.5f);
    ps_drawa(3.75f, 4.125f);
    ps_dashed_line(0.3f, 0.1f, 0.05f);
    ps_line_width(0.5f);
    ps_gray(0.8f);
    ps_X_axis(0.0f, 2.0f, 0.1f, 0.0f, 2.0f, "x", "%.2f", 0.3f);
    ps_writefloatah(1.0f, 1.0f, 0.5f, 0.3f);
    ps_scale(1.5f, 1.5f);
  };
  const std::string plain = BytesOf(draw);
  EXPECT_EQ(BytesOf(draw), plain);
  const test::CommaLocale comma;
  if (!comma.Available()) GTEST_SKIP() << "no locale with a decimal comma";
  EXPECT_EQ(BytesOf(draw), plain);
}

TEST_F(Document, NewPageKeepsAPendingLine) {
  EXPECT_EQ(Drawn([] {
              p_depl(10.0f, 20.0f, absoluteDraw);
              ps_newpage();
              p_depl(30.0f, 40.0f, absoluteDraw);
            }),
            "newpath\n0.0 0.0 M\n10.0 20.0 L\nGSG\nshowpage\n28.3 56.7 M\n28.3 56.7 translate\n"
            "newpath\n0.0 0.0 M\n30.0 40.0 L\n");
}

TEST_F(Document, CountsPagesAndStretchesTheBox) {
  const std::string bytes = BytesOf([] {
    p_depl(-3.25f, 7.0f, absoluteMove);
    ps_newpage();
    p_depl(700.0f, 1.0f, absoluteMove);
    p_depl(0.0f, 899.0f, relativeMove);
    ps_newpage();
  });
  EXPECT_NE(bytes.find("%%BoundingBox: -3.2 1.0 700.0 900.0\n%%Pages: 3\n"), std::string::npos) << bytes;
}

TEST_F(Document, ClosingStrokesWhatIsPending) {
  const std::string name = folder.File("close.ps");
  ps_iniplot(name);
  p_depl(10.0f, 20.0f, absoluteDraw);
  EXPECT_EQ(plclose("another.ps"), 1);
  EXPECT_NE(
      ReadWhole(name).find("10.0 20.0 L\nstroke\nshowpage\nrestore\n%%BoundingBox: 10.0 20.0 15.0 72.0\n"
                           "%%Pages: 1\n%%End of File another.ps\n"),
      std::string::npos);
}

TEST_F(Document, ActionFLeavesTheFileAndRunsNothing) {
  WriteWhole(folder.File("lp"), "#!/bin/sh\ntouch " + folder.File("ran") + "\n");
  ::chmod(folder.File("lp").c_str(), 0755);
  const std::string path = std::getenv("PATH");
  ::setenv("PATH", (folder.Path() + ":" + path).c_str(), 1);
  FileOf([] {});
  ::setenv("PATH", path.c_str(), 1);
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"drawing.ps", "lp"}));
}

/// A spooler that keeps its arguments, in front of the path of programs.
class Spooler : public PsTest {
 protected:
  void SetUp() override {
    PsTest::SetUp();
    path_ = std::getenv("PATH");
  }
  void TearDown() override {
    ::setenv("PATH", path_.c_str(), 1);
    PsTest::TearDown();
  }
  void Install(int status) {
    WriteWhole(bin.File("lp"), "#!/bin/sh\nfor a; do printf '%s\\n' \"$a\"; done >'" + bin.File("arguments") +
                                   "'\nexit " + std::to_string(status) + "\n");
    ::chmod(bin.File("lp").c_str(), 0755);
    ::setenv("PATH", (bin.Path() + ":" + path_).c_str(), 1);
  }
  std::string Arguments() { return ReadWhole(bin.File("arguments")); }

  test::TempFolder bin;

 private:
  std::string path_;
};

TEST_F(Spooler, GetsQueueAndFileAsArguments) {
  Install(0);
  ::setenv("PRINT_PLOT_PS", "office; touch q", 1);
  const std::string name = folder.File("x;touch y (a");
  ps_iniplot(name);
  EXPECT_EQ(ps_endplot("", 's'), 1);
  EXPECT_EQ(Arguments(), "-d\noffice; touch q\n" + name + "\n");
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"x;touch y (a"});
}

TEST_F(Spooler, AnyOtherActionPrintsToo) {
  Install(0);
  const std::string name = folder.File("a.ps");
  ps_iniplot(name);
  ps_queue_name("site");
  EXPECT_EQ(ps_endplot(name, '?'), 1);
  EXPECT_EQ(Arguments(), "-d\nsite\n" + name + "\n");
}

TEST_F(Spooler, ActionDRemovesWhatWasPrinted) {
  Install(0);
  ps_iniplot(folder.File("a.ps"));
  EXPECT_EQ(ps_endplot("", 'd'), 1);
  EXPECT_EQ(Arguments(), "-d\npostscript\n" + folder.File("a.ps") + "\n");
  EXPECT_TRUE(folder.Names().empty());
}

TEST_F(Spooler, ARefusalKeepsTheFile) {
  Install(3);
  ::testing::internal::CaptureStderr();
  ps_iniplot(folder.File("a.ps"));
  EXPECT_EQ(ps_endplot("", 'd'), 0);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(),
            "PLOT_PS: the print spooler did not take " + folder.File("a.ps") + "\n");
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"a.ps"});
}

TEST_F(Spooler, WithoutOneTheFileStays) {
  ::setenv("PATH", bin.Path().c_str(), 1);
  ::testing::internal::CaptureStderr();
  ps_iniplot(folder.File("a.ps"));
  EXPECT_EQ(ps_endplot("", 'd'), 0);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(),
            "PLOT_PS: no print spooler (lp) here, " + folder.File("a.ps") + " is not printed\n");
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"a.ps"});
}

using DocumentDeathTest = Document;

TEST_F(DocumentDeathTest, AFileThatCannotBeOpenedEndsTheProcess) {
  const std::string missing = folder.File("missing/a.ps");
  EXPECT_EXIT(ps_iniplot(missing), ::testing::ExitedWithCode(1),
              "\aPLOT_PS error: Impossible to open the PostScript file .*/missing/a.ps \n");
  EXPECT_EXIT(ps_iniplot("/dev/full"), ::testing::ExitedWithCode(1), "Impossible to open");
}

TEST_F(Document, AReportTriesFirst) {
  ::testing::internal::CaptureStderr();
  EXPECT_FALSE(ps_try_iniplot(folder.File("missing/a.ps")));
  EXPECT_NE(ps_reason().find("missing/a.ps: No such file or directory"), std::string::npos) << ps_reason();
  EXPECT_FALSE(ps_try_iniplot(folder.Path()));
  EXPECT_FALSE(ps_try_iniplot("/dev/full"));
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
  const std::string name = folder.File("a.ps");
  EXPECT_TRUE(ps_try_iniplot(name));
  EXPECT_EQ(ps_reason(), "");
  EXPECT_EQ(ps_endplot("", 'f'), 1);
  EXPECT_TRUE(ReadWhole(name).starts_with(Prolog(name)));
}

TEST_F(Document, AFullDiskLeavesTheFormerFileWhole) {
  const std::string name = folder.File("a.ps");
  WriteWhole(name, "former");
  ::testing::internal::CaptureStderr();
  {
    const test::FailingFileDriver full(
        {.failWrite = 2, .everAfter = true, .error = ENOSPC, .halfWrite = true});
    ASSERT_TRUE(ps_try_iniplot(name));
    for (int i = 0; i < 100000; ++i) p_depl(static_cast<float>(i % 500), 3.5f, absoluteDraw);
    EXPECT_NE(ps_reason().find("No space left"), std::string::npos) << ps_reason();
    EXPECT_EQ(ps_endplot("", 's'), 0);
  }
  EXPECT_EQ(::testing::internal::GetCapturedStderr(),
            "\aPLOT_PS error: Problem when closing the " + name + " PostScript file\n");
  EXPECT_NE(ps_reason().find("No space left"), std::string::npos) << ps_reason();
  EXPECT_EQ(ReadWhole(name), "former");
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"a.ps"});
}

TEST_F(Document, ClosingWithoutADocumentIsTold) {
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(ps_endplot("a.ps", 's'), 0);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(),
            "\aPLOT_PS error: Problem when closing the a.ps PostScript file\n");
  EXPECT_EQ(ps_reason(), "No PostScript document is open");
}

TEST_F(Document, ADroppedDocumentLeavesNothing) {
  WriteWhole(folder.File("a.ps"), "former");
  ps_iniplot(folder.File("a.ps"));
  ps_drawa(1.0f, 1.0f);
  ps_iniplot(folder.File("b.ps"));
  ResetPlotPs();
  EXPECT_EQ(ReadWhole(folder.File("a.ps")), "former");
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"a.ps"});
}

TEST_F(Document, DrawingWithoutADocumentWritesNothing) {
  ps_drawa(1.0f, 1.0f);
  ps_newpage();
  ps_writeah(1.0f, 1.0f, "text", 0.3f);
  EXPECT_TRUE(folder.Names().empty());
}

TEST_F(Document, NamesStandInCommentsAsPlainText) {
  struct Case {
    std::string name, shown;
  };
  const std::string longName(240, 'n');
  for (const auto& [name, shown] : {Case{"Site (A %d %s", "Site (A %d %s"}, Case{"b)\\c", "b)\\c"},
                                    Case{"Gr\xc3\xb6\xc3\x9f"
                                         "e",
                                         "Gr\\303\\266\\303\\237e"},
                                    Case{"two\nlines", "two\\012lines"}, Case{longName, ""}}) {
    const std::string file = folder.File(name);
    ps_iniplot(file);
    ASSERT_EQ(ps_endplot("", 'f'), 1) << ps_reason();
    const std::string bytes = ReadWhole(file), title = Lines(bytes).at(3);
    EXPECT_EQ(test::GrammarFault(bytes), "");
    if (shown.empty())
      EXPECT_EQ(title, "%%Title: ..." + std::string(197, 'n'));
    else
      EXPECT_EQ(title, "%%Title: " + folder.File(shown));
  }
}

TEST_F(Document, FlagPageStandsBeforeTheOriginOfEachPage) {
  SKIP_WITHOUT_GHOSTSCRIPT();
  ps_banner();
  const auto draw = [] {
    ps_font("Courier", 0.3f);
    ps_newpage();
    ps_writea(0.0f, 0.0f, "same font", 0.0f);
  };
  const test::Trace trace = Traced(draw);
  std::vector<std::string> texts;
  for (const test::TraceMark& mark : trace.marks)
    if (mark.kind == test::TraceMark::text) texts.push_back(mark.string);
  const std::string shortName =
      "..." + folder.File("drawing.ps").substr(folder.File("drawing.ps").size() - 17);
  EXPECT_EQ(texts, (std::vector<std::string>{"now...", shortName, "MS/DOS", "1", "now...", shortName,
                                             "MS/DOS", "2", "same font"}));
  EXPECT_EQ(trace.marks.back().size, 11.0);
  const auto& frame = trace.marks.at(0).paths.at(0);
  EXPECT_NEAR(frame.at(0).x, 0.8 * 28.346457, 0.06);
  EXPECT_NEAR(frame.at(2).x, 20.3 * 28.346457, 0.11);
  EXPECT_NEAR(frame.at(2).y, 1.8 * 28.346457, 0.11);
  const auto& divider = trace.marks.at(1).paths.at(0);
  EXPECT_NEAR(divider.at(0).x, 19.3 * 28.346457, 0.06);
  EXPECT_EQ(divider.at(0).x, divider.at(1).x);
  const test::TraceMark& date = trace.marks.at(2);
  EXPECT_EQ(date.size, 15.0);
  EXPECT_NEAR(date.paths[0][0].x, 28.3, 0.01);
  EXPECT_NEAR(date.paths[0][0].y, 1.15 * 28.346457, 0.06);
  EXPECT_EQ(trace.marks.at(3).size, 19.0);
  const std::string bytes = ReadWhole(folder.File("drawing.ps"));
  EXPECT_EQ(bytes.find("%%Beginning of the flag page\n"), Prolog(folder.File("drawing.ps")).size());
  EXPECT_NE(bytes.find("%%End of the flag page\n28.3 56.7 M\n"), std::string::npos);
  ps_no_banner();
  EXPECT_EQ(BytesOf([] {}).find("flag page"), std::string::npos);
}

TEST_F(Document, CodeStandsBetweenItsMarks) {
  EXPECT_EQ(
      Drawn([] {
        ps_code("/a 1 def\n/b 2 def");
        ps_code("");
      }),
      "%% PLOT_PS beginning of ps_code inclusion\n/a 1 def\n/b 2 def\n%% PLOT_PS end of ps_code inclusion\n"
      "%% PLOT_PS beginning of ps_code inclusion\n%% PLOT_PS end of ps_code inclusion\n");
}

TEST_F(Document, IncludesAFileWhole) {
  std::string content;
  for (int i = 0; i < 100000; ++i) content += "% line " + std::to_string(i) + "\n";
  content += "0 0 moveto";
  const std::string name = folder.File("part.ps");
  WriteWhole(name, content);
  EXPECT_EQ(Drawn([&] { EXPECT_EQ(ps_include(name), 1); }),
            "%%\n%% PLOT_PS beginning of ps_include of file " + name + "\n%%\n" + content +
                "\n%%\n%% PLOT_PS end of ps_include of file " + name + "\n%%\n");
}

TEST_F(Document, AMissingIncludeIsTold) {
  const std::string name = folder.File("none.ps");
  std::string drawn;
  EXPECT_EQ(Said([&] { EXPECT_EQ(ps_include(name), 0); }, &drawn),
            "\aPLOT_PS: ps_include Warning: Impossible to open the file " + name + "\n");
  EXPECT_EQ(drawn, "");
}

}  // namespace
}  // namespace sondera::testing
