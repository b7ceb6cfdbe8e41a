// The panel "Generation of Waveform": first values, source file, pages, run, halt, files and graphs.
#include <chrono>
#include <cmath>
#include <sstream>

#include "app/waveform_fixture.h"
#include "forward/waveform_text.h"
#include "panels/pulse.h"
#include "records/kinds.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/findings.h"
#include "runtime/graphs.h"

namespace sondera {
namespace {

class WaveformPanel : public testing::WaveformTest {};

// --- settings ---

TEST_F(WaveformPanel, FirstValuesAndTheTimesThatFollow) {
  EXPECT_EQ(GetCtrlVal(pulse::SHAPE), 2);
  EXPECT_EQ(GetCtrlVal(pulse::CFREQ), 1280.0);
  EXPECT_EQ(GetCtrlVal(pulse::FREQSPAN), 51200.0);
  EXPECT_EQ(GetCtrlVal(pulse::NPOINTS), 6);
  EXPECT_EQ(GetCtrlVal(pulse::SAVEOPTION), 2);
  EXPECT_EQ(GetCtrlVal(pulse::DELTAT), "");
  EXPECT_EQ(Commit(mainmenu::PULSE_WAVEFORM_MENU), 0);
  EXPECT_EQ(GetCtrlVal(pulse::DELTAT), "9.77 usec");
  EXPECT_EQ(GetCtrlVal(pulse::TOTALT), "58.59 usec");
  EXPECT_DOUBLE_EQ(panelsState.pulse.deltaT, 9.765625e-06);
  EXPECT_DOUBLE_EQ(panelsState.pulse.timeLength, 6 * 9.765625e-06);
}

TEST_F(WaveformPanel, ASpanOfZeroHasNoTimes) {
  for (const auto& [span, points] : {std::pair{0.0, 64}, std::pair{-1.0, 64}, std::pair{500.0, 0}}) {
    Grid(60.0, span, points);
    EXPECT_EQ(GetCtrlVal(pulse::DELTAT), "") << span;
    EXPECT_EQ(GetCtrlVal(pulse::TOTALT), "") << span;
  }
  EXPECT_TRUE(frontEnd.messages.empty());
}

TEST_F(WaveformPanel, AnotherShapeLeavesTheFileAndShapeZeroTakesIt) {
  SetCtrlVal(pulse::FILE, "blow.tim");
  SetCtrlVal(pulse::SHAPE, 1);
  Commit(pulse::SHAPE);
  EXPECT_EQ(panelsState.pulse.shape, 1);
  GetPulseParm();
  EXPECT_EQ(panelsState.pulse.fileName, "");
  EXPECT_EQ(GetCtrlVal(pulse::FILE), "blow.tim");
  SetCtrlVal(pulse::SHAPE, 0);
  Commit(pulse::SHAPE);
  EXPECT_EQ(panelsState.pulse.fileName, "blow.tim");
  Grid();  // writes the record back to the panel
  EXPECT_EQ(GetCtrlVal(pulse::FILE), "blow.tim");
  SetCtrlVal(pulse::SHAPE, 2);
  Commit(pulse::SHAPE);
  EXPECT_EQ(panelsState.pulse.fileName, "blow.tim");
}

TEST_F(WaveformPanel, BrowseTakesAFileAndComplainsOfNone) {
  Write("blow.tim", "0 0\n0.001 1\n0.002 0\n");
  frontEnd.fileAnswers = {{FileAnswer::Exists, folder.File("blow.tim")}, {FileAnswer::IsNew, "none"}, {}};
  EXPECT_EQ(Commit(pulse::BROWSE), 0);
  EXPECT_TRUE(frontEnd.messages.empty());
  EXPECT_EQ(GetCtrlVal(pulse::FILE), folder.File("blow.tim"));
  EXPECT_EQ(panelsState.pulse.shape, 2) << "the shape is a choice of its own";
  EXPECT_EQ(Commit(pulse::BROWSE), -1);
  EXPECT_EQ(Commit(pulse::BROWSE), -1);
  EXPECT_EQ(frontEnd.messages,
            (std::vector<std::string>{"File does not exist.", "Error in reading the file."}));
  EXPECT_EQ(frontEnd.messageTitles, (std::vector<std::string>{"Sondera 2.0", "Sondera 2.0"}));
  EXPECT_EQ(frontEnd.files.front().title, "Load a Source Function.");
}

TEST_F(WaveformPanel, CloseGoesBackToThePageBefore) {
  Commit(mainmenu::DISPERSION_MODE);
  ASSERT_TRUE(IsPanelShown(Panel::DISPCURV));
  Commit(mainmenu::PULSE_WAVEFORM_MENU);
  EXPECT_TRUE(IsPanelShown(Panel::PULSE));
  EXPECT_FALSE(IsPanelShown(Panel::DISPCURV));
  Commit(mainmenu::PULSE_WAVEFORM_MENU);  // once more: the page before is still known
  Commit(pulse::CLOSE);
  EXPECT_FALSE(IsPanelShown(Panel::PULSE));
  EXPECT_TRUE(IsPanelShown(Panel::DISPCURV));
  EXPECT_FALSE(IsPanelShown(Panel::SASW));
}

TEST_F(WaveformPanel, MenuItemsDoWhatTheButtonsDo) {
  Ground();
  Grid();
  EXPECT_EQ(Commit(mainmenu::PULSE_LAYERING_REC_MENU), 0);
  EXPECT_TRUE(IsPanelShown(Panel::FMODELING));
  EXPECT_EQ(Commit(mainmenu::PULSE_RUN_FULL_WAVE_MENU), 0);
  EXPECT_TRUE(State().made);
  SetCtrlVal(pulse::SAVEOPTION, 1);
  frontEnd.fileAnswers = {{FileAnswer::IsNew, folder.File("menu")}};
  EXPECT_EQ(Commit(mainmenu::PULSE_SAVE_RESULTS_MENU), 0);
  EXPECT_TRUE(Exists("menu.spc"));
  EXPECT_FALSE(IsDimmed(pulse::RUN) || IsDimmed(pulse::SAVE) ||
               IsDimmed(mainmenu::PULSE_RUN_FULL_WAVE_MENU) || IsDimmed(mainmenu::PULSE_SAVE_RESULTS_MENU));
}

// --- run ---

TEST_F(WaveformPanel, FirstValuesAreTooShortAndFitToSiteMendsThat) {
  Ground(kTwoLayers, "2,4,8");
  Commit(mainmenu::PULSE_WAVEFORM_MENU);
  EXPECT_EQ(Commit(pulse::RUN), -1);
  ASSERT_EQ(frontEnd.messages.size(), 1u);
  EXPECT_NE(frontEnd.messages[0].find("take 0.06509 s"), std::string::npos) << frontEnd.messages[0];
  EXPECT_FALSE(State().made);
  EXPECT_EQ(GetCtrlVal(pulse::CFREQ), 1280.0);
  EXPECT_EQ(Commit(pulse::FIT), 0);
  EXPECT_NEAR(GetCtrlVal(pulse::FREQSPAN), 8.0 * GetCtrlVal(pulse::CFREQ), 1e-9);
  EXPECT_EQ(Commit(pulse::RUN), 0);
  EXPECT_EQ(frontEnd.messages.size(), 1u);
  EXPECT_EQ(State().result.record.trace.size(), 3u);
  EXPECT_EQ(GetCtrlVal(pulse::STATUSMSG).find("3 receivers, "), 0u) << GetCtrlVal(pulse::STATUSMSG);
}

TEST_F(WaveformPanel, ARunIsTheRecordOfTheCore) {
  Ground("2 0 150 1.8 0.25 0.02\n10 519.615 300 1.9 0 0.02\n");  // Poisson's ratio follows
  Grid();
  ASSERT_EQ(Commit(pulse::RUN), 0);
  const WaveformLayer& second = State().setup.site.layers[1];
  EXPECT_NEAR(second.nu, 0.25, 1e-5);
  EXPECT_EQ(State().setup.site.nSubLayers, 16);
  WaveformResult own;
  Listener quiet;
  ASSERT_FALSE(GenerateWaveform(State().setup, quiet, own));
  EXPECT_EQ(own.record.trace, State().result.record.trace);
}

TEST_F(WaveformPanel, TheKindOfAnalysisAndAShallowMeshDoNotCount) {
  Ground();
  Grid();
  ASSERT_EQ(Commit(pulse::RUN), 0);
  const auto trace = State().result.record.trace;
  SetCtrlVal(fmodeling::ANALYSISTYPE, 2);
  SetCtrlVal(fmodeling::E3D_FDB, 1.75);
  ASSERT_EQ(Commit(pulse::RUN), 0);
  EXPECT_EQ(State().result.record.trace, trace);
}

TEST_F(WaveformPanel, ResultFilesOfTheProjectStay) {
  Ground();
  Grid();
  const std::string id = GetCtrlVal(hmsetup::PROJID);
  for (const char* extension : {".fdp", ".fmp", ".pfl", ".pcm"}) Write(id + extension, "kept");
  ASSERT_EQ(Commit(pulse::RUN), 0);
  frontEnd.fileAnswers = {{FileAnswer::IsNew, folder.File("out")}};
  ASSERT_EQ(Commit(pulse::SAVE), 0);
  for (const char* extension : {".fdp", ".fmp", ".pfl", ".pcm"}) EXPECT_EQ(Read(id + extension), "kept");
  EXPECT_FALSE(Exists(id + ".pls"));
}

TEST_F(WaveformPanel, NothingButHaltAnswersDuringARunAndAHaltKeepsTheRecordBefore) {
  Ground();
  Grid();
  ASSERT_EQ(Commit(pulse::RUN), 0);
  const auto trace = State().result.record.trace;
  Grid(40.0);
  int polls = 0, pollsAfterHalt = 0;
  bool asked = false;
  frontEnd.confirmAnswers = {true};
  frontEnd.onProcessEvents = [&] {
    ++polls;
    if (asked) ++pollsAfterHalt;
    if (polls == 3) {
      EXPECT_EQ(Commit(pulse::RUN), -1);
    }
    if (polls == 5) {
      EXPECT_EQ(Commit(pulse::HALT), 0);
      asked = true;
    }
  };
  EXPECT_EQ(Commit(pulse::RUN), -1);
  frontEnd.onProcessEvents = nullptr;
  EXPECT_EQ(pollsAfterHalt, 0) << "not one line more is computed";
  EXPECT_EQ(frontEnd.messages,
            std::vector<std::string>{"A waveform is being computed. Please halt it first."});
  EXPECT_EQ(State().result.record.trace, trace);
  EXPECT_EQ(State().setup.pulse.centerFreq, 60.0);
  EXPECT_EQ(GetCtrlVal(pulse::STATUSMSG), "The run was halted; nothing of it is kept.");
  EXPECT_EQ(Commit(pulse::RUN), 0) << "the halt is forgotten";
}

TEST_F(WaveformPanel, TheStatusTellsHowFarTheRunIs) {
  Ground();
  Grid();
  std::string seen;
  frontEnd.onProcessEvents = [&] {
    if (GetCtrlVal(pulse::STATUSMSG).find("% done") != std::string::npos) seen = GetCtrlVal(pulse::STATUSMSG);
  };
  ASSERT_EQ(Commit(pulse::RUN), 0);
  frontEnd.onProcessEvents = nullptr;
  EXPECT_NE(seen, "");
  EXPECT_EQ(GetCtrlVal(exdthd::STATUSMSG).find("% done"), std::string::npos);
}

TEST_F(WaveformPanel, LayersThatAreComputedOtherwiseAreNamed) {
  Ground("2 0 150 1.8 0.25 0\n10 0 300 1.8 0.49 0.02\n");
  Grid();
  ASSERT_EQ(Commit(pulse::RUN), 0);
  const std::string status = GetCtrlVal(pulse::STATUSMSG);
  EXPECT_NE(status.find("The damping ratio of layer 1 is below 0.005"), std::string::npos) << status;
  EXPECT_NE(status.find("Poisson's ratio of layer 2 is above 0.45"), std::string::npos) << status;
}

TEST_F(WaveformPanel, WhatNoRecordCanBeMadeOfHasOneSentence) {
  Ground();
  const auto expectOne = [&](const char* what) {
    frontEnd.messages.clear();
    EXPECT_EQ(Commit(pulse::RUN), -1) << what;
    EXPECT_EQ(frontEnd.messages.size(), 1u) << what;
    EXPECT_FALSE(State().made) << what;
  };
  Grid(60.0, 500.0, 65536);
  expectOne("65536 points");
  Grid(60.0, 500.0, 255);
  expectOne("odd");
  Grid(60.0, 1e-300, 256);
  expectOne("tiny span");
  Grid(60.0, 0.0, 256);
  expectOne("no span");
  Grid(0.0);
  expectOne("no centre frequency");
  Grid();
  for (const double at : {0.0, -2.0, 4.0, std::nan(""), 1e300}) {
    SetTableCellVal(fmodeling::RECEIVERLOC, 1, 1, at);
    expectOne(std::to_string(at).c_str());
  }
  SetTableCellVal(fmodeling::RECEIVERLOC, 1, 1, 2.0);
  SetTableCellVal(fmodeling::SOILPROFILE, 1, 1, 0.0);
  expectOne("no thickness");
  SetTableCellVal(fmodeling::SOILPROFILE, 1, 1, 2.0);
  SetCtrlVal(pulse::SHAPE, 0);
  Commit(pulse::SHAPE);
  expectOne("no file");
  for (const char* text : {"", "0 1\n", "0 0\n1 0\n", "0 1\n0 2\n", "0 nan\n1 2\n", "x y\n"}) {
    Write("blow.tim", text);
    SetCtrlVal(pulse::FILE, "blow.tim");
    expectOne(text);
  }
}

TEST_F(WaveformPanel, AFileOfTheRickerIsTheRickerAndTwiceItIsTwiceTheRecord) {
  Ground();
  Grid();
  ASSERT_EQ(Commit(pulse::RUN), 0);
  const std::vector<double> ricker = State().result.record.trace[1];
  std::vector<std::vector<double>> traces;
  for (const double strength : {1.0, 2.0}) {
    std::ostringstream text;
    text.precision(12);
    for (int i = 0; i < 400; ++i)
      text << i * 2.5e-4 << " " << strength * PulseForce(2, 60.0, i * 2.5e-4) << "\n";
    Write("blow.tim", text.str());
    SetCtrlVal(pulse::FILE, "blow.tim");
    SetCtrlVal(pulse::SHAPE, 0);
    Commit(pulse::SHAPE);
    ASSERT_EQ(Commit(pulse::RUN), 0);
    traces.push_back(State().result.record.trace[1]);
  }
  double peak = 0.0, fromRicker = 0.0, fromTwice = 0.0;
  for (std::size_t i = 0; i < ricker.size(); ++i) {
    peak = std::max(peak, std::fabs(ricker[i]));
    fromRicker = std::max(fromRicker, std::fabs(traces[0][i] - ricker[i]));
    fromTwice = std::max(fromTwice, std::fabs(2.0 * traces[0][i] - traces[1][i]));
  }
  EXPECT_LT(fromRicker, 1e-3 * peak);
  EXPECT_LT(fromTwice, 1e-9 * peak);
}

// --- files ---

TEST_F(WaveformPanel, SavedRecordsReadBackWhole) {
  Ground();
  Grid();
  ASSERT_EQ(Commit(pulse::RUN), 0);
  frontEnd.fileAnswers = {{FileAnswer::IsNew, folder.File("out.tim")}};
  ASSERT_EQ(Commit(pulse::SAVE), 0);
  for (const char* name : {"out_r1.tim", "out_r2.tim", "out_r3.tim", "out.pls", "out.spc"})
    EXPECT_TRUE(Exists(name)) << name;
  EXPECT_EQ(Read("out_r2.tim"), TimText(State().result.record, 1));
  EXPECT_EQ(Read("out_r1.tim").rfind("0 ", 0), 0u) << "no head, first time 0";
  EXPECT_EQ(Read("out.pls").front(), '#');
  ASSERT_EQ(Run("read tim id=back files=out_r1.tim,out_r2.tim,out_r3.tim source=0 at=2,4,8\n"), 0) << err;
  MeasRecords records;
  ASSERT_NE(GetInfoFromKey(GetKeyFromID(session.curProjID, "back"), records), -1);
  EXPECT_NEAR(records.hwSetup->deltaT, 0.001, 1e-12);
  EXPECT_EQ(2 * records.hwSetup->nLines, 256);
  EXPECT_EQ(records.hwSetup->triggerDelay, 0.0);
}

TEST_F(WaveformPanel, SaveOptionsWriteWhatTheyNameAndAskBeforeTheyOverwrite) {
  Ground();
  EXPECT_EQ(Commit(pulse::SAVE), -1);
  EXPECT_EQ(frontEnd.messages, std::vector<std::string>{"There is no record yet. Press Run first."});
  Grid();
  ASSERT_EQ(Commit(pulse::RUN), 0);
  SetCtrlVal(pulse::SAVEOPTION, 0);
  frontEnd.fileAnswers = {{FileAnswer::IsNew, folder.File("a")},
                          {FileAnswer::IsNew, folder.File("b")},
                          {FileAnswer::IsNew, folder.File("a")},
                          {}};
  EXPECT_EQ(Commit(pulse::SAVE), 0);
  EXPECT_TRUE(Exists("a_r3.tim") && !Exists("a.spc") && !Exists("a.pls"));
  SetCtrlVal(pulse::SAVEOPTION, 1);
  EXPECT_EQ(Commit(pulse::SAVE), 0);
  EXPECT_TRUE(Exists("b.spc") && !Exists("b_r1.tim") && !Exists("b.pls"));
  Write("a_r2.tim", "mine");
  SetCtrlVal(pulse::SAVEOPTION, 0);
  frontEnd.confirmAnswers = {false};
  EXPECT_EQ(Commit(pulse::SAVE), -1);
  EXPECT_EQ(Read("a_r2.tim"), "mine");
  EXPECT_EQ(Commit(pulse::SAVE), 0) << "cancelled";
}

TEST_F(WaveformPanel, ASaveThatFailsLeavesNoPart) {
  Ground();
  Grid();
  ASSERT_EQ(Commit(pulse::RUN), 0);
  std::filesystem::create_directory(folder.File("c_r2.tim"));  // can't be replaced by a file
  frontEnd.confirmAnswers = {true};
  frontEnd.fileAnswers = {{FileAnswer::IsNew, folder.File("c")}};
  frontEnd.messages.clear();
  EXPECT_EQ(Commit(pulse::SAVE), -1);
  EXPECT_EQ(frontEnd.messages.size(), 1u);
  EXPECT_FALSE(Exists("c_r1.tim") || Exists("c.pls") || Exists("c.spc"));
}

// --- graphs ---

TEST_F(WaveformPanel, GraphsShowTracesSpectraAndAllReceivers) {
  Ground();
  Grid();
  EXPECT_TRUE(GraphOf(pulse::SECTION).plots.empty());
  ASSERT_EQ(Commit(pulse::RUN), 0);
  const WaveformRecord& record = State().result.record;
  ASSERT_EQ(GetNumListItems(pulse::DISPACHNL), 3);
  EXPECT_EQ(GetCtrlIndex(pulse::DISPBCHNL), 1);
  ASSERT_EQ(GraphOf(pulse::DISPLAY_B).plots.size(), 1u);
  EXPECT_EQ(GraphOf(pulse::DISPLAY_B).plots[0].y, record.trace[1]);
  EXPECT_EQ(GraphOf(pulse::DISPLAY_B).yAxis.unit, "m/s");
  EXPECT_NEAR(GraphOf(pulse::DISPLAY_B).plots[0].x[100], 0.1, 1e-12);

  const GraphModel& section = GraphOf(pulse::SECTION);
  ASSERT_EQ(section.plots.size(), 3u);
  for (std::size_t r = 0; r < 3; ++r)
    for (double y : section.plots[r].y) EXPECT_NEAR(y, record.receivers[r], 0.5 * record.receivers[r]);

  // Phase of the transfer function to the first receiver, and the power of a record by Parseval's sum.
  SetCtrlVal(pulse::DISPACHNL, 2);
  SetCtrlVal(pulse::DISPATYPE, static_cast<int>(DisplayType::TransferPhase));
  Commit(pulse::DISPATYPE);
  const auto& u = State().result.lines.u;
  EXPECT_NEAR(GraphOf(pulse::DISPLAY_A).plots[0].y[30], std::arg(u[2][30] / u[0][30]) * 180.0 / M_PI, 1e-9);
  EXPECT_TRUE(std::isnan(GraphOf(pulse::DISPLAY_A).plots[0].y[0]));
  SetCtrlVal(pulse::DISPATYPE, static_cast<int>(DisplayType::PowerSpectrum));
  SetCtrlVal(pulse::VOLT_UNIT, 2);  // squares
  Commit(pulse::VOLT_UNIT);
  double power = 0.0, squares = 0.0;
  for (double y : GraphOf(pulse::DISPLAY_A).plots[0].y) power += y;
  for (double v : record.trace[2]) squares += v * v / static_cast<double>(record.trace[2].size());
  EXPECT_NEAR(power / squares, 1.0, 1e-6);

  for (int type = 0; type <= 10; ++type) {
    SetCtrlVal(pulse::DISPATYPE, type);
    EXPECT_EQ(Commit(pulse::DISPATYPE), 0);
    EXPECT_EQ(GraphOf(pulse::DISPLAY_A).plots.size(), type == 10 ? 0u : 1u) << type;
    EXPECT_NE(GraphOf(pulse::DISPLAY_A).title, "") << type;
  }
}

TEST_F(WaveformPanel, SettingsBelongToTheTraceThatIsChosen) {
  Ground();
  Grid();
  ASSERT_EQ(Commit(pulse::RUN), 0);
  SetCtrlVal(pulse::DISPATYPE, static_cast<int>(DisplayType::LinearAmplitude));
  SetCtrlVal(pulse::DISPBTYPE, static_cast<int>(DisplayType::LinearAmplitude));
  Commit(pulse::DISPBTYPE);
  SetCtrlVal(pulse::TRACE_ONOFF, 1);
  Commit(pulse::TRACE_ONOFF);
  SetCtrlVal(pulse::LOG_LINEAR, 1);
  Commit(pulse::LOG_LINEAR);
  SetCtrlVal(pulse::MARKERS_ONOFF, 2);
  Commit(pulse::MARKERS_ONOFF);
  EXPECT_FALSE(GraphOf(pulse::DISPLAY_A).yAxis.logarithmic);
  EXPECT_TRUE(GraphOf(pulse::DISPLAY_B).yAxis.logarithmic);
  EXPECT_EQ(GraphOf(pulse::DISPLAY_A).cursors.size(), 0u);
  ASSERT_EQ(GraphOf(pulse::DISPLAY_B).cursors.size(), 2u);
  EXPECT_NE(GraphOf(pulse::DISPLAY_B).cursors[0].x, GraphOf(pulse::DISPLAY_B).cursors[1].x);
  SetCtrlVal(pulse::TRACE_ONOFF, 0);
  Commit(pulse::TRACE_ONOFF);
  EXPECT_EQ(GetCtrlVal(pulse::LOG_LINEAR), 0);
  const double peak = GraphOf(pulse::DISPLAY_A).plots[0].y[30];
  SetCtrlVal(pulse::VOLT_UNIT, 1);
  Commit(pulse::VOLT_UNIT);
  EXPECT_NEAR(GraphOf(pulse::DISPLAY_A).plots[0].y[30] / peak, std::sqrt(2.0), 1e-9);
}

}  // namespace
}  // namespace sondera
