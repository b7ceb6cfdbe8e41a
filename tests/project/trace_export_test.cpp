// Tests of the text exports of a trace: names, columns and values of every display type.
#include "project/trace_export.h"

#include <cmath>
#include <complex>
#include <filesystem>
#include <random>
#include <sstream>

#include "panels/mainmenu_export.h"
#include "records/session.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/text_format.h"
#include "support/comma_locale.h"
#include "support/session_fixture.h"
#include "support/temp_folder.h"

namespace sondera::testing {
namespace {

constexpr int kLines = 32;

class TraceExport : public SessionTest {
 protected:
  /// Three channels of random averages; the pair (1, 2) on display A.
  void SetUp() override {
    SessionTest::SetUp();
    m = AddMeasurement({.nChannels = 3, .nLines = kLines});
    std::mt19937 random(5);
    std::uniform_real_distribution<double> value(-1.0, 1.0);
    for (auto block : kRawBlocks)
      for (double& v : (m.raw->*block)) v = value(random);
    for (double& v : m.raw->powerSpec) v = std::fabs(v) + 0.1;
    SelectPair(m, 1, 2);
  }
  /// The pair's record, every array with values of its own.
  PMeasInfo& AddPair() {
    PMeasInfo& p = *MeasDB.pMeasList.append();
    SetupPairMeasArrays(p, kLines);
    p.key = m.key;
    p.refChan = 1;
    p.dspChan = 2;
    double next = 1.0;
    for (auto array : kPairArrays)
      for (double& v : (p.*array)) v = next += 0.5;
    return p;
  }
  std::string Out(const std::string& ext) const { return folder.File("out." + ext); }
  int Save(int type) { return SaveTraceData(1, 2, type, "A", folder.File("out.txt")); }
  /// The numbers, after a check of the form of the rows.
  std::vector<std::vector<double>> Rows(const std::string& ext, std::size_t columns) {
    const std::string whole = test::ReadWhole(Out(ext));
    EXPECT_TRUE(whole.ends_with("\n"));
    std::vector<std::vector<double>> rows;
    std::istringstream text(whole);
    for (std::string line; std::getline(text, line);) {
      std::vector<double> row;
      std::istringstream words(line);
      for (std::string word; std::getline(words, word, '\t');) {
        row.push_back(ParseReal(word));
        EXPECT_NE(word.find("e"), std::string::npos) << word;
      }
      EXPECT_EQ(row.size(), columns) << ext;
      row.resize(columns);
      rows.push_back(row);
    }
    return rows;
  }
  std::complex<double> Cross(int c, int i) const {
    const auto at = static_cast<std::size_t>(2 * kLines * c + i);
    return {m.raw->crossSpecRe[at], m.raw->crossSpecIm[at]};
  }
  std::complex<double> Linear(int c, int i) const {
    const auto at = static_cast<std::size_t>(2 * kLines * c + i);
    return {m.raw->linSpecRe[at], m.raw->linSpecIm[at]};
  }
  double Power(int c, int i) const { return m.raw->powerSpec[static_cast<std::size_t>(2 * kLines * c + i)]; }
  /// A file has a function of the line in each column after the frequency.
  template <class... F>
  void ExpectLines(const std::string& ext, F... at) {
    const auto rows = Rows(ext, 1 + sizeof...(at));
    ASSERT_EQ(rows.size(), static_cast<std::size_t>(kLines)) << ext;
    for (int i = 0; i < kLines; ++i) {
      const std::vector<double> want{i * m.hw->deltaF, at(i)...};
      for (std::size_t c = 0; c < want.size(); ++c)
        ASSERT_NEAR(rows[static_cast<std::size_t>(i)][c], want[c], 2e-6 * std::max(1.0, std::fabs(want[c])))
            << ext << " line " << i << " column " << c;
    }
  }
  static double Degrees(std::complex<double> z) { return std::arg(z) * 180.0 / std::acos(-1.0); }

