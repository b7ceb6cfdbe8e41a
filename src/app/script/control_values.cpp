// control_values.cpp - see control_values.h. Owns no state.
#include "app/script/control_values.h"

#include <optional>
#include <type_traits>
#include <vector>

#include "app/script/fault.h"
#include "app/script/names.h"
#include "app/script/values.h"

namespace sondera::script {
namespace {

bool HasItems(const Control& c) {
  return c.kind == ControlKind::Ring || c.kind == ControlKind::RealRing || c.kind == ControlKind::List;
}

std::optional<int> SwitchOf(std::string_view text) {
  if (text == "yes" || text == "on") return 1;
  if (text == "no" || text == "off") return 0;
  return WholeOf(text);
}

int IndexOfValue(const Control& c, double value) {
  for (int i = 0; i < items::Count(c); ++i)
    if (items::Value(c, i) == value) return i;
  return -1;
}

/// Blanks before or after a caption are for its look only.
std::string_view Trimmed(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  while (text.ends_with(' ')) text.remove_suffix(1);
  return text;
}

int IndexOfLabel(const Control& c, std::string_view label) {
  const int exact = items::Find(c, label);
  if (exact >= 0) return exact;
  for (int i = 0; i < items::Count(c); ++i)
    if (Trimmed(items::Label(c, i)) == Trimmed(label)) return i;
  return -1;
}

[[noreturn]] void RefuseItem(const Control& c, std::string_view text) {
  std::vector<std::string> labels;
  for (int i = 0; i < items::Count(c); ++i) labels.push_back(items::Label(c, i));
  if (labels.empty()) throw Fault(NameOf(c) + " has no items now");
  throw Fault(UnknownText("item of " + NameOf(c), text, labels));
}

void CheckEntered(const Control& c, bool entered) {
  if (!entered) throw Fault(NameOf(c) + " takes no value now");
}

}  // namespace

bool HasValue(const Control& c) {
  return c.kind != ControlKind::Table && c.kind != ControlKind::Graph && c.kind != ControlKind::Button &&
         c.kind != ControlKind::Menu;
}

std::string ValueOf(const Control& control) {
  return WithType(control, [](const auto& c) -> std::string {
    using C = std::decay_t<decltype(c)>;
    if constexpr (std::is_same_v<C, TextControl> || std::is_same_v<C, LabelControl>)
      return GetCtrlVal(c);
    else if constexpr (std::is_same_v<C, NumericControl> || std::is_same_v<C, IntControl> ||
                       std::is_same_v<C, ToggleControl> || ItemControl<C>)
      return TextOf(GetCtrlVal(c));
    else
      throw Fault(NameOf(c) + " is a " + std::string(KindName(c.kind)) + " and has no value");
  });
}

void CheckValue(const Control& c, std::string_view text) {
  if (!HasValue(c)) throw Fault(NameOf(c) + " is a " + std::string(KindName(c.kind)) + " and has no value");
  const auto refuse = [&](std::string_view wanted) {
    throw Fault(NameOf(c) + " takes " + std::string(wanted) + ", and " + Quoted(text) + " is none");
  };
  if (c.kind == ControlKind::Numeric && !NumberOf(text)) refuse("a number");
  if (c.kind == ControlKind::Int && !WholeOf(text)) refuse("a whole number");
  if (c.kind == ControlKind::Toggle && !SwitchOf(text)) refuse("a whole number, yes or no");
}

void WriteValue(const Control& control, std::string_view text) {
  CheckValue(control, text);
  if (HasItems(control)) {
    const auto value = NumberOf(text);
    const int byValue = value ? IndexOfValue(control, *value) : -1;
    const int index = byValue >= 0 ? byValue : IndexOfLabel(control, text);
    if (index < 0) RefuseItem(control, text);
    return CheckEntered(control, EnterIndex(control, index));
  }
  switch (control.kind) {
    case ControlKind::Numeric:
      return CheckEntered(control, EnterValue(control, *NumberOf(text)));
    case ControlKind::Int:
      return CheckEntered(control, EnterValue(control, *WholeOf(text)));
    case ControlKind::Toggle:
      return CheckEntered(control, EnterValue(control, *SwitchOf(text)));
    default:
      return CheckEntered(control, EnterValue(control, text));
  }
}

void SelectItem(const Control& c, std::string_view label) {
  const int index = IndexOfLabel(c, label);
  if (index < 0) RefuseItem(c, label);
  CheckEntered(c, EnterIndex(c, index));
}

}  // namespace sondera::script
