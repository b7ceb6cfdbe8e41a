// report_fixture.h - projects for reports: pairs, curves and entries prepared by a test, and short functions
// for the file, its marks and texts.
#pragma once

#include <string>
#include <vector>

#include "report/report_document.h"
#include "support/ghostscript.h"
#include "support/session_fixture.h"
#include "support/temp_folder.h"

namespace sondera::testing {

inline constexpr double kCm = 28.346457;  // points
/// Page position of a point given in cm from the page's origin.
inline double OnSheetX(double cm) {
  return (cm + 1.0) * kCm;
}
inline double OnSheetY(double cm) {
  return (cm + 2.0) * kCm;
}

/// A line between two points, a corner of an area included, or the beginning of a text; points, from the sheet's corner.
struct Mark {
  char kind = 'l';  // 'l' line, 'a' side of an area, 't' text
  double x1 = 0.0, y1 = 0.0, x2 = 0.0, y2 = 0.0;
  double gray = 0.0, width = 0.0;
  bool dashed = false;
  std::string text;
};

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

/// Every mark of one list has its partner in the other, within a quarter of a point.
void ExpectSameMarks(std::vector<Mark> expected, std::vector<Mark> found);

/// Expected marks of the pages, by plain arithmetic in points.
class Prediction {
 public:
  Prediction(double left, double bottom, double width, double height)
      : left_(left), bottom_(bottom), width_(width), height_(height) {}
  void Line(double x1, double y1, double x2, double y2, double width, bool dashed = false,
            double gray = 0.0) {
    marks.push_back({'l', X(x1), Y(y1), X(x2), Y(y2), gray, width, dashed, {}});
  }
  void Text(double x, double y, const std::string& text) {
    marks.push_back({'t', X(x), Y(y), 0, 0, 0, 0, false, text});
  }
  void Area(const std::vector<std::pair<double, double>>& corners, double gray);
  /// Frame, and ticks with grid lines at places along x and y.
  void Frame();
  void Ticks(const std::vector<double>& places, bool alongX);

  std::vector<Mark> marks;

 private:
  double X(double cm) const { return OnSheetX(left_ + cm); }
  double Y(double cm) const { return OnSheetY(bottom_ + cm); }
  double left_, bottom_, width_, height_;
};

}  // namespace sondera::testing