  TestMeasurement m;
  test::TempFolder folder;
};

TEST_F(TraceExport, ATimeTraceCountsFromTheTrigger) {
  m.hw->triggerDelay = 10.0;
  ASSERT_EQ(Save(0), 0);
  const auto rows = Rows("tim", 2);
  ASSERT_EQ(rows.size(), 64u);
  for (std::size_t i = 0; i < 64; ++i) {
    EXPECT_NEAR(rows[i][0], (static_cast<double>(i) - 6.0) * m.hw->deltaT, 1e-9);
    EXPECT_NEAR(rows[i][1], m.raw->timeHist[128 + i], 1e-6);
  }
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"out.tim"});
}

TEST_F(TraceExport, ANegativeTriggerDelayMovesTheStartBehindZero) {
  m.hw->triggerDelay = -10.0;
  ASSERT_EQ(Save(0), 0);
  EXPECT_NEAR(Rows("tim", 2)[0][0], 6.0 * m.hw->deltaT, 1e-9);
}

TEST_F(TraceExport, LinearSpectraAreThreeFilesForBothTypes) {
  for (int type : {1, 2}) {
    ASSERT_EQ(Save(type), 0);
    EXPECT_EQ(folder.Names(), (std::vector<std::string>{"out.H", "out.Ha", "out.Hp"}));
    ExpectLines("Hp", [&](int i) { return Degrees(Linear(2, i)); });
    ExpectLines("Ha", [&](int i) { return std::abs(Linear(2, i)); });
    ExpectLines(
        "H", [&](int i) { return Linear(2, i).real(); }, [&](int i) { return Linear(2, i).imag(); });
    std::filesystem::remove(Out("H"));
  }
}

TEST_F(TraceExport, CrossSpectraAreThreeFilesForBothTypes) {
  const auto cross = [&](int i) { return Cross(2, i) * std::conj(Cross(1, i)) / Power(0, i); };
  for (int type : {6, 7}) {
    ASSERT_EQ(Save(type), 0);
    EXPECT_EQ(folder.Names(), (std::vector<std::string>{"out.Ga", "out.Gp", "out.gyx"}));
    ExpectLines("Gp", [&](int i) { return Degrees(cross(i)); });
    ExpectLines("Ga", [&](int i) { return std::abs(cross(i)); });
    ExpectLines(
        "gyx", [&](int i) { return cross(i).real(); }, [&](int i) { return cross(i).imag(); });
    std::filesystem::remove(Out("gyx"));
  }
}

TEST_F(TraceExport, APowerSpectrumIsThatOfTheDisplayChannel) {
  ASSERT_EQ(Save(5), 0);
  ExpectLines("Gxx", [&](int i) { return std::sqrt(Power(2, i)); });
}

TEST_F(TraceExport, CoherenceIsOneFileOfTwoColumns) {
  ASSERT_EQ(Save(8), 0);
  ExpectLines("coh", [&](int i) {
    return std::norm(Cross(2, i) * std::conj(Cross(1, i)) / Power(0, i)) / (Power(1, i) * Power(2, i));
  });
}

TEST_F(TraceExport, TransferFunctionsAreTheFourFilesOfThePairsArrays) {
  const PMeasInfo& p = AddPair();
  for (int type : {3, 4}) {
    ASSERT_EQ(Save(type), 0);
    EXPECT_EQ(folder.Names(), (std::vector<std::string>{"out.TFa", "out.TFp", "out.hyx", "out.hyxSM"}));
    const auto of = [](const std::vector<double>& a) {
      return [&a](int i) { return a[static_cast<std::size_t>(i)]; };
    };
    ExpectLines("TFp", of(p.hPhase), of(p.phaseOrig), of(p.enPhase), of(p.phaseEn));
    ExpectLines("TFa", of(p.hAmp), of(p.enAmp));
    ExpectLines("hyxSM", of(p.enRe), of(p.enIm));
    ExpectLines("hyx", of(p.hRe), of(p.hIm));
    std::filesystem::remove(Out("hyx"));
  }
}

TEST_F(TraceExport, RowsBelowTheFirstImportedLineAreZero) {
  AddPair();
  m.hw->freqSpan = -m.hw->freqSpan;
  m.hw->startFreq = 5.0 * m.hw->deltaF;
  ASSERT_EQ(Save(3), 0);
  const auto rows = Rows("hyx", 3);
  ASSERT_EQ(rows.size(), static_cast<std::size_t>(kLines));
  for (std::size_t i = 0; i < 5; ++i) EXPECT_TRUE(rows[i][1] == 0.0 && rows[i][2] == 0.0) << i;
  EXPECT_NE(rows[5][1], 0.0);
  EXPECT_NEAR(rows[4][0], 4.0 * m.hw->deltaF, 1e-4) << "the frequency stays";
}

