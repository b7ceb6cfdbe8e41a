// pdf_report.cpp - the pages in order, each with its footer. See pdf_report.h.
#include "report_pdf/pdf_report.h"

#include <array>
#include <memory>

#include "report_pdf/pdf_pages.h"
#include "runtime/paths.h"
#include "runtime/text_format.h"
#include "runtime/version.h"

namespace sondera {
namespace {

struct Kind {
  const char* name;
  PlannedPages (*pages)(const PdfReport& report);
};
constexpr Kind kKinds[] = {
    {"set-up", SetupPages}, {"phases", PhasePages},    {"dispersion curves", DispersionPages},
    {"fit", FitPages},      {"profile", ProfilePages}, {"how it was made", MakingPages}};

void WriteFoot(Canvas& canvas, const Sheet& sheet, const PdfReport& report, std::size_t page,
               std::size_t count) {
  TextLook look;
  look.size = kSmallSize;
  look.color = kFaintInk;
  const double y = sheet.height - 36.0, third = (sheet.right - sheet.left) / 3.0;
  const std::array<PixelPoint, 2> rule = {PixelPoint{sheet.left, y - 11.0},
                                          PixelPoint{sheet.right, y - 11.0}};
  canvas.Line(rule, {kFaintInk, 0.4, LineDash::Solid});
  const std::string project = FileNameOf(report.projectFile);
  std::string left = report.texts.site;
  if (!project.empty()) left += (left.empty() ? "" : ", ") + project;
  WriteLine(canvas, sheet.left, y, 1.3 * third, left, look);
  look.align = TextAlign::Center;
  WriteLine(canvas, 0.5 * (sheet.left + sheet.right), y, third, FormatText("Page %zu of %zu", page, count),
            look);
  look.align = TextAlign::Right;
  WriteLine(canvas, sheet.right, y, 1.3 * third, std::string(kAppTitle) + ", " + DocumentTime().substr(0, 10),
            look);
}

std::string TitleOf(const PdfReport& report) {
  if (!report.texts.title.empty()) return report.texts.title;
  return "Surface-wave measurements" + (report.tables.name.empty() ? "" : ": " + report.tables.name);
}

}  // namespace

void DrawPdfReport(FileCanvas& canvas, const PdfReport& report, Paper paper) {
  const Sheet sheet = SheetOf(paper);
  std::vector<std::string> missing;
  PlannedPages rest;
  for (const Kind& kind : kKinds) {
    PlannedPages pages = kind.pages(report);
    if (pages.empty()) missing.emplace_back(kind.name);
    for (PlannedPage& page : pages) rest.push_back(std::move(page));
  }
  PlannedPages all = SummaryPages(report, missing);
  for (PlannedPage& page : rest) all.push_back(std::move(page));
  for (std::size_t i = 0; i < all.size(); ++i) {
    if (i > 0) canvas.NewPage();
    if (!all[i].name.empty()) canvas.NamePage(all[i].name);
    all[i].draw(canvas, sheet);
    WriteFoot(canvas, sheet, report, i + 1, all.size());
  }
}

Refusal WritePdfReport(const std::string& path, const PdfReport& report, Paper paper) {
  const Sheet sheet = SheetOf(paper);
  const std::unique_ptr<FileCanvas> canvas =
      MakePdfCanvas(path, sheet.width, sheet.height, {TitleOf(report), report.texts.operatorName});
  if (!canvas) return kNoPdfAndPng;
  DrawPdfReport(*canvas, report, paper);
  return canvas->Finish();
}

}  // namespace sondera
