// ps_fixture.cpp - see ps_fixture.h.
#include "ps_fixture.h"

#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "support/ps_grammar.h"

namespace sondera::testing {

void PsTest::SetUp() {
  ResetPlotPs();
  ::unsetenv("PRINT_PLOT_PS");
}

void PsTest::TearDown() {
  ResetPlotPs();
}

std::string PsTest::FileOf(const Drawing& draw) {
  const std::string name = folder.File("drawing.ps");
  ps_iniplot(name);
  draw();
  EXPECT_EQ(ps_endplot("", 'f'), 1) << ps_reason();
  EXPECT_EQ(test::GrammarFault(test::ReadWhole(name)), "");
  return name;
}

std::string PsTest::Drawn(const Drawing& draw) {
  const std::string end = "%% PLOT_PS beginning of ps_code inclusion\n% the end\n",
                    begin = "28.3 56.7 translate\n";
  const std::string bytes = BytesOf([&] {
    draw();
    ps_code("% the end\n");
  });
  const std::size_t from = bytes.find(begin) + begin.size();
  return bytes.substr(from, bytes.find(end) - from);
}

test::Trace PsTest::Traced(const Drawing& draw) {
  const std::string file = FileOf(draw);
  const test::GhostscriptRun plain = test::RunGhostscript(file);
  EXPECT_EQ(plain.status, 0);
  EXPECT_EQ(plain.output, "");
  const test::Trace trace = test::TraceOf(file);
  EXPECT_EQ(trace.run.status, 0) << trace.run.output;
  return trace;
}

std::string PsTest::Said(const Drawing& draw, std::string* drawn) {
  ::testing::internal::CaptureStderr();
  const std::string statements = Drawn(draw);
  if (drawn) *drawn = statements;
  return ::testing::internal::GetCapturedStderr();
}

std::string Tenths(double x, double y) {
  char text[80];
  std::snprintf(text, sizeof text, "%.1f %.1f", x, y);
  return text;
}

std::string Cm(double x, double y) {
  return Tenths(x * 28.346457, y * 28.346457);
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

}  // namespace sondera::testing
