// names.cpp - see names.h. The table of names is made once, from the catalogue.
#include "app/script/names.h"

#include <algorithm>
#include <iterator>
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

const std::vector<std::string>& SortedNames() {
  static const std::vector<std::string> names = [] {
    std::vector<std::string> sorted;
    for (const auto& [name, control] : Names()) sorted.push_back(name);
    std::sort(sorted.begin(), sorted.end());
    return sorted;
  }();
  return names;
}

/// The nearest name of the same panel, if there is a similar one, else of all panels.
[[noreturn]] void RefuseName(std::string_view name) {
  const std::size_t dot = name.find('.');
  if (dot == std::string_view::npos)
    throw Fault(Quoted(name) + " is not a PANEL.CONTROL, like SASW.MASKINGNEW");
  const std::vector<std::string>& all = SortedNames();
  std::vector<std::string> ofPanel;
  std::copy_if(all.begin(), all.end(), std::back_inserter(ofPanel),
               [&](const std::string& known) { return known.starts_with(name.substr(0, dot + 1)); });
  std::string nearest = NearestOf(name, ofPanel);
  if (nearest.empty()) nearest = NearestOf(name, all);
  if (ofPanel.empty() && nearest.empty())
    throw Fault(UnknownText("panel", name.substr(0, dot), PanelNames()));
  throw Fault(UnknownText("control", name, {nearest}));
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
