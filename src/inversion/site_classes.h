// site_classes.h - site classes of building codes from a shear-wave velocity profile.
//
// Velocity is only a part of what the codes require: the engineer judges soft clay, liquefiable ground,
// plasticity and water content. Classes that depend on them (S1, S2; F and "E by soft clay" of ASCE 7) are
// never given. No class is given where Vs30 is not available. Owned state: none.
//
//   EN 1998-1:2004, table 3.1: A above 800 m/s, B from 360, C from 180, D below; E before those: layers of type
//   C or D down to a depth of 5 to 20 m, and below them more than 800 m/s.
//   EN 1998-1-1:2024: by the depth H800 to 800 m/s and the average down to min(H800, 30 m).
//   ASCE 7-16, table 20.3-1, and ASCE 7-22, table 20.2-1, by the average over 100 ft.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "inversion/site_figures.h"

namespace sondera {

struct SiteClass {
  std::string code;                      ///< "EN1998-1:2004", "EN1998-1-1:2024", "ASCE7-16", "ASCE7-22"
  std::optional<std::string> value;      ///< none: no class fits
  std::optional<std::string> low, high;  ///< with all layers at one end of their band
  std::vector<std::string> notes;
};

/// Classes of a profile with known figures; none where Vs30 has no value.
std::vector<SiteClass> ClassesOf(const SiteProfile& profile, const SiteFigures& figures);

/// Classes by velocity alone, m/s.
std::string ClassEn2004(double vs30);
std::string ClassAsce716(double average100ft);
std::string ClassAsce722(double average100ft);

/// "ASCE 7-22: D (DE to CD)"; the range only where its ends differ.
std::string ClassText(const SiteClass& siteClass);

/// Figures and classes in lines of text, as the summary of a project and the box of the results give them. Empty for
/// figures that were not made.
std::vector<std::string> SiteFigureLines(const SiteFigures& figures, const std::vector<SiteClass>& classes);

/// The questions that the classes leave to the engineer, in one sentence.
inline constexpr const char* kClassCaution =
    "The codes ask for more than the velocity: the engineer has to judge soft clay, liquefiable ground, "
    "plasticity and water content.";

}  // namespace sondera
