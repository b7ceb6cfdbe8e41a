// curve_file.cpp - see curve_file.h.
#include "project/curve_file.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "run/measured_curves.h"
#include "runtime/text_format.h"
#include "runtime/text_reader.h"

namespace sondera {
namespace {

/// Real numbers of a line; "," and white space between them.
std::vector<double> NumbersOf(const std::string& line) {
  std::vector<double> numbers;
  Tokenizer tokens(line, " ,\t\n\r");
  while (const auto token = tokens.Next()) {
    std::size_t used = 0;
    numbers.push_back(ParseReal(*token, &used));
    if (used != token->size()) return {};
  }
  return numbers;
}

/// Next line that is not blank; false at the end of the text, or before a line of absurd length.
bool NextLine(TextReader& file, std::string& line) {
  while (file.ReadPhysicalLine(line)) {
    if (file.LineWasCut()) return false;
    if (line.find_first_not_of(" \t\r") != std::string::npos) return true;
  }
  return false;
}

bool NextCount(TextReader& file, int& n) {
  std::string line;
  std::size_t used = 0;
  if (!NextLine(file, line)) return false;
  n = ParseInt(line, &used);
  return used > 0 && n >= 0;
}

/// Rows of at least `columns` numbers, all with the same count; the text must contain all rows.
bool ReadRows(TextReader& file, int rows, std::size_t columns, std::vector<std::vector<double>>& table) {
  std::string line;
  for (int i = 0; i < rows; ++i) {
    if (!NextLine(file, line)) return false;
    table.push_back(NumbersOf(line));
    if (table.back().size() < columns) return false;
  }
  return true;
}

bool ReadGlobalCurve(TextReader& file, ModelRecord& m) {
  std::string names;
  int n = 0;
  if (!FS_FilePointer(file, "GCD")) return false;
  if (!NextLine(file, names) || !NextCount(file, n)) return false;
  std::vector<std::vector<double>> rows;
  if (!ReadRows(file, n, 3, rows)) return false;
  MeasuredPoints curve;
  for (const std::vector<double>& row : rows) {
    curve.vel.push_back(row[0]);
    curve.freq.push_back(row[1]);
    curve.wlen.push_back(row[2]);
  }
  TakeGlobalCurve(m, curve);
  return true;
}

bool ReadArrayCurves(TextReader& file, ModelRecord& m) {
  std::string line1, line2, heading;
  int kind = 0, n = 0;
  if (!FS_FilePointer(file, "ICD")) return false;
  if (!NextCount(file, kind) || !NextLine(file, line1) || !NextLine(file, line2)) return false;
  if (!TakeReceivers(m, line1, line2).empty()) return false;
  if (!NextCount(file, n) || !NextLine(file, heading) || heading.rfind("[Velocity]", 0) != 0) return false;
  const std::size_t curves = static_cast<std::size_t>(m.nDispCurves);
  std::vector<std::vector<double>> rows;
  if (!ReadRows(file, n, curves + 1, rows) || !ReserveArrayCurves(m, n).empty()) return false;
  for (std::size_t p = 0; p < rows.size(); ++p) {
    m.freq[p] = rows[p][0];
    std::copy_n(rows[p].begin() + 1, m.nDispCurves, m.vel.begin() + static_cast<std::ptrdiff_t>(p * curves));
  }
  return true;
}

}  // namespace

Refusal ReadCurves(const std::string& path, ModelRecord& record, Switches& switches) {
  const std::string name = path + ".red";
  TextReader file;
  if (file.Open(name) && ReadCurvesFrom(file, record, switches)) return {};
  return "Error in reading the array rep. disp. curve into file " + name + ".";
}

bool ReadCurvesFrom(TextReader& file, ModelRecord& record, Switches& switches) {
  ModelRecord m = record;
  if (!ReadGlobalCurve(file, m) || !ReadArrayCurves(file, m) || file.ReadFailed()) return false;
  FinishArrayCurves(m);
  record = std::move(m);
  MarkAsData(record, switches);
  return true;
}

bool FS_FilePointer(TextReader& file, std::string_view key) {
  file.Rewind();
  std::string line;
  while (file.ReadLine(line, 256)) {
    if (line.front() != '*') continue;
    Tokenizer tokens(line, ",\t\n*");
    const auto word = tokens.Next();
    if (word && *word == key) return true;
  }
  return false;
}

}  // namespace sondera
