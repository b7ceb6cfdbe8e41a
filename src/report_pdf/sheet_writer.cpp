// sheet_writer.cpp - see sheet_writer.h.
#include "report_pdf/sheet_writer.h"

#include <array>

#include "runtime/utf8.h"

namespace sondera {
namespace {

constexpr double kRowStep = 13.0, kTableHead = 16.0, kCellGap = 3.0;

void Rule(Canvas& canvas, double from, double to, double y, double width, int color) {
  const std::array<PixelPoint, 2> ends = {PixelPoint{from, y}, PixelPoint{to, y}};
  canvas.Line(ends, {color, width, LineDash::Solid});
}

}  // namespace

Sheet SheetOf(Paper paper) {
  constexpr double kMargin = 54.0, kFoot = 60.0;
  Sheet sheet;
  sheet.width = paper == Paper::A4 ? 595.276 : 612.0;
  sheet.height = paper == Paper::A4 ? 841.89 : 792.0;
  sheet.left = kMargin;
  sheet.top = kMargin;
  sheet.right = sheet.width - kMargin;
  sheet.bottom = sheet.height - kFoot;
  return sheet;
}

double WriteHeading(Canvas& canvas, const Sheet& sheet, const std::string& text) {
  TextLook look;
  look.size = 14.0;
  look.bold = true;
  look.color = kTextInk;
  WriteLine(canvas, sheet.left, sheet.top + 8.0, sheet.right - sheet.left, text, look);
  Rule(canvas, sheet.left, sheet.right, sheet.top + 15.0, 0.8, kTextInk);
  return sheet.top + 26.0;
}

void WriteLine(Canvas& canvas, double x, double baseline, double width, const std::string& text,
               const TextLook& look) {
  canvas.Text({x, baseline}, Fitted(canvas, text, look, width), look);
}

std::vector<std::string> Wrapped(Canvas& canvas, const std::string& text, const TextLook& look,
                                 double width) {
  std::vector<std::string> lines;
  std::string line;
  const std::string sound = ValidText(text);
  for (std::size_t at = 0; at < sound.size();) {
    const std::size_t end = std::min(sound.find(' ', at), sound.size());
    const std::string word = sound.substr(at, end - at);
    at = end + 1;
    if (word.empty()) continue;
    const std::string longer = line.empty() ? word : line + " " + word;
    if (line.empty() || canvas.TextWidth(longer, look) <= width) {
      line = longer;
      continue;
    }
    lines.push_back(line);
    line = word;
  }
  if (!line.empty()) lines.push_back(line);
  for (std::string& each : lines) each = Fitted(canvas, each, look, width);
  return lines;
}

double WriteParagraph(Canvas& canvas, double x, double y, double width, const std::string& text,
                      const TextLook& look) {
  const double step = 1.35 * look.size;
  for (const std::string& line : Wrapped(canvas, text, look, width)) {
    y += step;
    canvas.Text({x, y - 0.3 * look.size}, line, look);
  }
  return y;
}

double TableHeight(std::size_t rows) {
  return kTableHead + kRowStep * static_cast<double>(rows) + 4.0;
}

double WriteTable(Canvas& canvas, double x, double y, double width, const std::vector<TableColumn>& columns,
                  const std::vector<std::vector<std::string>>& rows) {
  double shares = 0.0;
  for (const TableColumn& column : columns) shares += column.share;
  TextLook look;
  look.size = 8.0;
  look.color = kTextInk;
  const auto write = [&](double baseline, std::size_t c, double from, double room, const std::string& text) {
    look.align = columns[c].align;
    const double at = look.align == TextAlign::Left     ? from
                      : look.align == TextAlign::Center ? from + 0.5 * room
                                                        : from + room;
    WriteLine(canvas, at, baseline, room, text, look);
  };
  const auto row = [&](double baseline, const auto& textOf) {
    double from = x;
    for (std::size_t c = 0; c < columns.size(); ++c) {
      const double room = width * columns[c].share / shares;
      write(baseline, c, from + kCellGap, room - 2 * kCellGap, textOf(c));
      from += room;
    }
  };
  look.bold = true;
  row(y + 10.0, [&](std::size_t c) { return columns[c].title; });
  look.bold = false;
  Rule(canvas, x, x + width, y + kTableHead - 1.5, 0.6, kTextInk);
  y += kTableHead;
  for (const std::vector<std::string>& cells : rows) {
    row(y + 9.0, [&](std::size_t c) { return c < cells.size() ? cells[c] : std::string(); });
    y += kRowStep;
  }
  Rule(canvas, x, x + width, y + 1.0, 0.4, kFaintInk);
  return y + 4.0;
}

}  // namespace sondera
