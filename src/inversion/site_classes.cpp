// site_classes.cpp - see site_classes.h.
#include "inversion/site_classes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr double kRock = 800.0;  // m/s
constexpr double kTypeB = 360.0, kTypeC = 180.0;
constexpr double kShallowestE = 5.0, kDeepestE = 20.0;  // m

constexpr double kStiff = 400.0, kMedium = 250.0, kSoft = 150.0;  // m/s
constexpr double kRounding = 1e-9;                                // relative: depths converted from feet
constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// Depth of the top of the first layer at `velocity` or faster, m; infinity where none is.
double DepthTo(const SiteProfile& profile, double velocity) {
  double top = 0.0;
  for (const FigureLayer& layer : profile.layers) {
    if (layer.vs * profile.lengthUnit >= velocity) return top;
    top += layer.thickness * profile.lengthUnit;
  }
  return kInfinity;
}

/// Type E: soft layers over rock.
bool IsSoftOverRock(const SiteProfile& profile) {
  double depth = 0.0;
  bool rock = false;
  for (std::size_t i = 0; i < profile.layers.size(); ++i) {
    const double v = profile.layers[i].vs * profile.lengthUnit;
    if (v > kRock)
      rock = true;
    else if (rock || !(v < kTypeB))
      return false;
    if (!rock) depth += profile.layers[i].thickness * profile.lengthUnit;
  }
  return rock && depth >= kShallowestE * (1.0 - kRounding) && depth <= kDeepestE * (1.0 + kRounding);
}

std::string ByTable2004(const SiteProfile& profile) {
  return IsSoftOverRock(profile) ? "E" : ClassEn2004(AverageVelocity(profile, kVs30Depth));
}

/// Rows of the table of the second generation, by the depth to 800 m/s: its upper end, and the classes of
/// stiff, medium and soft ground.
struct DepthRow {
  double upTo;
  std::array<const char*, 3> classes;
};
constexpr DepthRow kDepthRows[] = {
    {5.0, {"A", "A", "E"}}, {30.0, {"B", "E", "E"}}, {100.0, {"B", "C", "D"}}, {kInfinity, {"B", "F", "F"}}};

/// Empty where the velocity is below the table.
std::string By2024(const SiteProfile& profile, double known) {
  const double h800 = DepthTo(profile, kRock);
  const bool reached = h800 <= known * (1.0 + kRounding);
  if (h800 == 0.0) return "A";
  const double depth = reached ? std::min(h800, kVs30Depth) : kVs30Depth;
  const double v = AverageVelocity(profile, depth);
  if (v >= kRock) return "A";
  if (v < kSoft) return {};
  const std::size_t column = v >= kStiff ? 0 : v >= kMedium ? 1 : 2;
  std::string candidates;
  for (const DepthRow& row : kDepthRows) {
    std::string name = row.classes[column];
    if (reached && h800 <= row.upTo * (1.0 + kRounding)) return name;
    // 800 m/s is not reached: the classes that the known depth leaves possible.
    if (!reached && row.upTo > known * (1.0 + kRounding) && candidates != name)
      candidates += (candidates.empty() ? "" : " or ") + name;
  }
  return candidates;
}

template <std::size_t n>
std::string FirstUpTo(const std::pair<double, const char*> (&limits)[n], const char* above, double v) {
  for (const auto& [limit, name] : limits)
    if (v <= limit) return name;
  return above;
}

template <class Classify>
SiteClass Make(const char* code, const SiteProfile& profile, Classify classify) {
  const auto of = [&](const std::optional<SiteProfile>& p) -> std::optional<std::string> {
    if (!p) return std::nullopt;
    std::string name = classify(*p);
    return name.empty() ? std::nullopt : std::optional(std::move(name));
  };
  SiteClass c;
  c.code = code;
  c.value = of(profile);
  c.low = of(AtLowEnd(profile));
  c.high = of(AtHighEnd(profile));
  return c;
}

/// Name of the code as it is printed.
std::string PrintedCode(const std::string& code) {
  constexpr std::pair<const char*, const char*> kNames[] = {{"EN1998-1:2004", "EN 1998-1:2004"},
                                                            {"EN1998-1-1:2024", "EN 1998-1-1:2024"},
                                                            {"ASCE7-16", "ASCE 7-16"},
                                                            {"ASCE7-22", "ASCE 7-22"}};
  for (const auto& [key, name] : kNames)
    if (code == key) return name;
  return code;
}

}  // namespace

