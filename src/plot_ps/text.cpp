// text.cpp - see text.h and page_text.h.
#include "plot_ps/text.h"

#include <algorithm>
#include <cmath>

#include "plot_ps/moves.h"
#include "plot_ps/page_text.h"
#include "plot_ps/state.h"
#include "plot_ps/statement.h"
#include "runtime/terminal.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr std::size_t kLongestText = 199;  // bytes
constexpr std::size_t kLongestFontName = 127;
constexpr float kSizePerHeight = 37.5f;  // points per cm
constexpr float kLargestSize = 10000.0f;

bool IsHeight(float height) {
  return std::isfinite(height) && height > 0.0f;
}

/// Whether PostScript reads "/name" as one name.
bool IsFontName(const std::string& name) {
  const auto regular = [](char c) {
    return c > ' ' && c <= '~' && std::string_view("()<>[]{}/%").find(c) == std::string_view::npos;
  };
  return !name.empty() && name.size() <= kLongestFontName && std::all_of(name.begin(), name.end(), regular);
}

void PutFont() {
  const float size = std::round(std::min(plotPs.charHeight * kSizePerHeight, kLargestSize));
  Statement()
      .Word("/")
      .Word(plotPs.fontName)
      .Word(" findfont ")
      .Whole(std::max(1, static_cast<int>(size)))
      .Put("scalefont setfont\n");
}

/// The text at the end point of the last move.
int WriteThere(std::string_view text, float height, float angle) {
  if (plotPs.gap) return 1;  // the position is not finite
  if (height != plotPs.charHeight) ps_size(height);
  const int degrees = WholeDegrees(angle);
  if (degrees == 0) return p_puts(text);
  PutLine("gsave\n");
  Statement().Word(" ").Whole(degrees).Put("rotate\n");
  const int written = p_puts(text);
  PutLine("grestore\n");
  return written;
}

int WriteByMode(float x, float y, int code, std::string_view text, float height, float angle) {
  return plotPs.cmMode ? ps_chara(x, y, code, text, height, angle)
                       : ps_chars(x, y, code, text, height, angle);
}

int WriteUpright(float x, float y, const std::string& text, float height) {
  const int written = ps_writeav(x, y, text, height);
  ps_home();
  return written;
}

}  // namespace

int p_puts(std::string_view text) {
  if (text.size() > kLongestText) {
    const std::string shown = VisibleText(text);
    Complain("\aPLOT_PS warning: String too long:\n %s\nIgnored\n", shown.c_str());
    return 0;
  }
  Statement().Word("(").Word(text).Put(") S\n");
  return 1;
}

int ps_font(const std::string& name, float height) {
  if (!IsFontName(name)) {
    Complain("PLOT_PS: ps_font warning: no font name: %s\n", VisibleText(name).c_str());
    return 0;
  }
  plotPs.fontName = name;
  if (IsHeight(height)) plotPs.charHeight = height;
  if (IsHeight(plotPs.charHeight)) PutFont();
  return 1;
}

void ps_size(float height) {
  if (!IsHeight(height)) return;
  plotPs.charHeight = height;
  PutFont();
}

int WriteAt(PagePoint point, std::string_view text, float height, float angle) {
  MoveTo(point);
  return WriteThere(text, height, angle);
}

int ps_chara(float x, float y, int code, std::string_view text, float height, float angle) {
  return traa(x, y, code) ? WriteThere(text, height, angle) : 0;
}

int ps_chars(float x, float y, int code, std::string_view text, float height, float angle) {
  return tras(x, y, code) ? WriteThere(text, height, angle) : 0;
}

int ps_write(std::string_view text) {
  return WriteThere(text, plotPs.charHeight, 0.0f);
}

int ps_writea(float x, float y, std::string_view text, float angle) {
  return WriteByMode(x, y, absoluteMove, text, plotPs.charHeight, angle);
}
int ps_writer(float x, float y, std::string_view text, float angle) {
  return WriteByMode(x, y, relativeMove, text, plotPs.charHeight, angle);
}
int ps_writeah(float x, float y, std::string_view text, float height) {
  return WriteByMode(x, y, absoluteMove, text, height, 0.0f);
}
int ps_writeav(float x, float y, std::string_view text, float height) {
  constexpr float kUpwards = 90.0f;
  return WriteByMode(x, y, absoluteMove, text, height, kUpwards);
}

int ps_writefloatah(float x, float y, float value, float height) {
  return ps_writeah(x, y, FormatText("%g", static_cast<double>(value)), height);
}
int ps_writefloatav(float x, float y, float value, float height) {
  return WriteUpright(x, y, FormatText("%g", static_cast<double>(value)), height);
}
int ps_writeintah(float x, float y, int value, float height) {
  return ps_writeah(x, y, FormatText("%d", value), height);
}
int ps_writeintav(float x, float y, int value, float height) {
  return WriteUpright(x, y, FormatText("%d", value), height);
}

}  // namespace sondera
