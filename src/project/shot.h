// shot.h - one shot of a line of receivers, as a recorder's file gives it, whatever the format: what the plan
// (shot_plan.h) and the import (shot_import.h) work on.
//
// The readers of formats fill it: import_seg2.h, shot_columns.h. Owned state: none.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/findings.h"

namespace sondera {

/// What the recorder did to all or single channels. The names are those of the keys in SEG-2 files.
inline constexpr std::array<std::string_view, 4> kShotFilters = {"ALIAS_FILTER", "LOW_CUT_FILTER",
                                                                 "HIGH_CUT_FILTER", "POLARITY"};
inline constexpr std::size_t kAliasFilter = 0, kHighCutFilter = 2, kPolarity = 3;

/// One channel.
struct ShotTrace {
  int channel = 0;                       ///< place in the file, from 1
  std::vector<double> samples;           ///< as recorded
  double scale = 1.0;                    ///< V per unit of the samples; 1 where the file tells none
  bool isScaled = false;                 ///< scale is the file's
  double interval = 0.0;                 ///< s
  std::string intervalText;              ///< the interval as the file writes it
  double firstTime = 0.0;                ///< s, time of the first sample against the shot
  std::vector<double> receiver, source;  ///< 1 to 3 coordinates; empty: the file does not tell
  double skew = 0.0;                     ///< s, by how much this channel is sampled later than its times say
  std::array<std::string, kShotFilters.size()> filters;  ///< texts of kShotFilters
  std::string setAside;  ///< why nobody would take this channel unasked; empty: nothing against it
};

struct Shot {
  std::string path;
  double lengthUnit = 0.0;                      ///< metres per unit; 0: the file does not tell
  std::string receiverKey, sourceKey, unitKey;  ///< what to ask for when the file does not tell
  std::vector<ShotTrace> traces;
  std::vector<Finding> findings;  ///< for the report of an import
};

/// Reads a file into a shot. Empty, or why not (without the name of the file).
using ReadShot = std::function<std::string(const std::string& path, Shot& shot)>;

/// What is wrong with the samples of a channel, as the end of a sentence that begins with the channel: dead,
/// clipped, numbers that are not finite. Empty: nothing.
std::string SampleFault(const std::vector<double>& samples);

/// Whether all samples are numbers whose powers stay in the range of a double.
bool SamplesAreUsable(const std::vector<double>& samples, double scale);

/// Reads a whole file into memory. Empty, or why not; larger ones than any record can hold are refused.
std::string ReadShotBytes(const std::string& path, std::string& bytes);

}  // namespace sondera
