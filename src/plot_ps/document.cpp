// document.cpp - see document.h.
#include "plot_ps/document.h"

#include <cstdlib>

#include "plot_ps/ink.h"
#include "plot_ps/moves.h"
#include "plot_ps/path.h"
#include "plot_ps/shapes.h"
#include "plot_ps/spooler.h"
#include "plot_ps/state.h"
#include "plot_ps/statement.h"
#include "plot_ps/text.h"
#include "runtime/byte_source.h"
#include "runtime/file_driver.h"
#include "runtime/process_end.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr const char* kVersion = "1.0";
constexpr const char* kCreator = "MS/DOS";
// Kept: the text, not the time. Two files of the same project are equal byte by byte.
constexpr const char* kCreationDate = "now...";

constexpr std::size_t kLongestName = 200;   // in a comment line of at most 255 bytes
constexpr std::size_t kLongestInFlag = 24;  // letters of a file name in its field of the flag page
constexpr char kFirstPrintable = ' ', kLastPrintable = '~';

bool OpenOutput(const std::string& name) {
  plotPs.docName = name;
  plotPs.outFile = std::make_unique<TextWriter>(name);
  plotPs.reason = plotPs.outFile->Reason();
  if (!plotPs.reason.empty()) plotPs.outFile.reset();
  return plotPs.outFile != nullptr;
}

void StartState() {
  const int bannerOn = plotPs.bannerOn;
  ResetPlotPs();
  plotPs.bannerOn = bannerOn;
  const char* queue = std::getenv("PRINT_PLOT_PS");
  if (queue) plotPs.queueName = queue;
}

/// Octal in place of all that is not plain text, and the end of what is too long.
std::string PlainText(std::string_view text, std::size_t most) {
  std::string plain;
  for (const char c : text) {
    if (c >= kFirstPrintable && c <= kLastPrintable)
      plain += c;
    else
      plain += FormatText("\\%03o", static_cast<unsigned>(static_cast<unsigned char>(c)));
  }
  return plain.size() <= most ? plain : "..." + plain.substr(plain.size() - most + 3);
}

std::string NameInComment(std::string_view name) {
  return PlainText(name, kLongestName);
}

/// A file name as a PostScript string: it may hold parentheses.
std::string NameInString(const std::string& name) {
  std::string plain = PlainText(name, kLongestInFlag), escaped;
  for (const char c : plain) {
    if (c == '(' || c == ')' || c == '\\') escaped += '\\';
    escaped += c;
  }
  return escaped;
}

/// Ink and font of the page are the same behind the flag page as before it.
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

void WriteProlog() {
  PutLine("%!PS-Adobe-2.0 EPSF-1.2\n");
  PutLine(FormatText("%%PLOT_PS V%s\n%%%%Creator: %s\n", kVersion, kCreator));
  PutLine(FormatText("%%%%Title: %s\n", NameInComment(plotPs.docName).c_str()));
  PutLine(FormatText("%%%%CreationDate: %s\n", kCreationDate));
  PutLine(
      "%%Pages: (atend)\n"
      "%%EndComments\n"
      "save\n"
      "/M { moveto } bind def\n"
      "/rM { rmoveto } bind def\n"
      "/L { lineto } bind def\n"
      "/rL { rlineto } bind def\n"
      "/S { show } bind def\n"
      "/GSG { gsave stroke grestore } bind def\n");
}

/// From the open file to the first mark of the caller.
void BeginDocument() {
  WriteProlog();
  if (plotPs.bannerOn) WriteFlagPage();
  ps_origin(1.0f, 2.0f, 0.0f, 0.0f);
  const PlotPsState seed;
  plotPs.minX = seed.minX;
  plotPs.minY = seed.minY;
  plotPs.maxX = seed.maxX;
  plotPs.maxY = seed.maxY;
}

/// Ends the line if the text did not.
void CloseLine(char last) {
  if (last != '\n') PutLine("\n");
}

}  // namespace

void plopen(const std::string& name) {
  if (OpenOutput(name)) return;
  Complain("\aPLOT_PS error: Impossible to open the PostScript file %s \n", VisibleText(name).c_str());
  EndProcess(1);
}

int plclose(const std::string& name) {
  if (plotPs.strokePending) PutLine("stroke\n");
  plotPs.strokePending = plotPs.pathPainted = 0;
  PutLine("showpage\nrestore\n");
  PutLine(FormatText("%%%%BoundingBox: %.1f %.1f %.1f %.1f\n", static_cast<double>(plotPs.minX),
                     static_cast<double>(plotPs.minY), static_cast<double>(plotPs.maxX),
                     static_cast<double>(plotPs.maxY)));
  PutLine(FormatText("%%%%Pages: %d\n%%%%End of File %s\n", plotPs.pageNo, NameInComment(name).c_str()));
  const bool done = plotPs.outFile && plotPs.outFile->Close();
  if (!done) {
    plotPs.reason = plotPs.outFile ? plotPs.outFile->Reason() : "No PostScript document is open";
    Complain("\aPLOT_PS error: Problem when closing the %s PostScript file\n", VisibleText(name).c_str());
  }
  plotPs.outFile.reset();
  return done ? 1 : 0;
}

void ps_iniplot(const std::string& name) {
  StartState();
  plopen(name);
  BeginDocument();
}

bool ps_try_iniplot(const std::string& name) {
  StartState();
  if (!OpenOutput(name)) return false;
  BeginDocument();
  return true;
}

void ps_newpage() {
  StrokePending();
  PutLine("showpage\n");
  plotPs.pathPainted = 0;
  ++plotPs.pageNo;
  if (plotPs.bannerOn) WriteFlagPage();
  ps_origin(1.0f, 2.0f, 0.0f, 0.0f);
}

int ps_endplot(const std::string& name, char action) {
  const std::string file = name.empty() ? plotPs.docName : name;
  StrokePath();
  if (!plclose(file)) return 0;
  if (action == 'f') return 1;
  if (!PrintFile(plotPs.queueName, file)) return 0;
  if (action == 'd') RemoveFile(file);
  return 1;
}

std::string ps_reason() {
  return plotPs.outFile ? plotPs.outFile->Reason() : plotPs.reason;
}

void ps_banner() {
  plotPs.bannerOn = 1;
}
void ps_no_banner() {
  plotPs.bannerOn = 0;
}

void ps_queue_name(const std::string& name) {
  plotPs.queueName = name;
}

int ps_include(const std::string& file) {
  ByteSource source;
  if (!source.Open(file)) {
    Complain("\aPLOT_PS: ps_include Warning: Impossible to open the file %s\n", VisibleText(file).c_str());
    return 0;
  }
  const std::string name = NameInComment(file);
  PutLine(FormatText("%%%%\n%%%% PLOT_PS beginning of ps_include of file %s\n%%%%\n", name.c_str()));
  char last = '\n';
  for (std::string_view block = source.Window(); !block.empty(); block = source.Window()) {
    PutLine(block);
    last = block.back();
    source.Consume(block.size());
  }
  CloseLine(last);
  PutLine(FormatText("%%%%\n%%%% PLOT_PS end of ps_include of file %s\n%%%%\n", name.c_str()));
  if (!source.Failed()) return 1;
  Complain("\aPLOT_PS: ps_include Warning: Impossible to open the file %s\n", VisibleText(file).c_str());
  return 0;
}

void ps_code(std::string_view text) {
  PutLine("%% PLOT_PS beginning of ps_code inclusion\n");
  PutLine(text);
  CloseLine(text.empty() ? '\n' : text.back());
  PutLine("%% PLOT_PS end of ps_code inclusion\n");
}

}  // namespace sondera
