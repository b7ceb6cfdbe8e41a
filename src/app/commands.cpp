// commands.cpp - the command script. Owns no state: the variables of a script live in one ScriptRun.
//
// Odd on purpose: an argument that is missing leaves its variable unchanged, and the variables are shared by
// all lines, so a value stays in force for later lines. An unknown word is skipped without a message.
#include "app/commands.h"

#include <algorithm>
#include <cstdio>
#include <vector>

#include "app/run_report.h"
#include "app/script/session_log.h"
#include "app/script/values.h"
#include "app/script/words.h"
#include "app/shutdown.h"
#include "inversion/starting_model.h"
#include "panels/mainmenu_export.h"
#include "panels/one_click.h"
#include "panels/trace_selection.h"
#include "project/trace_export.h"
#include "records/session.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/irfsetpnl.h"
#include "runtime/catalogue/loadtxdata.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/controls.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"
#include "runtime/files.h"
#include "runtime/findings.h"
#include "runtime/terminal.h"

namespace sondera {
namespace {

constexpr std::string_view kDelimiters = " ,\t\r\n";
constexpr std::size_t kLongestLine = 256;
constexpr double kTimeForZero = 0.000001;   // a first window time of exactly 0 would mean "not set"
constexpr double kSmallestVelocity = 10.0;  // above it, window limits are velocities and not times
constexpr int kMaskingTab = 1;              // page of the traces
constexpr int kDoublingLayers = 1;          // layering mode of preInversion that makes its own list
constexpr int kMostLayers = 400;            // as many as that list can hold

std::string NoMeasurement(const std::string& measID) {
  return "There is no measurement \"" + measID + "\" in the project.";
}

/// One run of a script: its variables, its arguments, and its failures.
class ScriptRun {
 public:
  int run(TextReader& file);
  int exportLine(const std::string& text);
  int oneLine(const std::string& text);

 private:
  struct Command {
    const char* word;
    int id;
    int (ScriptRun::*run)();
  };
  static const Command kCommands[];
  friend int sondera::getCommandID(const std::string& word);

  // Arguments, token by token; a missing one leaves the variable unchanged.
  void take(std::string& variable) {
    if (auto token = tokens_->Next()) variable = std::string(*token);
  }
  void take(double& variable) {
    if (auto token = tokens_->Next()) variable = ParseReal(*token);
  }
  void take(int& variable) {
    if (auto token = tokens_->Next()) variable = ParseInt(*token);
  }

  /// Presses a control; if its callback refused, the command counts as failed.
  void press(const Control& control, long data = 0) {
    if (!CallbackOf(control) || Commit(control, data) < 0) commandFailed_ = true;
  }
  Press presser() {
    return [this](const Control& control, long data) { press(control, data); };
  }

  int runCommand(const Command& command);
  std::string lineInForce(const Command& command) const;
  bool lineIsWhole(const TextReader& file, const std::string& line);
  void tellWhatIsLeft(TextReader& file);
  int finish();
  int stop();

  int runExport();
  void takeExportArguments();
  bool selectChannels();
  int runImport();
  int runMasking();
  int runCalcVel();
  int runPreInversion();
  int runInversion();

  Tokenizer* tokens_ = nullptr;
  int lineNumber_ = 0;
  bool commandFailed_ = false;
  bool readFailureTold_ = false;
  std::vector<std::string> failed_;

