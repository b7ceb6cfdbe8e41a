// control_reference.cpp - see control_reference.h. Owns no state.
#include "app/control_reference.h"

#include <cmath>
#include <string_view>

#include "app/script/names.h"
#include "app/script/values.h"
#include "runtime/control.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr char kIntroduction[] = R"(# Controls

Every control of the program, panel by panel. The name goes behind that of the panel in a script (`set SASW.MASKING_JUMPNO 2`,
`press MAINMENU.QUIT`; [script.md](script.md)). A screen reader speaks the name in the second column. A number given as unit of
length is in the project's unit.

`sondera --help controls` prints this page; it is made from the catalogue in the program.
)";

std::string KindAndRole(const Control& c) {
  switch (c.facts.role) {
    case Role::Plain:
      return std::string(script::KindName(c.kind));
    case Role::ReadOut:
      return "read-out";
    case Role::TextBox:
      return "text box";
    case Role::Color:
      return "colour";
    case Role::Lamp:
      return "lamp";
    case Role::Latch:
      break;
  }
  return "latching button";
}

/// "Hz, 0 to 100", "above -5", from the known facts.
std::string UnitAndRange(const Control& c) {
  const Facts& f = c.facts;
  if (c.kind == ControlKind::Text) return std::isfinite(f.max) ? "bytes, to " + script::TextOf(f.max) : "";
  const bool low = std::isfinite(f.min), high = std::isfinite(f.max);
  std::string text(f.unit == "length"     ? "unit of length"
                   : f.unit == "length/s" ? "unit of length per s"
                                          : f.unit);
  if (!low && !high) return text;
  text += text.empty() ? "" : ", ";
  if (low && high) return text + script::TextOf(f.min) + " to " + script::TextOf(f.max);
  return text + (low ? "from " + script::TextOf(f.min) : "to " + script::TextOf(f.max));
}

std::string FirstValue(const Control& c) {
  switch (c.kind) {
    case ControlKind::Numeric:
    case ControlKind::Int:
    case ControlKind::Toggle:
      return script::TextOf(c.number);
    case ControlKind::Text:
      return std::string(c.text);
    case ControlKind::Ring:
    case ControlKind::RealRing:
      return c.items.empty() ? "" : std::string(c.items[static_cast<std::size_t>(c.number)].label);
    default:
      return "";
  }
}

/// The hint, then the items of a ring with their values.
std::string Meaning(const Control& c) {
  std::string text(c.facts.hint);
  for (std::size_t i = 0; i < c.items.size(); ++i)
    text +=
        (i == 0 ? " Items: " : ", ") + script::TextOf(c.items[i].value) + " " + std::string(c.items[i].label);
  for (std::size_t i = 0; i < c.columns.size(); ++i)
    text += (i == 0 ? " Columns: " : ", ") + std::string(c.columns[i]);
  return text + (c.items.empty() && c.columns.empty() ? "" : ".");
}

std::string Row(const Control& c) {
  std::string row = "|";
  for (const std::string& cell :
       {"`" + std::string(c.name) + "`", script::MarkdownCell(SpokenName(c)), KindAndRole(c), UnitAndRange(c),
        script::MarkdownCell(FirstValue(c)), script::MarkdownCell(Meaning(c))})
    row += cell.empty() ? " |" : " " + cell + " |";
  return row + "\n";
}

}  // namespace

std::string ControlReference() {
  std::string text = kIntroduction;
  for (int i = 0; i < kPanelCount; ++i) {
    const auto p = static_cast<Panel>(i);
    text += FormatText("\n## %s: %s\n\n", std::string(PanelName(p)).c_str(),
                       std::string(DefaultPanelTitle(p)).c_str());
    text += "| Name | Spoken name | Kind | Unit, range | At first | Meaning |\n|---|---|---|---|---|---|\n";
    for (const ControlId c : ControlsOf(p)) text += Row(*c);
  }
  return text;
}

}  // namespace sondera
