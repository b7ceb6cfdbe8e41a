// words_curve.cpp - the words about representative curves and drawing: condense, plot.
#include "app/script/control_values.h"
#include "app/script/fault.h"
#include "app/script/names.h"
#include "app/script/run.h"
#include "app/script/values.h"
#include "runtime/catalogue/cdisppnl.h"
#include "runtime/catalogue/dispcurv.h"

namespace sondera::script {
namespace {

constexpr std::string_view kRedraw = "REDRAW";

void CheckCondense(const Arguments& a) {
  if (a.whole("points", 1) < 1) throw Fault("points= is 1 or more");
  if (!(a.number("ratio", 2.0) > 1.0)) throw Fault("ratio= is above 1");
}

void Condense(Run& run, const Arguments& a) {
  using namespace cdisppnl;
  run.press(dispcurv::COMPDISPCURV);
  for (const auto& [control, value] : a.settings()) run.enter(*control, value);
  if (a.has("points")) run.enter(GLOBAL_NPOINTS, a.text("points"));
  if (a.has("by")) run.enter(AVGDOMAIN, std::to_string(a.choice("by")));
  if (a.has("ratio")) {
    run.enter(AVG_LINLOG, "1");
    run.enter(GLOBAL_INCRATIO, a.text("ratio"));
  }
  if (a.has("takeall")) {
    run.enter(GDISP_TAKEALL, a.text("takeall"));
    run.enter(ADISP_TAKEALL, a.text("takeall"));
  }
  run.press(CALC);
  run.press(CANCEL);
}

/// Every page with graphs has a button that draws them anew.
void Plot(Run& run, const Arguments& a) {
  const Control& graph = a.control("CONTROL");
  const ControlId redraw = FindControl(graph.panel, kRedraw);
  if (!redraw) throw Fault(NameOf(graph) + " is not drawn on request");
  run.press(*redraw);
}

}  // namespace

std::vector<WordForm> CurveForms() {
  std::vector<ArgumentSpec> condense = {Optional(Named("points", Kind::Whole)),
                                        Optional(Named("by", Kind::Choice, "wavelength|frequency")),
                                        Flag("takeall"), Optional(Named("ratio", Kind::Number))};
  AddSettingsOf(Panel::CDISPPNL, condense);
  return {
      {"condense",
       {},
       condense,
       "Makes the representative curves of the included pairs: number of points, quantity by which they are "
       "spaced, "
       "all points or averages, ratio of two neighbours.",
       Condense,
       CheckCondense},
      {"plot",
       {ControlArgument("PANEL.GRAPH", Bit(ControlKind::Graph))},
       {},
       "Draws a graph anew, with the others of its page.",
       Plot,
       nullptr,
       WordForm::Role::Looks},
  };
}

}  // namespace sondera::script
