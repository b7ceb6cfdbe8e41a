// canvas_svg.cpp - a figure as SVG 1.1, see canvas.h. Texts stay texts, so that a browser can search and an
// editor can change them.
#include <algorithm>
#include <cmath>

#include "figure/canvas.h"
#include "figure/png_bytes.h"
#include "figure/symbols.h"
#include "runtime/atomic_writer.h"
#include "runtime/text_format.h"
#include "runtime/utf8.h"

namespace sondera {
namespace {

std::string XmlText(std::string_view text) {
  std::string safe;
  for (const char c : ValidText(text)) {
    switch (c) {
      case '&':
        safe += "&amp;";
        break;
      case '<':
        safe += "&lt;";
        break;
      case '>':
        safe += "&gt;";
        break;
      case '"':
        safe += "&quot;";
        break;
      default:
        safe += c;
    }
  }
  return safe;
}

/// In hundredths of a point, without needless zeros.
std::string Number(double value) {
  std::string text = FormatText("%.2f", std::isfinite(value) ? value : 0.0);
  while (text.back() == '0') text.pop_back();
  if (text.back() == '.') text.pop_back();
  return text == "-0" ? "0" : text;
}

std::string ColorText(int color) {
  return FormatText("#%06x", static_cast<unsigned>(color) & 0xFFFFFFu);
}

/// Width of a letter as a fraction of the size in common sans-serif fonts, the wider ones of them.
double LetterWidth(std::uint32_t letter) {
  if (letter >= 0x1100) return letter >= 0x2000 && letter < 0x2E80 ? 0.65 : 1.0;
  if (letter > 0x7F) return 0.65;
  const char c = static_cast<char>(letter);
  if (std::string_view("ijlI'|.,:;! ").find(c) != std::string_view::npos) return 0.32;
  if (std::string_view("frt()[]{}\"/\\-").find(c) != std::string_view::npos) return 0.42;
  if (std::string_view("mwMW%@").find(c) != std::string_view::npos) return 0.97;
  if (std::string_view("+<=>~_^#").find(c) != std::string_view::npos) return 0.84;
  return c >= 'A' && c <= 'Z' ? 0.72 : 0.63;
}

class SvgCanvas final : public FileCanvas {
 public:
  SvgCanvas(const std::string& path, double width, double height, const DocumentFacts& facts) : file_(path) {
    file_.Put("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
    file_.Put(
        "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" width=\"" +
        Number(width) + "pt\" height=\"" + Number(height) + "pt\" viewBox=\"0 0 " + Number(width) + " " +
        Number(height) + "\" font-family=\"'DejaVu Sans', Verdana, sans-serif\">\n");
    if (!facts.title.empty()) file_.Put("<title>" + XmlText(facts.title) + "</title>\n");
    file_.Put("<rect width=\"" + Number(width) + "\" height=\"" + Number(height) + "\" fill=\"#ffffff\"/>\n");
  }

  void Line(std::span<const PixelPoint> points, const Pen& pen) override {
    if (points.size() < 2) return;
    file_.Put("<polyline fill=\"none\"");
    PutEdge(pen);
    PutPoints(points);
    file_.Put("/>\n");
  }

  void Segments(std::span<const PixelPoint> ends, const Pen& pen) override {
    if (ends.size() < 2) return;
    file_.Put("<path fill=\"none\"");
    PutEdge(pen);
    file_.Put(" d=\"");
    for (std::size_t i = 0; i < ends.size(); ++i)
      file_.Put((i % 2 == 0 ? "M" : "L") + Number(ends[i].x) + " " + Number(ends[i].y));
    file_.Put("\"/>\n");
  }

  void Area(std::span<const PixelPoint> corners, std::optional<int> fill,
            const std::optional<Pen>& edge) override {
    if (corners.size() < 2) return;
    file_.Put("<polygon");
    PutFill(fill, edge);
    PutPoints(corners);
    file_.Put("/>\n");
  }

  void Circle(PixelPoint center, double radius, std::optional<int> fill,
              const std::optional<Pen>& edge) override {
    file_.Put("<circle cx=\"" + Number(center.x) + "\" cy=\"" + Number(center.y) + "\" r=\"" +
              Number(radius) + "\"");
    PutFill(fill, edge);
    file_.Put("/>\n");
  }

  void Image(const PixelArea& area, const MapPixels& image) override {
    const std::string bytes = PngBytes(image);
    if (bytes.empty()) return;
    file_.Put("<image x=\"" + Number(area.left) + "\" y=\"" + Number(area.top) + "\" width=\"" +
              Number(area.right - area.left) + "\" height=\"" + Number(area.bottom - area.top) +
              "\" preserveAspectRatio=\"none\" xlink:href=\"data:image/png;base64," + Base64(bytes) +
              "\"/>\n");
  }

  void Text(PixelPoint at, std::string_view text, const TextLook& look) override {
    if (text.empty()) return;
    static constexpr const char* kAnchors[] = {"start", "middle", "end"};
    file_.Put("<text");
    if (look.upward)
      file_.Put(" transform=\"translate(" + Number(at.x) + " " + Number(at.y) + ") rotate(-90)\"");
    else
      file_.Put(" x=\"" + Number(at.x) + "\" y=\"" + Number(at.y) + "\"");
    file_.Put(" font-size=\"" + Number(look.size) + "\" fill=\"" + ColorText(look.color) + "\"");
    if (look.align != TextAlign::Left)
      file_.Put(std::string(" text-anchor=\"") + kAnchors[static_cast<int>(look.align)] + "\"");
    if (look.bold) file_.Put(" font-weight=\"bold\"");
    file_.Put(" xml:space=\"preserve\">" + XmlText(text) + "</text>\n");
  }

  double TextWidth(std::string_view text, const TextLook& look) override {
    double width = 0.0;
    while (!text.empty()) width += LetterWidth(NextLetter(text));
    return width * look.size * (look.bold ? 1.1 : 1.0);
  }

  void Clip(const PixelArea& area) override {
    ++clips_;
    const std::string name = "area" + std::to_string(clips_);
    file_.Put("<clipPath id=\"" + name + "\"><rect x=\"" + Number(area.left) + "\" y=\"" + Number(area.top) +
              "\" width=\"" + Number(area.right - area.left) + "\" height=\"" +
              Number(area.bottom - area.top) + "\"/></clipPath>\n<g clip-path=\"url(#" + name + ")\">\n");
  }
  void Unclip() override { file_.Put("</g>\n"); }

  void NewPage() override {}
  void NamePage(std::string_view) override {}

  Refusal Finish() override {
    file_.Put("</svg>\n");
    if (file_.Close()) return {};
    return file_.Reason() + ".";
  }

 private:
  void PutEdge(const Pen& pen) {
    file_.Put(" stroke=\"" + ColorText(pen.color) + "\" stroke-width=\"" + Number(pen.width) + "\"");
    const auto dashes = DashLengths(pen.dash);
    if (dashes.empty()) return;
    std::string lengths;
    for (const double length : dashes) lengths += (lengths.empty() ? "" : " ") + Number(kDashScale * length);
    file_.Put(" stroke-dasharray=\"" + lengths + "\"");
  }

  void PutFill(std::optional<int> fill, const std::optional<Pen>& edge) {
    file_.Put(" fill=\"" + (fill ? ColorText(*fill) : std::string("none")) + "\"");
    if (edge) PutEdge(*edge);
  }

  void PutPoints(std::span<const PixelPoint> points) {
    file_.Put(" points=\"");
    for (std::size_t i = 0; i < points.size(); ++i)
      file_.Put((i == 0 ? "" : i % 12 == 0 ? "\n" : " ") + Number(points[i].x) + "," + Number(points[i].y));
    file_.Put("\"");
  }

  TextWriter file_;
  int clips_ = 0;
};

}  // namespace

std::unique_ptr<FileCanvas> MakeSvgCanvas(const std::string& path, double width, double height,
                                          const DocumentFacts& facts) {
  return std::make_unique<SvgCanvas>(path, width, height, facts);
}

}  // namespace sondera
