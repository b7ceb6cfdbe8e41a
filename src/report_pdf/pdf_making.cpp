// pdf_making.cpp - how the result was made, and the doubts about it.
#include <algorithm>

#include "report_pdf/pdf_pages.h"
#include "runtime/utf8.h"

namespace sondera {
namespace {

// Letters that safely fit on a line in this size, so that pages are planned before anything is measured.
constexpr std::size_t kLetters = 84, kLinesOfPage = 46;
constexpr double kNameWidth = 130.0;
constexpr std::size_t kValueLetters = 62;

struct TextRow {
  std::string name, text;
  bool isValue = false;  ///< shown beside the names
  bool bold = false;
};

/// Splits a text at its spaces; the page shortens a word that is longer than a line with dots.
std::vector<std::string> Lines(const std::string& text, std::size_t letters) {
  std::vector<std::string> lines(1);
  std::size_t held = 0;
  const std::string sound = ValidText(text);
  for (std::size_t at = 0; at < sound.size();) {
    const std::size_t end = std::min(sound.find(' ', at), sound.size());
    const std::string word = sound.substr(at, end - at);
    const std::size_t length = LettersOf(word);
    at = end + 1;
    if (held > 0 && held + 1 + length > letters) {
      lines.emplace_back();
      held = 0;
    }
    if (held > 0) lines.back() += " ";
    lines.back() += word;
    held += length + (held > 0 ? 1 : 0);
  }
  return lines;
}

std::vector<TextRow> RowsOf(const PdfReport& report) {
  std::vector<TextRow> rows;
  for (const Fact& fact : report.making) {
    bool first = true;
    for (const std::string& line : Lines(fact.value, kValueLetters)) {
      rows.push_back({first ? fact.name : "", line, true, false});
      first = false;
    }
  }
  rows.push_back({});
  rows.push_back({"", "What was doubted", false, true});
  if (report.doubts.empty()) rows.push_back({"", "Nothing."});
  for (const std::string& doubt : report.doubts) {
    bool first = true;
    for (const std::string& line : Lines(doubt, kLetters)) {
      rows.push_back({"", (first ? "• " : "   ") + line});
      first = false;
    }
  }
  return rows;
}

}  // namespace

PlannedPages MakingPages(const PdfReport& report) {
  if (report.making.empty()) return {};
  const std::vector<TextRow> rows = RowsOf(report);
  PlannedPages pages;
  for (std::size_t from = 0; from < rows.size(); from += kLinesOfPage) {
    const std::vector<TextRow> some(
        rows.begin() + static_cast<std::ptrdiff_t>(from),
        rows.begin() + static_cast<std::ptrdiff_t>(std::min(rows.size(), from + kLinesOfPage)));
    const bool first = from == 0;
    pages.push_back({first ? "How it was made" : "", [some, first](Canvas& canvas, const Sheet& sheet) {
                       double y = WriteHeading(canvas, sheet,
                                               first ? "How it was made" : "How it was made, continued");
                       TextLook look;
                       look.size = kBodySize;
                       const double width = sheet.right - sheet.left;
                       for (const TextRow& row : some) {
                         y += 13.5;
                         look.bold = false;
                         look.color = kFaintInk;
                         if (!row.name.empty())
                           WriteLine(canvas, sheet.left, y, kNameWidth - 6.0, row.name, look);
                         look.color = kTextInk;
                         look.bold = row.bold;
                         const double indent = row.isValue ? kNameWidth : 0.0;
                         WriteLine(canvas, sheet.left + indent, y, width - indent, row.text, look);
                       }
                     }});
  }
  return pages;
}

}  // namespace sondera
