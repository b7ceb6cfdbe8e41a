// unit_labels.cpp - see unit_labels.h. No state.
#include "gui/unit_labels.h"

#include "runtime/catalogue/meassetup.h"
#include "runtime/controls.h"

namespace sondera {
namespace {

constexpr std::string_view kRing = "LENGTHUNIT", kLength = "length";

std::string LengthText(Panel panel) {
  const Control* ring = FindControl(panel, kRing);
  if (!ring) ring = &meassetup::LENGTHUNIT;
  const std::string unit = items::Label(*ring, items::Index(*ring));
  return unit == "meter" ? "m" : unit;
}

}  // namespace

std::string UnitText(const Control& c) {
  std::string unit(c.facts.unit);
  if (unit.starts_with(kLength)) unit.replace(0, kLength.size(), LengthText(c.panel));
  return unit;
}

bool IsUnitOfLength(const Control& c) {
  return c.name == kRing;
}

}  // namespace sondera