TEST_F(TraceExport, AnImpulseResponseHasFiveColumnsOfThePairsArrays) {
  const PMeasInfo& p = AddPair();
  ASSERT_EQ(Save(9), 0);
  const auto rows = Rows("ir", 5);
  ASSERT_EQ(rows.size(), 64u);
  for (std::size_t i = 0; i < 64; ++i) {
    EXPECT_NEAR(rows[i][0], static_cast<double>(i) * m.hw->deltaT, 1e-9);
    EXPECT_NEAR(rows[i][1], p.irRe[i], 1e-3);
    EXPECT_NEAR(rows[i][2], p.irIm[i], 1e-3);
    EXPECT_NEAR(rows[i][3], p.enIrRe[i], 1e-3);
    EXPECT_NEAR(rows[i][4], p.enIrIm[i], 1e-3);
  }
}

TEST_F(TraceExport, AGaborMapGoesFrequencyByFrequency) {
  PMeasInfo& p = AddPair();
  p.phaseOption = 1;
  p.timeDiv = 3;
  p.freqDiv = 2;
  p.initTime = 0.1;
  p.finalTime = 0.3;
  p.initFreq = 10;
  p.finalFreq = 20;
  for (int j = 0; j < 2; ++j)
    for (int i = 0; i < 3; ++i) p.gaborMap(1)[static_cast<std::size_t>(50 * j + i)] = 10.0 * j + i + 1;
  ASSERT_EQ(Save(10), 0);
  const std::vector<std::vector<double>> want = {{0.1, 10, 1},  {0.2, 10, 2},  {0.3, 10, 3},
                                                 {0.1, 20, 11}, {0.2, 20, 12}, {0.3, 20, 13}};
  const auto rows = Rows("gab", 3);
  ASSERT_EQ(rows.size(), want.size());
  for (std::size_t k = 0; k < want.size(); ++k)
    for (std::size_t c = 0; c < 3; ++c) EXPECT_NEAR(rows[k][c], want[k][c], 1e-6);
}

TEST_F(TraceExport, AMapThatWasNotCalculatedIsAskedFor) {
  AddPair();
  EXPECT_EQ(Save(10), -1);
  EXPECT_EQ(OnlyMessage(), "Calcualte Gabor spectrum, first.");
  EXPECT_TRUE(folder.Names().empty());
}

TEST_F(TraceExport, APairWithoutRecordGetsOneFromTheAverages) {
  m.setup->recLoc = {10.0, 20.0, 30.0};
  ASSERT_EQ(Save(3), 0);
  ASSERT_NE(FindPair(m.key, 1, 2), nullptr);
  ExpectLines(
      "hyx", [&](int i) { return (Cross(2, i) / Cross(1, i)).real(); },
      [&](int i) { return (Cross(2, i) / Cross(1, i)).imag(); });
}

TEST_F(TraceExport, APairMadeForTraceBIsFilteredAndTheSelectedTraceStays) {
  SetCtrlVal(sasw::DISPBID, GetCtrlVal(sasw::DISPAID));
  SetCtrlVal(sasw::DISPB_REFCHNL, 0);
  SetCtrlVal(sasw::DISPBCHNL, 1);
  SetCtrlVal(sasw::DISPBTYPE, 4);
  SetCtrlVal(sasw::TRACE_ONOFF, 0);
  ASSERT_EQ(SaveTraceB(folder.File("out")), 0);
  const PMeasInfo* p = FindPair(m.key, 0, 1);
  ASSERT_NE(p, nullptr);
  EXPECT_GT(p->enAmp[3], 0.0) << "the enhanced spectrum was computed";
  EXPECT_EQ(GetCtrlVal(sasw::TRACE_ONOFF), 0);
}

