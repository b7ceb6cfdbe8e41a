// show.cpp - see show.h.
#include "app/show.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "runtime/terminal.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr double kTableWavelengths[] = {3, 4, 5, 6, 8, 10, 12, 15, 20, 25, 30, 40};  // length units

/// All output: names come from files, so none of their bytes may control a terminal.
class Lines {
 public:
  void add(const std::string& line) { text_ += VisibleText(line) + "\n"; }
  const std::string& text() const { return text_; }

 private:
  std::string text_;
};

void ShowMeasurements(const ProjectTables& t, Lines& lines) {
  lines.add(t.name.empty() ? "project " + t.id : t.name);
  for (const MeasurementTable& m : t.measurements) {
    std::string line = FormatText("  measurement \"%s\": %zu receivers", m.id.c_str(), m.receivers.size());
    if (!m.spectra.empty() && m.spectra.front().frequency.size() > 1) {
      const Column& f = m.spectra.front().frequency;
      line += FormatText(", %zu lines of %.6g Hz", f.size(), f[1] - f[0]);
    }
    lines.add(line);
  }
}

// --- curves ---

void AddRow(const std::string& label, const std::vector<GroundPoint>& curve,
            const std::vector<GroundPoint>& known, bool isKnown, Lines& lines) {
  std::string line = FormatText("%-22s %6zu ", label.c_str(), curve.size());
  for (const double w : kTableWavelengths) {
    const double v = VelocityNear(curve, w);
    line += v > 0.0 ? FormatText(" %6.1f", v) : "      -";
  }
  if (!known.empty() && !isKnown) line += FormatText("  %5.3f", MedianRatio(curve, known));
  lines.add(line);
}

void ShowCurves(const ProjectTables& t, const KnownGround& known, Lines& lines) {
  const std::string unit = UnitSymbol(t.lengthUnit);
  std::string head = FormatText("%-22s %6s ", ("velocity, " + unit + "/s, at").c_str(), "points");
  for (const double w : kTableWavelengths) head += FormatText(" %4.0f %s", w, unit.c_str());
  lines.add(head + (known.curve.empty() ? "" : "  ratio"));
  bool any = false;
  for (const CurveTable& curve : t.curves) {
    if (curve.kind != "pair" && curve.kind != "global") continue;
    AddRow(NameOf(curve) + (curve.isIncluded ? "" : " (excluded)"), PointsOf(curve), known.curve, false,
           lines);
    any = true;
  }
  if (!any) lines.add("  no pair has a dispersion curve");
  if (!known.curve.empty()) AddRow("the ground", known.curve, known.curve, true, lines);
}

// --- profile ---

void ShowErrors(const ProjectTables& t, Lines& lines) {
  std::string line = FormatText("RMS, %s/s, from the starting model on:", UnitSymbol(t.lengthUnit).c_str());
  const ProfileTable *best = nullptr, *last = nullptr;
  for (const ProfileTable& p : t.profiles) {
    if (p.iteration < 0 || !std::isfinite(p.rms)) continue;
    line += FormatText(" %.2f", p.rms);
    if (!best || p.rms < best->rms) best = &p;
    last = &p;
  }
  if (!best) return;
  lines.add(line);
  if (best != last)
    lines.add(FormatText("The smallest is that of iteration %d. The profile is that of the last one.",
                         best->iteration));
}

void ShowProfile(const ProjectTables& t, const KnownGround& known, Lines& lines) {
  const ProfileTable* profile = FinalProfile(t);
  if (!profile) {
    lines.add("no profile and no layer table");
    return;
  }
  const std::string unit = UnitSymbol(t.lengthUnit);
  ShowErrors(t, lines);
  lines.add(profile->kind == "given"
                ? "layers as given"
                : FormatText("%s profile, iteration %d", profile->kind.c_str(), profile->iteration));
  std::string head = FormatText("  %-16s %8s   %-16s %-10s", ("depth, " + unit).c_str(),
                                ("Vs, " + unit + "/s").c_str(), "95 % band", "resolution");
  lines.add(head + (known.layers.empty() ? "" : "   known Vs"));
  for (std::size_t i = 0; i < profile->layers.size(); ++i) {
    const ProfileLayer& l = profile->layers[i];
    const bool isLast = i + 1 == profile->layers.size();
    const std::string depth =
        isLast ? FormatText("below %.1f", l.top) : FormatText("%.1f to %.1f", l.top, l.top + l.thickness);
    const std::string band = std::isfinite(l.low) ? FormatText("%.0f to %.0f", l.low, l.high) : "";
    const std::string resolution = std::isfinite(l.resolution) ? FormatText("%.2f", l.resolution) : "";
    std::string line =
        FormatText("  %-16s %8.1f   %-16s %-10s", depth.c_str(), l.vs, band.c_str(), resolution.c_str());
    if (!known.layers.empty())
      line += FormatText("   %.0f", MeanVs(known.layers, l.top, isLast ? l.top + 1.0 : l.top + l.thickness));
    lines.add(line);
  }
  for (const std::string& line : SiteFigureLines(profile->figures, profile->classes)) lines.add(line);
}

void ShowMasks(const ProjectTables& t, Lines& lines) {
  bool any = false;
  for (const MeasurementTable& m : t.measurements)
    for (const MaskRow& mask : m.masks) {
      any = true;
      lines.add(FormatText("mask %s[%d:%d]: %.6g to %.6g Hz, full cycles at its end: %d", m.id.c_str(),
                           mask.reference, mask.channel, mask.from, mask.to, mask.jumps));
    }
  if (!any) lines.add("no masks");
}

}  // namespace

std::vector<GroundPoint> PointsOf(const CurveTable& curve) {
  std::vector<GroundPoint> points;
  for (std::size_t i = 0; i < curve.velocity.size(); ++i)
    if (curve.velocity[i] > 0.0 && curve.wavelength[i] > 0.0)
      points.push_back({curve.frequency[i], curve.wavelength[i], curve.velocity[i]});
  return points;
}

std::string NameOf(const CurveTable& curve) {
  if (curve.kind == "global") return "global curve";
  if (curve.kind == "computed") return "computed";
  return curve.measurement + FormatText("[%d:%d]", curve.reference, curve.channel);
}

std::string ShowText(const ProjectTables& tables, const ShowChoices& choices, const KnownGround& known) {
  Lines lines;
  ShowMeasurements(tables, lines);
  if (choices.masks) ShowMasks(tables, lines);
  if (choices.curves) ShowCurves(tables, known, lines);
  if (choices.profile) ShowProfile(tables, known, lines);
  return lines.text();
}

}  // namespace sondera
