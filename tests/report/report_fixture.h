// report_fixture.h - projects for reports: pairs, curves and entries prepared by a test, and short functions
// for the file, its marks and texts.
#pragma once

#include <string>
#include <vector>

#include "report/report_document.h"
#include "support/ghostscript.h"
#include "support/page_marks.h"
#include "support/session_fixture.h"
#include "support/temp_folder.h"

namespace sondera::testing {

class ReportTest : public SessionTest {
 protected:
  void SetUp() override;
  void TearDown() override;

  /// A pair of a measurement of its own, 9 lines of 10 Hz; all phases 0.
  PMeasInfo& AddPair(const std::string& measID, bool included = true);
  /// Gives a pair a curve; wavelengths from velocity and frequency.
  static void SetCurve(PMeasInfo& pair, const std::vector<double>& freq, const std::vector<double>& vel);
  static void AddMask(const PMeasInfo& pair, double from, double to, int number);
  /// Entries 0..last of three layers (tops 0, 2, 5, end 8) and a curve of one point.
  void AddEntries(int last, int wanted);

  /// A report of this project; the file is valid by its grammar.
  std::string Report(ReportKind kind);
  std::string BytesOf(ReportKind kind) { return test::ReadWhole(Report(kind)); }
  /// Marks of a page; Ghostscript must accept the file without a message.
  std::vector<Mark> MarksOf(ReportKind kind, int page);
  test::Trace TraceOfReport(ReportKind kind);
  /// Texts of a page in the order of the file.
  std::vector<std::string> TextsOf(ReportKind kind, int page);

  ReportInput input;
  test::TempFolder folder;
};

}  // namespace sondera::testing
