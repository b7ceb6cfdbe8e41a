// table_forms.cpp - see table_forms.h: curves. Layers are in table_layers.cpp.
#include "project/table_forms.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <limits>
#include <numeric>
#include <optional>

#include "project/number_table.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

void SortByFrequency(CurvePoints& curve) {
  std::vector<std::size_t> order(curve.frequency.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(),
                   [&](std::size_t a, std::size_t b) { return curve.frequency[a] < curve.frequency[b]; });
  for (Column* column : {&curve.frequency, &curve.velocity, &curve.sd}) {
    Column sorted;
    for (std::size_t i : order) sorted.push_back((*column)[i]);
    *column = std::move(sorted);
  }
}

std::string LowerCase(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return lower;
}

/// "Phase velocity [m/s]" as "phase velocity" and "m/s".
void SplitUnit(const std::string& title, std::string& name, std::string& unit) {
  const std::size_t open = title.find_first_of("[(");
  name = LowerCase(title.substr(0, open));
  while (!name.empty() && (name.back() == ' ' || name.back() == '_')) name.pop_back();
  unit.clear();
  if (open == std::string::npos) return;
  const std::size_t close = title.find_first_of("])", open);
  unit = LowerCase(title.substr(open + 1, close == std::string::npos ? close : close - open - 1));
}

enum class Quantity { None, Frequency, Velocity, Slowness, Wavelength, Deviation };

Quantity QuantityOf(const std::string& name) {
  const auto is = [&](std::initializer_list<const char*> names) {
    return std::any_of(names.begin(), names.end(), [&](const char* n) { return name == n; });
  };
  if (is({"frequency", "freq", "f"})) return Quantity::Frequency;
  if (is({"velocity", "phase velocity", "c", "v", "vel"})) return Quantity::Velocity;
  if (is({"slowness"})) return Quantity::Slowness;
  if (is({"wavelength"})) return Quantity::Wavelength;
  if (is({"sd", "std", "velocity sd", "velocity standard deviation", "standard deviation"}))
    return Quantity::Deviation;
  return Quantity::None;
}

/// Factor to SI; 0 for a unit that does not belong to the quantity.
double FactorOf(Quantity quantity, const std::string& unit) {
  const auto length = [](const std::string& u) {
    return u == "m"    ? 1.0
           : u == "km" ? 1000.0
           : u == "cm" ? 0.01
           : u == "ft" ? 0.3048
           : u == "in" ? 0.0254
                       : 0.0;
  };
  if (unit.empty()) return 1.0;
  switch (quantity) {
    case Quantity::Frequency:
      return unit == "hz" ? 1.0 : unit == "khz" ? 1000.0 : 0.0;
    case Quantity::Velocity:
    case Quantity::Deviation:
      return unit.ends_with("/s") ? length(unit.substr(0, unit.size() - 2)) : 0.0;
    case Quantity::Slowness: {
      const double perLength = unit.starts_with("s/") ? length(unit.substr(2)) : 0.0;
      return perLength > 0.0 ? 1.0 / perLength : 0.0;
    }
    case Quantity::Wavelength:
      return length(unit);
    case Quantity::None:
      break;
  }
  return 1.0;
}

/// The column of a quantity in SI; empty where there is none.
std::string TakeColumn(const NumberTable& table, Quantity quantity, Column& column) {
  column.clear();
  for (std::size_t i = 0; i < table.header.size(); ++i) {
    std::string name, unit;
    SplitUnit(table.header[i], name, unit);
    if (QuantityOf(name) != quantity) continue;
    const double factor = FactorOf(quantity, unit);
    if (factor == 0.0) return "the column \"" + table.header[i] + "\" has a unit that is not known";
    column = table.columns[i];
    for (double& v : column) v *= factor;
    return {};
  }
  return {};
}

