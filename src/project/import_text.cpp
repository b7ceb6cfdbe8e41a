// import_text.cpp - see import_text.h. Owns no state.
// A number must be the whole of its token: "1.5" and "1.5D-03" are numbers, "1.5x" and "1.5-103" are not. The
// C library would read 1.5 from all four.
#include "project/import_text.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr std::string_view kSeparators = " ,\t\n\r";
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

double NumberOf(std::string_view token) {
  std::size_t used = 0;
  const double value = ParseRealD(token, &used);
  return used == token.size() && std::isfinite(value) ? value : kNoNumber;
}

/// Up to three tokens of a line.
struct LineTokens {
  std::string_view token[3];
  int count = 0;
};

LineTokens SplitLine(std::string_view line, int most) {
  LineTokens out;
  Tokenizer tokens(line, kSeparators);
  while (out.count < most) {
    const std::optional<std::string_view> next = tokens.Next();
    if (!next) break;
    out.token[out.count++] = *next;
  }
  return out;
}

void AppendLine(const LineTokens& line, int values, TextColumns& out) {
  const double axis = line.count > 0 ? NumberOf(line.token[0]) : kNoNumber;
  if (line.count > 0 && std::isnan(axis)) out.damaged = true;
  out.axis.push_back(axis);
  const double a = line.count > 1 ? NumberOf(line.token[1]) : 0.0;
  if (line.count > 1) out.lastValue = a;
  out.a.push_back(a);
  if (values > 1) out.b.push_back(line.count > 2 ? NumberOf(line.token[2]) : 0.0);
}

}  // namespace

TextColumns ReadColumns(TextReader& text, const ColumnRule& rule) {
  TextColumns out;
  const int limit = rule.maxLines > 0 ? rule.maxLines : kMostTextLines;
  int lastWithToken = 0;  // lines up to and with the last that held a token
  std::string line;
  while (!out.damaged && out.count() < limit && text.ReadPhysicalLine(line, kLongestTextLine)) {
    if (text.LineWasCut()) {
      out.damaged = true;
      break;
    }
    const LineTokens tokens = SplitLine(line, 1 + rule.values);
    if (tokens.count < rule.tokensNeeded && out.count() >= rule.keepGoing) break;
    AppendLine(tokens, rule.values, out);
    if (tokens.count > 0) lastWithToken = out.count();
  }
  if (rule.maxLines <= 0 && out.count() >= limit) out.damaged = true;
  if (text.ReadFailed()) out.damaged = true;
  for (auto column : {&out.axis, &out.a, &out.b})
    if (!column->empty()) column->resize(static_cast<std::size_t>(lastWithToken));
  return out;
}

bool SameAxis(const TextColumns& first, const TextColumns& later, double step) {
  const std::size_t n = std::min(first.axis.size(), later.axis.size());
  for (std::size_t i = 0; i < n; ++i)
    if (std::fabs(later.axis[i] - first.axis[i]) > 0.5 * step) return false;
  return true;
}

}  // namespace sondera
