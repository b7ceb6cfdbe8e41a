// import_preview.cpp - see import_preview.h.
#include "project/import_preview.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "project/import_text.h"
#include "project/uff58.h"
#include "runtime/paths.h"
#include "runtime/terminal.h"
#include "runtime/text_format.h"
#include "runtime/text_reader.h"

namespace sondera {
namespace {

constexpr int kLinesShown = 6;
constexpr std::size_t kColumnsShown = 78;
constexpr int kMostLinesRead = 1 << 20;  // a preview must not take long

std::string FirstLines(TextReader& text) {
  std::string shown, line;
  for (int i = 0; i < kLinesShown && text.ReadPhysicalLine(line, 4 * kColumnsShown); ++i) {
    std::string visible = VisibleText(line);
    if (visible.size() > kColumnsShown || text.LineWasCut())
      visible = visible.substr(0, kColumnsShown) + " ...";
    shown += "  " + visible + "\n";
  }
  text.Rewind();
  return shown;
}

std::string FaultText(const TextFault& fault) {
  if (fault.line > 0)
    return FormatText("Not understood: line %lld: ", static_cast<long long>(fault.line)) + fault.cause;
  return "Not understood: " + fault.cause;
}

std::string Understood(const TextColumns& columns, const std::string& axis, const std::string& unit) {
  const int n = columns.count();
  if (n < 2) return "Not understood: there are not two lines of numbers.";
  std::string text =
      FormatText("Understood: %d lines%s of %s and %s, ", n, n >= kMostLinesRead ? " or more" : "",
                 axis.c_str(), columns.b.empty() ? "value" : "two values");
  const auto last = static_cast<std::size_t>(n - 1);
  text += FormatText("%.6g to %.6g %s in steps of %.6g %s.", columns.axis.front(), columns.axis[last],
                     unit.c_str(), (columns.axis[last] - columns.axis.front()) / static_cast<double>(n - 1),
                     unit.c_str());
  if (columns.linesBehind > 0)
    text +=
        FormatText(" %d more lines with numbers stand behind them and are not read.", columns.linesBehind);
  if (columns.shortLines > 0)
    text += FormatText(" %d lines lack a value, which counts as 0.", columns.shortLines);
  const bool finite =
      std::all_of(columns.a.begin(), columns.a.end(), [](double v) { return std::isfinite(v); });
  if (!finite) text += " Some values are no numbers.";
  return text;
}

std::string UnderstoodSet(Uff58Status status, const Uff58Set& set) {
  switch (status) {
    case Uff58Status::Ok:
      return FormatText(
          "Understood: a set 58 of function type %d, %d points, %.6g to %.6g Hz in steps of %.6g Hz.",
          set.functionType, set.points, set.abscissaMin,
          set.abscissaMin + set.abscissaStep * std::max(set.points - 1, 0), set.abscissaStep);
    case Uff58Status::NotUff58:
      return "Not understood: no universal file with a set 58 in text form.";
    case Uff58Status::NoMatch:
      return "Not understood: no set 58 of this kind of data at even spacing.";
    case Uff58Status::Damaged:
      break;
  }
  return FaultText(set.fault);
}

template <class Understand>
std::string PreviewOf(const std::string& path, Understand understand) {
  TextReader text;
  std::string reason;
  if (!text.Open(path, &reason)) return "Not understood: " + reason;
  const std::string lines = FirstLines(text);
  return FileNameOf(path) + "\n" + lines + understand(text);
}

}  // namespace

std::string PreviewOfColumns(const std::string& path, int values, const std::string& axis,
                             const std::string& axisUnit) {
  return PreviewOf(path, [&](TextReader& text) {
    TextColumns columns = ReadColumns(
        text, {.values = values, .tokensNeeded = values == 1 ? 2 : 1, .maxLines = kMostLinesRead});
    if (columns.damaged || !HasEvenAxis(columns, axis == "time" ? "times" : "frequencies"))
      return FaultText(columns.fault);
    return Understood(columns, axis, axisUnit);
  });
}

std::string PreviewOfUff58(const std::string& path, int functionType) {
  std::vector<int> accepted = {functionType};
  if (functionType == uff58_function::kFrequencyResponse) accepted.push_back(uff58_function::kCrossSpectrum);
  return PreviewOf(path, [&](TextReader& text) {
    Uff58Set set;
    const Uff58Status status = ReadUff58(text, accepted, Uff58Scan::UntilMatch, set);
    return UnderstoodSet(status, set);
  });
}

}  // namespace sondera
