// canvas_cairo.cpp - PDF and PNG by cairo, texts by Pango. See canvas.h. Only in programs that are built with them.
#include <cairo-pdf.h>
#include <cairo.h>
#include <pango/pangocairo.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "figure/canvas.h"
#include "figure/symbols.h"
#include "runtime/atomic_writer.h"
#include "runtime/utf8.h"

namespace sondera {
namespace {

constexpr std::size_t kMostLayouts = 1000;
constexpr const char* kFont = "DejaVu Sans,Liberation Sans,Sans";

/// The writer remembers a failure, and Place() reports it. cairo does not get it: it cannot handle one within
/// a document.
cairo_status_t PutBytes(void* file, const unsigned char* bytes, unsigned int count) {
  static_cast<AtomicWriter*>(file)->Bytes(bytes, count);
  return CAIRO_STATUS_SUCCESS;
}

class CairoCanvas : public FileCanvas {
 public:
  ~CairoCanvas() override {
    for (const auto& font : fonts_) pango_font_description_free(font.second);
    layouts_.clear();
    if (context_) g_object_unref(context_);
    if (cairo_) cairo_destroy(cairo_);
    if (surface_) {
      cairo_surface_finish(surface_);
      cairo_surface_destroy(surface_);
    }
  }

  void Line(std::span<const PixelPoint> points, const Pen& pen) override {
    if (points.size() < 2) return;
    Path(points);
    Stroke(pen);
  }

  void Segments(std::span<const PixelPoint> ends, const Pen& pen) override {
    if (ends.size() < 2) return;
    cairo_new_path(cairo_);
    for (std::size_t i = 0; i + 1 < ends.size(); i += 2) {
      cairo_move_to(cairo_, ends[i].x, ends[i].y);
      cairo_line_to(cairo_, ends[i + 1].x, ends[i + 1].y);
    }
    Stroke(pen);
  }

  void Area(std::span<const PixelPoint> corners, std::optional<int> fill,
            const std::optional<Pen>& edge) override {
    if (corners.size() < 2) return;
    Path(corners);
    cairo_close_path(cairo_);
    Ink(fill, edge);
  }

  void Circle(PixelPoint center, double radius, std::optional<int> fill,
              const std::optional<Pen>& edge) override {
    cairo_new_path(cairo_);
    cairo_arc(cairo_, center.x, center.y, radius, 0.0, 2.0 * M_PI);
    Ink(fill, edge);
  }

  void Image(const PixelArea& area, const MapPixels& image) override {
    if (image.width < 1 || image.height < 1) return;
    cairo_surface_t* picture = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, image.width, image.height);
    if (cairo_surface_status(picture) == CAIRO_STATUS_SUCCESS) {
      const auto width = static_cast<std::size_t>(image.width);
      const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(picture));
      unsigned char* rows = cairo_image_surface_get_data(picture);
      for (std::size_t row = 0; row < static_cast<std::size_t>(image.height); ++row) {
        auto* out = reinterpret_cast<std::uint32_t*>(rows + row * stride);
        for (std::size_t column = 0; column < width; ++column) {
          const std::uint32_t pixel = image.pixels[row * width + column];
          out[column] = (pixel >> 24) == 0 ? 0 : pixel;
        }
      }
      cairo_surface_mark_dirty(picture);
      cairo_save(cairo_);
      cairo_translate(cairo_, area.left, area.top);
      cairo_scale(cairo_, (area.right - area.left) / image.width, (area.bottom - area.top) / image.height);
      cairo_set_source_surface(cairo_, picture, 0.0, 0.0);
      cairo_pattern_set_filter(cairo_get_source(cairo_), CAIRO_FILTER_NEAREST);
      cairo_paint(cairo_);
      cairo_restore(cairo_);
    }
    cairo_surface_destroy(picture);
  }

  void Text(PixelPoint at, std::string_view text, const TextLook& look) override {
    if (text.empty()) return;
    const Layout& layout = Lay(text, look);
    const double width = layout.width;
    const double back = look.align == TextAlign::Left     ? 0.0
                        : look.align == TextAlign::Center ? 0.5 * width
                                                          : width;
    cairo_save(cairo_);
    cairo_new_path(cairo_);
    cairo_translate(cairo_, at.x, at.y);
    if (look.upward) cairo_rotate(cairo_, -0.5 * M_PI);
    cairo_move_to(cairo_, -back, -layout.baseline);
    Color(look.color);
    pango_cairo_show_layout(cairo_, layout.set.get());
    cairo_restore(cairo_);
  }

