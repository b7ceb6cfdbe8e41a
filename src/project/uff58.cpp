// uff58.cpp - see uff58.h. Owns no state.
#include "project/uff58.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <utility>

#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr std::string_view kBlanks = " \t\r";
constexpr std::string_view kDelimiter = "    -1";
constexpr std::string_view kLabel = "    58";
constexpr std::string_view kBinaryLabel = "    58b";
constexpr std::size_t kLabelWidth = 6;
constexpr std::size_t kFunctionTypeWidth = 5;
constexpr std::size_t kFormWidth = 10;

constexpr int kIdLines = 5;
constexpr int kAxisLines = 4;
constexpr int kUnevenSpacing = 0;

bool IsBlank(std::string_view text) {
  return text.find_first_not_of(kBlanks) == std::string_view::npos;
}

/// A line with only this label.
bool IsLabel(std::string_view line, std::string_view label) {
  return line.substr(0, kLabelWidth) == label && IsBlank(line.substr(std::min(line.size(), kLabelWidth)));
}

bool IsBinaryLabel(std::string_view line) {
  return line.substr(0, kBinaryLabel.size()) == kBinaryLabel;
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// Length of an exponent without a letter at the front: a sign and exactly three digits. Compilers write
/// exponents without a letter only in this form.
std::size_t BareExponent(std::string_view rest) {
  constexpr std::size_t kLength = 4;
  if (rest.size() < kLength || (rest[0] != '+' && rest[0] != '-')) return 0;
  if (!std::all_of(rest.begin() + 1, rest.begin() + kLength, IsDigit)) return 0;
  const bool more = rest.size() > kLength && (IsDigit(rest[kLength]) || rest[kLength] == '.');
  return more ? 0 : kLength;
}

/// Reads lines until the set ends. False when the text or the set has no more.
bool NextLineOfSet(TextReader& text, std::string& line) {
  return text.ReadPhysicalLine(line) && !IsLabel(line, kDelimiter);
}

/// First field of record 6: five columns, or the position of the first integer when they are blank.
int FunctionType(std::string_view record) {
  const std::string_view field = record.substr(0, kFunctionTypeWidth);
  return ParseInt(IsBlank(field) ? record : field);
}

struct Form {
  int ordinateType = 0, points = 0, spacing = kUnevenSpacing;
  double minimum = 0.0, step = 0.0;
};

/// A field with one integer and blanks, nothing else.
bool IsIntegerField(std::string_view field) {
  std::size_t used = 0;
  ParseInt(field, &used);
  return used > 0 && IsBlank(field.substr(used));
}

/// Record 7. Its integers have ten columns each, and may touch; writers that do not use columns put blanks
/// between them. Fields that are not numbers count as 0.
Form ReadForm(std::string_view record) {
  Form form;
  const auto column = [&](std::size_t i) {
    return record.substr(std::min(i * kFormWidth, record.size()), kFormWidth);
  };
  const bool inColumns = IsIntegerField(column(0)) && IsIntegerField(column(1)) && IsIntegerField(column(2));
  for (int* field : {&form.ordinateType, &form.points, &form.spacing}) {
    std::size_t used = kFormWidth;
    *field = inColumns ? ParseInt(column(0)) : ParseInt(record, &used);
    record.remove_prefix(std::min(used, record.size()));
  }
  bool bad = false;
  if (NextUff58Number(record, form.minimum, bad)) NextUff58Number(record, form.step, bad);
  return form;
}

enum class HeaderOutcome { Read, Ended };

HeaderOutcome ReadHeader(TextReader& text, Uff58Set& set, int& spacing) {
  std::string line;
  const auto skip = [&](int lines) {
    while (lines > 0 && NextLineOfSet(text, line)) --lines;
    return lines == 0;
  };
  if (!skip(kIdLines) || !NextLineOfSet(text, line)) return HeaderOutcome::Ended;
  set.functionType = FunctionType(line);
  if (!NextLineOfSet(text, line)) return HeaderOutcome::Ended;
  const Form form = ReadForm(line);
  set.ordinateType = form.ordinateType;
  set.points = form.points;
  set.abscissaMin = form.minimum;
  set.abscissaStep = form.step;
  spacing = form.spacing;
  return skip(kAxisLines) ? HeaderOutcome::Read : HeaderOutcome::Ended;
}

Uff58Status DamagedAt(const TextReader& text, Uff58Set& set, std::string cause) {
  set.fault = {text.LinesRead(),
               text.ReadFailed() ? "the system could not read on from here" : std::move(cause)};
  return Uff58Status::Damaged;
}

/// Values of a set, point by point. Damaged when they end early, or one is not a finite number.
Uff58Status ReadValues(TextReader& text, Uff58Set& set) {
  constexpr char kNoNumber[] = "a value is not a finite number";
  constexpr char kTooFew[] = "the data end before the number of points in the header is reached";
  const bool complex = set.ordinateType == 5 || set.ordinateType == 6;
  const bool real = set.ordinateType == 2 || set.ordinateType == 4;
  const std::int64_t wanted = std::int64_t{set.points} * (complex ? 2 : 1);
  std::int64_t got = 0, bytes = 0;
  std::string line;
  while (got < wanted && NextLineOfSet(text, line)) {
    if (text.LineWasCut()) return DamagedAt(text, set, "the line is too long");
    bytes += static_cast<std::int64_t>(line.size()) + 1;
    if (!complex && !real) continue;
    std::string_view rest = line;
    bool bad = false;
    double value = 0.0;
    while (got < wanted && NextUff58Number(rest, value, bad)) {
      if (!std::isfinite(value)) return DamagedAt(text, set, kNoNumber);
      const bool imaginary = complex && got % 2 == 1;
      (imaginary ? set.im : set.re).push_back(value);
      ++got;
    }
    if (bad) return DamagedAt(text, set, kNoNumber);
  }
  // Kept: a set of another ordinate type counts as read though nothing is used from it. Its data must still
  // be able to hold its number of points.
  if (text.ReadFailed()) return DamagedAt(text, set, {});
  if (!complex && !real) return set.points <= bytes ? Uff58Status::Ok : DamagedAt(text, set, kTooFew);
  set.im.resize(set.re.size(), 0.0);
  return got == wanted ? Uff58Status::Ok : DamagedAt(text, set, kTooFew);
}

}  // namespace

