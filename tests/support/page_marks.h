// page_marks.h - marks on a page of a report, and a prediction of them.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "support/ghostscript.h"

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

/// Marks of a page. Lines and sides shorter than 0.3 points are left out.
std::vector<Mark> MarksOfPage(const test::Trace& trace, int page);

/// Every mark of one list has its partner in the other, within a quarter of a point. Lines and sides shorter than half a
/// point may lack one, since a page has tenths of a point.
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
  /// Marker of a curve, in the size of the reports.
  /// @param shape  0 circle, 1 square, 2 to 5 triangles up, down, left, right, 6 diamond
  /// @param kind   0 open, 1 filled black, 2 filled in grey 0.7
  void Symbol(double x, double y, int shape, int kind);
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
