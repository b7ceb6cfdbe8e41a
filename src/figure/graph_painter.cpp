// graph_painter.cpp - see graph_painter.h.
#include "figure/graph_painter.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "figure/graph_notes.h"
#include "figure/palette.h"
#include "figure/symbols.h"
#include "figure/ticks.h"

namespace sondera {
namespace {

constexpr int kInk = 0x1A1A1A, kGrid = 0xDDDDDD, kFrame = 0x444444, kHatch = 0xAAAAAA;
constexpr double kTick = 3.0, kSmallTick = 1.8, kGap = 4.0, kNameScale = 1.08, kTitleScale = 1.2;
constexpr double kBarWidth = 9.0, kEdge = 0.5;
constexpr double kLegendLine = 18.0, kMostOfWidth = 0.32;
constexpr double kBandShare = 0.84;  // share of the paper's colour in the colour of a band
constexpr double kMaskShare = 0.75;  // of paper in the colour of a mask, so that curves are seen on it

double Width(const PixelArea& area) {
  return area.right - area.left;
}
double Height(const PixelArea& area) {
  return area.bottom - area.top;
}

/// A marker with its colours on white.
void DrawSymbolAt(Canvas& canvas, PixelPoint at, int marker, int color, double size) {
  const Symbol& symbol = SymbolOf(marker);
  const Ink ink = InkFor(color, kPaper);
  const double scale = size * symbol.size;
  const int line = ink.edged ? ink.edge : ink.color;
  const Pen pen = {line, 0.6, LineDash::Solid};
  const bool solid = symbol.fill == SymbolFill::Solid;
  const auto place = [&](const SymbolPoint& p) { return PixelPoint{at.x + scale * p.x, at.y - scale * p.y}; };
  const std::optional<int> fill = solid ? std::optional<int>(ink.color) : std::nullopt;
  if (symbol.circle) canvas.Circle(at, 0.5 * scale, fill, pen);
  if (!symbol.outline.empty()) {
    std::vector<PixelPoint> corners;
    for (const SymbolPoint& p : symbol.outline) corners.push_back(place(p));
    canvas.Area(corners, fill, pen);
  }
  for (std::size_t i = 0; i + 1 < symbol.strokes.size(); i += 2) {
    const PixelPoint ends[] = {place(symbol.strokes[i]), place(symbol.strokes[i + 1])};
    canvas.Line(ends, pen);
  }
  if (symbol.fill == SymbolFill::Dotted) canvas.Circle(at, 0.5 * kSymbolDot * size, ink.color, std::nullopt);
}

bool HasLine(const PlotLook& look) {
  return look.style != PlotStyle::Scatter;
}

class Painter {
 public:
  Painter(const GraphModel& graph, Canvas& canvas, const PixelArea& box, const GraphStyle& style)
      : graph_(graph), canvas_(canvas), box_(box), style_(style), limits_(LimitsInForce(graph)) {
    plain_.size = style.text;
    plain_.color = kInk;
    name_ = plain_;
    name_.size = kNameScale * style.text;
  }

  PixelArea Draw() {
    PlanMargins();
    if (Width(frame_) < 20.0 || Height(frame_) < 20.0) return frame_;
    x_ = {limits_.x.min, limits_.x.max, graph_.xAxis.logarithmic, frame_.left, frame_.right};
    y_ = {limits_.y.min, limits_.y.max, graph_.yAxis.logarithmic, frame_.bottom, frame_.top};
    if (graph_.xAxis.reversed) std::swap(x_.from, x_.to);
    if (graph_.yAxis.reversed) std::swap(y_.from, y_.to);
    if (graph_.intensity) DrawMap();
    DrawMasks();
    DrawGrid();
    DrawHatchings();
    DrawBands();
    canvas_.Clip({frame_.left - 1, frame_.top - 1, frame_.right + 1, frame_.bottom + 1});
    for (const PlotModel& plot : graph_.plots)
      if (plot.visible) DrawCurveLines(plot);
    canvas_.Unclip();
    DrawFrame();
    for (const PlotModel& plot : graph_.plots)
      if (plot.visible) DrawMarkers(plot);
    DrawNotes();
    DrawNumbersOnTop();
    DrawNames();
    DrawLegend();
    if (graph_.intensity) DrawBar();
    return frame_;
  }

 private:
  // ---- margins
  // ----------------------------------------------------------------------------------------------------

  double WidestNumber(const AxisTicks& ticks) {
    double widest = 0.0;
    for (const Tick& tick : ticks.numbers) widest = std::max(widest, canvas_.TextWidth(tick.text, plain_));
    return widest;
  }

