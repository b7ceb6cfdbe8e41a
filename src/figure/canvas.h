// canvas.h - the surface for figures and pages: lines, areas, images and texts, without a toolkit.
//
// Lengths are points (1/72 inch), x to the right and y downward from the upper left corner of the page.
// Colours are 0xRRGGBB. Texts are UTF-8; bytes that are not UTF-8 count as Latin-1.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "figure/graph_lines.h"
#include "runtime/graphs.h"
#include "runtime/refusal.h"

namespace sondera {

/// Points of a dash that is one pixel long on a screen.
inline constexpr double kDashScale = 0.5;

struct Pen {
  int color = 0;
  double width = 0.6;
  LineDash dash = LineDash::Solid;
};

enum class TextAlign { Left, Center, Right };

struct TextLook {
  double size = 8.0;  ///< of the font
  TextAlign align = TextAlign::Left;
  bool bold = false;
  bool upward = false;  ///< runs from below to above; Left is its lower end
  int color = 0;
};

class Canvas {
 public:
  virtual ~Canvas() = default;
  virtual void Line(std::span<const PixelPoint> points, const Pen& pen) = 0;
  /// Lines that are apart, in one stroke: ends has the two ends of the first, of the second, and so on.
  virtual void Segments(std::span<const PixelPoint> ends, const Pen& pen) = 0;
  /// Closed outline.
  virtual void Area(std::span<const PixelPoint> corners, std::optional<int> fill,
                    const std::optional<Pen>& edge) = 0;
  virtual void Circle(PixelPoint center, double radius, std::optional<int> fill,
                      const std::optional<Pen>& edge) = 0;
  /// Pixels 0xAARRGGBB, row after row from the top, each transparent or opaque.
  virtual void Image(const PixelArea& area, const MapPixels& image) = 0;
  /// at: beginning, middle or end of the baseline.
  virtual void Text(PixelPoint at, std::string_view text, const TextLook& look) = 0;
  virtual double TextWidth(std::string_view text, const TextLook& look) = 0;
  /// Marks outside the area are left out until Unclip. One area at a time.
  virtual void Clip(const PixelArea& area) = 0;
  virtual void Unclip() = 0;
};

/// A canvas for a file, which replaces the old one only when it is complete.
class FileCanvas : public Canvas {
 public:
  /// Begins a page; the first one exists from the start. Without effect where a file has one page.
  virtual void NewPage() = 0;
  /// Adds a line for the present page to the table of contents of the viewer.
  virtual void NamePage(std::string_view name) = 0;
  /// Replaces the old file by the new one. The reason where that fails; then the old file is unchanged.
  virtual Refusal Finish() = 0;
};

/// Metadata of a file.
struct DocumentFacts {
  std::string title, author;
};

/// SVG with texts as texts. Letters are measured with the widths of a common sans-serif font.
std::unique_ptr<FileCanvas> MakeSvgCanvas(const std::string& path, double width, double height,
                                          const DocumentFacts& facts);
/// PDF with its fonts in it, and PNG. Null where the program was built without them.
std::unique_ptr<FileCanvas> MakePdfCanvas(const std::string& path, double width, double height,
                                          const DocumentFacts& facts);
/// @param scale  pixels per point
std::unique_ptr<FileCanvas> MakePngCanvas(const std::string& path, double width, double height, double scale);
bool HavePdfAndPng();

/// Reason of a program that was built without PDF and PNG.
inline constexpr const char* kNoPdfAndPng =
    "This program was built without PDF and PNG; name a file that ends with .svg or .ps.";

/// Creation time in the file: now, or SOURCE_DATE_EPOCH where that is set. "2026-11-22T10:15:00Z"
std::string DocumentTime();

/// A text that is too wide, shortened with dots in its middle so that its beginning and end remain visible.
std::string Fitted(Canvas& canvas, std::string_view text, const TextLook& look, double width);

}  // namespace sondera
