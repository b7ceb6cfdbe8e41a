// pdf_phases.cpp - the wrapped phase of each pair with its masks, the coherence below it, four pairs a page.
#include <algorithm>
#include <cmath>

#include "figure/graph_painter.h"
#include "figure/ticks.h"
#include "report_pdf/pdf_pages.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr std::size_t kPairs = 4;  // of a page
constexpr int kMaskColor = 0x888888;
constexpr double kHalfTurn = 180.0, kPhaseShare = 0.53, kLeftRoom = 42.0;

struct Pair {
  const MeasurementTable* measurement;
  const SpectrumTable* spectrum;
};

bool IsIncluded(const PdfReport& report, const Pair& pair) {
  return std::any_of(report.tables.curves.begin(), report.tables.curves.end(), [&](const CurveTable& curve) {
    return curve.kind == "pair" && curve.isIncluded && curve.measurement == pair.measurement->id &&
           curve.reference == pair.spectrum->reference && curve.channel == pair.spectrum->channel;
  });
}

std::string TitleOf(const PdfReport& report, const Pair& pair) {
  const SpectrumTable& s = *pair.spectrum;
  const Column& at = pair.measurement->receivers;
  std::string title = FormatText("%s [%d:%d]", pair.measurement->id.c_str(), s.reference, s.channel);
  const auto place = [&](int channel) {
    return channel >= 1 && static_cast<std::size_t>(channel) <= at.size()
               ? at[static_cast<std::size_t>(channel - 1)]
               : NAN;
  };
  const double spacing = std::fabs(place(s.channel) - place(s.reference));
  if (std::isfinite(spacing))
    title += ", spacing " + ShortNumber(spacing) + " " + UnitSymbol(report.tables.lengthUnit);
  return title + (IsIncluded(report, pair) ? ", in the curve" : ", left out of the curve");
}

/// A graph over the frequencies of a pair, with its masks.
GraphModel Graph(const Pair& pair, const Column& values, double low, double high) {
  GraphModel graph;
  const SpectrumTable& s = *pair.spectrum;
  PlotModel plot;
  plot.x = s.frequency;
  plot.y = values;
  const std::size_t n = std::min(plot.x.size(), plot.y.size());
  plot.x.resize(n);
  plot.y.resize(n);
  graph.xAxis.autoScale = graph.yAxis.autoScale = false;
  graph.xAxis.max = s.frequency.empty() ? 1.0 : s.frequency.back();
  graph.yAxis.min = low;
  graph.yAxis.max = high;
  for (const MaskRow& mask : pair.measurement->masks) {
    if (mask.reference != s.reference || mask.channel != s.channel || mask.from > graph.xAxis.max) continue;
    RectangleModel box;
    box.x1 = mask.from;
    box.x2 = mask.to;
    box.y1 = low;
    box.y2 = high;
    box.fillColor = kMaskColor;
    box.label = std::to_string(mask.jumps);
    graph.rectangles.push_back(box);
  }
  graph.plots.push_back(std::move(plot));
  return graph;
}

void DrawPair(Canvas& canvas, const PdfReport& report, const Pair& pair, const PixelArea& area) {
  GraphModel phase = Graph(pair, pair.spectrum->wrapped, -kHalfTurn, kHalfTurn);
  phase.title = TitleOf(report, pair);
  phase.yAxis.label = "Phase";
  phase.yAxis.unit = "degrees";
  GraphModel coherence = Graph(pair, pair.spectrum->coherence, 0.0, 1.0);
  for (RectangleModel& mask : coherence.rectangles) mask.label.clear();
  coherence.xAxis.label = "Frequency";
  coherence.xAxis.unit = "Hz";
  coherence.yAxis.label = "Coherence";
  GraphStyle style;
  style.text = 6.5;
  style.line = 0.6;
  style.leftRoom = kLeftRoom;
  style.numbersX = false;
  const double middle = area.top + kPhaseShare * (area.bottom - area.top);
  DrawGraph(phase, canvas, {area.left, area.top, area.right, middle}, style);
  style.numbersX = true;
  const PixelArea frame =
      DrawGraph(coherence, canvas, {area.left, middle + 4.0, area.right, area.bottom}, style);
  if (CoherenceIsKnown(*pair.spectrum)) return;
  TextLook note;
  note.size = kSmallSize;
  note.align = TextAlign::Center;
  note.color = kTextInk;
  canvas.Text({0.5 * (frame.left + frame.right), 0.5 * (frame.top + frame.bottom) + 0.36 * note.size},
              "not known: one record, or a transfer function", note);
}

}  // namespace

PlannedPages PhasePages(const PdfReport& report) {
  std::vector<Pair> pairs;
  for (const MeasurementTable& m : report.tables.measurements)
    for (const SpectrumTable& s : m.spectra) pairs.push_back({&m, &s});
  PlannedPages pages;
  for (std::size_t from = 0; from < pairs.size(); from += kPairs) {
    const std::vector<Pair> some(
        pairs.begin() + static_cast<std::ptrdiff_t>(from),
        pairs.begin() + static_cast<std::ptrdiff_t>(std::min(pairs.size(), from + kPairs)));
    const bool first = from == 0;
    pages.push_back({first ? "Phases" : "", [&report, some, first](Canvas& canvas, const Sheet& sheet) {
                       const double top = WriteHeading(canvas, sheet, first ? "Phases" : "Phases, continued");
                       const double height = (sheet.bottom - top) / kPairs;
                       for (std::size_t i = 0; i < some.size(); ++i) {
                         const double y = top + static_cast<double>(i) * height;
                         DrawPair(canvas, report, some[i], {sheet.left, y, sheet.right, y + height - 8.0});
                       }
                     }});
  }
  return pages;
}

}  // namespace sondera
