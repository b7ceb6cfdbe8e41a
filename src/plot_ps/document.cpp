// document.cpp - see document.h.
#include "plot_ps/document.h"

#include <cstdlib>

#include "numeric/process_end.h"
#include "plot_ps/flag_page.h"
#include "plot_ps/moves.h"
#include "plot_ps/names.h"
#include "plot_ps/path.h"
#include "plot_ps/spooler.h"
#include "plot_ps/state.h"
#include "plot_ps/statement.h"
#include "runtime/file_driver.h"
#include "runtime/terminal.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr const char* kVersion = "1.0";

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

/// The output before the first mark of the caller.
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

}  // namespace sondera
