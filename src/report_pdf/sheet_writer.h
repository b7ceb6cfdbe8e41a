// sheet_writer.h - headings, paragraphs and tables on a page of the PDF report. Lengths are points, y downward. No state.
#pragma once

#include <string>
#include <vector>

#include "figure/canvas.h"

namespace sondera {

enum class Paper { A4, Letter };

/// A page and its area for the contents.
struct Sheet {
  double width = 0.0, height = 0.0;
  double left = 0.0, top = 0.0, right = 0.0, bottom = 0.0;
};
Sheet SheetOf(Paper paper);

inline constexpr double kBodySize = 9.0, kSmallSize = 7.5, kLineStep = 12.5;
inline constexpr int kTextInk = 0x1A1A1A, kFaintInk = 0x666666;

/// The title of a page, with a line below. @return y below it
double WriteHeading(Canvas& canvas, const Sheet& sheet, const std::string& text);

/// One line, shortened with dots where it is wider than the space.
void WriteLine(Canvas& canvas, double x, double baseline, double width, const std::string& text,
               const TextLook& look);

/// A text split into lines of at most that width, at its spaces.
std::vector<std::string> Wrapped(Canvas& canvas, const std::string& text, const TextLook& look, double width);

/// Lines of a text below one another. @return y below them
double WriteParagraph(Canvas& canvas, double x, double y, double width, const std::string& text,
                      const TextLook& look);

struct TableColumn {
  std::string title;
  double share = 1.0;  ///< of the width, relative to the others
  TextAlign align = TextAlign::Right;
};
/// Height of a table with that many rows.
double TableHeight(std::size_t rows);
/// @return y below it
double WriteTable(Canvas& canvas, double x, double y, double width, const std::vector<TableColumn>& columns,
                  const std::vector<std::vector<std::string>>& rows);

}  // namespace sondera
