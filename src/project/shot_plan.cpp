// shot_plan.cpp - see shot_plan.h. Owns no state.
#include "project/shot_plan.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "project/import_layout.h"
#include "project/shot_places.h"
#include "records/measurement_rules.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr double kLeastSpacing = 0.5, kMostSpacing = 2.0;  // of the near distance
constexpr double kSameInterval = 1e-9;                     // relative: texts of one interval
constexpr double kSameStart = 1e-3;                        // of an interval
constexpr double kRateShare = 2e-3;                        // a rate with a larger difference is another rate
constexpr std::size_t kLongestID = 255, kRoomForDistances = 40;

void Add(ShotPlan& plan, FindingKind kind, std::string text) {
  plan.findings.push_back({kind, std::move(text)});
}

/// Position of the value nearest to `wanted`; the smaller of two. values ascending, not empty.
std::size_t NearestTo(const std::vector<double>& values, double wanted, std::size_t from = 0) {
  std::size_t best = from;
  for (std::size_t i = from + 1; i < values.size(); ++i)
    if (std::fabs(values[i] - wanted) < std::fabs(values[best] - wanted)) best = i;
  return best;
}

bool IsChosen(const ShotChoices& choices, int channel) {
  return std::find(choices.channels.begin(), choices.channels.end(), channel) != choices.channels.end();
}

std::string TakeUnit(const Shot& shot, const ShotChoices& choices, ShotPlan& plan) {
  plan.lengthUnit = choices.lengthUnit > 0.0 ? choices.lengthUnit : shot.lengthUnit;
  if (!(plan.lengthUnit > 0.0) && !choices.at.empty()) plan.lengthUnit = choices.placesUnit;
  if (plan.lengthUnit > 0.0) return {};
  return shot.unitKey + " is missing; say in which unit of length the locations are";
}

/// Chosen channels must exist and be named once.
std::string CheckChosen(const Shot& shot, const ShotChoices& choices) {
  for (std::size_t i = 0; i < choices.channels.size(); ++i) {
    const int channel = choices.channels[i];
    if (!TraceOfChannel(shot, channel))
      return FormatText("there is no complete trace of channel %d", channel);
    if (std::find(choices.channels.begin(), choices.channels.begin() + static_cast<std::ptrdiff_t>(i),
                  channel) != choices.channels.begin() + static_cast<std::ptrdiff_t>(i))
      return FormatText("channel %d is named twice", channel);
  }
  return {};
}

/// All usable channels, by distance, on both sides; place gives the side.
std::string Candidates(const Shot& shot, const ShotChoices& choices, const ShotPlaces& places,
                       std::vector<ShotChannel>& candidates) {
  for (std::size_t t = 0; t < shot.traces.size(); ++t) {
    const ShotTrace& trace = shot.traces[t];
    if (!choices.channels.empty() && !IsChosen(choices, trace.channel)) continue;
    ShotChannel c{trace.channel, places.receivers[t], std::fabs(places.receivers[t] - places.source), false,
                  trace.setAside};
    const bool usable = SamplesAreUsable(trace.samples, trace.scale);
    if (std::isnan(c.place)) c.setAside = shot.receiverKey + " is missing";
    if (!usable && c.setAside.empty()) c.setAside = "holds numbers that are too large";
    if (!choices.channels.empty() && (std::isnan(c.place) || !usable))
      return FormatText("channel %d: ", c.channel) + c.setAside;
    if (!std::isnan(c.place) && !(std::fabs(c.place) <= kFarthestPlace))
      return std::string(kInvalidLocation) + FormatText(" Channel %d is at %g.", c.channel, c.place);
    candidates.push_back(std::move(c));
  }
  std::stable_sort(candidates.begin(), candidates.end(), [](const ShotChannel& a, const ShotChannel& b) {
    return std::isnan(b.distance) ? !std::isnan(a.distance) : a.distance < b.distance;
  });
  return {};
}

