// number_table.h - tables of numbers in plain text, as spreadsheets and other programs write them: bytes in,
// columns out.
//
// The separator between columns is a comma, a semicolon, a tab or blanks: one kind in the whole text,
// determined from its first line. With semicolons the decimal sign may be a comma. A first line that is not a
// row of numbers names the columns. Lines that begin with "#" are comments; the last one before the numbers
// also names the columns, if it has as many fields. Empty lines do not count, an empty cell is NaN. Owned
// state: none.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace sondera {

struct NumberTable {
  std::vector<std::string> header;              ///< names of the columns; empty without
  std::vector<std::vector<double>> columns;     ///< equally long
  std::vector<std::vector<std::string>> first;  ///< the texts of the first rows, for who needs their digits
  char separator = ' ';

  std::size_t rows() const { return columns.empty() ? 0 : columns.front().size(); }
};

inline constexpr std::size_t kMostTableColumns = 4096;

/// Empty, or the sentence that refuses the text, with its line: no numbers, a cell that is none, a row with
/// more or fewer cells than the first, too many columns.
std::string ReadNumberTable(std::string_view text, NumberTable& table);

/// Fields of one line: quotation marks around a field and blanks at its ends are dropped.
std::vector<std::string> FieldsOf(std::string_view line, char separator);

/// The separator that a line suggests: ';', tab, ',' or ' '.
char SeparatorOf(std::string_view line);

/// The number in a field, if the whole field is one; false for other text.
bool IsNumber(std::string_view field, bool decimalComma, double& value);

}  // namespace sondera