  /// Number of numbers that fit side by side on the x axis.
  AxisTicks TicksAcross(double width) {
    for (int most = std::clamp(static_cast<int>(width / (3.0 * style_.text)), 2, 13);; --most) {
      AxisTicks ticks = TicksOf(graph_.xAxis, limits_.x, most);
      const double room = width / static_cast<double>(std::max<std::size_t>(ticks.numbers.size(), 1));
      if (most <= 2 || WidestNumber(ticks) + style_.text <= room) return ticks;
    }
  }

  void PlanMargins() {
    frame_ = box_;
    for (const PlotModel& plot : graph_.plots)
      if (style_.legend && plot.visible && plot.inLegend && !plot.legend.empty()) rows_.push_back(&plot);
    if (!graph_.title.empty()) frame_.top += kTitleScale * 1.5 * style_.text;
    frame_.top += HasNumbersOnTop() ? 1.2 * style_.text : 0.6 * style_.text;
    if (!graph_.note.empty()) frame_.bottom -= 1.6 * style_.text;
    if (style_.numbersX)
      frame_.bottom -=
          kTick + kGap + style_.text + (AxisTitle(graph_.xAxis).empty() ? 0.0 : 1.5 * name_.size);
    frame_.right -= MarginBeside();
    ticksY_ = TicksOf(graph_.yAxis, limits_.y,
                      std::clamp(static_cast<int>(Height(frame_) / (2.0 * style_.text)), 2, 13));
    double left = WidestNumber(ticksY_) + kTick + kGap;
    if (!AxisTitle(graph_.yAxis).empty()) left += 1.5 * name_.size;
    frame_.left += std::max(left, style_.leftRoom);
    ticksX_ = TicksAcross(Width(frame_));
    // Half of the last number lies beyond the frame; without numbers the margin stays, so that graphs are
    // aligned.
    if (!ticksX_.numbers.empty() && rows_.empty() && !graph_.intensity)
      frame_.right -= 0.5 * canvas_.TextWidth(ticksX_.numbers.back().text, plain_);
    frame_.right = std::min(frame_.right, box_.right - style_.rightRoom);
  }

  double MarginBeside() {
    double room = 2.0;
    if (graph_.intensity) {
      double low = 0.0, high = 0.0;
      if (!BarRange(low, high)) return room;
      AxisModel axis;
      barTicks_ = TicksOf(axis, {low, high, true}, 6);
      room += kGap + kBarWidth + kTick + kGap + WidestNumber(barTicks_) +
              (BarTitle().empty() ? 0.0 : 1.6 * name_.size);
      return room;
    }
    if (rows_.empty()) return room;
    double widest = 0.0;
    for (const PlotModel* plot : rows_) widest = std::max(widest, canvas_.TextWidth(plot->legend, plain_));
    legendText_ = std::min(widest, kMostOfWidth * Width(box_) - kLegendLine - 3 * kGap);
    return room + kLegendLine + 3 * kGap + legendText_;
  }

  // ---- axes -------------------------------------------------------------------------------------------------------

  bool Inside(double pixel, double from, double to) const {
    return pixel >= std::min(from, to) - 0.01 && pixel <= std::max(from, to) + 0.01;
  }

  void DrawGrid() {
    if (graph_.intensity) return;  // an image covers it
    std::vector<PixelPoint> ends;
    for (const Tick& tick : ticksX_.numbers)
      if (const double at = x_.PixelOf(tick.at); Inside(at, x_.from, x_.to))
        ends.insert(ends.end(), {{at, frame_.top}, {at, frame_.bottom}});
    for (const Tick& tick : ticksY_.numbers)
      if (const double at = y_.PixelOf(tick.at); Inside(at, y_.from, y_.to))
        ends.insert(ends.end(), {{frame_.left, at}, {frame_.right, at}});
    canvas_.Segments(ends, {kGrid, 0.4, LineDash::Solid});
  }

