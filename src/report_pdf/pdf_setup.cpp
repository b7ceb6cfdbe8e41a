// pdf_setup.cpp - the measurements, with a sketch of the line to scale.
#include <algorithm>
#include <array>
#include <cmath>

#include "figure/graph_painter.h"
#include "figure/ticks.h"
#include "report_pdf/pdf_pages.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr std::size_t kMostLettersOfPlaces = 22,
                      kMostLettersOfSpacing = 15;  // which have room in their columns
constexpr std::size_t kRows = 24;                  // measurements of a page
constexpr int kSourceMarker = 15, kReceiverMarker = 9;

using Measurements = std::vector<const MeasurementTable*>;

/// Measurements with data: of the others there is neither a spectrum nor a curve.
Measurements TakenMeasurements(const PdfReport& report) {
  Measurements taken;
  for (const MeasurementTable& m : report.tables.measurements) {
    const bool hasCurve = std::any_of(report.tables.curves.begin(), report.tables.curves.end(),
                                      [&](const CurveTable& curve) { return curve.measurement == m.id; });
    if (hasCurve || !m.spectra.empty()) taken.push_back(&m);
  }
  return taken;
}

std::string List(const Column& values) {
  std::string text;
  for (const double value : values) text += (text.empty() ? "" : ", ") + ShortNumber(value);
  return text;
}

/// All places; of a long list the ends and the number of receivers, since the sketch shows each of them.
std::string Places(const Column& places) {
  std::string list = List(places);
  if (list.size() <= kMostLettersOfPlaces) return list;
  return ShortNumber(places.front()) + " to " + ShortNumber(places.back()) +
         FormatText(" (%zu)", places.size());
}

/// From each receiver to the next one; of a long list the smallest and the largest.
std::string Spacing(const MeasurementTable& m) {
  Column spacings;
  for (std::size_t i = 1; i < m.receivers.size(); ++i)
    spacings.push_back(std::fabs(m.receivers[i] - m.receivers[i - 1]));
  if (spacings.empty()) return "-";
  std::string list = List(spacings);
  if (list.size() <= kMostLettersOfSpacing) return list;
  const auto [least, most] = std::minmax_element(spacings.begin(), spacings.end());
  const std::string from = ShortNumber(*least), to = ShortNumber(*most);
  return from == to ? from : from + " to " + to;
}

/// Lines and band from the first spectrum.
std::vector<std::string> Band(const MeasurementTable& m) {
  if (m.spectra.empty() || m.spectra.front().frequency.size() < 2) return {"-", "-"};
  const Column& f = m.spectra.front().frequency;
  return {std::to_string(f.size()), ShortNumber(f.front()) + " to " + ShortNumber(f.back())};
}

/// Without a coherence it was one record, for every number of averages in the set-up.
std::string Averages(const MeasurementTable& m) {
  const bool several = std::any_of(m.spectra.begin(), m.spectra.end(), CoherenceIsKnown);
  return m.averages > 0 && several ? std::to_string(m.averages) : m.averages > 0 ? "1" : "-";
}

std::vector<std::string> RowOf(const MeasurementTable& m) {
  const std::vector<std::string> band = Band(m);
  return {m.id,    ShortNumber(m.source), Places(m.receivers), Spacing(m), band[0], band[1], Averages(m),
          m.origin};
}

/// Sources and receivers of each measurement along the line, one below the other.
GraphModel Sketch(const PdfReport& report, const Measurements& taken, std::size_t from, std::size_t to) {
  GraphModel graph;
  graph.title = "The line, to scale";
  graph.xAxis.label = "Place";
  graph.xAxis.unit = UnitSymbol(report.tables.lengthUnit);
  graph.yAxis.autoScale = false;
  graph.yAxis.label = "Row";
  graph.yAxis.reversed = true;
  graph.yAxis.min = static_cast<double>(from);
  graph.yAxis.max = static_cast<double>(to + 1);
  graph.yAxis.divisions = static_cast<int>(to + 1 - from);
  PlotModel source, receivers;
  source.style = receivers.style = PlotStyle::Scatter;
  source.marker = kSourceMarker;
  receivers.marker = kReceiverMarker;
  source.color = 0xD55E00;
  receivers.color = 0x0072B2;
  source.legend = "source";
  receivers.legend = "receiver";
  double low = INFINITY, high = -INFINITY;
  const auto add = [&](PlotModel& plot, double place, std::size_t row) {
    if (!std::isfinite(place)) return;
    plot.x.push_back(place);
    plot.y.push_back(static_cast<double>(row + 1));
    low = std::min(low, place);
    high = std::max(high, place);
  };
  for (std::size_t i = from; i < to; ++i) {
    const MeasurementTable& m = *taken[i];
    add(source, m.source, i);
    for (const double place : m.receivers) add(receivers, place, i);
  }
  if (low < high) {
    graph.xAxis.autoScale = false;
    graph.xAxis.min = low - 0.05 * (high - low);
    graph.xAxis.max = high + 0.05 * (high - low);
  }
  graph.plots = {source, receivers};
  return graph;
}

void Draw(Canvas& canvas, const Sheet& sheet, const PdfReport& report, const Measurements& taken,
          std::size_t from, std::size_t to) {
  const std::string unit = UnitSymbol(report.tables.lengthUnit);
  double y = WriteHeading(canvas, sheet,
                          (from == 0 ? "Set-up" : "Set-up, continued") + std::string(", lengths in ") + unit);
  std::vector<std::vector<std::string>> rows;
  for (std::size_t i = from; i < to; ++i) {
    rows.push_back(RowOf(*taken[i]));
    rows.back().insert(rows.back().begin(), std::to_string(i + 1));
  }
  y = WriteTable(canvas, sheet.left, y, sheet.right - sheet.left,
                 {{"", 0.3},
                  {"Measurement", 1.4, TextAlign::Left},
                  {"Source", 0.8},
                  {"Receivers", 2.1},
                  {"Spacing", 1.5},
                  {"Lines", 0.65},
                  {"Band, Hz", 1.1},
                  {"Averages", 1.0},
                  {"Origin", 1.05, TextAlign::Left}},
                 rows);
  const double height = std::min(sheet.bottom - y - 16.0, 90.0 + 16.0 * static_cast<double>(to - from));
  DrawGraph(Sketch(report, taken, from, to), canvas, {sheet.left, y + 14.0, sheet.right, y + 14.0 + height});
}

}  // namespace

PlannedPages SetupPages(const PdfReport& report) {
  PlannedPages pages;
  const Measurements taken = TakenMeasurements(report);
  const std::size_t count = taken.size();
  for (std::size_t from = 0; from < count; from += kRows) {
    const std::size_t to = std::min(count, from + kRows);
    pages.push_back(
        {from == 0 ? "Set-up" : "", [&report, taken, from, to](Canvas& canvas, const Sheet& sheet) {
           Draw(canvas, sheet, report, taken, from, to);
         }});
  }
  return pages;
}

}  // namespace sondera
