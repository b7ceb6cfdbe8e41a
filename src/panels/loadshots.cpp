// loadshots.cpp - see loadshots.h.
#include "panels/loadshots.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "panels/loadtxdata_import.h"
#include "project/import_seg2.h"
#include "project/shot_columns.h"
#include "project/shot_preview.h"
#include "records/session.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/loadshots.h"
#include "runtime/dialogs.h"
#include "runtime/paths.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

using namespace loadshots;

constexpr int kUse = 1, kNear = 2, kFar = 3;  // columns of the pair table; rows and columns count from 1
constexpr int kColumnsOfText = 1;

std::string Trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(" \t");
  return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

/// Parts between commas, without those that are empty.
std::vector<std::string> Parts(const std::string& text) {
  std::vector<std::string> parts;
  for (std::size_t at = 0; at <= text.size();) {
    const std::size_t end = std::min(text.find(',', at), text.size());
    if (std::string part = Trimmed(text.substr(at, end - at)); !part.empty())
      parts.push_back(std::move(part));
    at = end + 1;
  }
  return parts;
}

bool ReadReal(const std::string& text, double& value) {
  std::size_t used = 0;
  value = ParseReal(text, &used);
  return used == text.size() && std::isfinite(value);
}

/// Numbers of a field. Empty, or the sentence that refuses it.
std::string ReadNumbers(const TextControl& field, std::vector<double>& numbers) {
  for (const std::string& part : Parts(GetCtrlVal(field))) {
    double value = 0.0;
    if (!ReadReal(part, value))
      return "\"" + part + "\" in \"" + std::string(field.label) + "\" is no number.";
    numbers.push_back(value);
  }
  return {};
}

std::string ReadChannels(std::vector<int>& channels) {
  std::vector<double> numbers;
  if (std::string reason = ReadNumbers(CHANNELS, numbers); !reason.empty()) return reason;
  for (const double n : numbers) {
    if (!(n >= 1.0) || n != std::floor(n) || n > 1e6) return "Channels are whole numbers from 1 on.";
    channels.push_back(static_cast<int>(n));
  }
  return {};
}

}  // namespace

std::string ReadShotsPanel(ShotRequest& request) {
  request.projID = GetCtrlVal(hmsetup::PROJID);
  for (const std::string& file : Parts(GetCtrlVal(FILES)))
    request.files.push_back(JoinUnlessAbsolute(CurrentDirectory(), file));
  if (GetCtrlVal(FORMAT) == kColumnsOfText)
    request.read = ColumnReader(GetCtrlVal(INTERVAL));
  else
    request.read = ReadSeg2Shot;
  ShotChoices& choices = request.choices;
  choices.measID = GetCtrlVal(MEASID);
  choices.pairs = GetCtrlVal(PAIRS) == 1;
  constexpr ShotSide kSideOf[] = {ShotSide::Unset, ShotSide::Left, ShotSide::Right};
  choices.side = kSideOf[std::clamp(GetCtrlVal(SIDE), 0, 2)];
  choices.nearest = GetCtrlVal(NEAREST);
  choices.lengthUnit = GetCtrlVal(UNIT);
  choices.placesUnit = session.lengthUnit;
  choices.alpha = session.alphaWlen;
  choices.wholeRate = GetCtrlVal(WHOLERATE) == 1;
  choices.correctSkew = GetCtrlVal(SKEW) == 1;
  std::vector<double> source;
  std::string reason = ReadChannels(choices.channels);
  if (reason.empty()) reason = ReadNumbers(SOURCE, source);
  if (reason.empty() && source.size() > 1) reason = "The source has one place on the line.";
  if (reason.empty()) reason = ReadNumbers(RECEIVERS, choices.at);
  if (source.size() == 1) choices.source = source.front();
  return reason;
}

