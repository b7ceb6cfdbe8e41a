// ghostscript.h - runs Ghostscript on a PostScript file: whether it accepts the file, and the marks on its
// pages.
//
// Tests begin with SKIP_WITHOUT_GHOSTSCRIPT(), which skips them with one line where there is no program "gs".
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace sondera::test {

bool HaveGhostscript();

/// Result of a run, and all its output.
struct GhostscriptRun {
  int status = -1;
  std::string output;  // of both streams
};

/// Runs a file on a device that draws nothing.
GhostscriptRun RunGhostscript(const std::string& file);
/// Draws all pages as PNG, one file a page: "<stem>1.png", ...
GhostscriptRun DrawPng(const std::string& file, const std::string& stem, int dpi);

struct TracePoint {
  double x = 0.0, y = 0.0;  // points, from the lower left corner of the sheet
};

/// One mark. A closed path comes back to its first point; a curve counts with its end points.
struct TraceMark {
  enum Kind { stroke, fill, text } kind = stroke;
  int page = 1;
  double gray = 0.0;
  double width = 0.0;  // strokes
  int dashes = 0;      // strokes: lengths in the dash array
  std::vector<std::vector<TracePoint>>
      paths;           // lines of two points and more; for a text, the point it begins at
  std::string string;  // texts
  double size = 0.0;   // texts: font size in points
};

struct Trace {
  GhostscriptRun run;
  int pages = 0;  // showpage
  std::vector<TraceMark> marks;
};

/// The marks of a file, by running it with stroke, fill, show and showpage redefined.
Trace TraceOf(const std::string& file);

}  // namespace sondera::test

#define SKIP_WITHOUT_GHOSTSCRIPT() \
  if (!::sondera::test::HaveGhostscript()) GTEST_SKIP() << "no Ghostscript (program gs)"
