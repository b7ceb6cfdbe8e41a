// sheet.cpp - see sheet.h.
#include "report/sheet.h"

#include <algorithm>
#include <string_view>

#include "plot_ps/plot_ps.h"
#include "report/data_text.h"

namespace sondera {
namespace {

constexpr float kFootHeight = 0.3f, kHeadHeight = 0.4f, kHeadY = 23.0f;
constexpr float kSizePerCm = 37.5f;
constexpr float kSheetRight = 19.9f;  // cm from the page's origin: an A4 sheet minus a small margin

/// Width of a letter in Helvetica, as a fraction of its size, never too small.
float HelveticaWidth(char c) {
  if (std::string_view("ijl'.,:;|!/\\ ftI[]()-r\"").find(c) != std::string_view::npos) return 0.36f;
  if (std::string_view("mwMWGOQ@%+=<>~").find(c) != std::string_view::npos)
    return c == '@' || c == 'W' || c == '%' ? 1.02f : 0.84f;
  return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' ? 0.56f : 0.73f;
}

/// Letters from the end of a text that fit between the page's origin and the edge of the sheet.
std::size_t FootLetters(std::string_view latin1) {
  constexpr float kDots = 3.0f * 0.28f;
  const float room = (kSheetRight - 1.0f) * kPointsPerCm / (kFootHeight * kSizePerCm) - kDots;
  float width = 0.0f;
  std::size_t count = 0;
  for (auto c = latin1.rbegin(); c != latin1.rend(); ++c, ++count) {
    width += HelveticaWidth(*c);
    if (width > room) return count + 3;  // with the dots
  }
  return count;
}

}  // namespace

void PageFooter(std::string_view projectFile) {
  ps_cms();
  ps_gray(0.0f);
  ps_font("Helvetica", kFootHeight);
  ps_writea(0.0f, 0.0f, PageText(projectFile, FootLetters(Latin1(projectFile)), CutAt::front), 0.0f);
}

void PageHeader(const std::string& text) {
  ps_cms();
  ps_font("Helvetica", kHeadHeight);
  ps_writea(0.0f, kHeadY, text, 0.0f);
}

void putString(int kind, float x, float y, const std::string& text, float angle, float size) {
  constexpr float kBelowHeights = 1.4f;
  const float letter = size / kSizePerCm;
  const float half = 0.5f * static_cast<float>(LetterCount(text)) * letter;
  if (kind == kCentred || kind == kBelow) x -= half;
  if (kind == kCentredUpright) y -= half;
  if (kind == kFromPoint) y -= 0.5f * letter;
  if (kind == kBelow) y -= kBelowHeights * letter;
  ps_writea(x, y, text, angle);
}

std::size_t LettersToTheEdge(float x, float height) {
  const float letter = std::max(height, 0.01f) * kSizePerCm * kLetterWidth / kPointsPerCm;
  return static_cast<std::size_t>(std::max((kSheetRight - 1.0f - x) / letter, 1.0f));
}

}  // namespace sondera