namespace {

/// Pairs of the table that are not ticked, as channels.
bool IsTickedOff(const ShotPair& pair) {
  for (int row = 1; row <= GetNumTableRows(PAIRTABLE); ++row)
    if (GetTableCellVal(PAIRTABLE, row, kNear) == pair.near &&
        GetTableCellVal(PAIRTABLE, row, kFar) == pair.far)
      return GetTableCellVal(PAIRTABLE, row, kUse) == 0.0;
  return false;
}

void KeepTicks(ShotPlan& plan) {
  for (ShotPair& pair : plan.pairs) pair.use = !IsTickedOff(pair);
}

void ShowPairs(const ShotPlan& plan) {
  SetNumTableRows(PAIRTABLE, static_cast<int>(plan.pairs.size()));
  for (int row = 1; row <= GetNumTableRows(PAIRTABLE); ++row) {
    const ShotPair& pair = plan.pairs[static_cast<std::size_t>(row - 1)];
    const double cells[] = {pair.use ? 1.0 : 0.0,
                            static_cast<double>(pair.near),
                            static_cast<double>(pair.far),
                            pair.nearDistance,
                            pair.spacing(),
                            pair.farDistance,
                            pair.longestWavelength};
    for (int column = 0; column < static_cast<int>(std::size(cells)); ++column)
      SetTableCellVal(PAIRTABLE, row, column + 1, cells[column]);
  }
}

void ShowPreview() {
  ShotRequest request;
  const std::string reason = ReadShotsPanel(request);
  ShotPreview preview;
  if (reason.empty()) {
    preview = PreviewShots(request);
    KeepTicks(preview.plan);
    ResetTextBox(PREVIEW, PreviewText(preview));
  } else {
    ResetTextBox(PREVIEW, reason + "\n");
  }
  ShowPairs(preview.question.empty() && preview.fault.empty() ? preview.plan : ShotPlan{});
}

}  // namespace

bool AnyPairTickedOff() {
  for (int row = 1; row <= GetNumTableRows(PAIRTABLE); ++row)
    if (GetTableCellVal(PAIRTABLE, row, kUse) == 0.0) return true;
  return false;
}

int LoadShotsCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  DisplayPanel(Panel::LOADSHOTS);
  ShowPreview();
  return 0;
}

int AddShotFileCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const char* filter = GetCtrlVal(FORMAT) == kColumnsOfText ? "*.*" : "*.sg2;*.seg2;*.dat;*.*";
  const FileChoice choice = FileSelectPopup({ProjectDirectory(), filter, "File Open", false});
  if (choice.answer == FileAnswer::Cancelled) return 0;
  if (choice.answer != FileAnswer::Exists) return Refuse("File does not exist.");
  if (choice.path.find(',') != std::string::npos)
    return Refuse("The name of a shot's file may not have a comma.");
  const std::string files = GetCtrlVal(FILES);
  SetCtrlVal(FILES, Trimmed(files).empty() ? choice.path : files + "," + choice.path);
  ShowPreview();
  return 0;
}

int PreviewShotsCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit) ShowPreview();
  return 0;
}

int ImportShotsCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  ShotRequest request;
  std::string reason = ReadShotsPanel(request);
  if (!reason.empty()) return Refuse(reason);
  ShotPreview preview = PreviewShots(request);
  if (!preview.fault.empty())
    return Refuse((preview.path.empty() ? "" : preview.path + ": ") + preview.fault + ".");
  if (!preview.question.empty()) return Refuse(preview.question);
  KeepTicks(preview.plan);
  const std::vector<std::string> exist = MeasurementsThatExist(request, preview.plan);
  if (!exist.empty()) {
    if (!AskToOverwrite()) return -1;
    request.choices.overwrite = true;
  }
  reason = LoadShots(request, preview.plan);
  if (!reason.empty()) return Refuse(reason);
  HidePanel(Panel::LOADSHOTS);
  return 0;
}

int CloseShotsCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit) HidePanel(Panel::LOADSHOTS);
  return 0;
}

}  // namespace sondera
