// graph_lines.cpp - see graph_lines.h.
#include "figure/graph_lines.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "figure/palette.h"

namespace sondera {
namespace {

constexpr double kFarPixel = 1e7;               // coordinates are clamped to this
constexpr std::size_t kMostLinePoints = 40000;  // of one curve; with more, points are grouped a second time
constexpr double kPointCell = 2.0;              // pixels
constexpr int kColors = 256;                    // of a map

double Near(double pixel) {
  return std::clamp(pixel, -kFarPixel, kFarPixel);
}

bool IsPoint(const PixelPoint& p) {
  return std::isfinite(p.x) && std::isfinite(p.y);
}

PixelPoint PixelOf(const PlotModel& plot, std::size_t i, const PixelAxis& x, const PixelAxis& y) {
  const double px = x.PixelOf(plot.x[i]), py = y.PixelOf(plot.y[i]);
  return {std::isfinite(plot.x[i]) && !std::isnan(px) ? Near(px) : NAN,
          std::isfinite(plot.y[i]) && !std::isnan(py) ? Near(py) : NAN};
}

std::size_t PointCount(const PlotModel& plot) {
  return std::min(plot.x.size(), plot.y.size());
}

/// Keeps the points that represent a group of neighbours, in their order.
class Group {
 public:
  void Add(const PixelPoint& p) {
    if (count_ == 0) kept_.fill({p, 0});
    if (p.x < kept_[1].point.x) kept_[1] = {p, count_};
    if (p.x > kept_[2].point.x) kept_[2] = {p, count_};
    if (p.y < kept_[3].point.y) kept_[3] = {p, count_};
    if (p.y > kept_[4].point.y) kept_[4] = {p, count_};
    kept_[5] = {p, count_};
    ++count_;
  }
  bool empty() const { return count_ == 0; }
  const PixelPoint& first() const { return kept_[0].point; }
  void MoveTo(PixelLine& line) {
    if (count_ == 0) return;
    std::array<Kept, 6> ordered = kept_;
    std::sort(ordered.begin(), ordered.end(), [](const Kept& a, const Kept& b) { return a.order < b.order; });
    std::size_t last = ordered[0].order + 1;
    for (const Kept& kept : ordered) {
      if (kept.order != last) line.push_back(kept.point);
      last = kept.order;
    }
    count_ = 0;
  }

