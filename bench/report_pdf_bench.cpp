// report_pdf_bench.cpp - speed of the PDF report against a bare drawing of the same marks.
//
// Prints the time of a report with 1000 pages of four pairs with 401 lines each, and its ratio to the time that the PDF
// canvas takes for the lines, areas and texts of as many such pages alone. Says how much memory the report took.
#include <sys/resource.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "best_time.h"
#include "report_pdf/pdf_pages.h"
#include "report_pdf/pdf_report.h"
#include "runtime/text_format.h"

using namespace sondera;

namespace {

constexpr int kPages = 1000, kPairs = 4, kLines = 401;
constexpr double kBudget = 12e6;  // microseconds

/// Keeps what is drawn, to draw it again elsewhere; letters are measured by another canvas.
class Recorder final : public Canvas {
 public:
  explicit Recorder(Canvas& measure) : measure_(measure) {}
  void Line(std::span<const PixelPoint> points, const Pen& pen) override {
    Keep([kept = std::vector<PixelPoint>(points.begin(), points.end()), pen](Canvas& c) {
      c.Line(kept, pen);
    });
  }
  void Segments(std::span<const PixelPoint> ends, const Pen& pen) override {
    Keep([kept = std::vector<PixelPoint>(ends.begin(), ends.end()), pen](Canvas& c) {
      c.Segments(kept, pen);
    });
  }
  void Area(std::span<const PixelPoint> corners, std::optional<int> fill,
            const std::optional<Pen>& edge) override {
    Keep([kept = std::vector<PixelPoint>(corners.begin(), corners.end()), fill, edge](Canvas& c) {
      c.Area(kept, fill, edge);
    });
  }
  void Circle(PixelPoint center, double radius, std::optional<int> fill,
              const std::optional<Pen>& edge) override {
    Keep([=](Canvas& c) { c.Circle(center, radius, fill, edge); });
  }
  void Image(const PixelArea& area, const MapPixels& image) override {
    Keep([area, image](Canvas& c) { c.Image(area, image); });
  }
  void Text(PixelPoint at, std::string_view text, const TextLook& look) override {
    Keep([at, kept = std::string(text), look](Canvas& c) { c.Text(at, kept, look); });
  }
  double TextWidth(std::string_view text, const TextLook& look) override {
    return measure_.TextWidth(text, look);
  }
  void Clip(const PixelArea& area) override {
    Keep([area](Canvas& c) { c.Clip(area); });
  }
  void Unclip() override {
    Keep([](Canvas& c) { c.Unclip(); });
  }

  void DrawOn(Canvas& canvas) const {
    for (const auto& mark : marks_) mark(canvas);
  }

 private:
  void Keep(std::function<void(Canvas&)> mark) { marks_.push_back(std::move(mark)); }

  Canvas& measure_;
  std::vector<std::function<void(Canvas&)>> marks_;
};

PdfReport ManyPairs(int pages) {
  PdfReport report;
  report.projectFile = "site.da";
  MeasurementTable m;
  m.receivers = {2.0, 4.0};
  m.averages = 5;
  SpectrumTable spectrum;
  for (int i = 0; i < kLines; ++i) {
    spectrum.frequency.push_back(0.5 * i);
    spectrum.wrapped.push_back(180.0 * std::sin(0.173 * i));
    spectrum.coherence.push_back(0.9 + 0.1 * std::sin(0.9 * i));
  }
  m.spectra = {spectrum};
  m.masks = {{1, 2, 0.0, 20.0, 1}, {1, 2, 150.0, 200.0, 3}};
  for (int i = 0; i < pages * kPairs; ++i) {
    m.id = FormatText("M%d", i + 1);
    report.tables.measurements.push_back(m);
  }
  return report;
}

void WriteWhole(const std::string& name, const PdfReport& report) {
  if (const Refusal refusal = WritePdfReport(name, report, Paper::A4))
    std::fprintf(stderr, "%s\n", refusal.reason().c_str());
}

std::unique_ptr<FileCanvas> NewDocument(const std::string& name, const Sheet& sheet) {
  return MakePdfCanvas(name, sheet.width, sheet.height, {"A bench", ""});
}

void WriteBare(const std::string& name, const Recorder& page, const Sheet& sheet) {
  const std::unique_ptr<FileCanvas> canvas = NewDocument(name, sheet);
  for (int i = 0; i < kPages; ++i) {
    if (i > 0) canvas->NewPage();
    page.DrawOn(*canvas);
  }
  if (const Refusal refusal = canvas->Finish()) std::fprintf(stderr, "%s\n", refusal.reason().c_str());
}

long PeakKilobytes() {
  struct rusage usage {};
  ::getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

}  // namespace

int main() {
  if (!HavePdfAndPng()) {
    std::printf("%s\n", kNoPdfAndPng);
    return 0;
  }
  const std::filesystem::path folder = std::filesystem::temp_directory_path() / "sondera_report_pdf_bench";
  std::filesystem::create_directories(folder);
  const std::string name = folder / "report.pdf", bareName = folder / "bare.pdf";
  const Sheet sheet = SheetOf(Paper::A4);
  const PdfReport report = ManyPairs(kPages), onePage = ManyPairs(1);
  const long before = PeakKilobytes();
  const double whole = bench::BestMicroseconds([&] { WriteWhole(name, report); }, kBudget);
  const long after = PeakKilobytes();
  const std::unique_ptr<FileCanvas> measure = NewDocument(bareName, sheet);
  Recorder page(*measure);
  PhasePages(onePage).front().draw(page, sheet);
  const double bare = bench::BestMicroseconds([&] { WriteBare(bareName, page, sheet); }, kBudget);
  std::printf(
      "%d pages of %d pairs of %d lines, %.1f MB (bare %.1f MB): report %.2f s, bare drawing %.2f s, ratio "
      "%.2f; memory %.1f MB more\n",
      kPages, kPairs, kLines, static_cast<double>(std::filesystem::file_size(name)) / 1e6,
      static_cast<double>(std::filesystem::file_size(bareName)) / 1e6, whole / 1e6, bare / 1e6, whole / bare,
      static_cast<double>(after - before) / 1e3);
  std::filesystem::remove_all(folder);
  return 0;
}
