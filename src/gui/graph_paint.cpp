// graph_paint.cpp - see graph_paint.h.
#include "gui/graph_paint.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <vector>

#include "figure/graph_notes.h"
#include "figure/palette.h"
#include "figure/ticks.h"
#include "gui/graph_legend.h"
#include "gui/graph_style.h"
#include "gui/qt_text.h"

namespace sondera {
namespace {

constexpr double kMapScale = 2.0;  // pixels of a map in a file for each one of the screen
constexpr double kMarkerRing = 4.0, kFlagMargin = 3.0;
constexpr double kNoteGap = 5.0, kHatchShare = 0.3;  // the share of text in the colour of a hatching
constexpr double kBarWidth = 12.0, kBarGap = 12.0;

int TextOn(int color) {
  return Contrast(color, 0) > Contrast(color, 0xFFFFFF) ? 0 : 0xFFFFFF;
}

// ---- masks and map ----------------------------------------------------------------------------------------------

/// Pixel of a mask's end: for a place outside the axis, the area's edge.
double Held(const PixelAxis& axis, double value) {
  const double pixel = axis.PixelOf(value), low = std::min(axis.from, axis.to),
               high = std::max(axis.from, axis.to);
  if (std::isnan(pixel)) return axis.from;
  return std::clamp(pixel, low - 3.0, high + 3.0);
}

/// On a dark background a mask is fainter: curves in dark colours cross it.
double MaskOpacity(const GraphTheme& theme) {
  return TextOn(theme.background) == 0 ? kMaskOpacity : kDarkMaskOpacity;
}

void PaintMask(QPainter& painter, const RectangleModel& mask, const GraphFrame& frame) {
  const QRectF rect = QRectF(QPointF(Held(frame.x, mask.x1), Held(frame.y, mask.y1)),
                             QPointF(Held(frame.x, mask.x2), Held(frame.y, mask.y2)))
                          .normalized();
  const Ink edge = InkFor(mask.frameColor, frame.theme.background);
  painter.setBrush(Faint(mask.fillColor & 0xFFFFFF, MaskOpacity(frame.theme)));
  painter.setPen(mask.selected ? QPen(ToColor(frame.theme.text), 2.0)
                               : QPen(ToColor(edge.edged ? edge.edge : edge.color), 1.0));
  painter.drawRect(rect);
  const QString text = ToQt(mask.label);
  const QFontMetricsF metrics(frame.font);
  if (text.isEmpty() || metrics.horizontalAdvance(text) > rect.width() - 4) return;
  painter.setFont(frame.font);
  painter.setPen(ToColor(frame.theme.text));
  painter.drawText(rect.adjusted(0, 3, 0, 0), Qt::AlignHCenter | Qt::AlignTop, text);
}

void PaintHatching(QPainter& painter, const HatchModel& hatching, const GraphFrame& frame) {
  painter.setPen(QPen(ToColor(MixColors(frame.theme.background, frame.theme.text, kHatchShare)), 1.0));
  for (const PixelLine& line : HatchLines(hatching, frame.y, frame.area))
    painter.drawLine(QPointF(line[0].x, line[0].y), QPointF(line[1].x, line[1].y));
  const QRectF part = ToRect(HatchedPart(hatching, frame.y, frame.area));
  const QFontMetricsF metrics(frame.font);
  const QString text = ToQt(hatching.label);
  const double width = metrics.horizontalAdvance(text) + 2 * kNoteGap;
  if (text.isEmpty() || width > part.width() || metrics.height() > part.height()) return;
  const QRectF place(part.left() + 1, part.bottom() - metrics.height() - 1, width, metrics.height());
  painter.fillRect(place, ToColor(frame.theme.background));
  painter.setFont(frame.font);
  painter.setPen(ToColor(frame.theme.text));
  painter.drawText(place, Qt::AlignCenter, text);
}

void PaintNotes(QPainter& painter, const GraphModel& graph, const GraphFrame& frame) {
  if (graph.sideNotes.empty()) return;
  const QFontMetricsF metrics(frame.font);
  const auto width = [&](const std::string& text) { return metrics.horizontalAdvance(ToQt(text)); };
  painter.setFont(frame.font);
  painter.setPen(ToColor(frame.theme.text));
  for (const PlacedNote& note :
       PlaceNotes(graph, frame.x, frame.y, frame.area, width, metrics.height(), kNoteGap))
    painter.drawText(QPointF(note.at.x, note.at.y + metrics.capHeight() / 2), ToQt(*note.text));
}

void PaintMap(QPainter& painter, const IntensityModel& map, const GraphFrame& frame) {
  // A file gets more pixels than a screen has there.
  const double scale = frame.vectorial ? kMapScale : painter.device()->devicePixelRatioF();
  const auto scaled = [&](const PixelAxis& axis) {
    PixelAxis a = axis;
    a.from *= scale;
    a.to *= scale;
    return a;
  };
  const PixelArea area = {frame.area.left * scale, frame.area.top * scale, frame.area.right * scale,
                          frame.area.bottom * scale};
  const MapPixels pixels = PixelsOf(map, scaled(frame.x), scaled(frame.y), area);
  if (pixels.pixels.empty()) return;
  const QImage image(reinterpret_cast<const uchar*>(pixels.pixels.data()), pixels.width, pixels.height,
                     QImage::Format_ARGB32);
  painter.drawImage(QRectF(frame.area.left, frame.area.top, pixels.width / scale, pixels.height / scale),
                    image);
}

void PaintColorBar(QPainter& painter, const IntensityModel& map, const GraphFrame& frame) {
  const ColorBar bar = ColorBarOf(map, frame.area.bottom - frame.area.top);
  if (bar.ticks.empty()) return;
  const double left = frame.area.right + kBarGap, height = frame.area.bottom - frame.area.top;
  const QRectF rect(left, frame.area.top, kBarWidth, height);
  QImage image(1, std::max(2, static_cast<int>(height)), QImage::Format_RGB32);
  for (int row = 0; row < image.height(); ++row) {
    const double value = bar.high + (bar.low - bar.high) * row / (image.height() - 1);
    image.setPixel(0, row, static_cast<QRgb>(MapColor(map.colorMap, value, frame.theme.background)));
  }
  painter.drawImage(rect, image);
  painter.setPen(ToColor(frame.theme.frame));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(rect);
  painter.setFont(frame.font);
  const QFontMetricsF metrics(frame.font);
  painter.setPen(ToColor(frame.theme.text));
  double widest = 0.0;
  for (const Tick& tick : bar.ticks) {
    const double y = rect.bottom() - (tick.at - bar.low) / (bar.high - bar.low) * height;
    const QString text = ToQt(tick.text);
    painter.drawLine(QPointF(rect.right(), y), QPointF(rect.right() + 3, y));
    painter.drawText(QPointF(rect.right() + 6, y + metrics.ascent() / 2 - 1), text);
    widest = std::max(widest, metrics.horizontalAdvance(text));
  }
  if (bar.title.isEmpty()) return;
  painter.save();
  painter.translate(rect.right() + 10 + widest, rect.center().y());
  painter.rotate(90);
  painter.drawText(QRectF(-height / 2, -metrics.height(), height, metrics.height()), Qt::AlignCenter,
                   bar.title);
  painter.restore();
}

// ---- markers ----------------------------------------------------------------------------------------------------

QString MarkerText(std::size_t index) {
  return QString::number(index + 1);
}

bool IsShown(const CursorModel& cursor, const GraphFrame& frame) {
  const double x = frame.x.PixelOf(cursor.x);
  return std::isfinite(x) && x >= frame.area.left - 0.5 && x <= frame.area.right + 0.5;
}

/// Places of the markers' numbers at the top of the graph, one below the other where they are close.
std::vector<QRectF> MarkerFlags(const GraphModel& graph, const GraphFrame& frame) {
  const QFontMetricsF metrics(frame.font);
  std::vector<QRectF> flags(graph.cursors.size());
  for (std::size_t i = 0; i < flags.size(); ++i) {
    if (!IsShown(graph.cursors[i], frame)) continue;
    const double x = frame.x.PixelOf(graph.cursors[i].x);
    QRectF flag(x, frame.area.top, metrics.horizontalAdvance(MarkerText(i)) + 2 * kFlagMargin,
                metrics.height());
    if (flag.right() > frame.area.right) flag.moveRight(x);
    const auto taken = [&](const QRectF& other) { return other.intersects(flag); };
    while (std::any_of(flags.begin(), flags.begin() + static_cast<std::ptrdiff_t>(i), taken) &&
           flag.bottom() + flag.height() < frame.area.bottom)
      flag.translate(0, flag.height());
    flags[i] = flag;
  }
  return flags;
}

void PaintMarker(QPainter& painter, const CursorModel& cursor, const QString& text, const QRectF& flag,
                 const GraphFrame& frame) {
  if (!IsShown(cursor, frame)) return;
  const double x = frame.x.PixelOf(cursor.x), y = frame.y.PixelOf(cursor.y);
  const int color = InkFor(cursor.color, frame.theme.background).color;
  painter.setPen(QPen(ToColor(color), 1.2));
  painter.setBrush(Qt::NoBrush);
  painter.drawLine(QPointF(x, frame.area.top), QPointF(x, frame.area.bottom));
  if (std::isfinite(y) && y >= frame.area.top && y <= frame.area.bottom) {
    painter.drawEllipse(QPointF(x, y), kMarkerRing, kMarkerRing);
    if (cursor.plot == 0) {
      painter.setPen(QPen(ToColor(color), 1.0, Qt::DotLine));
      painter.drawLine(QPointF(frame.area.left, y), QPointF(frame.area.right, y));
    }
  }
  painter.fillRect(flag, ToColor(color));
  painter.setPen(ToColor(TextOn(color)));
  painter.setFont(frame.font);
  painter.drawText(flag, Qt::AlignCenter, text);
}

void PaintTitle(QPainter& painter, const GraphModel& graph, const GraphFrame& frame) {
  if (graph.title.empty()) return;
  QFont bold = frame.font;
  bold.setBold(true);
  const QFontMetricsF metrics(bold);
  const QRectF place(frame.area.left, frame.area.top - metrics.height() - 3,
                     frame.area.right - frame.area.left, metrics.height());
  painter.setFont(bold);
  painter.setPen(ToColor(frame.theme.text));
  painter.drawText(place, Qt::AlignCenter,
                   metrics.elidedText(ToQt(graph.title), Qt::ElideRight, place.width()));
}

/// Names above the frame; one that would stand over its neighbour is left out.
void PaintTopLabels(QPainter& painter, const GraphModel& graph, const GraphFrame& frame) {
  const QFontMetricsF metrics(frame.font);
  painter.setFont(frame.font);
  painter.setPen(ToColor(frame.theme.text));
  double free = frame.area.left - 1e3;
  for (const TopLabel& label : graph.topLabels) {
    const double x = frame.x.PixelOf(label.x), half = 0.5 * metrics.horizontalAdvance(ToQt(label.text));
    if (!std::isfinite(x) || x < frame.area.left - 0.5 || x > frame.area.right + 0.5 || x - half < free)
      continue;
    painter.drawText(QPointF(x - half, frame.area.top - 4), ToQt(label.text));
    free = x + half + 4;
  }
}

}  // namespace

GraphMargins MarginsFor(const GraphModel& graph, const QFont& font, const QSize& size) {
  GraphMargins room;
  const QFontMetricsF metrics(font);
  if (!graph.title.empty() || !graph.topLabels.empty()) room.top = static_cast<int>(metrics.height()) + 6;
  const LegendPlan legend = PlanLegend(graph, font, size);
  room.legendBeside = legend.beside;
  if (legend.beside) room.right = static_cast<int>(legend.width) + 10;
  if (!graph.intensity || size.width() < 240 || size.height() < 140) return room;
  const ColorBar bar = ColorBarOf(*graph.intensity, size.height());
  double widest = 0.0;
  for (const Tick& tick : bar.ticks) widest = std::max(widest, metrics.horizontalAdvance(ToQt(tick.text)));
  room.colorBar = !bar.ticks.empty() && !legend.beside;
  if (room.colorBar)
    room.right = static_cast<int>(kBarGap + kBarWidth + 10 + widest +
                                  (bar.title.isEmpty() ? 0.0 : metrics.height() + 4));
  return room;
}

void PaintContent(QPainter& painter, const GraphModel& graph, const GraphFrame& frame) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setClipRect(ToRect(frame.area), Qt::IntersectClip);
  if (graph.intensity) PaintMap(painter, *graph.intensity, frame);
  for (const RectangleModel& mask : graph.rectangles)
    if (!mask.selected) PaintMask(painter, mask, frame);
  for (const RectangleModel& mask : graph.rectangles)
    if (mask.selected) PaintMask(painter, mask, frame);
  for (const HatchModel& hatching : graph.hatchings) PaintHatching(painter, hatching, frame);
  for (const PlotModel& plot : graph.plots)
    if (plot.visible && plot.bandTo != 0) PaintBand(painter, graph, plot, frame);
  painter.restore();
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  for (const PlotModel& plot : graph.plots)
    if (plot.visible) PaintCurve(painter, plot, frame);
  painter.restore();
}

void PaintOver(QPainter& painter, const GraphModel& graph, const GraphFrame& frame) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  PaintNotes(painter, graph, frame);
  PaintTitle(painter, graph, frame);
  PaintTopLabels(painter, graph, frame);
  if (graph.intensity && frame.colorBar) PaintColorBar(painter, *graph.intensity, frame);
  const std::vector<QRectF> flags = MarkerFlags(graph, frame);
  for (std::size_t i = graph.cursors.size(); i-- > 0;)
    PaintMarker(painter, graph.cursors[i], MarkerText(i), flags[i], frame);
  PaintLegend(painter, graph, frame);
  painter.restore();
}

}  // namespace sondera
