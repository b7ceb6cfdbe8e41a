// words_look.cpp - the words that print or test something and change nothing: print, table, graph, assert.
#include <cmath>
#include <cstdio>

#include "app/script/control_values.h"
#include "app/script/fault.h"
#include "app/script/graph_json.h"
#include "app/script/names.h"
#include "app/script/pairs.h"
#include "app/script/run.h"
#include "app/script/values.h"
#include "figure/figure_file.h"
#include "runtime/files.h"
#include "runtime/graphs.h"

namespace sondera::script {
namespace {

constexpr unsigned kValues =
    ~(Bit(ControlKind::Table) | Bit(ControlKind::Graph) | Bit(ControlKind::Button) | Bit(ControlKind::Menu));

void WriteFile(const std::string& name, const std::string& text) {
  TextWriter file(JoinUnlessAbsolute(CurrentDirectory(), name));
  file.Put(text);
  if (!file.Ok() || !file.Close()) throw Fault(file.Reason());
}

void PrintLine(const std::string& text) {
  std::fputs((text + "\n").c_str(), stdout);
  std::fflush(stdout);
}

void PrintText(Run&, const Arguments& a) {
  PrintLine(a.text("TEXT"));
}

void PrintControl(Run&, const Arguments& a) {
  PrintLine(ValueOf(a.control("CONTROL")));
}

void Table(Run&, const Arguments& a) {
  const auto& table = static_cast<const TableControl&>(a.control("CONTROL"));
  std::string text;
  for (std::size_t c = 0; c < table.columns.size(); ++c)
    text += (c == 0 ? "" : "\t") + std::string(table.columns[c]);
  text += "\n";
  for (int row = 1; row <= GetNumTableRows(table); ++row)
    for (int column = 1; column <= GetNumTableColumns(table); ++column)
      text +=
          TextOf(GetTableCellVal(table, row, column)) + (column == GetNumTableColumns(table) ? "\n" : "\t");
  WriteFile(a.text("FILE"), text);
}

void Graph(Run&, const Arguments& a) {
  WriteFile(a.text("FILE"), GraphJson(GraphOf(static_cast<const GraphControl&>(a.control("CONTROL")))));
}

void CheckFigure(const Arguments& a) {
  const std::string fault = FigureNameFault(a.text("FILE"));
  if (!fault.empty()) throw Fault(fault);
  for (const char* side : {"width", "height"})
    if (a.has(side) && (a.whole(side) < kLeastPixels || a.whole(side) > kMostPixels))
      throw Fault(FormatText("%s= is %d to %d pixels", side, kLeastPixels, kMostPixels));
}

void Figure(Run&, const Arguments& a) {
  const FigureSize usual;
  const Refusal refusal = WriteFigure(GraphOf(static_cast<const GraphControl&>(a.control("CONTROL"))),
                                      JoinUnlessAbsolute(CurrentDirectory(), a.text("FILE")),
                                      {a.whole("width", usual.width), a.whole("height", usual.height)});
  if (refusal) throw Fault(refusal.reason());
}

// ---- assert ---------------------------------------------------------------------------------------------

constexpr std::string_view kComparisons = "=|!=|<|<=|>|>=|contains";
enum class Comparison { Equal, Unequal, Less, LessEqual, Greater, GreaterEqual, Contains };

bool CompareNumbers(Comparison how, double a, double b, double within) {
  switch (how) {
    case Comparison::Equal:
      return std::fabs(a - b) <= within;
    case Comparison::Unequal:
      return !(std::fabs(a - b) <= within);
    case Comparison::Less:
      return a < b;
    case Comparison::LessEqual:
      return a <= b;
    case Comparison::Greater:
      return a > b;
    case Comparison::GreaterEqual:
      return a >= b;
    case Comparison::Contains:
      break;
  }
  return false;
}

/// Numbers where both sides are numbers, else texts; of a ring the value or the label.
bool Holds(const Control& control, Comparison how, const std::string& wanted, double within) {
  const std::string value = ValueOf(control);
  const auto number = NumberOf(value), other = NumberOf(wanted);
  if (number && other && how != Comparison::Contains) return CompareNumbers(how, *number, *other, within);
  const bool hasItems = kItemControls & Bit(control.kind);
  const std::string text = hasItems ? items::Label(control, items::Index(control)) : value;
  switch (how) {
    case Comparison::Equal:
      return text == wanted;
    case Comparison::Unequal:
      return text != wanted;
    case Comparison::Contains:
      return text.find(wanted) != std::string::npos;
    default:
      throw Fault(NameOf(control) + " is " + Quoted(text) + ", which has no order");
  }
}

void AssertControl(Run&, const Arguments& a) {
  const Control& control = a.control("CONTROL");
  if (!Holds(control, static_cast<Comparison>(a.choice("OP")), a.text("VALUE"), a.number("within", 0.0)))
    throw Fault(NameOf(control) + " is " + ValueOf(control));
}

void CheckVelocity(const Arguments& a) {
  CheckChannels(a);
  if (a.numbers("within")[0] > a.numbers("within")[1]) throw Fault("within=: the lower limit comes first");
}

void AssertVelocity(Run&, const Arguments& a) {
  const double at = a.number("at");
  const auto velocity = VelocityOfPair(PairOfArguments(a), at);
  if (!velocity) throw Fault("the curve of the pair does not reach " + TextOf(at) + " Hz");
  if (*velocity < a.numbers("within")[0] || *velocity > a.numbers("within")[1])
    throw Fault("the velocity at " + TextOf(at) + " Hz is " + TextOf(*velocity));
}

void AssertFile(Run&, const Arguments& a) {
  if (!FileExists(JoinUnlessAbsolute(CurrentDirectory(), a.text("PATH"))))
    throw Fault("there is no file " + Quoted(a.text("PATH")));
}

}  // namespace

std::vector<WordForm> LookForms() {
  constexpr auto kLooks = WordForm::Role::Looks;
  return {
      {"print",
       {ControlArgument("PANEL.CONTROL", kValues)},
       {},
       "Writes the value of a control to standard output; of a ring or a list that of the selected item.",
       PrintControl,
       nullptr,
       kLooks},
      {"print",
       {Fixed("TEXT", Kind::QuotedText, "\"text\"")},
       {},
       "Writes a text to standard output.",
       PrintText,
       nullptr,
       kLooks},
      {"table",
       {ControlArgument("PANEL.TABLE", Bit(ControlKind::Table)), Fixed("FILE", Kind::Text)},
       {},
       "Writes a table to a file: titles, then a line a row, separated by tabs.",
       Table,
       nullptr,
       kLooks},
      {"graph",
       {ControlArgument("PANEL.GRAPH", Bit(ControlKind::Graph)), Fixed("FILE", Kind::Text, "FILE.json")},
       {},
       "Writes the contents of a graph to a file, as JSON.",
       Graph,
       nullptr,
       kLooks},
      {"figure",
       {ControlArgument("PANEL.GRAPH", Bit(ControlKind::Graph)), Fixed("FILE", Kind::Text)},
       {Optional(Named("width", Kind::Whole)), Optional(Named("height", Kind::Whole))},
       "Draws the present graph to a file .pdf, .svg or .png. width= and height= are pixels of a PNG; PDF "
       "and "
       "SVG take 3/4 of them as points.",
       Figure,
       CheckFigure,
       kLooks},
      {"assert",
       {Literal("velocity"), Fixed("ID", Kind::Text), Fixed("REF", Kind::Whole),
        Fixed("CHANNEL", Kind::Whole)},
       {Named("at", Kind::Number, "HZ"), List("within", Kind::Numbers, "LO,HI", 2)},
       "Stops the script unless the dispersion curve of a pair has a velocity in these limits at a "
       "frequency.",
       AssertVelocity,
       CheckVelocity,
       kLooks},
      {"assert",
       {Literal("file"), Fixed("PATH", Kind::Text)},
       {},
       "Stops the script unless there is such a file.",
       AssertFile,
       nullptr,
       kLooks},
      {"assert",
       {ControlArgument("PANEL.CONTROL", kValues), Fixed("OP", Kind::Choice, kComparisons),
        Fixed("VALUE", Kind::Text)},
       {Optional(Named("within", Kind::Number))},
       "Stops the script unless the comparison with the value of a control is true; within= is the largest "
       "difference that counts as equal. "
       "An item of a ring is compared by its value or its label.",
       AssertControl,
       nullptr,
       kLooks},
  };
}

}  // namespace sondera::script