TEST_F(TraceExport, AmplitudesComeInTheUnitOfTheTrace) {
  session.display[0].voltUnit = 1;  // V pk
  ASSERT_EQ(Save(2), 0);
  ExpectLines("Ha", [&](int i) { return std::abs(Linear(2, i)) * std::sqrt(2.0); });
  ASSERT_EQ(Save(5), 0);
  ExpectLines("Gxx", [&](int i) { return std::sqrt(2.0 * Power(2, i)); });
  ASSERT_EQ(Save(7), 0);
  ExpectLines("Ga",
              [&](int i) { return 2.0 * std::abs(Cross(2, i) * std::conj(Cross(1, i)) / Power(0, i)); });
}

TEST_F(TraceExport, TheDialogNamesTheDisplayAndExistingFilesAreAskedAbout) {
  AddPair();
  frontEnd.fileAnswers = {{FileAnswer::IsNew, folder.File("out")}, {FileAnswer::IsNew, folder.File("out")}};
  ASSERT_EQ(SaveTraceData(1, 2, 3, "A", ""), 0);
  EXPECT_EQ(frontEnd.files[0].title, "Save the Data on Display A");
  EXPECT_TRUE(frontEnd.questions.empty());
  const std::string before = test::ReadWhole(Out("hyx"));
  MeasDB.pMeasList.at(1)->hRe[3] = 77.0;
  EXPECT_EQ(SaveTraceData(1, 2, 3, "A", ""), -1) << "one of the four is there, and the answer is no";
  EXPECT_EQ(frontEnd.questions,
            std::vector<std::string>{"File already exists. Do you want to overwrite it ?"});
  EXPECT_EQ(test::ReadWhole(Out("hyx")), before);
}

TEST_F(TraceExport, ACancelWritesNothingAndSaysNothing) {
  EXPECT_EQ(Save_TraceACallback(Panel::MAINMENU, nullptr, Event::Commit, 0), -1);
  EXPECT_EQ(SaveAs_TraceBCallback(Panel::MAINMENU, nullptr, Event::Commit, 0), -1);
  EXPECT_TRUE(frontEnd.messages.empty());
  EXPECT_EQ(frontEnd.files[1].title, "Save the Data on Display B");
}

TEST_F(TraceExport, WhatDoesNotExistIsOneMessage) {
  EXPECT_EQ(Save(11), -1);
  EXPECT_EQ(Save(-1), -1);
  EXPECT_EQ(SaveTraceData(1, 3, 0, "A", folder.File("out")), -1);
  EXPECT_EQ(SaveTraceData(-1, 2, 0, "A", folder.File("out")), -1);
  EXPECT_EQ(frontEnd.messages.size(), 4u);
  EXPECT_TRUE(folder.Names().empty());
  ResetEverything();
  EXPECT_EQ(SaveTraceA(folder.File("out")), -1) << "nothing is selected";
  EXPECT_EQ(frontEnd.messages.size(), 5u);
}

TEST_F(TraceExport, AFolderThatIsNotThereIsOneMessageForAllFiles) {
  AddPair();
  EXPECT_EQ(SaveTraceData(1, 2, 3, "A", folder.File("none/out")), -1);
  EXPECT_TRUE(OnlyMessage().starts_with("The data could not be saved. "));
}

TEST_F(TraceExport, NumbersHaveAPointInEveryLocale) {
  test::CommaLocale locale;
  if (!locale.Available()) GTEST_SKIP();
  ASSERT_EQ(Save(8), 0);
  EXPECT_EQ(test::ReadWhole(Out("coh")).find(','), std::string::npos);
}

TEST_F(TraceExport, LinesThatAreNoPowerOfTwoKeepTheirRowCounts) {
  const TestMeasurement odd = AddMeasurement({.measID = "odd", .nLines = 20});
  for (auto block : kRawBlocks) (odd.raw->*block).assign((odd.raw->*block).size(), 0.5);
  SelectPair(odd, 0, 1);
  for (int type : {0, 3, 5, 9}) ASSERT_EQ(SaveTraceData(0, 1, type, "A", folder.File("out")), 0);
  EXPECT_EQ(Rows("tim", 2).size(), 64u);
  EXPECT_EQ(Rows("ir", 5).size(), 64u);
  EXPECT_EQ(Rows("TFp", 5).size(), 20u);
  EXPECT_EQ(Rows("Gxx", 2).size(), 20u);
}

