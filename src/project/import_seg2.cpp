// import_seg2.cpp - see import_seg2.h. Owns no state.
#include "project/import_seg2.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "project/seg2.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr double kVoltsPerMillivolt = 1e-3;
constexpr std::string_view kSeismic = "SEISMIC_DATA";

std::string Upper(std::string_view text) {
  std::string upper(text);
  for (char& c : upper) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return upper;
}

std::string TypeFault(const Seg2Trace& trace) {
  const auto type = Seg2Value(trace.strings, "TRACE_TYPE");
  if (!type || type->empty() || Upper(*type) == kSeismic) return {};
  return "is of the type " + std::string(*type);
}

ShotTrace TraceOf(Seg2Trace&& from) {
  ShotTrace trace;
  trace.channel = from.number;
  trace.interval = from.interval;
  trace.intervalText = Seg2Value(from.strings, "SAMPLE_INTERVAL").value_or("");
  trace.firstTime = from.delay.value_or(0.0);
  trace.isScaled = from.factor.has_value();
  if (from.factor) trace.scale = *from.factor / from.stack * kVoltsPerMillivolt;
  trace.receiver = std::move(from.receiver);
  trace.source = std::move(from.source);
  trace.skew = from.skew;
  for (std::size_t i = 0; i < kShotFilters.size(); ++i)
    trace.filters[i] = Seg2Value(from.strings, kShotFilters[i]).value_or("");
  trace.samples = std::move(from.samples);
  trace.setAside = TypeFault(from);
  if (trace.setAside.empty()) trace.setAside = SampleFault(trace.samples);
  return trace;
}

/// "channels 1, 2, 5 to 9": the channels for which `holds` is true; empty for none.
template <class Holds>
std::string ChannelsThat(const std::vector<Seg2Trace>& traces, Holds holds) {
  std::vector<int> which;
  for (const Seg2Trace& t : traces)
    if (holds(t)) which.push_back(t.number);
  if (which.empty()) return {};
  if (which.size() == traces.size()) return "all channels";
  std::string text = which.size() == 1 ? "channel " : "channels ";
  for (std::size_t i = 0; i < which.size(); ++i) {
    std::size_t end = i;
    while (end + 1 < which.size() && which[end + 1] == which[end] + 1) ++end;
    if (i > 0) text += ", ";
    text += std::to_string(which[i]);
    if (end > i) text += (end > i + 1 ? " to " : ", ") + std::to_string(which[end]);
    i = end;
  }
  return text;
}

/// Missing information and processing of the samples. Without the file's name where many files have the same
/// remark.
void TellOfKeys(const Seg2File& file, std::vector<Finding>& findings) {
  const auto note = [&](std::string text) { findings.push_back({FindingKind::Note, std::move(text)}); };
  if (const auto which = ChannelsThat(file.traces, [](const Seg2Trace& t) { return !t.delay; });
      !which.empty())
    note("DELAY is missing for " + which + "; the record counts as beginning with the shot");
  if (const auto which = ChannelsThat(file.traces, [](const Seg2Trace& t) { return !t.factor; });
      !which.empty())
    note("DESCALING_FACTOR is missing for " + which + "; the samples stay counts and are no volts");
  for (std::size_t i = 0; i < file.traces.size(); ++i) {
    const Seg2Trace& t = file.traces[i];
    if (t.stack == 1 || !t.factor || (i > 0 && t.stack == file.traces[i - 1].stack)) continue;
    note(FormatText("volts are count x DESCALING_FACTOR / STACK / 1000, from channel %d on with STACK %d",
                    t.number, t.stack));
  }
}

/// The texts of the file, and what its first trace says of the shot and of the recorder's filters. They are for people;
/// nothing is computed from them.
void TakeTexts(const Seg2File& file, std::vector<std::string>& texts) {
  texts.push_back(
      FormatText("SEG-2, revision %d, %s endian", file.revision, file.bigEndian ? "big" : "little"));
  texts.insert(texts.end(), file.strings.begin(), file.strings.end());
  if (file.traces.empty()) return;
  for (const std::string_view key :
       {"RAW_RECORD", "SHOT_SEQUENCE_NUMBER", "STACK", "ALIAS_FILTER", "LOW_CUT_FILTER", "HIGH_CUT_FILTER"})
    if (const auto value = Seg2Value(file.traces.front().strings, key); value && !value->empty())
      texts.push_back(std::string(key) + " " + std::string(*value));
}

}  // namespace

double LengthUnitOf(std::string_view units) {
  constexpr std::pair<std::string_view, double> kUnits[] = {
      {"METERS", 1.0}, {"FEET", 0.3048}, {"INCHES", 0.0254}, {"CENTIMETERS", 0.01}};
  const std::string name = Upper(units);
  for (const auto& [unit, metres] : kUnits)
    if (name == unit) return metres;
  return 0.0;
}

std::string ShotOfSeg2(const std::string& path, std::string_view bytes, Shot& shot) {
  Seg2File file;
  if (std::string reason = ReadSeg2(bytes, file); !reason.empty()) return reason;
  shot = {};
  shot.path = path;
  shot.receiverKey = "RECEIVER_LOCATION";
  shot.sourceKey = "SOURCE_LOCATION";
  shot.unitKey = "UNITS";
  shot.lengthUnit = LengthUnitOf(Seg2Value(file.strings, shot.unitKey).value_or(""));
  TakeTexts(file, shot.texts);
  for (const std::vector<std::string>* sentences : {&file.refused, &file.remarks})
    for (const std::string& text : *sentences)
      shot.findings.push_back({FindingKind::Doubt, path + ": " + text});
  TellOfKeys(file, shot.findings);
  shot.traces.reserve(file.traces.size());
  for (Seg2Trace& trace : file.traces) shot.traces.push_back(TraceOf(std::move(trace)));
  return {};
}

std::string ReadSeg2Shot(const std::string& path, Shot& shot) {
  std::string bytes;
  const std::string reason = ReadShotBytes(path, bytes);
  return reason.empty() ? ShotOfSeg2(path, bytes, shot) : reason;
}

}  // namespace sondera