  double TextWidth(std::string_view text, const TextLook& look) override {
    return text.empty() ? 0.0 : Lay(text, look).width;
  }

  void Clip(const PixelArea& area) override {
    cairo_save(cairo_);
    cairo_rectangle(cairo_, area.left, area.top, area.right - area.left, area.bottom - area.top);
    cairo_clip(cairo_);
  }
  void Unclip() override { cairo_restore(cairo_); }

 protected:
  explicit CairoCanvas(const std::string& path) : file_(path) {}

  /// Takes ownership of the surface.
  void Begin(cairo_surface_t* surface) {
    surface_ = surface;
    cairo_ = cairo_create(surface);
    cairo_set_line_cap(cairo_, CAIRO_LINE_CAP_BUTT);
    cairo_set_line_join(cairo_, CAIRO_LINE_JOIN_ROUND);
    context_ = pango_cairo_create_context(cairo_);
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    pango_cairo_context_set_font_options(context_, options);
    cairo_font_options_destroy(options);
    // A point of a font is a point of the page.
    pango_cairo_context_set_resolution(context_, 72.0);
  }

  Refusal Place() {
    if (file_.Commit(false)) return {};
    return file_.Reason() + ".";
  }

  Refusal Failed(cairo_status_t status) {
    if (!file_.Ok()) return file_.Reason() + ".";
    return std::string("The figure could not be drawn: ") + cairo_status_to_string(status) + ".";
  }

  AtomicWriter file_;
  cairo_surface_t* surface_ = nullptr;
  cairo_t* cairo_ = nullptr;

 private:
  struct Release {
    void operator()(PangoLayout* layout) const { g_object_unref(layout); }
  };
  /// A text in its font, with its width and the distance from its top to its baseline.
  struct Layout {
    std::unique_ptr<PangoLayout, Release> set;
    double width = 0.0, baseline = 0.0;
  };

  void Color(int color) {
    const auto part = [&](int shift) { return ((color >> shift) & 0xFF) / 255.0; };
    cairo_set_source_rgb(cairo_, part(16), part(8), part(0));
  }

  void Path(std::span<const PixelPoint> points) {
    cairo_new_path(cairo_);
    for (const PixelPoint& p : points) cairo_line_to(cairo_, p.x, p.y);
  }

  void Stroke(const Pen& pen) {
    Color(pen.color);
    cairo_set_line_width(cairo_, pen.width);
    std::vector<double> dashes;
    for (const double length : DashLengths(pen.dash)) dashes.push_back(kDashScale * length);
    cairo_set_dash(cairo_, dashes.data(), static_cast<int>(dashes.size()), 0.0);
    cairo_stroke(cairo_);
  }

  void Ink(std::optional<int> fill, const std::optional<Pen>& edge) {
    if (fill) {
      Color(*fill);
      cairo_fill_preserve(cairo_);
    }
    if (edge) Stroke(*edge);
    cairo_new_path(cairo_);
  }

  /// Created once for each size: a page has a hundred texts in three of them.
  const PangoFontDescription* FontOf(const TextLook& look) {
    const int size = static_cast<int>(std::lround(look.size * PANGO_SCALE));
    PangoFontDescription*& font = fonts_[{size, look.bold}];
    if (font) return font;
    font = pango_font_description_from_string(kFont);
    pango_font_description_set_size(font, size);
    if (look.bold) pango_font_description_set_weight(font, PANGO_WEIGHT_BOLD);
    return font;
  }

  /// Sets the text. Pages repeat most of their texts, and each is measured before it is drawn, so the last
  /// ones are kept.
  const Layout& Lay(std::string_view text, const TextLook& look) {
    if (layouts_.size() > kMostLayouts) layouts_.clear();
    Layout& layout = layouts_[{std::string(text), look.size, look.bold}];
    if (layout.set) return layout;
    layout.set.reset(pango_layout_new(context_));
    pango_layout_set_font_description(layout.set.get(), FontOf(look));
    const std::string sound = ValidText(text);
    pango_layout_set_text(layout.set.get(), sound.data(), static_cast<int>(sound.size()));
    int width = 0, height = 0;
    pango_layout_get_size(layout.set.get(), &width, &height);
    layout.width = static_cast<double>(width) / PANGO_SCALE;
    layout.baseline = static_cast<double>(pango_layout_get_baseline(layout.set.get())) / PANGO_SCALE;
    return layout;
  }