  void DrawFrame() {
    const PixelPoint corners[] = {{frame_.left, frame_.top},
                                  {frame_.right, frame_.top},
                                  {frame_.right, frame_.bottom},
                                  {frame_.left, frame_.bottom}};
    canvas_.Area(corners, std::nullopt, Pen{kFrame, 0.7, LineDash::Solid});
    std::vector<PixelPoint> ends;
    const auto across = [&](double value, double length) {
      const double at = x_.PixelOf(value);
      if (Inside(at, x_.from, x_.to))
        ends.insert(ends.end(), {{at, frame_.bottom}, {at, frame_.bottom + length}});
    };
    const auto down = [&](double value, double length) {
      const double at = y_.PixelOf(value);
      if (Inside(at, y_.from, y_.to))
        ends.insert(ends.end(), {{frame_.left - length, at}, {frame_.left, at}});
    };
    for (const double at : ticksX_.between) across(at, kSmallTick);
    for (const double at : ticksY_.between) down(at, kSmallTick);
    for (const Tick& tick : ticksX_.numbers) {
      across(tick.at, kTick);
      const double at = x_.PixelOf(tick.at);
      TextLook look = plain_;
      look.align = TextAlign::Center;
      if (style_.numbersX && Inside(at, x_.from, x_.to))
        canvas_.Text({at, frame_.bottom + kTick + 1.0 + style_.text}, tick.text, look);
    }
    for (const Tick& tick : ticksY_.numbers) {
      down(tick.at, kTick);
      const double at = y_.PixelOf(tick.at);
      TextLook look = plain_;
      look.align = TextAlign::Right;
      if (Inside(at, y_.from, y_.to))
        canvas_.Text({frame_.left - kTick - 2.0, at + 0.36 * style_.text}, tick.text, look);
    }
    canvas_.Segments(ends, {kFrame, 0.6, LineDash::Solid});
  }

  void DrawNames() {
    TextLook look = name_;
    look.align = TextAlign::Center;
    if (style_.numbersX)
      canvas_.Text(
          {0.5 * (frame_.left + frame_.right), frame_.bottom + kTick + kGap + style_.text + 1.2 * name_.size},
          Fitted(canvas_, AxisTitle(graph_.xAxis), look, Width(box_)), look);
    if (!graph_.note.empty()) {
      TextLook note = plain_;
      canvas_.Text({frame_.left, box_.bottom - 0.3 * style_.text},
                   Fitted(canvas_, graph_.note, note, box_.right - frame_.left), note);
    }
    look.upward = true;
    const double x = frame_.left - kTick - kGap - WidestNumber(ticksY_) - 0.4 * name_.size;
    canvas_.Text({x, 0.5 * (frame_.top + frame_.bottom)},
                 Fitted(canvas_, AxisTitle(graph_.yAxis), look, Height(box_)), look);
    if (graph_.title.empty()) return;
    TextLook title = name_;
    title.size = kTitleScale * style_.text;
    title.bold = true;
    canvas_.Text({frame_.left, box_.top + title.size},
                 Fitted(canvas_, graph_.title, title, box_.right - frame_.left), title);
  }

  // ---- contents ---------------------------------------------------------------------------------------------------

  /// Areas between two curves, above the grid and below all curves.
  void DrawBands() {
    canvas_.Clip(frame_);
    for (const PlotModel& plot : graph_.plots) {
      for (const PlotModel& other : graph_.plots) {
        if (!plot.visible || plot.bandTo == 0 || other.handle != plot.bandTo || &other == &plot) continue;
        canvas_.Area(BandOutline(plot, other, x_, y_, frame_),
                     MixColors(InkFor(plot.color, kPaper).color, kPaper, kBandShare), std::nullopt);
      }
    }
    canvas_.Unclip();
  }

  void DrawHatchings() {
    const Pen pen = {kHatch, 0.4, LineDash::Solid};
    for (const HatchModel& hatching : graph_.hatchings) {
      std::vector<PixelPoint> ends;
      for (const PixelLine& line : HatchLines(hatching, y_, frame_))
        if (line.size() == 2) ends.insert(ends.end(), line.begin(), line.end());
      canvas_.Segments(ends, pen);
      const PixelArea part = HatchedPart(hatching, y_, frame_);
      const double width = canvas_.TextWidth(hatching.label, plain_) + 2 * kGap;
      if (hatching.label.empty() || width > Width(part) || Height(part) < 1.8 * style_.text) continue;
      const PixelPoint corners[] = {{part.left, part.bottom - 1.5 * style_.text},
                                    {part.left + width, part.bottom - 1.5 * style_.text},
                                    {part.left + width, part.bottom},
                                    {part.left, part.bottom}};
      canvas_.Area(corners, kPaper, std::nullopt);
      canvas_.Text({part.left + kGap, part.bottom - 0.4 * style_.text}, hatching.label, plain_);
    }
  }

