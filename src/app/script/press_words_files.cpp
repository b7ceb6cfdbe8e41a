// press_words_files.cpp - see press_words.h: the presses that read and write files, and those of runs.
#include <algorithm>
#include <array>

#include "acquisition/hardware_settings.h"
#include "app/export_menu.h"
#include "app/script/import_fields.h"
#include "app/script/press_words.h"
#include "app/script/values.h"
#include "app/script/words.h"
#include "app/table_export.h"
#include "panels/hwsetup_fields.h"
#include "panels/loadshots.h"
#include "panels/mainmenu_plot.h"
#include "records/session.h"
#include "runtime/catalogue/cdisppnl.h"
#include "runtime/catalogue/devpanel.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/hwsetup.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/loadshots.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/pulse.h"
#include "runtime/catalogue/tmgrafpnl.h"
#include "runtime/paths.h"

namespace sondera::script {
namespace {

using AnswerKind = GivenAnswer::Kind;

/// The only file that was chosen; null when there was another answer than Yes besides it.
const GivenAnswer* TheFile(const GivenAnswers& answers) {
  if (CountOf(answers, AnswerKind::File) != 1 || CountOf(answers, AnswerKind::Yes) + 1 != answers.size())
    return nullptr;
  return &*std::find_if(answers.begin(), answers.end(),
                        [](const GivenAnswer& a) { return a.kind == AnswerKind::File; });
}

/// `WORD FILE`, with overwrite=yes where the file was there.
std::string WithFile(const std::string& word, const GivenAnswers& answers) {
  const GivenAnswer* file = TheFile(answers);
  if (!file) return "";
  const bool replaces = file->existed || answers.size() > 1;
  return word + " " + PathText(file->text) + (replaces ? " overwrite=yes" : "");
}

/// In lower case, with its point.
std::string ExtensionOf(const std::string& path) {
  const std::string name = FileNameOf(path);
  const std::size_t point = name.rfind('.');
  std::string extension = point == std::string::npos ? "" : name.substr(point);
  for (char& c : extension) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return extension;
}

// --- project ---

InputLine NewProject(const Control&) {
  return WithAnswers([](const GivenAnswers& answers) {
    return answers.empty() ? "" : WithFlag("new", answers, "discard=yes");
  });
}

InputLine Save(const Control&) {
  if (session.projectFileName.empty())
    return WithAnswers([](const GivenAnswers& answers) { return WithFile("save", answers); });
  return OneLine(session.readInPart ? "save force=yes" : "save");
}

/// A project that was read in part is saved over only by force.
InputLine SaveAs(const Control&) {
  const std::string damaged = session.readInPart ? session.projectFileName : "";
  return WithAnswers([damaged](const GivenAnswers& answers) {
    const GivenAnswer* file = TheFile(answers);
    return file && !damaged.empty() && file->existed ? std::string() : WithFile("save", answers);
  });
}

// --- curves, report, tables ---

InputLine ReadCurves(const Control&) {
  return WithAnswers([](const GivenAnswers& answers) {
    const GivenAnswer* file = TheFile(answers);
    return file && file->existed && ExtensionOf(file->text) == ".exd" ? "curves read " + PathText(file->text)
                                                                      : std::string();
  });
}

/// The word tells the kind of curves by the extension.
InputLine WriteCurves(const Control& pressed) {
  const char* extension = &pressed == &cdisppnl::SAVEGCD   ? ".gcd"
                          : &pressed == &cdisppnl::SAVEICD ? ".icd"
                          : &pressed == &cdisppnl::SAVERED ? ".red"
                                                           : ".exd";
  return WithAnswers([extension](const GivenAnswers& answers) {
    const GivenAnswer* file = TheFile(answers);
    return file && ExtensionOf(file->text) == extension ? WithFile("curves write", answers) : std::string();
  });
}

/// Texts of the site that were asked for stay with the press.
InputLine Report(const Control&) {
  InputLine line = WithAnswers([](const GivenAnswers& answers) {
    const GivenAnswer* file = TheFile(answers);
    return file && (file->text.ends_with(".ps") || IsPdfName(file->text)) ? "report " + PathText(file->text)
                                                                          : std::string();
  });
  line.notesMessages = true;
  return line;
}

/// A name that gets its extension from the program is not asked about.
InputLine WriteTables(const Control& pressed) {
  InputLine line = WithAnswers([item = &pressed](const GivenAnswers& answers) -> std::string {
    const GivenAnswer* file = TheFile(answers);
    if (!file) return "";
    const TableExport what = ExportOfItem(*item, file->text);
    const bool replaces =
        file->existed || answers.size() > 1 || (what.form != "csv" && what.out != file->text);
    return "write " + what.form + " " + PathText(what.out) + (replaces ? " overwrite=yes" : "");
  });
  line.notesMessages = true;
  return line;
}

// --- import ---

std::string Joined(const std::vector<std::string>& items) {
  std::string text;
  for (std::size_t i = 0; i < items.size(); ++i) text += (i == 0 ? "" : ",") + items[i];
  return text;
}

std::string Joined(const std::vector<double>& numbers) {
  std::vector<std::string> items;
  for (const double number : numbers) items.push_back(TextOf(number));
  return Joined(items);
}

/// The word writes absolute paths into the dialog, and a comma separates its files.
bool CanBeListed(const std::string& path) {
  return path.find(',') == std::string::npos && JoinUnlessAbsolute(CurrentDirectory(), path) == path;
}

InputLine ReadTexts(const Control&) {
  using namespace loadtxdata;
  constexpr const char* kKinds[] = {"tim", "hyx", "gyx", "uff-h", "uff-g"};
  const int kind = GetCtrlVal(DATATYPE), receivers = GetCtrlVal(NCHANS);
  if (kind < 0 || kind > kUffG || receivers < 1 || receivers > static_cast<int>(kMostReceivers)) return {};
  const bool instrumented = GetCtrlVal(SRCINSTRUMENT) == 1;
  const auto n = static_cast<std::size_t>(receivers);
  std::vector<std::string> files;
  std::vector<double> places;
  std::vector<ControlId> fields = {&MEASID, &LOC_SRC};
  for (std::size_t i = 0; i < FilesFor(kind, n, instrumented); ++i) {
    const std::string file = GetCtrlVal(*kFileFields[i]);
    if (!file.empty() && !CanBeListed(file)) return {};
    files.push_back(file.empty() ? file : RelativePath(file));
    fields.push_back(kFileFields[i]);
  }
  for (std::size_t i = 0; i < n; ++i) {
    places.push_back(GetCtrlVal(*kLocations[i]));
    fields.push_back(kLocations[i]);
  }
  const std::string text = std::string("read ") + kKinds[kind] + " id=" + ArgumentText(GetCtrlVal(MEASID)) +
                           " files=" + ArgumentText(Joined(files)) +
                           " source=" + TextOf(GetCtrlVal(LOC_SRC)) + " at=" + Joined(places) +
                           (instrumented ? " instrumented=yes" : "");
  InputLine line =
      WithAnswers([text](const GivenAnswers& answers) { return WithFlag(text, answers, "overwrite=yes"); });
  line.replaced = std::move(fields);
  return line;
}

/// The entries of this panel have lines of their own, since each of them renews the preview.
InputLine ReadShots(const Control&) {
  ShotRequest request;
  if (!ReadShotsPanel(request).empty() || AnyPairTickedOff()) return {};
  const ShotChoices& choices = request.choices;
  const bool columns = GetCtrlVal(loadshots::FORMAT) == 1;
  std::vector<std::string> files;
  for (const std::string& file : request.files) {
    if (!CanBeListed(file)) return {};
    files.push_back(RelativePath(file));
  }
  std::string text = std::string("read ") + (columns ? "columns" : "seg2") +
                     " id=" + ArgumentText(choices.measID) + " files=" + ArgumentText(Joined(files));
  if (!choices.channels.empty())
    text += " channels=" + Joined(std::vector<double>(choices.channels.begin(), choices.channels.end()));
  if (!choices.pairs) text += " pairs=no";
  if (choices.nearest != 0.0) text += " near=" + TextOf(choices.nearest);
  if (choices.side != ShotSide::Unset) text += choices.side == ShotSide::Left ? " side=left" : " side=right";
  if (choices.source) text += " source=" + TextOf(*choices.source);
  if (!choices.at.empty()) text += " at=" + Joined(choices.at);
  constexpr const char* kUnits[] = {"", " unit=m", " unit=ft", " unit=cm", " unit=in"};
  const int unit = GetCtrlIndex(loadshots::UNIT);
  if (unit < 0 || unit >= static_cast<int>(std::size(kUnits))) return {};
  text += kUnits[unit];
  if (choices.wholeRate) text += " rate=whole";
  if (choices.correctSkew) text += " skew=correct";
  if (const double interval = GetCtrlVal(loadshots::INTERVAL); columns && interval > 0.0)
    text += " dt=" + TextOf(interval);
  return WithAnswers(
      [text](const GivenAnswers& answers) { return WithFlag(text, answers, "overwrite=yes"); });
}

InputLine AddStation(const Control&) {
  return WithAnswers([](const GivenAnswers& answers) -> std::string {
    if (answers.size() != 2 || answers[0].kind != AnswerKind::File || answers[1].kind != AnswerKind::Text)
      return "";
    const auto place = NumberOf(answers[1].text);
    return place && answers[0].existed ? "station " + PathText(answers[0].text) + " at=" + TextOf(*place)
                                       : "";
  });
}

// --- boards, measuring, runs ---

InputLine FindBoards(const Control&) {
  return WithAnswers([line = "board " + ArgumentText(GetCtrlVal(devpanel::DRIVER))](
                         const GivenAnswers& answers) { return answers.empty() ? line : ""; });
}

InputLine Configure(const Control&) {
  return WithAnswers(
      [](const GivenAnswers& answers) { return WithFlag("configure", answers, "discard=yes"); });
}

/// The answers to previews stay lines of their own. The word asks for an end of the run, and for the leave to
/// replace imported data.
InputLine Measure(const Control&) {
  const MeasRecords records = CurrentSetup();
  if (records.hwPos < 1 || !records.hwSetup->averageOn) return {};
  if (records.hwSetup->freqSpan < 0.0 && HoldsData(records.hwSetup->key)) return {};
  InputLine line = OneLine("measure");
  line.keepsAnswers = true;
  return line;
}

InputLine Invert(const Control&) {
  return IsPanelShown(Panel::INVERSION) ? OneLine("invert") : InputLine{};
}

InputLine Waveform(const Control&) {
  return OneLine("waveform");
}

InputLine SaveWaveform(const Control&) {
  return WithAnswers([](const GivenAnswers& answers) {
    const GivenAnswer* file = TheFile(answers);
    return file ? "waveform save " + PathText(file->text) + (answers.size() > 1 ? " overwrite=yes" : "")
                : std::string();
  });
}

/// Asked are whether to overwrite, then whether to mask.
InputLine WaveformToMeasurement(const Control&) {
  const std::string id = GetCtrlVal(pulse::MEASID);
  const std::size_t exists = GetKeyFromID(GetCtrlVal(hmsetup::PROJID), id) != -1 ? 1 : 0;
  return WithAnswers([id, exists](const GivenAnswers& answers) -> std::string {
    const std::size_t asked = exists + 1;
    if (answers.size() > asked || (exists == 1 && answers.size() != asked)) return "";
    if (exists == 1 && answers.front().kind != AnswerKind::Yes) return "";
    const bool masks = answers.size() == asked && answers.back().kind == AnswerKind::Yes;
    return "waveform measurement " + ArgumentText(id) + (masks ? " masks=yes" : "") +
           (exists == 1 ? " overwrite=yes" : "");
  });
}

}  // namespace

std::vector<PressRow> FilePresses() {
  std::vector<PressRow> rows = {{&mainmenu::NEW_MEASUREMENT, "new", NewProject},
                                {&measpanel::F6, "save", Save},
                                {&mainmenu::SAVE_RAW_DATA, "save", Save},
                                {&measpanel::F7, "save", SaveAs},
                                {&mainmenu::LOAD_EXD_FILE_MENU, "curves", ReadCurves},
                                {&mainmenu::EXPORT_EXD_DATA, "curves", WriteCurves},
                                {&cdisppnl::SAVEGCD, "curves", WriteCurves},
                                {&cdisppnl::SAVEICD, "curves", WriteCurves},
                                {&cdisppnl::SAVERED, "curves", WriteCurves},
                                {&mainmenu::PRINT_REPORT, "report", Report}};
  for (const MenuControl* item :
       {&mainmenu::EXPORT_CSV, &mainmenu::EXPORT_JSON, &mainmenu::EXPORT_SWPREPOST, &mainmenu::EXPORT_DINVER,
        &mainmenu::EXPORT_GPDC, &mainmenu::EXPORT_LAYERS, &mainmenu::EXPORT_DISBA})
    rows.push_back({item, "write", WriteTables});
  return rows;
}

std::vector<PressRow> ImportPresses() {
  return {{&loadtxdata::LOAD, "read", ReadTexts},
          {&loadshots::LOAD, "read", ReadShots},
          {&tmgrafpnl::ADDSTATION, "station", AddStation}};
}

std::vector<PressRow> RunPresses() {
  return {{&devpanel::FIND, "board", FindBoards},
          {&hwsetup::COFIG_SETUP, "configure", Configure},
          {&measpanel::SASWSTART, "measure", Measure},
          {&inversion::PERFORMINV, "invert", Invert},
          {&pulse::RUN, "waveform", Waveform},
          {&mainmenu::PULSE_RUN_FULL_WAVE_MENU, "waveform", Waveform},
          {&pulse::SAVE, "waveform", SaveWaveform},
          {&mainmenu::PULSE_SAVE_RESULTS_MENU, "waveform", SaveWaveform},
          {&pulse::TOMEAS, "waveform", WaveformToMeasurement}};
}

}  // namespace sondera::script
