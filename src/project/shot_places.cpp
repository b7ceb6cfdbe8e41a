// shot_places.cpp - see shot_places.h. Owns no state.
#include "project/shot_places.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();
constexpr double kBesideShare = 0.01;  // of the line's length; farther beside it the distances are wrong

using Point = std::array<double, 3>;

Point PointOf(const std::vector<double>& location) {
  Point p{};
  std::copy_n(location.begin(), std::min(location.size(), p.size()), p.begin());
  return p;
}

Point Minus(const Point& a, const Point& b) {
  return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}
double Dot(const Point& a, const Point& b) {
  return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}
double Length(const Point& a) {
  return std::hypot(a[0], a[1], a[2]);
}

/// Source and receivers of the file; traces without a location are left out.
struct Points {
  std::vector<Point> all;            // receivers, followed by the source if there is one
  std::vector<std::size_t> traceOf;  // of each receiver
};

/// The only coordinate in which the points differ; -1 where several differ.
int OnlyDirection(const std::vector<Point>& points) {
  int direction = 0, differing = 0;
  for (int d = 0; d < 3; ++d)
    if (std::any_of(points.begin(), points.end(), [&](const Point& p) {
          return p[static_cast<std::size_t>(d)] != points.front()[static_cast<std::size_t>(d)];
        })) {
      direction = d;
      ++differing;
    }
  return differing > 1 ? -1 : direction;
}

/// Places along the line from the first receiver to the one farthest from it.
std::vector<double> Projected(const Points& points, ShotPlaces& places) {
  const Point& first = points.all.front();
  Point end = first;
  for (std::size_t i = 0; i < points.traceOf.size(); ++i)
    if (Length(Minus(points.all[i], first)) > Length(Minus(end, first))) end = points.all[i];
  const double length = Length(Minus(end, first));
  std::vector<double> along;
  double beside = 0.0;
  for (const Point& p : points.all) {
    const Point d = Minus(p, first);
    const double x = Dot(d, Minus(end, first)) / length;
    along.push_back(x);
    beside = std::max(beside, std::sqrt(std::max(Dot(d, d) - x * x, 0.0)));
  }
  places.findings.push_back(
      {FindingKind::Note,
       "the locations have several coordinates; places count along the line of receivers"});
  if (beside > kBesideShare * length)
    places.findings.push_back(
        {FindingKind::Doubt,
         FormatText(
             "source or receivers are up to %g beside their line; the distances along it are too short",
             beside)});
  return along;
}

/// The location of the source, if all traces agree on it. Empty text, or why there is none.
std::string SourceOf(const Shot& shot, std::vector<double>& location) {
  const ShotTrace* first = nullptr;
  for (const ShotTrace& trace : shot.traces) {
    if (trace.source.empty()) continue;
    if (first && PointOf(trace.source) != PointOf(first->source))
      return FormatText("channels %d and %d name different sources; give the place of the source",
                        first->channel, trace.channel);
    if (!first) first = &trace;
  }
  if (!first) return shot.sourceKey + " is missing; give the place of the source";
  location = first->source;
  return {};
}

std::string TakeGivenPlaces(const Shot& shot, const ShotChoices& choices, ShotPlaces& places) {
  if (!choices.source) return "the places of the receivers are given, and that of the source is not";
  const std::size_t wanted = choices.channels.empty() ? shot.traces.size() : choices.channels.size();
  if (choices.at.size() != wanted)
    return FormatText("%zu places are given for %zu channels", choices.at.size(), wanted);
  places.source = *choices.source;
  for (std::size_t i = 0; i < wanted; ++i) {
    const int channel = choices.channels.empty() ? shot.traces[i].channel : choices.channels[i];
    for (std::size_t t = 0; t < shot.traces.size(); ++t)
      if (shot.traces[t].channel == channel) places.receivers[t] = choices.at[i];
  }
  return {};
}

}  // namespace

std::string PlaceShot(const Shot& shot, const ShotChoices& choices, ShotPlaces& places) {
  places = {};
  places.receivers.assign(shot.traces.size(), kUnknown);
  if (!choices.at.empty()) return TakeGivenPlaces(shot, choices, places);
  Points points;
  for (std::size_t t = 0; t < shot.traces.size(); ++t)
    if (!shot.traces[t].receiver.empty()) {
      points.all.push_back(PointOf(shot.traces[t].receiver));
      points.traceOf.push_back(t);
    }
  const bool allEqual = std::all_of(points.all.begin(), points.all.end(),
                                    [&](const Point& p) { return p == points.all.front(); });
  if (points.all.empty() || (allEqual && points.all.size() > 1))
    return shot.receiverKey + (points.all.empty() ? " is missing" : " is the same for all channels") +
           "; give the places of the receivers";
  if (!choices.source) {
    std::vector<double> location;
    if (std::string reason = SourceOf(shot, location); !reason.empty()) return reason;
    points.all.push_back(PointOf(location));
  }
  const int direction = OnlyDirection(points.all);
  std::vector<double> along;
  if (direction < 0) along = Projected(points, places);
  for (const Point& p : points.all)
    if (direction >= 0) along.push_back(p[static_cast<std::size_t>(direction)]);
  for (std::size_t i = 0; i < points.traceOf.size(); ++i) places.receivers[points.traceOf[i]] = along[i];
  places.source = choices.source ? *choices.source : along.back();
  return {};
}

}  // namespace sondera
