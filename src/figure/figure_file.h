// figure_file.h - graphs as picture files: PDF, SVG or PNG, by the extension of the name. No state.
#pragma once

#include <span>
#include <string>

#include "runtime/graphs.h"
#include "runtime/refusal.h"

namespace sondera {

/// Pixels of a PNG. For PDF and SVG 3/4 of them are the size in points, so that all three have the same size
/// on paper at 96 pixels an inch.
struct FigureSize {
  int width = 960, height = 640;
};
inline constexpr int kLeastPixels = 100, kMostPixels = 10000;

/// "" for a name that ends with .pdf, .svg or .png (in either case) and a kind that this program can write;
/// otherwise a sentence with the reason.
std::string FigureNameFault(const std::string& path);

/// Arrangement of several graphs in a picture.
enum class FigureLayout { Stacked, SideBySide };

/// Writes a graph as a picture. A new file replaces the old one only when it is complete.
Refusal WriteFigure(const GraphModel& graph, const std::string& path, FigureSize size = {});

/// The same for several graphs in one picture, each with the same area.
Refusal WriteFigures(std::span<const GraphModel* const> graphs, const std::string& path,
                     FigureLayout layout = FigureLayout::Stacked, FigureSize size = {});

}  // namespace sondera
