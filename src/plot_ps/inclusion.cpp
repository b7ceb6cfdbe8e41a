// inclusion.cpp - see inclusion.h.
#include "plot_ps/inclusion.h"

#include "plot_ps/names.h"
#include "plot_ps/statement.h"
#include "runtime/byte_source.h"
#include "runtime/terminal.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

/// Ends the line if the text did not.
void CloseLine(char last) {
  if (last != '\n') PutLine("\n");
}

}  // namespace

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