  PangoContext* context_ = nullptr;
  std::map<std::tuple<std::string, double, bool>, Layout> layouts_;  // by text, size and weight
  std::map<std::pair<int, bool>, PangoFontDescription*> fonts_;      // by size and weight
};

class PdfCanvas final : public CairoCanvas {
 public:
  PdfCanvas(const std::string& path, double width, double height, const DocumentFacts& facts)
      : CairoCanvas(path) {
    cairo_surface_t* surface = cairo_pdf_surface_create_for_stream(PutBytes, &file_, width, height);
    cairo_pdf_surface_restrict_to_version(surface, CAIRO_PDF_VERSION_1_5);
    const auto say = [&](cairo_pdf_metadata_t what, const std::string& text) {
      if (!text.empty()) cairo_pdf_surface_set_metadata(surface, what, ValidText(text).c_str());
    };
    say(CAIRO_PDF_METADATA_TITLE, facts.title);
    say(CAIRO_PDF_METADATA_AUTHOR, facts.author);
    say(CAIRO_PDF_METADATA_CREATOR, "Sondera");
    say(CAIRO_PDF_METADATA_CREATE_DATE, DocumentTime());
    Begin(surface);
    // The library walks along each outline to find how far it extends. Curves are written as curves, so a coarse
    // walk is enough.
    cairo_set_tolerance(cairo_, 1.0);
    LabelPage();
  }

  void NewPage() override {
    cairo_show_page(cairo_);
    ++page_;
    LabelPage();
  }

  void NamePage(std::string_view name) override {
    const std::string link = "page=" + std::to_string(page_);
    cairo_pdf_surface_add_outline(surface_, CAIRO_PDF_OUTLINE_ROOT, ValidText(name).c_str(), link.c_str(),
                                  CAIRO_PDF_OUTLINE_FLAG_OPEN);
  }

  Refusal Finish() override {
    cairo_show_page(cairo_);
    const cairo_status_t drawn = cairo_status(cairo_);
    cairo_surface_finish(surface_);
    const cairo_status_t written = cairo_surface_status(surface_);
    const cairo_status_t status = drawn != CAIRO_STATUS_SUCCESS ? drawn : written;
    return status == CAIRO_STATUS_SUCCESS ? Place() : Failed(status);
  }

 private:
  void LabelPage() { cairo_pdf_surface_set_page_label(surface_, std::to_string(page_).c_str()); }

  int page_ = 1;
};

class PngCanvas final : public CairoCanvas {
 public:
  PngCanvas(const std::string& path, double width, double height, double scale) : CairoCanvas(path) {
    Begin(cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(std::lround(width * scale)),
                                     static_cast<int>(std::lround(height * scale))));
    cairo_set_source_rgb(cairo_, 1.0, 1.0, 1.0);
    cairo_paint(cairo_);
    cairo_scale(cairo_, scale, scale);
  }

  void NewPage() override {}
  void NamePage(std::string_view) override {}

  Refusal Finish() override {
    const cairo_status_t drawn = cairo_status(cairo_);
    if (drawn != CAIRO_STATUS_SUCCESS) return Failed(drawn);
    const cairo_status_t written = cairo_surface_write_to_png_stream(surface_, PutBytes, &file_);
    return written == CAIRO_STATUS_SUCCESS ? Place() : Failed(written);
  }
};

}  // namespace

std::unique_ptr<FileCanvas> MakePdfCanvas(const std::string& path, double width, double height,
                                          const DocumentFacts& facts) {
  return std::make_unique<PdfCanvas>(path, width, height, facts);
}

std::unique_ptr<FileCanvas> MakePngCanvas(const std::string& path, double width, double height,
                                          double scale) {
  return std::make_unique<PngCanvas>(path, width, height, scale);
}

bool HavePdfAndPng() {
  return true;
}

}  // namespace sondera