std::string TakeNamed(const NumberTable& table, CurvePoints& curve) {
  Column slowness, wavelength;
  std::string reason = TakeColumn(table, Quantity::Frequency, curve.frequency);
  if (reason.empty()) reason = TakeColumn(table, Quantity::Velocity, curve.velocity);
  if (reason.empty()) reason = TakeColumn(table, Quantity::Deviation, curve.sd);
  if (reason.empty()) reason = TakeColumn(table, Quantity::Slowness, slowness);
  if (reason.empty()) reason = TakeColumn(table, Quantity::Wavelength, wavelength);
  if (!reason.empty()) return reason;
  if (curve.velocity.empty())
    for (double s : slowness) curve.velocity.push_back(1.0 / s);
  if (curve.frequency.empty() && !curve.velocity.empty() && !wavelength.empty())
    for (std::size_t i = 0; i < wavelength.size(); ++i)
      curve.frequency.push_back(curve.velocity[i] / wavelength[i]);
  if (curve.velocity.empty() && !wavelength.empty() && !curve.frequency.empty())
    for (std::size_t i = 0; i < wavelength.size(); ++i)
      curve.velocity.push_back(curve.frequency[i] * wavelength[i]);
  if (curve.frequency.empty() || curve.velocity.empty()) return std::string(kColumnsNotNamed);
  return {};
}

std::string TakeDinver(const NumberTable& table, CurvePoints& curve) {
  if (table.columns.size() < 2 || table.columns.size() > 3)
    return "a dinver text has two or three columns: Hz, slowness and a factor for its deviation";
  curve.frequency = table.columns[0];
  for (double s : table.columns[1]) curve.velocity.push_back(1.0 / s);
  if (table.columns.size() < 3) return {};
  for (std::size_t i = 0; i < table.rows(); ++i) {
    const double third = table.columns[2][i], v = curve.velocity[i];
    if (third >= 1.0) {
      curve.sd.push_back(FromGeopsy3Factor(third) * v);
    } else {
      // Geopsy 2.10: third (v^2 - s^2) = s, solved so that a small s keeps its digits.
      curve.sd.push_back(2.0 * third * v * v / (std::sqrt(1.0 + 4.0 * third * third * v * v) + 1.0));
    }
  }
  return {};
}

/// Points must have values that are possible for a curve.
std::string CheckPoints(CurvePoints& curve) {
  const std::size_t n = curve.frequency.size();
  if (curve.sd.empty()) curve.sd.assign(n, kNone);
  for (std::size_t i = 0; i < n; ++i) {
    const auto good = [](double v) { return std::isfinite(v) && v > 0.0; };
    if (!good(curve.frequency[i]) || !good(curve.velocity[i]))
      return FormatText("point %zu has a frequency of %g Hz and a velocity of %g m/s", i + 1,
                        curve.frequency[i], curve.velocity[i]);
    if (!(curve.sd[i] >= 0.0) || !std::isfinite(curve.sd[i])) curve.sd[i] = kNone;
  }
  SortByFrequency(curve);
  return {};
}

bool HasModeComment(std::string_view text) {
  return text.find("# Mode") < text.find_first_of("0123456789");
}

}  // namespace

bool GlobalCurveOf(const ProjectTables& tables, CurvePoints& curve) {
  curve = {};
  const auto global = std::find_if(tables.curves.begin(), tables.curves.end(),
                                   [](const CurveTable& c) { return c.kind == "global"; });
  if (global == tables.curves.end()) return false;
  for (std::size_t i = 0; i < global->frequency.size(); ++i) {
    if (global->state[i] != "ok" || !(global->frequency[i] > 0.0)) continue;
    curve.frequency.push_back(global->frequency[i]);
    curve.velocity.push_back(global->velocity[i] * tables.lengthUnit);
    curve.sd.push_back(global->velocitySd[i] * tables.lengthUnit);
  }
  SortByFrequency(curve);
  return !curve.frequency.empty();
}

