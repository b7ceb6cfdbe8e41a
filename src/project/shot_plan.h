// shot_plan.h - from a shot over a line of receivers to receiver pairs of a surface-wave test: side of the
// source, channels, pairs.
//
// The receivers of one side are ordered by their distance from the source. The first receiver is the nearest
// one at or beyond the smallest wanted distance; the others are those nearest to its distance times sqrt(2),
// 2, 2 sqrt(2), ... Each first receiver of a pair is combined with the planned one nearest to twice its
// distance, if their spacing is 0.5 to 2 times the near distance. The longest usable wavelength of a pair is
// its near distance / alpha, where alpha is the wavelength criterion of the dispersion curves.
//
// Accepts choices and returns a reason, so that a dialog can show the plan, ask for missing values, and
// change it (ShotPair::use) before the import. Shows nothing itself. Owned state: none.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "project/shot.h"
#include "project/shot_choices.h"

namespace sondera {

/// A channel in the order of distance.
struct ShotChannel {
  int channel = 0;  ///< from 1
  double place = 0.0, distance = 0.0;
  bool planned = false;
  std::string setAside;  ///< special reason why it is not planned, if any
};

struct ShotPair {
  int near = 0, far = 0;  ///< channels, from 1
  double nearDistance = 0.0, farDistance = 0.0;
  double longestWavelength = 0.0;
  bool use = true;
  double spacing() const { return farDistance - nearDistance; }
};

struct ShotPlan {
  double lengthUnit = 1.0;  ///< metres per unit
  double source = 0.0;
  std::vector<ShotChannel> channels;       ///< those of the side, by distance
  std::vector<ShotPair> pairs;             ///< empty for one measurement of all
  double interval = 0.0, firstTime = 0.0;  ///< s
  int samples = 0;
  int wholeRate = 0;         ///< Hz; whole rate that the interval's text may mean, 0: none
  bool skewDiffers = false;  ///< among the planned channels
  std::vector<Finding> findings;

  /// Planned channels by distance: positions of the traces in the shot, from 0, are channelOf(...).
  std::vector<const ShotChannel*> planned() const;
};

/// Makes the plan. Empty, or the reason why there is none: a location that neither the file nor the choices
/// give, receivers on both sides without a chosen side, unequal sampling, fewer than two receivers.
std::string PlanShot(const Shot& shot, const ShotChoices& choices, ShotPlan& plan);

/// Channels by the rule, as positions in distances (ascending, above 0).
std::vector<std::size_t> PlannedPositions(const std::vector<double>& distances, double nearest);
/// Pairs by the rule among planned distances (ascending): positions of first and second.
std::vector<std::array<std::size_t, 2>> PlannedPairs(const std::vector<double>& distances);

/// The round number of Hz (a multiple of 10, or a power of two) that differs from 1 / interval by no more
/// than the last digit of its text; 0 for none, or where 1 / interval is already a whole number.
int WholeRateOf(std::string_view intervalText, double interval);

/// "ID_10_20"
std::string PairID(const std::string& measID, const ShotPair& pair);

/// The trace of a channel; null without one.
const ShotTrace* TraceOfChannel(const Shot& shot, int channel);

}  // namespace sondera
