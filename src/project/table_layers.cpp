// table_layers.cpp - layer tables in the formats of other programs. See table_forms.h.
#include <algorithm>
#include <cmath>

#include "project/number_table.h"
#include "project/table_forms.h"
#include "run/layer_table.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr double kKilo = 1000.0;
constexpr std::size_t kMostLayers = 1000;
constexpr std::size_t kColumns = 4, kWithQuality = 6;  // Qp and Qs may follow

/// Factor that converts densities as entered to kg/m3; 0 where their unit is unknown.
double DensityFactor(const std::vector<ProfileLayer>& layers) {
  const auto all = [&](double low, double high) {
    return std::all_of(layers.begin(), layers.end(),
                       [&](const ProfileLayer& l) { return l.density >= low && l.density <= high; });
  };
  return all(0.5, 5.0) ? kKilo : all(500.0, 5000.0) ? 1.0 : 0.0;
}

std::string Row(const LayeredModel& m, std::size_t i, double length, double density) {
  return ShortestText(m.thickness[i] / length) + " " + ShortestText(m.vp[i] / length) + " " +
         ShortestText(m.vs[i] / length) + " " + ShortestText(m.density[i] / density) + "\n";
}

std::string TakeRows(const NumberTable& table, double length, double density, LayeredModel& model) {
  if (table.columns.size() != kColumns && table.columns.size() != kWithQuality)
    return FormatText("a layer is thickness, Vp, Vs and density, and here are %zu numbers",
                      table.columns.size());
  if (table.rows() > kMostLayers) return FormatText("there are more than %zu layers", kMostLayers);
  for (std::size_t i = 0; i < table.rows(); ++i) {
    const double h = table.columns[0][i] * length, vp = table.columns[1][i] * length,
                 vs = table.columns[2][i] * length, rho = table.columns[3][i] * density;
    const bool last = i + 1 == table.rows();
    const auto good = [](double v) { return std::isfinite(v) && v > 0.0; };
    if (!good(vp) || !good(vs) || !good(rho) || !std::isfinite(h) || h < 0.0 || (h == 0.0 && !last))
      return FormatText("layer %zu has a thickness of %g, Vp of %g, Vs of %g and a density of %g", i + 1,
                        table.columns[0][i], table.columns[1][i], table.columns[2][i], table.columns[3][i]);
    model.thickness.push_back(h);
    model.vp.push_back(vp);
    model.vs.push_back(vs);
    model.density.push_back(rho);
  }
  return {};
}

/// The first line that is neither empty nor a comment, and the text after it.
std::string_view FirstLine(std::string_view& text) {
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    const std::size_t begin = line.find_first_not_of(" \t\r");
    if (begin != std::string_view::npos && line[begin] != '#') return line;
  }
  return {};
}

}  // namespace

std::string LayeredModelOf(const ProfileTable& profile, double lengthUnit, LayeredModel& model) {
  model = {};
  const double factor = DensityFactor(profile.layers);
  if (profile.layers.empty()) return "there are no layers";
  if (factor == 0.0)
    return "the densities are neither all between 0.5 and 5 (g/cm3) nor all between 500 and 5000 (kg/m3), so "
           "that "
           "their unit is not known";
  for (const ProfileLayer& l : profile.layers) {
    // A table that a person entered may have Poisson's ratio instead.
    const double vp = l.vp > 0.0 ? l.vp : VpFromPoisson(l.vs, l.poisson);
    if (!(vp > 0.0) || !std::isfinite(vp)) return "a layer has neither Vp nor a Poisson's ratio below 0.5";
    model.thickness.push_back(std::isnan(l.thickness) ? 0.0 : l.thickness * lengthUnit);
    model.vp.push_back(vp * lengthUnit);
    model.vs.push_back(l.vs * lengthUnit);
    model.density.push_back(l.density * factor);
  }
  return {};
}

std::string LayersText(const LayeredModel& model) {
  std::string text = std::to_string(model.size()) + "\n";
  for (std::size_t i = 0; i < model.size(); ++i) text += Row(model, i, 1.0, 1.0);
  return text;
}

std::string DisbaText(const LayeredModel& model) {
  std::string text = "# thickness (km) Vp (km/s) Vs (km/s) density (g/cm3)\n";
  for (std::size_t i = 0; i < model.size(); ++i) text += Row(model, i, kKilo, kKilo);
  return text;
}

std::string ReadLayers(std::string_view text, LayeredModel& model) {
  model = {};
  const auto first = FieldsOf(FirstLine(text), ' ');
  double count = 0.0;
  if (first.size() != 1 || !IsNumber(first[0], false, count) || count < 1.0 || count != std::floor(count))
    return "the first line is not a number of layers";
  NumberTable table;
  if (std::string reason = ReadNumberTable(text, table); !reason.empty()) return reason;
  if (static_cast<double>(table.rows()) != count)
    return FormatText("%g layers are announced, and there are %zu", count, table.rows());
  return TakeRows(table, 1.0, 1.0, model);
}

std::string ReadDisba(std::string_view text, LayeredModel& model) {
  model = {};
  NumberTable table;
  if (std::string reason = ReadNumberTable(text, table); !reason.empty()) return reason;
  return TakeRows(table, kKilo, kKilo, model);
}

}  // namespace sondera
