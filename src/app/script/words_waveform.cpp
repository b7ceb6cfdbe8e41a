// words_waveform.cpp - the word for computed records: waveform.
#include <string>

#include "app/script/control_values.h"
#include "app/script/fault.h"
#include "app/script/run.h"
#include "app/script/values.h"
#include "project/waveform_files.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/pulse.h"
#include "runtime/files.h"
#include "runtime/paths.h"

namespace sondera::script {
namespace {

constexpr std::string_view kMotions = "velocity|displacement|acceleration";
constexpr std::string_view kParts = "traces|spectra|all";

// --- waveform ---

void EnterIf(Run& run, const Arguments& a, std::string_view name, const Control& control) {
  if (a.has(name)) run.enter(control, TextOf(a.number(name)));
}

void EnterBlows(Run& run, const Arguments& a) {
  EnterIf(run, a, "blows", pulse::BLOWS);
  EnterIf(run, a, "noise", pulse::NOISE);
  EnterIf(run, a, "hum", pulse::HUM);
  EnterIf(run, a, "humfreq", pulse::HUMFREQ);
  EnterIf(run, a, "seed", pulse::SEED);
}

void Waveform(Run& run, const Arguments& a) {
  if (a.has("file")) run.enter(pulse::FILE, JoinUnlessAbsolute(CurrentDirectory(), a.text("file")));
  if (a.has("shape") || a.has("file"))
    run.enter(pulse::SHAPE, std::to_string(a.has("shape") ? a.choice("shape") : 0));
  EnterIf(run, a, "fc", pulse::CFREQ);
  EnterIf(run, a, "span", pulse::FREQSPAN);
  EnterIf(run, a, "points", pulse::NPOINTS);
  if (a.has("motion")) run.enter(pulse::MOTION, std::to_string(a.choice("motion")));
  EnterBlows(run, a);
  if (a.isYes("fit")) run.press(pulse::FIT);
  run.press(pulse::RUN);
}

// --- waveform save, waveform measurement ---

void WaveformSaveFiles(Run& run, const Arguments& a) {
  if (a.has("parts")) run.enter(pulse::SAVEOPTION, std::to_string(a.choice("parts")));
  run.dialogs().chooseFile(JoinUnlessAbsolute(CurrentDirectory(), a.text("BASE")));
  if (run.mayOverwrite(a))
    run.dialogs().sayYes();
  else
    run.dialogs().sayNo("files of " + Quoted(a.text("BASE")) + " exist; overwrite=yes replaces them");
  run.press(pulse::SAVE);
}

/// Answers come in the order of the questions: whether to overwrite, then whether to mask.
void WaveformMeasurement(Run& run, const Arguments& a) {
  const std::string& id = a.text("ID");
  const bool exists = GetKeyFromID(GetCtrlVal(hmsetup::PROJID), id) != -1;
  if (exists && !a.isYes("overwrite"))
    throw Fault("the measurement " + Quoted(id) + " exists; overwrite=yes replaces it");
  EnterBlows(run, a);
  run.enter(pulse::MEASID, id);
  const std::size_t others = run.dialogs().unused();
  run.dialogs().layOutFirst({a.isYes("masks") ? Answer::Kind::Yes : Answer::Kind::No, {}});
  if (exists) run.dialogs().layOutFirst({Answer::Kind::Yes, {}});
  const int result = Commit(pulse::TOMEAS);
  while (run.dialogs().unused() > others)
    run.dialogs().dropFirst();  // a record of a file has no band to mask
  run.checkResult(pulse::TOMEAS, result);
}

std::vector<ArgumentSpec> WithBlows(std::vector<ArgumentSpec> named) {
  named.push_back(Optional(Named("blows", Kind::Whole, "N")));
  for (const std::string_view name : {"noise", "hum"})
    named.push_back(Optional(Named(name, Kind::Number, "SHARE")));
  named.push_back(Optional(Named("humfreq", Kind::Number, "HZ")));
  named.push_back(Optional(Named("seed", Kind::Whole, "N")));
  return named;
}

}  // namespace

std::vector<WordForm> WaveformForms() {
  return {
      {"waveform",
       {},
       WithBlows({Optional(Named("shape", Kind::Choice, "0|1|2")), Optional(Named("file", Kind::Text, "F")),
                  Optional(Named("fc", Kind::Number, "HZ")), Optional(Named("span", Kind::Number, "HZ")),
                  Optional(Named("points", Kind::Whole, "N")),
                  Optional(Named("motion", Kind::Choice, kMotions)), Flag("fit")}),
       "Computes the records that the receivers of the model (receivers) have of a blow on its layers "
       "(layers). shape= is the force: of file= (0), a hammer blow (1), a Ricker wavelet (2) of the centre "
       "frequency fc=; span= is the highest frequency. fit=yes takes fc, span and points that suit the site. "
       "What is not given is that of the panel.",
       Waveform},
      {"waveform",
       {Literal("save"), Fixed("BASE", Kind::Text)},
       {Optional(Named("parts", Kind::Choice, kParts)), Flag("overwrite")},
       "Writes the records, without noise: BASE_r1.tim, BASE_r2.tim ... (traces), BASE.spc (spectra), or "
       "both "
       "and the table BASE.pls (all, if nothing else is set).",
       WaveformSaveFiles,
       nullptr,
       WordForm::Role::Files},
      {"waveform",
       {Literal("measurement"), Fixed("ID", Kind::Text)},
       WithBlows({Flag("masks"), Flag("overwrite")}),
       "Makes a measurement of the records: averages of blows= blows of different strength, with noise= and "
       "hum= as shares of the peak of the middle receiver; equal seeds give equal blows. masks=yes masks "
       "each "
       "pair of neighbours outside 0.2 to 4 times the centre frequency.",
       WaveformMeasurement},
  };
}

}  // namespace sondera::script
