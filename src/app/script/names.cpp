// names.cpp - see names.h. The table of names is made once, from the catalogue.
#include "app/script/names.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

#include "app/script/fault.h"
#include "app/script/values.h"

namespace sondera::script {
namespace {

using NameTable = std::unordered_map<std::string, ControlId>;

const NameTable& Names() {
  static const NameTable table = [] {
    NameTable names;
    for (int p = 0; p < kPanelCount; ++p)
      for (ControlId c : ControlsOf(static_cast<Panel>(p))) names.emplace(NameOf(*c), c);
    return names;
  }();
  return table;
}

std::vector<std::string> PanelNames() {
  std::vector<std::string> names;
  for (int p = 0; p < kPanelCount; ++p) names.emplace_back(PanelName(static_cast<Panel>(p)));
  return names;
}

[[noreturn]] void RefuseName(std::string_view name) {
  const std::size_t dot = name.find('.');
  if (dot == std::string_view::npos)
    throw Fault(Quoted(name) + " is not a PANEL.CONTROL, like SASW.MASKINGNEW");
  const std::string panel(name.substr(0, dot));
  std::vector<std::string> near, all;
  for (const auto& [known, control] : Names()) {
    all.push_back(known);
    if (PanelName(control->panel) == panel) near.push_back(known);
  }
  std::sort(near.begin(), near.end());
  std::sort(all.begin(), all.end());
  if (near.empty() && NearestOf(name, all).empty()) throw Fault(UnknownText("panel", panel, PanelNames()));
  throw Fault(UnknownText("control", name, NearestOf(name, near).empty() ? all : near));
}

}  // namespace

const Control& ControlOfName(std::string_view name) {
  const auto found = Names().find(std::string(name));
  if (found == Names().end()) RefuseName(name);
  return *found->second;
}

std::string NameOf(const Control& control) {
  return std::string(PanelName(control.panel)) + "." + std::string(control.name);
}

std::string_view KindName(ControlKind kind) {
  switch (kind) {
    case ControlKind::Numeric:
      return "number";
    case ControlKind::Int:
      return "whole number";
    case ControlKind::Text:
      return "text";
    case ControlKind::Ring:
    case ControlKind::RealRing:
      return "ring";
    case ControlKind::List:
      return "list";
    case ControlKind::Table:
      return "table";
    case ControlKind::Graph:
      return "graph";
    case ControlKind::Button:
      return "button";
    case ControlKind::Toggle:
      return "switch";
    case ControlKind::Label:
      return "label";
    case ControlKind::Menu:
      break;
  }
  return "menu item";
}

}  // namespace sondera::script
