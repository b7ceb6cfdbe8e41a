// section_stations.cpp - see section_stations.h.
#include "panels/section_stations.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

#include "runtime/catalogue/tmgrafpnl.h"

namespace sondera {

using tmgrafpnl::LIST_INCLUDED;

std::vector<SectionStation> SectionStations() {
  std::vector<SectionStation> stations;
  for (const DispInfo& curve : MeasDB.gDispList) {
    const int held =
        std::min({curve.nPoints, static_cast<int>(curve.wlen.size()), static_cast<int>(curve.vel.size())});
    const auto n = static_cast<std::ptrdiff_t>(std::max(held, 0));
    SectionStation s;
    s.label = curve.label;
    s.location = curve.wlenMax;
    s.valid = curve.valid == 1;
    s.wlen.assign(curve.wlen.data(), curve.wlen.data() + n);
    s.vel.assign(curve.vel.data(), curve.vel.data() + n);
    stations.push_back(std::move(s));
  }
  return stations;
}

DispInfo* SelectedStation(const ListControl& list) {
  const int index = GetCtrlIndex(list);
  if (index < 0) return nullptr;
  const bool included = &list == &LIST_INCLUDED;
  const std::string label = GetLabelFromIndex(list, index);
  const auto fits = [&](const DispInfo& curve) {
    return curve.label == label && (curve.valid == 1) == included;
  };
  DispInfo* curve = MeasDB.gDispList.at(static_cast<int>(GetValueFromIndex(list, index)));
  if (curve && fits(*curve)) return curve;
  for (DispInfo& other : MeasDB.gDispList)
    if (fits(other)) return &other;
  return nullptr;
}

}  // namespace sondera
