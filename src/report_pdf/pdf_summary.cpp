// pdf_summary.cpp - the first page: subject of the report, the profile, and the figures of the site.
#include <algorithm>
#include <array>
#include <cmath>

#include "figure/graph_painter.h"
#include "report_pdf/pdf_pages.h"
#include "runtime/paths.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr double kTitleSize = 20.0, kNotesRoom = 70.0;

TextLook Plain(double size, bool bold = false, int color = kTextInk) {
  TextLook look;
  look.size = size;
  look.bold = bold;
  look.color = color;
  return look;
}

std::string Joined(const std::vector<std::string>& items) {
  std::string text;
  for (std::size_t i = 0; i < items.size(); ++i)
    text += (i == 0 ? "" : i + 1 == items.size() ? " and " : ", ") + items[i];
  return text;
}

double WriteFacts(Canvas& canvas, const Sheet& sheet, double y, const PdfReport& report) {
  const Fact facts[] = {{"Site", report.texts.site},
                        {"Client", report.texts.client},
                        {"Operator", report.texts.operatorName},
                        {"Date of the measurements", report.texts.date},
                        {"Project", FileNameOf(report.projectFile)},
                        {"Date of the report", DocumentTime().substr(0, 10)}};
  constexpr double kNameWidth = 140.0;
  for (const Fact& fact : facts) {
    if (fact.value.empty()) continue;
    y += kLineStep;
    WriteLine(canvas, sheet.left, y, kNameWidth, fact.name, Plain(kBodySize, false, kFaintInk));
    WriteLine(canvas, sheet.left + kNameWidth, y, sheet.right - sheet.left - kNameWidth, fact.value,
              Plain(kBodySize));
  }
  return y;
}

std::string FigureName(const SiteFigure& figure) {
  return figure.name == "vs30" ? "Vs30" : FormatText("Vs down to %.4g m", figure.depth);
}

/// Lines of the box, the first of each group bold.
struct BoxLine {
  std::string text;
  bool head = false;
};

void AddFigure(const SiteFigure& figure, std::vector<BoxLine>& lines) {
  const std::string name = FigureName(figure);
  if (!figure.value) {
    lines.push_back({name + ": not available", true});
    lines.push_back({figure.reason});
    return;
  }
  lines.push_back({name + ": " + FigureDigits(*figure.value) + " m/s", true});
  if (figure.low && figure.high)
    lines.push_back(
        {FigureDigits(*figure.low) + " to " + FigureDigits(*figure.high) + " m/s: " + kRangeLabel});
  if (figure.spread) lines.push_back({"Spread: " + FigureDigits(*figure.spread) + " m/s"});
  if (figure.status == FigureStatus::Extended) lines.push_back({"Extended: " + figure.reason});
}

int CurvesOfPairs(const PdfReport& report, int& points) {
  int pairs = 0;
  points = 0;
  for (const CurveTable& curve : report.tables.curves) {
    if (curve.kind != "pair" || !curve.isIncluded) continue;
    ++pairs;
    points += static_cast<int>(curve.frequency.size());
  }
  return pairs;
}

std::vector<BoxLine> BoxOf(const PdfReport& report) {
  std::vector<BoxLine> lines;
  const ProfileTable* profile = ReportedProfile(report);
  const std::string unit = UnitSymbol(report.tables.lengthUnit);
  if (profile && !profile->figures.figures.empty()) {
    for (const SiteFigure& figure : profile->figures.figures) AddFigure(figure, lines);
    if (!profile->classes.empty()) lines.push_back({"Site classes", true});
    for (const SiteClass& siteClass : profile->classes) {
      lines.push_back({ClassText(siteClass)});
      for (const std::string& note : siteClass.notes) lines.push_back({note});
    }
    if (!profile->classes.empty()) lines.push_back({kClassCaution});
  } else {
    lines.push_back({"Vs30: not available", true});
    lines.push_back(
        {profile ? "The profile is not the result of an inversion." : "The project has no profile."});
  }
  lines.push_back({"Depth seen", true});
  if (report.longestWavelength > 0.0) {
    lines.push_back({FormatText("%.3g %s, half the longest wavelength", kSeenShare * report.longestWavelength,
                                unit.c_str())});
    lines.push_back({FormatText("Longest wavelength: %.3g %s", report.longestWavelength, unit.c_str())});
  } else {
    lines.push_back({"Not known: no measured curve belongs to the profile."});
  }
  if (profile && std::isfinite(profile->rms) && profile->kind != "given") {
    lines.push_back({"Misfit", true});
    lines.push_back(
        {FormatText("RMS %.4g %s/s, iteration %d", profile->rms, unit.c_str(), profile->iteration)});
  }
  int points = 0;
  const int pairs = CurvesOfPairs(report, points);
  lines.push_back({"Data", true});
  lines.push_back({FormatText("%d pair%s of receivers, %d points", pairs, pairs == 1 ? "" : "s", points)});
  return lines;
}

