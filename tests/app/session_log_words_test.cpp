// Presses of a person that the log writes as their own word: each of them gives its line, and the replay of that
// line gives the same project.
#include <cmath>
#include <functional>
#include <map>
#include <set>

#include "app/script/names.h"
#include "app/script/press_words.h"
#include "app/script/words.h"
#include "app/session_log_fixture.h"
#include "panels/sasw_masking.h"
#include "runtime/catalogue/cdisppnl.h"
#include "runtime/catalogue/devpanel.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/gaborpnl.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/hwsetup.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/irfsetpnl.h"
#include "runtime/catalogue/loadshots.h"
#include "runtime/catalogue/loadtxdata.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/pulse.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/catalogue/tmgrafpnl.h"
#include "runtime/text_format.h"
#include "support/seg2_writer.h"

namespace sondera::testing {
namespace {

namespace fs = std::filesystem;

const std::string kPair = kRead + "pair ID 1 2\nphase original\n";
/// With the entries of an inversion.
const std::string kInverted = kModel + "start analytic ratios=0.5,0.5,1\ninvert iterations=1\n";
const std::string kGround = "layers ground.txt\nreceivers 2,4,8\n";
const std::string kBoard =
    "board sim:seed=4,pace=0,channels=2\n"
    "setup freqspan=256 freqlines=512 nchannels5=0 triggerlevel=200 naverage=2 source=0 at=6,12\n";

class PressOfAPerson : public SessionLogTest {
 protected:
  /// What a person does, after `prepared` was run and saved, and `begun` was run in the log.
  struct Case {
    std::string prepared, begun;
    std::function<void()> act;
    std::string line;  ///< of the log
  };

  void Choosing(const std::string& file, bool exists = false) {
    frontEnd.fileAnswers.push_back({exists ? FileAnswer::Exists : FileAnswer::IsNew, folder.File(file)});
  }
  static void Right(double x) {
    Mouse(sasw::DISPLAY_A, Event::RightClick, {.x = x, .button = MouseButton::Right});
  }
  void PressExport(const Control& item, const std::string& file) {
    Choosing(file);
    Press(item);
  }
  void WriteShot(const std::string& name) {
    test::Seg2Line line;
    line.source = 0.0;
    line.receivers = {10, 20};
    line.samples = 2000;
    line.value = [](std::size_t r, double t) {
      const double late = t - 0.05 * static_cast<double>(r + 1);
      return late <= 0.0 ? 0.0 : late * late * std::exp(-60.0 * late) * std::sin(88.0 * late);
    };
    test::WriteWhole(folder.File(name), test::Seg2Bytes(test::Seg2OfLine(line)));
  }
  void FillTextImport(const std::string& id) {
    Press(mainmenu::LOAD_TWO_CHNL_DATA);
    Choose(loadtxdata::DATATYPE, 1);
    Enter(loadtxdata::NCHANS, 2);
    EnterText(loadtxdata::MEASID, id);
    EnterText(loadtxdata::FNAMESRC, folder.File("H31.hyx"));
    Enter(loadtxdata::LOC_REC1, 14);
    Enter(loadtxdata::LOC_REC2, 30);
  }

  std::map<ControlId, Case> Cases();
  std::map<ControlId, Case> FileCases();
  std::map<ControlId, Case> PairCases();
  std::map<ControlId, Case> RunCases();