  void DrawNotes() {
    const auto width = [this](const std::string& text) { return canvas_.TextWidth(text, plain_); };
    for (const PlacedNote& note : PlaceNotes(graph_, x_, y_, frame_, width, 1.25 * style_.text, kGap))
      canvas_.Text({note.at.x, note.at.y + 0.36 * style_.text}, *note.text, plain_);
  }

  void DrawCurveLines(const PlotModel& plot) {
    if (!HasLine(plot)) return;
    const Ink ink = InkFor(plot.color, kPaper);
    const double width = LineWidth(plot);
    const std::vector<PixelLine> lines = LinesOf(plot, x_, y_, frame_, width + kEdge);
    if (ink.edged)
      for (const PixelLine& line : lines) canvas_.Line(line, {ink.edge, width + 2 * kEdge, LineDash::Solid});
    for (const PixelLine& line : lines) canvas_.Line(line, {ink.color, width, plot.dash});
  }

  /// Markers on the frame are drawn completely.
  void DrawMarkers(const PlotModel& plot) {
    if (SymbolNumber(plot) == kNoMarker) return;
    for (const PixelPoint& p : PointsOf(plot, x_, y_, frame_))
      DrawSymbolAt(canvas_, p, SymbolNumber(plot), plot.color, style_.marker);
  }

  double LineWidth(const PlotLook& look) const { return style_.line * std::clamp(look.width, 0.3, 20.0); }

  PixelArea AreaOf(const RectangleModel& mask) const {
    const auto held = [](const PixelAxis& axis, double value) {
      const double pixel = axis.PixelOf(value);
      return std::isnan(pixel)
                 ? axis.from
                 : std::clamp(pixel, std::min(axis.from, axis.to), std::max(axis.from, axis.to));
    };
    const double x1 = held(x_, mask.x1), x2 = held(x_, mask.x2), y1 = held(y_, mask.y1),
                 y2 = held(y_, mask.y2);
    return {std::min(x1, x2), std::min(y1, y2), std::max(x1, x2), std::max(y1, y2)};
  }

  bool HasNumbersOnTop() const {
    return !graph_.topLabels.empty() ||
           std::any_of(graph_.rectangles.begin(), graph_.rectangles.end(),
                       [](const RectangleModel& mask) { return !mask.label.empty(); });
  }

  void DrawMasks() {
    for (const RectangleModel& mask : graph_.rectangles) {
      const PixelArea a = AreaOf(mask);
      if (!(Width(a) > 0.0) || !(Height(a) > 0.0)) continue;
      const PixelPoint corners[] = {
          {a.left, a.top}, {a.right, a.top}, {a.right, a.bottom}, {a.left, a.bottom}};
      const std::optional<Pen> edge =
          mask.selected ? std::optional<Pen>({kInk, 1.2, LineDash::Solid}) : std::nullopt;
      canvas_.Area(corners, MixColors(mask.fillColor & 0xFFFFFF, kPaper, kMaskShare), edge);
    }
  }

  /// Above the frame; a number or name that would overlap its neighbour is left out.
  void DrawNumbersOnTop() {
    TextLook look = plain_;
    look.align = TextAlign::Center;
    double free = frame_.left - 1e3;
    std::vector<std::pair<double, std::string>> numbers;
    for (const RectangleModel& mask : graph_.rectangles) {
      const PixelArea a = AreaOf(mask);
      if (!mask.label.empty() && Width(a) > 0.0) numbers.emplace_back(0.5 * (a.left + a.right), mask.label);
    }
    for (const TopLabel& label : graph_.topLabels)
      if (const double at = x_.PixelOf(label.x); Inside(at, x_.from, x_.to))
        numbers.emplace_back(at, label.text);
    std::sort(numbers.begin(), numbers.end());
    for (const auto& [at, text] : numbers) {
      const double half = 0.5 * canvas_.TextWidth(text, look);
      if (at - half < free) continue;
      canvas_.Text({at, frame_.top - 2.0}, text, look);
      free = at + half + 1.5;
    }
  }

  void DrawMap() {
    constexpr double kPixelsPerPoint = 2.0;
    const auto scaled = [&](PixelAxis axis) {
      axis.from *= kPixelsPerPoint;
      axis.to *= kPixelsPerPoint;
      return axis;
    };
    const PixelArea area = {frame_.left * kPixelsPerPoint, frame_.top * kPixelsPerPoint,
                            frame_.right * kPixelsPerPoint, frame_.bottom * kPixelsPerPoint};
    const MapPixels pixels = PixelsOf(*graph_.intensity, scaled(x_), scaled(y_), area);
    if (!pixels.pixels.empty()) canvas_.Image(frame_, pixels);
  }

