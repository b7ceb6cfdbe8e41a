// station_fuzz.cpp - any bytes as the curves of a station, a text or a project: they come in without harm to the open
// project, and a section of them ends, with a number not below 0 or no value at each node.
#include <cmath>
#include <cstdint>
#include <string_view>
#include <utility>

#include "demand.h"
#include "panels/section_stations.h"
#include "project/station_file.h"
#include "records/measdb.h"
#include "records/session.h"
#include "signal/section.h"

using namespace sondera;
using fuzz::Demand;

namespace {

void Draw(bool fill) {
  const std::vector<SectionStation> stations = SectionStations();
  const SectionRanges r = FindSectionRanges(stations, {});
  const SectionSamples samples = CollectSamples(stations);
  Listener nobody;
  SectionGrid grid;
  if (DoKriging(samples, {{r.dMin, r.dMax, r.wlMin, r.wlMax}, 4, 3, fill}, nobody, grid)) return;
  Demand(grid.value.size() == 20);
  for (const double v : grid.value) Demand(std::isnan(v) || (std::isfinite(v) && v >= 0.0));
  Demand(GridCsv(grid).find("nan") == std::string::npos);
  StackCurves(stations);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  ResetSession();
  SetupGlobalArrays();
  FreeGlobalArrays();
  InsertNewIDInfo("P", "M");
  StationCurves station;
  if (bytes.starts_with("ProjID:")) {
    TextReader text;
    text.OpenMemory(bytes);
    ReadStationText(text, station);
  } else {
    SectionReader file;
    file.OpenMemory(data, size);
    ReadStationProject(file, station);
  }
  Demand(MeasDB.idList.count() == 1 && MeasDB.gDispList.empty());
  for (auto& curve : station.curves) {
    Demand(curve->nPoints > 0);
    curve->valid = 1;
    MeasDB.gDispList.append(std::move(curve));
  }
  std::size_t points = 0;
  for (const DispInfo& curve : MeasDB.gDispList) points += static_cast<std::size_t>(curve.nPoints);
  if (points > 300) return 0;  // kriging of more takes its time, and tests nothing new
  Draw(false);
  Draw(true);
  return 0;
}
