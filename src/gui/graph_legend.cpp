// graph_legend.cpp - see graph_legend.h.
#include "gui/graph_legend.h"

#include <QFontMetricsF>
#include <QLineF>
#include <QPainter>
#include <QSize>
#include <algorithm>
#include <array>
#include <cmath>

#include "gui/graph_style.h"
#include "gui/qt_text.h"

namespace sondera {
namespace {

constexpr double kSampleWidth = 26.0, kGap = 6.0, kMargin = 5.0, kFromEdge = 8.0;
constexpr double kMostOfArea = 0.3;    // a legend inside covers at most that share of either side
constexpr double kWidestText = 260.0;  // longer names are shortened in their middle
constexpr int kMaskNumber = 50;        // points that the number of a mask counts for
constexpr std::size_t kFewPoints = 60;
constexpr double kBetween = 8.0;  // pixels between places on a line of few points
constexpr double kMostBetween = 60.0;
constexpr std::size_t kSamples = 500;  // points of a curve used to find a free corner

QString NameOf(const PlotModel& plot, const QFontMetricsF& metrics) {
  return metrics.elidedText(ToQt(plot.legend), Qt::ElideMiddle, kWidestText);
}

/// Points of the curves in a part of the graph; for a line of few points also places between them.
int PointsIn(const GraphModel& graph, const GraphFrame& frame, const QRectF& rect) {
  int count = 0;
  const auto add = [&](const QPointF& at) { count += rect.contains(at); };
  for (const PlotModel& plot : graph.plots) {
    if (!plot.visible) continue;
    const std::size_t n = std::min(plot.x.size(), plot.y.size()), step = n / kSamples + 1;
    const bool between = HasLine(plot) && n <= kFewPoints;
    QPointF before;
    for (std::size_t i = 0; i < n; i += step) {
      const QPointF at(frame.x.PixelOf(plot.x[i]), frame.y.PixelOf(plot.y[i]));
      add(at);
      const double steps =
          between && i > 0 ? std::min(QLineF(before, at).length() / kBetween, kMostBetween) : 0.0;
      for (int k = 1; k < steps; ++k) add(before + (at - before) * (k / steps));
      before = at;
    }
  }
  for (const RectangleModel& mask : graph.rectangles) {
    const auto x = [&](double value) {
      return std::clamp(frame.x.PixelOf(value), frame.area.left, frame.area.right);
    };
    const double top = std::min(frame.y.PixelOf(mask.y1), frame.y.PixelOf(mask.y2));
    if (rect.contains({0.5 * (x(mask.x1) + x(mask.x2)), std::max(top, frame.area.top) + kFromEdge + 1}))
      count += kMaskNumber;
  }
  return count;
}

QRectF CornerFor(const GraphModel& graph, const GraphFrame& frame, double width, double height) {
  const PixelArea& a = frame.area;
  const double left = a.left + kFromEdge, right = a.right - kFromEdge - width;
  const double top = a.top + kFromEdge, bottom = a.bottom - kFromEdge - height;
  const std::array<QPointF, 4> corners = {QPointF(right, top), QPointF(left, top), QPointF(right, bottom),
                                          QPointF(left, bottom)};
  QRectF best;
  int fewest = 0;
  for (const QPointF& corner : corners) {
    const QRectF rect(corner, QSizeF(width, height));
    const int points = PointsIn(graph, frame, rect);
    if (!best.isNull() && points >= fewest) continue;
    best = rect;
    fewest = points;
  }
  return best;
}

}  // namespace

LegendPlan PlanLegend(const GraphModel& graph, const QFont& font, const QSize& size) {
  LegendPlan plan;
  const QFontMetricsF metrics(font);
  double widest = 0.0;
  for (const PlotModel& plot : graph.plots) {
    if (!plot.visible || !plot.inLegend || plot.legend.empty()) continue;
    plan.rows.push_back(&plot);
    widest = std::max(widest, metrics.horizontalAdvance(NameOf(plot, metrics)));
  }
  if (plan.rows.empty()) return plan;
  const int count = static_cast<int>(plan.rows.size());
  plan.rowHeight = std::ceil(metrics.height() + 1);
  plan.columnWidth = std::ceil(kSampleWidth + kGap + widest + 2 * kMargin);
  const double inside = count * plan.rowHeight + 2 * kMargin;
  plan.beside = inside > std::max(kMostOfArea * size.height(), 3 * plan.rowHeight) &&
                size.width() > 3 * plan.columnWidth;
  const double room = plan.beside ? size.height() - 4 * plan.rowHeight : 0.8 * size.height();
  plan.rowsInColumn = std::clamp(static_cast<int>((room - 2 * kMargin) / plan.rowHeight), 1, count);
  const int columns = (count + plan.rowsInColumn - 1) / plan.rowsInColumn;
  plan.width = columns * plan.columnWidth;
  plan.height = plan.rowsInColumn * plan.rowHeight + 2 * kMargin;
  return plan;
}

void PaintLegend(QPainter& painter, const GraphModel& graph, const GraphFrame& frame) {
  const PixelArea& a = frame.area;
  const LegendPlan plan = PlanLegend(graph, frame.font, frame.size);
  if (plan.rows.empty()) return;
  const QRectF rect = frame.legendBeside ? QRectF(a.right + 8, a.top, plan.width, plan.height)
                                         : CornerFor(graph, frame, plan.width, plan.height);
  if (!frame.legendBeside) {
    painter.setPen(QPen(ToColor(frame.theme.grid), 1));
    painter.setBrush(Faint(frame.theme.background, 0.85));
    painter.drawRoundedRect(rect, 3, 3);
  }
  painter.setFont(frame.font);
  const QFontMetricsF metrics(frame.font);
  for (std::size_t i = 0; i < plan.rows.size(); ++i) {
    const int row = static_cast<int>(i) % plan.rowsInColumn, column = static_cast<int>(i) / plan.rowsInColumn;
    const QPointF corner =
        rect.topLeft() + QPointF(kMargin + column * plan.columnWidth, kMargin + row * plan.rowHeight);
    PaintSample(painter, QRectF(corner, QSizeF(kSampleWidth, plan.rowHeight)), *plan.rows[i], frame.theme);
    painter.setPen(ToColor(frame.theme.text));
    painter.drawText(
        QRectF(corner + QPointF(kSampleWidth + kGap, 0), QSizeF(plan.columnWidth, plan.rowHeight)),
        Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, NameOf(*plan.rows[i], metrics));
  }
}

ColorBar ColorBarOf(const IntensityModel& map, double height) {
  ColorBar bar{INFINITY, -INFINITY, {}, {}};
  for (const ColorLevel& level : map.colorMap) {
    if (!std::isfinite(level.level)) continue;
    bar.low = std::min(bar.low, level.level);
    bar.high = std::max(bar.high, level.level);
  }
  AxisModel axis;
  axis.label = map.label;
  axis.unit = map.unit;
  bar.title = ToQt(AxisTitle(axis));
  bar.ticks =
      TicksOf(axis, {bar.low, bar.high, true}, std::clamp(static_cast<int>(height / 36.0), 2, 8)).numbers;
  return bar;
}

}  // namespace sondera