 private:
  struct Kept {
    PixelPoint point;
    std::size_t order = 0;
  };
  std::array<Kept, 6> kept_;  // first, left, right, top, bottom, last
  std::size_t count_ = 0;
};

/// Groups runs of points in one column of pixels.
PixelLine ByColumns(const PixelLine& line) {
  PixelLine thin;
  Group group;
  for (const PixelPoint& p : line) {
    if (!group.empty() && std::floor(p.x) != std::floor(group.first().x)) group.MoveTo(thin);
    group.Add(p);
  }
  group.MoveTo(thin);
  return thin;
}

/// Groups a fixed number of points, for curves that run back and forth.
PixelLine ByNumber(const PixelLine& line) {
  const std::size_t each = 6 * (line.size() / kMostLinePoints + 1);
  PixelLine thin;
  Group group;
  for (std::size_t i = 0; i < line.size(); ++i) {
    group.Add(line[i]);
    if ((i + 1) % each == 0) group.MoveTo(thin);
  }
  group.MoveTo(thin);
  return thin;
}

/// The part of a segment within an area (Liang and Barsky). False: none.
bool Cut(const PixelArea& area, PixelPoint& a, PixelPoint& b) {
  const double dx = b.x - a.x, dy = b.y - a.y;
  double from = 0.0, to = 1.0;
  const auto keep = [&](double step, double distance) {
    if (step == 0.0) return distance >= 0.0;
    const double at = distance / step;
    (step < 0.0 ? from : to) = step < 0.0 ? std::max(from, at) : std::min(to, at);
    return from <= to;
  };
  if (!keep(-dx, a.x - area.left) || !keep(dx, area.right - a.x) || !keep(-dy, a.y - area.top) ||
      !keep(dy, area.bottom - a.y))
    return false;
  const PixelPoint start = a;
  if (to < 1.0) b = {start.x + to * dx, start.y + to * dy};
  if (from > 0.0) a = {start.x + from * dx, start.y + from * dy};
  return true;
}

void AddCut(const PixelLine& line, const PixelArea& area, std::vector<PixelLine>& lines) {
  bool open = false;
  for (std::size_t i = 1; i < line.size(); ++i) {
    PixelPoint a = line[i - 1], b = line[i];
    if (!Cut(area, a, b)) {
      open = false;
      continue;
    }
    if (!open) lines.push_back({a});
    lines.back().push_back(b);
    open = b.x == line[i].x && b.y == line[i].y;
  }
}

PixelArea Widened(const PixelArea& area, double margin) {
  return {area.left - margin, area.top - margin, area.right + margin, area.bottom + margin};
}

bool Contains(const PixelArea& area, const PixelPoint& p) {
  return p.x >= area.left && p.x <= area.right && p.y >= area.top && p.y <= area.bottom;
}

/// Position of a value between the points of a map: the point below, and the share of the one above.
struct MapPlace {
  int below = -1;  // -1: outside
  double share = 0.0;
  int nearest() const { return below + (share >= 0.5 ? 1 : 0); }
};

MapPlace PlaceIn(double value, double min, double max, int count) {
  const double at = (value - min) / (max - min) * (count - 1);
  const double half = count == 1 ? 0.0 : 1e-9;
  if (count == 1)
    return value >= std::min(min, max) && value <= std::max(min, max) ? MapPlace{0, 0.0} : MapPlace{};
  if (!(at >= -half) || !(at <= count - 1 + half)) return {};
  const int below = std::clamp(static_cast<int>(std::floor(at)), 0, count - 2);
  return {below, std::clamp(at - below, 0.0, 1.0)};
}

std::vector<MapPlace> PlacesIn(const PixelAxis& axis, double firstPixel, int pixels, double min, double max,
                               int count) {
  std::vector<MapPlace> places(static_cast<std::size_t>(pixels));
  for (int i = 0; i < pixels; ++i)
    places[static_cast<std::size_t>(i)] = PlaceIn(axis.ValueAt(firstPixel + i + 0.5), min, max, count);
  return places;
}

/// Colours of the levels at even steps, so that a pixel needs no search.
class ColorTable {
 public:
  explicit ColorTable(const std::vector<ColorLevel>& levels) {
    low_ = INFINITY;
    double high = -INFINITY;
    for (const ColorLevel& level : levels) {
      if (!std::isfinite(level.level)) continue;
      low_ = std::min(low_, level.level);
      high = std::max(high, level.level);
    }
    range_ = high - low_;
    for (int i = 0; i < kColors; ++i)
      colors_[static_cast<std::size_t>(i)] = MapColor(levels, low_ + range_ * i / (kColors - 1), 0);
  }
  std::uint32_t operator()(double value) const {
    const double at = range_ > 0.0 ? (value - low_) / range_ * (kColors - 1) : 0.0;
    const double held = std::clamp(at, 0.0, kColors - 1.0);
    return 0xFF000000u |
           static_cast<std::uint32_t>(colors_[static_cast<std::size_t>(std::floor(held + 0.5))]);
  }