std::string ClassEn2004(double v) {
  return v > kRock ? "A" : v >= kTypeB ? "B" : v >= kTypeC ? "C" : "D";
}

std::string ClassAsce716(double v) {
  constexpr double kE = 182.88;  // 600 ft/s
  constexpr std::pair<double, const char*> kLimits[] = {{365.76, "D"}, {762.0, "C"}, {1524.0, "B"}};
  return v < kE ? "E" : FirstUpTo(kLimits, "A", v);
}

std::string ClassAsce722(double v) {
  // 500, 700, 1000, 1450, 2100, 3000 and 5000 ft/s
  constexpr std::pair<double, const char*> kLimits[] = {{152.4, "E"},   {213.36, "DE"}, {304.8, "D"},
                                                        {441.96, "CD"}, {640.08, "C"},  {914.4, "BC"},
                                                        {1524.0, "B"}};
  return FirstUpTo(kLimits, "A", v);
}

std::vector<SiteClass> ClassesOf(const SiteProfile& profile, const SiteFigures& figures) {
  if (figures.figures.empty() || !figures.figures.front().value) return {};
  const bool extended = figures.figures.front().status == FigureStatus::Extended;
  // An extended profile counts down to 30 m without change.
  const double known = extended ? std::max(figures.seen.depth, kVs30Depth) : figures.seen.depth;
  std::vector<SiteClass> classes;
  classes.push_back(Make("EN1998-1:2004", profile, ByTable2004));
  classes.back().notes.push_back("S1 and S2 are not excluded");
  classes.push_back(
      Make("EN1998-1-1:2024", profile, [known](const SiteProfile& p) { return By2024(p, known); }));
  const double h800 = DepthTo(profile, kRock);
  classes.back().notes.push_back("to be confirmed");
  if (h800 <= known * (1.0 + kRounding))
    classes.back().notes.push_back(
        FormatText("800 m/s is reached at %.4g m; the average above is %.4f m/s", h800,
                   h800 > 0.0 ? AverageVelocity(profile, std::min(h800, kVs30Depth))
                              : AverageVelocity(profile, kVs30Depth)));
  else
    classes.back().notes.push_back(
        FormatText("open: 800 m/s was not reached in the %.4g m that are known", known));
  classes.push_back(Make("ASCE7-16", profile, [](const SiteProfile& p) {
    return ClassAsce716(AverageVelocity(p, kHundredFeet));
  }));
  classes.push_back(Make("ASCE7-22", profile, [](const SiteProfile& p) {
    return ClassAsce722(AverageVelocity(p, kHundredFeet));
  }));
  for (std::size_t i : {std::size_t{2}, std::size_t{3}})
    classes[i].notes.push_back("F, and E by soft clay, are not excluded");
  if (extended)
    for (SiteClass& c : classes) c.notes.push_back("from an extended profile");
  return classes;
}

std::vector<std::string> SiteFigureLines(const SiteFigures& figures, const std::vector<SiteClass>& classes) {
  std::vector<std::string> lines;
  for (const SiteFigure& f : figures.figures) {
    const std::string name = f.name == "vs30" ? "Vs30" : FormatText("Vs%.4g", f.depth);
    if (!f.value) {
      lines.push_back(name + ": not available, " + f.reason);
      continue;
    }
    std::string line = name + ": " + FigureDigits(*f.value) + " m/s";
    if (f.low && f.high)
      line += " (" + FigureDigits(*f.low) + " to " + FigureDigits(*f.high) + ", " + kRangeLabel + ")";
    if (f.spread) line += ", spread " + FigureDigits(*f.spread) + " m/s";
    lines.push_back(line + (f.status == FigureStatus::Extended ? ", extended: " + f.reason : ""));
  }
  for (const SiteClass& c : classes) {
    std::string line = ClassText(c);
    for (const std::string& note : c.notes) line += "; " + note;
    lines.push_back(std::move(line));
  }
  if (!classes.empty()) lines.push_back(kClassCaution);
  return lines;
}

std::string ClassText(const SiteClass& c) {
  std::string text = PrintedCode(c.code) + ": " + c.value.value_or("none");
  if (c.low && c.high && (*c.low != *c.high)) text += " (" + *c.low + " to " + *c.high + ")";
  return text;
}

}  // namespace sondera
