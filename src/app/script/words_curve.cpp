// words_curve.cpp - the words about representative curves and drawing: condense, plot.
#include <optional>
#include <string>
#include <utility>

#include "app/script/control_values.h"
#include "app/script/fault.h"
#include "app/script/names.h"
#include "app/script/run.h"
#include "app/script/values.h"
#include "runtime/catalogue/cdisppnl.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/graphs.h"

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

/// Every page with graphs has a button that redraws them.
void Plot(Run& run, const Arguments& a) {
  const Control& graph = a.control("CONTROL");
  const ControlId redraw = FindControl(graph.panel, kRedraw);
  if (!redraw) throw Fault(NameOf(graph) + " is not drawn on request");
  run.press(*redraw);
}

// ---- axis -----------------------------------------------------------------------------------------------

constexpr std::string_view kScales = "log|linear", kQuantities = "velocity|frequency|wavelength";

/// Limits of one axis; nothing for "auto".
std::optional<std::pair<double, double>> LimitsOf(const Arguments& a, std::string_view name) {
  if (a.text(name) == "auto") return std::nullopt;
  const std::vector<std::string> items = ItemsOf(a.text(name));
  const auto low = NumberOf(items.front()), high = NumberOf(items.back());
  if (items.size() != 2 || !low || !high || !(*low < *high))
    throw Fault(std::string(name) + "= is auto, or a lower and an upper limit");
  return std::pair(*low, *high);
}

bool IsTrace(const Control& graph) {
  return graph.panel == Panel::SASW || graph.panel == Panel::MEASPANEL;
}

void CheckAxis(const Arguments& a) {
  const Control& graph = a.control("CONTROL");
  if (!IsTrace(graph) && &graph != &dispcurv::DISPGRAPH && &graph != &exdthd::CURVES)
    throw Fault(NameOf(graph) + " has no axis dialog");
  for (const char* name : {"x", "y"})
    if (a.has(name)) LimitsOf(a, name);
  for (const char* name : {"xscale", "yscale", "xtype", "ytype"})
    if (IsTrace(graph) && a.has(name)) throw Fault(std::string(name) + "= is for graphs of curves");
}

/// Fields of a dialog by their names.
void EnterField(Run& run, Panel panel, const std::string& name, const std::string& text) {
  const ControlId control = FindControl(panel, name);
  if (!control) throw Fault("there is no field " + name);
  run.enter(*control, text);
}

void EnterAxis(Run& run, const Arguments& a, Panel panel, char axis) {
  const std::string lower(1, axis), letter(1, axis == 'x' ? 'X' : 'Y');
  const bool isTrace = panel == Panel::MSCALEPNL;
  const std::string begin = isTrace ? letter : "DSP_" + letter;
  if (a.has(lower + "type")) EnterField(run, panel, begin + "TYPE", std::to_string(a.choice(lower + "type")));
  if (a.has(lower + "scale"))
    EnterField(run, panel, begin + "LINEARLOG", std::to_string(a.choice(lower + "scale")));
  if (!a.has(lower)) return;
  const auto limits = LimitsOf(a, lower);
  EnterField(run, panel, isTrace ? "AUTOSCALE_" + letter : begin + "AUTO", limits ? "0" : "1");
  if (!limits) return;
  EnterField(run, panel, begin + "MIN", TextOf(limits->first));
  EnterField(run, panel, begin + "MAX", TextOf(limits->second));
}

/// Opens the dialog as a person does. Returns its panel.
Panel OpenAxes(Run& run, const GraphControl& graph) {
  if (&graph == &dispcurv::DISPGRAPH) {
    run.press(mainmenu::DISP_CV_AXIS_ATTR_MENU);
    return Panel::DSP_MSCALE;
  }
  if (&graph == &exdthd::CURVES) {
    run.point(graph, Event::LeftDoubleClick, {.button = MouseButton::Left});
    return Panel::EXD_SCALE;
  }
  const bool masking = graph.panel == Panel::SASW;
  const std::string window = graph.name == "DISPLAY_B" ? "1" : "0";
  run.enter(masking ? sasw::TRACE_ONOFF : measpanel::TRACE_ONOFF, window);
  run.press(masking ? sasw::ADJUSTSCALE : measpanel::ADJUSTSCALE);
  return Panel::MSCALEPNL;
}

void Axis(Run& run, const Arguments& a) {
  const Panel dialog = OpenAxes(run, static_cast<const GraphControl&>(a.control("CONTROL")));
  EnterAxis(run, a, dialog, 'x');
  EnterAxis(run, a, dialog, 'y');
  run.press(*FindControl(dialog, "OK"));
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
      {"axis",
       {ControlArgument("PANEL.GRAPH", Bit(ControlKind::Graph))},
       {Optional(Named("x", Kind::Text, "auto|LO,HI")), Optional(Named("y", Kind::Text, "auto|LO,HI")),
        Optional(Named("xscale", Kind::Choice, kScales)), Optional(Named("yscale", Kind::Choice, kScales)),
        Optional(Named("xtype", Kind::Choice, kQuantities)),
        Optional(Named("ytype", Kind::Choice, kQuantities))},
       "Axes of a graph: limits, and on the pages of curves scale and quantity. Values that are not given "
       "stay.",
       Axis,
       CheckAxis},
      {"plot",
       {ControlArgument("PANEL.GRAPH", Bit(ControlKind::Graph))},
       {},
       "Redraws a graph and the others of its page.",
       Plot,
       nullptr,
       WordForm::Role::Looks},
  };
}

}  // namespace sondera::script
