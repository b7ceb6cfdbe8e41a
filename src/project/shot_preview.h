// shot_preview.h - what was understood of the first file of an import, as plain data and as text, before anything is
// imported: so that a person sees the plan, and is asked for what neither the file nor the choices tell.
//
// Owned state: none.
#pragma once

#include <string>
#include <vector>

#include "project/shot_import.h"

namespace sondera {

/// One channel of the first file, in its order.
struct PreviewChannel {
  int channel = 0;  ///< from 1
  int samples = 0;
  double interval = 0.0, firstTime = 0.0;  ///< s
  std::vector<double> receiver;            ///< coordinates of the file; empty: it does not tell
  double largest = 0.0;                    ///< largest amplitude, V where isScaled, else as recorded
  bool isScaled = false, planned = false;
  double distance = 0.0;  ///< from the source, in the unit of the plan; 0 without a plan
  std::string remark;     ///< why it is not planned, where that has a reason
};

struct ShotPreview {
  std::string path;
  std::string fault;               ///< why the file cannot be read; nothing else is there then
  std::vector<std::string> texts;  ///< what the file says of itself
  std::vector<PreviewChannel> channels;
  std::vector<double> source;  ///< coordinates of the file
  double lengthUnit = 0.0;     ///< metres per unit of the file; 0: it does not tell
  std::string question;        ///< what has to be answered before there is a plan; empty: the plan holds
  ShotPlan plan;
  std::vector<std::string> exist;  ///< measurements of the plan that the project has already
  std::vector<Finding> findings;
};

/// Reads the first file and plans it. Nothing changes.
ShotPreview PreviewShots(const ShotRequest& request);

/// Lines for a window or a terminal: file, channels, plan or question, findings.
std::string PreviewText(const ShotPreview& preview);

}  // namespace sondera
