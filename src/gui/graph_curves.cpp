// graph_curves.cpp - see graph_curves.h.
#include "gui/graph_curves.h"

#include <QLineF>
#include <QList>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>
#include <algorithm>
#include <span>

#include "figure/palette.h"
#include "figure/symbols.h"
#include "gui/graph_style.h"

namespace sondera {
namespace {

constexpr std::size_t kLongLine = 150;   // points; a shorter one is drawn as one path with round joins
constexpr qsizetype kMostDashes = 4000;  // more would not be visible: the line is solid
constexpr int kStampFrom = 300;          // symbols drawn by copies of one picture

int FromColor(const QColor& color) {
  return (color.red() << 16) | (color.green() << 8) | color.blue();
}

QPen LinePen(const PlotLook& look, int color, double width) {
  QPen pen(ToColor(color), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
  const std::span<const double> lengths = DashLengths(look.dash);
  if (lengths.empty()) return pen;
  QList<qreal> pattern;
  for (const double length : lengths) pattern.push_back(length / width);
  pen.setDashPattern(pattern);
  pen.setCapStyle(Qt::FlatCap);
  return pen;
}

/// Strokes of a dashed line, one after the other along it.
QList<QLineF> DashesOf(const std::vector<PixelLine>& lines, const QList<qreal>& pattern, double width) {
  QList<QLineF> dashes;
  for (const PixelLine& line : lines) {
    qsizetype part = 0;
    double left = pattern[0] * width;
    for (std::size_t i = 1; i < line.size(); ++i) {
      const QLineF segment(line[i - 1].x, line[i - 1].y, line[i].x, line[i].y);
      const double length = segment.length();
      for (double at = 0.0; at < length;) {
        const double end = std::min(length, at + left);
        if (part % 2 == 0) dashes.push_back({segment.pointAt(at / length), segment.pointAt(end / length)});
        left -= end - at;
        at = end;
        if (left > 1e-9) continue;
        part = (part + 1) % pattern.size();
        left = pattern[part] * width;
        if (dashes.size() > kMostDashes) return {};
      }
    }
  }
  return dashes;
}

/// Long lines on a screen are drawn segment by segment: for one long noisy path the painter takes seconds.
void StrokeSegments(QPainter& painter, const std::vector<PixelLine>& lines, QPen pen) {
  QList<QLineF> segments;
  if (pen.style() != Qt::SolidLine) segments = DashesOf(lines, pen.dashPattern(), pen.widthF());
  if (segments.isEmpty()) {
    for (const PixelLine& line : lines)
      for (std::size_t i = 1; i < line.size(); ++i)
        segments.push_back({line[i - 1].x, line[i - 1].y, line[i].x, line[i].y});
  }
  pen.setStyle(Qt::SolidLine);
  pen.setCapStyle(Qt::FlatCap);
  painter.setPen(pen);
  painter.drawLines(segments);
}

void Stroke(QPainter& painter, const std::vector<PixelLine>& lines, const QPen& pen, bool vectorial) {
  std::size_t points = 0;
  for (const PixelLine& line : lines) points += line.size();
  painter.setBrush(Qt::NoBrush);
  if (!vectorial && points > kLongLine) {
    StrokeSegments(painter, lines, pen);
    return;
  }
  painter.setPen(pen);
  for (const PixelLine& line : lines) {
    QPolygonF polygon;
    for (const PixelPoint& p : line) polygon.push_back({p.x, p.y});
    painter.drawPolyline(polygon);
  }
}

void PaintLine(QPainter& painter, const PlotModel& plot, const GraphFrame& frame) {
  const double width = kLineWidth * std::clamp(plot.width, 0.3, 20.0);
  const Ink ink = InkFor(plot.color, frame.theme.background);
  const std::vector<PixelLine> lines = LinesOf(plot, frame.x, frame.y, frame.area, width + kEdgeWidth);
  if (ink.edged) Stroke(painter, lines, LinePen({}, ink.edge, width + 2 * kEdgeWidth), frame.vectorial);
  Stroke(painter, lines, LinePen(plot, ink.color, width), frame.vectorial);
}

QPainterPath PathOf(const Symbol& symbol, double size) {
  QPainterPath path;
  const double scale = size * symbol.size;
  if (symbol.circle) path.addEllipse(QPointF(0, 0), scale / 2, scale / 2);
  for (std::size_t i = 0; i < symbol.outline.size(); ++i) {
    const QPointF corner(symbol.outline[i].x * scale, -symbol.outline[i].y * scale);
    i == 0 ? path.moveTo(corner) : path.lineTo(corner);
  }
  if (!symbol.outline.empty()) path.closeSubpath();
  for (std::size_t i = 0; i + 1 < symbol.strokes.size(); i += 2) {
    path.moveTo(symbol.strokes[i].x * scale, -symbol.strokes[i].y * scale);
    path.lineTo(symbol.strokes[i + 1].x * scale, -symbol.strokes[i + 1].y * scale);
  }
  return path;
}

void PaintSymbol(QPainter& painter, const QPointF& at, int marker, int color, const GraphTheme& theme) {
  const Symbol& symbol = SymbolOf(marker);
  const Ink ink = InkFor(color, theme.background);
  const QPainterPath path = PathOf(symbol, kMarkerSize).translated(at);
  const bool solid = symbol.fill == SymbolFill::Solid;
  const double width = solid ? 1.0 : 1.4;
  painter.setBrush(Qt::NoBrush);
  if (ink.edged && !solid) {  // a solid one has its dark outline
    painter.setPen(QPen(ToColor(ink.edge), width + 2 * kEdgeWidth));
    painter.drawPath(path);
  }
  painter.setPen(QPen(ToColor(solid ? MixColors(ink.color, theme.text, 0.45) : ink.color), width));
  if (solid) painter.setBrush(ToColor(ink.color));
  painter.drawPath(path);
  if (symbol.fill != SymbolFill::Dotted) return;
  painter.setPen(Qt::NoPen);
  painter.setBrush(ToColor(ink.edged ? ink.edge : ink.color));
  painter.drawEllipse(at, kSymbolDot * kMarkerSize / 2, kSymbolDot * kMarkerSize / 2);
}

void PaintPoints(QPainter& painter, const PlotModel& plot, const GraphFrame& frame) {
  const std::vector<PixelPoint> points = PointsOf(plot, frame.x, frame.y, frame.area);
  if (frame.vectorial || points.size() < kStampFrom) {
    for (const PixelPoint& p : points)
      PaintSymbol(painter, {p.x, p.y}, SymbolNumber(plot), plot.color, frame.theme);
    return;
  }
  const double half = kMarkerSize / 2 + 2.0, scale = painter.device()->devicePixelRatioF();
  QPixmap stamp(QSizeF(2 * half * scale, 2 * half * scale).toSize());
  stamp.setDevicePixelRatio(scale);
  stamp.fill(Qt::transparent);
  QPainter onStamp(&stamp);
  onStamp.setRenderHint(QPainter::Antialiasing);
  PaintSymbol(onStamp, {half, half}, SymbolNumber(plot), plot.color, frame.theme);
  onStamp.end();
  for (const PixelPoint& p : points) painter.drawPixmap(QPointF(p.x - half, p.y - half), stamp);
}

}  // namespace

QColor ToColor(int color) {
  return QColor((color >> 16) & 0xFF, (color >> 8) & 0xFF, color & 0xFF);
}
QColor Faint(int color, double opacity) {
  QColor faint = ToColor(color);
  faint.setAlphaF(static_cast<float>(opacity));
  return faint;
}

GraphTheme ThemeOf(const QPalette& palette) {
  const int background = FromColor(palette.color(QPalette::Base)),
            text = FromColor(palette.color(QPalette::Text));
  return {background, text, MixColors(background, text, 0.11), MixColors(background, text, 0.5)};
}

QRectF ToRect(const PixelArea& area) {
  return {QPointF(area.left, area.top), QPointF(area.right, area.bottom)};
}

void PaintCurve(QPainter& painter, const PlotModel& plot, const GraphFrame& frame) {
  if (HasLine(plot)) {
    painter.save();
    painter.setClipRect(ToRect(frame.area), Qt::IntersectClip);
    PaintLine(painter, plot, frame);
    painter.restore();
  }
  if (SymbolNumber(plot) != kNoMarker) PaintPoints(painter, plot, frame);
}

void PaintBand(QPainter& painter, const GraphModel& graph, const PlotModel& plot, const GraphFrame& frame) {
  for (const PlotModel& other : graph.plots) {
    if (other.handle != plot.bandTo || &other == &plot) continue;
    QPolygonF outline;
    for (const PixelPoint& p : BandOutline(plot, other, frame.x, frame.y, frame.area))
      outline.push_back({p.x, p.y});
    painter.setPen(Qt::NoPen);
    painter.setBrush(Faint(InkFor(plot.color, frame.theme.background).color, kBandOpacity));
    painter.drawPolygon(outline);
  }
}

void PaintSample(QPainter& painter, const QRectF& place, const PlotModel& plot, const GraphTheme& theme) {
  const Ink ink = InkFor(plot.color, theme.background);
  if (plot.bandTo != 0) painter.fillRect(place.adjusted(0, 2, 0, -2), Faint(ink.color, kBandOpacity));
  if (HasLine(plot)) {
    const double width = kLineWidth * std::clamp(plot.width, 0.3, 3.0), y = place.center().y();
    const std::vector<PixelLine> line = {{{place.left(), y}, {place.right(), y}}};
    if (ink.edged) Stroke(painter, line, LinePen({}, ink.edge, width + 2 * kEdgeWidth), true);
    Stroke(painter, line, LinePen(plot, ink.color, width), true);
  }
  const int symbol = SymbolNumber(plot);
  if (symbol != kNoMarker) PaintSymbol(painter, place.center(), symbol, plot.color, theme);
}

}  // namespace sondera
