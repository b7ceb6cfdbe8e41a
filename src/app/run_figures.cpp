// run_figures.cpp - see run_figures.h.
#include "app/run_figures.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>

#include "app/table_export.h"
#include "run/run_history.h"
#include "runtime/findings.h"
#include "signal/pair_figures.h"

namespace sondera {
namespace {

using Json = nlohmann::ordered_json;

Json NumberOrNull(double value) {
  return std::isfinite(value) ? Json(value) : Json(nullptr);
}
Json Velocity(const std::optional<double>& value) {
  return value ? NumberOrNull(RoundedFigure(*value)) : Json(nullptr);
}

void AddInversion(double lengthUnit, Json& json) {
  json["rms"] = json["iterations"] = nullptr;
  if (InversionHistories().empty() || InversionHistories().back().iterations.empty()) return;
  const auto& iterations = InversionHistories().back().iterations;
  if (iterations.back().rms >= 0.0) json["rms"] = NumberOrNull(iterations.back().rms * lengthUnit);
  json["iterations"] = iterations.back().iteration;
}

void AddFigures(const ProjectTables& tables, Json& json) {
  for (const char* key : {"seen_to", "vs30", "vs30_low", "vs30_high", "classes"}) json[key] = nullptr;
  const ProfileTable* profile = FinalProfile(tables);
  if (!profile || profile->figures.figures.empty()) return;
  const SiteFigure& vs30 = profile->figures.figures.front();
  json["seen_to"] = NumberOrNull(profile->figures.seen.depth);
  json["vs30"] = Velocity(vs30.value);
  json["vs30_low"] = Velocity(vs30.low);
  json["vs30_high"] = Velocity(vs30.high);
  std::string classes;
  for (const SiteClass& c : profile->classes) classes += (classes.empty() ? "" : "; ") + ClassText(c);
  if (!classes.empty()) json["classes"] = classes;
}

}  // namespace

std::string RunFiguresText() {
  const ProjectTables tables = OpenProjectTables(false);
  Json json;
  int points = 0;
  double longest = 0.0;
  const auto pairs = FiguresOfIncludedPairs();
  for (const PairFigures& f : pairs) {
    points += f.points;
    longest = std::max(longest, f.longest * f.unit);
  }
  json["pairs"] = pairs.size();
  json["points"] = points;
  AddInversion(tables.lengthUnit, json);
  json["longest_wavelength"] = longest > 0.0 ? Json(longest) : Json(nullptr);
  AddFigures(tables, json);
  json["doubts"] = DoubtCount();
  return json.dump(1, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace sondera