  // Variables of the script.
  std::string fileName_, measID_;
  int refNumber_ = -1, dspNumber_ = -1, type_ = -1;
  double rec1_ = 0.0, rec2_ = 0.0;
  int irfMode_ = 0;
  double t_[4] = {0.0, 0.0, 0.0, 0.0};
  double firstThickness_ = 0.0, depth_ = 0.0, depthRatio_ = 0.5;
  int layering_ = 0, nLayers_ = 0;
  std::vector<double> thicknesses_;
};

const ScriptRun::Command ScriptRun::kCommands[] = {
    {"export", 1, &ScriptRun::runExport},
    {"import", 2, &ScriptRun::runImport},
    {"masking", 3, &ScriptRun::runMasking},
    {"calcVel", 4, &ScriptRun::runCalcVel},
    {"preInversion", 5, &ScriptRun::runPreInversion},
    {"inversion", 6, &ScriptRun::runInversion},
};

int ScriptRun::run(TextReader& file) {
  std::string line;
  while (file.ReadPhysicalLine(line)) {
    ++lineNumber_;
    if (!lineIsWhole(file, line)) break;
    if (line.starts_with("*")) continue;
    if (line.size() > kLongestLine) {
      MessagePopup(session.appTitle,
                   FormatText("Line %d of the command file is longer than 256 characters.", lineNumber_));
      failed_.push_back(FormatText("line %d", lineNumber_));
      continue;
    }
    Tokenizer tokens(line, kDelimiters);
    tokens_ = &tokens;
    const auto word = tokens.Next();
    if (!word) {
      tellWhatIsLeft(file);
      break;
    }
    const int id = getCommandID(std::string(*word));
    for (const Command& command : kCommands)
      if (command.id == id && runCommand(command) < 0) return stop();
    if (InterruptRequested()) {
      MessagePopup(session.appTitle, FormatText("Halted after line %d of the command file.", lineNumber_));
      failed_.push_back("halted");
      break;
    }
  }
  // A read that fails between two lines returns no line at all.
  if (file.ReadFailed() && !readFailureTold_) lineIsWhole(file, line);
  return finish();
}

/// False, with a message, when the text ends within a line: such a script must not count as finished, and
/// half a line must not be run.
bool ScriptRun::lineIsWhole(const TextReader& file, const std::string& line) {
  const bool hasZero = line.find('\0') != std::string::npos;
  if (!hasZero && !file.ReadFailed()) return true;
  readFailureTold_ = true;
  const std::string where = FormatText("line %d", std::max(lineNumber_, 1));
  MessagePopup(session.appTitle,
               hasZero ? "The command file holds a zero byte in " + where + "; it is not run from there on."
                       : "The command file cannot be read behind " + where + "; the rest is not run.");
  failed_.push_back(where);
  return false;
}

/// A line without a word ends a script; one in the middle by mistake must not stay unnoticed.
void ScriptRun::tellWhatIsLeft(TextReader& file) {
  const int end = lineNumber_;
  int left = 0;
  std::string line;
  while (file.ReadPhysicalLine(line)) {
    Tokenizer tokens(line, kDelimiters);
    if (!line.starts_with("*") && tokens.Next()) ++left;
  }
  if (left > 0)
    AddNote(FormatText("the script ended at line %d, which is empty; lines with a word behind it: %d", end,
                       left));
}

int ScriptRun::exportLine(const std::string& text) {
  Tokenizer tokens(text, kDelimiters);
  tokens_ = &tokens;
  const int result = runCommand(kCommands[0]);
  return result < 0 ? result : finish();
}

int ScriptRun::oneLine(const std::string& text) {
  Tokenizer tokens(text, kDelimiters);
  tokens_ = &tokens;
  lineNumber_ = 1;
  const auto word = tokens.Next();
  for (const Command& command : kCommands)
    if (word && *word == command.word) {
      commandFailed_ = false;
      return (this->*command.run)() < 0 || commandFailed_ ? -1 : 0;
    }
  return -1;
}

int ScriptRun::runCommand(const Command& command) {
  const int messagesBefore = MessageCount();
  commandFailed_ = false;
  script::LoggedAct logged(script::LoggedAct::Answers::AreAsked);
  const int result = (this->*command.run)();
  const bool failed = result < 0 || commandFailed_ || MessageCount() != messagesBefore;
  logged.is(lineInForce(command), failed);
  if (failed)
    failed_.push_back(lineNumber_ > 0 ? FormatText("line %d %s", lineNumber_, command.word) : command.word);
  if (result < 0) PrintError("sondera: the run stopped at %s.\n", failed_.back().c_str());
  return result;
}

/// The command with all present arguments, as the second dialect has it; a comment where that dialect does
/// not allow such a line.
std::string ScriptRun::lineInForce(const Command& command) const {
  std::string line = command.word;
  const auto add = [&](std::initializer_list<std::string> words) {
    for (const std::string& word : words) line += " " + word;
  };
  const auto number = [](double value) { return script::TextOf(value); };
  if (command.run == &ScriptRun::runExport)
    add({script::ArgumentText(fileName_), script::ArgumentText(measID_), number(refNumber_),
         number(dspNumber_), number(type_)});
  if (command.run == &ScriptRun::runImport)
    add({script::ArgumentText(fileName_), script::ArgumentText(measID_), number(rec1_), number(rec2_)});
  if (command.run == &ScriptRun::runMasking)
    add({script::ArgumentText(measID_), number(irfMode_), number(t_[0]), number(t_[1]), number(t_[2]),
         number(t_[3])});
  if (command.run == &ScriptRun::runPreInversion) {
    const bool doubles = layering_ == kDoublingLayers;
    add({number(firstThickness_), number(depth_), doubles ? "1" : "2", number(depthRatio_)});
    if (!doubles) add({number(nLayers_)});
    if (!doubles)
      for (const double thickness : thicknesses_) add({number(thickness)});
  }
  return script::CanBeBound(line) ? line
                                  : "# not in this log, its arguments are not valid in a script: " + line;
}

/// Ends the script early; the program stays open.
int ScriptRun::stop() {
  ReportRun(false);
  return -1;
}

/// Ends the program; prints the findings of the run, and the commands that failed, if any.
int ScriptRun::finish() {
  const bool isScript = lineNumber_ > 0, allDone = failed_.empty();
  const int status = isScript ? ReportRun(allDone) : ReportFindings(allDone);
  if (!failed_.empty()) {
    std::string list;
    for (const std::string& f : failed_) list += (list.empty() ? "" : ", ") + f;
    PrintError("sondera: not everything was done: %s.\n", list.c_str());
  }
  QuitApp(status);
  return 0;
}

// --- the commands ---

/// export <file> <measurement id> <reference channel> <display channel> <display type>, channels from 1
int ScriptRun::runExport() {
  takeExportArguments();
  if (type_ < 0) return -1;
  SetActiveTabPage(Panel::PANEL, kMaskingTab);
  const int item = FindListItem(sasw::DISPAID, measID_);
  if (item < 0) {  // never the data of the measurement that happens to be selected
    MessagePopup(session.appTitle, NoMeasurement(measID_));
    return 0;
  }
  bool channelsFound = selectChannels();
  SetCtrlIndex(sasw::DISPAID, item);
  if (!channelsFound) {  // the lists may be those of another measurement
    UpdateSASWwinASetup(session.curProjID, GetLabelFromIndex(sasw::DISPAID, GetCtrlIndex(sasw::DISPAID)));
    channelsFound = selectChannels();
  }
  // A failed selection would leave the former one, and write other data than requested to the file.
  if (!channelsFound || !SetCtrlIndex(sasw::DISPATYPE, type_)) {
    MessagePopup(session.appTitle, FormatText("There is no display of type %d for the channels %d and %d.",
                                              type_, refNumber_, dspNumber_));
    return 0;
  }
  if (SaveTraceA(fileName_) < 0) commandFailed_ = true;
  return 0;
}

/// A single export reads the next argument only if file name and id are there, and the type only with two
/// channels; a script's line uses the arguments it has.
void ScriptRun::takeExportArguments() {
  const bool single = lineNumber_ == 0;
  take(fileName_);
  if (single && fileName_.empty()) return;
  take(measID_);
  if (single && measID_.empty()) return;
  take(refNumber_);
  take(dspNumber_);
  if (!single || (refNumber_ > 0 && dspNumber_ > 0)) take(type_);
}

bool ScriptRun::selectChannels() {
  if (refNumber_ < 1 || dspNumber_ < 1) return false;
  const bool reference = SetCtrlIndex(sasw::DISPA_REFCHNL, refNumber_ - 1);
  return SetCtrlIndex(sasw::DISPACHNL, dspNumber_ - 1) && reference;
}

/// import <base name> <measurement id> <receiver 1> <receiver 2>
int ScriptRun::runImport() {
  take(fileName_);
  take(measID_);
  take(rec1_);
  take(rec2_);
  press(mainmenu::LOAD_TWO_CHNL_DATA);
  SetCtrlVal(loadtxdata::NCHANS, 2);
  press(loadtxdata::NCHANS);
  SetCtrlVal(loadtxdata::MEASID, measID_);
  SetCtrlVal(loadtxdata::FNAMESRC, JoinUnlessAbsolute(CurrentDirectory(), fileName_) + ".hyx");
  SetCtrlVal(loadtxdata::LOC_SRC, 0.0);
  SetCtrlVal(loadtxdata::LOC_REC1, rec1_);
  SetCtrlVal(loadtxdata::LOC_REC2, rec2_);
  press(loadtxdata::LOAD);
  press(loadtxdata::CANCEL);
  return 0;
}

/// masking <measurement id> <IRF mode> <T1> <T2> <T3> <T4>, times in seconds or, with T1 > 10, velocities
int ScriptRun::runMasking() {
  take(measID_);
  take(irfMode_);
  for (double& t : t_) take(t);
  if (t_[0] == 0.0) t_[0] = kTimeForZero;
  if (GetNumListItems(hmsetup::MEASIDLISTBOX) == 0) return -1;
  const int index = FindListItem(hmsetup::MEASIDLISTBOX, measID_);
  if (index < 0) {  // never the measurement that happens to be selected
    MessagePopup(session.appTitle, NoMeasurement(measID_));
    return 0;
  }
  session.curMeasID = measID_;
  SetCtrlVal(hmsetup::MEASID, measID_);
  SetCtrlIndex(hmsetup::MEASIDLISTBOX, index);
  press(hmsetup::MEASIDLISTBOX);

  press(sasw::MASKINGLIST);
  SetCtrlVal(irfsetpnl::IRFMODE, irfMode_);
  if (t_[0] > kSmallestVelocity) {
    const NumericControl* const velocities[] = {&irfsetpnl::SMIRF_V1, &irfsetpnl::SMIRF_V2,
                                                &irfsetpnl::SMIRF_V3, &irfsetpnl::SMIRF_V4};
    for (int k = 0; k < 4; ++k) SetCtrlVal(*velocities[k], t_[k]);
    press(irfsetpnl::OK);
  } else {
    const NumericControl* const times[] = {&irfsetpnl::SMIRF_T1, &irfsetpnl::SMIRF_T2, &irfsetpnl::SMIRF_T3,
                                           &irfsetpnl::SMIRF_T4};
    for (int k = 0; k < 4; ++k) SetCtrlVal(*times[k], t_[k]);
    press(irfsetpnl::APPLY);
  }
  SetCtrlIndex(sasw::TRACE_ONOFF, 0);
  press(irfsetpnl::CANCEL);
  press(sasw::MASKINGCALCDISP);
  press(measpanel::F6);
  return 0;
}

/// calcVel
int ScriptRun::runCalcVel() {
  RunCalcVel(presser());
  return 0;
}

/// preInversion <first thickness> <depth> <layering> <ratio> [<layers> <thickness> ...]; a depth of 0 means
/// the ratio times the largest wavelength; layering 1 doubles the thickness every four layers, any other uses
/// the list
int ScriptRun::runPreInversion() {
  take(firstThickness_);
  take(depth_);
  take(layering_);
  take(depthRatio_);
  const double depth = depth_ == 0.0 ? depthRatio_ * LargestArrayWavelength() : depth_;
  if (layering_ == kDoublingLayers) {
    double sum = 0.0;
    RunPreInversion(DoublingThicknesses(firstThickness_, depth, sum), presser());
    return 0;
  }
  take(nLayers_);
  if (nLayers_ < 1 || nLayers_ > kMostLayers) {
    MessagePopup(session.appTitle, FormatText("The number of layers must be from 1 to %d.", kMostLayers));
    return 0;
  }
  thicknesses_.resize(static_cast<std::size_t>(nLayers_));
  for (double& thickness : thicknesses_) take(thickness);
  RunPreInversion(thicknesses_, presser());
  return 0;
}

/// inversion
int ScriptRun::runInversion() {
  RunInversionAndSave(presser());
  return 0;
}

}  // namespace

int getCommandID(const std::string& word) {
  for (const auto& command : ScriptRun::kCommands)
    if (word == command.word) return command.id;
  return -1;
}

int ProcessCommands(int mode, const std::string& text) {
  if (mode == 1) return ScriptRun().exportLine(text);
  const std::string path = JoinUnlessAbsolute(CurrentDirectory(), text);
  TextReader file;
  std::string reason;
  if (!file.Open(path, &reason)) {
    MessagePopup(session.appTitle, "Error in reading the command file: " + reason);
    return -1;
  }
  return ScriptRun().run(file);
}

int ProcessCommandLine(const std::string& line) {
  return ScriptRun().oneLine(line);
}

int ProcessScriptText(std::string_view script) {
  TextReader file;
  file.OpenMemory(script);
  return ScriptRun().run(file);
}

}  // namespace sondera