void WriteBox(Canvas& canvas, double left, double top, double right, const std::vector<BoxLine>& lines) {
  constexpr double kPadding = 8.0;
  double y = top + 4.0;
  for (const BoxLine& line : lines) {
    if (line.head) y += 5.0;
    y = WriteParagraph(canvas, left + kPadding, y, right - left - 2 * kPadding, line.text,
                       Plain(line.head ? 10.0 : 8.5, line.head));
  }
  y += kPadding;
  const std::array<PixelPoint, 4> corners = {PixelPoint{left, top}, PixelPoint{right, top},
                                             PixelPoint{right, y}, PixelPoint{left, y}};
  canvas.Area(corners, std::nullopt, Pen{kTextInk, 0.8, LineDash::Solid});
}

void Draw(Canvas& canvas, const Sheet& sheet, const PdfReport& report,
          const std::vector<std::string>& missing) {
  const std::string title = !report.texts.title.empty()   ? report.texts.title
                            : !report.tables.name.empty() ? report.tables.name
                                                          : "Surface-wave measurements";
  const double width = sheet.right - sheet.left;
  WriteLine(canvas, sheet.left, sheet.top + kTitleSize, width, title, Plain(kTitleSize, true));
  WriteLine(canvas, sheet.left, sheet.top + kTitleSize + 18.0, width,
            "Shear-wave velocity by spectral analysis of surface waves", Plain(11.0, false, kFaintInk));
  double y = WriteFacts(canvas, sheet, sheet.top + kTitleSize + 30.0, report) + 20.0;
  const double boxLeft = sheet.left + 0.58 * width;
  const ProfileTable* profile = ReportedProfile(report);
  if (profile && !profile->layers.empty()) {
    const double bottom = sheet.bottom - kNotesRoom;
    GraphModel velocity = ProfileGraph(report, ProfileQuantity::Vs);
    velocity.title = profile->kind == "given" ? "Given model" : "Profile";
    DrawGraph(velocity, canvas, {sheet.left, y, sheet.left + 0.35 * width, bottom});
    GraphModel resolution = ProfileGraph(report, ProfileQuantity::Resolution);
    resolution.yAxis.label.clear();
    resolution.yAxis.unit.clear();
    resolution.title = " ";  // in line with its neighbour
    DrawGraph(resolution, canvas, {sheet.left + 0.36 * width, y, boxLeft - 10.0, bottom});
    WriteParagraph(canvas, sheet.left, bottom + 2.0, boxLeft - sheet.left - 10.0, ProfileNote(report),
                   Plain(kSmallSize, false, kFaintInk));
  }
  WriteBox(canvas, boxLeft, y, sheet.right, BoxOf(report));
  if (missing.empty()) return;
  WriteParagraph(canvas, sheet.left, sheet.bottom - 30.0, width,
                 "Not in this report, since the project does not have it: " + Joined(missing) + ".",
                 Plain(kBodySize, false, kFaintInk));
}

}  // namespace

PlannedPages SummaryPages(const PdfReport& report, const std::vector<std::string>& missing) {
  return {{"Summary",
           [&report, missing](Canvas& canvas, const Sheet& sheet) { Draw(canvas, sheet, report, missing); }}};
}

}  // namespace sondera
