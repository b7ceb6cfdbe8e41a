// shot.h - one shot of a line of receivers from a recorder's file of any format: input of the plan
// (shot_plan.h) and the import (shot_import.h).
//
// The readers of the formats fill it: import_seg2.h, shot_columns.h. Owned state: none.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/findings.h"

namespace sondera {

/// Processing by the recorder of all or single channels. The names are those of the keys in SEG-2 files.
inline constexpr std::array<std::string_view, 4> kShotFilters = {"ALIAS_FILTER", "LOW_CUT_FILTER",
                                                                 "HIGH_CUT_FILTER", "POLARITY"};
inline constexpr std::size_t kAliasFilter = 0, kHighCutFilter = 2, kPolarity = 3;

/// One channel.
struct ShotTrace {
  int channel = 0;                       ///< place in the file, from 1
  std::vector<double> samples;           ///< as recorded
  double scale = 1.0;                    ///< V per unit of the samples; 1 where the file has none
  bool isScaled = false;                 ///< the scale comes from the file
  double interval = 0.0;                 ///< s
  std::string intervalText;              ///< the interval as text of the file
  double firstTime = 0.0;                ///< s, time of the first sample relative to the shot
  std::vector<double> receiver, source;  ///< 1 to 3 coordinates; empty: not in the file
  double skew = 0.0;                     ///< s, delay of this channel's samples relative to its times
  std::array<std::string, kShotFilters.size()> filters;  ///< texts of kShotFilters
  std::string setAside;  ///< why the channel is not used without a request; empty: no objection
};

struct Shot {
  std::string path;
  double lengthUnit = 0.0;                      ///< metres per unit; 0: not in the file
  std::string receiverKey, sourceKey, unitKey;  ///< question for missing information of the file
  std::vector<ShotTrace> traces;
  std::vector<std::string> texts;  ///< what the file says of itself, for people: names, dates, notes
  std::vector<Finding> findings;   ///< for the report of an import
};

/// Reads a file into a shot. Empty, or why it cannot be read (without the name of the file).
using ReadShot = std::function<std::string(const std::string& path, Shot& shot)>;

/// Fault of a channel's samples, as the end of a sentence that begins with the channel: dead, clipped,
/// numbers that are not finite. Empty: none.
std::string SampleFault(const std::vector<double>& samples);

/// Whether all samples are numbers whose squares do not overflow.
bool SamplesAreUsable(const std::vector<double>& samples, double scale);

/// Reads a whole file into memory. Empty, or why not; files larger than any record are refused.
std::string ReadShotBytes(const std::string& path, std::string& bytes);

}  // namespace sondera