/// Keeps the channels of one side. Receivers at the source are on neither side.
std::string TakeSide(const ShotChoices& choices, const ShotPlaces& places, ShotPlan& plan) {
  const auto isAside = [](const ShotChannel& c) { return !c.setAside.empty(); };
  std::size_t left = 0, right = 0;
  for (ShotChannel& c : plan.channels) {
    if (c.distance == 0.0 && !choices.channels.empty())
      return std::string(kInvalidLocation) + FormatText(" Channel %d is at the source.", c.channel);
    if (c.distance == 0.0) c.setAside = "is at the source";
    if (choices.channels.empty() && isAside(c)) continue;
    if (c.place < places.source) ++left;
    if (c.place > places.source) ++right;
  }
  ShotSide side = choices.side;
  if (side == ShotSide::Unset && left > 0 && right > 0)
    return std::string(kInvalidLocation) +
           FormatText(" The source at %g has %zu receivers on its left and %zu on its right; choose a side.",
                      places.source, left, right);
  if (side == ShotSide::Unset) side = left > 0 ? ShotSide::Left : ShotSide::Right;
  std::erase_if(plan.channels, [&](const ShotChannel& c) {
    return side == ShotSide::Left ? c.place > places.source : c.place < places.source;
  });
  return {};
}

/// Of receivers at the same place the first is used; chosen ones must not be at the same place.
std::string DropDoubles(const ShotChoices& choices, ShotPlan& plan) {
  const ShotChannel* last = nullptr;
  for (ShotChannel& c : plan.channels) {
    const bool free = choices.channels.empty();
    if (std::isnan(c.distance) || (free && !c.setAside.empty())) continue;
    if (last && last->distance == c.distance) {
      const std::string text =
          FormatText("channels %d and %d are at the same place, %g", last->channel, c.channel, c.place);
      if (!free) return std::string(kInvalidLocation) + " " + text;
      c.setAside = FormatText("is at the same place as channel %d", last->channel);
      Add(plan, FindingKind::Note, text + "; the first is taken");
      continue;
    }
    last = &c;
  }
  return {};
}

void MarkPlanned(const ShotChoices& choices, ShotPlan& plan) {
  std::vector<ShotChannel*> able;
  for (ShotChannel& c : plan.channels)
    if (!choices.channels.empty() || c.setAside.empty()) able.push_back(&c);
  if (!choices.channels.empty()) {
    for (ShotChannel* c : able) c->planned = true;
    return;
  }
  std::vector<double> distances;
  for (const ShotChannel* c : able) distances.push_back(c->distance);
  for (std::size_t i : PlannedPositions(distances, choices.nearest)) able[i]->planned = true;
}

void MakePairs(const ShotChoices& choices, ShotPlan& plan) {
  const auto planned = plan.planned();
  std::vector<double> distances;
  for (const ShotChannel* c : planned) distances.push_back(c->distance);
  auto pairs = PlannedPairs(distances);
  // A person who names two channels means this pair.
  if (choices.channels.size() == 2 && planned.size() == 2) pairs = {{0, 1}};
  for (const auto& [a, b] : pairs)
    plan.pairs.push_back({planned[a]->channel, planned[b]->channel, distances[a], distances[b],
                          choices.alpha > 0.0 ? distances[a] / choices.alpha : 0.0});
}

/// Common interval, first time and length of the planned channels.
std::string TakeSampling(const Shot& shot, const ShotChoices& choices, ShotPlan& plan) {
  const ShotTrace* first = nullptr;
  int longest = 0;
  for (const ShotChannel* c : plan.planned()) {
    const ShotTrace& t = *TraceOfChannel(shot, c->channel);
    const int samples = static_cast<int>(t.samples.size());
    if (!first) {
      first = &t;
      plan.interval = t.interval;
      plan.firstTime = t.firstTime;
      plan.samples = longest = samples;
    }
    if (std::fabs(t.interval - first->interval) > kSameInterval * first->interval)
      return FormatText("channel %d is sampled every %g s, and channel %d every %g s", t.channel, t.interval,
                        first->channel, first->interval);
    if (std::fabs(t.firstTime - first->firstTime) > kSameStart * first->interval)
      return FormatText("channel %d begins at %g s, and channel %d at %g s", t.channel, t.firstTime,
                        first->channel, first->firstTime);
    plan.skewDiffers = plan.skewDiffers || t.skew != first->skew;
    plan.samples = std::min(plan.samples, samples);
    longest = std::max(longest, samples);
  }
  if (longest > plan.samples)
    Add(plan, FindingKind::Doubt,
        shot.path + FormatText(": the channels have %d to %d samples; %d of each are taken", plan.samples,
                               longest, plan.samples));
  plan.wholeRate = WholeRateOf(first->intervalText, first->interval);
  if (choices.wholeRate && plan.wholeRate > 0)
    plan.interval = 1.0 / plan.wholeRate;
  else if (plan.wholeRate > 0)
    Add(plan, FindingKind::Note,
        FormatText("an interval of %s s is a rate of %.10g Hz; it may stand for %d Hz",
                   first->intervalText.c_str(), 1.0 / first->interval, plan.wholeRate));
  TimeLayout layout;
  const double last = plan.firstTime + (plan.samples - 1) * plan.interval;
  const int channels = choices.pairs ? 2 : static_cast<int>(plan.planned().size());
  if (!LayOutTimeRecord(plan.firstTime, last, plan.samples, channels, layout))
    return FormatText("no record can be made of %d channels of %d samples from %g to %g s", channels,
                      plan.samples, plan.firstTime, last);
  return {};
}