bool NextUff58Number(std::string_view& line, double& value, bool& bad) {
  line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
  if (line.empty()) return false;
  std::size_t used = 0;
  value = ParseRealD(line, &used);
  if (used == 0) {
    bad = true;
    return false;
  }
  const std::string_view number = line.substr(0, used);
  const std::size_t exponent = BareExponent(line.substr(used));
  if (exponent > 0 && number.find('.') != std::string_view::npos &&
      number.find_first_of("eEdDxX") == std::string_view::npos) {
    value = ParseReal(std::string(number).append("e").append(line.substr(used, exponent)));
    used += exponent;
  }
  line.remove_prefix(used);
  // A number ends at a blank or at the sign of its neighbour; "1.2.3" is not a number.
  bad = !line.empty() && kBlanks.find(line.front()) == std::string_view::npos && line.front() != '+' &&
        line.front() != '-';
  return !bad;
}

Uff58Status ReadUff58(TextReader& text, const std::vector<int>& acceptedTypes, Uff58Scan scan,
                      Uff58Set& out) {
  std::string line;
  if (!text.ReadPhysicalLine(line) || line.substr(0, kLabelWidth) != kDelimiter) return Uff58Status::NotUff58;
  bool anySet = false;
  while (text.ReadPhysicalLine(line)) {
    if (IsBinaryLabel(line)) return Uff58Status::NotUff58;
    if (!IsLabel(line, kLabel)) continue;
    anySet = true;
    out = Uff58Set{};
    int spacing = kUnevenSpacing;
    const bool whole = ReadHeader(text, out, spacing) == HeaderOutcome::Read;
    const bool accepted =
        std::find(acceptedTypes.begin(), acceptedTypes.end(), out.functionType) != acceptedTypes.end();
    if (accepted && !whole) return DamagedAt(text, out, "the data set 58 ends in its header");
    if (!accepted || spacing == kUnevenSpacing) {
      if (scan == Uff58Scan::FirstSetOnly) return Uff58Status::NoMatch;
      continue;
    }
    if (out.points <= 0) return DamagedAt(text, out, "the data set 58 has no points");
    return ReadValues(text, out);
  }
  if (text.ReadFailed()) return DamagedAt(text, out, {});
  return anySet ? Uff58Status::NoMatch : Uff58Status::NotUff58;
}

}  // namespace sondera
