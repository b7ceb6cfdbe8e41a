// words_measure.cpp - the words about boards and measuring: board, setup, configure, measure.
#include <cctype>
#include <cstdio>

#include "acquisition/acquisition_state.h"
#include "acquisition/board_choice.h"
#include "acquisition/hardware_settings.h"
#include "app/devices.h"
#include "app/script/fault.h"
#include "app/script/run.h"
#include "app/script/values.h"
#include "panels/hwsetup_fields.h"
#include "records/session.h"
#include "runtime/catalogue/hwsetup.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/meassetup.h"
#include "runtime/findings.h"
#include "runtime/text_format.h"

namespace sondera::script {
namespace {

const HWSetup& SetupInHand() {
  const MeasRecords records = CurrentSetup();
  if (records.hwPos < 1) throw Fault("the current measurement has no hardware settings");
  return *records.hwSetup;
}

void AnswerForData(Run& run, const Arguments& a) {
  if (a.isYes("discard"))
    run.dialogs().sayYes();
  else
    run.dialogs().sayNo("the measurement " + Quoted(session.curMeasID) +
                        " holds data; discard=yes removes them");
}

// ---- board ----------------------------------------------------------------------------------------------

void BoardList(Run&, const Arguments&) {
  std::fputs(BoardListText().c_str(), stdout);
  std::fflush(stdout);
}

void Board(Run&, const Arguments& a) {
  const std::string fault = UseBoard(a.text("DRIVER"));
  if (!fault.empty()) throw Fault(fault);
}

// ---- setup ----------------------------------------------------------------------------------------------

void EnterPlaces(Run& run, const std::vector<double>& places) {
  const std::size_t receivers = static_cast<std::size_t>(SetupInHand().nChannels);
  if (places.size() != receivers)
    throw Fault(
        FormatText("the measurement has %zu channels, and at= has %zu places", receivers, places.size()));
  run.enter(meassetup::RSPACING, "0");
  for (std::size_t c = 0; c < places.size(); ++c) {
    run.enter(meassetup::NCHANNELS3, std::to_string(c));
    run.enter(meassetup::CHNLLOC, TextOf(places[c]));
  }
}

void Setup(Run& run, const Arguments& a) {
  AnswerForData(run, a);
  for (const auto& [control, text] : a.settings()) run.enter(*control, text);
  if (a.has("source")) run.enter(meassetup::SRCLOC, TextOf(a.number("source")));
  if (a.has("at")) EnterPlaces(run, a.numbers("at"));
}

void Configure(Run& run, const Arguments& a) {
  AnswerForData(run, a);
  run.press(hwsetup::COFIG_SETUP);
}

// ---- measure --------------------------------------------------------------------------------------------

void CheckMeasure(const Arguments& a) {
  if (a.has("stop") && a.whole("stop") < 1) throw Fault("stop=: records count from 1");
  if (!a.has("accept")) return;
  for (const char letter : a.text("accept"))
    if (letter != 'y' && letter != 'n') throw Fault("accept= has a letter for each record, y or n");
}

/// The preview is on as long as this exists.
class PreviewForNow {
 public:
  explicit PreviewForNow(bool on) : former_(session.measOptions.previewOn) {
    if (on) session.measOptions.previewOn = 1;
  }
  ~PreviewForNow() { session.measOptions.previewOn = former_; }
  PreviewForNow(const PreviewForNow&) = delete;
  PreviewForNow& operator=(const PreviewForNow&) = delete;

 private:
  int former_;
};

void Measure(Run& run, const Arguments& a) {
  const HWSetup& hw = SetupInHand();
  if (!a.has("stop") && !hw.averageOn)
    throw Fault("averaging is off, so the run would never end; give stop=N");
  if (hw.freqSpan < 0.0 && HoldsData(hw.key)) {
    if (!a.isYes("discard"))
      throw Fault("the measurement " + Quoted(session.curMeasID) +
                  " was imported; discard=yes replaces its data");
    run.dialogs().layOutFirst({Answer::Kind::Yes, {}});
  }
  const PreviewForNow preview(a.has("accept"));
  for (const char letter : a.text("accept", ""))
    run.dialogs().layOut({letter == 'y' ? Answer::Kind::Yes : Answer::Kind::No, {}});
  const int stop = a.whole("stop", 0);
  const auto watch = run.atPolls([stop] {
    if (stop > 0 && measRun.measRunning && measRun.delivered >= stop) Commit(measpanel::STOPMEAS);
  });
  const int result = Commit(measpanel::SASWSTART);
  // The records are there: doubts about them are not a failure of the line.
  for (const std::string& text : run.dialogs().takeComplaints("Overload in"))
    AddDoubt(session.curMeasID + ": " + text);
  run.checkResult(measpanel::SASWSTART, result);
}

}  // namespace

std::vector<WordForm> MeasureForms() {
  std::vector<ArgumentSpec> settings = {Optional(Named("source", Kind::Number)),
                                        Optional(List("at", Kind::Numbers, "X1,X2,...")), Flag("discard")};
  AddSettingsOf(Panel::HWSETUP, settings);
  AddSettingsOf(Panel::MEASSETUP, settings);
  return {
      {"board",
       {Literal("list")},
       {},
       "Prints the drivers of boards, their options, and what each finds now.",
       BoardList,
       nullptr,
       WordForm::Role::Looks},
      {"board",
       {Fixed("DRIVER", Kind::Text, "DRIVER[:options]")},
       {},
       "Measures with a board from now on, as --board= does: sim, process, alsa, none. The current "
       "measurement starts again with the first settings of that board, unless it has data.",
       Board},
      {"setup",
       {},
       settings,
       "Settings of the current measurement, of its hardware and of its geometry, in the order of the line; "
       "source= and "
       "at= are the places of the source and of each receiver. Data of another shape are removed only with "
       "discard=yes.",
       Setup},
      {"configure",
       {},
       {Flag("discard")},
       "Checks the settings with the board, which may round the span, and stores them. Data are removed only "
       "with "
       "discard=yes.",
       Configure},
      {"measure",
       {},
       {Optional(Named("stop", Kind::Whole)), Optional(Named("accept", Kind::Text, "yynyy")),
        Flag("discard")},
       "Runs the measurement: as many averages as are set, or stop=N records, rejected ones too. accept= "
       "shows "
       "each record before it is averaged and accepts or rejects it by its letter. Overloads are a doubt. "
       "Imported data are replaced only with discard=yes.",
       Measure,
       CheckMeasure},
  };
}

}  // namespace sondera::script
