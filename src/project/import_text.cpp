// import_text.cpp - see import_text.h. Owns no state.
// A number must fill its token: "1.5" and "1.5D-03" are numbers, "1.5x" and "1.5-103" are not. The C library
// would read 1.5 from all four.
#include "project/import_text.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

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

/// Tokens of a line, one more than any format has.
struct LineTokens {
  static constexpr int kMost = 4;
  std::string_view token[kMost];
  int count = 0;

  std::string_view last() const { return count > 0 ? token[count - 1] : std::string_view{}; }
};

LineTokens SplitLine(std::string_view line) {
  LineTokens out;
  Tokenizer tokens(line, kSeparators);
  while (out.count < LineTokens::kMost) {
    const std::optional<std::string_view> next = tokens.Next();
    if (!next) break;
    out.token[out.count++] = *next;
  }
  return out;
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// Digits of a number in the text.
struct Digits {
  int behindPoint = 0, exponentDigits = 0, exponent = 0;
  int significant = 0;  ///< from the first digit that is not 0

  int decimals() const { return behindPoint - exponent; }
};

Digits DigitsOf(std::string_view token) {
  Digits d;
  bool point = false;
  std::size_t i = 0;
  for (; i < token.size() && (IsDigit(token[i]) || token[i] == '.' || token[i] == '+' || token[i] == '-');
       ++i) {
    if (token[i] == '.') point = true;
    if (!IsDigit(token[i])) continue;
    if (point) ++d.behindPoint;
    if (d.significant > 0 || token[i] != '0') ++d.significant;
  }
  if (i == token.size()) return d;
  d.exponent = std::clamp(ParseInt(token.substr(i + 1)), -400, 400);
  d.exponentDigits =
      static_cast<int>(std::count_if(token.begin() + static_cast<std::ptrdiff_t>(i), token.end(), IsDigit));
  return d;
}

/// The shortest last numbers of the lines so far, for comparison with a last line without line end.
class LineEnds {
 public:
  void Add(const LineTokens& tokens) {
    const Digits d = DigitsOf(tokens.last());
    ++lines_;
    fields_ = std::min(fields_, tokens.count);
    behindPoint_ = std::min(behindPoint_, d.behindPoint);
    exponentDigits_ = std::min(exponentDigits_, d.exponentDigits);
  }
  /// Whether a line is shorter than all lines before.
  bool BreaksOff(const LineTokens& tokens) const {
    constexpr int kEnoughToTell = 3;
    if (lines_ > 0 && tokens.count < fields_) return true;
    const Digits d = DigitsOf(tokens.last());
    return lines_ >= kEnoughToTell && tokens.count == fields_ &&
           (d.behindPoint < behindPoint_ || d.exponentDigits < exponentDigits_);
  }

 private:
  int lines_ = 0;
  int fields_ = LineTokens::kMost, behindPoint_ = 1 << 20, exponentDigits_ = 1 << 20;
};

void AppendLine(const LineTokens& line, int values, std::int64_t number, TextColumns& out) {
  out.axis.push_back(line.count > 0 ? NumberOf(line.token[0]) : kNoNumber);
  const double a = line.count > 1 ? NumberOf(line.token[1]) : 0.0;
  if (line.count > 1) out.lastValue = a;
  out.a.push_back(a);
  if (values > 1) out.b.push_back(line.count > 2 ? NumberOf(line.token[2]) : 0.0);
  if (line.count == 0) return;
  out.mostFields = std::max(out.mostFields, line.count);
  if (line.count <= values && out.shortLines++ == 0) out.firstShort = number;
  const Digits d = DigitsOf(line.token[0]);
  out.axisDecimals = std::max(out.axisDecimals, d.decimals());
  out.axisSignificant = std::max(out.axisSignificant, d.significant);
}

/// False, with the columns damaged, for a line that no file of this kind has.
bool IsOfThisKind(const LineTokens& tokens, int values, std::int64_t number, TextColumns& out) {
  if (tokens.count > 0 && std::isnan(NumberOf(tokens.token[0])))
    return Damage(out, number, "the first field is not a number");
  if (tokens.count > 1 + values)
    return Damage(
        out, number,
        FormatText(
            "more than the %d fields of the format (commas separate fields; a decimal mark is a point)",
            1 + values));
  return true;
}

/// Lines that begin with a number, up to the end of the text.
int CountNumberLines(TextReader& text) {
  int count = 0;
  std::string line;
  while (text.ReadPhysicalLine(line, kLongestTextLine)) {
    const LineTokens tokens = SplitLine(line);
    if (tokens.count > 0 && !std::isnan(NumberOf(tokens.token[0])) && count < kMostTextLines) ++count;
  }
  return count;
}

/// Half of the last digit of an axis value, estimated from the digits of all of them: files are written with
/// a fixed number of decimals or of significant digits, and trailing zeros may be missing.
double RoundingOf(double x, const TextColumns& columns) {
  const double decimals = std::pow(10.0, -columns.axisDecimals);
  if (x == 0.0) return 0.5 * decimals;
  const double leading = std::floor(std::log10(std::fabs(x)));
  return 0.5 * std::max(decimals, std::pow(10.0, leading + 1.0 - columns.axisSignificant));
}

/// Straight line through the axis values over their row numbers, by least squares; rows without a value do
/// not count.
struct Grid {
  double first = 0.0, step = 0.0;
  double At(std::size_t row) const { return first + static_cast<double>(row) * step; }
};

Grid FitGrid(const std::vector<double>& axis) {
  double n = 0.0, meanRow = 0.0, meanX = 0.0, sxx = 0.0, sxy = 0.0;
  for (std::size_t i = 0; i < axis.size(); ++i) {
    if (std::isnan(axis[i])) continue;
    n += 1.0;
    const double dRow = static_cast<double>(i) - meanRow, dX = axis[i] - meanX;
    meanRow += dRow / n;
    meanX += dX / n;
    sxx += dRow * (static_cast<double>(i) - meanRow);
    sxy += dRow * (axis[i] - meanX);
  }
  const double step = sxx > 0.0 ? sxy / sxx : 0.0;
  return {meanX - step * meanRow, step};
}

/// The row whose step from the value before differs most from the mean step.
std::size_t WorstStep(const std::vector<double>& axis, double step) {
  std::size_t worst = 0, before = 0;
  double most = -1.0;
  for (std::size_t i = 1; i < axis.size(); ++i) {
    if (std::isnan(axis[i])) continue;
    const double off = std::fabs(axis[i] - axis[before] - static_cast<double>(i - before) * step);
    if (off > most) {
      most = off;
      worst = i;
    }
    before = i;
  }
  return worst;
}

}  // namespace

