// shot_import.cpp - see shot_import.h. Owns no state.
#include "project/shot_import.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "project/import_layout.h"
#include "project/import_record.h"
#include "project/record_spectra.h"
#include "records/session.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr double kSamePlace = 1e-9;  // of the distance between source and receiver
constexpr double kSame = 1e-9;       // relative

/// One measurement that is being made.
struct Made {
  std::string id;
  std::vector<int> channels;  // of the shot, ordered by distance
  RawData sums;
};

std::vector<Made> MeasurementsOf(const ShotChoices& choices, const ShotPlan& plan) {
  std::vector<Made> made;
  if (choices.pairs) {
    for (const ShotPair& pair : plan.pairs)
      if (pair.use) made.push_back({PairID(choices.measID, pair), {pair.near, pair.far}, {}});
    return made;
  }
  made.push_back({choices.measID, {}, {}});
  for (const ShotChannel* c : plan.planned()) made.front().channels.push_back(c->channel);
  return made;
}

const ShotChannel& ChannelOf(const ShotPlan& plan, int channel) {
  return *std::find_if(plan.channels.begin(), plan.channels.end(),
                       [&](const ShotChannel& c) { return c.channel == channel; });
}

TimeLayout LayoutOf(const ShotPlan& plan, int channels) {
  TimeLayout layout;
  LayOutTimeRecord(plan.firstTime, plan.firstTime + (plan.samples - 1) * plan.interval, plan.samples,
                   channels, layout);
  // The recorder's text, without the rounding of a difference of times.
  layout.deltaT = plan.interval;
  layout.timeLength = (layout.samples - 1) * layout.deltaT;
  layout.freqSpan = 0.5 / layout.deltaT;
  const int lines = layout.samples / 2;
  layout.deltaF = layout.freqSpan / lines;
  return layout;
}

/// Difference of a later file from the first; empty: none.
std::string DifferenceOf(const ShotPlan& first, const ShotPlan& later) {
  const auto same = [](double a, double b) {
    return std::fabs(a - b) <= kSame * std::max(std::fabs(a), 1e-3);
  };
  if (later.lengthUnit != first.lengthUnit)
    return FormatText("its unit of length is %g m, and that of the first %g m", later.lengthUnit,
                      first.lengthUnit);
  if (!same(first.source, later.source))
    return FormatText("its source is at %g, and that of the first at %g", later.source, first.source);
  for (const ShotChannel* c : first.planned()) {
    const auto at = std::find_if(later.channels.begin(), later.channels.end(),
                                 [&](const ShotChannel& l) { return l.channel == c->channel; });
    if (at == later.channels.end()) return FormatText("it has no channel %d on this side", c->channel);
    if (!(std::fabs(at->place - c->place) <= kSamePlace * std::max(c->distance, 1e-3)))
      return FormatText("its channel %d is at %g, and that of the first at %g", c->channel, at->place,
                        c->place);
  }
  if (!same(first.interval, later.interval))
    return FormatText("it is sampled every %g s, and the first every %g s", later.interval, first.interval);
  if (std::fabs(later.firstTime - first.firstTime) > 1e-3 * first.interval)
    return FormatText("it begins at %g s, and the first at %g s", later.firstTime, first.firstTime);
  if (later.samples != first.samples)
    return FormatText("it has %d samples, and the first %d", later.samples, first.samples);
  return {};
}

/// Reads a file after the first and compares it with the plan.
std::string ReadLater(const ShotRequest& request, const ShotPlan& plan, std::size_t index, Shot& shot) {
  const std::string& path = request.files[index];
  if (std::string reason = request.read(path, shot); !reason.empty()) return path + ": " + reason;
  ShotChoices choices = request.choices;
  if (choices.channels.empty()) {
    const bool given = !choices.at.empty();
    choices.at.clear();
    for (const ShotChannel* c : plan.planned()) {
      choices.channels.push_back(c->channel);
      if (given) choices.at.push_back(c->place);
    }
  }
  ShotPlan own;
  std::string reason = PlanShot(shot, choices, own);
  if (reason.empty()) reason = DifferenceOf(plan, own);
  if (!reason.empty()) return path + ": " + reason;
  shot.findings.insert(shot.findings.end(), own.findings.begin(), own.findings.end());
  return {};
}

using Spectra = std::map<int, ChannelSpectrum>;  // by channel

/// Spectra of the channels of a shot that the measurements need.
std::string SpectraOf(const ShotRequest& request, const ShotPlan& plan, const Shot& shot, int length,
                      const std::vector<Made>& made, Spectra& spectra) {
  spectra.clear();
  for (const Made& m : made)
    for (int channel : m.channels) {
      if (spectra.count(channel) != 0) continue;
      const ShotTrace* trace = TraceOfChannel(shot, channel);
      if (!trace || trace->samples.size() < static_cast<std::size_t>(plan.samples))
        return shot.path + FormatText(": channel %d is missing or too short", channel);
      std::vector<double> volts;
      volts.reserve(static_cast<std::size_t>(length));
      volts.assign(trace->samples.begin(), trace->samples.begin() + plan.samples);
      for (double& v : volts) v *= trace->scale;
      ChannelSpectrum& spectrum = spectra[channel];
      spectrum = SpectrumOf(std::move(volts), length);
      if (request.choices.correctSkew) DelaySpectrum(spectrum, trace->skew / plan.interval);
    }
  return {};
}