 private:
  double low_ = 0.0, range_ = 0.0;
  std::array<int, kColors> colors_{};
};

/// Value of a map at a place; NaN outside.
double MapValue(const IntensityModel& map, const MapPlace& column, const MapPlace& row) {
  const auto z = [&](int c, int r) {
    return map
        .z[static_cast<std::size_t>(c) * static_cast<std::size_t>(map.rows) + static_cast<std::size_t>(r)];
  };
  const double nearest = z(column.nearest(), row.nearest());
  if (!map.interpolate || !std::isfinite(nearest)) return nearest;
  const int c2 = std::min(column.below + 1, map.columns - 1), r2 = std::min(row.below + 1, map.rows - 1);
  const double low = z(column.below, row.below) * (1.0 - column.share) + z(c2, row.below) * column.share;
  const double high = z(column.below, r2) * (1.0 - column.share) + z(c2, r2) * column.share;
  const double value = low * (1.0 - row.share) + high * row.share;
  return std::isfinite(value) ? value : nearest;  // beside a cell without a value
}

}  // namespace

double PixelAxis::PixelOf(double value) const {
  if (!logarithmic) return from + (to - from) * ((value - min) / (max - min));
  if (!(value > 0.0)) return NAN;
  return from + (to - from) * (std::log(value / min) / std::log(max / min));
}

double PixelAxis::ValueAt(double pixel) const {
  const double share = (pixel - from) / (to - from);
  return logarithmic ? min * std::pow(max / min, share) : min + share * (max - min);
}

std::vector<PixelLine> LinesOf(const PlotModel& plot, const PixelAxis& x, const PixelAxis& y,
                               const PixelArea& area, double margin) {
  std::vector<PixelLine> lines;
  PixelLine run;
  const PixelArea wide = Widened(area, margin);
  const auto end = [&] {
    PixelLine thin = run.size() > kAllPoints ? ByColumns(run) : std::move(run);
    if (thin.size() > kMostLinePoints) thin = ByNumber(thin);
    AddCut(thin, wide, lines);
    run.clear();
  };
  const std::size_t n = PointCount(plot);
  for (std::size_t i = 0; i < n; ++i) {
    const PixelPoint p = PixelOf(plot, i, x, y);
    if (!IsPoint(p)) {
      end();
      continue;
    }
    if (plot.style == PlotStyle::Steps && !run.empty()) run.push_back({p.x, run.back().y});
    run.push_back(p);
  }
  end();
  return lines;
}

std::vector<PixelPoint> PointsOf(const PlotModel& plot, const PixelAxis& x, const PixelAxis& y,
                                 const PixelArea& area) {
  const std::size_t n = PointCount(plot);
  const auto columns = static_cast<std::size_t>(std::max(0.0, (area.right - area.left) / kPointCell)) + 1;
  const auto rows = static_cast<std::size_t>(std::max(0.0, (area.bottom - area.top) / kPointCell)) + 1;
  std::vector<bool> taken(n > kAllPoints ? columns * rows : 0);
  std::vector<PixelPoint> points;
  for (std::size_t i = 0; i < n; ++i) {
    const PixelPoint p = PixelOf(plot, i, x, y);
    if (!IsPoint(p) || !Contains(Widened(area, 0.5), p)) continue;
    if (!taken.empty()) {
      const auto column = static_cast<std::size_t>(std::max(0.0, p.x - area.left) / kPointCell);
      const auto row = static_cast<std::size_t>(std::max(0.0, p.y - area.top) / kPointCell);
      const std::size_t cell = std::min(row, rows - 1) * columns + std::min(column, columns - 1);
      if (taken[cell]) continue;
      taken[cell] = true;
    }
    points.push_back(p);
  }
  return points;
}

PixelLine BandOutline(const PlotModel& plot, const PlotModel& other, const PixelAxis& x, const PixelAxis& y,
                      const PixelArea& area) {
  // Points far outside would overflow the painter; points just outside the area give the same picture.
  const double room = 10.0 * std::max(area.right - area.left, area.bottom - area.top);
  const auto along = [&](const PlotModel& curve) {
    PixelLine line;
    for (std::size_t i = 0; i < PointCount(curve); ++i) {
      const PixelPoint p = PixelOf(curve, i, x, y);
      if (!IsPoint(p)) continue;
      const PixelPoint held = {std::clamp(p.x, area.left - room, area.right + room),
                               std::clamp(p.y, area.top - room, area.bottom + room)};
      if (curve.style == PlotStyle::Steps && !line.empty()) line.push_back({held.x, line.back().y});
      line.push_back(held);
    }
    return line.size() > kMostLinePoints ? ByNumber(line) : line;
  };
  PixelLine outline = along(plot);
  const PixelLine back = along(other);
  if (outline.size() < 2 || back.size() < 2) return {};
  outline.insert(outline.end(), back.rbegin(), back.rend());
  return outline;
}

MapPixels PixelsOf(const IntensityModel& map, const PixelAxis& x, const PixelAxis& y, const PixelArea& area) {
  const auto cells =
      static_cast<std::size_t>(std::max(map.columns, 0)) * static_cast<std::size_t>(std::max(map.rows, 0));
  MapPixels image{static_cast<int>(std::ceil(area.right - area.left)),
                  static_cast<int>(std::ceil(area.bottom - area.top)),
                  {}};
  if (image.width < 1 || image.height < 1 || cells == 0 || map.z.size() < cells) return {};
  const std::vector<MapPlace> columns = PlacesIn(x, area.left, image.width, map.xMin, map.xMax, map.columns);
  const std::vector<MapPlace> rows = PlacesIn(y, area.top, image.height, map.yMin, map.yMax, map.rows);
  const ColorTable color(map.colorMap);
  image.pixels.reserve(static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height));
  for (const MapPlace& row : rows) {
    for (const MapPlace& column : columns) {
      const double value = column.below < 0 || row.below < 0 ? NAN : MapValue(map, column, row);
      image.pixels.push_back(std::isnan(value) ? 0u : color(value));
    }
  }
  return image;
}

}  // namespace sondera
