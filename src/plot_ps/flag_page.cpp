// flag_page.cpp - see flag_page.h.
#include "plot_ps/flag_page.h"

#include <string>

#include "plot_ps/moves.h"
#include "plot_ps/names.h"
#include "plot_ps/shapes.h"
#include "plot_ps/state.h"
#include "plot_ps/statement.h"
#include "plot_ps/text.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr std::size_t kLongestName = 20;  // letters that fit between file name and system

/// A file name as a PostScript string: it may hold parentheses.
std::string NameInString(const std::string& name) {
  std::string plain = PlainText(name, kLongestName), escaped;
  for (const char c : plain) {
    if (c == '(' || c == ')' || c == '\\') escaped += '\\';
    escaped += c;
  }
  return escaped;
}

}  // namespace

void WriteFlagPage() {
  constexpr float kLeft = 0.8f, kBottom = 0.8f, kWidth = 19.5f, kHeight = 1.0f, kDivider = 18.5f;
  const int cmMode = plotPs.cmMode;
  const std::string fontName = plotPs.fontName;
  const float charHeight = plotPs.charHeight;
  ps_cms();
  PutLine("%%Beginning of the flag page\n");
  ps_movea(kLeft, kBottom);
  ps_frame(kWidth, kHeight);
  ps_movea(kLeft + kDivider, kBottom);
  ps_drawr(0.0f, kHeight);
  ps_font("Times-Roman", 0.4f);
  ps_writea(1.0f, 1.15f, kCreationDate, 0.0f);
  ps_font("NewCenturySchlbk-BoldItalic", 0.5f);
  ps_writea(8.0f, 1.1f, NameInString(plotPs.docName), 0.0f);
  ps_font("Times-Roman", 0.4f);
  ps_writea(16.0f, 1.15f, kCreator, 0.0f);
  ps_writea(19.5f, 1.15f, FormatText("%d", plotPs.pageNo), 0.0f);
  PutLine("%%End of the flag page\n");
  plotPs.cmMode = cmMode;
  plotPs.fontName = fontName;
  plotPs.charHeight = 0.0f;
  if (charHeight > 0.0f) ps_size(charHeight);
}

}  // namespace sondera