const std::string& ProjectOf(const ShotRequest& request) {
  return request.projID.empty() ? session.curProjID : request.projID;
}

void Add(const Spectra& spectra, const Made& made, int length, RawData& sums) {
  std::vector<const ChannelSpectrum*> channels;
  for (int channel : made.channels) channels.push_back(&spectra.at(channel));
  AddRecord(channels, length, sums);
}

/// The records of a measurement: the sums of all shots but the last, to which the last one is added.
void Store(const ShotRequest& request, const ShotPlan& plan, const Spectra& last, Made& made) {
  ImportRequest import;
  import.projID = ProjectOf(request);
  import.measID = made.id;
  import.nChannels = static_cast<int>(made.channels.size());
  import.lengthUnit = plan.lengthUnit;
  import.locations.push_back(plan.source);
  for (int channel : made.channels) import.locations.push_back(ChannelOf(plan, channel).place);
  ImportRecords records;
  BeginImport(import, IfPresent::Overwrite, records);
  const TimeLayout layout = LayoutOf(plan, import.nChannels);
  MakeTimeRecords(import, layout, records);
  records.hw->nAverage = static_cast<int>(request.files.size());
  if (request.files.size() > 1)
    for (auto block : kRawBlocks) records.raw->*block = std::move(made.sums.*block);
  Add(last, made, layout.samples, *records.raw);
  DivideSums(*records.raw, static_cast<int>(request.files.size()));
  CompletePairs(import, records);
  if (request.stored) request.stored(import.measID);
}

void Report(const std::vector<Finding>& findings) {
  for (const Finding& f : findings) f.kind == FindingKind::Note ? AddNote(f.text) : AddDoubt(f.text);
}

std::string PlanFirst(const ShotRequest& request, Shot& shot, ShotPlan& plan) {
  if (request.files.empty()) return "there is no file to read";
  std::string reason = request.read(request.files.front(), shot);
  if (reason.empty()) reason = PlanShot(shot, request.choices, plan);
  return reason.empty() ? reason : request.files.front() + ": " + reason;
}

std::string ImportFrom(const ShotRequest& request, const ShotPlan& plan, Shot shot,
                       std::vector<std::string>* ids) {
  std::vector<Made> made = MeasurementsOf(request.choices, plan);
  if (made.empty()) return "no pair of the plan is to be used";
  if (const auto there = MeasurementsThatExist(request, plan); !there.empty() && !request.choices.overwrite)
    return "the measurement \"" + there.front() + "\" exists";
  const int length = FullTimeLines(plan.samples);
  std::vector<Finding> findings = plan.findings;
  Spectra spectra;
  for (std::size_t i = 0; i < request.files.size(); ++i) {
    std::string reason;
    if (i > 0) {
      for (Made& m : made) Add(spectra, m, length, m.sums);
      reason = ReadLater(request, plan, i, shot);
    }
    if (reason.empty()) reason = SpectraOf(request, plan, shot, length, made, spectra);
    if (!reason.empty()) return reason;
    findings.insert(findings.end(), shot.findings.begin(), shot.findings.end());
  }
  for (Made& m : made) {
    Store(request, plan, spectra, m);
    if (ids) ids->push_back(m.id);
  }
  if (request.choices.pairs) {
    std::string text = request.choices.measID + ": pairs are the measurements";
    for (const Made& m : made) text += " " + m.id;
    findings.push_back({FindingKind::Note, text});
  }
  Report(findings);
  return {};
}

}  // namespace

std::string PlanShots(const ShotRequest& request, ShotPlan& plan) {
  Shot shot;
  return PlanFirst(request, shot, plan);
}

std::vector<std::string> MeasurementsThatExist(const ShotRequest& request, const ShotPlan& plan) {
  std::vector<std::string> ids;
  for (const Made& made : MeasurementsOf(request.choices, plan))
    if (GetKeyFromID(ProjectOf(request), made.id) != -1) ids.push_back(made.id);
  return ids;
}

std::string ImportShots(const ShotRequest& request, const ShotPlan& plan, std::vector<std::string>* ids) {
  Shot first;
  const std::string reason = request.read(request.files.front(), first);
  return reason.empty() ? ImportFrom(request, plan, std::move(first), ids)
                        : request.files.front() + ": " + reason;
}

std::string ImportShots(const ShotRequest& request, std::vector<std::string>* ids) {
  ShotPlan plan;
  Shot first;
  const std::string reason = PlanFirst(request, first, plan);
  return reason.empty() ? ImportFrom(request, plan, std::move(first), ids) : reason;
}

}  // namespace sondera