/// The corner of a filter, Hz; 0: off, or unknown.
double CornerOf(const std::string& filter) {
  return ParseReal(filter);
}

/// Processing by the recorder that affects phase or band of the channels.
void TellOfRecorder(const Shot& shot, const ShotChoices& choices, ShotPlan& plan) {
  const auto planned = plan.planned();
  const ShotTrace& first = *TraceOfChannel(shot, planned.front()->channel);
  double leastSkew = first.skew, mostSkew = first.skew;
  bool scaled = first.isScaled, differs = false;
  for (const ShotChannel* c : planned) {
    const ShotTrace& t = *TraceOfChannel(shot, c->channel);
    if (!t.setAside.empty())
      Add(plan, FindingKind::Doubt, shot.path + FormatText(": channel %d ", t.channel) + t.setAside);
    for (std::size_t i = 0; i < kShotFilters.size(); ++i)
      if (t.filters[i] != first.filters[i])
        Add(plan, FindingKind::Doubt,
            shot.path + FormatText(": channels %d and %d differ in ", first.channel, t.channel) +
                std::string(kShotFilters[i]) + " (" + first.filters[i] + ", " + t.filters[i] +
                "); the phase between them is not that of the ground alone");
    differs = differs || t.isScaled != scaled;
    leastSkew = std::min(leastSkew, t.skew);
    mostSkew = std::max(mostSkew, t.skew);
  }
  if (differs)
    Add(plan, FindingKind::Doubt,
        shot.path + ": only some channels have a scale; amplitudes cannot be compared between channels");
  if (plan.skewDiffers)
    Add(plan, choices.correctSkew ? FindingKind::Note : FindingKind::Doubt,
        FormatText(
            "the channels are sampled up to %g s apart (SKEW), which turns the phase of a pair by up to %g "
            "degrees per Hz; ",
            mostSkew - leastSkew, 360.0 * (mostSkew - leastSkew)) +
            (choices.correctSkew ? "the spectra are corrected for it"
                                 : "the spectra are not corrected for it"));
  const double bandEnd = 0.5 / plan.interval;
  for (std::size_t i : {kAliasFilter, kHighCutFilter})
    if (const double corner = CornerOf(first.filters[i]); corner > 0.0 && corner < bandEnd)
      Add(plan, FindingKind::Note,
          std::string(kShotFilters[i]) +
              FormatText(" ends the band of the recorder at %g Hz; the spectra reach to "
                         "%g Hz",
                         corner, bandEnd));
}

}  // namespace

std::vector<const ShotChannel*> ShotPlan::planned() const {
  std::vector<const ShotChannel*> which;
  for (const ShotChannel& c : channels)
    if (c.planned) which.push_back(&c);
  return which;
}

const ShotTrace* TraceOfChannel(const Shot& shot, int channel) {
  const auto at = std::find_if(shot.traces.begin(), shot.traces.end(),
                               [&](const ShotTrace& t) { return t.channel == channel; });
  return at == shot.traces.end() ? nullptr : &*at;
}

