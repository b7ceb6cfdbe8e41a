// figure_file.cpp - see figure_file.h. SONDERA_HAS_FIGURES: the program is built with PDF and PNG.
#include "figure/figure_file.h"

#include <algorithm>
#include <memory>

#include "figure/canvas.h"
#include "figure/graph_painter.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr double kPointsPerPixel = 0.75, kMargin = 8.0;

std::string ExtensionOf(const std::string& path) {
  const std::size_t dot = path.rfind('.'), slash = path.rfind('/');
  if (dot == std::string::npos || (slash != std::string::npos && dot < slash)) return {};
  std::string extension = path.substr(dot);
  for (char& c : extension) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return extension;
}

std::unique_ptr<FileCanvas> MakeCanvas(const std::string& path, double width, double height,
                                       const DocumentFacts& facts) {
  const std::string extension = ExtensionOf(path);
  if (extension == ".pdf") return MakePdfCanvas(path, width, height, facts);
  if (extension == ".png") return MakePngCanvas(path, width, height, 1.0 / kPointsPerPixel);
  return MakeSvgCanvas(path, width, height, facts);
}

}  // namespace

#ifndef SONDERA_HAS_FIGURES
std::unique_ptr<FileCanvas> MakePdfCanvas(const std::string&, double, double, const DocumentFacts&) {
  return nullptr;
}
std::unique_ptr<FileCanvas> MakePngCanvas(const std::string&, double, double, double) {
  return nullptr;
}
bool HavePdfAndPng() {
  return false;
}
#endif

std::string FigureNameFault(const std::string& path) {
  const std::string extension = ExtensionOf(path);
  if (extension != ".pdf" && extension != ".svg" && extension != ".png")
    return "A figure is PDF, SVG or PNG; name a file that ends with .pdf, .svg or .png.";
  return extension != ".svg" && !HavePdfAndPng() ? kNoPdfAndPng : "";
}

Refusal WriteFigure(const GraphModel& graph, const std::string& path, FigureSize size) {
  const GraphModel* const one[] = {&graph};
  return WriteFigures(one, path, FigureLayout::Stacked, size);
}

Refusal WriteFigures(std::span<const GraphModel* const> graphs, const std::string& path, FigureLayout layout,
                     FigureSize size) {
  if (const std::string fault = FigureNameFault(path); !fault.empty()) return fault;
  for (const int pixels : {size.width, size.height})
    if (pixels < kLeastPixels || pixels > kMostPixels)
      return FormatText("A figure has %d to %d pixels each way.", kLeastPixels, kMostPixels);
  const double width = kPointsPerPixel * size.width, height = kPointsPerPixel * size.height;
  DocumentFacts facts;
  if (!graphs.empty()) facts.title = graphs.front()->title;
  const std::unique_ptr<FileCanvas> canvas = MakeCanvas(path, width, height, facts);
  const auto count = static_cast<double>(std::max<std::size_t>(graphs.size(), 1));
  for (std::size_t i = 0; i < graphs.size(); ++i) {
    const double from = static_cast<double>(i) / count, to = static_cast<double>(i + 1) / count;
    const PixelArea box =
        layout == FigureLayout::Stacked
            ? PixelArea{kMargin, from * height + kMargin, width - kMargin, to * height - kMargin}
            : PixelArea{from * width + kMargin, kMargin, to * width - kMargin, height - kMargin};
    DrawGraph(*graphs[i], *canvas, box);
  }
  return canvas->Finish();
}

}  // namespace sondera