std::string SwprepostText(const CurvePoints& curve) {
  std::string text = "#rayleigh 0,,\n#Frequency (Hz),Velocity (m/s),Velocity Standard Deviation (m/s)\n";
  for (std::size_t i = 0; i < curve.frequency.size(); ++i)
    text += ShortestText(curve.frequency[i]) + "," + ShortestText(curve.velocity[i]) + "," +
            ShortestText(std::isfinite(curve.sd[i]) ? curve.sd[i] : 0.0) + "\n";
  return text;
}

double Geopsy3Factor(double c) {
  return 0.5 * ((1.0 + c) + 1.0 / (1.0 - c));
}
double FromGeopsy3Factor(double factor) {
  // L - sqrt(L^2 - 2 L + 2) = 2 (L - 1) / (L + sqrt(L^2 - 2 L + 2)), which keeps the digits of a small c.
  return 2.0 * (factor - 1.0) / (factor + std::sqrt(factor * factor - 2.0 * factor + 2.0));
}
double Geopsy210Slowness(double velocity, double sd) {
  return 0.5 * (1.0 / (velocity - sd) - 1.0 / (velocity + sd));
}

std::string DinverText(const CurvePoints& curve, DinverColumn column, std::string& text) {
  text.clear();
  for (std::size_t i = 0; i < curve.frequency.size(); ++i) {
    const double v = curve.velocity[i], sd = std::isfinite(curve.sd[i]) ? curve.sd[i] : 0.0;
    if (!(sd < v))
      return FormatText(
          "the point at %g Hz has a deviation of %g m/s, which is not below its velocity of %g m/s",
          curve.frequency[i], sd, v);
    const double third = column == DinverColumn::Geopsy3 ? Geopsy3Factor(sd / v) : Geopsy210Slowness(v, sd);
    text +=
        ShortestText(curve.frequency[i]) + "\t" + ShortestText(1.0 / v) + "\t" + ShortestText(third) + "\n";
  }
  return {};
}

std::string GpdcText(const CurvePoints& curve) {
  std::string text = "# Mode 0\n";
  for (std::size_t i = 0; i < curve.frequency.size(); ++i)
    text += ShortestText(curve.frequency[i]) + " " + ShortestText(1.0 / curve.velocity[i]) + "\n";
  return text;
}

std::string ReadCurvePoints(std::string_view text, CurveForm form, const std::string& columns,
                            CurvePoints& curve) {
  curve = {};
  NumberTable table;
  if (std::string reason = ReadNumberTable(text, table); !reason.empty()) return reason;
  if (form == CurveForm::Named && table.header.empty() && HasModeComment(text)) form = CurveForm::Gpdc;
  if (form == CurveForm::Swprepost && table.columns.size() != 3)
    return FormatText("a swprepost curve has three columns, and here are %zu", table.columns.size());
  if (form == CurveForm::Gpdc) table.header = {"frequency", "slowness"};
  if (!columns.empty()) table.header = FieldsOf(columns, ',');
  std::string reason;
  if (form != CurveForm::Dinver && !table.header.empty() && table.header.size() != table.columns.size())
    return FormatText("%zu columns are named, and there are %zu", table.header.size(), table.columns.size());
  reason = form == CurveForm::Dinver ? TakeDinver(table, curve) : TakeNamed(table, curve);
  return reason.empty() ? CheckPoints(curve) : reason;
}

std::string ExdText(const CurvePoints& curve, const std::string& id, double lengthUnit) {
  std::string text =
      "unit = " + ShortestText(lengthUnit) + "\nID : " + id +
      "_[0:1]\nNo. of Points in Dispersion Curve : " + std::to_string(curve.frequency.size()) +
      "\nmarkerType: 0\nmarkerLine: 0\ncolorType: -1\n     Vel         Freq       waveL       TRFamp\n";
  for (std::size_t i = 0; i < curve.frequency.size(); ++i) {
    const double v = curve.velocity[i] / lengthUnit, f = curve.frequency[i];
    text += ShortestText(v) + "\t" + ShortestText(f) + "\t" + ShortestText(v / f) + "\t0\n";
  }
  return text;
}

}  // namespace sondera
