// board_options.cpp - name=value options of a board driver. Owns no state.
#include "acquisition/board_options.h"

#include <cmath>
#include <vector>

#include "runtime/terminal.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

std::string NamesOf(std::span<const BoardOption> table) {
  std::string names;
  for (const BoardOption& option : table) names += (names.empty() ? "" : ", ") + std::string(option.name);
  return names;
}

/// Sets the value of one option, or says why not.
std::string TakeValue(std::string_view driver, const BoardOption& option, std::string_view text) {
  std::size_t used = 0;
  const double value = ParseReal(text, &used);
  const bool good = used == text.size() && used > 0 && value >= option.low && value <= option.high &&
                    (!option.whole || value == std::floor(value));
  if (good) {
    *option.value = value;
    return "";
  }
  return FormatText("The option %s of board driver %s takes a%s number from %.10g to %.10g, not \"%s\".",
                    option.name, std::string(driver).c_str(), option.whole ? " whole" : "", option.low,
                    option.high, VisibleText(text).c_str());
}

}  // namespace

std::string ParseBoardOptions(std::string_view driver, std::string_view text,
                              std::span<const BoardOption> table) {
  std::vector<bool> given(table.size(), false);
  while (!text.empty()) {
    const std::string_view entry = text.substr(0, text.find(','));
    text.remove_prefix(std::min(text.size(), entry.size() + 1));
    const std::string_view name = entry.substr(0, entry.find('='));
    std::size_t at = 0;
    while (at < table.size() && name != table[at].name) ++at;
    if (at == table.size())
      return FormatText("Board driver %s has no option \"%s\"; it has %s.", std::string(driver).c_str(),
                        VisibleText(name).c_str(), NamesOf(table).c_str());
    if (given[at])
      return FormatText("The option %s of board driver %s is given twice.", table[at].name,
                        std::string(driver).c_str());
    given[at] = true;
    const std::string_view value =
        name.size() < entry.size() ? entry.substr(name.size() + 1) : std::string_view();
    if (std::string fault = TakeValue(driver, table[at], value); !fault.empty()) return fault;
  }
  return "";
}

}  // namespace sondera
