// figure_file.h - graphs as picture files: PDF, SVG or PNG, by the extension of the name. No state.
#pragma once

#include <span>
#include <string>

#include "runtime/graphs.h"
#include "runtime/refusal.h"

namespace sondera {

/// Pixels of a PNG. PDF and SVG take 3/4 of them as points, so that all three have one size on paper at 96 pixels an
/// inch.
struct FigureSize {
  int width = 960, height = 640;
};
inline constexpr int kLeastPixels = 100, kMostPixels = 10000;

/// "" for a name that ends with .pdf, .svg or .png (in either case) and a kind that this program can write, else what is
/// wrong, as a sentence.
std::string FigureNameFault(const std::string& path);

/// How several graphs share a picture.
enum class FigureLayout { Stacked, SideBySide };

/// Writes a graph as a picture. The file is put in place whole; after a refusal a former file is as it was.
Refusal WriteFigure(const GraphModel& graph, const std::string& path, FigureSize size = {});

/// The same of several graphs in one picture, each with as much room.
Refusal WriteFigures(std::span<const GraphModel* const> graphs, const std::string& path,
                     FigureLayout layout = FigureLayout::Stacked, FigureSize size = {});

}  // namespace sondera