  bool BarRange(double& low, double& high) const {
    low = INFINITY;
    high = -INFINITY;
    for (const ColorLevel& level : graph_.intensity->colorMap) {
      if (!std::isfinite(level.level)) continue;
      low = std::min(low, level.level);
      high = std::max(high, level.level);
    }
    return low < high;
  }

  std::string BarTitle() const {
    AxisModel axis;
    axis.label = graph_.intensity->label;
    axis.unit = graph_.intensity->unit;
    return AxisTitle(axis);
  }

  /// Scale of the image's colours.
  void DrawBar() {
    double low = 0.0, high = 0.0;
    if (!BarRange(low, high)) return;
    constexpr int kRows = 256;
    const PixelArea bar = {frame_.right + 2 * kGap, frame_.top, frame_.right + 2 * kGap + kBarWidth,
                           frame_.bottom};
    MapPixels image{1, kRows, {}};
    for (int row = 0; row < kRows; ++row)
      image.pixels.push_back(0xFF000000u |
                             static_cast<std::uint32_t>(MapColor(
                                 graph_.intensity->colorMap, high + (low - high) * row / (kRows - 1), 0)));
    canvas_.Image(bar, image);
    const PixelPoint corners[] = {
        {bar.left, bar.top}, {bar.right, bar.top}, {bar.right, bar.bottom}, {bar.left, bar.bottom}};
    canvas_.Area(corners, std::nullopt, Pen{kFrame, 0.5, LineDash::Solid});
    std::vector<PixelPoint> ends;
    for (const Tick& tick : barTicks_.numbers) {
      const double at = bar.bottom - (tick.at - low) / (high - low) * Height(bar);
      ends.insert(ends.end(), {{bar.right, at}, {bar.right + kSmallTick, at}});
      canvas_.Text({bar.right + kTick + 1.0, at + 0.36 * style_.text}, tick.text, plain_);
    }
    canvas_.Segments(ends, {kFrame, 0.5, LineDash::Solid});
    TextLook look = name_;
    look.align = TextAlign::Center;
    look.upward = true;
    canvas_.Text({box_.right - 2.0, 0.5 * (bar.top + bar.bottom)},
                 Fitted(canvas_, BarTitle(), look, Height(box_)), look);
  }

  void DrawLegend() {
    if (graph_.intensity) return;  // the scale of its colours is there
    const double step = 1.35 * style_.text, left = frame_.right + 2 * kGap;
    const auto most = static_cast<std::size_t>(std::max(Height(frame_) / step, 1.0));
    for (std::size_t i = 0; i < std::min(rows_.size(), most); ++i) {
      const double y = frame_.top + (static_cast<double>(i) + 0.6) * step;
      const double baseline = y + 0.36 * style_.text;
      if (i + 1 == most && rows_.size() > most) {
        canvas_.Text({left, baseline}, "… and " + std::to_string(rows_.size() - i) + " more", plain_);
        break;
      }
      const PlotModel& plot = *rows_[i];
      const Ink ink = InkFor(plot.color, kPaper);
      const PixelPoint ends[] = {{left, y}, {left + kLegendLine, y}};
      const double width = style_.line * std::clamp(plot.width, 0.3, 4.0);
      if (HasLine(plot) && ink.edged) canvas_.Line(ends, {ink.edge, width + 2 * kEdge, LineDash::Solid});
      if (HasLine(plot)) canvas_.Line(ends, {ink.color, width, plot.dash});
      if (SymbolNumber(plot) != kNoMarker)
        DrawSymbolAt(canvas_, {left + 0.5 * kLegendLine, y}, SymbolNumber(plot), plot.color, style_.marker);
      canvas_.Text({left + kLegendLine + kGap, baseline},
                   Fitted(canvas_, plot.legend, plain_, legendText_ + 0.5), plain_);
    }
  }

  const GraphModel& graph_;
  Canvas& canvas_;
  PixelArea box_;
  GraphStyle style_;
  GraphLimits limits_;
  TextLook plain_, name_;
  PixelArea frame_;
  PixelAxis x_, y_;
  AxisTicks ticksX_, ticksY_, barTicks_;
  std::vector<const PlotModel*> rows_;  // of the legend
  double legendText_ = 0.0;
};

}  // namespace

PixelArea DrawGraph(const GraphModel& graph, Canvas& canvas, const PixelArea& box, const GraphStyle& style) {
  return Painter(graph, canvas, box, style).Draw();
}

}  // namespace sondera
