// page_marks.cpp - see page_marks.h.
#include "support/page_marks.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>

namespace sondera::testing {
namespace {

constexpr double kShortest = 0.3, kClose = 0.25;  // points

double Apart(double ax, double ay, double bx, double by) {
  return std::max(std::fabs(ax - bx), std::fabs(ay - by));
}

bool SameInk(const Mark& a, const Mark& b) {
  return a.kind == b.kind && a.dashed == b.dashed && std::fabs(a.gray - b.gray) <= 1e-3 &&
         std::fabs(a.width - b.width) <= 1e-3 && a.text == b.text;
}

/// Largest distance of two ends, points; a line has no direction.
double Distance(const Mark& a, const Mark& b) {
  return std::min(std::max(Apart(a.x1, a.y1, b.x1, b.y1), Apart(a.x2, a.y2, b.x2, b.y2)),
                  std::max(Apart(a.x1, a.y1, b.x2, b.y2), Apart(a.x2, a.y2, b.x1, b.y1)));
}

double MiddleX(const Mark& m) {
  return m.kind == 't' ? m.x1 : 0.5 * (m.x1 + m.x2);
}

bool IsShort(const Mark& m) {
  return m.kind != 't' && std::hypot(m.x1 - m.x2, m.y1 - m.y2) < 0.5;
}

std::string Told(const Mark& m) {
  char text[200];
  std::snprintf(text, sizeof text, "%c (%.1f %.1f) (%.1f %.1f) grey %.2f width %.2f%s ", m.kind, m.x1, m.y1,
                m.x2, m.y2, m.gray, m.width, m.dashed ? " dashed" : "");
  return text + m.text;
}

}  // namespace

std::vector<Mark> MarksOfPage(const test::Trace& trace, int page) {
  std::vector<Mark> marks;
  for (const test::TraceMark& mark : trace.marks) {
    if (mark.page != page) continue;
    const bool fill = mark.kind == test::TraceMark::fill;
    for (const auto& path : mark.paths) {
      if (mark.kind == test::TraceMark::text)
        marks.push_back({'t', path[0].x, path[0].y, 0, 0, 0, 0, false, mark.string});
      for (std::size_t i = 1; mark.kind != test::TraceMark::text && i < path.size(); ++i) {
        const auto &a = path[i - 1], &b = path[i];
        if (std::hypot(a.x - b.x, a.y - b.y) < kShortest) continue;
        marks.push_back({fill ? 'a' : 'l',
                         a.x,
                         a.y,
                         b.x,
                         b.y,
                         mark.gray,
                         fill ? 0.0 : mark.width,
                         !fill && mark.dashes > 0,
                         {}});
      }
    }
  }
  return marks;
}

void ExpectSameMarks(std::vector<Mark> expected, std::vector<Mark> found) {
  const auto byMiddle = [](const Mark& a, const Mark& b) { return MiddleX(a) < MiddleX(b); };
  std::sort(found.begin(), found.end(), byMiddle);
  std::vector<bool> used(found.size(), false);
  for (const Mark& mark : expected) {
    Mark from;
    from.x1 = from.x2 = MiddleX(mark) - kClose;
    std::size_t best = found.size();
    double least = kClose;
    for (auto it = std::lower_bound(found.begin(), found.end(), from, byMiddle);
         it != found.end() && MiddleX(*it) <= MiddleX(mark) + kClose; ++it) {
      const auto at = static_cast<std::size_t>(it - found.begin());
      if (used[at] || !SameInk(mark, *it) || Distance(mark, *it) >= least) continue;
      best = at;
      least = Distance(mark, *it);
    }
    if (best < found.size())
      used[best] = true;
    else if (!IsShort(mark))
      ADD_FAILURE() << "missing: " << Told(mark);
  }
  for (std::size_t i = 0; i < found.size(); ++i)
    if (!used[i] && !IsShort(found[i])) ADD_FAILURE() << "without a rule: " << Told(found[i]);
}

void Prediction::Symbol(double x, double y, int shape, int kind) {
  constexpr double kSize = 0.1, kThird = kSize / 3.0, kHalf = kSize / 2.0;
  const double gray = kind == 2 ? 0.7 : 0.0;
  // A circle is recognised by the ends of its quarters. Its radius is the size that other shapes are wide.
  const std::vector<std::vector<std::pair<double, double>>> shapes = {
      {{kSize, 0}, {0, kSize}, {-kSize, 0}, {0, -kSize}},
      {{-kHalf, -kHalf}, {-kHalf, kHalf}, {kHalf, kHalf}, {kHalf, -kHalf}},
      {{-kHalf, -kThird}, {kHalf, -kThird}, {0, 2 * kThird}},
      {{-kHalf, kThird}, {kHalf, kThird}, {0, -2 * kThird}},
      {{kThird, -kHalf}, {kThird, kHalf}, {-2 * kThird, 0}},
      {{-kThird, -kHalf}, {-kThird, kHalf}, {2 * kThird, 0}},
      {{-kHalf, 0}, {0, kHalf}, {kHalf, 0}, {0, -kHalf}}};
  std::vector<std::pair<double, double>> corners = shapes[static_cast<std::size_t>(shape)];
  for (auto& corner : corners) corner = {x + corner.first, y + corner.second};
  if (kind != 0) return Area(corners, gray);
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const auto &a = corners[i], &b = corners[(i + 1) % corners.size()];
    Line(a.first, a.second, b.first, b.second, 0.25);
  }
}

void Prediction::Area(const std::vector<std::pair<double, double>>& corners, double gray) {
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const auto &a = corners[i], &b = corners[(i + 1) % corners.size()];
    marks.push_back({'a', X(a.first), Y(a.second), X(b.first), Y(b.second), gray, 0.0, false, {}});
  }
}

void Prediction::Frame() {
  Line(0, 0, 0, height_, 0.5);
  Line(0, height_, width_, height_, 0.5);
  Line(width_, height_, width_, 0, 0.5);
  Line(width_, 0, 0, 0, 0.5);
}

void Prediction::Ticks(const std::vector<double>& places, bool alongX) {
  for (const double at : places) {
    if (alongX) {
      Line(at, 0, at, 0.2, 0.1);
      Line(at, height_, at, height_ - 0.2, 0.1);
      Line(at, 0, at, height_, 0.1, true);
    } else {
      Line(0, at, 0.2, at, 0.1);
      Line(width_, at, width_ - 0.2, at, 0.1);
      Line(0, at, width_, at, 0.1, true);
    }
  }
}

}  // namespace sondera::testing
