// number_table.cpp - see number_table.h.
#include "project/number_table.h"

#include <algorithm>
#include <cctype>
#include <limits>

#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr std::size_t kKeptRows = 2;
constexpr std::size_t kLongestNumber = 64;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view Trimmed(std::string_view text) {
  const auto isBlank = [](char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; };
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

/// Removes the next line from the text and returns it without its end.
std::string_view NextLine(std::string_view& text) {
  const std::size_t end = std::min(text.find('\n'), text.size());
  std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

bool AreNumbers(const std::vector<std::string>& fields, bool decimalComma) {
  double value = 0.0;
  bool any = false;
  for (const std::string& field : fields) {
    if (field.empty()) continue;
    if (!IsNumber(field, decimalComma, value)) return false;
    any = true;
  }
  return any;
}

std::string BadCell(std::size_t line, const std::string& field, char separator) {
  std::string text =
      FormatText("line %zu: \"", line) + field.substr(0, kLongestNumber) + "\" is not a number";
  double value = 0.0;
  if (separator != ';' && IsNumber(field, true, value))
    text += "; with decimal commas the columns have to be separated by semicolons";
  return text;
}

std::string AddRow(const std::vector<std::string>& fields, std::size_t line, NumberTable& table) {
  if (table.columns.empty()) {
    if (fields.size() > kMostTableColumns)
      return FormatText("line %zu: there are %zu columns, and at most %zu are read", line, fields.size(),
                        kMostTableColumns);
    table.columns.resize(fields.size());
  }
  if (fields.size() != table.columns.size())
    return FormatText("line %zu has %zu columns, and the lines before it %zu", line, fields.size(),
                      table.columns.size());
  for (std::size_t i = 0; i < fields.size(); ++i) {
    double value = std::numeric_limits<double>::quiet_NaN();
    if (!fields[i].empty() && !IsNumber(fields[i], table.separator == ';', value))
      return BadCell(line, fields[i], table.separator);
    table.columns[i].push_back(value);
  }
  if (table.first.size() < kKeptRows) table.first.push_back(fields);
  return {};
}

}  // namespace

char SeparatorOf(std::string_view line) {
  for (char c : {';', '\t', ','})
    if (line.find(c) != std::string_view::npos) return c;
  return ' ';
}

std::vector<std::string> FieldsOf(std::string_view line, char separator) {
  std::vector<std::string> fields;
  line = separator == ' ' ? Trimmed(line) : line;
  while (true) {
    bool quoted = false;
    std::size_t end = 0;
    while (end < line.size() &&
           (quoted || !(line[end] == separator || (separator == ' ' && line[end] == '\t')))) {
      if (line[end] == '"') quoted = !quoted;
      ++end;
    }
    std::string_view field = Trimmed(line.substr(0, end));
    if (field.size() > 1 && field.front() == '"' && field.back() == '"')
      field = field.substr(1, field.size() - 2);
    fields.emplace_back(field);
    if (end == line.size() || fields.size() > kMostTableColumns) return fields;
    line.remove_prefix(end + 1);
    if (separator == ' ') line = Trimmed(line);
  }
}

bool IsNumber(std::string_view field, bool decimalComma, double& value) {
  if (field.empty() || field.size() > kLongestNumber) return false;
  std::string text(field);
  if (decimalComma) std::replace(text.begin(), text.end(), ',', '.');
  std::size_t used = 0;
  const double number = ParseReal(text, &used);
  if (used != text.size()) return false;
  value = number;
  return true;
}

std::string ReadNumberTable(std::string_view text, NumberTable& table) {
  table = {};
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  std::string_view comment;
  bool begun = false;
  for (std::size_t number = 1; !text.empty(); ++number) {
    const std::string_view line = NextLine(text);
    if (Trimmed(line).empty()) continue;
    if (Trimmed(line).front() == '#') {
      if (!begun) comment = Trimmed(line).substr(1);
      continue;
    }
    if (!begun) table.separator = SeparatorOf(line);
    const std::vector<std::string> fields = FieldsOf(line, table.separator);
    if (!begun && !AreNumbers(fields, table.separator == ';')) {
      begun = true;
      table.header = fields;
      continue;
    }
    begun = true;
    if (std::string reason = AddRow(fields, number, table); !reason.empty()) return reason;
  }
  if (table.rows() == 0) return "the file holds no row of numbers";
  const auto names = FieldsOf(comment, SeparatorOf(comment));
  double value = 0.0;
  const bool areNames = !comment.empty() && names.size() == table.columns.size() &&
                        std::none_of(names.begin(), names.end(),
                                     [&](const std::string& name) { return IsNumber(name, false, value); });
  if (table.header.empty() && areNames) table.header = names;
  if (!table.header.empty() && table.header.size() != table.columns.size())
    return FormatText("the first line names %zu columns, and there are %zu", table.header.size(),
                      table.columns.size());
  return {};
}

}  // namespace sondera
