// shot_preview.cpp - see shot_preview.h.
#include "project/shot_preview.h"

#include <algorithm>
#include <cmath>

#include "runtime/paths.h"
#include "runtime/terminal.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr std::size_t kMostTexts = 40;  // of a file that says more, the first ones are shown

double LargestOf(const ShotTrace& trace) {
  double largest = 0.0;
  for (const double value : trace.samples) largest = std::max(largest, std::fabs(value));
  return trace.isScaled ? largest * std::fabs(trace.scale) : largest;
}

PreviewChannel ChannelOf(const ShotTrace& trace, const ShotPlan& plan) {
  PreviewChannel c;
  c.channel = trace.channel;
  c.samples = static_cast<int>(trace.samples.size());
  c.interval = trace.interval;
  c.firstTime = trace.firstTime;
  c.receiver = trace.receiver;
  c.isScaled = trace.isScaled;
  c.largest = LargestOf(trace);
  c.remark = trace.setAside;
  const auto at = std::find_if(plan.channels.begin(), plan.channels.end(),
                               [&](const ShotChannel& s) { return s.channel == trace.channel; });
  if (at == plan.channels.end()) return c;
  c.planned = at->planned;
  c.distance = at->distance;
  if (c.remark.empty()) c.remark = at->setAside;
  return c;
}

std::string Coordinates(const std::vector<double>& at) {
  std::string text;
  for (const double x : at) text += (text.empty() ? "" : " ") + FormatText("%g", x);
  return text.empty() ? "?" : text;
}

const char* NameOfUnit(double unit) {
  return unit == 1.0      ? "metres"
         : unit == 0.3048 ? "feet"
         : unit == 0.01   ? "centimetres"
         : unit == 0.0254 ? "inches"
                          : "not told";
}

/// A text of the file on one line; notes have several.
std::string OneLine(std::string text) {
  for (std::size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + 1))
    text[at] = ';';
  return VisibleText(text);
}

void AddChannels(const ShotPreview& p, std::string& text) {
  text += "channel  place            distance   samples  interval, s  from, s   largest     plan\n";
  for (const PreviewChannel& c : p.channels)
    text += FormatText("%7d  %-15s  %-8s %9d  %-11.6g  %-8.4g  %-10.4g  ", c.channel,
                       Coordinates(c.receiver).c_str(),
                       c.distance > 0.0 ? FormatText("%g", c.distance).c_str() : "", c.samples, c.interval,
                       c.firstTime, c.largest) +
            (c.planned          ? "yes"
             : c.remark.empty() ? "no"
                                : "no: " + VisibleText(c.remark)) +
            "\n";
}

void AddPlan(const ShotPlan& plan, std::string& text) {
  text += FormatText("source at %g, %s; one sample each %.9g s (%.9g Hz), %d samples from %g s on\n",
                     plan.source, NameOfUnit(plan.lengthUnit), plan.interval, 1.0 / plan.interval,
                     plan.samples, plan.firstTime);
  if (plan.wholeRate > 0)
    text += FormatText("the interval may stand for %d Hz, rounded in the file\n", plan.wholeRate);
  if (plan.pairs.empty()) {
    text += "one measurement of the planned channels\n";
    return;
  }
  text += "near to far   distances       spacing   longest wavelength   use\n";
  for (const ShotPair& pair : plan.pairs)
    text += FormatText("%4d to %-4d  %-14s  %-8g  %-19g  %s\n", pair.near, pair.far,
                       FormatText("%g to %g", pair.nearDistance, pair.farDistance).c_str(), pair.spacing(),
                       pair.longestWavelength, pair.use ? "yes" : "no");
}

}  // namespace

ShotPreview PreviewShots(const ShotRequest& request) {
  ShotPreview p;
  if (request.files.empty()) {
    p.fault = "no file is chosen";
    return p;
  }
  p.path = request.files.front();
  Shot shot;
  p.fault = request.read(p.path, shot);
  if (!p.fault.empty()) return p;
  p.texts = std::move(shot.texts);
  p.lengthUnit = shot.lengthUnit;
  if (!shot.traces.empty()) p.source = shot.traces.front().source;
  p.question = PlanShot(shot, request.choices, p.plan);
  for (const ShotTrace& trace : shot.traces) p.channels.push_back(ChannelOf(trace, p.plan));
  p.findings = std::move(shot.findings);
  if (!p.question.empty()) return p;
  p.findings.insert(p.findings.end(), p.plan.findings.begin(), p.plan.findings.end());
  p.exist = MeasurementsThatExist(request, p.plan);
  return p;
}

std::string PreviewText(const ShotPreview& p) {
  // Texts of a file must not steer a terminal.
  if (!p.fault.empty()) return VisibleText((p.path.empty() ? "" : p.path + ": ") + p.fault) + "\n";
  std::string text =
      VisibleText(FileNameOf(p.path)) +
      FormatText(": %zu channel%s, source at ", p.channels.size(), p.channels.size() == 1 ? "" : "s") +
      Coordinates(p.source) + ", unit of length: " + NameOfUnit(p.lengthUnit) + "\n";
  for (std::size_t i = 0; i < std::min(p.texts.size(), kMostTexts); ++i)
    text += "  " + OneLine(p.texts[i]) + "\n";
  if (p.texts.size() > kMostTexts) text += FormatText("  and %zu more\n", p.texts.size() - kMostTexts);
  AddChannels(p, text);
  if (p.question.empty())
    AddPlan(p.plan, text);
  else
    text += "to be answered: " + VisibleText(p.question) + "\n";
  for (const std::string& id : p.exist)
    text += "the project has a measurement " + VisibleText(id) + " already\n";
  for (const Finding& f : p.findings)
    text += (f.kind == FindingKind::Doubt ? "doubt: " : "note: ") + VisibleText(f.text) + "\n";
  return text;
}

}  // namespace sondera