  std::map<std::string, std::string> FilesNow() {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::directory_iterator(folder.Path()))
      files[entry.path().filename().string()] = Read(entry.path().filename().string());
    return files;
  }
  /// The folder as it was: what was written since is gone.
  void RestoreFiles(const std::map<std::string, std::string>& files, const std::string& log) {
    for (const auto& [name, bytes] : FilesNow())
      if (name != log && !files.count(name)) fs::remove(folder.File(name));
    for (const auto& [name, bytes] : files)
      if (name != log) Write(name, bytes);
  }
};

std::map<ControlId, PressOfAPerson::Case> PressOfAPerson::FileCases() {
  std::map<ControlId, Case> cases = {
      {&mainmenu::NEW_MEASUREMENT,
       {kPair, "",
        [this] {
          frontEnd.confirmAnswers = {true, true};
          Press(mainmenu::NEW_MEASUREMENT);
        },
        "new discard=yes"}},
      {&measpanel::F6, {kPair, "project id=a\n", [] { Press(measpanel::F6); }, "save"}},
      {&mainmenu::SAVE_RAW_DATA, {kPair, "project id=a\n", [] { Press(mainmenu::SAVE_RAW_DATA); }, "save"}},
      {&measpanel::F7,
       {kPair, "",
        [this] {
          Choosing("b.da");
          Press(measpanel::F7);
          Choosing("b.da", true);
          frontEnd.confirmAnswers = {true};
          Press(measpanel::F7);
        },
        "save b.da\nsave b.da overwrite=yes"}},
      {&mainmenu::LOAD_EXD_FILE_MENU,
       {kModel + "curves write c.exd\n", "",
        [this] {
          Choosing("c.exd", true);
          Press(mainmenu::LOAD_EXD_FILE_MENU);
        },
        "curves read c.exd"}},
      {&mainmenu::EXPORT_EXD_DATA,
       {kModel, "", [this] { PressExport(mainmenu::EXPORT_EXD_DATA, "d.exd"); }, "curves write d.exd"}},
      {&cdisppnl::SAVEGCD,
       {kModel, "", [this] { PressExport(cdisppnl::SAVEGCD, "d.gcd"); }, "curves write d.gcd"}},
      {&cdisppnl::SAVEICD,
       {kModel, "", [this] { PressExport(cdisppnl::SAVEICD, "d.icd"); }, "curves write d.icd"}},
      {&cdisppnl::SAVERED,
       {kModel, "", [this] { PressExport(cdisppnl::SAVERED, "d.red"); }, "curves write d.red"}},
      {&mainmenu::PRINT_REPORT,
       {kInverted, "", [this] { PressExport(mainmenu::PRINT_REPORT, "r.ps"); }, "report r.ps"}},
      {&loadtxdata::LOAD,
       {"", "",
        [this] {
          FillTextImport("ID");
          Press(loadtxdata::LOAD);
          Press(loadtxdata::CANCEL);
          FillTextImport("ID");
          frontEnd.confirmAnswers = {true};
          Press(loadtxdata::LOAD);
        },
        "read hyx id=ID files=H31.hyx source=0 at=14,30 overwrite=yes"}},
      {&loadshots::LOAD,
       {"", "",
        [this] {
          WriteShot("1.sg2");
          Press(mainmenu::LOAD_SHOTS);
          Choosing("1.sg2", true);
          Press(loadshots::ADDFILE);
          EnterText(loadshots::MEASID, "site");
          Enter(loadshots::NEAREST, 5);
          Press(loadshots::LOAD);
        },
        "read seg2 id=site files=1.sg2 near=5"}},
      {&tmgrafpnl::ADDSTATION,
       {kModel + "curves write home.gcd\n", "",
        [this] {
          Press(mainmenu::DRAW_TOMO_GRAF);
          Choosing("home.gcd", true);
          frontEnd.promptAnswers.push_back("12.50");
          Press(tmgrafpnl::ADDSTATION);
        },
        "station home.gcd at=12.5"}}};
  const std::tuple<ControlId, const char*, const char*> kTables[] = {
      {&mainmenu::EXPORT_CSV, "t.csv", "write csv t"},
      {&mainmenu::EXPORT_JSON, "t.json", "write json t.json"},
      {&mainmenu::EXPORT_SWPREPOST, "t", "write swprepost t.csv overwrite=yes"},
      {&mainmenu::EXPORT_DINVER, "t.txt", "write dinver t.txt"},
      {&mainmenu::EXPORT_GPDC, "t.txt", "write gpdc t.txt"},
      {&mainmenu::EXPORT_LAYERS, "t.txt", "write layers t.txt"},
      {&mainmenu::EXPORT_DISBA, "t.txt", "write disba t.txt"}};
  for (const auto& [item, file, line] : kTables)
    cases[item] = {kInverted, "", [this, item = item, file = file] { PressExport(*item, file); }, line};
  return cases;
}

std::map<ControlId, PressOfAPerson::Case> PressOfAPerson::PairCases() {
  using namespace irfsetpnl;
  return {
      {&sasw::MASKINGNEW,
       {kPair, "pair ID 1 2\n",
        [] {
          Enter(sasw::MASKING_FREQINIT, 5);
          Enter(sasw::MASKING_FREQFINAL, 12.5);
          Press(sasw::MASKINGNEW);
        },
        "mask 5 12.5"}},
      {&sasw::MASKINGDEL,
       {kPair + "mask 0 7\nmask 20 30\n", "pair ID 1 2\n",
        [] {
          Right(25);
          Press(sasw::MASKINGDEL);
        },
        "mask delete 25"}},
      {&sasw::MASKINGUPDATE,
       {kPair + "mask 0 7\nmask 20 30\n", "pair ID 1 2\n",
        [] {
          Right(25);
          Enter(sasw::MASKING_FREQINIT, 22);
          Enter(sasw::MASKING_JUMPNO, 2);
          Press(sasw::MASKINGUPDATE);
        },
        "mask update 25 22 30 jumps=2"}},
      {&sasw::MASKINGRESET,
       {kPair + "mask 0 7\n", "pair ID 1 2\nmask 20 30\n", [] { Press(sasw::MASKINGRESET); }, "mask clear"}},
      {&sasw::MASKINGAUTO,
       {kPair, "pair ID 1 2\ngabor\n",
        [this] {
          frontEnd.confirmAnswers.assign(20, true);
          Press(sasw::MASKINGAUTO);
        },
        "mask auto"}},
      {&OK,
       {kPair, "pair ID 1 2\n",
        [] {
          Press(sasw::MASKINGLIST);
          Choose(IRFMODE, 0);
          Enter(SMIRF_V1, 600);
          Enter(SMIRF_V2, 450);
          Enter(SMIRF_V3, 120);
          Enter(SMIRF_V4, 90.5);
          Press(OK);
        },
        "window enhanced bandpass velocities=600,450,120,90.5"}},
      {&APPLY,
       {kPair, "pair ID 1 2\n",
        [] {
          Press(sasw::MASKINGLIST);
          Choose(IRFMODE, 0);
          Enter(SMIRF_T1, 0.01);
          Enter(SMIRF_T2, 0.02);
          Enter(SMIRF_T3, 0.1);
          Enter(SMIRF_T4, 0.2);
          Press(APPLY);
        },
        "window enhanced bandpass times=0.01,0.02,0.1,0.2"}},
      {&gaborpnl::CALC,
       {kPair, "pair ID 1 2\n",
        [] {
          Press(mainmenu::GABOR_SETUP);
          Enter(gaborpnl::TIMEDIV, 20);
          Enter(gaborpnl::FINALTIME, 0.25);
          Press(gaborpnl::CALC);
        },
        "gabor finaltime=0.25 timediv=20"}},
      {&sasw::MASKINGCALCDISP, {kPair, "pair ID 1 2\n", [] { Press(sasw::MASKINGCALCDISP); }, "disperse"}},
      {&dispcurv::EXCLUDE,
       {kModel, "plot DISPCURV.DISPGRAPH\n",
        [] {
          Choose(dispcurv::LIST_INCLUDED, 0);
          Press(dispcurv::EXCLUDE);
        },
        "exclude ID 1 2"}},
      {&dispcurv::INCLUDE,
       {kModel + "read hyx id=J files=H31.hyx source=0 at=14,30\npair J 1 2\nphase "
                 "original\ndisperse\nexclude ID 1 2\n",
        "plot DISPCURV.DISPGRAPH\n",
        [] {
          Choose(dispcurv::LIST_EXCLUDED, 0);
          Press(dispcurv::INCLUDE);
        },
        "include ID 1 2"}},
      {&cdisppnl::CALC,
       {kModel, "",
        [] {
          Press(dispcurv::COMPDISPCURV);
          Enter(cdisppnl::GLOBAL_NPOINTS, 9);
          Press(cdisppnl::CALC);
          Press(cdisppnl::CANCEL);
        },
        "set CDISPPNL.GLOBAL_NPOINTS 9\ncondense"}},
      {&mainmenu::UNDO,
       {kPair, "pair ID 1 2\nmask 5 9\nmask 20 30\n", [] { Press(mainmenu::UNDO); }, "undo"}},
      {&mainmenu::REDO,
       {kPair, "pair ID 1 2\nmask 5 9\nmask 20 30\n",
        [] {
          Press(mainmenu::UNDO);
          Press(mainmenu::UNDO);
          Press(mainmenu::REDO);
        },
        "undo\nundo\nredo"}}};
}

std::map<ControlId, PressOfAPerson::Case> PressOfAPerson::RunCases() {
  const std::string waves = "waveform shape=2 fc=60 span=500 points=256\n";
  std::map<ControlId, Case> cases = {
      {&devpanel::FIND,
       {"", "",
        [] {
          Press(mainmenu::SETUP_BOARDS);
          EnterText(devpanel::DRIVER, "sim:seed=4,pace=0,channels=2");
          Press(devpanel::FIND);
        },
        "board \"sim:seed=4,pace=0,channels=2\""}},
      {&hwsetup::COFIG_SETUP,
       {"", kBoard + "configure\nmeasure\nset HWSETUP.NCHANNELS1 1 commit=no\n",
        [this] {
          frontEnd.confirmAnswers = {true};
          Press(hwsetup::COFIG_SETUP);
        },
        "configure discard=yes"}},
      {&measpanel::SASWSTART, {"", kBoard + "configure\n", [] { Press(measpanel::SASWSTART); }, "measure"}},
      {&inversion::PERFORMINV,
       {kModel, "",
        [] {
          Press(exdthd::RUN_INVERSION);
          Enter(inversion::NITER, 1);
          Press(inversion::PERFORMINV);
        },
        "set INVERSION.NITER 1\ninvert"}},
      {&pulse::TOMEAS,
       {kGround, kGround + waves,
        [this] {
          EnterText(pulse::MEASID, "made");
          frontEnd.confirmAnswers = {true};
          Press(pulse::TOMEAS);
          frontEnd.confirmAnswers = {true, false};
          Press(pulse::TOMEAS);
        },
        "waveform measurement made masks=yes\nwaveform measurement made overwrite=yes"}}};
  for (const Control* run : {static_cast<const Control*>(&pulse::RUN),
                             static_cast<const Control*>(&mainmenu::PULSE_RUN_FULL_WAVE_MENU)})
    cases[run] = {kGround, kGround + waves,
                  [run] {
                    Enter(pulse::CFREQ, 50);
                    Press(*run);
                    Press(pulse::TOMEAS);  // without an id: refused
                    EnterText(pulse::MEASID, "made");
                    Press(pulse::TOMEAS);
                  },
                  "waveform\n"};
  for (const Control* save : {static_cast<const Control*>(&pulse::SAVE),
                              static_cast<const Control*>(&mainmenu::PULSE_SAVE_RESULTS_MENU)})
    cases[save] = {kGround, kGround + waves,
                   [this, save] {
                     Choosing("w.tim");
                     Press(*save);
                     Choosing("w.tim");
                     frontEnd.confirmAnswers = {true};
                     Press(*save);
                   },
                   "waveform save w.tim\nwaveform save w.tim overwrite=yes"};
  return cases;
}

std::map<ControlId, PressOfAPerson::Case> PressOfAPerson::Cases() {
  std::map<ControlId, Case> cases = FileCases();
  cases.merge(PairCases());
  cases.merge(RunCases());
  return cases;
}

class EachPress : public PressOfAPerson, public ::testing::WithParamInterface<std::size_t> {};

TEST_P(EachPress, IsItsWordAndTheWordGivesTheSameProject) {
  const script::PressWord press = script::PressesWithWords().at(GetParam());
  const std::map<ControlId, Case> cases = Cases();
  ASSERT_TRUE(cases.count(press.control)) << "no case for " << script::NameOf(*press.control);
  const Case& c = cases.at(press.control);
  Write("ground.txt", "2 0 150 1.8 0.25 0.02\n10 0 300 1.8 0.25 0.02\n");
  WriteShot("1.sg2");
  StartSession();
  ASSERT_EQ(Run(c.prepared + "save a.da") % 3, 0) << err;
  ASSERT_EQ(Run("new\nopen a.da") % 3, 0) << err;  // saved by the first session, as read from the file
  const auto files = FilesNow();
  Begin("a.log");
  ASSERT_EQ(Run("open a.da\n" + c.begun) % 3, 0) << err;
  frontEnd.messages.clear();
  c.act();
  EXPECT_EQ(script::EndLog(), "");
  const std::string lines = LinesOf("a.log");
  EXPECT_NE(lines.find("\n" + c.line + (c.line.ends_with('\n') ? "" : "\n")), std::string::npos)
      << lines << ::testing::PrintToString(frontEnd.messages);
  EXPECT_EQ(lines.find("press " + script::NameOf(*press.control) + "\n"), std::string::npos) << lines;
  EXPECT_TRUE(c.line.find(press.word) != std::string::npos) << press.word;
  const std::string project = ProjectNow();
  RestoreFiles(files, "a.log");
  frontEnd.confirmAnswers.clear();
  EXPECT_TRUE(Replayed("a.log") == project) << lines << err;
}

std::string NameOfPress(const ::testing::TestParamInfo<std::size_t>& info) {
  std::string name = script::NameOf(*script::PressesWithWords().at(info.param).control);
  std::replace(name.begin(), name.end(), '.', '_');
  return name;
}
INSTANTIATE_TEST_SUITE_P(All, EachPress, ::testing::Range(std::size_t{0}, script::PressesWithWords().size()),
                         NameOfPress);

// --- where the word would do something else, the log has the press ---

TEST_F(PressOfAPerson, AMaskThatTheWordWouldNotFindIsDeletedByThePress) {
  StartSession();
  ASSERT_EQ(Run(kPair + "mask 20 30\nsave a.da"), 0) << err;
  Begin("a.log");
  ASSERT_EQ(Run("open a.da\npair ID 1 2"), 0) << err;
  Right(25);
  Enter(sasw::MASKING_FREQINIT, 21);  // stays in the field after the press
  Press(sasw::MASKINGDEL);
  script::EndLog();
  EXPECT_NE(LinesOf("a.log").find("set SASW.MASKING_FREQINIT 21\npress SASW.MASKINGDEL\n"), std::string::npos)
      << LinesOf("a.log");
  const std::string project = ProjectNow();
  EXPECT_TRUE(Replayed("a.log") == project);
}

TEST_F(PressOfAPerson, BothWindowsAtOnceAreEnteredAndPressed) {
  StartSession();
  ASSERT_EQ(Run(kPair + "save a.da"), 0) << err;
  Begin("a.log");
  ASSERT_EQ(Run("open a.da\npair ID 1 2"), 0) << err;
  Press(sasw::MASKINGLIST);
  Choose(irfsetpnl::IRFMODE, 0);
  const std::pair<const NumericControl*, double> kVelocities[] = {{&irfsetpnl::SMIRF_V1, 600},
                                                                  {&irfsetpnl::SMIRF_V2, 450},
                                                                  {&irfsetpnl::SMIRF_V3, 120},
                                                                  {&irfsetpnl::SMIRF_V4, 90.5},
                                                                  {&irfsetpnl::BBIRF_V1, 60000}};
  for (const auto& [field, velocity] : kVelocities) Enter(*field, velocity);
  Press(irfsetpnl::OK);
  script::EndLog();
  EXPECT_NE(LinesOf("a.log").find(
                "set IRFSETPNL.SMIRF_V4 90.5\nset IRFSETPNL.BBIRF_V1 60000\npress IRFSETPNL.OK\n"),
            std::string::npos)
      << LinesOf("a.log") << ::testing::PrintToString(frontEnd.messages);
  const std::string project = ProjectNow();
  EXPECT_TRUE(Replayed("a.log") == project);
}

TEST_F(PressOfAPerson, ARefusedImportStaysAPressWithItsEntries) {
  Begin("a.log");
  FillTextImport("ID");
  Enter(loadtxdata::LOC_REC2, 3);  // nearer than the first
  Press(loadtxdata::LOAD);
  script::EndLog();
  EXPECT_TRUE(
      LinesOf("a.log").ends_with("set LOADTXDATA.LOC_REC2 3\nonerror continue\npress LOADTXDATA.LOAD\n"
                                 "onerror stop\n"))
      << LinesOf("a.log");
}

TEST_F(PressOfAPerson, AQuestionThatIsAnsweredNoStaysAPress) {
  Begin("a.log");
  ASSERT_EQ(Run(kRead), 0) << err;
  FillTextImport("ID");
  frontEnd.confirmAnswers = {false};
  Press(loadtxdata::LOAD);
  script::EndLog();
  EXPECT_TRUE(
      LinesOf("a.log").ends_with("onerror continue\nanswer no\npress LOADTXDATA.LOAD\nonerror stop\n"))
      << LinesOf("a.log");
  const std::string project = ProjectNow();
  EXPECT_TRUE(Replayed("a.log") == project);
}

TEST_F(PressOfAPerson, TextImportsOfEveryKindHaveTheirLine) {
  const std::pair<int, const char*> kLines[] = {{0, "read tim id=ID files=A,H31.hyx source=0 at=14,30"},
                                                {1, "read hyx id=ID files=A source=0 at=14,30"},
                                                {2, "read gyx id=ID files=A,H31.hyx source=0 at=14,30"},
                                                {3, "read uff-h id=ID files=A source=0 at=14,30"},
                                                {4, "read uff-g id=ID files=A,H31.hyx source=0 at=14,30"}};
  for (const auto& [kind, line] : kLines) {
    FillTextImport("ID");
    Choose(loadtxdata::DATATYPE, kind);
    Enter(loadtxdata::LOC_REC1, 14);
    Enter(loadtxdata::LOC_REC2, 30);
    EnterText(loadtxdata::FNAMESRC, folder.File("A"));
    EnterText(loadtxdata::FNAMECH1, folder.File("H31.hyx"));
    const script::InputLine word = script::WordOfPress(loadtxdata::LOAD);
    ASSERT_TRUE(word.finish) << kind;
    EXPECT_EQ(word.finish({}), line);
    EXPECT_TRUE(script::CanBeBound(line)) << line;
    SetCtrlVal(loadtxdata::SRCINSTRUMENT, 1);
    EXPECT_TRUE(script::WordOfPress(loadtxdata::LOAD).finish({}).ends_with(" instrumented=yes")) << kind;
    SetCtrlVal(loadtxdata::SRCINSTRUMENT, 0);
  }
  EnterText(loadtxdata::FNAMESRC, "A");  // the word would write a whole path into the field
  EXPECT_FALSE(script::WordOfPress(loadtxdata::LOAD).finish);
  EnterText(loadtxdata::FNAMESRC, folder.File("A,B"));
  EXPECT_FALSE(script::WordOfPress(loadtxdata::LOAD).finish);
}

TEST_F(PressOfAPerson, ShotsOfColumnsHaveTheirLine) {
  std::string text;
  for (int i = 0; i < 400; ++i)
    text += FormatText("%.9g;%.9g\n", std::sin(0.1 * i) * std::exp(-0.01 * i),
                       std::sin(0.1 * (i - 9)) * std::exp(-0.01 * i));
  Write("s.txt", text);
  Begin("a.log");
  Press(mainmenu::LOAD_SHOTS);
  Choose(loadshots::FORMAT, 1);
  EnterText(loadshots::FILES, folder.File("s.txt"));
  EnterText(loadshots::MEASID, "col");
  Enter(loadshots::INTERVAL, 0.001);
  EnterText(loadshots::SOURCE, "0");
  EnterText(loadshots::RECEIVERS, "5, 10");
  Choose(loadshots::UNIT, 1);
  Press(loadshots::LOAD);
  script::EndLog();
  EXPECT_NE(LinesOf("a.log").find("\nread columns id=col files=s.txt source=0 at=5,10 unit=m dt=0.001\n"),
            std::string::npos)
      << LinesOf("a.log") << ::testing::PrintToString(frontEnd.messages);
  const std::string project = ProjectNow();
  fs::remove(folder.File("now.da"));
  EXPECT_TRUE(Replayed("a.log") == project);
}

TEST_F(PressOfAPerson, TheProjectIdIsItsWord) {
  Begin("a.log");
  EnterText(hmsetup::PROJID, "north bank");
  script::EndLog();
  EXPECT_EQ(LinesOf("a.log"), "project id=\"north bank\"\n");
  const std::string project = ProjectNow();
  EXPECT_TRUE(Replayed("a.log") == project);
}

TEST(PressesWithWords, AreInTheDocumentation) {
  std::ifstream file(SONDERA_SOURCE_DIR "/docs/script.md");
  const std::string text{std::istreambuf_iterator<char>(file), {}};
  const std::vector<std::string> words = script::AllWords();
  std::set<ControlId> seen;
  for (const script::PressWord& press : script::PressesWithWords()) {
    EXPECT_TRUE(seen.insert(press.control).second) << script::NameOf(*press.control);
    EXPECT_NE(std::find(words.begin(), words.end(), press.word), words.end()) << press.word;
  }
  std::map<std::string, std::string> rows;
  for (const script::PressWord& press : script::PressesWithWords()) {
    std::string& row = rows[std::string(press.word)];
    row += (row.empty() ? "" : ", ") + ("`" + script::NameOf(*press.control) + "`");
  }
  for (const auto& [word, presses] : rows) {
    const std::string row = "| `" + word + "` | " + presses + " |\n";
    EXPECT_NE(text.find(row), std::string::npos) << "docs/script.md has to hold this row:\n" << row;
  }
}

}  // namespace
}  // namespace sondera::testing