std::vector<std::size_t> PlannedPositions(const std::vector<double>& distances, double nearest) {
  const auto first = std::lower_bound(distances.begin(), distances.end(), nearest);
  if (first == distances.end()) return {};
  std::vector<std::size_t> positions{static_cast<std::size_t>(first - distances.begin())};
  const double r1 = *first;
  for (int k = 1; positions.back() + 1 < distances.size(); ++k) {
    const double wanted = r1 * std::pow(2.0, 0.5 * k);
    if (const std::size_t at = NearestTo(distances, wanted, positions.front()); at > positions.back())
      positions.push_back(at);
    if (wanted >= distances.back()) break;
  }
  return positions;
}

std::vector<std::array<std::size_t, 2>> PlannedPairs(const std::vector<double>& distances) {
  std::vector<std::array<std::size_t, 2>> pairs;
  for (std::size_t i = 0; i + 1 < distances.size(); ++i) {
    const std::size_t j = NearestTo(distances, 2.0 * distances[i], i + 1);
    const double share = (distances[j] - distances[i]) / distances[i];
    if (share >= kLeastSpacing && share <= kMostSpacing) pairs.push_back({i, j});
  }
  return pairs;
}

int WholeRateOf(std::string_view text, double interval) {
  constexpr double kExact = 1e-12, kLargestRate = 1e9;
  const double rate = 1.0 / interval;
  if (!(interval > 0.0) || !(rate < kLargestRate) || rate < 1.0) return 0;
  if (std::fabs(rate - std::round(rate)) <= kExact * rate) return 0;
  // Half a unit of the last digit in the text.
  std::string digits(text.substr(0, text.find_first_of("eEdD \t")));
  std::replace(digits.begin(), digits.end(), ',', '.');
  const std::size_t point = digits.find('.');
  const int decimals = point == std::string::npos ? 0 : static_cast<int>(digits.size() - point - 1);
  const double mantissa = ParseReal(digits);
  if (!(mantissa > 0.0)) return 0;
  const double half = 0.5 * std::pow(10.0, -decimals) * interval / mantissa;
  const double low = std::max(1.0 / (interval + half), rate * (1.0 - kRateShare));
  const double high =
      std::min(interval > half ? 1.0 / (interval - half) : kLargestRate, rate * (1.0 + kRateShare));
  const auto fits = [&](double whole) { return whole >= 1.0 && whole >= low && whole <= high; };
  for (double step = 1e8; step >= 10.0; step /= 10.0)
    if (const double whole = std::round(rate / step) * step; fits(whole)) return static_cast<int>(whole);
  const double power = std::exp2(std::round(std::log2(rate)));
  return fits(power) ? static_cast<int>(power) : 0;
}

std::string PairID(const std::string& measID, const ShotPair& pair) {
  return measID + FormatText("_%g_%g", pair.nearDistance, pair.farDistance);
}

std::string PlanShot(const Shot& shot, const ShotChoices& choices, ShotPlan& plan) {
  plan = {};
  if (choices.measID.empty()) return "Empty ID String !";
  if (shot.traces.size() < 2) return "the file has one complete channel, and a pair takes two";
  std::string reason = CheckChosen(shot, choices);
  ShotPlaces places;
  if (reason.empty()) reason = PlaceShot(shot, choices, places);
  if (reason.empty()) reason = TakeUnit(shot, choices, plan);
  if (reason.empty() && !(std::fabs(places.source) <= kFarthestPlace))
    reason = std::string(kInvalidLocation) + FormatText(" The source is at %g.", places.source);
  if (reason.empty()) reason = Candidates(shot, choices, places, plan.channels);
  if (reason.empty()) reason = TakeSide(choices, places, plan);
  if (reason.empty()) reason = DropDoubles(choices, plan);
  if (!reason.empty()) return reason;
  plan.source = places.source;
  plan.findings.insert(plan.findings.end(), places.findings.begin(), places.findings.end());
  MarkPlanned(choices, plan);
  if (plan.planned().size() < 2)
    return FormatText("%zu receivers can be used, and a pair takes two", plan.planned().size());
  if (choices.pairs) MakePairs(choices, plan);
  if (choices.pairs && plan.pairs.empty())
    return "no two receivers have a spacing of 0.5 to 2 times the near distance";
  if (choices.measID.size() + kRoomForDistances > kLongestID) return "the id is too long";
  reason = TakeSampling(shot, choices, plan);
  if (reason.empty()) TellOfRecorder(shot, choices, plan);
  return reason;
}

}  // namespace sondera