TEST_F(TraceExport, ABlockThatNoRecordFilledIsNotWritten) {
  const struct {
    std::vector<double> RawData::*block;
    std::vector<int> types;
    const char* name;
  } cases[] = {{&RawData::timeHist, {0}, "time records"},
               {&RawData::powerSpec, {5, 6, 7, 8}, "power spectra"}};
  for (const auto& c : cases) {
    const std::vector<double> before = m.raw->*c.block;
    (m.raw->*c.block).assign(before.size(), 0.0);
    for (int type : c.types) {
      frontEnd.messages.clear();
      EXPECT_EQ(Save(type), -1) << type;
      EXPECT_EQ(OnlyMessage(), std::string("The measurement measID has no ") + c.name +
                                   ": there is nothing to write for this display.");
      EXPECT_TRUE(folder.Names().empty()) << type;
    }
    m.raw->*c.block = before;
  }
  m.raw->linSpecRe.assign(m.raw->linSpecRe.size(), 0.0);
  EXPECT_EQ(Save(1), 0) << "one part of it is enough";
  m.raw->crossSpecRe.assign(m.raw->crossSpecRe.size(), 0.0);
  m.raw->crossSpecIm.assign(m.raw->crossSpecIm.size(), 0.0);
  for (int type : {3, 4, 6, 8, 9}) EXPECT_EQ(Save(type), -1) << type;
}

TEST(GetPlotInfo, KnowsItsExtensions) {
  ResetEverything();
  const TestMeasurement m = AddMeasurement({.nLines = 4});
  MeasRecords r;
  GetInfoFromKey(m.key, r);
  const std::pair<int, const char*> kExtensions[] = {
      {0, "tim"}, {1, "Hp"}, {2, "Ha"}, {21, "H"},   {3, "TFp"}, {4, "TFa"}, {22, "hyx"},
      {5, "Gxx"}, {6, "Gp"}, {7, "Ga"}, {23, "gyx"}, {8, "coh"}, {9, "ir"},  {10, "gab"}};
  for (const auto& [type, ext] : kExtensions) {
    PlotSeries s;
    EXPECT_EQ(GetPlotInfo(0, 1, type, r, VoltUnit::Vrms, s), type == 10 ? -1 : 0) << type;
    EXPECT_EQ(s.ext, ext);
  }
  PlotSeries s;
  for (int type : {-1, 11, 20, 24}) EXPECT_EQ(GetPlotInfo(0, 1, type, r, VoltUnit::Vrms, s), -1) << type;
}

TEST_F(TraceExport, ValuesThatAreNotFiniteAreRefusedAndTheFormerFileStays) {
  test::WriteWhole(Out("Gp"), "the former file");
  for (const double bad : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
    frontEnd.messages.clear();
    m.raw->crossSpecRe[7] = bad;
    for (const int type : {0, 3, 6, 8}) EXPECT_EQ(Save(type), -1) << type;
    EXPECT_EQ(frontEnd.messages.front(),
              "The data on display A are not saved: 1 of their values are infinite or NaN.");
  }
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"out.Gp"});
  EXPECT_EQ(test::ReadWhole(Out("Gp")), "the former file");
}

TEST_F(TraceExport, ResultsThatAreNotFiniteAreRefused) {
  AddPair().phaseEn[3] = std::nan("");
  EXPECT_EQ(Save(3), -1);
  EXPECT_EQ(frontEnd.messages.size(), 1u);
  EXPECT_TRUE(folder.Names().empty());
}

TEST(GetPlotInfo, ComplexSeriesBringTheBandLimitsUpToDate) {
  ResetEverything();
  const TestMeasurement m = AddMeasurement({.nLines = 4});
  m.hw->startFreq = 7.0;
  m.hw->stopFreq = 8.0;
  MeasRecords r;
  GetInfoFromKey(m.key, r);
  PlotSeries s;
  ASSERT_EQ(GetPlotInfo(0, 1, 22, r, VoltUnit::Vrms, s), 0);
  EXPECT_EQ(m.hw->startFreq, 0.0);
  EXPECT_EQ(m.hw->stopFreq, m.hw->freqSpan);
}

}  // namespace
}  // namespace sondera::testing
