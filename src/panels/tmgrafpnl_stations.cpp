// tmgrafpnl_stations.cpp - see tmgrafpnl_stations.h.
#include "panels/tmgrafpnl_stations.h"

#include <cmath>
#include <memory>
#include <optional>
#include <utility>

#include "panels/section_stations.h"
#include "panels/tmgrafpnl.h"
#include "project/station_file.h"
#include "records/selection.h"
#include "records/session.h"
#include "runtime/catalogue/tmgrafpnl.h"
#include "runtime/dialogs.h"
#include "runtime/findings.h"
#include "runtime/paths.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

using namespace tmgrafpnl;

constexpr int kNumberLength = 40;

/// The name of a file without folder and extension.
std::string BaseNameOf(const std::string& path) {
  const std::string name = FileNameOf(path);
  return name.substr(0, name.rfind('.'));
}

void Convert(DispInfo& curve, double factor) {
  for (const auto array : {&DispInfo::vel, &DispInfo::wlen, &DispInfo::stat2})
    for (double& value : curve.*array) value *= factor;
}

std::optional<double> NumberOf(const std::string& text) {
  std::size_t used = 0;
  const double number = ParseReal(text, &used);
  const bool rest = text.find_first_not_of(" \t", used) != std::string::npos;
  if (used == 0 || rest || !std::isfinite(number)) return std::nullopt;
  return number;
}

}  // namespace

int AddStation(const std::string& path, double location) {
  StationCurves station;
  if (ShowRefusal(ReadStationFile(path, station)) < 0) return -1;
  const bool known = station.lengthUnit > 0.0 && session.lengthUnit > 0.0;
  if (known && station.lengthUnit != session.lengthUnit) {
    for (auto& curve : station.curves) Convert(*curve, station.lengthUnit / session.lengthUnit);
    AddNote(FormatText("%s is in %s; its curve was converted to %s.", FileNameOf(path).c_str(),
                       LengthUnitText(station.lengthUnit).c_str(),
                       LengthUnitText(session.lengthUnit).c_str()));
  }
  for (auto& curve : station.curves) {
    const std::string name = curve->label.empty() ? BaseNameOf(path) : curve->label;
    curve->key = 0;
    curve->refChan = curve->dspChan = 1;
    curve->valid = 1;
    curve->wlenMax = location;
    curve->label = name + FormatText("@%g", location);
    MeasDB.gDispList.append(std::move(curve));
  }
  RenewSectionPanel();
  return 0;
}

int StationLocationCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  DispInfo* curve = SelectedStation(LIST_INCLUDED);
  if (!curve) return -1;
  curve->wlenMax = GetCtrlVal(SRCPOS);
  const int index = GetCtrlIndex(LIST_INCLUDED);
  RenewSectionPanel();
  SetCtrlIndex(LIST_INCLUDED, index);
  return 0;
}

int AddStationCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const FileChoice choice = FileSelectPopup(
      {ProjectDirectory(), "*.*", "Add a station: project (.da) or global curve (.gcd).", false});
  if (choice.answer == FileAnswer::IsNew) return Refuse("File does not exist.");
  if (choice.answer != FileAnswer::Exists) return -1;
  const std::optional<std::string> text =
      PromptPopup(session.appTitle, "Location of the station on the line:", kNumberLength);
  if (!text) return -1;
  const std::optional<double> location = NumberOf(*text);
  if (!location) return Refuse("The location of a station is a number.");
  return AddStation(choice.path, *location);
}

}  // namespace sondera