bool Damage(TextColumns& columns, std::int64_t line, std::string cause) {
  columns.damaged = true;
  columns.fault = {line, std::move(cause)};
  return false;
}

TextColumns ReadColumns(TextReader& text, const ColumnRule& rule) {
  TextColumns out;
  const int limit = rule.maxLines > 0 ? rule.maxLines : kMostTextLines;
  int lastWithToken = 0;  // lines up to and with the last that held a token
  LineEnds ends;
  std::string line;
  while (!out.damaged && out.count() < limit && text.ReadPhysicalLine(line, kLongestTextLine)) {
    const std::int64_t number = text.LinesRead();
    if (text.LineWasCut()) {
      Damage(out, number, FormatText("longer than %d bytes", kLongestTextLine));
      break;
    }
    const LineTokens tokens = SplitLine(line);
    const bool endsInLine = tokens.count > 0 && !text.LineHadEnd() && !line.ends_with('\r');
    if (endsInLine && ends.BreaksOff(tokens)) {
      Damage(out, number,
             "the file breaks off in its last line, which is shorter than the others and has no line end");
      break;
    }
    if (tokens.count < rule.tokensNeeded && out.count() >= rule.keepGoing) {
      if (tokens.count > 0 && !std::isnan(NumberOf(tokens.token[0]))) ++out.linesBehind;
      break;
    }
    if (!IsOfThisKind(tokens, rule.values, number, out)) break;
    AppendLine(tokens, rule.values, number, out);
    out.endsInLine = endsInLine;
    if (tokens.count == 0) continue;
    ends.Add(tokens);
    lastWithToken = out.count();
  }
  if (!out.damaged) out.linesBehind += CountNumberLines(text);
  if (!out.damaged && rule.maxLines <= 0 && out.count() >= limit)
    Damage(out, 0, FormatText("more than %d lines", kMostTextLines - 1));
  if (text.ReadFailed()) Damage(out, text.LinesRead(), "the system could not read on from here");
  for (auto column : {&out.axis, &out.a, &out.b})
    if (!column->empty()) column->resize(static_cast<std::size_t>(lastWithToken));
  return out;
}

bool HasEvenAxis(TextColumns& columns, std::string_view values) {
  constexpr double kTolerance = 1e-3;    // of a step
  constexpr double kMostRounding = 0.1;  // of a step
  const std::vector<double>& axis = columns.axis;
  const std::string name(values);
  double before = -std::numeric_limits<double>::infinity();
  for (std::size_t i = 0; i < axis.size(); ++i) {
    if (std::isnan(axis[i])) continue;
    if (!(axis[i] > before))
      return Damage(columns, static_cast<std::int64_t>(i) + 1,
                    FormatText("the %s do not ascend: %g comes after %g", name.c_str(), axis[i], before));
    before = axis[i];
  }
  const Grid grid = FitGrid(axis);
  for (std::size_t i = 0; i < axis.size(); ++i) {
    if (std::isnan(axis[i])) continue;
    const double allowed =
        kTolerance * grid.step + std::min(RoundingOf(axis[i], columns), kMostRounding * grid.step);
    if (std::fabs(axis[i] - grid.At(i)) <= allowed) continue;
    const std::size_t worst = WorstStep(axis, grid.step);
    return Damage(
        columns, static_cast<std::int64_t>(worst) + 1,
        FormatText("the %s are not evenly spaced: the mean step is %g, and the one to %.9g is another",
                   name.c_str(), grid.step, axis[worst]));
  }
  return true;
}

bool SameAxis(const TextColumns& first, const TextColumns& later, double step, std::size_t* row) {
  const std::size_t n = std::min(first.axis.size(), later.axis.size());
  for (std::size_t i = 0; i < n; ++i) {
    if (!(std::fabs(later.axis[i] - first.axis[i]) > 0.5 * step)) continue;
    if (row) *row = i;
    return false;
  }
  return true;
}

}  // namespace sondera
