// graph_notes.h - where the notes and the hatching of a graph lie, for windows and for figures. Pixels as in
// figure/graph_lines.h. No state.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "figure/graph_lines.h"
#include "runtime/graphs.h"

namespace sondera {

/// Pixels between two lines of a hatching, for a window at scale 1 and for paper alike.
inline constexpr double kHatchStep = 8.0;

/// Slanting lines over the part of the area that a hatching names, two ends each, cut at its edges. They lie on the same
/// slants wherever the part begins.
std::vector<PixelLine> HatchLines(const HatchModel& hatching, const PixelAxis& y, const PixelArea& area);
/// The part itself, within the area; top not above bottom where nothing of it is seen.
PixelArea HatchedPart(const HatchModel& hatching, const PixelAxis& y, const PixelArea& area);

/// A note with the middle of its left edge.
struct PlacedNote {
  PixelPoint at;
  const std::string* text = nullptr;
};
/// Notes from top to bottom. One that would reach over the right edge is moved to the left as far as needed; one whose
/// place is off the axes, or that would stand on the one above it, is left out.
/// @param width   of a text, pixels
/// @param height  of a line, pixels
/// @param gap     between place and text, pixels
std::vector<PlacedNote> PlaceNotes(const GraphModel& graph, const PixelAxis& x, const PixelAxis& y,
                                   const PixelArea& area,
                                   const std::function<double(const std::string&)>& width, double height,
                                   double gap);

}  // namespace sondera
