// graph_notes.cpp - see graph_notes.h.
#include "figure/graph_notes.h"

#include <algorithm>
#include <cmath>

namespace sondera {
namespace {

constexpr double kSlack = 0.5;  // pixels that a place may lie beside the axes by rounding

/// Pixel of an end of a hatching: beyond the axis it is the area's edge.
double Held(const PixelAxis& y, double value, const PixelArea& area) {
  const double pixel = y.PixelOf(value);
  return std::isnan(pixel) ? y.from : std::clamp(pixel, area.top, area.bottom);
}

}  // namespace

PixelArea HatchedPart(const HatchModel& hatching, const PixelAxis& y, const PixelArea& area) {
  const double a = Held(y, hatching.y1, area), b = Held(y, hatching.y2, area);
  return {area.left, std::min(a, b), area.right, std::max(a, b)};
}

std::vector<PixelLine> HatchLines(const HatchModel& hatching, const PixelAxis& y, const PixelArea& area) {
  std::vector<PixelLine> lines;
  const PixelArea part = HatchedPart(hatching, y, area);
  if (!(part.bottom - part.top > 0.0) || !(part.right - part.left > 0.0)) return lines;
  // Each line is x + y = sum.
  const double last = part.right + part.bottom;
  for (double sum = (std::floor((part.left + part.top) / kHatchStep) + 1.0) * kHatchStep; sum < last;
       sum += kHatchStep) {
    const double left = std::max(part.left, sum - part.bottom), right = std::min(part.right, sum - part.top);
    lines.push_back({{left, sum - left}, {right, sum - right}});
  }
  return lines;
}

std::vector<PlacedNote> PlaceNotes(const GraphModel& graph, const PixelAxis& x, const PixelAxis& y,
                                   const PixelArea& area,
                                   const std::function<double(const std::string&)>& width, double height,
                                   double gap) {
  std::vector<PlacedNote> placed;
  for (const NoteModel& note : graph.sideNotes) {
    const PixelPoint at = {x.PixelOf(note.x), y.PixelOf(note.y)};
    const bool there = at.x >= area.left - kSlack && at.x <= area.right + kSlack &&
                       at.y >= area.top + 0.5 * height && at.y <= area.bottom - 0.5 * height;
    if (!there) continue;  // nor where the place is no number
    const double most = area.right - gap - width(note.text);
    placed.push_back({{std::max(std::min(at.x + gap, most), area.left + gap), at.y}, &note.text});
  }
  std::stable_sort(placed.begin(), placed.end(),
                   [](const PlacedNote& a, const PlacedNote& b) { return a.at.y < b.at.y; });
  double free = area.top - height;
  std::erase_if(placed, [&](const PlacedNote& note) {
    if (note.at.y - 0.5 * height < free) return true;
    free = note.at.y + 0.5 * height;
    return false;
  });
  return placed;
}

}  // namespace sondera
